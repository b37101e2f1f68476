# SPDX-License-Identifier: GPL-3.0-or-later
"""python3 -m comfortics, for those who write no Python."""
import comfortics
import numpy
import pandas
import pytest
import xarray
from comfortics.__main__ import main


@pytest.fixture
def dataset(tmp_path):
    random = numpy.random.default_rng(5)
    columns = {"tas": (280, 310, "K"), "hurs": (5, 100, "%"), "sfcWind": (0.5, 9, "m s-1"), "rsds": (0, 900, "W m-2")}
    source = xarray.Dataset({name: (("time", "x"), random.uniform(low, high, (20, 30)).astype("f4"), {"units": units})
                             for name, (low, high, units) in columns.items()})
    source.to_netcdf(tmp_path / "in.nc")
    return source


@pytest.mark.parametrize("kind", ["nc", "zarr"])
def test_a_dataset_gives_a_dataset(dataset, tmp_path, kind, capsys):
    out = tmp_path / f"out.{kind}"
    call = [str(tmp_path / "in.nc"), str(out), "--indices", "utci,200", "--chunks", "time=7", "--status"]
    assert main(call) == 0 and main([*call, "--quiet"]) == 0  # the second takes the place of the first
    assert "ta: tas, sr: rsds, rh: hurs, ws: sfcWind" in capsys.readouterr().err
    found = xarray.open_dataset(out, engine="zarr" if kind == "zarr" else None, mask_and_scale=False).load()
    expected = dataset.comfortics.calculate(["utci", "wbgt_outdoor"], status=True)
    xarray.testing.assert_equal(found, expected)
    assert sorted(path.name for path in tmp_path.iterdir()) == ["in.nc", out.name]


def test_a_failure_leaves_what_there_was(dataset, tmp_path, capsys):
    out = tmp_path / "out.nc"
    out.write_text("old")
    assert main([str(tmp_path / "in.nc"), str(out), "--indices", "utcii"]) == 1
    assert capsys.readouterr().err.startswith("comfortics: There is no index or quantity 'utcii'. Did you mean 'utci'")
    assert out.read_text() == "old"
    assert sorted(path.name for path in tmp_path.iterdir()) == ["in.nc", "out.nc"]


def test_a_stations_table_keeps_its_columns(tmp_path, capsys):
    source, out = tmp_path / "station.csv", tmp_path / "indices.csv"
    source.write_text("when,T,RH,WS\nnoon,31.5,42,2\nnight,,80,1\n")
    assert main([str(source), str(out), "--indices", "heat_index_rothfusz", "--ta", "T", "--quiet"]) == 0
    found = pandas.read_csv(out)
    assert list(found) == ["when", "T", "RH", "WS", "heat_index_rothfusz"]
    assert found["heat_index_rothfusz"][0] == comfortics.heat_index_rothfusz(31.5, 42)
    assert numpy.isnan(found["heat_index_rothfusz"][1])
    assert main([str(source), str(out), "--ta", "temp"]) == 1
    assert "has no column 'temp'" in capsys.readouterr().err
