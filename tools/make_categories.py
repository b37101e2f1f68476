#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Write the classes of data/categories.csv as rows of C++: what values of an index mean.

usage: make_categories.py categories.csv categories.inc
"""
import itertools

import source_rows
from index_count import INDEX_COUNT
from source_rows import literal

COLUMNS = ["index", "lower", "upper", "label", "severity", "note", "basis", "source"]
BASES = {"read", "known"}


def load(path):
    """Rows by index; raises ValueError where they do not cover the axis without gaps, from low to high."""
    scales = {}
    for number, group in itertools.groupby(source_rows.load(path, COLUMNS), lambda row: int(row["index"])):
        scale = list(group)
        if number in scales or not 1 <= number <= INDEX_COUNT:
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


def lines(scales):
    yield "constexpr Category kCategories[] = {"
    first = {}
    written = 0
    for number, scale in scales.items():
        first[number] = written
        for row in scale:
            lower = repr(float(row["lower"])) if row["lower"] else "-kUnbounded"
            upper = repr(float(row["upper"])) if row["upper"] else "kUnbounded"
            yield f"{{{lower}, {upper}, {literal(row['label'])}, {int(row['severity'])}, {literal(row['note'])}}},"
        written += len(scale)
    yield "};\nconstexpr ScaleRow kScales[] = {"
    for number in range(1, INDEX_COUNT + 1):
        scale = scales.get(number)
        if scale is None:
            yield "{},"
        else:
            known = "true" if scale[0]["basis"] == "known" else "false"
            yield f"{{{first[number]}, {len(scale)}, {literal(scale[0]['source'])}, {known}}},"
    yield "};"


if __name__ == "__main__":
    source_rows.convert(__doc__, load, lines)
