#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Renews what documents show as output of the terminal tool.

The line <!-- output: comfortics-cli ... --> stands before each such block, which holds what that command prints.
"""

import argparse
import pathlib
import re
import shlex
import subprocess
import sys

EXAMPLE = re.compile(r"(<!-- output: comfortics-cli (.+?) -->\n\n```\n)(.*?)(```\n)", re.DOTALL)


def renewed(document, tool):
    def with_output(example):
        command = [tool, *shlex.split(example[2])]
        output = subprocess.run(command, check=True, stdout=subprocess.PIPE, encoding="utf-8").stdout
        lines = [line.rstrip() + "\n" for line in output.splitlines()]
        return example[1] + "".join(lines) + example[4]

    document, count = EXAMPLE.subn(with_output, document)
    if count == 0:
        raise ValueError("it shows no output")
    return document


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tool", help="the terminal tool, comfortics-cli")
    parser.add_argument("document", type=pathlib.Path, help="the document to renew, for instance README.md")
    parser.add_argument("--check", action="store_true", help="write nothing; fail unless the document is up to date")
    arguments = parser.parse_args()
    try:
        document = arguments.document.read_text(encoding="utf-8")
        wanted = renewed(document, arguments.tool)
        if not arguments.check:
            arguments.document.write_text(wanted, encoding="utf-8")
        elif document != wanted:
            sys.exit(f"{arguments.document} shows what the tool does not print: run tools/make_examples.py")
    except (OSError, ValueError, subprocess.CalledProcessError) as error:
        sys.exit(f"{arguments.document}: {error}")


if __name__ == "__main__":
    main()
