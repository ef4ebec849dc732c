#!/bin/sh
# Prints, for docs/performance.md, the peak memory of `vellora render` with each filter above that
# of its start, in decoded pictures. Takes the release preset.
#
# Usage: scripts/filter-memory.sh [MEGAPIXELS]     (default: 12)
set -eu
top="$(cd "$(dirname "$0")/.." && pwd)"
vellora="$top/build/release/apps/vellora/vellora"
megapixels="${1:-12}"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
export OPENCV_FOR_THREADS_NUM=1 QT_QPA_PLATFORM=offscreen

"$top/build/release/tools/scenes/vellora-scenes" --only landscape --megapixels "$megapixels" "$work" \
    >/dev/null 2>&1
cd "$work"

# peak COMMAND: in MB
peak() {
    python3 "$top/bench/measure.py" "$1" | cut -d ' ' -f 2
}

start="$(peak "'$vellora' filters")"
printf '| Filter | Peak, MB | Pictures above the start (%s MB) | Goal |\n|---|---|---|---|\n' "$start"
while IFS=: read -r filter goal; do
    option=""
    [ -z "$filter" ] || option="--filter '$filter'"
    megabytes="$(peak "'$vellora' render --overwrite --out results $option landscape.jpg")"
    awk -v name="${filter:-none}" -v mb="$megabytes" -v start="$start" -v goal="$goal" -v mp="$megapixels" 'BEGIN {
        printf "| %s | %d | %.1f | %s |\n", name, mb, (mb - start) * 1024 * 1024 / (3e6 * mp), goal
    }'
done <<'LIST'
:1.5
Grey:1.5
Brightness Contrast=20,30:1.5
HSL=20,30,10:1.5
Gauss Smooth=5:2
Wax Paint=40,20:3.5
Wax Paint=8,20:3.5
Oil Paint=30:3.5
Oil Paint=1:3.5
Depth Dim:6
Contour=30,10,400:6
Rotate=547:-
Canvas=5:-
Snow:-
Wave:-
Mist=70:-
Water Paint=65:-
Hard Pastels=25,30,15:-
Dot Paint:-
LIST
