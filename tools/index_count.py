# SPDX-License-Identifier: GPL-3.0-or-later
"""How many indices there are, as the program's sources say it."""

import pathlib
import re

_HEADER = pathlib.Path(__file__).resolve().parent.parent / "src/catalogue/catalogue.h"
INDEX_COUNT = int(re.search(r"kIndexCount = (\d+);", _HEADER.read_text(encoding="utf-8")).group(1))
