# SPDX-License-Identifier: GPL-3.0-or-later
"""222 indices of bioclimatology and of heat and cold stress, on arrays.

Every index is a NumPy ufunc of its own inputs, by its id::

    >>> import comfortics
    >>> round(comfortics.humidex_masterson(30.0, 18.0), 1)
    36.0

`calculate` goes from readings (air temperature, globe temperature or solar radiation, dew point or relative humidity,
wind speed) to any of them, and keeps the limits in which they are valid. `indices` is the catalogue.
"""

from comfortics import _hook, person, ufuncs
from comfortics._calculate import calculate, explain
from comfortics._catalogue import Category, Index, Indices, Limits, Quantity, Status, index, indices, quantities
from comfortics._comfortics import version as __version__
from comfortics._errors import UnknownIndexError
from comfortics._models import Model, ModelChoice, ModelInput, ModelResult, Models, ModelStatus, models
from comfortics._radiation import solar_radiation
from comfortics._units import convert
from comfortics.ufuncs import *  # noqa: F403

_hook.when_imported("xarray", "comfortics._accessor")

__all__ = [
    "Category",
    "Index",
    "Indices",
    "Limits",
    "Model",
    "ModelChoice",
    "ModelInput",
    "ModelResult",
    "ModelStatus",
    "Models",
    "Quantity",
    "Status",
    "UnknownIndexError",
    "calculate",
    "convert",
    "explain",
    "index",
    "indices",
    "models",
    "person",
    "quantities",
    "solar_radiation",
    "ufuncs",
    *ufuncs.__all__,
]
