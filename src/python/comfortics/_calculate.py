# SPDX-License-Identifier: GPL-3.0-or-later
"""From readings to indices, on whatever arrays they come in."""

import operator
import re
import sys
from dataclasses import dataclass

import numpy

from comfortics import _comfortics
from comfortics._arrays import is_lazy, numbers
from comfortics._catalogue import Index, Quantity, Status, target, targets
from comfortics._errors import did_you_mean
from comfortics._units import cf, conversion

# The inputs of the compiled module, in its order: readings, then site and body. What each measures tells the units
# that it may come in.
READINGS = {"ta": "temperature", "tg": "temperature", "sr": "radiation", "td": "temperature", "rh": "humidity",
             "ws": "speed"}
_ASSUMPTIONS = {"wind_exponent": "number", "barometric_pressure": "pressure", "emissivity": "number",
                "effective_radiating_area": "number", "body_height": "length", "body_mass": "mass"}
_INPUTS = READINGS | _ASSUMPTIONS
_PAIRS = (("tg", "sr"), ("td", "rh"))  # each is derived from the other
_RULES = ("precise", "classic", "robust")
_AS_IS = (None, 1.0, 1.0)
_WIND_EXPONENT = _comfortics.wind_exponent  # where none is given
_NO_SEVERITY = -128  # of the library
_NAMES_HERE = {"airTemperature": "ta", "globeTemperature": "tg", "solarRadiation": "sr", "dewPoint": "td",
               "relativeHumidity": "rh", "windSpeed": "ws"}


@dataclass(frozen=True)
class _Plan:
    """One call, but for the arrays: what Dask sends to its workers."""

    names: tuple  #: of the inputs that are arrays
    constants: tuple  #: (name, number) of the others
    conversions: tuple  #: (unit, factor, divisor) of each input
    targets: tuple  #: numbers of the compiled module
    rules: int
    limits: bool
    threads: int
    status: bool
    classes: tuple  #: places of the targets whose classes are wanted
    single: bool

    @property
    def dtype(self):
        return numpy.dtype(numpy.float32 if self.single else numpy.float64)

    @property
    def dtypes(self):
        count, classes = len(self.targets), len(self.classes)
        return ([self.dtype] * count + [numpy.dtype(numpy.int8)] * ((count if self.status else 0) + classes)
                + [numpy.dtype(numpy.float32)] * classes)

    def __call__(self, *arrays):
        """A tuple of the values, then of the statuses, the classes and the severities."""
        arrays = [numbers(array, name) for name, array in zip(self.names, arrays)]
        shape = _common_shape(self.names, arrays)
        given = dict(zip(self.names, arrays)) | {name: numpy.float64(value) for name, value in self.constants}
        inputs = tuple(None if name not in given else numpy.asarray(given[name]) for name in _INPUTS)
        values, statuses, categories, severities = _said(
            _comfortics.calculate_arrays, inputs, self.conversions, self.targets, self.rules, self.limits, self.threads,
            shape, self.single, self.status, self.classes)
        return (*values, *statuses, *categories, *map(_with_gaps, severities))

    def single_result(self, *arrays):
        return self(*arrays)[0]


def _with_gaps(severities):
    """NaN, which is neither mild nor severe, where there is none."""
    numbers = severities.astype(numpy.float32)
    numbers[severities == _NO_SEVERITY] = numpy.nan
    return numbers


def _said(function, *arguments):
    """Calls the compiled module, which speaks of the library's names."""
    try:
        return function(*arguments)
    except ValueError as error:
        text = str(error).removeprefix("comfortics: ")
        text = re.sub(r"\b[a-z]+[A-Z]\w+", lambda found: _NAMES_HERE.get(found[0], found[0]), text)
        raise ValueError(text + ".") from None


def _common_shape(names, arrays):
    """What the shapes broadcast to."""
    try:
        return numpy.broadcast_shapes(*(array.shape for array in arrays))
    except ValueError:
        shapes = " and ".join(f"{name} {array.shape}" for name, array in zip(names, arrays) if array.ndim)
        raise ValueError(f"The shapes {shapes} do not broadcast.") from None


def _kind(values, module, name):
    """Whether one of the values is of a class of a module that was imported."""
    loaded = sys.modules.get(module)
    return loaded is not None and any(isinstance(value, getattr(loaded, name)) for value in values)


def _is_number(value):
    return isinstance(value, (int, float)) and not isinstance(value, bool)


