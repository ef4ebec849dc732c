#!/bin/sh
# Makes the Debian packages from the release build and lets lintian look at them.
set -eu
cd "$(dirname "$0")/../build/release"

rm -f ./*.deb
cpack -G DEB >/dev/null
# Root is what a gate runs as; the packages do not care.
lintian --allow-root --fail-on error --suppress-tags maintscript-calls-ldconfig ./*.deb
ls ./*.deb
