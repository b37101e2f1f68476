# SPDX-License-Identifier: GPL-3.0-or-later
"""A grid: a dataset with the names of a reanalysis, in blocks, to a file.

usage: grid.py [FILE.nc]
"""

import sys

import comfortics
import numpy
import xarray

# A day of a 5° grid; a real one would be xarray.open_dataset("era5.nc", chunks={"time": 1}).
shape = (24, 37, 72)
random = numpy.random.default_rng(2)
lat = numpy.linspace(90, -90, shape[1])
warm = 30 * numpy.cos(numpy.radians(lat))[:, None] - 5 + random.normal(0, 4, shape)
dims = ("time", "latitude", "longitude")
grid = xarray.Dataset({
    "t2m": (dims, (warm + 273.15).astype("f4"), {"units": "K"}),
    "d2m": (dims, (warm - random.gamma(2, 3, shape) + 273.15).astype("f4"), {"units": "K"}),
    "u10": (dims, random.normal(0, 5, shape).astype("f4"), {"units": "m s**-1"}),
    "v10": (dims, random.normal(0, 5, shape).astype("f4"), {"units": "m s**-1"}),
    "ssrd": (dims, random.uniform(0, 3e6, shape).astype("f4"), {"units": "J m**-2"}),
}, coords={"latitude": lat}).chunk(time=6)

print(grid.comfortics.variables())
result = grid.comfortics.calculate(["utci", "wbgt_outdoor"], step=3600)
print(result.attrs["comfortics_inputs"])
result.to_netcdf(sys.argv[1] if len(sys.argv) > 1 else "indices.nc")
