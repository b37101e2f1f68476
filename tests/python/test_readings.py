# SPDX-License-Identifier: GPL-3.0-or-later
import subprocess
import sys

import comfortics
import numpy
import pytest
from conftest import bits
from hypothesis import given
from hypothesis import strategies as st

SOME = ["utci", "wbgt_outdoor", "humidex_masterson", "heat_index_rothfusz", "tmrt", "dew_point"]


def test_an_index_is_its_ufunc_of_the_quantities(readings):
    quantities = comfortics.calculate(**readings, indices=list(comfortics.quantities.values()))
    figures = comfortics.calculate(**readings, limits=False)
    for row in comfortics.indices:
        if row.reads_assumptions or row.id in ("utci", "wbgt_outdoor", "radiative_effective_temperature_blazejczyk"):
            continue
        expected = row.ufunc(*(quantities[quantity] for quantity in row.inputs))
        numpy.testing.assert_array_equal(bits(figures[row.id]), bits(expected), row.id)


def test_parts_threads_and_company_change_nothing(readings):
    whole = comfortics.calculate(**readings, status=True)
    threaded = comfortics.calculate(**readings, status=True, threads=3)
    parts = [comfortics.calculate(**{name: column[part] for name, column in readings.items()}, status=True)
             for part in (slice(0, 700), slice(700, 701), slice(701, None))]
    for name, figures in whole.items():
        numpy.testing.assert_array_equal(figures, threaded[name])
        numpy.testing.assert_array_equal(figures, numpy.concatenate([part[name] for part in parts]))
    alone = comfortics.calculate(**readings, indices="utci")["utci"]
    numpy.testing.assert_array_equal(bits(alone), bits(whole["utci"]))


@given(st.integers(0, 2999), st.sampled_from(["ta", "sr", "rh", "ws"]))
def test_a_gap_stays_in_its_place(readings, place, name):
    holed = readings | {name: readings[name].copy()}
    holed[name][place] = numpy.nan
    before = comfortics.calculate(**readings, indices=SOME, status=True)
    after = comfortics.calculate(**holed, indices=SOME, status=True)
    for one in ("utci", "wbgt_outdoor", "mean_radiant_temperature"):
        assert numpy.isnan(after[one][place])
        assert after[one + "_status"][place] == comfortics.Status.MISSING
        numpy.testing.assert_array_equal(numpy.delete(before[one], place), numpy.delete(after[one], place))


def test_grids_broadcast_and_blocks_of_any_layout_agree(readings):
    ta, rh = readings["ta"][:40], readings["rh"][:30]
    grid = comfortics.calculate(ta=ta[:, None], rh=rh, ws=numpy.full((2, 1, 1), 3.0), sr=500, indices=SOME)
    flat = comfortics.calculate(ta=numpy.repeat(ta, 30), rh=numpy.tile(rh, 40), ws=3.0, sr=500.0, indices=SOME)
    for name, figures in grid.items():
        assert figures.shape == (2, 40, 30)
        numpy.testing.assert_array_equal(figures[1].ravel(), flat[name])
    fortran = {name: numpy.asfortranarray(column.reshape(60, 50)) for name, column in readings.items()}
    for name, figures in comfortics.calculate(**fortran, indices=SOME).items():
        numpy.testing.assert_array_equal(figures.ravel(), comfortics.calculate(**readings, indices=SOME)[name])


def test_long_calls_go_in_buffers(readings):
    times = 100
    short = comfortics.calculate(**readings, indices=["humidex_masterson"])["humidex_masterson"]
    ta = numpy.tile(readings["ta"], times).astype(">f8")
    rh = numpy.broadcast_to(readings["rh"], (times, 3000))
    figures = comfortics.calculate(ta=ta.reshape(times, 3000), rh=rh, indices=90)["humidex_masterson"]
    numpy.testing.assert_array_equal(figures, numpy.broadcast_to(short, figures.shape))


