#!/bin/sh
# Makes the Debian packages from the release build and lets lintian look at them.
set -eu
cd "$(dirname "$0")/.."

rm -f build/release/*.deb
cmake --build --preset release --target package >/dev/null
cd build/release
# Root is what a gate runs as; the packages do not care.
lintian --allow-root --fail-on error --suppress-tags maintscript-calls-ldconfig ./*.deb
ls ./*.deb
