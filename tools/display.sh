# SPDX-License-Identifier: GPL-3.0-or-later
# For scripts that run the program on a display of its own; sourced, not run. Gives them a folder $scratch and a list
# $started of processes. Both are gone when the script ends.
# shellcheck shell=bash

scratch=$(mktemp -d)
started=()
finish() {
    for id in "${started[@]}"; do
        kill "$id" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap finish EXIT

# start_display [XVFB OPTION...]: starts a display and points DISPLAY at it.
start_display() {
    local server display
    # Xvfb picks a free display and says its number.
    exec {server}< <(exec Xvfb -displayfd 1 -screen 0 1366x768x24 "$@" 2>"$scratch/xvfb.log")
    started+=($!)
    if ! read -r -t 60 display <&"$server"; then
        echo "$(basename "$0"): no display came up. $(cat "$scratch/xvfb.log")" >&2
        exit 1
    fi
    export DISPLAY=:$display
}

# use_empty_home: neither the user's theme nor their settings.
use_empty_home() {
    export HOME=$scratch XDG_RUNTIME_DIR=$scratch/runtime
    mkdir -m 700 "$XDG_RUNTIME_DIR"
}
