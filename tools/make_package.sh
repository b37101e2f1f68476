#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the release and packs it: a Debian package and an archive, in build/packages.
#
# usage: tools/make_package.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

tools/install_packages.sh build window package
tools/build_preset.sh release
rm -rf build/packages
log=build/release/cpack.log
if ! (umask 022 && cpack --preset release >"$log" 2>&1); then
    cat "$log" >&2
    exit 1
fi
for package in build/packages/*.deb build/packages/*.tar.gz; do
    echo "$PWD/$package ($(stat --format=%s "$package" | numfmt --to=iec))"
done
