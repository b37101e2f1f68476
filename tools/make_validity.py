#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Write the limits of data/limits.csv as rows of C++.

usage: make_validity.py limits.csv validity.inc
"""
import sys

import limits_table


def initialiser(row):
    limits = [float(text) for text in (row.tair_min, row.tair_max, row.ws_min, row.ws_max)]
    given = limits[0] != 0 or limits[1] != 0
    return f"{{{', '.join(map(repr, limits))}, {str(given).lower()}}}"


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    try:
        rows = limits_table.load(sys.argv[1])
    except (OSError, ValueError) as error:
        sys.exit(f"{sys.argv[1]}: {error}")
    with open(sys.argv[2], "w", encoding="utf-8") as out:
        out.write("// Made from data/limits.csv.\n")
        for row in rows:
            out.write(f"{initialiser(row)},\n")


if __name__ == "__main__":
    main()
