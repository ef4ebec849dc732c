# Completion of vellora for bash. The options come from the program's own help.

_vellora_options() {
    vellora "$@" --help 2>/dev/null | grep -oE '^ +(-[a-z],)?--?[a-z-]+' | tr ', ' '\n\n' | grep '^-'
}

# The commands of vellora, or of one of its commands.
_vellora_commands() {
    vellora "$@" --help 2>/dev/null | sed -n '/^Subcommands:/,$s/^  \([a-z][a-z]*\) .*/\1/p'
}

_vellora() {
    local word="${COMP_WORDS[COMP_CWORD]}" previous="${COMP_WORDS[COMP_CWORD - 1]}"
    local command=("${COMP_WORDS[1]}")
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$(_vellora_commands) --help --version" -- "$word")
        return
    fi
    if [[ ${command[0]} == project ]]; then
        if ((COMP_CWORD == 2)); then
            mapfile -t COMPREPLY < <(compgen -W "$(_vellora_commands project)" -- "$word")
            return
        fi
        command+=("${COMP_WORDS[2]}")
    fi
    case "$previous" in
        --filter)
            local IFS=$'\n'
            mapfile -t COMPREPLY < <(compgen -W "$(vellora filters | sed -n 's/^\([A-Z].*[^ ]\)  *  \(adjustment\|art effect\).*/\1/p')" -- "${word#[\"\']}")
            ;;
        --fit) mapfile -t COMPREPLY < <(compgen -W "box inside fill" -- "$word") ;;
        --format) mapfile -t COMPREPLY < <(compgen -W "jpg png" -- "$word") ;;
        --rotate) mapfile -t COMPREPLY < <(compgen -W "0 90 180 270" -- "$word") ;;
        -o | --out) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
        *)
            if [[ $word == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$(_vellora_options "${command[@]}")" -- "$word")
            else
                mapfile -t COMPREPLY < <(compgen -f -- "$word")
            fi
            ;;
    esac
}

complete -o filenames -F _vellora vellora
