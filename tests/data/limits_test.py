# SPDX-License-Identifier: GPL-3.0-or-later
"""The table of limits, the file generated from it, and the refusal of damaged tables.

usage: limits_test.py SOURCE_DIRECTORY [unittest options]
"""

import collections
import csv
import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path.insert(0, str(ROOT / "tools"))
import limits_table  # noqa: E402
import make_limits  # noqa: E402
import make_limits_doc  # noqa: E402

TABLE = ROOT / "data" / "limits.csv"
INDEX_FILE = ROOT / "data" / "Limits.Index"


def read_setting(content, section, key):
    """Reads one key as the INI call of a desktop system does: the first match in the section, in any case."""
    inside = False
    for line in content.decode("cp1252").split("\r\n"):
        if line.startswith("["):
            inside = line.lower() == f"[{section}]".lower()
        elif inside and line.partition("=")[0].strip().lower() == key.lower():
            return line.partition("=")[2].strip()[:149]
    return ""


class Table(unittest.TestCase):
    def setUp(self):
        self.rows = limits_table.load(TABLE)

    def test_gates(self):
        gates = collections.defaultdict(list)
        for row in self.rows:
            gates[row.gate_value].append(row.number)
        self.assertEqual(len(gates.pop("Ta")), 152)
        self.assertEqual(len(gates.pop("none")), 60)
        self.assertEqual(
            gates,
            {
                "Tnwb": [6],
                "(Tmrt+Ta)/2": [98, 128, 189],
                "Tmrt-Ta": [111, 112],
                "WBGT_Outdoor": [104, 114, 135, 210],
            },
        )

    def test_ranges_of_the_air_temperature_fit_its_box(self):
        """A bound with more decimals than a reading has could never be met exactly."""
        for row in self.rows:
            if row.gate_value == "Ta":
                self.assertGreaterEqual(float(row.tair_min), -90, row.number)
                self.assertLessEqual(float(row.tair_max), 58, row.number)
                for text in (row.tair_min, row.tair_max, row.ws_min, row.ws_max):
                    self.assertLessEqual(len(text.partition(".")[2]), 1, row.number)

    def test_bounds_that_are_compared_as_texts(self):
        """What else these five admit is documented, for these texts."""
        for numbers, bounds in (((98, 128, 189), ("10", "38")), ((111, 112), ("-0.001", "99"))):
            for number in numbers:
                self.assertEqual(self.rows[number - 1][3:5], bounds)


class GeneratedFile(unittest.TestCase):
    def setUp(self):
        self.content = INDEX_FILE.read_bytes()

    def test_every_setting_is_found(self):
        with open(TABLE, newline="", encoding="utf-8") as file:
            records = list(csv.DictReader(file))
        self.assertEqual(len(records), 222)
        stems = {
            "Name_": "name",
            "TA_Cat_": "gate_value",
            "Tair_min_": "tair_min",
            "Tair_max_": "tair_max",
            "WS_min_": "ws_min",
            "WS_max_": "ws_max",
        }
        for record in records:
            for stem, column in stems.items():
                key = stem + record["number"]
                self.assertEqual(read_setting(self.content, "INDICES", key), record[column].strip(), key)
            self.assertEqual(read_setting(self.content, "INDICES", "Active_" + record["number"]), "1")
            self.assertNotEqual(read_setting(self.content, "INDICES", "Categories_" + record["number"]), "")

    def test_bytes(self):
        self.assertTrue(self.content.startswith(b"[INDICES]\r\n"))
        self.assertTrue(self.content.endswith(b"\r\n"))
        rest = self.content.replace(b"\r\n", b"")
        self.assertNotIn(b"\n", rest)
        self.assertNotIn(b"\r", rest)
        self.assertIn(b"Name_142=Severity Index (Diurnal temperature < 4\xb0C) (Osokin; 1968)\r\n", self.content)
        self.assertLessEqual(max(len(line.partition(b"=")[2]) for line in self.content.split(b"\r\n")), 149)


