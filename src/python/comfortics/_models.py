# SPDX-License-Identifier: GPL-3.0-or-later
"""The models that standards describe, beside the indices, with inputs of their own."""

import enum
import inspect
from dataclasses import dataclass

import numpy

from comfortics import _comfortics
from comfortics._arrays import numbers
from comfortics._calculate import (_calculated, _common_shape, _is_number, _is_single, _kind, _refuse_other_coordinates,
                                   _refuse_several, _result_of, _threads, refuse_other_lengths, series_columns)
from comfortics._catalogue import Category, Rows
from comfortics._errors import UnknownIndexError, did_you_mean
from comfortics._units import _BASES, _DIMENSIONS, _folded, cf, conversion

_NEEDS = ("required", "start", "optional")
_LIMITS = ("mark", "blank")
# What the units of inputs measure, where they may come in others.
_MEASURED = {"°C": "temperature", "m/s": "speed", "W/m²": "radiation", "%": "humidity", "hPa": "pressure", "m": "length",
             "kg": "mass"}

ModelStatus = enum.IntEnum("ModelStatus", [("OK", 0), ("OUTSIDE", 1), ("NONE", 2)], module=__name__)
ModelStatus.__doc__ = "What stands behind a result: a value, one beyond the range of the model, or none."


@dataclass(frozen=True)
class ModelChoice:
    """A word that stands for a number, of an option or of a result."""

    value: float
    word: str
    text: str


@dataclass(frozen=True)
class ModelInput:
    """An input of a model."""

    id: str
    symbol: str
    name: str
    unit: str  #: empty for numbers without
    range: tuple[float, float]  #: of the model; beyond it values are marked
    need: str  #: "required", "start" or "optional"
    start: float | None  #: where nothing is given
    start_source: str  #: why the start is that
    without: str  #: what is done without it, where it is optional
    unless: str  #: the input in whose presence this one is not read
    only_for: str  #: the option by which this one is read or not
    choices: tuple[ModelChoice, ...]  #: of an option, those that the model knows


@dataclass(frozen=True)
class ModelResult:
    """A result of a model, or a figure of its course."""

    id: str
    name: str
    unit: str  #: empty for numbers without
    decimals: int  #: worth showing
    choices: tuple[ModelChoice, ...]  #: the numbers of a result that is a word
    categories: tuple[Category, ...]  #: ascending; empty where no classes are published


@dataclass(frozen=True)
class _Plan:
    """One call, but for the arrays: what Dask sends to its workers."""

    model: str
    places: tuple  #: of the inputs that are arrays
    names: tuple  #: of these
    constants: tuple  #: a number or None for each input
    conversions: tuple  #: (input, unit, base, factor, divisor)
    results: tuple  #: places of those that are wanted
    blank: bool
    threads: int
    status: bool
    single: bool

    @property
    def dtypes(self):
        value = numpy.dtype(numpy.float32 if self.single else numpy.float64)
        count = len(self.results)
        return [value] * count + [numpy.dtype(numpy.int8)] * (count if self.status else 0)

    def __call__(self, *arrays):
        """A tuple of the values, then of the statuses."""
        arrays = [numbers(array, name) for name, array in zip(self.names, arrays)]
        shape = _common_shape(self.names, arrays)
        inputs = [None if value is None else numpy.float64(value) for value in self.constants]
        for place, array in zip(self.places, arrays):
            inputs[place] = self._converted(place, array.astype(numpy.float64))
            if array.ndim:
                inputs[place] = numpy.ascontiguousarray(numpy.broadcast_to(inputs[place], shape)).reshape(-1)
        count = int(numpy.prod(shape, dtype=int))
        values, statuses = _said(self.model, _comfortics.evaluate_model, self.model, tuple(inputs), count, self.results,
                                 self.blank, self.threads)
        values = [value.reshape(shape).astype(self.dtypes[0], copy=False) for value in values]
        return (*values, *(status.reshape(shape) for status in statuses if self.status))

    def single_result(self, *arrays):
        return self(*arrays)[0]

    def _converted(self, wanted, array):
        for place, unit, base, factor, divisor in self.conversions:
            if place == wanted:
                array = array if unit is None else _comfortics.convert_array(array, unit, base)
                array = array * factor / divisor
        return array


def _said(model, function, *arguments):
    """Calls the compiled module; an input that is lacking is an error of the call."""
    try:
        return function(*arguments)
    except ValueError as error:
        text = str(error).removeprefix("comfortics: ")
        if text.endswith(" is not given"):
            name = text.split()[1]
            known = models[model]._input(name)
            raise TypeError(f"{model}() needs {name}, the {known.name.lower()}{_in(known.unit)}.") from None
        raise ValueError(text[:1].upper() + text[1:] + ".") from None


