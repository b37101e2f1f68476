# SPDX-License-Identifier: GPL-3.0-or-later
"""What models of standards read of people, from what one has of them.

Metabolic rates by activity and in other units, the insulation of clothes worn together, and what outdoor temperatures
tell of both::

    >>> from comfortics import models, person
    >>> met = person.activities["typing"].rate
    >>> clo = person.insulation("t_shirt", "trousers_thin", "ankle_socks", "shoes")
    >>> round(float(models.pmv_iso(ta=26, tr=26, v=0.1, rh=50, met=met, clo=clo)["pmv"]), 2)
    -0.02
"""

from __future__ import annotations

import sys
import types
from collections.abc import Mapping
from dataclasses import dataclass
from typing import Any, Literal

import numpy

from comfortics import _comfortics
from comfortics._arrays import is_lazy, numbers
from comfortics._calculate import _said
from comfortics._errors import did_you_mean
from comfortics._units import _folded, cf, convert

__all__ = ["Activity", "Garment", "WorkClothing", "activities", "chairs", "clothing_by_weather",
           "convert_metabolic_rate", "ensembles", "garments", "insulation", "running_mean", "work_clothing"]

_UNITS = ("met", "W/m²", "W", "W above basal")
_DAYS = 7


@dataclass(frozen=True)
class Activity:
    """Something to do, and the metabolic rate that goes with it."""

    id: str
    name: str
    rate: float  #: in `unit`
    unit: str  #: "met", or "W" of the whole body
    source: str


@dataclass(frozen=True)
class Garment:
    """A piece of clothing, a set of them, or what a chair adds."""

    id: str
    name: str
    clo: float  #: insulation [clo]; 1 clo is 0.155 m²K/W


@dataclass(frozen=True)
class WorkClothing:
    """Clothing at work in the heat, as the option `work_clothing` of the model wbgt_iso7243 names it."""

    id: str
    name: str
    adjustment: float  #: what it adds to the wet-bulb globe temperature by ISO 7243 [K]


def _by_id(kind, rows) -> Mapping[str, Any]:
    return types.MappingProxyType({row[0]: kind(*row) for row in rows})


_activities, _ensembles, _garments, _chairs, _clothing = _comfortics.person_tables()

#: The activities of ASHRAE 55 in met, then the classes of ISO 8996 in W, by their ids.
activities: Mapping[str, Activity] = _by_id(Activity, _activities)
#: Ensembles of ASHRAE 55.
ensembles: Mapping[str, Garment] = _by_id(Garment, _ensembles)
#: Single garments of ASHRAE 55.
garments: Mapping[str, Garment] = _by_id(Garment, _garments)
#: Chairs of ASHRAE 55, which add to the insulation of what is worn.
chairs: Mapping[str, Garment] = _by_id(Garment, _chairs)
#: The work clothing of ISO 7243.
work_clothing: Mapping[str, WorkClothing] = _by_id(WorkClothing, _clothing)


def insulation(*worn: str) -> float:
    """The insulation of garments worn together [clo]: 0.835 of their sum and 0.161 (ISO 9920, 2007).

    Parameters
    ----------
    *worn : str
        Ids of `garments`, and at most one of `chairs`, whose own insulation is added.

    Raises
    ------
    ValueError
        There is none of that id, or one is named twice.

    Examples
    --------
    >>> round(person.insulation("t_shirt", "trousers_thin", "ankle_socks", "shoes"), 3)
    0.386
    """
    for one in worn:
        if not isinstance(one, str):
            raise TypeError(f"A garment is named by its id, not by {one!r}.")
        if one.lower() not in garments and one.lower() not in chairs:
            raise ValueError(f"There is no garment {one!r}.{did_you_mean(one, [*garments, *chairs])}")
    return _said(_comfortics.insulation_of_garments, tuple(worn))


def clothing_by_weather(temperature: Any) -> Any:
    """The clothing that people in offices choose by the weather (Schiavon and Lee, 2013) [clo], 0.46 to 1.

    Parameters
    ----------
    temperature : array_like
        Outdoor air temperature at six in the morning [°C]; a DataArray is converted by its attribute `units`.

    Returns
    -------
    ndarray, scalar or as `temperature`
        NaN where it is missing or not within -100 to 150 °C.

    Examples
    --------
    >>> float(person.clothing_by_weather(30))
    0.46
    """
    return _on_arrays(_clothing_block, [_in_celsius(temperature)], ["temperature"],
                      {"units": "clo", "long_name": "Clothing insulation by the weather"})


