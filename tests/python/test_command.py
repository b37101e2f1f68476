# SPDX-License-Identifier: GPL-3.0-or-later
"""python3 -m comfortics, for those who write no Python."""
import resource
import subprocess
import sys

import comfortics
import comfortics.__main__
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


# Texts that a reader of numbers would change; the humidex of 30 °C and a dew point of 15 °C is 33.98.
@pytest.mark.parametrize("table, expected", [
    ("id,x,ta,td\n007,1.10,30.0,15\n,NA,-9999,15\n\n8,0.30000000000000004,n/a\n",
     "id,x,ta,td,{}\n007,1.10,30.0,15,33.97592201222402\n,NA,-9999,15,\n8,0.30000000000000004,n/a,,\n"),
    ('who;TA;td\n"a; ""b""";30,00;15\n', 'who;TA;td;{}\n"a; ""b""";30,00;15;33,97592201222402\n'),
    ("\ufefforte\tTa\ttd\tRH\nKöln\t30\t15\t99\n", "orte\tTa\ttd\tRH\t{}\nKöln\t30\t15\t99\t33.97592201222402\n"),
])
def test_cells_stay_as_they_are(table, expected, tmp_path):
    source, out = tmp_path / "station.csv", tmp_path / "indices.csv"
    for encoding in ("utf-8", "utf-16"):
        source.write_text(table.removeprefix("\ufeff" if encoding == "utf-16" else ""), encoding=encoding)
        assert main([str(source), str(out), "--indices", "90", "--quiet"]) == 0
        assert out.read_text(encoding="utf-8") == expected.format("humidex_masterson")


@pytest.mark.parametrize("table, said", [
    ("ta,td\n30,15\nwarm,15\n", "station.csv, line 3: ta is 'warm', which is no number"),
    ("ta;td\n1.030,5;15\n", "line 2: ta is '1.030,5', which is no number"),
    ("ta,td\n30,15,7\n", "line 2: 3 cells below a header of 2"),
    ("ta,TA,td\n30,31,15\n", "2 columns for ta: 'ta' and 'TA'"),
    ("ta,td,humidex_masterson\n30,15,1\n", "has a column 'humidex_masterson' already"),
    ("T,U\n30,15\n", "has no column ta, tg, sr, td, rh, ws: say which are meant"),
    ("", "station.csv has no header"),
])
def test_what_is_wrong_in_a_table_is_found(table, said, tmp_path, capsys):
    source = tmp_path / "station.csv"
    source.write_text(table)
    assert main([str(source), str(tmp_path / "out.csv"), "--indices", "90", "--quiet"]) == 1
    assert said in capsys.readouterr().err
    assert list(tmp_path.iterdir()) == [source]


@pytest.mark.parametrize("arguments, said", [
    (["in.nc", "in.nc"], "in.nc is what is read; the result would take its place"),
    (["none.nc", "out.nc"], "none.nc is not there"),
    (["in.nc", "folder/out.nc"], "There is no folder"),
    (["in.nc", "other.zarr"], "other.zarr is a folder that holds something else"),
    (["other.zarr", "out.nc"], "other.zarr cannot be read as a Zarr store"),
    (["in.nc", "out.nc", "--chunks", "tim=3"], "There is no dimension 'tim', only time, x"),
    (["in.nc", "out.nc", "--chunks", "time=0"], "--chunks is to be DIMENSION=LENGTH"),
    (["in.nc", "out.nc", "--ws", "tas,rsds,hurs"], "ws is to be a variable or two components, not 3"),
    (["in.nc", "out.nc", "--ta", "t2m"], "comfortics: The dataset has no variable 't2m'.\n"),
])
def test_what_cannot_be_is_told_before_it_is_begun(dataset, tmp_path, monkeypatch, capsys, arguments, said):
    monkeypatch.chdir(tmp_path)
    (tmp_path / "other.zarr").mkdir()
    (tmp_path / "other.zarr" / "thesis").write_text("years of work")
    before = (tmp_path / "in.nc").read_bytes()
    assert main([*arguments, "--indices", "utci", "--quiet"]) == 1
    assert said in capsys.readouterr().err
    assert (tmp_path / "in.nc").read_bytes() == before
    assert sorted(path.name for path in tmp_path.iterdir()) == ["in.nc", "other.zarr"]


def test_a_disk_that_is_too_small_is_told_before(dataset, tmp_path, monkeypatch, capsys):
    monkeypatch.setattr(comfortics.__main__, "_free", lambda _: 100)
    assert main([str(tmp_path / "in.nc"), str(tmp_path / "out.nc"), "--indices", "utci", "--quiet"]) == 1
    assert "out.nc is not written: It takes" in capsys.readouterr().err
    assert [path.name for path in tmp_path.iterdir()] == ["in.nc"]


def test_a_disk_that_fills_leaves_what_there_was(tmp_path):
    source, out = tmp_path / "station.csv", tmp_path / "out.csv"
    source.write_text("ta,td\n" + "30,15\n" * 3000)
    out.write_text("old")
    run = subprocess.run([sys.executable, "-m", "comfortics", source, out, "--indices", "90"], capture_output=True, text=True,
                         preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (4096, 4096)))
    assert run.returncode == 1 and "out.csv is not written: File too large." in run.stderr.splitlines()[-1]
    assert out.read_text() == "old" and sorted(path.name for path in tmp_path.iterdir()) == ["out.csv", "station.csv"]