def _in(unit):
    return f" [{unit}]" if unit else ""


def _bounds(low, high):
    ends = [None if abs(end) >= 1e9 or 0 < end <= 1e-9 else f"{end:g}" for end in (low, high)]
    if ends == [None, None]:
        return ""
    return f"{ends[0] or 'above 0' if low > -1e9 else 'up'} to {ends[1]}" if ends[1] else f"from {ends[0]}" if ends[0] else ""


class Model:
    """A model that a standard describes: called with its inputs by name, it gives its results.

    Called
    ------
    Inputs are numbers or arrays by their ids: of NumPy, Series of pandas, DataArrays of xarray (converted by their
    attribute `units`) or arrays of Dask, which broadcast. Options are words, such as posture="sitting", or their
    numbers. What is left out has its start value, or the model does without it.

    limits="mark" keeps values beyond the range of the model; limits="blank" gives NaN for them. status=True gives an
    array of `ModelStatus` for each result, too, named by it and "_status". results names those that are wanted,
    threads how many threads calculate, 0 for as many as the machine runs at once.

    The results come by their ids: a dict, a DataFrame for Series, a Dataset for DataArrays. NaN where there is no
    value; a result that is a word is the number of it (`ModelResult.choices`).

    TypeError where an input is lacking or the model has none of that name, ValueError where a word or a unit is not
    known, two inputs are given of which one stands for the other, or shapes do not broadcast.
    """

    def __init__(self, row):
        (self.id, self.name, self.authors, self.year, self.family, self.description, warnings, references, inputs,
         results, course) = row
        self.warnings, self.references = tuple(warnings), tuple(references)
        self.inputs = tuple(self._input_of(*one) for one in inputs)
        self.results = tuple(map(self._result_of, results))
        self.course_figures = tuple(map(self._result_of, course))
        self._places = {one.id: place for place, one in enumerate(self.inputs)}
        self.__doc__ = self._document()
        self.__name__ = self.id

    @staticmethod
    def _input_of(id, symbol, name, unit, low, high, need, start, source, without, unless, only_for, choices):
        return ModelInput(id, symbol, name, unit, (low, high), _NEEDS[need], start if _NEEDS[need] == "start" else None,
                          source, without, unless, only_for, tuple(ModelChoice(*one) for one in choices))

    @staticmethod
    def _result_of(row):
        id, name, unit, decimals, choices, categories = row
        return ModelResult(id, name, unit, decimals, tuple(ModelChoice(*one) for one in choices),
                           tuple(Category(*one) for one in categories))

    @property
    def __signature__(self):
        kind = inspect.Parameter.KEYWORD_ONLY
        inputs = []
        for one in self.inputs:
            needed = one.need == "required" and not one.unless and not one.only_for
            start = self._word(one, one.start) if one.choices and one.need == "start" else one.start
            inputs.append(inspect.Parameter(one.id, kind, **({} if needed else {"default": start})))
        options = [inspect.Parameter(name, kind, default=default) for name, default in
                   (("limits", "mark"), ("status", False), ("results", "all"), ("threads", 1))]
        return inspect.Signature(inputs + options)

    def _document(self):
        lines = [f"{self.name}.", "", self.description, "", "Parameters", "----------"]
        for one in self.inputs:
            lines.append(f"{one.id} : " + ("{" + ", ".join(repr(choice.word) for choice in one.choices) + "}"
                                           if one.choices else "array_like"))
            parts = [f"{one.name}{_in(one.unit)}"]
            if not one.choices and _bounds(*one.range):
                parts.append(f"valid {_bounds(*one.range)}")
            if one.need == "start":
                parts.append(f"start {self._word(one, one.start)} ({one.start_source})")
            if one.without:
                parts.append(f"without: {one.without}")
            if one.unless:
                parts.append(f"not with {one.unless}")
            if one.only_for:
                parts.append(f"read or not by {one.only_for}")
            lines.append("    " + "; ".join(parts) + ".")
        lines += ["", "Returns", "-------", "dict, pandas.DataFrame or xarray.Dataset"]
        for one in self.results:
            words = ": " + ", ".join(f"{choice.value:g} {choice.word}" for choice in one.choices) if one.choices else ""
            lines.append(f"    {one.id}: {one.name}{_in(one.unit)}{words}.")
        if self.warnings:
            lines += ["", "Notes", "-----", *(f"{warning[:1].upper() + warning[1:]}." for warning in self.warnings)]
        return "\n".join([*lines, "", "References", "----------", *self.references, ""])

    @staticmethod
    def _word(one, value):
        return next((choice.word for choice in one.choices if choice.value == value), f"{value:g}")

    def _input(self, name):
        return self.inputs[self._places[name]]

    def _given(self, inputs):
        for name in inputs:
            if name not in self._places:
                raise TypeError(f"{self.id}() has no input {name!r}.{did_you_mean(name, self._places)}")
        given = {}
        for name, value in inputs.items():
            if value is None:
                continue
            _refuse_several(name, value)
            given[name] = self._number(name, value) if isinstance(value, (str, bool, numpy.bool_)) else value
        return given

    def _number(self, name, value):
        """Of a word, or of True and False for yes and no."""
        choices = self._input(name).choices
        word = value if isinstance(value, str) else "yes" if value else "no"
        for choice in choices:
            if choice.word.lower() == word.lower():
                return choice.value
        if not choices:
            raise TypeError(f"{name} is to be a number or an array of numbers, not {value!r}.")
        known = [choice.word for choice in choices]
        raise ValueError(f"{name} has no word {value!r}, only {', '.join(map(repr, known))}.{did_you_mean(word, known)}")

    def _wanted(self, results):
        if isinstance(results, str) and results == "all":
            return tuple(range(len(self.results)))
        known = {one.id: place for place, one in enumerate(self.results)}
        names = (results,) if isinstance(results, str) else tuple(results)
        for name in names:
            if name not in known:
                raise ValueError(f"{self.id} has no result {name!r}.{did_you_mean(name, known)}")
        if not names:
            raise ValueError("No result is asked for.")
        return tuple(known[name] for name in names)

    def _plan(self, given, options, conversions=()):
        arrays = {name: value for name, value in given.items() if not _is_number(value)}
        for name, value in arrays.items():
            if not isinstance(getattr(value, "dtype", None), numpy.dtype):
                arrays[name] = numbers(value, name)
        constants = [None] * len(self.inputs)
        for name, value in given.items():
            if name not in arrays:
                constants[self._places[name]] = float(value)
        plan = _Plan(model=self.id, places=tuple(self._places[name] for name in arrays), names=tuple(arrays),
                     constants=tuple(constants), conversions=tuple(conversions), single=_is_single(arrays.values()),
                     **options)
        return plan, list(arrays.values())

    def _names(self, options):
        names = [self.results[place].id for place in options["results"]]
        return names + [name + "_status" for name in names if options["status"]]

    def __call__(self, *, limits="mark", status=False, results="all", threads=1, **inputs):
        given = self._given(inputs)
        options = dict(results=self._wanted(results), blank=_blank(limits), threads=_threads(threads), status=bool(status))
        if _kind(given.values(), "xarray", "DataArray"):
            return self._with_xarray(given, options)
        if _kind(given.values(), "dask.dataframe", "Series"):
            raise TypeError(f"{self.id}() takes no Series of Dask; give their arrays, or use map_partitions.")
        if _kind(given.values(), "pandas", "Series"):
            return self._with_pandas(given, options)
        plan, arrays = self._plan(given, options)
        return dict(zip(self._names(options), [array[()] for array in _calculated(plan, arrays)]))

    def _with_pandas(self, given, options):
        import pandas

        index, columns = series_columns(given, "inputs")
        plan, arrays = self._plan(columns, options)
        refuse_other_lengths(plan, arrays, index)
        return pandas.DataFrame(dict(zip(self._names(options), plan(*arrays))), index=index)

    def _with_xarray(self, given, options):
        import xarray

        _refuse_other_coordinates({name: value for name, value in given.items() if isinstance(value, xarray.DataArray)})
        conversions = []
        for name, value in given.items():
            if isinstance(value, xarray.DataArray) and value.attrs.get("units") not in (None, ""):
                conversions += self._conversion(name, value.attrs["units"])
        plan, _ = self._plan({name: getattr(value, "variable", value) for name, value in given.items()}, options,
                             conversions)
        results = xarray.apply_ufunc(_result_of, *(given[name] for name in plan.names), kwargs={"plan": plan},
                                     output_core_dims=[()] * len(plan.dtypes), dask="allowed", join="exact",
                                     keep_attrs=False)
        dataset = xarray.Dataset(dict(zip(self._names(options), results if len(plan.dtypes) > 1 else (results,))))
        for place in options["results"]:
            one = self.results[place]
            dataset[one.id].attrs = self._attributes(one)
            if options["status"]:
                dataset[one.id + "_status"].attrs = {
                    "long_name": f"What stands behind {one.name}",
                    "flag_values": numpy.array(list(ModelStatus), numpy.int8), "flag_meanings": "ok outside none"}
        dataset.attrs = self._attributes_of_all(options["blank"])
        return dataset

    def _conversion(self, name, unit):
        one = self._input(name)
        measured = _MEASURED.get(one.unit)
        if measured is None:
            if _folded(unit) not in (_folded(one.unit or "1"), _folded(cf(one.unit))):
                raise ValueError(f"{name} has the unit {str(unit)!r}, and is to be in {one.unit or '1'}.")
            return []
        try:
            source, factor, divisor = conversion(unit, name, measured)
        except ValueError as error:
            if "step" not in str(error):
                raise
            raise ValueError(f"{name} has the unit {str(unit)!r}, and is to be in {one.unit}.") from None
        base = _BASES[_DIMENSIONS.index(measured)] if measured in _DIMENSIONS else ""
        return [(self._places[name], source, base, factor, divisor)]

    @staticmethod
    def _attributes(one):
        attributes = {"units": cf(one.unit) if one.unit else "1", "long_name": one.name}
        if one.choices:
            attributes |= {"flag_values": numpy.array([choice.value for choice in one.choices]),
                           "flag_meanings": " ".join(choice.word for choice in one.choices)}
        return attributes

    def _attributes_of_all(self, blank):
        return {"comfortics_version": _comfortics.version, "comfortics_model": self.id, "title": self.name,
                "comfortics_limits": _LIMITS[blank], "references": "; ".join(self.references)}

    def _point(self, inputs):
        """The inputs of one point, in order."""
        values = [None] * len(self.inputs)
        for name, value in self._given(inputs).items():
            array = numbers(value, name)
            if array.size != 1:
                raise ValueError(f"{name} is to be the input of one point, not of {array.size}.")
            values[self._places[name]] = numpy.float64(array.reshape(())[()])
        return tuple(values)

    def explain(self, *, result=None, limits="mark", **inputs):
        """Say in a sentence why a result, the main one if none is named, has no value or a mark at a point."""
        place = 0 if result is None else self._wanted(result)[0]
        return _said(self.id, _comfortics.explain_model, self.id, self._point(inputs), place, _blank(limits))

    def course(self, *, limits="mark", **inputs):
        """The figures of one point, minute by minute, as a Dataset along `minute`, the end of each.

        Of heat strain and the two-node body; other models raise ValueError.
        """
        import xarray

        if not self.course_figures:
            raise ValueError(f"{self.id} has no course.")
        blank = _blank(limits)
        figures, status = _said(self.id, _comfortics.model_course, self.id, self._point(inputs), blank)
        rows = figures.reshape(-1, len(self.course_figures))
        minutes = xarray.DataArray(numpy.arange(1, len(rows) + 1), dims="minute", attrs={"units": "min"})
        dataset = xarray.Dataset({one.id: ("minute", rows[:, place], self._attributes(one))
                                  for place, one in enumerate(self.course_figures)}, coords={"minute": minutes})
        dataset.attrs = self._attributes_of_all(blank) | {"status": ModelStatus(status).name.lower()}
        return dataset

    def __repr__(self):
        return f"<model {self.id}: {self.name}>"


