# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tools that write a table of data/ as rows of C++ have in common."""

import csv
import pathlib
import sys

from index_count import INDEX_COUNT


def load(path, columns):
    """The rows of a table as dictionaries; raises ValueError where its columns are others."""
    with open(path, encoding="utf-8", newline="") as file:
        reader = csv.DictReader(file)
        if reader.fieldnames != columns:
            raise ValueError(f"the columns must be {', '.join(columns)}")
        return list(reader)


def load_each_index(path, columns):
    """The same of a table that has a row for each index, in order."""
    rows = load(path, columns)
    if [row["number"] for row in rows] != [str(n) for n in range(1, INDEX_COUNT + 1)]:
        raise ValueError(f"the rows must be numbered from 1 to {INDEX_COUNT}")
    return rows


def literal(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def convert(usage, load_table, lines):
    """Writes the file that the command line names second, as `lines` makes it of the table that it names first."""
    if len(sys.argv) != 3:
        sys.exit(usage)
    table = pathlib.Path(sys.argv[1])
    try:
        rows = load_table(table)
    except (OSError, ValueError) as error:
        sys.exit(f"{table}: {error}")
    with open(sys.argv[2], "w", encoding="utf-8") as out:
        out.write(f"// Made from data/{table.name}.\n")
        out.writelines(f"{line}\n" for line in lines(rows))
