# The shells complete commands, options and filter names.
. "$(dirname "$0")/harness.sh"
share="$tests/../../apps/vellora/share"

cat >complete.bash <<'BASH'
# PROGRAM COMPLETION WORD...: the completions of the last word
PATH="$(dirname "$1"):$PATH"
source "$2"
COMP_WORDS=(vellora "${@:3}")
COMP_CWORD=$(($# - 2))
_vellora
printf '%s\n' "${COMPREPLY[@]}"
BASH
in_bash() {
    wanted="$1"
    shift
    bash complete.bash "$vellora" "$share/vellora.bash" "$@" >stdout 2>stderr
    grep -qxF -e "$wanted" stdout || fail "bash completion of '$*' lacks $wanted: $(cat stdout)"
}
in_bash render re
in_bash --filter render --fi
in_bash 'Brightness\ Contrast' render --filter Bri
in_bash inside render --fit i
in_bash check project ch
in_bash --json project show --j

cat >complete.zsh <<'ZSH'
# PROGRAM FOLDER LINE WANTED: types the line and a tab, and waits for the wanted text
zmodload zsh/zpty
zpty shell zsh -f
zpty -w shell "PATH=${(q)1:h}:\$PATH fpath=(${(q)2} \$fpath); autoload -Uz compinit; compinit -u -D"
zpty -w shell 'print rea""dy'
zpty -r shell seen '*ready*'
zpty -wn shell "$3"$'\t'
zpty -r shell seen "*${(b)4}*"
ZSH
in_zsh() {
    timeout 20 zsh -f complete.zsh "$vellora" "$share" "$1" "$2" >stdout 2>stderr ||
        fail "zsh completion of '$1' lacks '$2'"
}
# What is typed already may not be shown again.
in_zsh 'vellora re' 'nder'
in_zsh 'vellora render --fi' '--filter'
in_zsh 'vellora render --filter Bri' 'ghtness\ Contrast'
in_zsh 'vellora render --fit i' 'nside'
in_zsh 'vellora project ch' 'eck'
in_zsh 'vellora project show --j' 'son'
finish
