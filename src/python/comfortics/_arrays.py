# SPDX-License-Identifier: GPL-3.0-or-later
"""What users give as numbers, as arrays of numbers in which absent ones are NaN."""

import sys

import numpy


def numbers(values, name):
    """An array of numbers; masked and absent ones are NaN.

    Texts, truth values and times are refused: who gives them has mixed up columns.
    """
    if isinstance(values, numpy.ma.MaskedArray):
        values = numpy.ma.filled(values.astype(numpy.result_type(values.dtype, numpy.float32)), numpy.nan)
    dtype = getattr(values, "dtype", None)
    if dtype is not None and not isinstance(dtype, numpy.dtype) and hasattr(values, "to_numpy"):
        values = _of_pandas(values, name)
    try:
        array = numpy.asarray(values)
    except ValueError:
        raise ValueError(f"{name} is no array: its parts have different lengths.") from None
    if array.dtype.kind == "O":
        array = _of_objects(array, name)
    if array.dtype.kind not in "fiu":
        raise TypeError(f"{name} is to hold numbers, not {array.dtype}.")
    return array


def _of_pandas(values, name):
    """Of a type that only pandas has, such as whole numbers with gaps."""
    kind = getattr(values.dtype, "kind", "O")
    if kind in "fiu":
        dtype = numpy.float32 if values.dtype == "Float32" else numpy.float64
        return values.to_numpy(dtype=dtype, na_value=numpy.nan)
    if kind != "O":
        raise TypeError(f"{name} is to hold numbers, not {values.dtype}.")
    return numpy.asarray(values, dtype=object)


def _of_objects(array, name):
    absent = (None, numpy.ma.masked, getattr(sys.modules.get("pandas"), "NA", None))
    items = [numpy.nan if any(item is one for one in absent) else item for item in array.ravel()]
    try:
        if any(isinstance(item, (str, bytes, bool, numpy.bool_)) for item in items):
            raise TypeError
        return numpy.array(items, dtype=float).reshape(array.shape)
    except (TypeError, ValueError):
        raise TypeError(f"{name} holds what is no number.") from None


def is_lazy(values):
    """Whether it is an array of Dask."""
    array = sys.modules.get("dask.array")
    return array is not None and isinstance(values, array.Array)
