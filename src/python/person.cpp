// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/person.h"

#include "python/doubles.h"
#include "python/lists.h"

#include <comfortics/person.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace comfortics::python {

namespace {

// In the order of MetabolicUnit.
constexpr std::array<std::string_view, 4> kUnits{"met", "W/m²", "W", "W above basal"};

Reference garmentsOf(std::span<const Garment> garments)
{
    return list(garments, [](const Garment& garment) {
        return tuple(text(garment.id), text(garment.name), number(garment.clo));
    });
}

void refuseOtherSizes(const std::vector<Doubles>& columns)
{
    for (const Doubles& column : columns)
        if (column.size() != columns.front().size())
            throw std::invalid_argument("comfortics: the arrays have different sizes");
}

} // namespace

/// Activities, ensembles, garments, chairs and work clothing, each a list of tuples.
PyObject* personTables(PyObject* /*module*/, PyObject* /*none*/)
{
    return answer([] {
        return tuple(list(activities(),
                          [](const Activity& activity) {
                              return tuple(text(activity.id), text(activity.name), number(activity.rate),
                                           text(kUnits[static_cast<std::size_t>(activity.unit)]),
                                           text(activity.source));
                          }),
                     garmentsOf(ensembles()), garmentsOf(garments()), garmentsOf(chairs()),
                     list(workClothing(), [](const WorkClothing& one) {
                         return tuple(text(one.id), text(one.name), number(one.adjustment));
                     }));
    });
}

/// (a tuple of ids): the insulation.
PyObject* insulationOfGarments(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        PyObject* ids = nullptr;
        if (PyArg_ParseTuple(arguments, "O!", &PyTuple_Type, &ids) == 0)
            throw PythonError();
        std::vector<std::string_view> names;
        for (Py_ssize_t i = 0; i < PyTuple_Size(ids); ++i) {
            Py_ssize_t size = 0;
            const char* const id = PyUnicode_AsUTF8AndSize(PyTuple_GetItem(ids, i), &size);
            if (id == nullptr)
                throw PythonError();
            names.emplace_back(id, static_cast<std::size_t>(size));
        }
        return number(insulationOf(names));
    });
}

/// (temperatures): an array of insulations.
PyObject* clothingByWeatherArray(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        PyObject* temperatures = nullptr;
        if (PyArg_ParseTuple(arguments, "O", &temperatures) == 0)
            throw PythonError();
        const Doubles given(temperatures);
        Reference results = given.like();
        clothingByWeather(Column(given.data()), given.size(), dataOf(results));
        return results;
    });
}

/// (rates, from, to, weight, height, age, sex, surface): an array of rates. Units by their places; what is
/// not None is of the shape of the rates.
PyObject* metabolicRateArrays(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        std::array<PyObject*, 6> given{};
        int from = 0;
        int to = 0;
        if (PyArg_ParseTuple(arguments, "OiiOOOOO", &given[0], &from, &to, &given[1], &given[2], &given[3],
                             &given[4], &given[5]) == 0)
            throw PythonError();
        std::vector<Doubles> arrays;
        arrays.reserve(given.size());
        std::array<Column, given.size()> columns{};
        for (std::size_t i = 0; i < given.size(); ++i)
            if (given[i] != Py_None) {
                arrays.emplace_back(given[i]);
                columns[i] = Column(arrays.back().data());
            }
        refuseOtherSizes(arrays);
        Reference results = arrays.front().like();
        convertMetabolicRate(columns[0], static_cast<MetabolicUnit>(from), static_cast<MetabolicUnit>(to),
                             {.weight = columns[1],
                              .height = columns[2],
                              .age = columns[3],
                              .sex = columns[4],
                              .surface = columns[5]},
                             arrays.front().size(), dataOf(results));
        return results;
    });
}

/// (a tuple of the arrays of seven days, yesterday's first, alpha or None for the fixed weights): an array.
PyObject* runningMeanArrays(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        PyObject* days = nullptr;
        PyObject* alpha = nullptr;
        if (PyArg_ParseTuple(arguments, "O!O", &PyTuple_Type, &days, &alpha) == 0)
            throw PythonError();
        if (PyTuple_Size(days) != static_cast<Py_ssize_t>(kRunningDays))
            throw std::invalid_argument("comfortics: a running mean looks back on seven days");
        std::vector<Doubles> arrays;
        arrays.reserve(kRunningDays);
        std::vector<Column> columns;
        for (std::size_t i = 0; i < kRunningDays; ++i) {
            arrays.emplace_back(PyTuple_GetItem(days, static_cast<Py_ssize_t>(i)));
            columns.emplace_back(arrays.back().data());
        }
        refuseOtherSizes(arrays);
        const std::size_t count = arrays.front().size();
        Reference results = arrays.front().like();
        if (alpha == Py_None)
            runningMeanFixed(columns, count, dataOf(results));
        else
            runningMean(columns, PyFloat_AsDouble(alpha), count, dataOf(results));
        return results;
    });
}

} // namespace comfortics::python
