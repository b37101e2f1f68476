#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the Debian package's changelog from the releases of CHANGELOG.md; what is not released is left out.

usage: make_debian_changelog.py CHANGELOG VERSION MAINTAINER OUTPUT    (VERSION must be the newest release)
"""
import datetime
import re
import sys
import textwrap


def releases(lines):
    """Version, day and changes of each release. A change is a list item below a heading such as "Added"."""
    version = day = None
    changes = []
    group = ""
    for line in [*lines, "## end"]:
        line = line.rstrip()
        if line.startswith("## "):
            if version:
                yield version, day, changes
            match = re.match(r"## \[?(\d[^\]\s]*)\]? - (\d{4}-\d\d-\d\d)", line)
            version, day = match.groups() if match else (None, None)
            changes = []
        elif line.startswith("### "):
            group = line[4:]
        elif line.startswith(("- ", "* ")):
            changes.append(f"{group}: {line[2:]}")
        elif line.startswith("  ") and changes:
            changes[-1] += " " + line.strip()


def entry(version, day, changes, maintainer):
    date = datetime.datetime.fromisoformat(day).strftime("%a, %d %b %Y 12:00:00 +0000")
    items = [textwrap.fill(change, 79, initial_indent="  * ", subsequent_indent="    ", break_on_hyphens=False)
             for change in changes]
    return f"comfortics ({version}) stable; urgency=medium\n\n" + "\n".join(items) + f"\n\n -- {maintainer}  {date}\n"


changelog, wanted, maintainer, output = sys.argv[1:]
with open(changelog, encoding="utf-8") as file:
    found = list(releases(file))
if not found or found[0][0] != wanted:
    sys.exit(f"make_debian_changelog.py: the newest release in {changelog} is not {wanted}")
with open(output, "w", encoding="utf-8") as file:
    file.write("\n".join(entry(*release, maintainer) for release in found))
