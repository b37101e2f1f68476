#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Renews what documents show as output of the terminal tool.

The line <!-- output: comfortics-cli ... --> stands before each such block, which holds what that command prints. With
<!-- output with status 4: comfortics-cli ... --> the command ends with that exit status, and the block holds what it
says on standard error as well. The command itself stands before the line, as the reader is to type it. The line
<!-- file: NAME --> stands before a block that holds a file which the commands read by that name.
"""

import argparse
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

EXAMPLE = re.compile(
    r"(<!-- output(?: with status (\d))?: (comfortics-cli .+?) -->\n\n```\n)(.*?)(```\n)", re.DOTALL
)
FILE = re.compile(r"<!-- file: ([\w.-]+) -->\n\n```\n(.*?)```\n", re.DOTALL)
MARKER = re.compile(r"^<!-- (output|file)\b", re.MULTILINE)


def renewed(document, tool, folder):
    files = FILE.findall(document)
    for name, content in files:
        (pathlib.Path(folder) / name).write_text(content, encoding="utf-8")

    def with_output(example):
        begin, status, command, _, end = example.groups()
        if f"    {command}\n" not in document[: example.start()]:
            raise ValueError(f"the reader is not told to type '{command}'")
        words = [tool, *shlex.split(command)[1:]]
        done = subprocess.run(words, cwd=folder, capture_output=True, encoding="utf-8")
        if done.returncode != int(status or 0):
            raise ValueError(f"'{command}' ended with status {done.returncode}: {done.stderr}")
        lines = (done.stdout + (done.stderr if status else "")).splitlines()
        return begin + "".join(line.rstrip() + "\n" for line in lines) + end

    result, count = EXAMPLE.subn(with_output, document)
    if count == 0 or count + len(files) != len(MARKER.findall(document)):
        raise ValueError("it shows no output, or a line <!-- output ... --> without a block behind it")
    return result


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tool", type=pathlib.Path, help="the terminal tool, comfortics-cli")
    parser.add_argument("document", type=pathlib.Path, help="the document to renew, for instance README.md")
    parser.add_argument("--check", action="store_true", help="write nothing; fail unless the document is up to date")
    arguments = parser.parse_args()
    try:
        document = arguments.document.read_text(encoding="utf-8")
        with tempfile.TemporaryDirectory() as folder:
            wanted = renewed(document, arguments.tool.resolve(), folder)
        if not arguments.check:
            arguments.document.write_text(wanted, encoding="utf-8")
        elif document != wanted:
            sys.exit(f"{arguments.document} shows what the tool does not print: run tools/make_examples.py")
    except (OSError, ValueError) as error:
        sys.exit(f"{arguments.document}: {error}")


if __name__ == "__main__":
    main()
