# SPDX-License-Identifier: GPL-3.0-or-later
"""What pip makes of a clone, without a network, is the package; of a build that stands, since building takes minutes."""
import os
import pathlib
import re
import subprocess
import sys

import comfortics
import pytest

SOURCE = pathlib.Path(__file__).parents[2]


@pytest.fixture(scope="module")
def environment(tmp_path_factory):
    """That of a user who has nothing but what pip installed."""
    pytest.importorskip("pip", reason="This Python has no pip.")
    folder = tmp_path_factory.mktemp("site")
    plain = {name: value for name, value in os.environ.items() if not name.startswith(("PYTHON", "PIP_"))}
    call = [sys.executable, "-m", "pip", "install", "--quiet", "--no-index", "--no-deps", "--no-cache-dir", "--target", folder,
            "--config-settings", f"build-dir={os.environ['BUILD_FOLDER']}", SOURCE]
    run = subprocess.run(call, cwd=folder, capture_output=True, text=True,
                         env=plain | {"PYTHONDONTWRITEBYTECODE": "1", "PIP_DISABLE_PIP_VERSION_CHECK": "1"})
    assert run.returncode == 0, run.stdout + run.stderr
    return plain | {"PYTHONPATH": str(folder)}


def test_the_command_runs_from_there(environment, tmp_path):
    def said(*arguments):
        run = subprocess.run([sys.executable, "-B", "-m", "comfortics", *arguments], cwd=tmp_path, env=environment,
                             capture_output=True, text=True, check=True)
        return run.stdout

    assert said("--version") == f"comfortics {comfortics.__version__}\n"
    assert set(re.findall(r"--[a-z-]+", said("--help"))) >= {"--indices", "--status", "--categories", "--step", "--version"}


def test_all_of_it_is_there_and_listed(environment, tmp_path):
    code = """if True:
        import comfortics, importlib.metadata, pathlib, sys
        print(comfortics.__file__)
        print(importlib.metadata.version("comfortics"))
        there = pathlib.Path(comfortics.__file__).parents[1]
        print(*sorted(str(path) for path in importlib.metadata.files("comfortics") if (there / path).is_file()))
        print(comfortics.calculate(ta=30.0, rh=50.0, ws=2.0, sr=600.0, indices="utci", rules="classic")["utci"])
    """
    run = subprocess.run([sys.executable, "-B", "-c", code], cwd=tmp_path, env=environment, capture_output=True, text=True,
                         check=True)
    place, version, files, utci = run.stdout.splitlines()
    assert place.startswith(environment["PYTHONPATH"]) and version == comfortics.__version__ and utci == "37.0"
    sources = {path.name for path in (SOURCE / "src" / "python" / "comfortics").iterdir() if path.is_file()}
    assert sources <= {name.split("/")[-1] for name in files.split() if name.startswith("comfortics/")}
