// SPDX-License-Identifier: GPL-3.0-or-later
//
// Python's and NumPy's C interfaces, of which each source of the module has the same one.
#pragma once

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#define NPY_NO_DEPRECATED_API NPY_1_7_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL comforticsArrayApi
#define PY_UFUNC_UNIQUE_SYMBOL comforticsUfuncApi
#ifndef COMFORTICS_IMPORTS_NUMPY
#define NO_IMPORT_ARRAY
#define NO_IMPORT_UFUNC
#endif
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>
