# SPDX-License-Identifier: GPL-3.0-or-later
import re

import comfortics
import dask.array
import numpy
import pandas
import pytest
import xarray


def lazy(values):
    return dask.array.from_array(numpy.array(values), chunks=1)


def cube(values, **coordinates):
    return xarray.DataArray(values, dims="x", coords=coordinates)


@pytest.mark.parametrize("error, said, call", [
    (ValueError, "Both tg and sr are given", dict(ta=1, tg=1, sr=1)),
    (ValueError, "Both td and rh are given", dict(ta=1, td=1, rh=1)),
    (ValueError, "utci needs mean_radiant_temperature: tg or sr must be given", dict(ta=1, rh=2, ws=3, indices="utci")),
    (ValueError, "humidex_masterson needs dew_point: td or rh must be given", dict(ta=1, indices=90)),
    (ValueError, "By the classic rules td or rh must be given", dict(ta=1, ws=3, sr=1, rules="classic")),
    (ValueError, "these rules do not show wind_speed_10m",
     dict(ta=1, ws=3, sr=1, rh=3, rules="robust", indices="WS10")),
    (ValueError, "No reading is given", dict(indices="utci")),
    (ValueError, "No index is asked for", dict(ta=1, indices=[])),
    (ValueError, r"The shapes ta (3,) and rh (2, 2) do not broadcast",
     dict(ta=[1.0, 2.0, 3.0], rh=[[1.0, 2.0], [3.0, 4.0]], indices=90)),
    (ValueError, "There are no rules 'clasic', only 'precise', 'classic', 'robust'. Did you mean 'classic'",
     dict(ta=1, rules="clasic")),
    (ValueError, "threads is to be 0 or more, not -1", dict(ta=1, threads=-1)),
    (TypeError, "ta is a table; give one of its columns", dict(ta=pandas.DataFrame({"ta": [1.0]}), rh=1, indices=90)),
    (TypeError, "ta is a dataset; give one of its variables", dict(ta=xarray.Dataset({"ta": 1.0}), rh=1, indices=90)),
    (TypeError, "ta is a DelayedLeaf of Dask", dict(ta=dask.delayed(30.0), rh=1, indices=90)),
    (TypeError, "ta holds what is no number", dict(ta=["warm", None], rh=1, indices=90)),
    (TypeError, "ta holds what is no number", dict(ta=pandas.Series(["30", "31"]), rh=1, indices=90)),
    (TypeError, "ta is to hold numbers, not bool", dict(ta=pandas.Series([True, False]), rh=1, indices=90)),
    (TypeError, "ta is to hold numbers, not datetime64[ns]",
     dict(ta=pandas.Series(pandas.date_range("2024", periods=2)), rh=1, indices=90)),
    (ValueError, "ta is no array: its parts have different lengths", dict(ta=[[1.0], [1.0, 2.0]], rh=1, indices=90)),
    (ValueError, "utci needs mean_radiant_temperature", dict(ta=numpy.empty(0), rh=1.0, ws=1.0, indices="utci")),
    (ValueError, "utci needs mean_radiant_temperature", dict(ta=lazy([1.0, 2.0]), rh=1.0, ws=1.0, indices="utci")),
    (TypeError, "ta is to hold numbers, not <U4", dict(ta=lazy(["warm", "cold"]), rh=1.0, indices=90)),
    (ValueError, "Some arrays have chunks of unknown lengths",
     dict(ta=lazy([30.0, 31.0])[lazy([True, False])], td=numpy.array([15.0]), indices=90)),
    (ValueError, "ta and td have different coordinates along 'x'",
     dict(ta=cube([1.0, 2.0], x=[0, 1]), td=cube([1.0, 2.0], x=[1, 0]), indices=90)),
    (ValueError, "ta has 2 points along 'x', and td has 3", dict(ta=cube([1.0, 2.0]), td=cube([1.0, 2.0, 3.0]), indices=90)),
    (TypeError, "td is a Series beside DataArrays", dict(ta=cube([1.0, 2.0]), td=pandas.Series([1.0, 2.0]), indices=90)),
    (TypeError, "wind_height is to be one number", dict(ta=1.0, ws=1.0, wind_height=[2.0, 10.0], indices=211)),
    (TypeError, "ta is to hold numbers, not complex128", dict(ta=numpy.array([1j]), rh=1, indices=90)),
    (TypeError, "ta is to hold numbers, not datetime64", dict(ta=numpy.array(["2024"], "M8[s]"), rh=1, indices=90)),
    (KeyError, "There is no index or quantity 'utcii'. Did you mean 'utci'", dict(ta=1, indices=["utcii"])),
    (KeyError, "There is no index or quantity 'humidx'. Did you mean 'humidex_masterson'", dict(ta=1, indices="humidx")),
    (KeyError, "There is no index 223, they go from 1 to 222", dict(ta=1, indices=223)),
    (KeyError, "There is no index 0,", dict(ta=1, indices=0)),
    (KeyError, "is the ufunc of no index", dict(ta=1, indices=numpy.sin)),
    (TypeError, "not by 1.5", dict(ta=1, indices=[1.5])),
    (TypeError, "not by 90.0", dict(ta=1, indices=90.0)),
    (TypeError, "not by b'utci'", dict(ta=1, indices=b"utci")),
    (TypeError, "not by True", dict(ta=1, indices=True)),
])
def test_a_wrong_call_is_told_in_a_sentence(error, said, call):
    with pytest.raises(error, match=re.escape(said)) as caught:
        comfortics.calculate(**call)
    assert str(caught.value).count("\n") == 0


def test_units_that_are_not_known_are_named():
    with pytest.raises(ValueError, match="There is no unit 'degK2'. Did you mean 'degk'"):
        comfortics.convert(1, "degK2", "degC")
    with pytest.raises(TypeError, match="to hold numbers, not bool"):
        comfortics.convert([True], "K", "degC")
    with pytest.raises(ValueError, match="°C is a unit of temperature and m/s one of speed"):
        comfortics.convert(1, "degC", "m/s")


@pytest.mark.parametrize("error, said, call", [
    (TypeError, "time is to hold times, not int64", dict(time=5)),
    (TypeError, "not Period", dict(time=pandas.period_range("2024-06-21", periods=2))),
    (ValueError, "time holds what is no time", dict(time="noon")),
    (ValueError, "time has a time zone", dict(time=pandas.Timestamp("2024-06-21", tz="UTC"), utc_offset=1)),
])
def test_what_is_no_time_is_refused(error, said, call):
    with pytest.raises(error, match=said):
        comfortics.solar_radiation(48.2, 16.4, **call)