def _is_single(arrays):
    """Figures are in single precision where all arrays are, as those of a ufunc."""
    dtypes = [getattr(array, "dtype", None) for array in arrays if getattr(array, "ndim", 0)]
    if not dtypes:
        dtypes = [getattr(array, "dtype", None) for array in arrays]
    return bool(dtypes) and all(dtype in (numpy.float32, numpy.float16) for dtype in dtypes)


def _rules(rules):
    if rules not in _RULES:
        raise ValueError(f"There are no rules {rules!r}, only {', '.join(map(repr, _RULES))}."
                         f"{did_you_mean(rules, _RULES)}")
    return _RULES.index(rules)


def _given(readings, assumptions, rules):
    given = {name: value for name, value in (readings | assumptions).items() if value is not None}
    for one, other in _PAIRS:
        if one in given and other in given:
            raise ValueError(f"Both {one} and {other} are given, and each is derived from the other.")
        if rules and one not in given and other not in given:
            raise ValueError(f"By the {_RULES[rules]} rules {one} or {other} must be given.")
    for name in ("ta", "ws"):
        if rules and name not in given:
            raise ValueError(f"By the {_RULES[rules]} rules {name} must be given.")
    for name, value in given.items():
        _refuse_several(name, value)
    if not any(name in given for name in READINGS):
        raise ValueError("No reading is given.")
    return given


def one_of_each_pair(taken, named):
    """What was found for the readings, without the second of two of which one is enough; what was named stays."""
    taken = dict(taken)
    for one, other in _PAIRS:
        if one in taken and other in taken and not (named.get(one) and named.get(other)):
            del taken[one if named.get(other) else other]
    return taken


def _refuse_several(name, value):
    """Refuses what holds several arrays, or tells only later what it holds."""
    if hasattr(type(value), "data_vars"):
        raise TypeError(f"{name} is a dataset; give one of its variables, for instance {name}=dataset[{name!r}].")
    if hasattr(type(value), "columns"):
        raise TypeError(f"{name} is a table; give one of its columns, for instance {name}=table[{name!r}].")
    if hasattr(type(value), "__dask_graph__") and not hasattr(type(value), "dtype"):
        raise TypeError(f"{name} is a {type(value).__name__} of Dask, which is no array.")


def _threads(threads):
    count = operator.index(threads)
    if count < 0:
        raise ValueError(f"threads is to be 0 or more, not {count}.")
    return min(count, 1024)


def calculate(*, ta=None, tg=None, sr=None, td=None, rh=None, ws=None, indices="all", rules="precise", limits=True,
              wind_exponent=None, barometric_pressure=None, emissivity=None, effective_radiating_area=None,
              body_height=None, body_mass=None, status=False, categories=False, threads=1, step=None,
              wind_height=None):
    """Calculate indices from readings.

    What the indices need and was not measured is derived: globe, radiation, humidity, mean radiant temperature, wet
    bulbs and vapour pressures.

    Parameters
    ----------
    ta : array_like
        Air temperature [°C].
    tg, sr : array_like
        Globe temperature [°C] or solar radiation [W/m²]; one of the two.
    td, rh : array_like
        Dew point [°C] or relative humidity [%]; one of the two.
    ws : array_like
        Wind speed [m/s], 1.1 m above the ground.
    indices : str, int, ufunc, Index, Quantity or several of these
        What is calculated: ids or numbers of indices, ids or symbols of quantities ("tmrt"), or "all" indices. A name
        that both an index and a quantity have is the index's; `quantities` gives the other.
    rules : {"precise", "classic", "robust"}
        Precise calculates with the readings as they stand. Classic and robust give the numbers of the texts that
        the batch gives for the same readings: readings are rounded, and figures have the decimals of the catalogue.
    limits : bool
        Whether an index has a value only inside its limits.
    wind_exponent, barometric_pressure, emissivity, effective_radiating_area, body_height, body_mass : array_like
        What indices assume of site and body: 0.20, 1016 hPa, 0.97, 0.77, and the two numbers that the formula of
        DuBois reads, 0.75 and 180.
    status : bool
        Whether arrays of `Status` are given, too, named by the index and "_status".
    categories : bool
        Whether the classes of the values are given, too, for each index that has published ones: named by the index and
        "_category" their places among `Index.categories`, -1 for none (for Series a categorical of their labels), and
        by the index and "_severity" numbers from -4, extreme cold, over 0 to 4, extreme heat. There is no class without
        a value and outside the limits, which is so with `limits=False`, too.
    threads : int
        Threads that calculate, 0 for as many as the machine runs at once. No figure depends on it.
    step : float or timedelta
        The seconds over which radiation in J m-2 is added up.
    wind_height : float
        Height above the ground at which the wind is given [m], such as 10 for reanalyses. The wind is taken to 1.1 m by
        the power law with `wind_exponent`.

    Returns
    -------
    dict, pandas.DataFrame or xarray.Dataset
        A figure of each index, by id: arrays for NumPy and Dask (lazy), a frame for Series, a dataset for DataArrays.
        In double precision, unless all arrays are in single precision. NaN where there is no value.

    Raises
    ------
    ValueError
        Both of a pair are given, an index needs what is not given, shapes do not broadcast, or a unit is not known.
    UnknownIndexError
        A KeyError: there is no such index.

    Notes
    -----
    Readings are in the units above, but for DataArrays with an attribute `units`, which are converted.

    Examples
    --------
    >>> result = comfortics.calculate(ta=30.0, rh=50.0, ws=2.0, sr=600.0, indices=["utci", "humidex_masterson"])
    >>> {name: round(float(value), 1) for name, value in result.items()}
    {'utci': 36.7, 'humidex_masterson': 36.3}
    """
    number = _rules(rules)
    wanted = targets(indices)
    readings = dict(ta=ta, tg=tg, sr=sr, td=td, rh=rh, ws=ws)
    assumptions = dict(wind_exponent=wind_exponent, barometric_pressure=barometric_pressure, emissivity=emissivity,
                       effective_radiating_area=effective_radiating_area, body_height=body_height,
                       body_mass=body_mass)
    given = _given(readings, assumptions, number)
    options = dict(targets=tuple(one._target for one in wanted), rules=number, limits=bool(limits),
                   threads=_threads(threads), status=bool(status),
                   classes=tuple(place for place, one in enumerate(wanted) if categories and _has_classes(one)))
    divisor = _height_divisor(wind_height, wind_exponent)
    if _kind(given.values(), "xarray", "DataArray"):
        return _with_xarray(given, wanted, options, step, divisor)
    conversions = _lowered({}, divisor)
    if _kind(given.values(), "dask.dataframe", "Series"):
        return _with_dask_frames(given, wanted, options, conversions)
    if _kind(given.values(), "pandas", "Series"):
        return _with_pandas(given, wanted, options, conversions)
    plan, arrays = _plan(given, options, conversions)
    return _named(wanted, options, [array[()] for array in _calculated(plan, arrays)])


