# Wrong usage is refused with status 2 before any photo is touched; the message says what is right.
. "$(dirname "$0")/harness.sh"
convert -size 60x40 gradient:red-blue photo.png

refused() {
    message="$1"
    shift
    expect 2 render --out out "$@" photo.png
    says "$message"
    [ ! -e out ] || fail "a refused command made its folder"
}

expect 0 --help
expect 0 --version
grep -qE '^vellora [0-9]+\.[0-9]+\.[0-9]+$' stdout || fail "--version: $(cat stdout)"
expect 0 render --help
expect 2
expect 2 frobnicate
expect 2 render
says PHOTO
expect 2 info

refused "there are: None, Color Matrix, Grey" --filter Sepia
refused "there is no filter 'grey'" --filter grey
refused "within -200..200" --filter 'Brightness Contrast=201'
refused "within -255..255" --filter HSL=0,-256,0
refused "within 0..10" --filter 'Gauss Smooth=11'
refused "is not an integer" --filter 'Gauss Smooth=99999999999'
refused "'1x' is not an integer" --filter HSL=1x
refused "'' is not an integer" --filter HSL=1,,2
refused "' 1' is not an integer" --filter 'HSL= 1'
refused "at most 3 factors, not 4" --filter HSL=1,2,3,4
refused "takes no factor" --filter Grey=1
refused "no region filter" --filter Grey --roi 0,0,1,1
refused "fraction from 0 to 1" --filter 'Depth Dim' --roi 0,0,1,1.5
refused "fraction from 0 to 1" --filter 'Depth Dim' --roi 0,0,1,nan
refused "four fractions" --filter 'Depth Dim' --roi 0,0,1
refused "4 numbers" --crop 1,2,3
refused "not a rectangle" --crop 0,0,0,10
refused "not a rectangle" --crop -1,0,10,10
refused "is none of 0, 90, 180, 270" --rotate 45
refused "such as 1200x900" --size 100
refused "within 1..65500" --size 0x10
refused "at most 200 million pixels" --size 65500x65500
refused "within 0..100" --quality 101
refused "six hexadecimal digits" --background 12345g
refused "--fit" --fit stretch
refused "--format" --format gif
refused "from 0 to 4294967295" --seed -1
refused "of the form I/N" --shard 3
refused "within 1..4" --shard 5/4
refused "within 1..4" --shard 0/4
refused "no such file" --clip missing.svg@1,2
refused "of the form FILE@X,Y" --clip photo.png
refused "2 or 4 numbers" --clip photo.png@1,2,3
refused "has no size" --clip photo.png@1,2,0,5
refused "do not go with" --size 10x10 --format png
for flag in bold italic underline shadow; do
    refused "--$flag: 'maybe' is neither true nor false" "--$flag=maybe"
done
expect 0 render --out flags --bold=true --italic=off --shadow=0 photo.png

# A value that is empty, as a script's empty variable leaves it.
for option in project save-project size rotate background seed shard quality font text \
    filter; do
    refused "--$option: the value is empty" "--$option" ""
    refused "--$option: the value is empty" "--$option="
done
expect 2 render -o "" photo.png
says "the value is empty"
expect 2 filters --sheet ""
says "the value is empty"
expect 2 filters --sheet sheet.png --photo ""
expect 2 effects -o ""
expect 2 new photo.png -o ""
expect 2 edit --save "" photo.png
expect 2 clip photo.png -o out --size ""
[ "$(ls)" = "$(printf 'flags\nphoto.png\nstderr\nstdout')" ] || fail "something was made: $(ls)"
finish
