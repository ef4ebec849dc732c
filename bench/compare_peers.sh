#!/bin/sh
# Compares whole jobs of `vellora render` with the same jobs of other programs: process start to
# exit, one thread, decode, work, encode at quality 90. The programs are not dependencies; those
# that are not installed are left out. scripts/packages.sh --peers installs them all.
#
# usage: compare_peers.sh [PHOTO.jpg | MEGAPIXELS]     default: a painted photo of 12 megapixels
# Prints a Markdown table of CPU seconds per megapixel, one line a job. Takes the release preset;
# asks nothing and gives up a command after five minutes.
set -eu
top="$(cd "$(dirname "$0")/.." && pwd)"
vellora="$top/build/release/apps/vellora/vellora"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

export OPENCV_FOR_THREADS_NUM=1 OMP_NUM_THREADS=1 MAGICK_THREAD_LIMIT=1 VIPS_CONCURRENCY=1 \
    GEGL_THREADS=1 QT_QPA_PLATFORM=offscreen

if [ -f "${1:-}" ]; then
    cp "$1" "$work/photo.jpg"
else
    "$top/build/release/tools/scenes/vellora-scenes" --only landscape --megapixels "${1:-12}" \
        "$work" >/dev/null 2>&1
    mv "$work/landscape.jpg" "$work/photo.jpg"
fi
cd "$work"
size="$("$vellora" info --json photo.jpg |
    python3 -c 'import json, sys; i = json.load(sys.stdin); print(i["width"], i["height"])')"
width="${size% *}"
height="${size#* }"
megapixels="$(awk "BEGIN { print $width * $height / 1e6 }")"
stage="$(awk "BEGIN { print $width / 600 }")"
# Debian's own name of ImageMagick's program, where it has one.
im="$(command -v convert-im6 || echo convert)"
clip="$top/assets/demo/frame.svg"
printf '3 3 1 0\n-2 -1 0\n-1 1 1\n0 1 2\n' >relief.mat
printf 'P3 3 3 12\n1 1 1 5 5 5 6 6 6\n5 5 5 8 8 8 7 7 7\n6 6 6 7 7 7 8 8 8\n' >relief.ppm

# measured COMMAND: "CPU MB", the time by megapixel
measured() {
    python3 "$top/bench/measure.py" "$1" |
        awk -v mp="$megapixels" '$1 == "-" { print "- -"; next } { printf "%.4f %s\n", $1 / mp, $2 }'
}

# peer NAME PROGRAM COMMAND: adds to the line of the present job
peer() {
    command -v "$2" >/dev/null || return 0
    set -- "$1" $(measured "$3")
    [ "$2" != - ] || return 0
    others="$others $1 $2 ($3 MB),"
    best="$(least "$best" "$2")"
    [ "$1" = np ] || bestOne="$(least "$bestOne" "$2")"
    [ "$1" != vips ] || vips="$2"
}

# least A B: the smaller number; A may be empty
least() {
    awk -v a="$1" -v b="$2" 'BEGIN { print (a != "" && a + 0 < b + 0 ? a : b) }'
}

# ratio PEER: our time to the peer's
ratio() {
    awk -v a="$ours" -v b="${1:-0}" 'BEGIN { print (b > 0 ? sprintf("%.2f", a / b) : "-") }'
}

# job NAME OPTIONS OF RENDER; the peers of the job follow, then end_job
job() {
    name="$1"
    shift
    best=""
    bestOne=""
    vips=""
    others=""
    set -- $(measured "'$vellora' render --overwrite --out results $* photo.jpg")
    ours="$1"
    peak="$2"
    if [ "$ours" = - ]; then
        echo "$name: vellora fails" >&2
        exit 1
    fi
}

end_job() {
    printf '| %s | %s | %s | %s | %s | %s |%s |\n' "$name" "$ours" "$peak" \
        "$(ratio "$best")" "$(ratio "$bestOne")" "$(ratio "$vips")" "${others%,}"
}

# The frequent forms: magick OPTIONS for both, vips OPERATION ARGUMENTS, pnm FILTER, gegl OPERATION.
magick() {
    peer im "$im" "$im photo.jpg $* -quality 90 im.jpg"
    peer gm gm "gm convert photo.jpg $* -quality 90 gm.jpg"
}
vips_job() {
    operation="$1"
    shift
    peer vips vips "vips $operation photo.jpg vips.jpg[Q=90] $*"
}
pnm() {
    peer np jpegtopnm "jpegtopnm photo.jpg | $* | pnmtojpeg -quality=90 >np.jpg"
}
gegl_job() {
    peer gegl gegl "gegl photo.jpg -o gegl.jpg -- $*"
}
gmic_job() {
    peer gmic gmic "gmic photo.jpg $* -o gmic.jpg,90"
}

