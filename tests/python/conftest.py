# SPDX-License-Identifier: GPL-3.0-or-later
import os
import subprocess

import comfortics
import hypothesis
import numpy
import pytest

hypothesis.settings.register_profile("comfortics", deadline=None, max_examples=40, print_blob=True)
hypothesis.settings.load_profile("comfortics")

# What is found outdoors and a little more, by the id of the quantity.
RANGES = {
    "air_temperature": (-50, 55),
    "globe_temperature": (-50, 80),
    "solar_radiation": (0, 1300),
    "dew_point": (-60, 35),
    "relative_humidity": (0, 100),
    "wind_speed": (0, 30),
    "mean_radiant_temperature": (-60, 90),
    "natural_wet_bulb_temperature": (-50, 40),
    "psychrometric_wet_bulb_temperature": (-50, 40),
    "saturation_vapour_pressure": (0.01, 150),
    "vapour_pressure": (0.01, 60),
    "wbgt_outdoor": (-40, 45),
    "wind_speed_10m": (0, 40),
}


def weather(row, count, seed):
    """Columns of the inputs of an index; some are missing, infinite or none that there can be."""
    random = numpy.random.default_rng([seed, row.number])
    columns = [random.uniform(*RANGES[quantity], count) for quantity in row.inputs]
    for column in columns:
        places = random.integers(0, count, count // 10)
        column[places] = random.choice([numpy.nan, numpy.inf, 0.0, -0.0, -300.0, 1e6], places.size)
    return columns


def bits(array):
    """What differs where two arrays differ; NaN is NaN."""
    array = numpy.where(numpy.isnan(array), numpy.nan, array)
    return array.view(numpy.dtype(f"u{array.itemsize}"))


@pytest.fixture(scope="session")
def library():
    """The library's own figures of one point after the other."""

    def figures(row, columns):
        count = len(columns[0])
        records = numpy.concatenate([[row.number, count], *columns])
        run = subprocess.run([os.environ["LIBRARY_FIGURES"]], input=records.tobytes(), capture_output=True, check=True)
        return numpy.frombuffer(run.stdout)

    return figures


@pytest.fixture(scope="session")
def readings():
    """A year's worth of any weather."""
    random = numpy.random.default_rng(20240501)
    count = 3000
    return {
        "ta": random.uniform(-25, 48, count),
        "sr": random.uniform(0, 1100, count),
        "rh": random.uniform(2, 100, count),
        "ws": random.uniform(0.1, 15, count),
    }
