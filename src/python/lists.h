// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "python/reference.h"

namespace comfortics::python {

inline Reference number(long value)
{
    return Reference(PyLong_FromLong(value));
}

inline Reference number(double value)
{
    return Reference(PyFloat_FromDouble(value));
}

/// A list of what `make` makes of the items.
template <class Items, class Make>
Reference list(const Items& items, Make make)
{
    Reference all(PyList_New(0));
    for (const auto& item : items) {
        const Reference made = make(item);
        if (PyList_Append(all.get(), made.get()) < 0)
            throw PythonError();
    }
    return all;
}

} // namespace comfortics::python
