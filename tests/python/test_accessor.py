# SPDX-License-Identifier: GPL-3.0-or-later
"""Datasets as reanalyses and climate models have them."""
import comfortics
import numpy
import pytest
import xarray


def variable(values, units, **attributes):
    return xarray.DataArray(numpy.asarray(values, numpy.float32), dims="time", attrs={"units": units} | attributes)


@pytest.fixture
def reanalysis():
    return xarray.Dataset({
        "t2m": variable([300.0, 270.0, 290.0], "K", standard_name="unknown"),
        "d2m": variable([290.0, 265.0, numpy.nan], "K"),
        "u10": variable([3.0, 0.0, -6.0], "m s**-1"),
        "v10": variable([4.0, 2.0, 8.0], "m s**-1"),
        "ssrd": variable([2.16e6, 0.0, 3.6e5], "J m**-2"),
        "sp": variable([101325.0] * 3, "Pa", standard_name="surface_air_pressure"),
    })


def test_a_reanalysis_is_read_by_its_short_names(reanalysis):
    found = reanalysis.comfortics.calculate(["utci", "wbgt_outdoor"], step=3600)
    assert found.attrs["comfortics_inputs"] == (
        "ta: t2m, sr: ssrd, td: d2m, ws: u10 and v10, wind 10 m above the ground")
    wind = numpy.array([5.0, 2.0, 10.0]) / (10 / 1.1) ** 0.2
    kelvin = reanalysis["t2m"].values.astype(float), reanalysis["d2m"].values.astype(float)
    expected = comfortics.calculate(ta=kelvin[0] - 273.15, td=kelvin[1] - 273.15, ws=wind, sr=[600.0, 0.0, 100.0],
                                    indices=["utci", "wbgt_outdoor"])
    for name, figures in expected.items():
        numpy.testing.assert_allclose(found[name], figures, rtol=2e-6)
    lazy = reanalysis.chunk(time=2).comfortics.calculate(["utci", "wbgt_outdoor"], step=3600)
    xarray.testing.assert_identical(lazy.compute(), found)


def test_a_model_is_read_by_its_standard_names():
    model = xarray.Dataset({
        "temp": variable([27.0], "degC", standard_name="air_temperature"),
        "humid": variable([0.5], "1", standard_name="relative_humidity"),
        "wind": variable([10.8], "km h-1", standard_name="wind_speed"),
        "flux": variable([500.0], "W m-2", standard_name="surface_downwelling_shortwave_flux_in_air"),
    })
    assert model.comfortics.variables() == {"ta": "temp", "sr": "flux", "rh": "humid", "ws": "wind"}
    found = model.comfortics.calculate("utci", wind_height=1.1)
    expected = comfortics.calculate(ta=27.0, rh=50.0, ws=3.0, sr=500.0, indices="utci")["utci"]
    assert abs(found["utci"].item() - expected) < 1e-4


def test_what_is_not_found_can_be_named(reanalysis):
    own = reanalysis.rename(t2m="temperature_0", ssrd="sun")
    assert own.comfortics.variables(ta="temperature_0", td=None) == {"ta": "temperature_0", "ws": ("u10", "v10")}
    found = own.comfortics.calculate("utci", ta="temperature_0", sr="sun", step=3600)
    xarray.testing.assert_identical(found["utci"], reanalysis.comfortics.calculate("utci", step=3600)["utci"])
    with pytest.raises(KeyError, match="The dataset has no variable 'temp'"):
        own.comfortics.calculate("utci", ta="temp")
    with pytest.raises(ValueError, match="utci needs .* ta must be given"):
        own.comfortics.calculate("utci", step=3600)


def test_two_that_are_named_are_not_silently_one(reanalysis):
    both = reanalysis.assign(rh=variable([50.0] * 3, "%"))
    assert both.comfortics.variables(rh="rh")["rh"] == "rh" and "td" not in both.comfortics.variables(rh="rh")
    with pytest.raises(ValueError, match="Both td and rh are given"):
        both.comfortics.calculate("utci", td="d2m", rh="rh", step=3600)


def test_what_is_not_sure_is_asked_for(reanalysis):
    with pytest.raises(ValueError, match="step must tell"):
        reanalysis.comfortics.calculate("utci")
    del reanalysis["t2m"].attrs["units"]
    with pytest.raises(ValueError, match="The variable t2m has no attribute units"):
        reanalysis.comfortics.calculate("utci", step=3600)
    twice = xarray.Dataset({name: variable([280.0], "K", standard_name="air_temperature") for name in ("low", "high")})
    with pytest.raises(ValueError, match="low and high have the standard name air_temperature"):
        twice.comfortics.variables()
