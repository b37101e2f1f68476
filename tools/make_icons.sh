#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Draws the icon of the desktop anew in the sizes that desktops without SVG ask for: packaging/icons/SIZE.png.
#
# usage: tools/make_icons.sh    (needs the Debian package librsvg2-bin)
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

for size in 16 22 24 32 48 64 128 256; do
    rsvg-convert --width $size --height $size --output packaging/icons/$size.png src/ui/resources/comfortics.svg
done
