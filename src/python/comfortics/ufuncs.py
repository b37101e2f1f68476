# SPDX-License-Identifier: GPL-3.0-or-later
"""The ufuncs of all indices, by id."""

from comfortics import _comfortics

_IDS = [row[1] for row in _comfortics.catalogue()]

globals().update((name, getattr(_comfortics, name)) for name in _IDS)

# The package has a function of the name of this index, which a star would hide.
__all__ = [name for name in _IDS if name != "solar_radiation"]
