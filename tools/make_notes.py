#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Check data/index_notes.csv, what each index is and what to beware of, and write it as rows of C++.

usage: make_notes.py index_notes.csv notes.inc
"""
import csv
import sys

from index_count import INDEX_COUNT

COLUMNS = ['number', 'abbreviations', 'description', 'warnings']


def parts(text, separator):
    return [part.strip() for part in text.split(separator)] if text else []


def load(path):
    with open(path, encoding='utf-8', newline='') as file:
        reader = csv.DictReader(file)
        if reader.fieldnames != COLUMNS:
            raise ValueError(f'the columns must be {", ".join(COLUMNS)}')
        rows = list(reader)
    if [row['number'] for row in rows] != [str(n) for n in range(1, INDEX_COUNT + 1)]:
        raise ValueError(f'the rows must be numbered from 1 to {INDEX_COUNT}')
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


def literal(text):
    return '"' + text.replace('\\', '\\\\').replace('"', '\\"') + '"'


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    try:
        rows = load(sys.argv[1])
    except (OSError, ValueError) as error:
        sys.exit(f'{sys.argv[1]}: {error}')
    texts = []
    places = []
    for row in rows:
        place = []
        for name in ('abbreviations', 'warnings'):
            place += [len(texts), len(row[name])]
            texts += row[name]
        places.append(place)
    with open(sys.argv[2], 'w', encoding='utf-8') as out:
        out.write('// Made from data/index_notes.csv.\n')
        out.write('constexpr std::string_view kTexts[] = {\n')
        out.writelines(f'{literal(text)},\n' for text in texts)
        out.write('};\nconstexpr NoteRow kRows[] = {\n')
        for row, place in zip(rows, places):
            out.write(f'{{{place[0]}, {place[1]}, {literal(row["description"])}, {place[2]}, {place[3]}}},\n')
        out.write('};\n')


if __name__ == '__main__':
    main()