def _height_divisor(height, exponent):
    """By what wind of a height is divided to be that of 1.1 m."""
    if height is None:
        return 1.0
    height = _one_number(height, "wind_height is to be one number.")
    if not 0 < height < numpy.inf:
        raise ValueError(f"wind_height is to be more than 0 m, not {height:g}.")
    if exponent is not None:
        exponent = _one_number(exponent, "With wind_height the wind_exponent is to be one number.")
    return (height / 1.1) ** (_WIND_EXPONENT if exponent is None else exponent)


def _one_number(value, otherwise):
    try:
        array = numbers(value, "")
    except TypeError:
        array = None
    if array is None or array.size != 1:
        raise TypeError(otherwise)
    return float(array.reshape(())[()])


def _lowered(conversions, divisor):
    """The conversions, with that of the wind to 1.1 m."""
    if divisor == 1:
        return conversions
    unit, factor, other = conversions.get("ws", _AS_IS)
    return conversions | {"ws": (unit, factor, other * divisor)}


def _plan(given, options, conversions):
    """The plan of a call, and its arrays."""
    arrays = {name: value for name, value in given.items() if not _is_number(value)}
    if not arrays:  # numbers alone give numbers
        first = next(iter(given))
        arrays = {first: numpy.float64(given[first])}
    for name, value in arrays.items():
        if not isinstance(getattr(value, "dtype", None), numpy.dtype):
            arrays[name] = numbers(value, name)
    plan = _Plan(names=tuple(arrays), single=_is_single(arrays.values()),
                 constants=tuple((name, float(value)) for name, value in given.items() if name not in arrays),
                 conversions=tuple(conversions.get(name, _AS_IS) for name in _INPUTS), **options)
    return plan, list(arrays.values())


def _calculated(plan, arrays):
    """The arrays of a plan, lazy ones where some are."""
    return _lazily(plan, arrays) if any(map(is_lazy, arrays)) else plan(*arrays)


def _unknown_lengths(array):
    """Whether an array of Dask is of as many points as its making will tell."""
    return bool(numpy.isnan(array.shape).any())


