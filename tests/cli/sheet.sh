# The contact sheet of all filters.
. "$(dirname "$0")/harness.sh"

expect 0 filters --sheet sheet.png
silent
[ ! -s stdout ] || fail "standard output is not empty"
has_size sheet.png 2450x1754
# Nearly every tile shows another picture: count the colours at one place of each tile.
: >places
for row in 0 1 2 3 4; do
    for column in 0 1 2 3 4 5; do
        x=$((14 + column * 406 + 150))
        y=$((14 + row * 348 + 200))
        convert sheet.png -crop 24x24+$x+$y -scale 1x1! -depth 8 txt:- | tail -1 |
            sed 's/.*#/#/; s/ .*//' >>places
    done
done
colours="$(sort -u places | wc -l)"
[ "$colours" -ge 18 ] || fail "only $colours of the tiles differ"

# Random filters repeat under a seed and differ under another.
expect 0 filters --sheet again.png
same_pictures sheet.png again.png
expect 0 filters --sheet other.png --seed 9
compare -metric AE sheet.png other.png null: >/dev/null 2>&1 && fail "the seed does not count"

convert -size 40x90 gradient:red-blue photo.jpg
expect 0 filters --sheet tall.png --photo photo.jpg --full-size
exists tall.png
expect 1 filters --sheet none.png --photo missing.jpg
says missing.jpg
[ ! -e none.png ] || fail "a sheet without a photo"
expect 1 filters --sheet no/such/folder/sheet.png
says "cannot be written"
expect 2 filters --photo photo.jpg
cp photo.jpg original.jpg
expect 2 filters --sheet ./photo.jpg --photo photo.jpg
says "never replaced"
cmp -s photo.jpg original.jpg || fail "the photo was replaced"
# What stood there stays until the sheet is complete, and a link leads to the same file as before.
ln -s real.png link.png
expect 0 filters --sheet link.png --photo photo.jpg
[ -L link.png ] && has_size real.png 2450x1754
mkdir -p full
if mount -t tmpfs -o size=64k tmpfs full 2>/dev/null; then
    echo old >full/sheet.png
    expect 1 filters --sheet full/sheet.png --photo photo.jpg
    says "cannot be written"
    [ "$(cat full/sheet.png)" = old ] || fail "the old sheet is gone"
    holds 1 full
    umount full
fi
finish
