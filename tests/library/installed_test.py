# SPDX-License-Identifier: GPL-3.0-or-later
"""The library as a stranger finds it: installed into a folder, then moved to another, with programs built from there.

usage: installed_test.py SOURCE_DIRECTORY BUILD_DIRECTORY CMAKE COMPILER [unittest options]
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT, BUILD = (pathlib.Path(sys.argv.pop(1)).resolve() for _ in range(2))
CMAKE, COMPILER = (sys.argv.pop(1) for _ in range(2))
HERE = pathlib.Path(__file__).parent
WARNINGS = "-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Werror -fvisibility=hidden".split()


def run(*command, status=0, **options):
    """What it prints on standard output; standard error joins where it fails as expected."""
    words = [str(word) for word in command]
    done = subprocess.run(words, capture_output=True, encoding="utf-8", **options)
    if done.returncode != status:
        raise AssertionError(f"{' '.join(words)}: exit status {done.returncode}\n{done.stdout}{done.stderr}")
    return done.stdout + (done.stderr if status else "")


def setUpModule():
    global folder, prefix, library
    temporary = tempfile.TemporaryDirectory()
    unittest.addModuleCleanup(temporary.cleanup)
    folder = pathlib.Path(temporary.name)
    for component in ("library", "development"):
        run(CMAKE, "--install", BUILD, "--prefix", folder / "first", "--component", component)
    prefix = folder / "moved"
    (folder / "first").rename(prefix)
    library = next(prefix.rglob("libcomfortics.so")).parent


class Library(unittest.TestCase):
    # A function that is new is added to the list. One that leaves it, or changes, breaks the programs that were built
    # before: that is another major version.
    def test_gives_out_what_its_headers_say(self):
        lines = run("nm", "--dynamic", "--defined-only", "--demangle", library / "libcomfortics.so").splitlines()
        names = sorted(line.split(maxsplit=2)[2] for line in lines)
        self.assertEqual(names, (HERE / "exported.txt").read_text(encoding="utf-8").splitlines())

    def test_headers_stand_alone(self):
        headers = sorted((prefix / "include/comfortics").glob("*.h"))
        self.assertGreater(len(headers), 5)
        for header in headers:
            run(COMPILER, "-std=c++20", *WARNINGS, "-fsyntax-only", "-I", prefix / "include", "-x", "c++", "-include",
                header, os.devnull)

    # What is published elsewhere, by the formula's own inputs.
    @unittest.skipUnless(shutil.which("pkg-config"), "needs pkg-config")
    def test_program_by_pkg_config(self):
        environment = os.environ | {"PKG_CONFIG_PATH": str(library / "pkgconfig"), "LD_LIBRARY_PATH": str(library)}
        flags = run("pkg-config", "--cflags", "--libs", "comfortics", env=environment).split()
        program = folder / "formula"
        run(COMPILER, "-std=c++20", HERE / "formula.cpp", *flags, "-o", program)
        version = re.search(r"project\(Comfortics VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1]
        self.assertEqual(run(program, env=environment), version + "\n")
        self.assertEqual(run("pkg-config", "--modversion", "comfortics", env=environment), version + "\n")
        for index, inputs, expected, tolerance in (
            # The polynomial of Bröde et al. (2012): air and radiant temperature, wind at 10 m, relative humidity. Ours has
            # the vapour pressure of Magnus, the published one that of Hardy.
            ("utci", (25, 25, 1, 50), 24.612, 0.005),
            ("utci", (35, 65, 2, 40), 42.238, 0.005),
            ("utci", (-15, -15, 8, 70), -41.457, 0.005),
            ("utci", (10, 30, 3, 60), 11.686, 0.005),
            # Environment Canada's table: air and dew point
            ("humidex_masterson", (30, 15), 34, 0.5),
            ("humidex_masterson", (30, 25), 42, 0.5),
            # The chart of the National Weather Service, in °F: 90 °F and 70 % are 106 °F
            ("heat_index_rothfusz", (32.2222, 70), (106 - 32) / 1.8, 0.3),
            # ISO 7243: natural wet bulb, globe and air
            ("wbgt_outdoor", (25, 50, 30), 30.5, 1e-9),
        ):
            with self.subTest(index, inputs=inputs):
                self.assertAlmostEqual(float(run(program, index, *inputs, env=environment)), expected, delta=tolerance)


class Examples(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.build = folder / "examples"
        run(CMAKE, "-S", next(prefix.rglob("examples")), "-B", cls.build, f"-DCMAKE_PREFIX_PATH={prefix}",
            f"-DCMAKE_CXX_COMPILER={COMPILER}", f"-DCMAKE_CXX_FLAGS={' '.join(WARNINGS)}")
        run(CMAKE, "--build", cls.build, "--parallel", "2")

    # Expected values from an evaluation of the published equations in Python, their roots by halving an interval.

    def test_one_reading(self):
        name = {"utci": "Universal Thermal Climate Index (Broede; 2009)",
                "wbgt": "Wet Bulb Globe Temperature (outdoor) (Yaglou; 1956)",
                "humidex": "Humidex (Masterson; 1979)"}
        for readings, utci, wbgt, humidex in (
            ((30, 50, 2, 600), "36.7 °C", "27.0 °C", "36.3 °C"),
            ((35, 40, 1.2, 850), "45.7 °C", "31.8 °C", "42.1 °C"),
            ((-5, 70, 4, 100), "-24.6 °C", "-5.9 °C",
             "no value. Outside its limits: the air temperature is -5 °C, valid from 20 to 55 °C."),
        ):
            expected = f"{name['utci']}: {utci}\n{name['wbgt']}: {wbgt}\n{name['humidex']}: {humidex}\n"
            self.assertEqual(run(self.build / "one_reading", *readings), expected)
        self.assertEqual(run(self.build / "one_reading", 30, "5o", 2, 600, status=1), "one_reading: '5o' is no number\n")

    def test_station_year(self):
        file = folder / "station.csv"
        file.write_text("""time,ta,rh,ws,sr
