# SPDX-License-Identifier: GPL-3.0-or-later
"""The table of a station: a CSV whose cells stay as they are, with the indices behind them."""

import csv
import itertools

import numpy

from comfortics._calculate import READINGS, calculate, one_of_each_pair
from comfortics._catalogue import indices

_ROWS = 100_000  # at a time
_GAPS = {"", "na", "n/a", "nan", "null", "none", "-", "--", "---"}
_CATEGORY = "_category"


def _encoding(path):
    with open(path, "rb") as file:
        return "utf-16" if file.read(2) in (b"\xff\xfe", b"\xfe\xff") else "utf-8-sig"


def _delimiter(line):
    return max(",;\t", key=line.count)  # the first where there is none


def _columns(header, named, source):
    """The place of each reading's column."""
    taken = {}
    for reading in READINGS:
        wanted = named.get(reading)
        places = [place for place, name in enumerate(header)
                  if (name == wanted if wanted else name.strip().lower() == reading)]
        if len(places) > 1:
            names = " and ".join(repr(header[place]) for place in places)
            raise ValueError(f"{source} has {len(places)} columns for {reading}: {names}.")
        if wanted and not places:
            raise ValueError(f"{source} has no column {wanted!r}.")
        if places:
            taken[reading] = places[0]
    if not taken:
        raise ValueError(f"{source} has no column {', '.join(READINGS)}: say which are meant, for instance --ta NAME.")
    return one_of_each_pair(taken, named)


def _rows(reader, width, source):
    """(line, cells) of each row: as many cells as the header has."""
    try:
        for row in reader:
            while len(row) > width and not row[-1].strip():
                row.pop()
            if len(row) > width:
                raise ValueError(f"{source}, line {reader.line_num}: {len(row)} cells below a header of {width}.")
            if row:
                yield reader.line_num, row + [""] * (width - len(row))
    except csv.Error as error:
        raise ValueError(f"{source}, line {reader.line_num}: {error}.") from None


def _number(cell, decimal, where, reading):
    text = cell.strip()
    if text.lower() in _GAPS:
        return numpy.nan
    try:
        if "_" in text:  # which Python takes for a mark between thousands
            raise ValueError
        return float(text.replace(decimal, "."))
    except ValueError:
        raise ValueError(f"{where}: {reading} is {cell!r}, which is no number.") from None


def _texts(name, figures, decimal):
    if name.endswith(_CATEGORY) and name.removesuffix(_CATEGORY) in indices:
        labels = [category.label for category in indices[name.removesuffix(_CATEGORY)].categories] + [""]
        return [labels[place] for place in figures.tolist()]
    if figures.dtype == numpy.float32:  # severities
        return ["" if value != value else f"{value:.0f}" for value in figures.tolist()]
    return ["" if value != value else str(value).replace(".", decimal) for value in figures.tolist()]


def calculate_table(source, target, named, choices, tell):
    """Writes the table `target`. `tell` is told the columns that were taken, then how many rows are done."""
    with open(source, newline="", encoding=_encoding(source), errors="surrogateescape") as file, open(
            target, "w", newline="", encoding="utf-8", errors="surrogateescape") as out:
        first = file.readline()
        if not first.strip():
            raise ValueError(f"{source} has no header.")
        delimiter = _delimiter(first)
        reader = csv.reader(itertools.chain([first], file), delimiter=delimiter)
        header = next(reader)
        taken = _columns(header, named, source)
        tell(", ".join(f"{reading}: {header[place]}" for reading, place in taken.items()))
        rows = _rows(reader, len(header), source)
        writer = csv.writer(out, delimiter=delimiter, lineterminator="\n")
        decimal = None
        for done in itertools.count():
            part = list(itertools.islice(rows, _ROWS))
            if decimal is None:  # where commas do not part cells, they may be what others write as points
                found = delimiter != "," and any("," in row[place] for _, row in part for place in taken.values())
                decimal = "," if found else "."
            readings = {reading: numpy.array([_number(row[place], decimal, f"{source}, line {line}", reading)
                                              for line, row in part], dtype=float)
                        for reading, place in taken.items()}
            result = calculate(**readings, **choices)
            if done == 0:
                for name in result:
                    if name in header:
                        raise ValueError(f"{source} has a column {name!r} already.")
                writer.writerow(header + list(result))
            texts = [_texts(name, figures, decimal) for name, figures in result.items()]
            writer.writerows(row + list(cells) for (_, row), *cells in zip(part, *texts))
            tell(done * _ROWS + len(part))
            if len(part) < _ROWS:
                return
