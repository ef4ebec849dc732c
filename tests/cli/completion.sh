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
in_bash 'Brightness Contrast' render --filter Bri
in_bash inside render --fit i
in_bash check project ch
in_bash --json project show --j

# As it is typed: the blank is quoted once.
cat >typed.py <<'PYTHON'
# PROGRAM COMPLETION LINE WANTED: types the line and a tab into a shell
import os, pty, select, sys, time
program, completion, line, wanted = sys.argv[1:]
child, terminal = pty.fork()
if child == 0:
    os.environ.update(TERM="dumb", PS1="$ ", PATH=os.path.dirname(program) + ":" + os.environ["PATH"])
    os.execvp("bash", ["bash", "--norc", "--noprofile", "-i"])
seen = ""
def wait_for(text):
    global seen
    end = time.time() + 20
    while text not in seen and time.time() < end:
        if select.select([terminal], [], [], 0.2)[0]:
            seen += os.read(terminal, 4096).decode(errors="replace")
    if text not in seen:
        sys.exit(f"{text!r} is not in {seen!r}")
os.write(terminal, f"source '{completion}'; echo rea''dy\n".encode())
wait_for("ready\r\n")
seen = ""
os.write(terminal, line.encode() + b"\t")
wait_for(wanted)
os.close(terminal)
PYTHON
typed_in_bash() {
    python3 typed.py "$vellora" "$share/vellora.bash" "$1" "$2" >stdout 2>stderr ||
        fail "bash completion of '$1' is not '$2'"
}
typed_in_bash 'vellora render --filter Bri' '--filter Brightness\ Contrast '
typed_in_bash 'vellora render --filter Brightness\ Con' '--filter Brightness\ Contrast '

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
