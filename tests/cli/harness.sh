# What the command-line tests share. Each test file sources it; the program is its first argument.
# A test runs in a folder of its own, which disappears with it.

set -u
tests="$(cd "$(dirname "$0")" && pwd)"
vellora="$1"
failures=0
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

fail() {
    echo "FAILED: $*" >&2
    sed 's/^/    stderr: /' stderr >&2
    failures=$((failures + 1))
}

# expect STATUS ARGUMENT...: runs the program; its output is left in the files stdout and stderr
expect() {
    wanted="$1"
    shift
    timeout 120 "$vellora" "$@" >stdout 2>stderr </dev/null
    status=$?
    [ "$status" -eq "$wanted" ] || fail "exit status $status instead of $wanted: $*"
}

# says TEXT: the last run's error output holds the text
says() {
    grep -qF -e "$1" stderr || fail "standard error lacks '$1'"
}

# silent: the last run had no error output
silent() {
    [ ! -s stderr ] || fail "standard error is not empty"
}

# has_size FILE WxH
has_size() {
    size="$(identify -format '%wx%h' "$1" 2>/dev/null)"
    [ "$size" = "$2" ] || fail "$1 is '$size', not $2"
}

# same_pictures FILE FILE: equal in every pixel
same_pictures() {
    difference="$(compare -metric AE "$1" "$2" null: 2>&1)"
    [ "$difference" = 0 ] || fail "$1 and $2 differ in $difference pixels"
}

# json FILE EXPRESSION: the Python expression holds for the file's JSON document d
json() {
    python3 -c "import json, sys; d = json.load(open('$1')); sys.exit(0 if ($2) else 1)" ||
        fail "$1 does not hold: $2"
}

# edit_json FILE TARGET STATEMENT: writes the document d, changed by a Python statement
edit_json() {
    python3 -c "import json; d = json.load(open('$1')); $3; json.dump(d, open('$2', 'w'))"
}

exists() {
    [ -e "$1" ] || fail "$1 is missing"
}

# holds COUNT FOLDER: exactly so many files, hidden ones and folders included
holds() {
    count="$(find "$2" -mindepth 1 -printf . 2>/dev/null | wc -c)"
    [ "$count" -eq "$1" ] || fail "$2 holds $count entries, not $1: $(ls -A "$2")"
}

# room DISK BYTES: an empty disk but for a filling that leaves so much room
room() {
    rm -rf "${1:?}"/*
    cat /dev/zero >"$1/filling" 2>/dev/null
    truncate -s "-$2" "$1/filling"
}

# most_of FILE: as many whole pages as leave out the file's last piece
most_of() {
    size="$(stat -c %s "$1")"
    echo $(((size - 1) / 4096 * 4096))
}

finish() {
    [ "$failures" -eq 0 ] || exit 1
}
