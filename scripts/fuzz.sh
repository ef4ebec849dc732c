#!/bin/sh
# Feeds changed clips of the library to the metafile readers, for so many seconds. A file that fails
# is left in build/fuzz. The corpus grows beside it from run to run.
#
# usage: scripts/fuzz.sh SECONDS
set -eu
cd "$(dirname "$0")/.."

./scripts/packages.sh --gate
cmake --preset fuzz
cmake --build --preset fuzz --parallel "$(nproc)"
cd build/fuzz
mkdir -p corpus
# Leaks are not looked for: fontconfig keeps its tables to the end.
ASAN_OPTIONS=detect_leaks=0 QT_QPA_PLATFORM=offscreen tests/fuzz/vellora_metafile_fuzz \
    -max_len=65536 -max_total_time="$1" -print_final_stats=1 corpus ../../assets/ArtClip
