# SPDX-License-Identifier: GPL-3.0-or-later
"""The catalogue: what there is to calculate."""

import enum
import numbers
import operator
from dataclasses import dataclass

from comfortics import _comfortics
from comfortics._errors import UnknownIndexError, did_you_mean

_JUDGED = (
    "air_temperature",
    "natural_wet_bulb_temperature",
    "mean_of_radiant_and_air",
    "radiant_less_air",
    "wbgt_outdoor",
)
_CONFIDENCE = ("sure", "likely", "name only")

Status = enum.IntEnum(
    "Status",
    [(text.upper().replace(" ", "_"), value) for value, text in enumerate(_comfortics.status_texts())],
    module=__name__,
)
Status.__doc__ = "What became of a figure; all but VALUE stand beside NaN."


@dataclass(frozen=True)
class Limits:
    """The conditions in which an index is taken to be valid; all ends are inside."""

    judged: str  #: what the temperatures bound
    temperature: tuple[float, float]  #: [°C]
    wind: tuple[float, float] | None  #: [m/s], None where the wind is not judged
    wind_at_10m: bool  #: whether the wind at 10 m is judged, not the measured one


@dataclass(frozen=True)
class Category:
    """A class of values of an index, as published: from `lower` up to but without `upper`."""

    lower: float
    upper: float
    label: str
    severity: int  #: 0 no thermal stress to 4 extreme, minus for cold
    note: str


@dataclass(frozen=True)
class Quantity:
    """What is read or derived before any index."""

    id: str
    symbol: str
    name: str
    unit: str
    _target: int

    def __str__(self):
        return self.id


@dataclass(frozen=True)
class Index:
    """One of the 222 indices."""

    number: int
    id: str
    name: str
    unit: str  #: "[-]" where there is none
    family: str
    inputs: tuple[str, ...]  #: ids of the quantities that the formula reads, in order
    reads_assumptions: bool  #: whether the formula reads site and body
    limits: Limits | None
    authors: str
    year: str
    reference: str
    confidence: str  #: how sure the reference is: "sure", "likely" or "name only"
    decimals: int  #: of its text
    categories: tuple[Category, ...]  #: ascending; empty where no scale is published

    @property
    def ufunc(self):
        """The formula, a ufunc of `inputs`."""
        return getattr(_comfortics, self.id)

    @property
    def _target(self):
        return self.number

    def format(self, value):
        """The text of a value, as all tables have it; empty for NaN."""
        return _comfortics.format_value(self.number, value)

    def __str__(self):
        return self.id


def _limits(bounded, judged, low, high, wind_bounded, wind_at_10m, wind_low, wind_high):
    if not bounded:
        return None
    return Limits(_JUDGED[judged], (low, high), (wind_low, wind_high) if wind_bounded else None, bool(wind_at_10m))


def _row(row):
    (number, name, title, unit, family, inputs, assumes, limits, authors, year, reference, confidence, decimals,
     categories) = row
    return Index(number, name, title, unit, family, tuple(inputs), bool(assumes), _limits(*limits), authors, year,
                 reference, _CONFIDENCE[confidence], decimals, tuple(Category(*category) for category in categories))


class Rows:
    """Rows of a table, each with an id."""

    def __init__(self, rows):
        self._rows = tuple(rows)
        self._by_id = {row.id: row for row in self._rows}

    def __len__(self):
        return len(self._rows)

    def __iter__(self):
        return iter(self._rows)

    def _matching(self, words, texts):
        """The rows in whose texts all words stand, whatever their case."""
        wanted = words.lower().split()
        return [row for row in self._rows if all(word in " ".join(texts(row)).lower() for word in wanted)]


