#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Write the classes of data/categories.csv as rows of C++: what values of an index mean.

usage: make_categories.py categories.csv categories.inc
"""
import csv
import itertools
import sys

import index_count

COLUMNS = ["index", "lower", "upper", "label", "severity", "note", "basis", "source"]
BASES = {"read", "known"}


def load(path):
    """Rows by index; raises ValueError where they do not cover the axis without gaps, from low to high."""
    with open(path, encoding="utf-8", newline="") as file:
        reader = csv.DictReader(file)
        if reader.fieldnames != COLUMNS:
            raise ValueError(f"its columns are not {', '.join(COLUMNS)}")
        rows = list(reader)
    scales = {}
    for number, group in itertools.groupby(rows, lambda row: int(row["index"])):
        scale = list(group)
        if number in scales or not 1 <= number <= index_count.INDEX_COUNT:
            raise ValueError(f"index {number} is none, or stands in two places")
        if scale[0]["lower"] or scale[-1]["upper"]:
            raise ValueError(f"index {number} does not reach from end to end")
        for below, above in itertools.pairwise(scale):
            if not below["upper"] or below["upper"] != above["lower"]:
                raise ValueError(f"index {number} has a gap at {below['upper']!r}")
        if any(not below < above for below, above in itertools.pairwise(float(row["lower"]) for row in scale[1:])):
            raise ValueError(f"the classes of index {number} do not ascend")
        if len({(row["source"], row["basis"]) for row in scale}) != 1 or scale[0]["basis"] not in BASES:
            raise ValueError(f"index {number} has no single source")
        if any(not -4 <= int(row["severity"]) <= 4 or not row["label"] for row in scale):
            raise ValueError(f"index {number} has a class without a word or a severity from -4 to 4")
        scales[number] = scale
    return scales


def text(value):
    return '"' + value.replace("\\", "\\\\").replace('"', '\\"') + '"'


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    try:
        scales = load(sys.argv[1])
    except (OSError, ValueError) as error:
        sys.exit(f"{sys.argv[1]}: {error}")
    with open(sys.argv[2], "w", encoding="utf-8") as out:
        out.write("// Made from data/categories.csv.\n")
        out.write("constexpr Category kCategories[] = {\n")
        first = {}
        written = 0
        for number, scale in scales.items():
            first[number] = written
            for row in scale:
                lower = repr(float(row["lower"])) if row["lower"] else "-kUnbounded"
                upper = repr(float(row["upper"])) if row["upper"] else "kUnbounded"
                out.write(f"{{{lower}, {upper}, {text(row['label'])}, {int(row['severity'])}, {text(row['note'])}}},\n")
            written += len(scale)
        out.write("};\nconstexpr ScaleRow kScales[] = {\n")
        for number in range(1, index_count.INDEX_COUNT + 1):
            scale = scales.get(number)
            if scale is None:
                out.write("{},\n")
            else:
                known = "true" if scale[0]["basis"] == "known" else "false"
                out.write(f"{{{first[number]}, {len(scale)}, {text(scale[0]['source'])}, {known}}},\n")
        out.write("};\n")


if __name__ == "__main__":
    main()