def _lazily(plan, arrays):
    """One task for each block of the results, and for several results one that parts them."""
    import dask.array

    ndim = max(numpy.ndim(array) for array in arrays)
    block = tuple(range(ndim))[::-1]
    parts = []
    for name, array in zip(plan.names, arrays):
        if not is_lazy(array):
            array = dask.array.from_array(numbers(array, name), chunks=-1)
        parts += [array, block[:array.ndim][::-1]]
    if not any(map(_unknown_lengths, parts[::2])):
        _common_shape(plan.names, parts[::2])
    elif len({array.numblocks for array in parts[::2] if array.ndim}) > 1 or not all(
            _unknown_lengths(array) for array in parts[::2] if array.ndim):
        raise ValueError("Some arrays have chunks of unknown lengths, which their compute_chunk_sizes() would tell.")
    plan(*(numpy.empty(0, array.dtype) for array in parts[::2]))  # what is wrong is told now and not by a worker
    out = block[::-1]
    dtypes = plan.dtypes

    def empty(dtype):
        return numpy.empty((0,) * ndim, dtype)

    if len(dtypes) == 1:
        return [dask.array.blockwise(plan.single_result, out, *parts, meta=empty(dtypes[0]), name=None,
                                     token="comfortics")]
    together = dask.array.blockwise(plan, out, *parts, meta=empty(dtypes[0]), token="comfortics")
    return [dask.array.blockwise(operator.itemgetter(place), out, together, out, meta=empty(dtype),
                                 token="comfortics-part") for place, dtype in enumerate(dtypes)]


def _has_classes(one):
    return isinstance(one, Index) and bool(one.categories)


def _names(wanted, options):
    names = [one.id for one in wanted]
    classes = [names[place] for place in options["classes"]]
    return (names + [name + "_status" for name in names if options["status"]]
            + [name + "_category" for name in classes] + [name + "_severity" for name in classes])


def _named(wanted, options, arrays):
    return dict(zip(_names(wanted, options), arrays))


def series_columns(given, what="readings"):
    """The index that all Series have, and all values without it."""
    import pandas

    index = None
    columns = {}
    for name, value in given.items():
        if isinstance(value, pandas.Series):
            if index is not None and not index.equals(value.index):
                raise ValueError(f"The index of {name} is another than that of the {what} before it.")
            index = value.index
            value = numbers(value, name)
        columns[name] = value
    return index, columns


def refuse_other_lengths(plan, arrays, index):
    """Raise ValueError where an array beside Series has not their length."""
    for name, array in zip(plan.names, arrays):
        if numpy.shape(array) not in ((), (1,), (len(index),)):
            raise ValueError(f"{name} has the shape {numpy.shape(array)} beside Series of {len(index)} rows.")


def _with_pandas(given, wanted, options, conversions):
    import pandas

    index, columns = series_columns(given)
    plan, arrays = _plan(columns, options, conversions)
    refuse_other_lengths(plan, arrays, index)
    columns = _named(wanted, options, plan(*arrays))
    for place in options["classes"]:
        name = wanted[place].id + "_category"
        labels = [category.label for category in wanted[place].categories]
        columns[name] = pandas.Categorical.from_codes(numpy.atleast_1d(columns[name]), labels, ordered=True)
    return pandas.DataFrame(columns, index=index)


def _partition(names, constants, wanted, options, conversions, *series):
    return _with_pandas(dict(zip(names, series)) | constants, wanted, options, conversions)


def _with_dask_frames(given, wanted, options, conversions):
    import dask.dataframe

    lazy = {name: value for name, value in given.items() if isinstance(value, dask.dataframe.Series)}
    constants = {name: value for name, value in given.items() if name not in lazy}
    for name, value in constants.items():
        if not _is_number(value):
            raise TypeError(f"{name} is to be a number or a Series of Dask beside the others.")
    how = tuple(lazy), constants, wanted, options, conversions
    meta = _partition(*how, *(value._meta for value in lazy.values()))
    return dask.dataframe.map_partitions(_partition, *how, *lazy.values(), meta=meta)


def _with_xarray(given, wanted, options, step, divisor):
    import xarray

    _refuse_other_coordinates({name: value for name, value in given.items() if isinstance(value, xarray.DataArray)})
    for name, value in given.items():
        if hasattr(value, "index") and hasattr(value, "to_xarray"):
            raise TypeError(f"{name} is a Series beside DataArrays; give {name}=….to_xarray().")
    conversions = {}
    for name, value in given.items():
        if isinstance(value, xarray.DataArray) and "units" in value.attrs:
            conversions[name] = conversion(value.attrs["units"], name, _INPUTS[name], step)
    variables = {name: getattr(value, "variable", value) for name, value in given.items()}
    plan, _ = _plan(variables, options, _lowered(conversions, divisor))
    results = xarray.apply_ufunc(_result_of, *(given[name] for name in plan.names), kwargs={"plan": plan},
                                 output_core_dims=[()] * len(plan.dtypes), dask="allowed", join="exact",
                                 keep_attrs=False)
    if len(plan.dtypes) == 1:
        results = (results,)
    dataset = xarray.Dataset(_named(wanted, options, results))
    for one in wanted:
        dataset[one.id].attrs = _attributes(one, options)
        if options["status"]:
            dataset[one.id + "_status"].attrs = {
                "long_name": f"What became of {one.name}", "flag_values": numpy.array(list(Status), numpy.int8),
                "flag_meanings": " ".join(value.name.lower() for value in Status)}
    for place in options["classes"]:
        _describe_classes(dataset, wanted[place])
    dataset.attrs = {"comfortics_version": _comfortics.version, "comfortics_rules": _rule_names(options)}
    return dataset


