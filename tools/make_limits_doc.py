#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Renews the table of ranges in docs/limits.md, between its two marker lines, from the table of limits."""

import argparse
import pathlib
import sys

import limits_table

BEGIN = "<!-- table of limits: written by tools/make_limits_doc.py -->"
END = "<!-- table of limits: end -->"
HEADINGS = ["No", "Index", "Compared", "Range [°C]", "Wind [m/s]", "Basis", "Where the range comes from"]


def cell(text):
    return text.strip().replace("&", "&amp;").replace("<", "&lt;").replace("|", "\\|").replace("*", "\\*")


def cells(row):
    temperature = f"{row.tair_min} to {row.tair_max}"
    wind = f"{row.ws_min} to {row.ws_max}" if row.has_wind_limit else ""
    if row.number in limits_table.EMPTY_ON_PURPOSE:
        temperature = "never"
    if not row.gated:  # the file holds a range all the same; it has no effect
        temperature, wind = f"({temperature})", wind and f"({wind})"
    return [str(row.number), row.name, row.gate_value if row.gated else "–", temperature, wind, row.basis, row.source]


def markdown(rows):
    lines = [HEADINGS, ["--:", "---", "---", "---", "---", "---", "---"]]
    lines += [[cell(text) for text in cells(row)] for row in rows]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines)


def renewed(document, table):
    if document.count(BEGIN) != 1 or document.count(END) != 1 or document.index(BEGIN) > document.index(END):
        raise ValueError("the two marker lines are not there once each")
    before, rest = document.split(BEGIN)
    after = rest.split(END)[1]
    return f"{before}{BEGIN}\n\n{table}\n{END}{after}"


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("table", help="the table, data/limits.csv")
    parser.add_argument("document", type=pathlib.Path, help="the document to renew, docs/limits.md")
    parser.add_argument("--check", action="store_true", help="write nothing; fail unless the document is up to date")
    arguments = parser.parse_args()
    try:
        document = arguments.document.read_text(encoding="utf-8")
        wanted = renewed(document, markdown(limits_table.load(arguments.table)))
        if not arguments.check:
            arguments.document.write_text(wanted, encoding="utf-8")
        elif document != wanted:
            sys.exit(f"{arguments.document} does not agree with {arguments.table}: run tools/make_limits_doc.py")
    except (OSError, ValueError) as error:
        sys.exit(f"{arguments.document}: {error}")


if __name__ == "__main__":
    main()
