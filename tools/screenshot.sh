#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Takes the pictures of the documents anew: starts the program on a display of its own, works through the examples of
# docs/user-guide.md with real keys and clicks, and saves the windows as docs/images/*.png.
#
# usage: tools/screenshot.sh PROGRAM [FOLDER]    (for instance build/release/bin/comfortics)
# Needs the packages of the group "screenshots" of tools/install_packages.sh.
set -euo pipefail
if [ $# -lt 1 ]; then
    sed -n '3,8s/^# \?//p' "$0"
    exit 2
fi
program=$(realpath "$1")
here=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
folder=$(realpath "${2:-$here/../docs/images}")

for tool in Xvfb openbox xdotool xwininfo xprop import xclip dbus-run-session dbus-send; do
    if ! command -v "$tool" >/dev/null; then
        echo "screenshot.sh: $tool is missing (tools/install_packages.sh screenshots)" >&2
        exit 1
    fi
done
python=
for candidate in python3 /usr/bin/python3; do # one that another tool put in front may not know the package
    if "$candidate" -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null; then
        python=$candidate
    fi
done
if [ -z "$python" ]; then
    echo "screenshot.sh: no Python knows gi and Atspi (tools/install_packages.sh screenshots)" >&2
    exit 1
fi

# A bus of its own, over which widgets are found by their accessible names.
if [ -z "${COMFORTICS_SCREENSHOT_BUS:-}" ]; then
    log=$(mktemp)
    trap 'rm -f "$log"' EXIT
    if ! COMFORTICS_SCREENSHOT_BUS=1 dbus-run-session -- "$0" "$program" "$folder" 2>"$log"; then
        cat "$log" >&2
        exit 1
    fi
    exit 0
fi

. "$here/display.sh"
start_display -wr -screen 0 1480x860x24 # a white ground, and room for three columns and a panel
use_empty_home
export LC_ALL=C.UTF-8 TZ=UTC QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=0
unset XDG_CURRENT_DESKTOP XDG_CONFIG_HOME QT_SCALE_FACTOR QT_QPA_PLATFORM COMFORTICS_MAP_TILES
openbox >/dev/null 2>&1 &
started+=($!)

dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.freedesktop.DBus.Properties.Set \
    string:org.a11y.Status string:IsEnabled variant:boolean:true >/dev/null
"$python" -B "$here/screenshot_windows.py" "$program" "$folder"
