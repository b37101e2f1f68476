#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Check data/index_notes.csv, what each index is and what to beware of, and write it as rows of C++.

usage: make_notes.py index_notes.csv notes.inc
"""
import source_rows
from source_rows import literal

COLUMNS = ['number', 'abbreviations', 'description', 'warnings']


def parts(text, separator):
    return [part.strip() for part in text.split(separator)] if text else []


def load(path):
    rows = source_rows.load_each_index(path, COLUMNS)
    for row in rows:
        who = f'index {row["number"]}'
        row['abbreviations'] = parts(row['abbreviations'], ';')
        row['warnings'] = parts(row['warnings'], '|')
        for name in ('abbreviations', 'warnings'):
            if '' in row[name] or len(set(row[name])) != len(row[name]):
                raise ValueError(f'{who}: an empty or repeated entry among its {name}')
        if not row['description'].endswith('.') or row['description'].count('. ') != 1:
            raise ValueError(f'{who}: two sentences are needed')
    return rows


def lines(rows):
    texts = []
    places = []
    for row in rows:
        place = []
        for name in ('abbreviations', 'warnings'):
            place += [len(texts), len(row[name])]
            texts += row[name]
        places.append(place)
    yield 'constexpr std::string_view kTexts[] = {'
    yield from (f'{literal(text)},' for text in texts)
    yield '};\nconstexpr NoteRow kRows[] = {'
    for row, place in zip(rows, places):
        yield f'{{{place[0]}, {place[1]}, {literal(row["description"])}, {place[2]}, {place[3]}}},'
    yield '};'


if __name__ == '__main__':
    source_rows.convert(__doc__, load, lines)
