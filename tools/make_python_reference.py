#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the reference of the Python package from its docstrings.

usage: PYTHONPATH=build/PRESET/python make_python_reference.py FILE.md [--check]
"""

import inspect
import pathlib
import sys

import comfortics

TOP = """# Reference of the Python package

Written by `tools/make_python_reference.py` from the docstrings; [python.md](python.md) is the guide. The ufuncs have the
same inputs, limits and references as the [indices](indices.md): `help(comfortics.utci)`.
"""


def section(name, thing):
    title = name if isinstance(thing, type) else f"{name}{inspect.signature(thing)}"
    text = [f"\n## {name}\n\n```text\n{title}\n\n{inspect.getdoc(thing)}\n```\n"]
    if isinstance(thing, type) and not issubclass(thing, (tuple, int)):
        for method, function in vars(thing).items():
            if not method.startswith("_") and inspect.getdoc(function):
                text.append(f"\n`{name}.{method}`: {inspect.getdoc(function)}\n" if "\n" not in inspect.getdoc(function)
                            else f"\n### {name}.{method}\n\n```text\n{inspect.getdoc(function)}\n```\n")
    return "".join(text)


def reference():
    import xarray  # noqa: F401  brings the accessor

    from comfortics._accessor import Comfortics

    names = ["calculate", "explain", "index", "convert", "solar_radiation", "Indices", "Index", "Category", "Limits", "Quantity",
             "Status", "UnknownIndexError", "Model", "Models", "ModelInput", "ModelResult", "ModelChoice", "ModelStatus"]
    parts = [section(name, getattr(comfortics, name)) for name in names]
    parts.append(f"\n## person\n\n{inspect.getdoc(comfortics.person)}\n")
    parts += [section(f"person.{name}", thing) for name in comfortics.person.__all__
              if inspect.getdoc(thing := getattr(comfortics.person, name)) and callable(thing)]
    return TOP + "".join(parts) + section("Dataset.comfortics", Comfortics).replace("Dataset.comfortics.", "dataset.comfortics.")


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--check"]
    if len(arguments) != 1:
        sys.exit(__doc__)
    path, text = pathlib.Path(arguments[0]), reference()
    if "--check" not in sys.argv:
        path.write_text(text, encoding="utf-8")
    elif path.read_text(encoding="utf-8") != text:
        sys.exit(f"{path} is not what make_python_reference.py writes")


if __name__ == "__main__":
    main()