class Indices(Rows):
    """The catalogue, a table of the indices by number.

    It is iterable, and `indices[90]`, `indices["humidex_masterson"]` and
    `indices[comfortics.humidex_masterson]` are the same row.
    """

    def __contains__(self, key):
        try:
            self[key]
        except KeyError:
            return False
        return True

    def __getitem__(self, key):
        if isinstance(key, Index):
            return key
        if isinstance(key, str):
            row = self._by_id.get(key.lower())
            if row is None:
                raise UnknownIndexError(f"There is no index {key!r}.{did_you_mean(key, self._by_id)}")
            return row
        if hasattr(key, "nin"):
            if getattr(_comfortics, key.__name__, None) is not key:
                raise UnknownIndexError(f"{key!r} is the ufunc of no index.")
            return self._by_id[key.__name__]
        try:
            if isinstance(key, bool):
                raise TypeError
            number = operator.index(key)
        except TypeError:
            raise TypeError(f"An index is named by its id, its number or its ufunc, not by {key!r}.") from None
        if not 1 <= number <= len(self._rows):
            raise UnknownIndexError(f"There is no index {number}, they go from 1 to {len(self._rows)}.")
        return self._rows[number - 1]

    def search(self, words):
        """The rows in whose id, name, family, unit or reference all words stand, whatever their case."""
        found = self._matching(words, lambda row: (row.id, row.name, row.family, row.unit, row.reference))
        return Indices(found) if len(found) < len(self._rows) else self

    def to_pandas(self):
        """The table as a DataFrame by number."""
        import pandas

        columns = ("number", "id", "name", "unit", "family", "inputs", "reads_assumptions")
        rows = []
        for row in self._rows:
            entry = {column: getattr(row, column) for column in columns}
            entry["inputs"] = ", ".join(row.inputs)
            bounds = row.limits
            entry["limits_of"] = bounds.judged if bounds else None
            entry["temperature_min"], entry["temperature_max"] = bounds.temperature if bounds else (None, None)
            entry["wind_min"], entry["wind_max"] = bounds.wind if bounds and bounds.wind else (None, None)
            entry["reference"] = row.reference
            entry["confidence"] = row.confidence
            rows.append(entry)
        return pandas.DataFrame(rows).set_index("number")

    def __repr__(self):
        lines = [f"{row.number:3}  {row.id:45}  {row.name} [{row.unit.strip('[]')}]" for row in self._rows]
        if len(lines) > 20:
            lines[10:-10] = ["  …"]
        return "\n".join([f"<{len(self)} indices>", *lines])


indices = Indices(_row(row) for row in _comfortics.catalogue())

quantities = {row[0]: Quantity(*row, -1 - place) for place, row in enumerate(_comfortics.quantities())}
_BY_SYMBOL = {quantity.symbol.lower(): quantity for quantity in quantities.values()}


def index(number):
    """The ufunc of an index, by its number or id.

    Parameters
    ----------
    number : int or str
        From 1 to 222, or an id such as "utci".

    Returns
    -------
    numpy.ufunc

    Raises
    ------
    UnknownIndexError
        A KeyError: there is no such index.
    """
    return indices[number].ufunc


def target(name):
    """The index or the quantity of a name; where both have it, the index."""
    if isinstance(name, (Index, Quantity)):
        return name
    if isinstance(name, str) and name.lower() not in indices:
        quantity = quantities.get(name.lower()) or _BY_SYMBOL.get(name.lower())
        if quantity is None:
            known = [row.id for row in indices] + list(quantities)
            raise UnknownIndexError(f"There is no index or quantity {name!r}.{did_you_mean(name, known)}")
        return quantity
    return indices[name]


def targets(names):
    """The targets that `calculate` is asked for: one name, several, or "all" indices."""
    if names is None or (isinstance(names, str) and names == "all"):
        return tuple(indices)
    if isinstance(names, (str, bytes, numbers.Number, Index, Quantity)) or hasattr(names, "nin"):
        names = (names,)
    wanted = tuple(dict.fromkeys(target(name) for name in names))
    if not wanted:
        raise ValueError("No index is asked for.")
    ids = [one.id for one in wanted]
    for one in wanted:
        if ids.count(one.id) > 1:
            raise ValueError(f"{one.id!r} is asked for as an index and as a quantity, and both have this name.")
    return wanted
