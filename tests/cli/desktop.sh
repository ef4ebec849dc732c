# The desktop program, as far as it gets without a display.
. "$(dirname "$0")/harness.sh"
vellora="$(dirname "$vellora")/../desktop/vellora-desktop"

unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
expect 0 --version
grep -qE '^vellora-desktop [0-9]+\.[0-9]+\.[0-9]+$' stdout || fail "--version: $(cat stdout)"
expect 0 --help
grep -qF 'SHOW.vshow' stdout || fail "--help does not name its arguments"
expect 1 --bogus
says "bogus"
expect 2 show.vshow
says "needs a display"
finish
