# SPDX-License-Identifier: GPL-3.0-or-later
"""What documents show is what happens."""
import doctest
import os
import pathlib
import re
import subprocess
import sys

import comfortics
import pytest

SOURCE = pathlib.Path(__file__).parents[2]
EXAMPLES = sorted((SOURCE / "examples" / "python").glob("*.py"))


def test_the_guide_shows_what_happens(monkeypatch, tmp_path):
    monkeypatch.chdir(tmp_path)
    names = {}
    blocks = re.findall(r"```python\n(.*?)```", (SOURCE / "docs" / "python.md").read_text(encoding="utf-8"), re.DOTALL)
    assert len(blocks) > 5
    for place, block in enumerate(blocks):
        if ">>>" not in block:
            exec(compile(block, f"block {place}", "exec"), names)
            continue
        test = doctest.DocTestParser().get_doctest(block, names, f"block {place}", "docs/python.md", 0)
        said = []
        result = doctest.DocTestRunner(optionflags=doctest.ELLIPSIS).run(test, out=said.append, clear_globs=False)
        assert result.failed == 0, "".join(said)
        names.update(test.globs)


@pytest.mark.parametrize("name", ["calculate", "convert", "explain", "solar_radiation", "__doc__"])
def test_docstrings_show_what_happens(name):
    text = comfortics.__doc__ if name == "__doc__" else getattr(comfortics, name).__doc__
    test = doctest.DocTestParser().get_doctest(text, {"comfortics": comfortics}, name, name, 0)
    said = []
    result = doctest.DocTestRunner().run(test, out=said.append)
    assert result.attempted > 0 and result.failed == 0, "".join(said)


@pytest.mark.parametrize("example", EXAMPLES, ids=lambda path: path.stem)
def test_examples_run(example, tmp_path):
    run = subprocess.run([sys.executable, "-B", example], cwd=tmp_path, capture_output=True, text=True,
                         env=os.environ | {"MPLCONFIGDIR": str(tmp_path)})
    assert run.returncode == 0, run.stderr
    assert run.stdout and any(tmp_path.iterdir())
