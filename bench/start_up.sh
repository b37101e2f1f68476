#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Times the start of the program on a display of its own: from exec until its first window, the splash screen, is on
# the screen, and until the main window is, less the two seconds that the splash screen stays by design. The main
# window is built before the splash screen shows. CPU is the time of user and system until the main window is there.
#
# usage: bench/start_up.sh PROGRAM [RUNS]    (for instance build/release/bin/comfortics; 5 runs)
#        COLD=1 drops the disk cache before each run, as root.
# Needs the Debian packages xvfb and xdotool.
set -euo pipefail
if [ $# -lt 1 ]; then
    sed -n '3,9s/^# \?//p' "$0"
    exit 2
fi
program=$(realpath "$1")
runs=${2:-5}
for tool in Xvfb xdotool; do
    if ! command -v "$tool" >/dev/null; then
        echo "start_up.sh: $tool is missing (packages: xvfb xdotool)" >&2
        exit 1
    fi
done

. "$(dirname "${BASH_SOURCE[0]}")/../tools/display.sh"
start_display
use_empty_home

now() { echo $(($(date +%s%N) / 1000000)); }
# until WIDER THAN: waits for a window of the program that is wider than so many pixels.
until_wider() {
    local id width
    for _ in $(seq 3000); do
        for id in $(xdotool search --onlyvisible --name '^Comfortics$' 2>/dev/null); do
            width=$(xdotool getwindowgeometry --shell "$id" 2>/dev/null | sed -n 's/^WIDTH=//p') || true
            [ "${width:-0}" -le "$1" ] || return 0
        done
        sleep 0.005
    done
    echo "start_up.sh: no window appeared" >&2
    exit 1
}

ticks=$(getconf CLK_TCK)
echo "run  splash [ms]  main less 2 s [ms]  CPU [ms]"
for run in $(seq "$runs"); do
    if [ -n "${COLD:-}" ]; then
        sync
        echo 3 >/proc/sys/vm/drop_caches
        xdotool getmouselocation >/dev/null # is on disk, too
    fi
    begin=$(now)
    "$program" >"$scratch/program.log" 2>&1 &
    id=$!
    started+=("$id")
    until_wider 0
    splash=$(($(now) - begin))
    until_wider 700
    main=$(($(now) - begin - 2000))
    cpu=$(awk -v ticks="$ticks" '{ print int(($14 + $15) * 1000 / ticks) }' "/proc/$id/stat")
    printf '%3d  %11d  %18d  %8d\n' "$run" "$splash" "$main" "$cpu"
    kill "$id"
    wait "$id" 2>/dev/null || true
done
