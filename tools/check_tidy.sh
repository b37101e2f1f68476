#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails if clang-tidy finds anything by .clang-tidy, and prints what. Without files it looks at all of src/ that the
# preset compiles, so without the windows where that was configured without Qt.
#
# usage: [COMFORTICS_PRESET=dev] tools/check_tidy.sh [FILE.cpp...]    (after tools/build_preset.sh of the preset)
set -euo pipefail
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd -P)
build=$repository/build/${COMFORTICS_PRESET:-dev}

# Versions know other checks. Debian 12 has 14.
tidy=$(command -v clang-tidy-14 || command -v clang-tidy)
if ! "$tidy" --version | grep -q 'version 14\.'; then
    echo "check_tidy.sh: clang-tidy 14 is needed, this is $("$tidy" --version)" >&2
    exit 1
fi

# Generated sources lie in the build folder and are nobody's to mend.
list='
import json, pathlib, sys
build, repository, *wanted = sys.argv[1:]
source = pathlib.Path(repository)
compiled = {pathlib.Path(unit["file"]) for unit in json.load(open(build + "/compile_commands.json"))}
wanted = {pathlib.Path(name).resolve() for name in wanted}
if wanted - compiled:
    sys.exit(f"check_tidy.sh: {build} does not compile " + ", ".join(map(str, sorted(wanted - compiled))))
for path in sorted(wanted or (path for path in compiled if path.is_relative_to(source / "src"))):
    print(path, end="\0")
'
mapfile -d '' files < <(python3 -c "$list" "$build" "$repository" "$@")
wait $! # its exit status
[ ${#files[@]} -gt 0 ]

# What is a warning to g++ alone is unknown to clang; what it counts is no finding.
printf '%s\0' "${files[@]}" |
    xargs -0 -n 1 -P "$(nproc)" "$tidy" -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option \
        2> >(grep -Ev '^[0-9]+ warnings? (generated|treated as errors?)' >&2)
echo "clang-tidy finds nothing in ${#files[@]} sources"
