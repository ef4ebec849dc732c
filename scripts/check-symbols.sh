#!/bin/sh
# Compares the functions that the library exports with packaging/exported-symbols.txt. With
# --update it writes the list anew: a change of it is a change of the interface.
set -eu
cd "$(dirname "$0")/.."

list=packaging/exported-symbols.txt
export LC_ALL=C
found="$(nm -DC --defined-only build/release/src/libvellora.so |
    sed -n 's/^[0-9a-f]* T //p' | sort -u)"
if [ "${1:-}" = "--update" ]; then
    printf '%s\n' "$found" >"$list"
    exit 0
fi
printf '%s\n' "$found" | diff -u "$list" - || {
    echo "The exported functions have changed; if that is meant: $0 --update" >&2
    exit 1
}
