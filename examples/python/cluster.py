# SPDX-License-Identifier: GPL-3.0-or-later
"""A year on a cluster in small: Zarr in, Zarr out, on two workers.

usage: cluster.py [FOLDER]
"""

import sys

import comfortics
import numpy
import xarray
from dask.distributed import Client, LocalCluster


def make(path):
    """Twelve hours of a world of 2.5°, in place of a year of 0.25°."""
    shape = (12, 73, 144)
    random = numpy.random.default_rng(3)
    warm = 25 * numpy.cos(numpy.radians(numpy.linspace(90, -90, shape[1])))[:, None] + random.normal(0, 4, shape)
    units = {"t2m": "K", "d2m": "K", "u10": "m s**-1", "v10": "m s**-1", "ssrd": "J m**-2"}
    fields = {"t2m": warm + 273.15, "d2m": warm + 270, "u10": random.normal(0, 5, shape),
              "v10": random.normal(0, 5, shape), "ssrd": random.uniform(0, 3e6, shape)}
    xarray.Dataset({name: (("time", "latitude", "longitude"), field.astype("f4"), {"units": units[name]})
                    for name, field in fields.items()}).chunk(time=1).to_zarr(path, mode="w")


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else "."
    make(f"{folder}/in.zarr")
    # On a real cluster this is one of Dask's own deployments; the rest stays as it is.
    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster):
        result = xarray.open_zarr(f"{folder}/in.zarr").comfortics.calculate(["utci", "wbgt_outdoor"], step=3600)
        result.to_zarr(f"{folder}/out.zarr", mode="w")
    print(xarray.open_zarr(f"{folder}/out.zarr")["utci"].load().mean().item())


if __name__ == "__main__":
    main()
