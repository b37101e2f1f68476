// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "python/reference.h"

namespace comfortics::python {

// Functions of the module; their arguments are told where they are written.

PyObject* calculateArrays(PyObject* module, PyObject* arguments);
PyObject* explainPoint(PyObject* module, PyObject* arguments);

} // namespace comfortics::python
