#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Times `comfortics-cli batch` on years of hourly station data, all 222 indices.

usage: batch_bench.py BUILD_FOLDER [--rows N] [--plain-rows N]

Prints, with solar radiation and with globe temperature given: rows per second on one thread and on
all cores, rows per second of processor time (which other work on the machine disturbs less), the
peak memory of the process, and how many times as long a row would take if its models stepped the
plain way, by a sample of the rows (where the build has `plain_rows`, see COMFORTICS_BENCH).
"""
import argparse
import os
import pathlib
import subprocess
import sys
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent


def run(command: list[str]) -> tuple[float, float, float]:
    """Seconds, processor seconds and peak memory [MB] of a process that has to succeed."""
    start = time.monotonic()
    process = subprocess.Popen(command, stderr=subprocess.PIPE, text=True)
    said = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.monotonic() - start
    if status != 0:
        sys.exit("%s failed: %s" % (" ".join(command), said))
    return seconds, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def main() -> None:
    parser = argparse.ArgumentParser(description="Times the batch of the terminal tool")
    parser.add_argument("build", type=pathlib.Path, help="folder of an optimised build")
    parser.add_argument("--rows", type=int, default=5 * 8760)
    parser.add_argument("--plain-rows", type=int, default=100, help="size of the sample for the plain stepping")
    arguments = parser.parse_args()
    tool = arguments.build / "bin" / "comfortics-cli"
    plain = arguments.build / "bin" / "plain_rows"

    print("%-10s %-8s %14s %18s %10s %14s"
          % ("given", "threads", "rows/second", "rows/cpu second", "peak MB", "plain/quick"))
    with tempfile.TemporaryDirectory() as folder:
        for given, option in (("radiation", []), ("globe", ["--globe"])):
            table = pathlib.Path(folder, given + ".csv")
            with open(table, "w", encoding="utf-8") as file:
                subprocess.run([sys.executable, HERE / "make_station_year.py", "--rows", str(arguments.rows), *option],
                               stdout=file, check=True)
            plain_speed = None
            if plain.exists():
                # A row in the middle of the year and those after it, by day and by night.
                lines = table.read_text(encoding="utf-8").splitlines(keepends=True)
                sample = pathlib.Path(folder, "sample.csv")
                sample.write_text("".join(lines[:1] + lines[4381:4381 + arguments.plain_rows]), encoding="utf-8")
                plain_speed = float(subprocess.run([plain, sample, str(arguments.plain_rows)], check=True,
                                                   capture_output=True, text=True).stdout)
            for threads in (1, os.cpu_count() or 1):
                # Robust rules: every row is calculated to its end.
                seconds, busy, memory = run([str(tool), "batch", str(table), "--rules", "robust", "--threads",
                                             str(threads), "-o", os.devnull])
                speed = arguments.rows / busy
                ratio = "" if plain_speed is None or threads != 1 else "%.1f" % (1 + speed / plain_speed)
                print("%-10s %-8d %14.0f %18.0f %10.1f %14s"
                      % (given, threads, arguments.rows / seconds, speed, memory, ratio))


if __name__ == "__main__":
    main()
