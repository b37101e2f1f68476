# SPDX-License-Identifier: GPL-3.0-or-later
"""Persons by tables and units, over arrays of each kind."""
import doctest

import numpy
import pytest
from comfortics import person


def test_docstrings_show_what_happens():
    result = doctest.testmod(person, extraglobs={"person": person})
    assert result.attempted > 8 and result.failed == 0


def test_tables_are_those_of_the_standards():
    typing, moderate = person.activities["typing"], person.activities["class_moderate"]
    assert (typing.rate, typing.unit, moderate.unit) == (1.1, "met", "W")
    assert person.ensembles["summer_indoors"].clo == 0.5
    assert person.work_clothing["vapour_barrier"].adjustment > person.work_clothing["work_clothes"].adjustment == 0
    with pytest.raises(TypeError):
        person.activities["rest"] = typing


def test_garments_add_up():
    worn = [person.garments[name].clo for name in ("t_shirt", "trousers_thin")]
    assert person.insulation("t_shirt", "Trousers_Thin") == pytest.approx(0.835 * sum(worn) + 0.161)
    chair = person.chairs["chair_executive"].clo
    assert person.insulation("t_shirt", "trousers_thin", "chair_executive") == pytest.approx(
        0.835 * sum(worn) + 0.161 + chair)
    for wrong, says in ((("tshirt",), "t_shirt"), (("t_shirt", "t_shirt"), "twice"),
                        (("chair_executive", "chair_office"), "two chairs")):
        with pytest.raises(ValueError, match=says):
            person.insulation(*wrong)


def test_rates_are_converted_by_the_body():
    surface = 0.202 * 75**0.425 * 1.8**0.725
    assert person.convert_metabolic_rate(2, "met", "W", weight=75, height=1.8) == pytest.approx(2 * 58.15 * surface)
    basal = 3.19 * 75**0.75 * (1 + 0.004 * (30 - 35) + 0.018 * (180 / 75**(1 / 3) - 42.1))  # Höppe, of a woman
    above = person.convert_metabolic_rate(2, "met", "W above basal", weight=75, height=1.8, age=35, sex="female")
    assert 0 < above < 2 * 58.15 * surface
    assert above == pytest.approx(2 * 58.15 * surface - basal, rel=0.02)
    assert numpy.isnan(person.convert_metabolic_rate([-1, numpy.nan], "met", "W/m2")).all()
    for wrong, says in (({"wanted": "W"}, "weight"), ({"wanted": "kcal"}, "no unit"),
                        ({"wanted": "W above basal", "weight": 75, "height": 1.8}, "age")):
        with pytest.raises(ValueError, match=says):
            person.convert_metabolic_rate(2, "met", **wrong)


def test_a_running_mean_weighs_the_seven_days_before():
    days = numpy.random.default_rng(3).uniform(-5, 30, (2, 20))
    for alpha, weights in ((0.8, 0.8 ** numpy.arange(7)), ("fixed", numpy.array([1, 0.8, 0.6, 0.5, 0.4, 0.3, 0.2]))):
        means = person.running_mean(days, alpha)
        assert numpy.isnan(means[:, :7]).all()
        for day in range(7, 20):
            expected = days[:, day - 7:day][:, ::-1] @ weights / weights.sum()
            assert means[:, day] == pytest.approx(expected)
        assert numpy.array_equal(person.running_mean(days.T, alpha, axis=0).T, means, equal_nan=True)
    days[0, 9] = numpy.nan
    assert numpy.isnan(person.running_mean(days)[0, 10:17]).all() and numpy.isfinite(person.running_mean(days)[0, 17:]).all()
    with pytest.raises(ValueError, match="0.6 to 0.9"):
        person.running_mean(days, 0.95)


def test_arrays_of_each_kind_give_the_same():
    dask, pandas, xarray = (pytest.importorskip(name) for name in ("dask.array", "pandas", "xarray"))
    kelvin = numpy.linspace(250, 310, 24).reshape(2, 12)
    plain = kelvin - 273.15
    field = xarray.DataArray(kelvin, dims=("place", "time"), attrs={"units": "K"})
    for function in (person.clothing_by_weather, person.running_mean):
        wanted = function(plain)
        for made in (function(field), function(field.chunk({"time": 5})).compute()):
            assert made.dims == field.dims and made.values == pytest.approx(wanted, nan_ok=True)
            assert made.attrs["units"] in ("clo", "degC")
        assert function(dask.from_array(plain, chunks=(1, 5))).compute() == pytest.approx(wanted, nan_ok=True)
        series = function(pandas.Series(plain[0], index=pandas.date_range("2024-01-01", periods=12)))
        assert series.index[0].year == 2024 and series.to_numpy() == pytest.approx(wanted[0], nan_ok=True)
    rates = person.convert_metabolic_rate(xarray.DataArray([1.0, 2.0], dims="x", attrs={"units": "met"}), "met", "W/m²")
    assert rates.values == pytest.approx([58.15, 116.3]) and rates.attrs["units"] == "W m-2"
    with pytest.raises(ValueError, match="is to be in met"):
        person.convert_metabolic_rate(rates, "met", "W")
