# SPDX-License-Identifier: GPL-3.0-or-later
import datetime
import enum
from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from typing import Any, Literal, SupportsIndex, TypeAlias, overload

import numpy
from numpy.typing import ArrayLike
from pandas import DataFrame  # type: ignore

from . import person as person, ufuncs as ufuncs
from .ufuncs import *

# Numbers and arrays of NumPy, and Series, DataArrays and arrays of Dask, none of which need be installed.
_Readings: TypeAlias = Any
_Step: TypeAlias = float | datetime.timedelta | numpy.timedelta64

__version__: str

class UnknownIndexError(KeyError): ...

class Status(enum.IntEnum):
    VALUE = 0
    MISSING = 1
    OUTSIDE_TEMPERATURE = 2
    OUTSIDE_WIND = 3
    NO_VALUE = 4
    UNDEFINED = 5
    NO_CONVERGENCE = 6

@dataclass(frozen=True)
class Limits:
    judged: str
    temperature: tuple[float, float]
    wind: tuple[float, float] | None
    wind_at_10m: bool

@dataclass(frozen=True)
class Category:
    lower: float
    upper: float
    label: str
    severity: int
    note: str

@dataclass(frozen=True)
class Quantity:
    id: str
    symbol: str
    name: str
    unit: str
    _target: int

@dataclass(frozen=True)
class Index:
    number: int
    id: str
    name: str
    unit: str
    family: str
    inputs: tuple[str, ...]
    reads_assumptions: bool
    limits: Limits | None
    authors: str
    year: str
    reference: str
    confidence: str
    decimals: int
    categories: tuple[Category, ...]
    @property
    def ufunc(self) -> numpy.ufunc: ...
    def format(self, value: float) -> str: ...

_Name: TypeAlias = str | SupportsIndex | numpy.ufunc | Index | Quantity
_Rules: TypeAlias = Literal["precise", "classic", "robust"]

class Indices:
    def __init__(self, rows: Iterable[Index]) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[Index]: ...
    def __contains__(self, key: str | SupportsIndex | numpy.ufunc | Index) -> bool: ...
    def __getitem__(self, key: str | SupportsIndex | numpy.ufunc | Index) -> Index: ...
    def search(self, words: str) -> Indices: ...
    def to_pandas(self) -> DataFrame: ...

indices: Indices
quantities: dict[str, Quantity]

def index(number: SupportsIndex | str) -> numpy.ufunc: ...
def calculate(
    *,
    ta: _Readings = None,
    tg: _Readings = None,
    sr: _Readings = None,
    td: _Readings = None,
    rh: _Readings = None,
    ws: _Readings = None,
    indices: _Name | Iterable[_Name] = "all",
    rules: _Rules = "precise",
    limits: bool = True,
    wind_exponent: _Readings = None,
    barometric_pressure: _Readings = None,
    emissivity: _Readings = None,
    effective_radiating_area: _Readings = None,
    body_height: _Readings = None,
    body_mass: _Readings = None,
    status: bool = False,
    categories: bool = False,
    threads: int = 1,
    step: _Step | None = None,
    wind_height: float | None = None,
) -> Any: ...
def explain(
    name: _Name,
    *,
    ta: float | None = None,
    tg: float | None = None,
    sr: float | None = None,
    td: float | None = None,
    rh: float | None = None,
    ws: float | None = None,
    rules: _Rules = "precise",
    limits: bool = True,
    wind_exponent: float | None = None,
    barometric_pressure: float | None = None,
    emissivity: float | None = None,
    effective_radiating_area: float | None = None,
    body_height: float | None = None,
    body_mass: float | None = None,
) -> str: ...

class ModelStatus(enum.IntEnum):
    OK = 0
    OUTSIDE = 1
    NONE = 2

@dataclass(frozen=True)
class ModelChoice:
    value: float
    word: str
    text: str

@dataclass(frozen=True)
class ModelInput:
    id: str
    symbol: str
    name: str
    unit: str
    range: tuple[float, float]
    need: str
    start: float | None
    start_source: str
    without: str
    unless: str
    only_for: str
    choices: tuple[ModelChoice, ...]

@dataclass(frozen=True)
class ModelResult:
    id: str
    name: str
    unit: str
    decimals: int
    choices: tuple[ModelChoice, ...]
    categories: tuple[Category, ...]

class Model:
    id: str
    name: str
    authors: str
    year: str
    family: str
    description: str
    warnings: tuple[str, ...]
    references: tuple[str, ...]
    inputs: tuple[ModelInput, ...]
    results: tuple[ModelResult, ...]
    course_figures: tuple[ModelResult, ...]
    def __init__(self, row: tuple[Any, ...]) -> None: ...
    def __call__(
        self,
        *,
        limits: Literal["mark", "blank"] = "mark",
        status: bool = False,
        results: str | Iterable[str] = "all",
        threads: int = 1,
        **inputs: _Readings,
    ) -> Any: ...
    def explain(
        self, *, result: str | None = None, limits: Literal["mark", "blank"] = "mark", **inputs: Any
    ) -> str: ...
    def course(self, *, limits: Literal["mark", "blank"] = "mark", **inputs: Any) -> Any: ...

class Models:
    def __init__(self, rows: Iterable[Model]) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[Model]: ...
    def __contains__(self, key: str | Model) -> bool: ...
    def __getitem__(self, key: str | Model) -> Model: ...
    def __getattr__(self, name: str) -> Model: ...
    def search(self, words: str) -> Models: ...
    def to_pandas(self) -> DataFrame: ...

models: Models

@overload
def convert(values: float, source: str, wanted: str) -> float: ...
@overload
def convert(values: _Readings, source: str, wanted: str) -> Any: ...
def solar_radiation(
    lat: ArrayLike, lon: ArrayLike, time: Any, *, utc_offset: ArrayLike | None = None, cloudiness: ArrayLike = 0
) -> Any: ...
