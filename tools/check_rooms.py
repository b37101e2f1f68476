#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks what neither compiler nor linker does: a room of src/ includes only rooms that its CMakeLists.txt links to,
rooms link to lower ones only, some are kept apart, Qt is known to ui alone, and each source carries its licence line.

usage: check_rooms.py SOURCE_DIRECTORY
"""

import pathlib
import re
import sys

# Rooms that are to do without others, through whatever they link to.
KEPT_APART = {"catalogue": {"controls", "texts"}, "engine": {"controls", "texts"}}
LICENCE = "SPDX-License-Identifier: GPL-3.0-or-later"


def order_of_rooms(source):
    """The rooms of src/CMakeLists.txt, lowest first."""
    return re.search(r"foreach\(room ([\w ]+)\)", (source / "CMakeLists.txt").read_text())[1].split()


def linked_rooms(source, room):
    lists = source / room / "CMakeLists.txt"
    return set(re.findall(r"comfortics::(\w+)", lists.read_text())) - {room}


def faults_of_links(links, order):
    for room, linked in links.items():
        for other in sorted(linked):
            if other not in order or order.index(other) >= order.index(room):
                yield f"src/{room}/CMakeLists.txt: {room} links to {other}, which is no lower room"


def with_what_they_link_to(links, order):
    reached = {}
    for room in order:
        reached[room] = links[room].union(*(reached.get(other, set()) for other in links[room]))
    return reached


def faults_of_includes(path, room, allowed, rooms):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), start=1):
        include = re.match(r'\s*#\s*include\s*([<"])([^>"]+)', line)
        if not include:
            continue
        bracket, header = include.groups()
        folder = header.partition("/")[0] if "/" in header else room
        if bracket == '"' and folder in rooms and folder != room and folder not in allowed:
            yield f"{path}:{number}: {room} does not link to {folder}"
        if room != "ui" and re.match(r"Q[A-Z]|Qt", header):
            yield f"{path}:{number}: Qt is for ui alone"


def faults_of_company(reached):
    for room, unwanted in KEPT_APART.items():
        for other in sorted(unwanted & reached.get(room, set())):
            yield f"src/{room}/CMakeLists.txt: {room} reaches {other}, of which it is to know nothing"


def files_that_need_a_licence_line(root):
    for folder in ("include", "src", "tests", "bench", "fuzz", "examples", "cmake", "tools", "data", "packaging"):
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in {".h", ".cpp", ".py", ".sh", ".cmake"} or path.name == "CMakeLists.txt":
                yield path
    yield from (root / name for name in ("CMakeLists.txt", "run.sh", "test.sh", ".ci/run"))


def faults(root):
    source = root / "src"
    order = order_of_rooms(source)
    links = {room: linked_rooms(source, room) for room in order}
    yield from faults_of_links(links, order)
    reached = with_what_they_link_to(links, order)
    yield from faults_of_company(reached)
    for path in sorted(source.rglob("*")):
        if path.suffix in {".h", ".cpp"}:
            room = path.relative_to(source).parts[0]
            if room in order:
                yield from faults_of_includes(path, room, reached[room], order)
            else:
                yield f"{path}: src/CMakeLists.txt does not know the room {room}"
    for path in files_that_need_a_licence_line(root):
        with open(path, encoding="utf-8") as file:
            if not any(LICENCE in file.readline() for _ in range(3)):
                yield f"{path}: no line '{LICENCE}' on top"


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    found = list(faults(pathlib.Path(sys.argv[1])))
    for fault in found:
        print(fault, file=sys.stderr)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
