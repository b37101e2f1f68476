#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes Limits.Index, the INI file that the programs read at start, from the table of limits.

One section, INDICES, with eight keys for each index: lines end in CR LF, the bytes are CP1252 (the degree sign
of some names is one byte), as readers of INI files expect. What was written is read back and compared.
"""

import argparse
import configparser
import os
import pathlib
import sys

import limits_table

SECTION = "INDICES"
ENCODING = "cp1252"
LONGEST_VALUE = 149  # a reader may cut what is longer

# The category key of the file. Nothing in a result depends on it.
CATEGORIES = {
    "psychrometric": "5-6 52 106 130-131 134 140-141 201-203",
    "apparent temperature": "7-18 20 22-23 50-51 65-66 68-73 103 109 114 116-117 132-133 152 154 161 195-196",
    "heat": "53-58 67 78-79 85-94 104-105 115 135 151 153 155-156 162-173 175-176 194 197-200 205 210",
    "cooling power": "26-49 62 99 204 206-209",
    "cold": "21 24 74-77 95 108 138 142-150 174 179-182 211-222",
    "sensation": "2-4 25 59-61 96-98 102 129 139 177-178 183-193",
    "physiological": "1 19 81-84 101 118-128 136-137 157-158",
    "radiation": "63-64 80 100 107 110-113 159-160",
}


def category_of_each_index():
    categories = {}
    for category, ranges in CATEGORIES.items():
        for text in ranges.split():
            first, _, last = text.partition("-")
            for number in range(int(first), int(last or first) + 1):
                if number in categories:
                    raise ValueError(f"index {number} has two categories")
                categories[number] = category
    return categories


def settings(rows):
    """Pairs of key and value, in the order in which they are read."""
    categories = category_of_each_index()
    for row in rows:
        values = {
            "Name_": row.name,
            "TA_Cat_": row.gate_value,
            "Tair_min_": row.tair_min,
            "Tair_max_": row.tair_max,
            "WS_min_": row.ws_min,
            "WS_max_": row.ws_max,
            "Active_": "1",
            "Categories_": categories[row.number],
        }
        for stem, value in values.items():
            if len(value) > LONGEST_VALUE:
                raise ValueError(f"{stem}{row.number} is longer than {LONGEST_VALUE} characters")
            yield f"{stem}{row.number}", value


def index_file(rows):
    """The bytes of Limits.Index."""
    lines = [f"[{SECTION}]"] + [f"{key}={value}" for key, value in settings(rows)]
    return "".join(line + "\r\n" for line in lines).encode(ENCODING)


def check_reads_back(content, rows):
    parser = configparser.ConfigParser(interpolation=None, delimiters=("=",), strict=True)  # strict: no key twice
    parser.optionxform = str
    parser.read_string(content.decode(ENCODING))
    wanted = {key: value.strip() for key, value in settings(rows)}
    if parser.sections() != [SECTION] or dict(parser[SECTION]) != wanted:
        raise ValueError("the generated text does not read back as the table")


def write_whole(path, content):
    beside = path.with_name(path.name + ".part")
    beside.write_bytes(content)
    os.replace(beside, path)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("table", help="the table, data/limits.csv")
    parser.add_argument("output", type=pathlib.Path, help="the file to write, Limits.Index")
    parser.add_argument("--check", action="store_true", help="write nothing; fail unless OUTPUT is up to date")
    arguments = parser.parse_args()
    try:
        rows = limits_table.load(arguments.table)
        content = index_file(rows)
        check_reads_back(content, rows)
        if not arguments.check:
            write_whole(arguments.output, content)
        elif arguments.output.read_bytes() != content:
            sys.exit(f"{arguments.output} does not agree with {arguments.table}: run tools/make_limits.py")
    except (OSError, ValueError) as error:
        sys.exit(f"{arguments.table}: {error}")


if __name__ == "__main__":
    main()
