#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Takes the pictures of the documents anew: starts the program on a display of its own, types the readings of an
# example with real key events and saves the windows as docs/images/*.png.
#
# usage: tools/screenshot.sh PROGRAM [FOLDER]    (for instance build/release/bin/comfortics)
# Needs the Debian packages xvfb, openbox, xdotool and imagemagick.
set -euo pipefail
if [ $# -lt 1 ]; then
    sed -n '3,8s/^# \?//p' "$0"
    exit 2
fi
program=$(realpath "$1")
folder=$(realpath "${2:-$(dirname "${BASH_SOURCE[0]}")/../docs/images}")

for tool in Xvfb openbox xdotool import; do
    if ! command -v "$tool" >/dev/null; then
        echo "screenshot.sh: $tool is missing (packages: xvfb openbox xdotool imagemagick)" >&2
        exit 1
    fi
done

scratch=$(mktemp -d)
started=()
finish() {
    for id in "${started[@]}"; do
        kill "$id" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap finish EXIT

# Xvfb picks a free display and writes its number to file descriptor 3.
Xvfb -displayfd 3 -screen 0 1366x768x24 3>"$scratch/display" 2>"$scratch/xvfb.log" &
started+=($!)
for _ in $(seq 50); do
    [ ! -s "$scratch/display" ] || break
    sleep 0.1
done
DISPLAY=:$(cat "$scratch/display")
XDG_RUNTIME_DIR=$scratch/runtime
HOME=$scratch # neither the user's theme nor their settings
export DISPLAY XDG_RUNTIME_DIR HOME
unset XDG_CURRENT_DESKTOP QT_SCALE_FACTOR QT_QPA_PLATFORM
mkdir -m 700 "$XDG_RUNTIME_DIR"
openbox 2>/dev/null &
started+=($!)

# The window whose title bar reads TITLE and which the program shows; waits for it.
window() { xdotool search --sync --onlyvisible --name "^$1\$" | tail -1; }
# save NAME WINDOW: the window with its frame.
save() {
    sleep 1 # for the last repaint
    import -frame -window "$2" "$folder/$1"
    echo "$folder/$1"
}

"$program" >"$scratch/program.log" 2>&1 &
started+=($!)
sleep 3 # the splash screen
main=$(window Comfortics)
xdotool windowactivate --sync "$main"
xdotool type --delay 40 30
xdotool key Down Right
xdotool type --delay 40 600
xdotool key Down
xdotool type --delay 40 50
xdotool key Left Down
xdotool type --delay 40 2
xdotool mousemove 1360 760 key Return
sleep 1.5
results=$(xdotool getactivewindow)
[ "$results" != "$main" ]
save results-window.png "$results"

xdotool key alt+F4
sleep 0.5
xdotool windowactivate --sync "$main"
save main-window.png "$main"

xdotool key alt+c
converter=$(window "Conversion of Units")
xdotool windowactivate --sync "$converter"
xdotool type --delay 40 86
save converter-window.png "$converter"
