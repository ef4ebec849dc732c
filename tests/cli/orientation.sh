# The orientation tag: all eight values show the photo upright, unless the user says otherwise.
. "$(dirname "$0")/harness.sh"

# An upright picture whose four corners differ, stored in all eight ways.
convert -size 60x40 xc:white -fill red -draw 'rectangle 0,0 29,19' \
    -fill blue -draw 'rectangle 30,20 59,39' upright.png
store() {
    convert upright.png $2 -quality 100 -sampling-factor 1x1 plain.jpg
    # SOI, then an EXIF block with the one tag, then the rest of the file.
    { printf '\377\330\377\341\000\042Exif\000\000MM\000\052\000\000\000\010\000\001'
      printf "\\001\\022\\000\\003\\000\\000\\000\\001\\000\\$(printf %03o "$1")\\000\\000\\000\\000\\000\\000"
      tail -c +3 plain.jpg; } >"tag$1.jpg"
}
store 1 ''
store 2 '-flop'
store 3 '-rotate 180'
store 4 '-flip'
store 5 '-transpose'
store 6 '-rotate 270'
store 7 '-transverse'
store 8 '-rotate 90'

for tag in 1 2 3 4 5 6 7 8; do
    expect 0 info "tag$tag.jpg"
    grep -q "orientation  $tag " stdout || fail "info says: $(cat stdout)"
    expect 0 render --out out --format png "tag$tag.jpg"
    has_size "out/tag$tag.png" 60x40
    # A quarter turn resamples, so corners are compared rather than pixels.
    for corner in 10,8 50,8 10,32 50,32; do
        got="$(convert "out/tag$tag.png" -depth 8 -format "%[fx:int(4*p{$corner}.r+.5)] \
%[fx:int(4*p{$corner}.b+.5)]" info:)"
        want="$(convert upright.png -depth 8 -format "%[fx:int(4*p{$corner}.r+.5)] \
%[fx:int(4*p{$corner}.b+.5)]" info:)"
        [ "$got" = "$want" ] || fail "tag $tag: corner $corner is $got, not $want"
    done
done

expect 0 render --out stored --format png --no-auto-orient tag6.jpg
has_size stored/tag6.png 40x60
expect 0 render --out given --format png --rotate 0 tag6.jpg
has_size given/tag6.png 40x60
finish
