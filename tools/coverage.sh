#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds preset coverage, runs all tests and prints how many lines of each room they reach; then the lines of each
# file that no test reaches.
#
# usage: tools/coverage.sh
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

export QT_QPA_PLATFORM=offscreen
tools/install_packages.sh build window test coverage
tools/build_preset.sh coverage
find build/coverage -name '*.gcda' -delete # counts of earlier runs
ctest --preset coverage --parallel "$(nproc)" >build/coverage/ctest.log || {
    tail -40 build/coverage/ctest.log >&2
    exit 1
}
# Threads that count a branch at once can bring its count below zero, which gcovr takes for a fault.
gcovr --root . --filter src/ --exclude-throw-branches --gcov-ignore-parse-errors --json build/coverage/lines.json build/coverage
python3 -B - build/coverage/lines.json <<'END'
import collections, itertools, json, sys

rooms, missed = collections.defaultdict(lambda: [0, 0]), {}
for file in json.load(open(sys.argv[1]))["files"]:
    lines = [line for line in file["lines"] if not line.get("gcovr/noncode")]
    unreached = [line["line_number"] for line in lines if line["count"] == 0]
    for room in (file["file"].split("/")[1], "all"):
        rooms[room][0] += len(lines)
        rooms[room][1] += len(lines) - len(unreached)
    if unreached:
        missed[file["file"]] = unreached

print("Lines that the tests reach:")
for room, (lines, reached) in sorted(rooms.items(), key=lambda room: (room[0] == "all", room)):
    print(f"  {room:10} {reached:6} of {lines:6}  {100 * reached / lines:5.1f} %")
print("Lines that they do not reach:")
for name, numbers in sorted(missed.items()):
    # Neighbours differ from their place in the list by the same number.
    runs = [list(group) for _, group in itertools.groupby(enumerate(numbers), lambda pair: pair[1] - pair[0])]
    shown = [str(run[0][1]) if len(run) == 1 else f"{run[0][1]}-{run[-1][1]}" for run in runs]
    print(f"  {name}: {', '.join(shown)}")
END
