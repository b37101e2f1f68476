#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the release and packs it: a Debian package and an archive, in build/packages. COMFORTICS_PRESET chooses
# another preset than "release", for instance "ci".
#
# usage: tools/make_package.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${COMFORTICS_PRESET:-release}
tools/install_packages.sh build window python package
tools/build_preset.sh "$preset"
rm -rf build/packages
log=build/$preset/cpack.log
if ! (umask 022 && cpack --preset "$preset" >"$log" 2>&1); then
    cat "$log" >&2
    exit 1
fi
for package in build/packages/*.deb build/packages/*.tar.gz; do
    echo "$PWD/$package ($(stat --format=%s "$package" | numfmt --to=iec))"
done
