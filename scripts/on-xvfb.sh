#!/bin/sh
# Runs a command on an X server of its own, without a window manager.
set -eu

number_file="$(mktemp)"
Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$number_file" 2>/dev/null &
server=$!
trap 'kill "$server" 2>/dev/null; rm -f "$number_file"' EXIT
until [ -s "$number_file" ]; do
    kill -0 "$server"
    sleep 0.1
done
DISPLAY=":$(cat "$number_file")" QT_QPA_PLATFORM=xcb "$@"
