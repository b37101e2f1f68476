#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Check data/references.csv, the ids and the literature of the indices, and write it as rows of C++.

usage: make_references.py references.csv references.inc
"""
import re

import source_rows
from source_rows import literal

COLUMNS = ['number', 'id', 'family', 'authors', 'year', 'title', 'published', 'where', 'confidence']
FAMILIES = {
    'apparent': 'ApparentTemperature',
    'humid_heat': 'HumidHeat',
    'cooling_power': 'CoolingPower',
    'cold': 'Cold',
    'vote': 'ComfortVote',
    'physiology': 'Physiology',
    'radiation': 'Radiation',
    'psychrometry': 'Psychrometry',
}
CONFIDENCE = {'sure': 'Sure', 'likely': 'Likely', 'name only': 'NameOnly'}


def load(path):
    rows = source_rows.load_each_index(path, COLUMNS)
    seen = {}
    for row in rows:
        who = f'index {row["number"]}'
        if not re.fullmatch(r'[a-z][a-z0-9]*(_[a-z0-9]+)*', row['id']):
            raise ValueError(f'{who}: the id "{row["id"]}" is not in lower_snake_case')
        if row['id'] in seen:
            raise ValueError(f'{who} has the id of index {seen[row["id"]]}')
        seen[row['id']] = row['number']
        if row['family'] not in FAMILIES or row['confidence'] not in CONFIDENCE:
            raise ValueError(f'{who}: unknown family or confidence')
        if not row['authors'] or not re.fullmatch(r'\d{4}', row['year']):
            raise ValueError(f'{who}: an author and a year of four digits are needed')
        if (row['title'] == '') != (row['confidence'] == 'name only'):
            raise ValueError(f'{who}: a title is missing, or its confidence says so')
    return rows


def lines(rows):
    for row in rows:
        texts = ', '.join(literal(row[name]) for name in ('authors', 'year', 'title', 'published', 'where'))
        yield (f'{{{literal(row["id"])}, Family::{FAMILIES[row["family"]]}, '
               f'{texts}, Confidence::{CONFIDENCE[row["confidence"]]}}},')


if __name__ == '__main__':
    source_rows.convert(__doc__, load, lines)
