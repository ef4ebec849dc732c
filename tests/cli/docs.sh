# README and man page keep up with the program.
. "$(dirname "$0")/harness.sh"
top="$tests/../.."

expect 0 --help
commands="$(sed -n '/^Subcommands:/,$s/^  \([a-z][a-z]*\) .*/\1/p' stdout)"
[ -n "$commands" ] || fail "no commands in the help"
for command in $commands; do
    grep -q "### vellora $command" "$top/README.md" || fail "README lacks the command $command"
    grep -q "vellora $command" "$top/apps/vellora/share/vellora.1" || fail "man page lacks $command"
done

expect 0 render --help
options="$(grep -oE '^ +(-[a-z],)?--[a-z-]+' stdout | grep -oE -e '--[a-z-]+' | sort -u)"
[ "$(echo "$options" | wc -l)" -gt 20 ] || fail "few options in the help: $options"
for option in $options; do
    [ "$option" = --help ] && continue
    grep -qF -e "$option" "$top/README.md" || fail "README lacks $option"
    sed 's/\\-/-/g' "$top/apps/vellora/share/vellora.1" | grep -qF -e "$option" ||
        fail "man page lacks $option"
done

# Each option of the other commands stands in their own section of the README and somewhere in the
# man page.
sections() {
    awk -v heading="### vellora $1" 'index($0, heading) == 1 { on = 1 }
        /^##/ && index($0, "### vellora '"${1%% *}"'") != 1 { on = 0 } on' "$top/README.md"
}
synopsis() {
    sed 's/\\-/-/g' "$top/apps/vellora/share/vellora.1" |
        awk -v line=".B vellora $1" '$0 == line { on = 1; print; next } /^\.br|^\.SH/ { on = 0 } on'
}
for command in $(echo "$commands" | grep -v -e render -e project) "project new" "project show" \
    "project check"; do
    # shellcheck disable=SC2086  # two words
    expect 0 $command --help
    for option in $(grep -oE '^ +(-[a-z],)?--[a-z-]+' stdout | grep -oE -e '--[a-z-]+' | sort -u); do
        [ "$option" = --help ] && continue
        short="$(grep -oE "^ +-[a-z],$option" stdout | grep -oE -e '-[a-z],' | tr -d ,)"
        sections "$command" | grep -qE -e "$option|${short:-$option} " ||
            fail "README lacks $option of $command"
        synopsis "$command" | grep -qE -e "$option|${short:-$option}\$" ||
            fail "man page lacks $option of $command"
    done
done
for variable in VELLORA_ASSETS NO_COLOR OPENCV_FOR_THREADS_NUM; do
    grep -q "$variable" "$top/README.md" || fail "README lacks $variable"
    grep -q "$variable" "$top/apps/vellora/share/vellora.1" || fail "man page lacks $variable"
done
finish