2024-07-01 12:00,30,50,2,600
2024-07-01 13:00,35,40,1.2,850
2024-07-01 14:00,,40,1.2,850
2024-07-01 15:00,30,50,2,
2024-07-01 16:00,20,40,30,100
2024-07-01 17:00,55,10,2,600
2024-01-01 12:00,-5,70,4,100
""", encoding="utf-8")
        self.assertEqual(run(self.build / "station_year", file, "26.9"), """Outdoor WBGT above 26.9 °C: 3 of 5 hours
Highest UTCI: 45.7235 °C
UTCI, value: 3 hours
UTCI, missing: 2 hours
UTCI, outside temperature: 1 hours
UTCI, outside wind: 1 hours
UTCI, no value: 0 hours
UTCI, undefined: 0 hours
UTCI, no convergence: 0 hours
""")

    def test_grid(self):
        # UTCI is meant for 0.5 to 17 m/s at 10 m, so 0.35 to 10.9 m/s at 1.1 m: 212 of the 401 columns.
        self.assertEqual(run(self.build / "grid"), """UTCI up to 59.333 °C, in 74412 of 140751 cells
Outdoor WBGT from 7.32807 to 44.3928 °C
""")

    # 216 minutes and 37.6 °C at the end are the figures of another evaluation of the standard.
    def test_shift(self):
        told = run(self.build / "shift").splitlines()
        self.assertEqual(told[1], "330 W: 216 min")
        self.assertIn("the metabolic rate of the whole body is 600 W", told[2])
        self.assertTrue(told[3].endswith(" 37.6 °C"), told[3])

    def test_output_in_the_document(self):
        document = (ROOT / "docs/library.md").read_text(encoding="utf-8")
        shown = re.findall(r"<!-- output: (\S+)([^>\n]*) -->\n\n```\n(.*?)```\n", document, re.DOTALL)
        self.assertEqual(len(shown), document.count("<!-- output"))
        for program, arguments, output in shown:
            self.assertEqual(run(self.build / program, *arguments.split()), output)


def unindented(text):
    return "".join(line.strip() + "\n" for line in text.splitlines())


class Document(unittest.TestCase):
    def test_shows_the_examples(self):
        document = (ROOT / "docs/library.md").read_text(encoding="utf-8")
        shown = re.findall(r"<!-- from (\S+) -->\n\n```cpp\n(.*?)```\n", document, re.DOTALL)
        self.assertGreater(len(shown), 2)
        self.assertEqual(len(shown), document.count("```cpp"), "a snippet that is from no example")
        for name, snippet in shown:
            with self.subTest(name):
                self.assertIn(unindented(snippet), unindented((ROOT / "examples" / name).read_text(encoding="utf-8")))


if __name__ == "__main__":
    unittest.main(argv=sys.argv)
