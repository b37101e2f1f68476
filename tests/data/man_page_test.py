#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Holds the man page of a program and its --help against each other: each tells of the options that the other does.

usage: man_page_test.py PROGRAM MAN_PAGE

The program's own options stand in the section OPTIONS, those of a command in the subsections whose titles name it.
-h and --help of the commands, and the options of a program with commands, need no place of their own.
"""
import re
import subprocess
import sys


def help_lines(program, *arguments):
    text = subprocess.run([program, *arguments, "--help"], check=True, capture_output=True, text=True).stdout
    return text.splitlines()


def options_of_help(lines):
    heads = [re.split(" {2,}", line.strip())[0] for line in lines if re.match(" +-", line)]
    return {option for head in heads for option in re.findall(r"(?:^|[ ,])(-[a-z]|--[a-z0-9-]+)(?=[ ,]|$)", head)}


def commands_of_help(lines):
    after = lines[lines.index("Subcommands:") + 1:] if "Subcommands:" in lines else []
    return [line.split()[0] for line in after if re.match("  [a-z]", line)]


def options_of_page(page, wanted):
    found = set()
    inside = False
    with open(page, encoding="utf-8") as lines:
        for line in lines:
            if heading := re.match(r"\.S[hs] (.*)", line):
                inside = wanted in heading.group(1).split()
            elif inside and line.startswith(".It Fl "):
                found |= {"-" + flag for flag in re.findall(r"Fl (\S+)", line)}
    return found


def differences(program, page):
    own = help_lines(program)
    commands = commands_of_help(own)
    helps = {name: options_of_help(help_lines(program, name)) - {"-h", "--help"} for name in commands}
    for name, known in (helps or {"OPTIONS": options_of_help(own)}).items():
        told = options_of_page(page, name)
        if not known:
            yield f"{name}: --help shows no option"
        yield from (f"{name}: the page lacks {option}" for option in sorted(known - told))
        yield from (f"{name}: {option} of the page is no option" for option in sorted(told - known))


found = list(differences(*sys.argv[1:]))
print("\n".join(found) or "The man page tells of every option")
sys.exit(1 if found else 0)
