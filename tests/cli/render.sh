# What the options do to the result.
. "$(dirname "$0")/harness.sh"
convert -size 120x90 gradient:red-blue -swirl 60 -depth 8 photo.png
convert photo.png -quality 95 photo.jpg

expect 0 render --out whole --format png photo.png
silent
same_pictures photo.png whole/photo.png
expect 0 render --out new/folder photo.jpg
has_size new/folder/photo.jpg 120x90
identify -format %m new/folder/photo.jpg | grep -q JPEG || fail "the result is no JPEG file"

# Sizes: a small photo is never enlarged by box and inside.
convert -size 1200x900 gradient:green-white large.jpg
expect 0 render --out box --size 800x800 large.jpg
has_size box/large.jpg 800x600
expect 0 render --out inside --size 800x800 --fit inside --background 00FF00 large.jpg
has_size inside/large.jpg 800x800
corner="$(convert inside/large.jpg -format '%[pixel:p{5,5}]' info:)"
case "$corner" in
    "srgb(0,255,"* | lime) ;;
    *) fail "the background is $corner" ;;
esac
expect 0 render --out fill --size 300x600 --fit fill large.jpg
has_size fill/large.jpg 300x600
expect 0 render --out preview --preview large.jpg
has_size preview/large.jpg 600x450

# Flips and turns. A quarter turn swaps the sides.
convert photo.png -flop flopped.png
convert photo.png -flip flipped.png
expect 0 render --out turned --format png --flip-x photo.png
same_pictures flopped.png turned/photo.png
expect 0 render --out turned --overwrite --format png --flip-y photo.png
same_pictures flipped.png turned/photo.png
expect 0 render --out turned --overwrite --format png --rotate 90 photo.png
has_size turned/photo.png 90x120

# Filters and crops in the order given: the crop leaves a uniform half.
convert -size 100x100 xc:white -fill black -draw 'rectangle 50,0 99,99' halves.png
convert -size 50x100 xc:black black.png
expect 0 render --out order --format png --crop 0,0,50,100 --filter Inverse halves.png
same_pictures black.png order/halves.png
convert -size 600x300 xc:white -fill black -draw 'rectangle 300,0 599,299' -quality 100 wide.jpg
expect 0 render --out order --format png --crop 310,0,200,300 --crop 0,0,50,40 wide.jpg
has_size order/wide.png 50x40

# A clip lies at its place on the stage, which this photo fills.
convert -size 600x450 xc:white stage.png
convert -size 10x10 xc:red clip.png
expect 0 render --out clips --format png --clip clip.png@100,50 --clip clip.png@300,200,50,25 stage.png
convert stage.png -fill red -draw 'rectangle 100,50 109,59' -draw 'rectangle 300,200 349,224' \
    expected.png
same_pictures expected.png clips/stage.png

# The same seed gives the same picture.
expect 0 render --out one --seed 7 --format png --filter Snow=200,200,200 stage.png
expect 0 render --out two --seed 7 --format png --filter Snow=200,200,200 photo.png stage.png
same_pictures one/stage.png two/stage.png

# Lower quality makes a smaller file.
expect 0 render --out low --quality 10 photo.jpg
[ "$(stat -c %s low/photo.jpg)" -lt "$(stat -c %s new/folder/photo.jpg)" ] || fail "--quality"
finish
