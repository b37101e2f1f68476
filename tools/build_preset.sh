#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Configures and builds one preset of CMakePresets.json in build/PRESET, saying little while all goes well.
#
# usage: tools/build_preset.sh PRESET [CMake options, for instance -DCOMFORTICS_UI=OFF]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:?usage: tools/build_preset.sh PRESET [CMake options]}
shift

if [[ $PWD == *\"* ]]; then
    echo "The path $PWD holds a quote, with which CMake cannot build: move the sources to another folder." >&2
    exit 1
fi
mkdir -p "build/$preset"
log=build/$preset/configure.log
if ! cmake --preset "$preset" "$@" >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi

echo "Building in build/$preset"
build=(cmake --build --preset "$preset" --parallel "$(nproc)")
if [ -t 1 ]; then # ninja shows its progress in one line; a log is better without
    "${build[@]}"
else
    "${build[@]}" -- --quiet
fi
