#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the release and starts the program; without a display it prints the results of some readings instead.
# COMFORTICS_PRESET chooses another preset than "release", for instance "ci", whose programs are the same.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

preset=${COMFORTICS_PRESET:-release}
buildOnly=false
case "${1:-}" in
"") ;;
--build-only) buildOnly=true ;;
-h | --help)
    echo "usage: ./run.sh [--build-only]"
    echo "Installs what is missing, builds the release and starts the program. Without a display, the terminal"
    echo "tool prints the results of an example instead. --build-only ends after the build."
    exit 0
    ;;
*)
    echo "run.sh: unknown option '$1' (usage: ./run.sh [--build-only])" >&2
    exit 2
    ;;
esac

tools/install_packages.sh build
window=ON
if ! tools/install_packages.sh window; then
    echo "Qt cannot be installed here: building the terminal tool only." >&2
    window=OFF
fi
tools/build_preset.sh "$preset" -DCOMFORTICS_UI=$window

bin=$PWD/build/$preset/bin
if $buildOnly; then
    echo "The programs are in $bin"
    exit 0
fi

if [ $window = ON ]; then
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        exec "$bin/comfortics"
    fi
    echo "There is no display (DISPLAY and WAYLAND_DISPLAY are empty), so the window cannot open."
fi
readings=(--ta 30 --rh 50 --ws 2 --sr 600)
echo "The results of an example in the terminal: comfortics-cli calc ${readings[*]}"
echo
exec "$bin/comfortics-cli" calc "${readings[@]}"
