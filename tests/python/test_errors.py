# SPDX-License-Identifier: GPL-3.0-or-later
import re

import comfortics
import numpy
import pandas
import pytest


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
    (TypeError, "ta holds what is no number", dict(ta=["warm", None], rh=1, indices=90)),
    (TypeError, "ta is to hold numbers, not complex128", dict(ta=numpy.array([1j]), rh=1, indices=90)),
    (TypeError, "ta is to hold numbers, not datetime64", dict(ta=numpy.array(["2024"], "M8[s]"), rh=1, indices=90)),
    (KeyError, "There is no index or quantity 'utcii'. Did you mean 'utci'", dict(ta=1, indices=["utcii"])),
    (KeyError, "There is no index or quantity 'humidx'. Did you mean 'humidex_masterson'", dict(ta=1, indices="humidx")),
    (KeyError, "There is no index 223, they go from 1 to 222", dict(ta=1, indices=223)),
    (KeyError, "There is no index 0,", dict(ta=1, indices=0)),
    (KeyError, "is the ufunc of no index", dict(ta=1, indices=numpy.sin)),
    (TypeError, "not by 1.5", dict(ta=1, indices=[1.5])),
])
def test_a_wrong_call_is_told_in_a_sentence(error, said, call):
    with pytest.raises(error, match=re.escape(said)) as caught:
        comfortics.calculate(**call)
    assert str(caught.value).count("\n") == 0


def test_units_that_are_not_known_are_named():
    with pytest.raises(ValueError, match="There is no unit 'degK2'. Did you mean 'degk'"):
        comfortics.convert(1, "degK2", "degC")
    with pytest.raises(ValueError, match="°C is a unit of temperature and m/s one of speed"):
        comfortics.convert(1, "degC", "m/s")
