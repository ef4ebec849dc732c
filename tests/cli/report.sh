# What the program says: the catalogue, photos, JSON, progress.
. "$(dirname "$0")/harness.sh"
convert -size 1600x900 xc:red photo.jpg

expect 0 filters
filters="$(grep -c '^[A-Z]' stdout)"
[ "$filters" -ge 26 ] || fail "only $filters filters"
grep -q 'Threshold .*0..50, initial 300 (advertised 10)' stdout || fail "Contour's threshold"
expect 0 filters --json
python3 - "$filters" <<'PYTHON' || fail "filters --json"
import json, sys
catalogue = json.load(open("stdout"))
assert [entry["name"] for entry in catalogue][:4] == \
    ["None", "Color Matrix", "Grey", "Brightness Contrast"]
assert len(catalogue) == int(sys.argv[1])
contour = next(entry for entry in catalogue if entry["name"] == "Contour")
assert contour["parameters"][1] == {
    "label": "Threshold", "min": 0, "max": 50, "initial": 300, "advertised": 10}
assert contour["category"] == "art effect"
assert [entry["name"] for entry in catalogue if entry["region"]] == ["Red Eye Removal", "Depth Dim"]
PYTHON

expect 0 info photo.jpg
grep -q 'size         1600 x 900' stdout || fail "info: size"
grep -q 'preview      599 x 337' stdout || fail "info: preview"
expect 0 info --json photo.jpg photo.jpg
python3 - <<'PYTHON' || fail "info --json"
import json
for line in open("stdout"):
    info = json.loads(line)
    assert (info["width"], info["height"], info["orientation"]) == (1600, 900, 1)
    assert info["preview"] == {"width": 599, "height": 337}
    assert info["canvas"] == {"width": 1602, "height": 1202}, info
PYTHON

expect 0 render --out out --json photo.jpg --size 800x600
silent
python3 - <<'PYTHON' || fail "render --json"
import json, os
result = json.loads(open("stdout").read())
assert result["photo"] == "photo.jpg" and (result["width"], result["height"]) == (800, 450)
assert os.path.samefile(result["result"], "out/photo.jpg")
PYTHON

# Progress is for a person at a terminal only.
expect 0 render --out out --overwrite photo.jpg
silent
[ ! -s stdout ] || fail "standard output is not empty"
on_terminal() {
    script -qec "env TERM=xterm $* '$vellora' render --out out --overwrite $quiet photo.jpg" \
        /dev/null </dev/null >terminal
}
escape="$(printf '\033')"
quiet=""
on_terminal
grep -qF '[1/1] photo.jpg' terminal || fail "no progress on a terminal"
grep -qF "$escape" terminal || fail "the progress line is not cleared by an escape sequence"
on_terminal NO_COLOR=1
grep -qF '[1/1] photo.jpg' terminal || fail "no progress with NO_COLOR"
! grep -qF "$escape" terminal || fail "escape sequences in spite of NO_COLOR"
quiet="--quiet"
on_terminal
! grep -qF '[1/1]' terminal || fail "progress in spite of --quiet"
finish
