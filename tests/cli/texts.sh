# Texts on pictures, and the styles they may have.
. "$(dirname "$0")/harness.sh"
convert -size 600x450 xc:'#406080' photo.jpg

differ() {
    difference="$(compare -metric AE "$1" "$2" null: 2>&1)"
    [ "$difference" != 0 ] || fail "$1 and $2 are the same picture"
}

expect 0 effects
[ "$(grep -c 'Style [0-9]' stdout)" -ge 24 ] || fail "fewer than 24 styles"
grep -q '24  Style 24 .*face gold.png' stdout || fail "style 24 is not gold"
expect 0 effects --json
json stdout 'all(s["number"] == i + 1 and s["layers"]["face"] for i, s in enumerate(d))'
expect 0 effects --out styles --sample Ag
exists styles/style-01.png
has_size styles/style-24.png 360x150
differ styles/style-01.png styles/style-02.png
VELLORA_ASSETS=/nonexistent expect 1 effects
says 'no effect catalogue'

expect 0 render photo.jpg -o plain --format png
expect 0 render photo.jpg -o text --format png --text 'one@ two@10,20'
silent
differ plain/photo.png text/photo.png
# An option changes the texts that follow it, not those before.
expect 0 render photo.jpg -o later --format png --text 'one@ two@10,20' --effect 3 --bold
same_pictures text/photo.png later/photo.png
for style in '--font-size 60' '--font DejaVu\ Serif' '--bold' '--italic' '--underline' \
    '--color ff0000' '--shadow' '--effect 7'; do
    eval "expect 0 render photo.jpg -o styled --overwrite --format png $style --text 'one@ two@10,20'"
    differ text/photo.png styled/photo.png
done
expect 0 render photo.jpg -o off --format png --bold --bold=false --text 'one@ two@10,20'
same_pictures text/photo.png off/photo.png
# Macros are expanded for each photo.
cp photo.jpg other.jpg
expect 0 render photo.jpg other.jpg -o macros --format png --text '$[f]@50,50'
expect 0 render photo.jpg -o typed --format png --text 'photo@50,50'
same_pictures macros/photo.png typed/photo.png
differ macros/photo.png macros/other.png

expect 2 render photo.jpg -o bad --text 'no place'
says 'TEXT@X,Y'
expect 2 render photo.jpg -o bad --text 'x@1'
expect 2 render photo.jpg -o bad --text 'x@1,9999999999'
expect 2 render photo.jpg -o bad --effect 0 --text 'x@1,1'
says 'is not within 1..'
expect 2 render photo.jpg -o bad --font-size huge --text 'x@1,1'
expect 2 render photo.jpg -o bad --color 12 --text 'x@1,1'
finish