def convert_metabolic_rate(rate: Any, source: str, wanted: str, *, weight: Any = None, height: Any = None,
                           age: Any = None, sex: Any = None, surface: Any = None) -> Any:
    """Take metabolic rates, or external work, from one unit to another. 1 met is 58.15 W/m².

    Parameters
    ----------
    rate : array_like
        In the unit `source`, at least 0.
    source, wanted : {"met", "W/m²", "W", "W above basal"}
        W are those of the whole body; the last have the basal rate taken off, as `activity_w` of PET. "W/m2" and
        "W m-2" are W/m², too.
    weight, height, age : array_like
        Of the body [kg, m, years]. Between met and W/m² none is read; between these and W its surface, or weight and
        height; to and from the rate above the basal one weight, height, age and sex.
    sex : array_like
        0 for male, 1 for female, or these words for all.
    surface : array_like
        Of the body [m²]; else that of DuBois, 0.202 weight^0.425 height^0.725.

    Returns
    -------
    ndarray, scalar or as the inputs
        NaN where the rate is missing or below 0, or the body is one that nobody has. A rate below the basal one gives a
        negative rest.

    Raises
    ------
    ValueError
        The unit is not known, or an input of the body is lacking.

    Examples
    --------
    >>> float(person.convert_metabolic_rate(2.0, "met", "W/m²"))
    116.3
    >>> float(person.convert_metabolic_rate(300, "W", "W/m²", surface=1.8).round(1))
    166.7
    """
    places = _unit_place(source), _unit_place(wanted)
    if isinstance(sex, str):
        if sex.lower() not in ("male", "female"):
            raise ValueError(f"sex is to be 'male' or 'female', not {sex!r}.")
        sex = float(sex.lower() == "female")
    body = {"weight": weight, "height": height, "age": age, "sex": sex, "surface": surface}
    given = {"rate": rate} | {name: value for name, value in body.items() if value is not None}
    for name, value in given.items():
        _refuse_other_unit(name, value, {"rate": _UNITS[places[0]].split()[0], "weight": "kg", "height": "m",
                                         "age": "years", "sex": "1", "surface": "m²"}[name])
    return _on_arrays(_rate_block, list(given.values()), list(given),
                      {"units": cf(_UNITS[places[1]].split()[0]), "long_name": "Metabolic rate"},
                      names=tuple(given), places=places)


def running_mean(daily: Any, alpha: float | Literal["fixed"] = 0.8, *, axis: int = -1, dim: str | None = None) -> Any:
    """The running mean of the outdoor temperature, as adaptive_ashrae and adaptive_en read it [°C].

    Of each day by the seven before it, each weighing alpha of the one after it (ASHRAE 55, EN 16798-1).

    Parameters
    ----------
    daily : array_like
        Daily means of the outdoor air temperature, day by day without gaps [°C]; a DataArray is converted by its
        attribute `units`.
    alpha : float or "fixed"
        0.6 to 0.9, or the fixed weights of EN 16798-1: 1, 0.8, 0.6, 0.5, 0.4, 0.3, 0.2 over 3.8.
    axis : int
        Of the days, in an array.
    dim : str
        Of the days, in a DataArray: "time", or the only one.

    Returns
    -------
    ndarray or as `daily`
        Of its shape. NaN for the first seven days, and where one of the seven is missing or not within -100 to 150 °C.

    Raises
    ------
    ValueError
        Alpha is not within its range, or there is no such dimension.

    Examples
    --------
    >>> float(person.running_mean([20, 21, 22, 23, 24, 25, 26, 20])[-1].round(2))
    23.86
    """
    if isinstance(alpha, str):
        if alpha != "fixed":
            raise ValueError(f"alpha is to be a number from 0.6 to 0.9 or 'fixed', not {alpha!r}.")
        weight = None
    else:
        weight = float(alpha)
        if not 0.6 <= weight <= 0.9:
            raise ValueError(f"alpha is to be from 0.6 to 0.9, not {alpha:g}.")
    daily = _in_celsius(daily)
    xarray = sys.modules.get("xarray")
    if xarray is not None and isinstance(daily, xarray.DataArray):
        dim = dim or ("time" if "time" in daily.dims else daily.dims[0] if daily.ndim == 1 else None)
        if dim not in daily.dims:
            raise ValueError("dim is to name the dimension of the days.")
        if daily.chunks:
            daily = daily.chunk({dim: -1})
        means = xarray.apply_ufunc(_mean_block, daily, kwargs={"alpha": weight}, input_core_dims=[[dim]],
                                   output_core_dims=[[dim]], dask="parallelized", output_dtypes=[float])
        means = means.transpose(*daily.dims)
        means.attrs = {"units": "degC", "long_name": "Running mean outdoor temperature"}
        return means
    if is_lazy(daily):
        import dask.array

        daily = dask.array.moveaxis(daily, axis, -1).rechunk({-1: -1})
        means = dask.array.apply_gufunc(_mean_block, "(n)->(n)", daily, output_dtypes=float, alpha=weight)
        return dask.array.moveaxis(means, -1, axis)
    pandas = sys.modules.get("pandas")
    if pandas is not None and isinstance(daily, pandas.Series):
        return pandas.Series(_mean_block(numbers(daily, "daily"), weight), index=daily.index)
    array = numbers(daily, "daily")
    if array.ndim == 0:
        raise ValueError("daily is to be an array of days, not one number.")
    return numpy.moveaxis(_mean_block(numpy.moveaxis(array, axis, -1), weight), -1, axis)


