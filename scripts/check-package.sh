#!/bin/sh
# Installs the release build into a folder of its own and builds and runs the host of
# tests/consumer against the installed files alone: through the CMake package, then through
# pkg-config.
set -eu
cd "$(dirname "$0")/.."

stage="$PWD/build/stage"
work="$PWD/build/consumer"
rm -rf "$stage" "$work"
mkdir -p "$work"
cmake --install build/release --prefix "$stage" >/dev/null
convert -size 900x600 gradient:blue-orange "$work/photo.jpg"

check_result() {
    size="$(identify -format '%wx%h' "$1")"
    [ "$size" = "560x800" ] || {
        echo "$1 is $size, not 560x800" >&2
        exit 1
    }
}

cmake -S tests/consumer -B "$work/cmake" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_PREFIX_PATH="$stage" >/dev/null
cmake --build "$work/cmake"
"$work/cmake/photo-host" "$work/photo.jpg" "$work/by-cmake.jpg"
check_result "$work/by-cmake.jpg"
CLOSE_AT_ONCE=1 QT_QPA_PLATFORM=offscreen \
    "$work/cmake/photo-editor" "$work/photo.jpg" "$work/edits.xml"
grep -q ZEV_Photo_Info "$work/edits.xml"

pc_folder="$(dirname "$(find "$stage" -name vellora.pc)")"
flags="$(PKG_CONFIG_PATH="$pc_folder" pkg-config --cflags --libs vellora)"
# shellcheck disable=SC2086  # several flags
${CXX:-g++} -std=c++20 -fPIC tests/consumer/main.cpp -o "$work/by-pkg-config" $flags
LD_LIBRARY_PATH="$(dirname "$pc_folder")" \
    "$work/by-pkg-config" "$work/photo.jpg" "$work/by-pkg-config.jpg"
check_result "$work/by-pkg-config.jpg"
