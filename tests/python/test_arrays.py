# SPDX-License-Identifier: GPL-3.0-or-later
"""pandas, xarray and Dask get what they give, with the bits of one call on arrays."""
import pickle

import comfortics
import dask
import dask.array
import dask.dataframe
import numpy
import pandas
import pytest
import xarray
from conftest import bits

SOME = ["utci", "wbgt_outdoor", "humidex_masterson", "mean_radiant_temperature"]


@pytest.fixture(scope="module")
def expected(readings):
    return comfortics.calculate(**readings, indices=SOME, status=True)


@pytest.fixture(scope="module")
def grid(readings):
    """The readings as a cube of CF variables."""
    units = {"ta": "degC", "sr": "W m-2", "rh": "%", "ws": "m s-1"}
    return {name: xarray.DataArray(column.reshape(10, 15, 20), dims=("time", "lat", "lon"),
                                   coords={"lat": numpy.linspace(60, -60, 15)}, attrs={"units": units[name]})
            for name, column in readings.items()}


def same(found, expected):
    for name, figures in expected.items():
        numpy.testing.assert_array_equal(numpy.ravel(found[name]), figures, name)


def test_series_give_a_frame_of_the_same_rows(readings, expected):
    index = pandas.date_range("2024-01-01", periods=3000, freq="h")
    table = pandas.DataFrame(readings, index=index)
    frame = comfortics.calculate(**{name: table[name] for name in table}, indices=SOME, status=True)
    assert frame.index.equals(index) and list(frame) == list(expected)
    same(frame, expected)
    nullable = table["ta"].astype("Float64").mask(table["ta"] > 20)
    holed = comfortics.calculate(ta=nullable, rh=table["rh"], indices=90, status=True)
    assert (holed["humidex_masterson_status"][table["ta"] > 20] == comfortics.Status.MISSING).all()
    with pytest.raises(ValueError, match="The index of rh is another"):
        comfortics.calculate(ta=table["ta"], rh=table["rh"].iloc[::-1], indices=90)


def test_ufuncs_work_on_what_they_are_given(readings):
    ta, td = readings["ta"], readings["ta"] - 5
    plain = comfortics.humidex_masterson(ta, td)
    series = comfortics.humidex_masterson(pandas.Series(ta), pandas.Series(td))
    assert isinstance(series, pandas.Series)
    lazy = comfortics.humidex_masterson(dask.array.from_array(ta, chunks=999), td)
    assert isinstance(lazy, dask.array.Array)
    cube = comfortics.humidex_masterson(xarray.DataArray(ta, dims="x").chunk(x=700), xarray.DataArray(td, dims="x"))
    assert isinstance(cube, xarray.DataArray) and cube.chunks is not None
    for found in (series, lazy, cube):
        numpy.testing.assert_array_equal(bits(numpy.asarray(found)), bits(plain))


def test_a_cube_gives_a_dataset(grid, expected):
    found = comfortics.calculate(**grid, indices=SOME, status=True)
    assert found["utci"].dims == ("time", "lat", "lon") and found["lat"].equals(grid["ta"]["lat"])
    same(found, expected)
    assert found["utci"].attrs["units"] == "degC"
    assert found["utci"].attrs["long_name"] == "Universal Thermal Climate Index (Broede; 2009)"
    assert "Bröde" in found["utci"].attrs["references"]
    assert found["utci"].attrs["comfortics_rules"] == found.attrs["comfortics_rules"] == "precise, limits kept"
    assert found.attrs["comfortics_version"] == comfortics.__version__
    assert found["utci_status"].attrs["flag_meanings"].split()[2] == "outside_temperature"


@pytest.mark.parametrize("chunks", [{}, {"time": 3}, {"time": 1, "lat": 4}])
def test_a_lazy_cube_gives_the_same_bits(grid, expected, chunks):
    lazy = {name: array.chunk(chunks) for name, array in grid.items()}
    found = comfortics.calculate(**lazy, indices=SOME, status=True)
    assert all(dask.is_dask_collection(found[name]) for name in expected)
    same(found.compute(), expected)
    mixed = comfortics.calculate(**(lazy | {"ws": grid["ws"], "sr": grid["sr"].chunk(lon=7)}), indices=SOME, status=True)
    same(mixed.compute(scheduler="threads"), expected)


def test_the_graph_has_a_task_for_a_block(readings):
    lazy = {name: dask.array.from_array(column, chunks=100) for name, column in readings.items()}
    given = sum(len(array.__dask_graph__()) for array in lazy.values())
    one = comfortics.calculate(**lazy, indices="utci")["utci"]
    assert len(one.__dask_graph__()) - given == 30
    several = comfortics.calculate(**lazy, indices=SOME)
    graph = dask.base.collections_to_dsk(list(several.values()))
    assert len([key for key in graph if str(key).count("comfortics-")]) <= 30 * (1 + len(SOME))
    assert len(pickle.dumps(one.__dask_graph__().layers)) < 2_000_000


