# SPDX-License-Identifier: GPL-3.0-or-later
"""The sun of a place and a time."""

import datetime
import sys

import numpy

from comfortics import _comfortics
from comfortics._arrays import is_lazy, numbers

_NAMES = ("horizontal", "tilted", "horizontal_clouds", "tilted_clouds")
_NO_USE = "time has a time zone, so there is no use for utc_offset."
_MINUTE = numpy.timedelta64(60, "s")


def _moments(time, offset):
    """Times as NumPy has them; those that know their zone in UTC."""
    array = numpy.asarray(time)
    if array.dtype.kind in "OU":
        items = [_moment(item, offset) for item in array.ravel()]
        try:
            array = numpy.array(items, "datetime64[ns]").reshape(array.shape)
        except ValueError as error:
            raise ValueError(f"time holds what is no time: {error}.") from None
    if array.dtype.kind != "M":
        raise TypeError(f"time is to hold times, not {array.dtype}.")
    return array


def _moment(item, offset):
    if getattr(item, "tzinfo", None) is not None:
        if not numpy.isnan(offset).all():
            raise ValueError(_NO_USE)
        return item.astimezone(datetime.timezone.utc).replace(tzinfo=None)
    if item is None or isinstance(item, (str, numpy.datetime64)):
        return item
    if not hasattr(item, "isoformat"):
        raise TypeError(f"time is to hold times, not {item!r}.")
    return item.isoformat()


def _figures(latitude, longitude, time, offset, cloudiness):
    """The four arrays; `offset` is that of the clock that `time` tells, NaN for UTC."""
    arrays = numpy.broadcast_arrays(latitude, longitude, _moments(time, offset), offset, cloudiness)
    latitude, longitude, time, offset, cloudiness = arrays
    # Around noon, where the formulas are at home, the place's own hour is the clock.
    own = numpy.where(numpy.isnan(offset), numpy.clip(numpy.round(longitude / 15), -12, 12), offset)
    unknown = numpy.isnat(time) | numpy.isnan(own)
    shift = numpy.where(numpy.isnan(offset) & ~unknown, own, 0)
    clock = time.astype("datetime64[ns]") + (shift * 3600e9).astype("timedelta64[ns]")
    day = clock.astype("datetime64[D]")
    of_year = (day - day.astype("datetime64[Y]").astype("datetime64[D]")) / numpy.timedelta64(1, "D") + 1
    minute = (clock - day.astype("datetime64[ns]")) / _MINUTE
    day_of_year, minute = (numpy.where(unknown, numpy.nan, part) for part in (of_year, minute))
    return _comfortics.solar_radiation_arrays(latitude, longitude, day_of_year, minute, own, cloudiness)


def _lazily(*inputs):
    import dask.array

    return dask.array.apply_gufunc(_figures, "(),(),(),(),()->(),(),(),()", *inputs, output_dtypes=[float] * 4)


def solar_radiation(lat, lon, time, *, utc_offset=None, cloudiness=0):
    """Estimate the solar radiation of places and times.

    Declination by Cooper (1969), geometry by Duffie and Beckman (2013), clear sky by the ASHRAE coefficients as Masters
    (2004) fits them, clouds by Kasten and Czeplak (1980), an albedo of 0.3.

    Parameters
    ----------
    lat, lon : array_like
        Latitude, north positive, and longitude, east positive, from -180 to 180 [degrees].
    time : array_like of datetime64
        In UTC, or with `utc_offset` of the place's clock.
    utc_offset : array_like
        Of the clock that `time` tells [h].
    cloudiness : array_like
        Whole numbers from 0 to 8 [okta].

    Returns
    -------
    dict, pandas.DataFrame or xarray.Dataset
        "horizontal" and "tilted" (to the equator by the latitude) under a clear sky, "horizontal_clouds" and
        "tilted_clouds" [W/m²]: arrays, a frame where `time` is a DatetimeIndex or a Series, a dataset for DataArrays.
        0 with the sun below the horizon, NaN where an input is missing or out of range.

    Examples
    --------
    >>> sun = comfortics.solar_radiation(48.2, 16.4, "2024-06-21T11:00")
    >>> 700 < sun["horizontal"] < 1000
    True
    """
    offset = numpy.nan if utc_offset is None else utc_offset
    inputs = (lat, lon, time, offset, cloudiness)
    if any(map(is_lazy, inputs)):
        return dict(zip(_NAMES, _lazily(lat, lon, _moments(time, offset) if not is_lazy(time) else time, offset, cloudiness)))
    xarray = sys.modules.get("xarray")
    if xarray is not None and any(isinstance(value, xarray.DataArray) for value in inputs):
        results = xarray.apply_ufunc(_figures, *inputs, output_core_dims=[()] * 4, dask="parallelized",
                                     output_dtypes=[float] * 4)
        dataset = xarray.Dataset(dict(zip(_NAMES, results)))
        for name in _NAMES:
            dataset[name].attrs = {"units": "W m-2", "long_name": f"Solar radiation, {name.replace('_', ', ')}"}
        return dataset
    pandas = sys.modules.get("pandas")
    if pandas is not None and isinstance(time, (pandas.DatetimeIndex, pandas.Series)):
        moments = pandas.DatetimeIndex(time)
        if moments.tz is not None:
            if utc_offset is not None:
                raise ValueError(_NO_USE)
            moments = moments.tz_convert("UTC").tz_localize(None)
        others = (numpy.asarray(value) for value in (lat, lon))
        results = _figures(*others, moments.to_numpy(), numpy.asarray(offset), numpy.asarray(cloudiness))
        return pandas.DataFrame(dict(zip(_NAMES, results)), index=getattr(time, "index", time))
    return {name: array[()] for name, array in zip(_NAMES, _figures(*inputs))}
