#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fail if clang-tidy finds anything by .clang-tidy, and print what.

usage: [COMFORTICS_PRESET=dev] check_tidy.py [FILE.cpp...]    (after tools/build_preset.sh of the preset)

Without files it looks at all of src/ that the preset compiles, so without the windows where that was configured without
Qt. Most of the time goes into the headers, so the sources of a folder are looked at as one; those that do not compile
together, as two of them use one name, are parted. Where anything is found, each source is looked at by itself, and that
counts. An unused "using" is seen only where a source is looked at by itself.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

REPOSITORY = pathlib.Path(__file__).resolve().parent.parent
BUILD = REPOSITORY / "build" / os.environ.get("COMFORTICS_PRESET", "dev")
AT_ONCE = 12  # sources, so that the processors share the largest folder
# A source that includes sources is this script's own.
TOGETHER = ["--checks=-bugprone-suspicious-include"]


def find_tidy():
    """Versions know other checks. Debian 12 has 14."""
    tidy = shutil.which("clang-tidy-14") or shutil.which("clang-tidy")
    version = subprocess.run([tidy, "--version"], capture_output=True, text=True).stdout if tidy else "missing"
    if "version 14." not in version:
        sys.exit(f"check_tidy.py: clang-tidy 14 is needed, this is {version.strip()}")
    return tidy


def read_commands():
    """The command, without the source, and the folder of each source that the preset compiles, those within a source
    that joins them, too."""
    commands = {}
    for unit in json.loads((BUILD / "compile_commands.json").read_text()):
        file = pathlib.Path(unit["file"])
        arguments = [word for word in shlex.split(unit["command"]) if word != unit["file"]]
        joined = file.parent.name == "Unity" and re.findall(r'^#include "(.*)"$', file.read_text(), re.MULTILINE)
        for source in joined or [file]:
            commands[pathlib.Path(source)] = (arguments, unit["directory"])
    return commands


def choose(commands, names):
    """Generated sources lie in the build folder and are nobody's to mend."""
    wanted = {pathlib.Path(name).resolve() for name in names}
    if wanted - commands.keys():
        sys.exit(f"check_tidy.py: {BUILD} does not compile " + ", ".join(map(str, sorted(wanted - commands.keys()))))
    return sorted(wanted or (path for path in commands if path.is_relative_to(REPOSITORY / "src")))


class Checker:
    def __init__(self, tidy, commands, scratch):
        self.tidy = tidy
        self.commands = commands
        self.scratch = pathlib.Path(scratch)

    def run(self, source, like, options):
        """What clang-tidy says of a source compiled like another one, or None."""
        arguments, directory = self.commands[like]
        with tempfile.TemporaryDirectory(dir=self.scratch) as folder:
            entry = {"file": str(source), "directory": directory, "arguments": arguments + [str(source)]}
            pathlib.Path(folder, "compile_commands.json").write_text(json.dumps([entry]))
            # What is a warning to g++ alone is unknown to clang; what it counts is no finding.
            done = subprocess.run(
                [self.tidy, "-p", folder, "--quiet", f"--config-file={REPOSITORY}/.clang-tidy",
                 "--extra-arg=-Wno-unknown-warning-option", *options, str(source)],
                capture_output=True, text=True)
        if done.returncode == 0:
            return None
        counts = r"^\d+ warnings?( and \d+ errors?)? (generated|treated as errors?).*\n|^Suppressed .*\n|^Use -header-filter.*\n"
        return done.stdout + re.sub(counts, "", done.stderr, flags=re.MULTILINE)

    def clashing(self, sources, joint):
        """Those that do not compile behind the others."""
        said = self.run(joint, sources[0], ["--checks=-*,clang-diagnostic-error,misc-static-assert"])
        wrong = set(re.findall(r"^(/.*?):\d+:\d+: error: ", said or "", re.MULTILINE))
        return [source for source in sources if str(source) in wrong]

    def check(self, sources):
        """What is found in the sources, a text for each with findings."""
        if len(sources) > 1:
            handle, name = tempfile.mkstemp(suffix=".cpp", dir=self.scratch)
            with open(handle, "w") as joint:
                joint.writelines(f'#include "{source}"\n' for source in sources)
            apart = self.clashing(sources, name)
            if apart and len(apart) < len(sources):
                return self.check(apart) + self.check([source for source in sources if source not in apart])
            if not apart and self.run(name, sources[0], TOGETHER) is None:
                return []
        return [said for source in sources if (said := self.run(source, source, [])) is not None]


def main():
    tidy = find_tidy()
    commands = read_commands()
    names = sys.argv[1:]
    chosen = choose(commands, names)
    assert chosen, "no sources"

    groups = {}
    for source in chosen:
        # A source with a command of its own stays by itself.
        groups.setdefault((source if names else source.parent, tuple(plain(commands[source][0]))), []).append(source)
    parts = []
    for group in groups.values():
        count = -(-len(group) // AT_ONCE)
        parts += [group[number::count] for number in range(count)]
    parts.sort(key=len, reverse=True)

    found = 0
    with tempfile.TemporaryDirectory() as scratch, \
            concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        for texts in pool.map(Checker(tidy, commands, scratch).check, parts):
            found += len(texts)
            print(*texts, sep="\n", end="", flush=True)
    if found:
        sys.exit(f"clang-tidy finds something in {found} of {len(chosen)} sources")
    print(f"clang-tidy finds nothing in {len(chosen)} sources")


def plain(arguments):
    """A command without the names of the files that it writes."""
    return [word for word in arguments if not word.endswith((".o", ".d"))]


if __name__ == "__main__":
    main()
