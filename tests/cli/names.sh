# Results are named after their photos and replace neither these nor each other.
. "$(dirname "$0")/harness.sh"
mkdir a b
convert -size 20x20 xc:red a/x.jpg
convert -size 30x30 xc:blue b/x.jpg
cp a/x.jpg b/x-2.jpg

expect 0 render --out out a/x.jpg b/x.jpg b/x-2.jpg
holds 3 out
has_size out/x.jpg 20x20
has_size out/x-2.jpg 30x30

# An earlier result stays, unless it is to be replaced.
expect 0 render --out out b/x.jpg
says "x.jpg' exists already; the result is 'x-3.jpg'"
holds 4 out
expect 0 render --out out --overwrite b/x.jpg
silent
holds 4 out
has_size out/x.jpg 30x30

# Numbered names, the same in all parts of a run.
cp a/x.jpg b/3-x.jpg
cp a/x.jpg b/4.jpg
for part in 1 2; do
    expect 0 render --out numbered --numbered --shard $part/2 a/x.jpg b/x.jpg b/x-2.jpg b/4.jpg
done
holds 4 numbered
has_size numbered/2-x.jpg 30x30
exists numbered/4-4.jpg
expect 0 render --out b --numbered --overwrite a/x.jpg b/x.jpg a/x.jpg b/3-x.jpg
cmp -s a/x.jpg b/3-x.jpg || fail "a photo was replaced by a numbered result"
exists b/3-x-2.jpg

# The folder of the photos as the folder of the results, whatever way leads there.
cp a/x.jpg original.jpg
ln -s a link
for options in "--out a" "--out a --overwrite" "--out link --overwrite" "--out ./link/../a"; do
    # shellcheck disable=SC2086  # several options
    expect 0 render $options a/x.jpg
    cmp -s a/x.jpg original.jpg || fail "the photo was replaced with $options"
done
cp a/x.jpg clip.jpg
expect 0 render --out . --overwrite --clip clip.jpg@0,0 b/../a/../clip.jpg b/x.jpg
cmp -s clip.jpg original.jpg || fail "the clip was replaced"

# Names that trouble programs.
newline="$(printf 'line\nbreak.jpg')"
for name in 'with space.jpg' "quote'\".jpg" 'Grüße 日本.jpg' "$newline" '[list].jpg' '%s%n.jpg' \
    '.hidden' '-dash.jpg' 'a.b.c.jpg' 'NOSUFFIX'; do
    cp original.jpg "./$name"
    expect 0 render --out odd -- "$name"
    silent
done
holds 10 odd
exists "odd/$newline"
exists 'odd/a.b.c.jpg'
exists 'odd/.hidden.jpg'
exists 'odd/Grüße 日本.jpg'
expect 1 render --out odd -- "missing$newline"
says 'missingline\x0abreak.jpg: no such file'
LC_ALL=C expect 0 render --out plain 'Grüße 日本.jpg'
exists 'plain/Grüße 日本.jpg'
cp original.jpg '[only]'
expect 0 render --out odd '[only]'
exists 'odd/[only].jpg'
cp original.jpg ++
expect 0 info ++
expect 0 render --out odd ++
exists 'odd/++.jpg'

# Names as long as the file system takes them.
for bytes in 251 255; do
    name="$(head -c "$bytes" /dev/zero | tr '\0' a)"
    cp original.jpg "./$name"
    expect 0 render --out "long-$bytes" --numbered -- "./$name" "./$name"
    silent
    expect 0 render --out "long-$bytes" --numbered -- "./$name"
    holds 3 "long-$bytes"
done
umlauts="$(printf 'ä%.0s' $(seq 127))"
cp original.jpg "$umlauts"
expect 0 render --out umlauts --numbered "$umlauts"
silent
exists "umlauts/1-$(printf 'ä%.0s' $(seq 124)).jpg"

# What the system makes of ".." behind a link, not what the text says.
mkdir -p deep/below
ln -s deep/below away
convert -size 33x33 xc:green p.jpg
convert -size 44x44 xc:green deep/p.jpg
expect 0 render --out dots away/../p.jpg
has_size dots/p.jpg 44x44
expect 0 render --out away/../made p.jpg
has_size deep/made/p.jpg 33x33
expect 0 project new away/../p.jpg -o dots.xml
grep -q 'deep/p\.jpg' dots.xml || fail "project new: $(cat dots.xml)"
finish