def test_single_precision_in_gives_single_precision_out(readings):
    single = {name: column.astype(numpy.float32) for name, column in readings.items()}
    found = comfortics.calculate(**single, indices=SOME)
    double = comfortics.calculate(**{name: column.astype(float) for name, column in single.items()}, indices=SOME)
    for name, figures in found.items():
        assert figures.dtype == numpy.float32
        numpy.testing.assert_array_equal(figures, double[name].astype(numpy.float32))
    mixed = comfortics.calculate(**(single | {"ta": readings["ta"]}), indices=SOME)
    assert mixed["utci"].dtype == float


def test_masked_and_absent_readings_are_missing():
    ta = numpy.ma.array([30.0, 31.0], mask=[False, True])
    figures = comfortics.calculate(ta=ta, td=[None, 20.0], indices=90, status=True)
    assert numpy.isnan(figures["humidex_masterson"]).all()
    assert (figures["humidex_masterson_status"] == comfortics.Status.MISSING).all()


def test_assumptions_of_each_point_are_read():
    points = dict(ta=[-5.0, -5.0], ws=4.0, indices="wind_chill_noaa")
    both = comfortics.calculate(**points, wind_exponent=[0.1, 0.3])["wind_chill_noaa"]
    one = [comfortics.calculate(**points, wind_exponent=value)["wind_chill_noaa"][0] for value in (0.1, 0.3)]
    assert list(both) == one and one[0] != one[1]


def test_numbers_of_numpy_name_an_index():
    for name in (numpy.int64(90), [numpy.int16(90)], numpy.array([90])):
        assert list(comfortics.calculate(ta=30.0, td=20.0, indices=name)) == ["humidex_masterson"]


def test_a_missing_value_is_explained():
    cold = dict(ta=12.0, rh=50.0)
    assert comfortics.explain("heat_index_rothfusz", **cold) == (
        "Outside its limits: the air temperature is 12 °C, valid from 26.7 to 50 °C.")
    assert comfortics.explain("heat_index_rothfusz", **cold, limits=False) == ""
    assert "Dew point is missing" in comfortics.explain(90, ta=30.0, td=numpy.nan)
    assert "dew point" in comfortics.explain("utci", ta=10.0, td=20.0, ws=2.0, sr=100.0)


def test_the_sun_is_where_the_clock_says():
    at_noon = comfortics.solar_radiation(48.2, 16.4, "2024-06-21T11:00")
    assert at_noon == comfortics.solar_radiation(48.2, 16.4, "2024-06-21T13:00", utc_offset=2)
    assert 800 < at_noon["horizontal"] < 1000
    # Half round the world it is night, and the date is the same only on one side.
    assert comfortics.solar_radiation(48.2, -163.6, "2024-06-21T11:00")["horizontal"] == 0
    assert comfortics.solar_radiation(-35.0, 174.0, "2024-12-21T00:30")["horizontal"] > 800
    missing = comfortics.solar_radiation(48.2, 16.4, numpy.array(["NaT", "2024-06-21T11:00"], "M8[s]"))
    assert numpy.isnan(missing["tilted"][0]) and missing["tilted"][1] == at_noon["tilted"]


@pytest.mark.parametrize("unit", ["K", "degF", "Ra", "°C"])
@given(value=st.floats(-200, 200))
def test_units_go_there_and_back(unit, value):
    there = comfortics.convert(value, "degC", unit)
    assert abs(comfortics.convert(there, unit, "°C") - value) < 1e-10


def test_known_units():
    assert comfortics.convert([32.0, 212.0], "degF", "degC").tolist() == [0.0, 100.0]
    assert comfortics.convert(36.0, "km h-1", "m s-1") == 10.0
    assert comfortics.convert(1.5, "kW m-2", "W/m²") == 1500.0


def test_importing_takes_numpy_alone():
    code = "import comfortics, sys; print([name for name in ('pandas', 'xarray', 'dask') if name in sys.modules])"
    assert subprocess.run([sys.executable, "-c", code], capture_output=True, text=True, check=True).stdout == "[]\n"
