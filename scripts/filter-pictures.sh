#!/bin/sh
# Renders the pictures of docs/filters.md: sample photos under every filter of the catalogue. Needs
# the release build.
set -eu
top="$(cd "$(dirname "$0")/.." && pwd)"
build="$top/build/release"
pictures="$top/docs/filters"
photos="$(mktemp -d)"
trap 'rm -rf "$photos"' EXIT
mkdir -p "$pictures"
"$build/tools/scenes/vellora-scenes" "$photos" --size 600x400 >/dev/null 2>&1

# picture FILE PHOTO OPTION...
picture() {
    ln -s "$2.jpg" "$photos/$1.jpg"
    file="$1"
    shift 2
    "$build/apps/vellora/vellora" render --quiet --overwrite --seed 1 --size 300x200 --quality 85 \
        --out "$pictures" "$@" "$photos/$file.jpg"
}

picture original landscape
picture color-matrix landscape --filter 'Color Matrix'
picture grey landscape --filter Grey
picture brightness-contrast landscape --filter 'Brightness Contrast=25,30'
picture hsl landscape --filter HSL=0,80,10
picture gauss-smooth landscape --filter 'Gauss Smooth'
picture sharpen landscape --filter Sharpen
picture red-eye-removal portrait --filter 'Red Eye Removal=30' --roi 0.4,0.3,0.2,0.3
picture rotate landscape --filter Rotate=530
picture contour landscape --filter Contour=30,10,400
picture depth-dim landscape --filter 'Depth Dim' --roi 0.5,0.2,0.3,0.4
picture wave landscape --filter Wave
picture mist landscape --filter Mist=100
picture snow landscape --filter Snow=60,150,600
picture rain landscape --filter Rain=15,30,5000
picture water-paint landscape --filter 'Water Paint'
picture wax-paint landscape --filter 'Wax Paint'
picture hard-pastels landscape --filter 'Hard Pastels'
picture oil-paint landscape --filter 'Oil Paint'
picture dot-paint landscape --filter 'Dot Paint'
picture inverse landscape --filter Inverse
picture black-white landscape --filter 'Black&White'
picture carve landscape --filter Carve
picture embossment landscape --filter Embossment
picture canvas landscape --filter Canvas=20
picture wood landscape --filter Wood