def _blank(limits):
    if limits not in _LIMITS:
        raise ValueError(f"limits is to be 'mark' or 'blank', not {limits!r}.")
    return limits == "blank"


class Models(Rows):
    """The models: `models.pmv_iso` and `models["pmv_iso"]` are the same, and it is iterable."""

    def __contains__(self, key):
        return getattr(key, "id", key) in self._by_id

    def __getitem__(self, key):
        if isinstance(key, Model):
            return key
        if not isinstance(key, str):
            raise TypeError(f"A model is named by its id, not by {key!r}.")
        if key.lower() not in self._by_id:
            raise UnknownIndexError(f"There is no model {key!r}.{did_you_mean(key, self._by_id)}")
        return self._by_id[key.lower()]

    def __getattr__(self, name):
        by_id = self.__dict__.get("_by_id", {})
        if name in by_id:
            return by_id[name]
        raise AttributeError(f"There is no model {name!r}.{did_you_mean(name, by_id)}")

    def __dir__(self):
        return [*super().__dir__(), *self._by_id]

    def search(self, words):
        """The models in whose id, name, family or authors all words stand, whatever their case."""
        return Models(self._matching(words, lambda row: (row.id, row.name, row.family, row.authors, row.year)))

    def to_pandas(self):
        """The models as a DataFrame by id."""
        import pandas

        rows = [{"id": row.id, "name": row.name, "authors": row.authors, "year": row.year, "family": row.family,
                 "inputs": ", ".join(one.id for one in row.inputs),
                 "results": ", ".join(one.id for one in row.results), "has_course": bool(row.course_figures)}
                for row in self._rows]
        return pandas.DataFrame(rows).set_index("id")

    def __repr__(self):
        return "\n".join([f"<{len(self)} models>", *(f"{row.id:16}  {row.name}" for row in self._rows)])


models = Models(Model(row) for row in _comfortics.models())
