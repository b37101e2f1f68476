# SPDX-License-Identifier: GPL-3.0-or-later
"""Every relative link and picture of the documents leads to something, anchors included.

usage: links_test.py SOURCE_DIRECTORY [unittest options]
"""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
DOCUMENTS = [ROOT / name for name in ("README.md", "CONTRIBUTING.md", "CHANGELOG.md")]
DOCUMENTS += sorted((ROOT / "docs").glob("*.md"))

LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")
CODE = re.compile(r"^```.*?^```$|`[^`\n]*`", re.DOTALL | re.MULTILINE)
HEADING = re.compile(r"^#{1,6} +(.+?) *$", re.MULTILINE)


def text_of(path):
    return path.read_text(encoding="utf-8")


def anchors(text):
    """As forges make them: lower case, words joined by hyphens, other signs dropped, repetitions counted."""
    found = set()
    for heading in HEADING.findall(re.sub(r"^```.*?^```$", "", text, flags=re.DOTALL | re.MULTILINE)):
        shown = LINK.sub(lambda link: link[0][1 : link[0].index("]")], heading)
        anchor = re.sub(r"[^\w\- ]", "", shown.lower()).replace(" ", "-")
        found.add(next(a for n in range(len(found) + 1) if (a := anchor + (f"-{n}" if n else "")) not in found))
    return found


def broken(path):
    for target in LINK.findall(CODE.sub("", text_of(path))):
        if re.match(r"[a-z]+:", target):
            continue
        file, _, anchor = target.partition("#")
        place = (path.parent / file).resolve() if file else path
        if not place.exists() or not place.is_relative_to(ROOT):
            yield f"{target}: there is no such file"
        elif anchor and anchor not in anchors(text_of(place)):
            yield f"{target}: there is no such heading"


class Links(unittest.TestCase):
    def test_lead_somewhere(self):
        for path in DOCUMENTS:
            with self.subTest(path.name):
                self.assertEqual(list(broken(path)), [])

    def test_anchors(self):
        self.assertEqual(anchors("# A, [b](c) `d-e`\n## F\n# F\n```\n# g\n```\n"), {"a-b-d-e", "f", "f-1"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv)
