# Ctrl-C leaves no half-written file and nothing else.
. "$(dirname "$0")/harness.sh"
convert -size 3000x2000 plasma:red-blue -quality 95 photo.jpg
: >stderr

# interrupted SIGNAL STATUS: stops a run of many photos in the middle
interrupted() {
    rm -rf out
    set --  "$@" $(yes photo.jpg | head -n 60)
    signal="$1"
    wanted="$2"
    shift 2
    # A shell's background job ignores interrupts; env starts the program without that.
    env --default-signal=INT "$vellora" render --out out --filter 'HSL=10,20,5' "$@" 2>stderr &
    pid=$!
    tries=0
    while [ ! -e out/photo.jpg ] && [ "$tries" -lt 200 ]; do
        sleep 0.05
        tries=$((tries + 1))
    done
    kill "-$signal" "$pid"
    wait "$pid"
    status=$?
    [ "$status" -eq "$wanted" ] || fail "exit status $status after $signal, not $wanted"
    [ -z "$(find out -name '.*' -mindepth 1)" ] || fail "left behind: $(ls -A out)"
    for result in out/*; do
        has_size "$result" 3000x2000
        identify -regard-warnings -verbose "$result" >/dev/null 2>&1 || fail "$result is broken"
    done
    [ "$(ls out | wc -l)" -lt 60 ] || fail "the run was over before it could be interrupted"
}
interrupted INT 130
interrupted TERM 143
interrupted HUP 129

# A contact sheet: what stood there before, or the whole.
rm -rf sheet
mkdir sheet
echo old >sheet/sheet.png
for pause in 0.3 0.6 0.9; do
    "$vellora" filters --sheet sheet/sheet.png --photo photo.jpg 2>stderr &
    pid=$!
    sleep "$pause"
    kill "$pid" 2>/dev/null
    wait "$pid" 2>/dev/null
    [ "$(cat sheet/sheet.png)" = old ] || has_size sheet/sheet.png 2450x1754
    [ "$(ls -A sheet)" = sheet.png ] || fail "left behind: $(ls -A sheet)"
done

# Nobody reads the reports any more.
rm -rf out
"$vellora" render --out out --json $(yes photo.jpg | head -n 20) 2>stderr | head -n 1 >report
[ "$(wc -l <report)" -eq 1 ] || fail "no report"
[ -z "$(find out -name '.*' -mindepth 1)" ] || fail "left behind: $(ls -A out)"
finish
