// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "python/reference.h"

namespace comfortics::python {

// Functions of the module; their arguments are told where they are written.

PyObject* models(PyObject* module, PyObject* none);
PyObject* evaluateModels(PyObject* module, PyObject* arguments);
PyObject* explainModels(PyObject* module, PyObject* arguments);
PyObject* courseOfModel(PyObject* module, PyObject* arguments);

} // namespace comfortics::python