def _describe_classes(dataset, one):
    places = range(-1, len(one.categories))
    meanings = ["none", *(re.sub(r"[^\w.+-]+", "_", category.label).strip("_") for category in one.categories)]
    dataset[one.id + "_category"].attrs = {"long_name": f"Class of {one.name}", "flag_values": numpy.array(places, numpy.int8),
                                           "flag_meanings": " ".join(meanings)}
    dataset[one.id + "_severity"].attrs = {
        "units": "1", "long_name": f"Severity of {one.name}",
        "comment": "0 no thermal stress, 1 slight, 2 moderate, 3 strong, 4 extreme; minus for cold"}


def _refuse_other_coordinates(given):
    """One reading at each point: nothing is dropped or filled in where the points differ."""
    known = {}
    for name, value in given.items():
        for dimension, length in zip(value.dims, value.shape):
            index = value.indexes.get(dimension)
            other, other_length, other_index = known.setdefault(dimension, (name, length, index))
            if numpy.isnan(length):
                raise ValueError(f"{name} has chunks of unknown lengths, which its compute_chunk_sizes() would tell.")
            if length != other_length:
                raise ValueError(f"{other} has {other_length} points along {dimension!r}, and {name} has {length}.")
            if index is not None and other_index is not None and not index.equals(other_index):
                raise ValueError(f"{other} and {name} have different coordinates along {dimension!r}.")
            if other_index is None:
                known[dimension] = (name, length, index)


def _result_of(*arrays, plan):
    results = tuple(_calculated(plan, arrays))
    return results if len(results) > 1 else results[0]


def _rule_names(options):
    return f"{_RULES[options['rules']]}, limits {'kept' if options['limits'] else 'ignored'}"


def _attributes(one, options):
    attributes = {"units": cf(one.unit), "long_name": one.name}
    if isinstance(one, Index):
        attributes["references"] = one.reference
    return attributes | {"comfortics_version": _comfortics.version, "comfortics_rules": _rule_names(options)}


def explain(name, *, ta=None, tg=None, sr=None, td=None, rh=None, ws=None, rules="precise", limits=True,
            wind_exponent=None, barometric_pressure=None, emissivity=None, effective_radiating_area=None,
            body_height=None, body_mass=None):
    """Say why an index or a quantity has no value at a point.

    Parameters
    ----------
    name : str, int, ufunc, Index or Quantity
        The index or the quantity.
    ta, tg, sr, td, rh, ws : float
        The readings of the point, as `calculate` takes them.
    rules, limits, wind_exponent, barometric_pressure, emissivity, effective_radiating_area, body_height, body_mass
        As for `calculate`.

    Returns
    -------
    str
        A sentence or two; empty where there is a value.

    Examples
    --------
    >>> comfortics.explain("heat_index_rothfusz", ta=12.0, rh=50.0)
    'Outside its limits: the air temperature is 12 °C, valid from 26.7 to 50 °C.'
    """
    number = _rules(rules)
    one = target(name)
    readings = dict(ta=ta, tg=tg, sr=sr, td=td, rh=rh, ws=ws)
    assumptions = dict(wind_exponent=wind_exponent, barometric_pressure=barometric_pressure, emissivity=emissivity,
                       effective_radiating_area=effective_radiating_area, body_height=body_height,
                       body_mass=body_mass)
    given = {which: numbers(value, which) for which, value in _given(readings, assumptions, number).items()}
    for which, value in given.items():
        if value.size != 1:
            raise ValueError(f"{which} is to be the reading of one point, not of {value.size}.")
    inputs = tuple(float(numpy.reshape(given[which], ())) if which in given else None for which in _INPUTS)
    text = _said(_comfortics.explain_point, inputs, one._target, number, bool(limits))
    return text[:1].upper() + text[1:] + ("" if text.endswith(".") or not text else ".")
