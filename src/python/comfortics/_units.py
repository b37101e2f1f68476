# SPDX-License-Identifier: GPL-3.0-or-later
"""Units, in the catalogue's spelling and in that of data files."""

import sys
import unicodedata

import numpy

from comfortics import _comfortics
from comfortics._arrays import is_lazy, numbers
from comfortics._errors import did_you_mean

# Other spellings, as _folded writes them, of the symbols that the library knows.
_SPELLINGS = {
    "°C": "degc c celsius degree_celsius degrees_celsius deg_c deg.c degreec degreesc degree.c degrees.c degree.celsius "
          "degrees.celsius degree_c degrees_c",
    "K": "kelvin kelvins degk deg_k deg.k degree_kelvin degrees_kelvin",
    "F": "degf °f fahrenheit degree_fahrenheit degrees_fahrenheit deg_f deg.f degree.f "
         "degrees.f degree_f degrees_f",
    "m/s": "m.s-1 ms-1 meter.second-1 meters.second-1 meter/second meters/second meter.per.second meters.per.second mps "
           "m/sec m.sec-1",
    "km/h": "km.h-1 km.hr-1 km/hr kmh kmph kph km.hour-1 km/hour",
    "kn": "knot knots kt kts",
    "mph": "mi.h-1 mile.h-1 miles.h-1 mile.hour-1 miles.per.hour mi/h",
    "W/m²": "w.m-2 w/m2 wm-2 watt.m-2 watts.m-2 watt/m2 watts/m2",
    "kW/m2": "kw.m-2",
    "J/s/m2": "j.s-1.m-2 j.m-2.s-1",
}
# Beside those: what a dimension is divided or multiplied by. A reading is value * factor / divisor.
_PRESSURES = {"hpa": (1, 1), "mbar": (1, 1), "mb": (1, 1), "millibar": (1, 1), "pa": (1, 100), "kpa": (10, 1)}
_SHARES = {"%": (1, 1), "percent": (1, 1), "pct": (1, 1), "1": (100, 1), "fraction": (100, 1), "0-1": (100, 1), "(0.-.1)": (100, 1),
           "dimensionless": (100, 1)}
_NUMBERS = {"1": (1, 1), "": (1, 1), "-": (1, 1), "dimensionless": (1, 1)}
_ENERGIES = {"j.m-2": 1.0, "j/m2": 1.0, "kj.m-2": 1e3, "kj/m2": 1e3, "mj.m-2": 1e6, "mj/m2": 1e6}


def _folded(unit):
    """A unit without regard to case and to how powers, products and degrees are written."""
    text = unicodedata.normalize("NFKC", str(unit).replace("º", "°").replace("·", " ").replace("⋅", " "))
    text = text.lower().replace("**", "").replace("^", "").replace("−", "-").replace("metre", "meter")
    return ".".join(text.replace("*", " ").replace(".", " ").split())


_SYMBOLS = {_folded(symbol): (symbol, dimension) for symbol, _, dimension in _comfortics.units()}
for _one, _spelled in _SPELLINGS.items():
    for _other in _spelled.split():
        _SYMBOLS[_other] = _SYMBOLS[_folded(_one)]
_BASES = tuple(symbol for symbol, _, _ in _comfortics.units()[:3])
_DIMENSIONS = ("temperature", "speed", "radiation")

# How the catalogue's units are written in data files; the others stand as they are.
_CF = {"°C": "degC", "m/s": "m s-1", "W/m²": "W m-2", "[-]": "1", "kJ/kg": "kJ kg-1", "W/m2/K": "W m-2 K-1"}


def cf(unit):
    """A unit of the catalogue in the spelling of data files."""
    return _CF.get(unit, unit)


def _refuse(unit, name, dimension):
    known = {"temperature": "degC, K or degF", "speed": "m s-1, km h-1, kn or mph",
             "radiation": "W m-2, kW m-2, or with step J m-2, kJ m-2 or MJ m-2", "humidity": "% or 1", "pressure": "hPa, Pa or kPa"}
    raise ValueError(f"{name} has the unit {str(unit)!r}, which is not known for it; it can be in "
                     f"{known.get(dimension, '1')}.")


