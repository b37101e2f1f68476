# SPDX-License-Identifier: GPL-3.0-or-later
"""The published classes of values, on whatever arrays they are asked for."""
import comfortics
import dask.array
import dask.dataframe
import numpy
import pandas
import pytest
import xarray
from comfortics.__main__ import main

NONE = -1
# Air temperatures [°C] and winds at 1.1 m [m/s]; beside each the class and the severity of index 211 and of 90 at a dew
# point of 15 °C, by hand: the wind chill is (13.12 + 0.6215 Ta) + (0.3965 Ta - 11.37) v**0.16 with v in km/h at 10 m, the
# humidex Ta + 0.5555 (17.06 - 10). No class where the air is not that of the index, or is missing.
POINTS = [
    (-38.0, 5.0, "extreme risk: bare skin freezes in under 2 minutes", -4, None, None),  # -55.6
    (-20.0, 5.0, "high risk: bare skin freezes in 10 to 30 minutes", -3, None, None),  # -32.2
    (-5.0, 5.0, "moderate risk: uncomfortable, hypothermia on long stays", -2, None, None),  # -12.7
    (5.0, 5.0, "no wind chill hazard", 0, None, None),  # 0.2
    (24.0, 5.0, None, None, "little or no discomfort", 0),  # 27.9
    (30.0, 5.0, None, None, "some discomfort", 1),  # 33.9
    (-20.0, 18.0, None, None, None, None),  # too windy
    (56.0, 5.0, None, None, None, None),  # too hot
    (numpy.nan, 5.0, None, None, None, None),
]
CHILL, HUMIDEX = comfortics.indices["wind_chill_noaa"], comfortics.indices["humidex_masterson"]


def places(row, labels):
    known = [category.label for category in row.categories]
    return [NONE if label is None else known.index(label) for label in labels]


TA, WS, *EXPECTED = (list(column) for column in zip(*POINTS))
CHILLS, HUMIDEXES = places(CHILL, EXPECTED[0]), places(HUMIDEX, EXPECTED[2])
SEVERITIES = numpy.array([EXPECTED[1], EXPECTED[3]], dtype=float)
ASKED = {"indices": ["wind_chill_noaa", "humidex_masterson", "Es"], "categories": True}


def check(found):
    assert list(found["wind_chill_noaa_category"]) == CHILLS
    assert list(found["humidex_masterson_category"]) == HUMIDEXES
    numpy.testing.assert_array_equal(found["wind_chill_noaa_severity"], SEVERITIES[0])
    numpy.testing.assert_array_equal(found["humidex_masterson_severity"], SEVERITIES[1])
    assert "saturation_vapour_pressure_category" not in found


@pytest.mark.parametrize("options", [{}, {"limits": False}, {"threads": 2}])
@pytest.mark.parametrize("dtype", ["f8", "f4"])
def test_arrays_get_the_places_of_their_classes(options, dtype):
    found = comfortics.calculate(ta=numpy.array(TA, dtype), ws=numpy.array(WS, dtype), td=15.0, **ASKED, **options)
    check(found)
    assert found["wind_chill_noaa_category"].dtype == numpy.int8


def test_lazy_arrays_and_cubes_get_the_same():
    ta, ws = (dask.array.from_array(numpy.array(column), chunks=2) for column in (TA, WS))
    check(comfortics.calculate(ta=ta, ws=ws, td=15.0, status=True, **ASKED))
    cube = {"ta": xarray.DataArray(ta, dims="point"), "ws": xarray.DataArray(ws, dims="point"), "td": 15.0}
    found = comfortics.calculate(**cube, **ASKED)
    check(found.compute())
    told = found["humidex_masterson_category"].attrs
    assert told["flag_values"].tolist() == [-1, 0, 1, 2, 3, 4]
    assert told["flag_meanings"].split()[3] == "great_discomfort"
    assert len(found["wind_chill_noaa_category"].attrs["flag_meanings"].split()) == len(CHILL.categories) + 1


def test_series_get_categoricals():
    table = pandas.DataFrame({"ta": TA, "ws": WS}, index=pandas.RangeIndex(5, 14))
    parted = dask.dataframe.from_pandas(table, npartitions=3)
    lazy = comfortics.calculate(ta=parted["ta"], ws=parted["ws"], td=15.0, **ASKED)
    whole = comfortics.calculate(ta=table["ta"], ws=table["ws"], td=15.0, **ASKED)
    for found in (whole, lazy.compute()):
        classes = found["wind_chill_noaa_category"]
        assert classes.cat.ordered and [None if label is numpy.nan else label for label in classes] == EXPECTED[0]
        check(found.assign(**{f"{row.id}_category": found[f"{row.id}_category"].cat.codes for row in (CHILL, HUMIDEX)}))
        assert found.index.equals(table.index)
    assert lazy.dtypes.to_dict() == whole.dtypes.to_dict()


# The mean vote tells on which side those are who are dissatisfied: cold on the first point, hot on the second.
@pytest.mark.parametrize("rules", ["precise", "classic", "robust"])
def test_by_all_rules_the_severity_has_its_sign(rules):
    name = "predicted_dissatisfied_resting_da_silva"
    found = comfortics.calculate(ta=[8.0, 44.0], rh=50.0, ws=1.0, sr=[0.0, 700.0], indices=["utci", name], rules=rules,
                                 categories=True)
    cold, hot = found[name + "_severity"]
    assert cold < 0 < hot
    labels = [category.label for category in comfortics.indices["utci"].categories]
    assert [labels[place] for place in found["utci_category"]] == ["slight cold stress", "extreme heat stress"]


def test_a_stations_table_has_the_words(tmp_path):
    source, out = tmp_path / "station.csv", tmp_path / "classes.csv"
    source.write_text("ta,td\n30,15\n10,5\n")
    assert main([str(source), str(out), "--indices", "90", "--categories", "--quiet"]) == 0
    found = pandas.read_csv(out)
    assert found["humidex_masterson_category"][0] == "some discomfort" and found["humidex_masterson_category"].isna()[1]
    assert found["humidex_masterson_severity"].isna().tolist() == [False, True]
