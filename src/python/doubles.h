// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "python/reference.h"

#include <cstddef>

namespace comfortics::python {

/// What an argument holds, as doubles side by side.
class Doubles {
public:
    explicit Doubles(PyObject* object)
        : m_array(PyArray_FROMANY(object, NPY_DOUBLE, 0, 0, NPY_ARRAY_CARRAY_RO))
    {
    }
    PyArrayObject* array() const { return static_cast<PyArrayObject*>(static_cast<void*>(m_array.get())); }
    const double* data() const { return static_cast<const double*>(PyArray_DATA(array())); }
    std::size_t size() const { return static_cast<std::size_t>(PyArray_SIZE(array())); }
    Reference like() const { return Reference(PyArray_NewLikeArray(array(), NPY_CORDER, nullptr, 0)); }

private:
    Reference m_array;
};

inline double* dataOf(const Reference& array)
{
    return static_cast<double*>(PyArray_DATA(static_cast<PyArrayObject*>(static_cast<void*>(array.get()))));
}

} // namespace comfortics::python
