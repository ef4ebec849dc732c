#!/bin/sh
# Builds Vellora, paints sample photos and renders them with filters, crops, flips, clips and texts,
# one by one and as a slideshow.
# Photos given as arguments are rendered as well. The results are in out/demo.
set -eu
top="$(cd "$(dirname "$0")/.." && pwd)"

(
    cd "$top"
    ./scripts/packages.sh
    cmake --preset release
    cmake --build --preset release --parallel "$(nproc)"
)

photos="$top/out/photos"
results="$top/out/demo"
clips="$top/assets/demo"
rm -rf "$photos" "$results"
"$top/build/release/tools/scenes/vellora-scenes" "$photos"

vellora() {
    "$top/build/release/apps/vellora/vellora" "$@"
}

# render NAME PHOTO OPTION...: the photo with some edits, under a name of its own
render() {
    ln -s "$2.jpg" "$photos/$1.jpg"
    name="$1"
    shift 2
    vellora render --seed 1 --out "$results" "$@" "$photos/$name.jpg"
}

render lake-framed landscape --filter 'Brightness Contrast=15,20' --filter HSL=0,40,5 \
    --size 1200x900 --fit fill \
    --clip "$clips/frame.svg@0,0,600,450" --clip "$clips/star.svg@490,35,75,75"
render lake-painted landscape --flip-x --crop 60,60,480,320 --filter 'Oil Paint=30'
render lake-carved landscape --crop 0,90,300,200 --filter Embossment=120,3
render woman-close portrait --crop 55,75,250,250 --filter 'Brightness Contrast=5,10' \
    --clip "$clips/star.svg@455,315,120,120"
render woman-grey portrait --filter 'Gauss Smooth=2' --filter Sharpen=80 --filter Grey
render city-focused night --filter 'Depth Dim' --roi 0.4,0.3,0.25,0.3 --filter Snow=60,150,600
render city-upright night --rotate 270 --size 800x600 --fit inside --background 203040

# A slideshow: titles from its .vshow, edits, an album text with a macro and styled texts from its XML
cp "$clips/holiday.vshow" "$clips/holiday.xml" "$photos"
vellora render --out "$results/show" --size 1200x900 --fit inside "$photos/holiday.vshow"

if [ "$#" -gt 0 ]; then
    vellora render --out "$results" --filter 'Brightness Contrast=10,10' \
        --clip "$clips/star.svg@490,35,75,75" "$@"
fi

printf '\nThe pictures are in %s:\n' "$results"
ls "$results" "$results/show"

desktop="$top/build/release/apps/desktop/vellora-desktop"
if [ -x "$desktop" ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    "$desktop" "$photos/holiday.vshow"
fi
