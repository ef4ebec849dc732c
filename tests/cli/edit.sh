# The edit command, as far as it gets without a user at the window.
. "$(dirname "$0")/harness.sh"
convert -size 60x40 gradient:red-blue a.jpg

unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
expect 2 edit a.jpg
says "needs a display"

export QT_QPA_PLATFORM=offscreen
expect 2 edit
expect 2 edit --save show.json a.jpg
says "does not end in .vshow"
expect 1 edit nowhere.jpg
says "nowhere.jpg"
says "no photo to edit"
[ ! -e nowhere.vshow ] || fail "a show without photos was saved"

echo '{' >broken.vshow
expect 2 edit broken.vshow
says "broken.vshow"
: >a.vshow
expect 2 edit a.jpg
says "exists already"

# Shows that are not the edited one stay.
expect 0 new a.jpg -o trip.vshow
expect 0 new a.jpg -o other.vshow
cp trip.vshow before.vshow
expect 2 edit trip.vshow a.jpg
says "edited by itself"
expect 2 edit a.jpg trip.vshow --save new.vshow
says "edited by itself"
expect 2 edit a.jpg --save trip.vshow
says "--overwrite replaces it"
expect 2 edit other.vshow --save trip.vshow
says "--overwrite replaces it"
cmp -s trip.vshow before.vshow || fail "a show was replaced"
expect 2 edit --language missing.ini trip.vshow
says "missing.ini' is missing"
expect 1 edit --save trip.vshow --overwrite nowhere.jpg
says "no photo to edit"
finish
