# Photos that are none: each is named with its reason, leaves nothing behind, and does not keep the
# others from being rendered.
. "$(dirname "$0")/harness.sh"
convert -size 200x200 plasma:red-blue -quality 95 good.jpg
mkdir folder
: >empty.jpg
echo "not a picture" >text.jpg
head -c 10 good.jpg >tiny.jpg
head -c 60 /dev/urandom >noise.png
# The header of a picture of 30,000 x 30,000 pixels and hardly anything behind it.
printf '\211PNG\r\n\032\n\000\000\000\rIHDR\000\000\165\060\000\000\165\060\010\002\000\000\000\123\271\341\212' >huge.png
printf '\000\000\000\000IEND\256\102\140\202' >>huge.png

bad() {
    expect 1 render --out out --json "$1" good.jpg
    says "$1: $2"
    holds 1 out
    [ "$(grep -c '"error"' stdout)" -eq 1 ] || fail "$1: JSON lacks the error: $(cat stdout)"
    [ "$(wc -l <stdout)" -eq 2 ] || fail "$1: not one JSON object a photo"
    rm -rf out
    expect 1 info "$1"
    says "$1: "
}
bad missing.jpg "no such file"
bad folder "is a folder"
bad empty.jpg "is empty"
bad text.jpg "is not a picture"
bad tiny.jpg "is not a picture"
bad noise.png "is not a picture"
bad /dev/null "is not a regular file"
identify huge.png >/dev/null 2>&1 || true
expect 1 render --out out huge.png
says "huge.png: "
holds 0 out

# What can be read of a truncated photo is rendered, with a warning.
head -c 9000 good.jpg >cut.jpg
expect 0 render --out out cut.jpg
says "cut.jpg: the file is damaged or ends early"
has_size out/cut.jpg 200x200

# Unusual pictures.
convert -size 1x1 xc:red one.png
convert -size 1x5000 gradient: sliver.png
convert -size 40x40 plasma: -depth 16 deep.png
convert -size 40x40 plasma: -colorspace gray grey.jpg
convert -size 40x40 plasma: -colorspace cmyk cmyk.jpg
convert -size 40x40 plasma: -alpha set -channel A -evaluate set 50% alpha.png
for photo in one.png sliver.png deep.png grey.jpg cmyk.jpg alpha.png; do
    for options in "" "--preview" "--format png" "--size 64x64 --fit fill" \
        "--crop 0,0,5,5 --rotate 90"; do
        # shellcheck disable=SC2086  # several options
        expect 0 render --out odd --overwrite $options "$photo"
        silent
    done
done
has_size odd/one.png 1x1

# Folders that take no results.
: >file
expect 1 render --out file good.jpg
says "good.jpg: 'file' is not a folder"
expect 1 render --out file/below good.jpg
says "cannot be made"
if [ "$(id -u)" -ne 0 ]; then
    mkdir -m 555 locked
    expect 1 render --out locked good.jpg
    says "cannot be written to"
fi

# A disk that fills up: mounted where the test may do so.
mkdir full
if mount -t tmpfs -o size=64k tmpfs full 2>/dev/null; then
    convert -size 800x800 plasma: -quality 100 large.jpg
    convert -size 8x8 xc:red small.jpg
    expect 1 render --out full large.jpg small.jpg --quality 100
    says "large.jpg: the result cannot be written to"
    holds 1 full
    has_size full/small.jpg 8x8
    expect 1 render --out full --format png large.jpg
    says "large.jpg: the result cannot be written to"
    holds 1 full
    # Only the last piece does not fit: it waits in a buffer until the file is closed.
    convert good.jpg -resize 80x80 tiny.png
    for options in "--quality 90" "--quality 90 --preview" "--format png"; do
        rm -rf fits
        # shellcheck disable=SC2086  # several options
        expect 0 render --out fits $options tiny.png
        room full "$(most_of fits/*)"
        # shellcheck disable=SC2086
        expect 1 render --out full $options tiny.png
        says "the result cannot be written to"
        holds 1 full
    done
    umount full
fi

# A full disk behind standard output.
if [ -c /dev/full ]; then
    for command in "filters" "filters --json" "effects --json" "info good.jpg" \
        "info --json good.jpg" "render --json --out unread good.jpg" "--version" "--help"; do
        # shellcheck disable=SC2086  # a command with its options
        "$vellora" $command >/dev/full 2>stderr && fail "a full disk went unnoticed: $command"
        says "standard output"
        # shellcheck disable=SC2086
        "$vellora" $command >&- 2>stderr && fail "a closed output went unnoticed: $command"
        says "standard output"
    done
    rm -rf unread
    "$vellora" render --out unread good.jpg >&- 2>stderr || fail "nothing was to be printed"
    has_size unread/good.jpg 200x200
fi
finish
