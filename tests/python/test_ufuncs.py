# SPDX-License-Identifier: GPL-3.0-or-later
import pickle
import warnings

import comfortics
import numpy
import pytest
from conftest import bits, weather
from hypothesis import given
from hypothesis import strategies as st

ROWS = list(comfortics.indices)
MANY = [comfortics.indices[name] for name in ("utci", "humidex_masterson", "wet_bulb_stull", "wind_chill_noaa",
                                              "predicted_mean_vote_resting_da_silva", "wbgt_swedish_eriksson")]


@pytest.mark.parametrize("row", ROWS, ids=str)
def test_has_the_librarys_bits_and_warns_of_nothing(row, library):
    columns = weather(row, 300, 1)
    with warnings.catch_warnings(), numpy.errstate(all="raise"):
        warnings.simplefilter("error")
        found = row.ufunc(*columns)
    numpy.testing.assert_array_equal(bits(found), bits(library(row, columns)))


@pytest.mark.parametrize("row", MANY, ids=str)
def test_strides_and_places_change_nothing(row):
    columns = weather(row, 1200, 2)
    plain = bits(row.ufunc(*columns))
    spread = [numpy.repeat(column, 3).reshape(-1, 3)[::-1, 1] for column in columns]
    numpy.testing.assert_array_equal(bits(row.ufunc(*spread))[::-1], plain)
    swapped = [column.astype(">f8") for column in columns]
    numpy.testing.assert_array_equal(bits(row.ufunc(*swapped)), plain)
    table = numpy.full((1200, 2), 7.0)
    row.ufunc(*columns, out=table[:, 1])
    numpy.testing.assert_array_equal(bits(table[:, 1].copy()), plain)
    assert (table[:, 0] == 7).all()
    over = [column.copy() for column in columns]
    row.ufunc(*over, out=over[0])
    numpy.testing.assert_array_equal(bits(over[0]), plain)
    chosen = numpy.arange(1200) % 3 == 0
    result = row.ufunc(*columns, where=chosen, out=numpy.full(1200, -9.0))
    numpy.testing.assert_array_equal(bits(result)[chosen], plain[chosen])
    assert (result[~chosen] == -9).all()


@given(st.lists(st.floats(-60, 60), min_size=1, max_size=5), st.lists(st.floats(0, 100), min_size=1, max_size=4))
def test_broadcasting_is_a_loop(temperatures, humidities):
    table = comfortics.wet_bulb_stull(numpy.array(temperatures)[:, None], humidities)
    for place, temperature in enumerate(temperatures):
        for other, humidity in enumerate(humidities):
            alone = comfortics.wet_bulb_stull(temperature, humidity)
            assert bits(alone) == bits(table[place, other])


@pytest.mark.parametrize("row", MANY, ids=str)
def test_single_precision_is_the_double_figure_rounded(row):
    columns = [column.astype(numpy.float32) for column in weather(row, 2500, 3)]
    with numpy.errstate(over="ignore"):  # some figures are beyond single precision
        found = row.ufunc(*columns)
        assert found.dtype == numpy.float32
        expected = row.ufunc(*(column.astype(float) for column in columns)).astype(numpy.float32)
    numpy.testing.assert_array_equal(bits(found), bits(expected))


def test_scalars_give_scalars():
    assert isinstance(comfortics.humidex_masterson(30, 15), numpy.float64)
    assert isinstance(comfortics.humidex_masterson(numpy.float32(30), numpy.float32(15)), numpy.float32)


@pytest.mark.parametrize("method", ("reduce", "accumulate"))
def test_a_chain_of_points_goes_one_by_one(method):
    values = numpy.array([31.0, 17.0, 23.0, 11.0])
    first = comfortics.humidex_masterson(31.0, 17.0)
    second = comfortics.humidex_masterson(first, 23.0)
    third = comfortics.humidex_masterson(second, 11.0)
    found = getattr(comfortics.humidex_masterson, method)(values)
    assert numpy.array_equal(found, third if method == "reduce" else [31.0, first, second, third])


# Environment Canada's tables of humidex and wind chill, the National Weather Service's of the heat index (90 °F and
# 70 %: 106 °F), and the example of Stull (2011).
@pytest.mark.parametrize("name, inputs, expected, within", [
    ("humidex_masterson", (30, 15), 34, 0.5),
    ("humidex_masterson", (35, 25), 47, 0.5),
    ("wind_chill_noaa", (-10, 30 / 3.6 / (10 / 1.1) ** 0.2), -20, 0.5),  # its wind is 1.1 m above the ground
    ("heat_index_rothfusz", (32.2222, 70), 41.1, 0.3),
    ("wet_bulb_stull", (20, 50), 13.7, 0.05),
])
def test_published_values(name, inputs, expected, within):
    assert abs(comfortics.indices[name].ufunc(*inputs) - expected) <= within


def test_every_index_is_reached_by_name_number_and_pickle():
    for row in ROWS:
        ufunc = getattr(comfortics.ufuncs, row.id)
        assert isinstance(ufunc, numpy.ufunc)
        assert comfortics.index(row.number) is ufunc and comfortics.index(row.id) is ufunc
        assert pickle.loads(pickle.dumps(ufunc)) is ufunc
        assert ufunc.nin == len(row.inputs)
        for heading in (row.name, "Parameters", "References", row.year):
            assert heading in ufunc.__doc__
        assert row.id == "solar_radiation" or getattr(comfortics, row.id) is ufunc
