#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds everything and runs all tests. Options go to ctest, for instance: ./test.sh -R formulas/
# COMFORTICS_PRESET chooses another preset than "dev", for instance "ci", where warnings are errors.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"

preset=${COMFORTICS_PRESET:-dev}
export QT_QPA_PLATFORM=offscreen # also while building: tests are listed by starting their programs

tools/install_packages.sh build window test python python_test
tools/build_preset.sh "$preset"
exec ctest --preset "$preset" --parallel "$(nproc)" "$@"