printf '| Job | vellora, s/MP | peak, MB | to the fastest | to the fastest but np | to vips | peers, s/MP (peak) |\n'
printf '|---|---|---|---|---|---|---|\n'

job "load and save"
magick
vips_job copy
peer np jpegtopnm "jpegtopnm photo.jpg | pnmtojpeg -quality=90 >np.jpg"
gegl_job gegl:nop
gmic_job
end_job

job grey --filter Grey
magick -colorspace Gray
vips_job colourspace b-w
pnm ppmtopgm
gegl_job gegl:saturation scale=0
gmic_job -luminance
end_job

job "brightness, contrast" --filter "'Brightness Contrast=20,10'"
peer im "$im" "$im photo.jpg -brightness-contrast 8x10 -quality 90 im.jpg"
peer gm gm "gm convert photo.jpg -operator All Multiply 1.1 -quality 90 gm.jpg"
vips_job linear 1.1 8
pnm pamfunc -multiplier=1.1
gegl_job gegl:brightness-contrast brightness=0.08 contrast=1.1
gmic_job -mul 1.1 -add 8 -cut 0,255
end_job

job "hue, saturation" --filter HSL=10,30,5
magick -modulate 105,130,106
pnm ppmbrighten -s 30 -v 5
gegl_job gegl:hue-chroma hue=10 chroma=10 lightness=2
end_job

job "Gaussian blur 11 x 11" --filter "'Gauss Smooth=5'"
magick -blur 5x2
vips_job gaussblur 2
gegl_job gegl:gaussian-blur std-dev-x=2 std-dev-y=2
gmic_job -blur 2
end_job

job sharpen --filter Sharpen=50
magick -sharpen 0x1
vips_job sharpen
gegl_job gegl:unsharp-mask std-dev=1
gmic_job -sharpen 50
end_job

job emboss --filter Embossment=64,1
magick -emboss 1
vips_job conv relief.mat
pnm pnmconvol relief.ppm
gegl_job gegl:emboss
gmic_job -emboss
end_job

job "oil paint" --filter "'Oil Paint=30'"
magick -paint 5
gegl_job gegl:oilify mask-radius=5
end_job

job "rotate by 17 degrees" --filter Rotate=547
magick -rotate 17
vips_job rotate 17
pnm pnmrotate 17
gegl_job gegl:rotate degrees=17
gmic_job -rotate 17
end_job

job wave --filter Wave
magick -wave 10x200
gegl_job gegl:waves
gmic_job -wave 10,0.4
end_job

job "blur that grows with distance" --filter "'Depth Dim'"
gegl_job gegl:focus-blur
end_job

job "random displacement" --filter Canvas=5
magick -spread 5
pnm ppmspread 5
gegl_job gegl:noise-spread amount-x=5 amount-y=5
end_job

job "vector clip over the whole photo" --clip "'$clip@0,0,600,450'"
magick -draw "'image over 0,0,$width,$height $clip'"
peer vips vips "vips svgload '$clip' clip.v --scale $stage && vips composite2 photo.jpg clip.v vips.jpg[Q=90] over"
end_job

words="A walk along the river"
job "text with stroke and shadow" --effect 4 --font-size 40 --text "'$words@60,200'"
points="$(awk "BEGIN { print 53 * $stage }")"
x="$(awk "BEGIN { print int(60 * $stage) }")"
y="$(awk "BEGIN { print int(240 * $stage) }")"
text="-fill white -stroke black -strokewidth $stage -draw \"text $x,$y '$words'\""
font="-font $(fc-match -f '%{file}' 'DejaVu Sans:bold') -pointsize $points"
peer im "$im" "$im photo.jpg \\( -size ${width}x$height xc:none $font -draw \"text $x,$y '$words'\" -blur 0x$stage \\) -composite $font $text -quality 90 im.jpg"
peer gm gm "gm convert photo.jpg $font -fill black -draw \"text $((x + 12)),$((y + 12)) '$words'\" $text -quality 90 gm.jpg"
end_job
