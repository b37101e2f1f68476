# SPDX-License-Identifier: GPL-3.0-or-later
"""By each set of rules the figures are the texts that the terminal tool writes for the same readings."""
import csv
import os
import subprocess

import comfortics
import numpy
import pytest


@pytest.fixture(scope="module")
def table(tmp_path_factory):
    """Readings with few digits, as texts have them: gaps, storms and damp heat among them."""
    random = numpy.random.default_rng(7)
    count = 400
    columns = {
        "ta": random.uniform(-30, 57, count).round(2),
        "sr": random.uniform(0, 1300, count).round(1),
        "rh": random.choice([0.0, 50.0, 100.0, 31.25, 77.7, 12.34, 3.3], count),
        "ws": random.choice([0.1, 0.15, 1.0, 2.25, 7.0, 30.0, 0.0], count),
    }
    for column in columns.values():
        column[random.integers(0, count, 6)] = numpy.nan
    folder = tmp_path_factory.mktemp("table")
    path = folder / "readings.csv"
    with open(path, "w", newline="", encoding="utf-8") as file:
        writer = csv.writer(file)
        writer.writerow(name.upper() for name in columns)
        for row in zip(*columns.values()):
            writer.writerow("" if numpy.isnan(value) else repr(float(value)) for value in row)
    return columns, path


@pytest.mark.parametrize("rules", ["classic", "robust", "precise"])
@pytest.mark.parametrize("limits", [True, False])
def test_figures_are_the_texts_of_the_batch(table, rules, limits):
    columns, path = table
    options = [] if limits else ["--ignore-limits"]
    run = subprocess.run([os.environ["COMFORTICS_CLI"], "batch", path, "--rules", rules, *options],
                         capture_output=True, text=True, check=True)
    rows = list(csv.reader(run.stdout.splitlines()))
    first = len(rows[0]) - len(comfortics.indices)
    if rules == "precise":  # the batch cleans texts, which numbers do not go through, and skips rows with a gap
        columns = columns | {"ws": numpy.maximum(columns["ws"], 0.1)}
        whole = ~numpy.isnan(list(columns.values())).any(axis=0)
    else:
        whole = numpy.full(len(rows) - 1, True)
    figures = comfortics.calculate(**columns, rules=rules, limits=limits, threads=2)
    for row in comfortics.indices:
        shown = [cells[first + row.number - 1] for cells, take in zip(rows[1:], whole) if take]
        assert [row.format(value) for value in figures[row.id][whole]] == shown, row.id
