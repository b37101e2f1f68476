# SPDX-License-Identifier: GPL-3.0-or-later
"""The models of standards; expected figures are those of the standards and papers."""
import pickle

import dask.array
import numpy
import pandas
import pytest
import xarray

import comfortics
from comfortics import ModelStatus, models

ROOM = dict(tr=26.0, v=0.15, rh=50.0, met=1.2, clo=0.5)


def test_numbers_give_numbers_and_arrays_broadcast():
    assert models.pmv_iso(ta=26, **ROOM)["pmv"] == pytest.approx(0.2546, abs=5e-5)
    votes = models["pmv_iso"](ta=[[20.0], [26.0]], **(ROOM | dict(clo=numpy.array([0.5, 1.0, 1.5]))), threads=2)["pmv"]
    assert votes.shape == (2, 3)
    assert votes[1, 0] == pytest.approx(0.2546, abs=5e-5)
    assert (numpy.diff(votes, axis=0) > 0).all() and (numpy.diff(votes, axis=1) > 0).all()
    single = models.pmv_iso(ta=numpy.float32([26, numpy.nan]), **ROOM)["pmv"]
    assert single.dtype == numpy.float32 and numpy.isnan(single[1])


def test_words_and_what_stands_for_the_humidity():
    sitting = models.two_node(ta=16, tr=14, v=0.5, rh=40, met=1.2, clo=1.2, posture="sitting")
    assert sitting["set"] == pytest.approx(19.039, abs=5e-4)
    assert models.pet(ta=35, tr=50, v=2, ea=18, results="pet")["pet"] == pytest.approx(40.704, abs=5e-4)
    strain = models.phs_2023(ta=36, tr=36, v=0.2, rh=62, metabolic_w=380, clo=0.6, posture="sitting", acclimatised=False)
    assert strain["t_re"] == pytest.approx(43.835, abs=5e-4)
    assert strain["d_lim_tre"] == 35


def test_what_is_outside_is_marked_or_blank():
    hot = dict(ta=[26.0, 42.0, numpy.nan], **ROOM)
    marked = models.pmv_iso(**hot, status=True)
    assert list(marked["pmv_status"]) == [ModelStatus.OK, ModelStatus.OUTSIDE, ModelStatus.NONE]
    assert not numpy.isnan(marked["pmv"][1])
    blank = models.pmv_iso(**hot, status=True, limits="blank")
    assert numpy.isnan(blank["pmv"][1]) and blank["pmv_status"][1] == ModelStatus.NONE
    assert models.pmv_iso.explain(ta=42, **ROOM) == (
        "Outside the range of the standard: the air temperature is 42 °C, valid from 10 to 30 °C.")


def test_containers_stay_what_they_are():
    times = pandas.date_range("2024-07-01", periods=3, freq="h")
    ta = pandas.Series([24.0, 26.0, 28.0], times)
    plain = models.pmv_iso(ta=ta.to_numpy(), **ROOM)["pmv"]
    frame = models.pmv_iso(ta=ta, **ROOM)
    assert list(frame.index) == list(times) and (frame["pmv"] == plain).all()

    kelvin = xarray.DataArray(ta.to_numpy() + 273.15, dims="time", coords={"time": times}, attrs={"units": "K"})
    dataset = models.pmv_iso(ta=kelvin, **ROOM, status=True)
    numpy.testing.assert_allclose(dataset["pmv"], plain, atol=1e-9)
    assert dataset["ppd"].attrs["units"] == "%" and dataset["pmv_status"].dtype == numpy.int8

    lazy = models.pmv_iso(ta=dask.array.from_array(ta.to_numpy(), chunks=2), **ROOM, results=["ppd", "pmv"])
    assert isinstance(lazy["pmv"], dask.array.Array)
    assert (lazy["pmv"].compute() == plain).all()


def test_courses_go_by_the_minute():
    course = models.phs_2004.course(ta=40, tr=40, v=0.3, ea=25, metabolic_w_m2=150, clo=0.5, posture="standing",
                                    acclimatised=True)
    assert course.sizes == {"minute": 480} and course.minute[0] == 1
    assert course["t_re"][-1] == pytest.approx(37.525, abs=5e-4)
    assert models.two_node.course(ta=25, tr=25, v=0.1, rh=50, met=1, clo=0.6)["t_skin"][-1] == pytest.approx(33.939, abs=5e-4)
    with pytest.raises(ValueError, match="utci has no course"):
        models.utci.course(ta=25, tr=25, v=1, rh=50)


@pytest.mark.parametrize("model, inputs, error, says", [
    ("pmv_iso", dict(ROOM), TypeError, r"pmv_iso\(\) needs ta, the air temperature \[°C\]\."),
    ("pmv_iso", dict(ROOM, tA=26), TypeError, r"has no input 'tA'\. Did you mean 'ta'\?"),
    ("pmv_iso", dict(ROOM, ta="warm"), TypeError, "ta is to be a number"),
    ("pmv_iso", dict(ROOM, ta=26, motion="run"), ValueError, "motion has no word 'run', only 'none', 'ashrae', 'iso'"),
    ("pmv_iso", dict(ROOM, ta=26, limits="clip"), ValueError, "limits is to be 'mark' or 'blank'"),
    ("pmv_iso", dict(ROOM, ta=26, results="pvm"), ValueError, "pmv_iso has no result 'pvm'"),
    ("pmv_iso", dict(ROOM, ta=[1, 2], tr=[1, 2, 3]), ValueError, "do not broadcast"),
    ("pet", dict(ta=30, tr=60, v=1, rh=50, ea=21), ValueError, "Both rh and ea of pet are given"),
    ("pmv_iso", dict(ROOM, ta=xarray.DataArray([26], attrs={"units": "hPa"})), ValueError, "ta has the unit 'hPa'"),
    ("pmv_iso", dict(ROOM, ta=26, met=xarray.DataArray([1], attrs={"units": "W"})), ValueError, "is to be in met"),
])
def test_errors_are_of_the_usual_types(model, inputs, error, says):
    with pytest.raises(error, match=says):
        models[model](**inputs)


def test_the_catalogue():
    assert len(models) == len(list(models)) == len(models.to_pandas())
    assert [one.id for one in models.search("heat strain")] == ["phs_2004", "phs_2023"]
    with pytest.raises(comfortics.UnknownIndexError, match="Did you mean 'pmv_iso'"):
        models["pmv_izo"]
    with pytest.raises(AttributeError):
        models.pmv
    for one in models:
        assert all(f"\n{each.id} : " in one.__doc__ for each in one.inputs)
    assert pickle.loads(pickle.dumps(comfortics.ModelStatus.OK)) is ModelStatus.OK
