# Art clips as pictures, and what a clip holds.
. "$(dirname "$0")/harness.sh"
clips="$(cd "$(dirname "$0")/../../assets/ArtClip" && pwd)"

expect 0 clip "$clips/Ribbons/Rosette.emf" "$clips/Ribbons/Banner.wmf" -o out --size 300
has_size out/Rosette.png 225x300
has_size out/Banner.png 300x105
[ "$(identify -format '%[channels]' out/Banner.png)" = "srgba" ] || fail "no alpha"

expect 0 clip --json "$clips/Ribbons/Banner.wmf" -o json
python3 - <<'PYTHON' || fail "clip --json"
import json
info = json.load(open("stdout"))
assert info["format"] == "WMF placeable"
assert abs(info["frame"]["width"] / info["frame"]["height"] - 400 / 140) < 0.01
assert sum(info["records"].values()) == info["record_count"]
assert info["records"]["POLYPOLYGON"] > 5
PYTHON

printf 'nothing' >broken.wmf
expect 1 clip broken.wmf "$clips/Seasons/Sun.wmf" -o some
says "broken.wmf"
[ -s some/Sun.png ] || fail "the good clip is missing"
expect 2 clip "$clips/Seasons/Sun.wmf" -o out --size 0
mkfifo pipe.svg pipe.wmf pipe.png
expect 1 clip pipe.svg pipe.wmf pipe.png "$clips/Seasons/Sun.wmf" -o piped --size 200
for clip in pipe.svg pipe.wmf pipe.png; do
    says "$clip: is not a regular file"
done
holds 1 piped
mkdir full
if mount -t tmpfs -o size=64k tmpfs full 2>/dev/null; then
    room full "$(most_of piped/Sun.png)"
    expect 1 clip "$clips/Seasons/Sun.wmf" -o full --size 200
    says "the result cannot be written to"
    holds 1 full
    expect 0 effects -o styles
    room full "$(most_of styles/style-01.png)"
    expect 1 effects -o full
    says "the result cannot be written to"
    holds 1 full
    umount full
fi
finish
