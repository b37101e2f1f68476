#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the reference of the library, build/reference/html/index.html, from its headers and docs/library.md. Fails if
# anything public is not told there, or something told is not there.
#
# usage: tools/check_reference.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

output=build/reference
version=$(sed -n 's/^project(Comfortics VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
rm -rf "$output"
mkdir -p "$output"
sed -e "s|@VERSION@|$version|; s|@OUTPUT@|$output|" docs/Doxyfile.in | doxygen -
[ -s "$output/html/namespacecomfortics.html" ]
echo "The reference of version $version tells all that is public: $output/html/index.html"
