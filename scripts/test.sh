#!/bin/sh
# Installs what is missing, builds the optimised preset and runs all tests. Arguments are handed
# to ctest, for instance: ./scripts/test.sh -R Crop
set -eu
cd "$(dirname "$0")/.."

./scripts/packages.sh
cmake --preset release
cmake --build --preset release --parallel "$(nproc)"
ctest --preset release "$@"
