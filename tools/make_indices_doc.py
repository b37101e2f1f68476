#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Write docs/indices.md from the terminal tool's own list, or check that it is current.

usage: make_indices_doc.py TOOL DOCUMENT [--check]
"""
import subprocess
import sys

INTRO = """# The indices

All indices of the catalogue as the program knows them. This page is written by the build target `indices_doc` from
`comfortics-cli list`; a test holds the two together.

**Inputs** are in the formula's order: Ta air temperature, Tg globe temperature, Tmrt mean radiant temperature, Td dew
point, Tnwb natural and Tpwb psychrometric wet-bulb temperature [°C]; RH relative humidity [%]; Es saturated and Ea
actual vapour pressure [hPa]; SR solar radiation [W/m²]; WS wind speed [m/s]. *Text of* an input is the box's text as it
stands. **Gate** names the quantity that the temperature limits bound; an index without a gate is always evaluated.
Where the ranges come from is told in [limits.md](limits.md).

"""


REFERENCES = """
## Ids and literature

The **id** names an index to programs and never changes: `--select utci,wbgt_outdoor`. **How sure** tells of the
reference: *sure* (title and place are those of the publication), *likely* (from memory; a detail may be off) or *name
only* (author and year as the catalogue names them). The table is made from `data/references.csv`.

"""


def table(tool, *options):
    run = subprocess.run([tool, 'list', *options, '--format', 'markdown'], check=True, stdout=subprocess.PIPE)
    return run.stdout.decode('utf-8')


def main():
    if len(sys.argv) not in (3, 4) or (len(sys.argv) == 4 and sys.argv[3] != '--check'):
        sys.exit(__doc__)
    text = INTRO + table(sys.argv[1]) + REFERENCES + table(sys.argv[1], '--references')
    if len(sys.argv) == 4:
        with open(sys.argv[2], encoding='utf-8') as document:
            if document.read() != text:
                sys.exit(f'{sys.argv[2]} is not current: build the target indices_doc')
        return
    with open(sys.argv[2], 'w', encoding='utf-8') as document:
        document.write(text)


if __name__ == '__main__':
    main()
