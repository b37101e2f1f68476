#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails if a C++ file is not laid out as .clang-format says; with --fix it lays out all of them.
#
# usage: tools/check_format.sh [--fix]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Versions lay out differently. Debian 12 has 14.
formatter=$(command -v clang-format-14 || command -v clang-format)
if ! "$formatter" --version | grep -q 'version 14\.'; then
    echo "check_format.sh: clang-format 14 is needed, this is $("$formatter" --version)" >&2
    exit 1
fi

mapfile -d '' files < <(find include src tests bench fuzz examples -name '*.cpp' -print0 -o -name '*.h' -print0)
if [ "${1:-}" = --fix ]; then
    "$formatter" -i -- "${files[@]}"
else
    "$formatter" --dry-run -Werror -- "${files[@]}"
fi
