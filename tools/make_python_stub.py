#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the type stub of the ufuncs of the Python package from the catalogue of ids in data/references.csv.

usage: make_python_stub.py REFERENCES STUB [--check]
"""

import csv
import pathlib
import sys


def stub(references):
    with open(references, encoding="utf-8", newline="") as file:
        ids = [row["id"] for row in csv.DictReader(file)]
    exported = [name for name in ids if name != "solar_radiation"]  # see ufuncs.py
    lines = ["# SPDX-License-Identifier: GPL-3.0-or-later", "# Written by tools/make_python_stub.py.",
             "from numpy import ufunc", "", "__all__ = [", *(f'    "{name}",' for name in exported), "]", ""]
    return "\n".join(lines + [f"{name}: ufunc" for name in ids]) + "\n"


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--check"]
    if len(arguments) != 2:
        sys.exit(__doc__)
    text, path = stub(arguments[0]), pathlib.Path(arguments[1])
    if "--check" not in sys.argv:
        path.write_text(text, encoding="utf-8")
    elif path.read_text(encoding="utf-8") != text:
        sys.exit(f"{path} is not what make_python_stub.py writes")


if __name__ == "__main__":
    main()
