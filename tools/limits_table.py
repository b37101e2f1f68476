# SPDX-License-Identifier: GPL-3.0-or-later
"""The table of validity limits (data/limits.csv): how it is read, and what each of its rows must fulfil."""

import csv
import re
from typing import NamedTuple

from index_count import INDEX_COUNT

COLUMNS = ["number", "name", "gate_value", "tair_min", "tair_max", "ws_min", "ws_max", "basis", "source"]
UNGATED = "none"
GATE_VALUES = {UNGATED, "Ta", "Tnwb", "(Tmrt+Ta)/2", "Tmrt-Ta", "WBGT_Outdoor"}
BASES = {"published", "derived", "formula"}
# Radiative Effective Temperature takes the raw texts of the boxes; an interval that nothing fits keeps it
# blank unless limits are ignored.
EMPTY_ON_PURPOSE = {196}


class Row(NamedTuple):
    """One index. The limits stay texts: they go into the file as they are written in the table."""

    number: int
    name: str
    gate_value: str  # what the temperature interval is compared with
    tair_min: str  # °C, inclusive
    tair_max: str  # °C, inclusive
    ws_min: str  # m/s, inclusive
    ws_max: str  # m/s, inclusive; 0: no wind limit
    basis: str
    source: str

    @property
    def gated(self):
        return self.gate_value != UNGATED

    @property
    def has_wind_limit(self):
        return float(self.ws_max) > 0


def load(path):
    """The rows in order of index number. Raises ValueError with a sentence that names the faulty row."""
    with open(path, newline="", encoding="utf-8") as file:
        records = list(csv.reader(file))
    if not records or records[0] != COLUMNS:
        raise ValueError("the header is not " + ",".join(COLUMNS))
    rows = []
    for place, cells in enumerate(records[1:], start=1):
        try:
            rows.append(_row(place, cells))
        except ValueError as error:
            raise ValueError(f"row {place}: {error}") from None
    if len(rows) != INDEX_COUNT:
        raise ValueError(f"{len(rows)} rows instead of {INDEX_COUNT}")
    return rows


def _row(place, cells):
    if len(cells) != len(COLUMNS):
        raise ValueError(f"{len(cells)} cells instead of {len(COLUMNS)}")
    row = Row(int(cells[0]), *cells[1:])
    if row.number != place:
        raise ValueError(f"index {row.number} is out of its place")
    if row.gate_value not in GATE_VALUES:
        raise ValueError(f"unknown gate value {row.gate_value!r}")
    if row.basis not in BASES:
        raise ValueError(f"unknown basis {row.basis!r}")
    if not row.name.strip() or not row.source.strip():
        raise ValueError("name or source is empty")
    limits = (row.tair_min, row.tair_max, row.ws_min, row.ws_max)
    for text in limits:
        if not re.fullmatch(r"-?\d+(\.\d+)?", text, re.ASCII):
            raise ValueError(f"limit {text!r} is not a plain decimal number")
    low, high, calm, storm = map(float, limits)
    if (low >= high) != (row.number in EMPTY_ON_PURPOSE):
        raise ValueError(f"temperature interval {low} to {high}")
    if not (0 <= calm < storm or calm == storm == 0):
        raise ValueError(f"wind interval {calm} to {storm}")
    return row
