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
finish
