// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "python/reference.h"

namespace comfortics::python {

// Functions of the module; their arguments are told where they are written.

PyObject* personTables(PyObject* module, PyObject* none);
PyObject* insulationOfGarments(PyObject* module, PyObject* arguments);
PyObject* clothingByWeatherArray(PyObject* module, PyObject* arguments);
PyObject* metabolicRateArrays(PyObject* module, PyObject* arguments);
PyObject* runningMeanArrays(PyObject* module, PyObject* arguments);

} // namespace comfortics::python