def conversion(unit, name, dimension, step=None):
    """How a reading comes from a unit: (unit of the library or None, factor, divisor)."""
    folded = _folded(unit)
    tables = {"pressure": _PRESSURES, "humidity": _SHARES, "number": _NUMBERS, "length": {"m": (1, 1)},
              "mass": {"kg": (1, 1)}}
    if dimension in tables:
        if folded not in tables[dimension]:
            _refuse(unit, name, dimension)
        return (None, *map(float, tables[dimension][folded]))
    if dimension == "radiation" and folded in _ENERGIES and not str(unit).strip().startswith("m"):  # no mJ
        if step is None:
            raise ValueError(f"{name} has the unit {str(unit)!r}: step must tell over how many seconds it is added up.")
        return (None, _ENERGIES[folded], seconds(step))
    symbol, which = _SYMBOLS.get(folded, (None, None))
    if symbol is None or _DIMENSIONS[which] != dimension:
        _refuse(unit, name, dimension)
    return (None if symbol in _BASES else symbol, 1.0, 1.0)


def seconds(step):
    """The seconds of a number, a timedelta or NumPy's timedelta64."""
    if hasattr(step, "total_seconds"):
        step = step.total_seconds()
    elif isinstance(step, numpy.timedelta64):
        step = step / numpy.timedelta64(1, "s")
    try:
        step = float(step)
    except (TypeError, ValueError):
        raise TypeError(f"step is to be seconds or a timedelta, not {step!r}.") from None
    if not 0 < step < float("inf"):
        raise ValueError(f"step must be longer than nothing, not {step:g} s.")
    return step


def _symbol(unit):
    symbol, _ = _SYMBOLS.get(_folded(unit), (None, None))
    if symbol is None:
        raise ValueError(f"There is no unit {unit!r}.{did_you_mean(unit, _SYMBOLS)}")
    return symbol


def _block(values, source, wanted):
    converted = _comfortics.convert_array(numbers(values, "The array"), source, wanted)
    return numpy.ma.array(converted, mask=values.mask) if isinstance(values, numpy.ma.MaskedArray) else converted


def convert(values, source, wanted):
    """Convert temperatures, speeds or radiation between units.

    Parameters
    ----------
    values : array_like
        Also a Series, a DataArray or a Dask array, which stay what they are.
    source, wanted : str
        Units such as "°C", "degF", "K", "m/s", "km h-1", "kn", "W/m²".

    Returns
    -------
    ndarray, scalar or as `values`
        In double precision.

    Raises
    ------
    ValueError
        A unit is not known, or the two measure different things.

    Examples
    --------
    >>> comfortics.convert(212, "degF", "degC")
    100.0
    """
    source, wanted = _symbol(source), _symbol(wanted)
    first, second = (_SYMBOLS[_folded(symbol)][1] for symbol in (source, wanted))
    if first != second:
        raise ValueError(f"{source} is a unit of {_DIMENSIONS[first]} and {wanted} one of {_DIMENSIONS[second]}.")
    xarray = sys.modules.get("xarray")
    if xarray is not None and isinstance(values, xarray.DataArray):
        result = xarray.apply_ufunc(_block, values, kwargs={"source": source, "wanted": wanted}, dask="parallelized",
                                    output_dtypes=[float], keep_attrs=True)
        result.attrs["units"] = cf(wanted)
        return result
    if is_lazy(values):
        return values.map_blocks(_block, source, wanted, dtype=float)
    frames = sys.modules.get("dask.dataframe")
    if frames is not None and isinstance(values, (frames.Series, frames.DataFrame)):
        return values.map_partitions(convert, source, wanted)
    pandas = sys.modules.get("pandas")
    if pandas is not None and isinstance(values, pandas.DataFrame):
        return values.apply(convert, args=(source, wanted))
    if pandas is not None and isinstance(values, pandas.Series):
        return values._constructor(_block(values, source, wanted), index=values.index).__finalize__(values)
    return _block(values, source, wanted)[()]
