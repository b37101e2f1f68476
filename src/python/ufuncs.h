// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "python/reference.h"

namespace comfortics::python {

/// Adds a ufunc for each index to the module, by its id.
void addUfuncs(PyObject* module);

} // namespace comfortics::python