class DamagedTable(unittest.TestCase):
    def setUp(self):
        with open(TABLE, newline="", encoding="utf-8") as file:
            self.records = list(csv.reader(file))

    def check_refused(self, sentence):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "limits.csv"
            with open(path, "w", newline="", encoding="utf-8") as file:
                csv.writer(file).writerows(self.records)
            with self.assertRaises(ValueError) as caught:
                limits_table.load(path)
            self.assertIn(sentence, str(caught.exception))

    def test_cells(self):
        for number, column, text, sentence in [
            (7, "number", "8", "row 7: index 8 is out of its place"),
            (7, "number", "", "row 7: "),
            (7, "name", " ", "row 7: name or source is empty"),
            (7, "gate_value", "Tg", "row 7: unknown gate value 'Tg'"),
            (7, "tair_min", "45.1", "row 7: temperature interval 45.1 to 45.0"),
            (7, "tair_min", "45", "row 7: temperature interval 45.0 to 45.0"),
            (7, "tair_max", "45,5", "row 7: limit '45,5' is not a plain decimal number"),
            (7, "tair_max", "nan", "row 7: limit 'nan' is not a plain decimal number"),
            (196, "tair_min", "-1", "row 196: temperature interval -1.0 to 0.0"),
            (44, "ws_min", "7.1", "row 44: wind interval 7.1 to 7.1"),
            (44, "ws_min", "-0.1", "row 44: wind interval -0.1 to 7.1"),
            (44, "ws_max", "0", "row 44: wind interval 0.7 to 0.0"),
            (7, "basis", "guess", "row 7: unknown basis 'guess'"),
            (7, "source", "", "row 7: name or source is empty"),
        ]:
            with self.subTest(number=number, column=column, text=text):
                self.setUp()
                self.records[number][limits_table.COLUMNS.index(column)] = text
                self.check_refused(sentence)

    def test_missing_row_cell_and_header(self):
        full = self.records
        self.records = full[:222]
        self.check_refused("221 rows instead of 222")
        self.records = full[:100] + [full[100][:8]] + full[101:]
        self.check_refused("row 100: 8 cells instead of 9")
        self.records = full[1:]
        self.check_refused("the header is not number,name,")

    def test_value_that_a_reader_would_cut(self):
        rows = limits_table.load(TABLE)
        rows[2] = rows[2]._replace(name="x" * 149)
        make_limits.index_file(rows)
        rows[2] = rows[2]._replace(name="x" * 150)
        with self.assertRaisesRegex(ValueError, "Name_3 is longer than 149 characters"):
            make_limits.index_file(rows)


class Document(unittest.TestCase):
    def test_markers_must_be_there_once(self):
        begin, end = make_limits_doc.BEGIN, make_limits_doc.END
        self.assertEqual(
            make_limits_doc.renewed(f"a {begin} old {end} b", "new\n"), f"a {begin}\n\nnew\n\n{end} b"
        )
        for damaged in ("", begin, end, f"{end} {begin}", f"{begin} {begin} {end}"):
            with self.assertRaises(ValueError):
                make_limits_doc.renewed(damaged, "new\n")

    def test_cells_of_a_row(self):
        rows = limits_table.load(TABLE)
        self.assertEqual(make_limits_doc.cells(rows[43])[2:5], ["Ta", "-40 to 36.5", "0.7 to 7.1"])
        self.assertEqual(make_limits_doc.cells(rows[117])[2:5], ["–", "(10 to 30)", "(0 to 1)"])
        self.assertEqual(make_limits_doc.cells(rows[195])[2:5], ["Ta", "never", ""])
        self.assertEqual(make_limits_doc.cell("a < b | c*"), "a &lt; b \\| c\\*")


if __name__ == "__main__":
    unittest.main(argv=sys.argv)
