# SPDX-License-Identifier: GPL-3.0-or-later
"""Lets a module of this package follow another that the user may import before or after it, or never."""

import functools
import importlib
import sys


class _Loader:
    """Loads a module as `found` tells, and lets the follower follow."""

    def __init__(self, found, follower):
        self._found = found
        self._loader = found.loader
        self._follower = follower

    def create_module(self, found):
        return self._loader.create_module(found)

    def exec_module(self, module):
        self._found.loader = module.__loader__ = self._loader
        self._loader.exec_module(module)
        importlib.import_module(self._follower)


class _Finder:
    """Stands before the other finders until the module is asked for."""

    def __init__(self, name, follower):
        self._name = name
        self._follower = follower

    def __getattr__(self, method):  # of importing a finder has one, by which it asks the others
        if not method.startswith("find_s"):
            raise AttributeError(method)
        return functools.partial(self._find, method)

    def _find(self, method, name, *arguments):
        if name != self._name or self not in sys.meta_path:
            return None
        sys.meta_path.remove(self)
        for finder in sys.meta_path:
            found = getattr(finder, method, lambda *_: None)(name, *arguments)
            if found is not None:
                if found.loader is not None:
                    found.loader = _Loader(found, self._follower)
                return found
        return None


def when_imported(name, follower):
    """Imports `follower` as soon as the module `name` is there."""
    if name in sys.modules:
        importlib.import_module(follower)
    else:
        sys.meta_path.insert(0, _Finder(name, follower))
