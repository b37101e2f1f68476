// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "python/numpy_api.h"

#include <string_view>
#include <utility>

namespace comfortics::python {

/// Raised where Python has an error set already.
struct PythonError {};

/// A reference to an object of Python, given back when it goes.
class Reference {
public:
    Reference() noexcept = default;
    /// Takes over a new reference; throws PythonError where there is none.
    explicit Reference(PyObject* owned) : m_object(owned)
    {
        if (owned == nullptr)
            throw PythonError();
    }
    Reference(Reference&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Reference& operator=(Reference&& other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;
    ~Reference() { Py_XDECREF(m_object); }

    PyObject* get() const noexcept { return m_object; }
    PyObject* release() noexcept { return std::exchange(m_object, nullptr); }

private:
    PyObject* m_object = nullptr;
};

inline Reference text(std::string_view utf8)
{
    return Reference(PyUnicode_FromStringAndSize(utf8.data(), static_cast<Py_ssize_t>(utf8.size())));
}

/// A tuple of what the arguments refer to.
template <class... References>
Reference tuple(References&&... items)
{
    Reference all(PyTuple_New(sizeof...(items)));
    Py_ssize_t at = 0;
    (PyTuple_SetItem(all.get(), at++, items.release()), ...); // takes each over
    return all;
}

/// Sets the error of Python that belongs to the exception being handled.
void raiseCurrentException() noexcept;

/// What a function of the module does: `body` gives a Reference.
template <class Body>
PyObject* answer(Body body) noexcept
{
    try {
        return body().release();
    } catch (...) { // a C++ exception may not pass through Python
        raiseCurrentException();
        return nullptr;
    }
}

} // namespace comfortics::python
