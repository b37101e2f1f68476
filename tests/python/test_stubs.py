# SPDX-License-Identifier: GPL-3.0-or-later
"""What type checkers are told is what there is."""
import ast
import inspect
import pathlib

import comfortics

FOLDER = pathlib.Path(comfortics.__file__).parent


def starred():
    """What `from .ufuncs import *` brings to a type checker."""
    tree = ast.parse((FOLDER / "ufuncs.pyi").read_text(encoding="utf-8"))
    names, = (node.value for node in tree.body if isinstance(node, ast.Assign) and node.targets[0].id == "__all__")
    return ast.literal_eval(names)


def test_the_stub_has_each_name_with_its_parameters():
    tree = ast.parse((FOLDER / "__init__.pyi").read_text(encoding="utf-8"))
    functions = {}
    told = {"person", "ufuncs", *starred()}
    for node in tree.body:
        if isinstance(node, (ast.FunctionDef, ast.ClassDef)):
            told.add(node.name)
        elif isinstance(node, ast.AnnAssign):
            told.add(node.target.id)
        if isinstance(node, ast.FunctionDef):
            functions[node.name] = [argument.arg for argument in node.args.args + node.args.kwonlyargs]
    assert set(comfortics.__all__) <= told
    for name, parameters in functions.items():
        assert list(inspect.signature(getattr(comfortics, name)).parameters) == parameters, name
    for kind in (comfortics.Status, comfortics.ModelStatus):
        node, = (one for one in tree.body if isinstance(one, ast.ClassDef) and one.name == kind.__name__)
        assert {one.targets[0].id: one.value.value for one in node.body} == {one.name: one.value for one in kind}
    assert (FOLDER / "py.typed").exists()
