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
finish
