# SPDX-License-Identifier: GPL-3.0-or-later
"""The ufuncs of all indices, by id."""

from comfortics import _comfortics

__all__ = [row[1] for row in _comfortics.catalogue()]

globals().update((name, getattr(_comfortics, name)) for name in __all__)