def _mean_block(daily, alpha):
    daily = numbers(daily, "daily")
    means = numpy.full(daily.shape, numpy.nan)
    if daily.shape[-1] > _DAYS and daily.size:
        days = tuple(daily[..., _DAYS - 1 - back:-1 - back] for back in range(_DAYS))
        means[..., _DAYS:] = _said(_comfortics.running_mean_arrays, days, alpha)
    return means


def _clothing_block(temperature):
    return _said(_comfortics.clothing_by_weather_array, numbers(temperature, "temperature"))


def _rate_block(*arrays, names, places):
    arrays = numpy.broadcast_arrays(*map(numbers, arrays, names))
    given = dict(zip(names, arrays))
    body = (given.get(name) for name in ("weight", "height", "age", "sex", "surface"))
    return _said(_comfortics.metabolic_rate_arrays, given["rate"], *places, *body)


def _on_arrays(block, arrays, inputs, attributes, **options):
    """Calls `block` with arrays of any kind, which broadcast; `inputs` are their names."""
    xarray = sys.modules.get("xarray")
    if xarray is not None and any(isinstance(value, xarray.DataArray) for value in arrays):
        result = xarray.apply_ufunc(block, *arrays, kwargs=options, dask="parallelized", join="exact",
                                    output_dtypes=[float])
        result.attrs = attributes
        return result
    if any(map(is_lazy, arrays)):
        import dask.array

        return dask.array.apply_gufunc(block, ",".join(["()"] * len(arrays)) + "->()", *arrays, output_dtypes=float,
                                       **options)
    pandas = sys.modules.get("pandas")
    series = [value for value in arrays if pandas is not None and isinstance(value, pandas.Series)]
    for other in series[1:]:
        if not other.index.equals(series[0].index):
            raise ValueError("The Series have different indexes.")
    plain = [numbers(value, name) for value, name in zip(arrays, inputs)]
    result = block(*plain, **options)
    return pandas.Series(result, index=series[0].index) if series else result[()]


def _in_celsius(values):
    units = getattr(values, "attrs", {}).get("units")
    return values if units in (None, "") else convert(values, units, "°C")


def _refuse_other_unit(name, value, unit):
    told = getattr(value, "attrs", {}).get("units")
    if told not in (None, "") and _folded(told) not in {_folded(unit), _folded(cf(unit))}:
        raise ValueError(f"{name} has the unit {str(told)!r}, and is to be in {unit}.")


def _unit_place(unit):
    folded = {_folded(one): place for place, one in enumerate(_UNITS)} | {_folded("W/m2"): 1, _folded("W m-2"): 1}
    if _folded(unit) not in folded:
        raise ValueError(f"There is no unit {unit!r} of metabolic rates.{did_you_mean(str(unit), _UNITS)}")
    return folded[_folded(unit)]
