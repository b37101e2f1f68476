#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Write the limits of data/limits.csv as rows of C++.

usage: make_validity.py limits.csv validity.inc
"""
import limits_table
import source_rows


def initialiser(row):
    limits = [float(text) for text in (row.tair_min, row.tair_max, row.ws_min, row.ws_max)]
    given = limits[0] != 0 or limits[1] != 0
    return f"{{{', '.join(map(repr, limits))}, {str(given).lower()}}}"


if __name__ == "__main__":
    source_rows.convert(__doc__, limits_table.load, lambda rows: (f"{initialiser(row)}," for row in rows))