def test_units_are_those_of_the_attributes(grid, expected):
    foreign = {
        "ta": (grid["ta"] + 273.15).assign_attrs(units="K"),
        "sr": (grid["sr"] * 3600).assign_attrs(units="J m**-2"),
        "rh": (grid["rh"] / 100).assign_attrs(units="1"),
        "ws": (grid["ws"] * 3.6).assign_attrs(units="km h-1"),
        "barometric_pressure": xarray.DataArray(101600.0, attrs={"units": "Pa"}),
    }
    found = comfortics.calculate(**foreign, indices=SOME, step=numpy.timedelta64(1, "h"))
    for name in SOME:
        numpy.testing.assert_allclose(found[name].values.ravel(), expected[name], rtol=0, atol=1e-6)
    lazy = comfortics.calculate(**{name: array.chunk() for name, array in foreign.items()}, indices=SOME, step=3600)
    xarray.testing.assert_identical(lazy.compute(), found)
    with pytest.raises(ValueError, match="sr has the unit 'J m.*step"):
        comfortics.calculate(**foreign, indices=SOME)
    with pytest.raises(ValueError, match="ws has the unit 'furlong', which is not known for it; it can be in m s-1"):
        comfortics.calculate(**(grid | {"ws": grid["ws"].assign_attrs(units="furlong")}), indices=SOME)
    with pytest.raises(ValueError, match="ta has the unit 'Pa'"):
        comfortics.calculate(**(grid | {"ta": grid["ta"].assign_attrs(units="Pa")}), indices=SOME)


def test_frames_of_dask_are_parted_as_they_were(readings, expected):
    table = dask.dataframe.from_pandas(pandas.DataFrame(readings), npartitions=4)
    found = comfortics.calculate(**{name: table[name] for name in table.columns}, indices=SOME, status=True)
    assert found.npartitions == 4
    same(found.compute(), expected)
    assert found._meta.dtypes.to_dict() == found.compute().dtypes.to_dict()


def test_units_of_arrays_are_converted_where_they_are(grid):
    kelvin = comfortics.convert(grid["ta"].chunk(), "degC", "K")
    assert kelvin.attrs["units"] == "K" and kelvin.chunks is not None
    numpy.testing.assert_allclose(kelvin, grid["ta"] + 273.15)
    assert isinstance(comfortics.convert(pandas.Series([32.0]), "degF", "degC"), pandas.Series)


@pytest.mark.parametrize("reading, spellings, value, expected", [
    ("ta", ["℃", "deg C", "ºC", "degrees Celsius", "degree_C", "Celsius "], 30.0, 30.0),
    ("ta", ["K", "kelvin", "deg K"], 303.15, 30.0),
    ("ws", ["m s⁻¹", "m·s-1", "m.s^-1", "meters per second", "metre/second", "m*s**-1"], 3.0, 3.0),
    ("sr", ["Wm-2", "W m⁻²", "W/m**2", "W.m-2", "Watt/m^2"], 300.0, 300.0),
    ("sr", ["kJ m-2", "kJ/m²"], 1080.0, 300.0),
    ("sr", ["MJ m-2"], 1.08, 300.0),
    ("rh", ["fraction", "(0 - 1)", "dimensionless"], 0.5, 50.0),
])
def test_units_are_spelled_in_many_ways(reading, spellings, value, expected):
    for units in spellings:
        array = xarray.DataArray([value], dims="x", attrs={"units": units})
        given = {"ta": 30.0, "rh": 50.0, "ws": 3.0, "sr": 300.0} | {reading: array}
        quantity = next(one for one in comfortics.quantities.values() if one.symbol.lower() == reading)
        found = comfortics.calculate(**given, indices=quantity, step=3600)
        assert abs(found[quantity.id].item() - expected) < 1e-9, units
    with pytest.raises(ValueError, match="sr has the unit 'mJ m-2', which is not known"):
        comfortics.calculate(sr=xarray.DataArray([1.0], attrs={"units": "mJ m-2"}), indices="sr", step=1)


def test_gaps_of_all_kinds_are_gaps():
    holed = [numpy.ma.array([30.0, 1.0], mask=[False, True]), [30.0, pandas.NA], pandas.array([30, None], "Int64"),
             pandas.Series([30, None], dtype=object), pandas.Series([30.0, None], dtype="Sparse")]
    for ta in holed:
        found = comfortics.calculate(ta=ta, td=15.0, indices=90, status=True)
        assert list(found["humidex_masterson_status"]) == [comfortics.Status.VALUE, comfortics.Status.MISSING]
    for kelvin in holed:
        converted = comfortics.convert(kelvin, "K", "degC")
        assert converted[0] == 30 - 273.15 and (numpy.ma.is_masked(converted[1]) or numpy.isnan(converted[1]))


def test_chunks_of_unknown_lengths_go_along():
    ta = dask.array.from_array(numpy.array([25.0, 30.0, 35.0, 20.0]), chunks=3)
    warm = ta[ta > 24]
    found = comfortics.calculate(ta=warm, td=warm - 10, indices=90)["humidex_masterson"].compute()
    assert found.tolist() == [comfortics.humidex_masterson(value, value - 10) for value in (25.0, 30.0, 35.0)]


def test_the_sun_of_a_cube():
    times = pandas.date_range("2024-06-21", periods=24, freq="h")
    lat = xarray.DataArray([48.2, -35.0], dims="place")
    lon = xarray.DataArray([16.4, 174.0], dims="place")
    found = comfortics.solar_radiation(lat, lon, xarray.DataArray(times, dims="time").chunk(time=5))
    frame = comfortics.solar_radiation(48.2, 16.4, times)
    assert found["horizontal"].dims == ("place", "time")
    numpy.testing.assert_array_equal(found["horizontal"][0], frame["horizontal"])
    own = times.tz_localize("UTC").tz_convert("Europe/Vienna")
    numpy.testing.assert_array_equal(comfortics.solar_radiation(48.2, 16.4, own)["horizontal"], frame["horizontal"])
    assert comfortics.solar_radiation(48.2, 16.4, own[11])["horizontal"] == frame["horizontal"][11]
    lazy = comfortics.solar_radiation(dask.array.from_array(numpy.array([48.2]), chunks=1), 16.4, times)["horizontal"]
    assert isinstance(lazy, dask.array.Array)
    numpy.testing.assert_array_equal(lazy.compute(), frame["horizontal"])
