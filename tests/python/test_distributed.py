# SPDX-License-Identifier: GPL-3.0-or-later
"""A year on a cluster in small: Zarr in, Zarr out, and a worker that dies."""
import os
import signal

import comfortics
import dask
import numpy
import pytest
import xarray

INDICES = ["utci", "wbgt_outdoor"]


@pytest.fixture(scope="module")
def fields():
    """Hours of a grid of the world, as a reanalysis has it."""
    random = numpy.random.default_rng(11)
    shape = (12, 73, 144)
    lat = numpy.linspace(90, -90, shape[1])
    warm = 25 * numpy.cos(numpy.radians(lat))[:, None] + random.normal(0, 6, shape)
    sun = numpy.clip(numpy.sin(numpy.linspace(0, 2 * numpy.pi, shape[0])), 0, 1)[:, None, None]
    columns = {"t2m": (warm + 273.15, "K"), "d2m": (warm - random.gamma(2, 3, shape) + 273.15, "K"),
               "u10": (random.normal(0, 5, shape), "m s**-1"), "v10": (random.normal(0, 5, shape), "m s**-1"),
               "ssrd": (3.2e6 * sun * random.uniform(0, 1, shape), "J m**-2")}
    return xarray.Dataset({name: (("time", "latitude", "longitude"), values.astype("f4"), {"units": units})
                           for name, (values, units) in columns.items()}, coords={"latitude": lat})


@pytest.fixture(scope="module")
def whole(fields):
    return fields.comfortics.calculate(INDICES, step=3600)


@pytest.mark.parametrize("scheduler", ["synchronous", "threads", "processes"])
def test_each_scheduler_gives_the_same_bits(fields, whole, scheduler):
    lazy = fields.chunk(time=6).comfortics.calculate(INDICES, step=3600)
    with dask.config.set(scheduler=scheduler, num_workers=2):
        xarray.testing.assert_identical(lazy.compute(), whole)


def die_once(block, marker, block_info=None):
    """Kills the process that works on the middle of the year, the first time."""
    if block_info and block_info[0]["chunk-location"][0] == 5:
        try:
            os.close(os.open(marker, os.O_CREAT | os.O_EXCL))
        except FileExistsError:
            return block
        os.kill(os.getpid(), signal.SIGKILL)
    return block


def test_a_worker_that_dies_costs_nothing_but_time(fields, whole, tmp_path):
    distributed = pytest.importorskip("distributed")
    fields.chunk(time=1).to_zarr(tmp_path / "in.zarr")
    source = xarray.open_zarr(tmp_path / "in.zarr")
    dying = source["t2m"].data.map_blocks(die_once, str(tmp_path / "dead"), dtype="f4", meta=numpy.empty((0, 0, 0), "f4"))
    source = source.assign(t2m=source["t2m"].copy(data=dying))
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None) as cluster, \
            distributed.Client(cluster):
        source.comfortics.calculate(INDICES, step=3600).to_zarr(tmp_path / "out.zarr")
    assert (tmp_path / "dead").exists()
    xarray.testing.assert_identical(xarray.open_zarr(tmp_path / "out.zarr").compute(), whole)
