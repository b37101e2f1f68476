// SPDX-License-Identifier: GPL-3.0-or-later
//
// The compiled part of the Python package. Its functions take arrays and tuples as the package's own sources
// give them; what users call, and what they are told, stands there.
#define COMFORTICS_IMPORTS_NUMPY
#include "python/numpy_api.h"

#include "catalogue/catalogue.h"
#include "python/calculate.h"
#include "python/doubles.h"
#include "python/lists.h"
#include "python/models.h"
#include "python/person.h"
#include "python/reference.h"
#include "python/ufuncs.h"
#include "texts/number_text.h"

#include <comfortics/comfortics.h>

#include <array>
#include <cmath>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::python {

void raiseCurrentException() noexcept
{
    try {
        throw;
    } catch (const PythonError&) {
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const std::logic_error& error) { // std::invalid_argument and its like
        PyErr_SetString(PyExc_ValueError, error.what());
    } catch (const std::exception& error) {
        PyErr_SetString(PyExc_RuntimeError, error.what());
    }
}

namespace {

Reference truth(bool value)
{
    return number(value ? 1L : 0L);
}

Reference limitsOf(const Limits& limits)
{
    return tuple(truth(limits.bounded), number(static_cast<long>(limits.judged)),
                 number(limits.temperatureLow), number(limits.temperatureHigh), truth(limits.windBounded),
                 truth(limits.windAt10m), number(limits.windLow), number(limits.windHigh));
}

Reference indexOf(const Index& index)
{
    const values::Format format = catalogue::row(index.number).format;
    return tuple(number(static_cast<long>(index.number)), text(index.id), text(index.name), text(index.unit),
                 text(familyName(index.family)),
                 list(index.inputs, [](Quantity input) { return text(info(input).id); }),
                 truth(index.readsAssumptions), limitsOf(index.limits), text(index.reference.authors),
                 text(index.reference.year), text(index.reference.citation()),
                 number(static_cast<long>(index.reference.confidence)),
                 number(static_cast<long>(format.decimals)),
                 list(index.categories, [](const Category& category) {
                     return tuple(number(category.lower), number(category.upper), text(category.label),
                                  number(static_cast<long>(category.severity)), text(category.note));
                 }));
}

PyObject* catalogue(PyObject* /*module*/, PyObject* /*none*/)
{
    return answer([] { return list(indices(), indexOf); });
}

PyObject* quantities(PyObject* /*module*/, PyObject* /*none*/)
{
    return answer([] {
        std::vector<QuantityInfo> all;
        for (std::size_t i = 0; i < kQuantityCount; ++i)
            all.push_back(info(static_cast<Quantity>(i)));
        return list(all, [](const QuantityInfo& quantity) {
            return tuple(text(quantity.id), text(quantity.symbol), text(quantity.name), text(quantity.unit));
        });
    });
}

PyObject* allUnits(PyObject* /*module*/, PyObject* /*none*/)
{
    return answer([] {
        return list(units(), [](const Unit& unit) {
            return tuple(text(unit.symbol), text(unit.name), number(static_cast<long>(unit.dimension)));
        });
    });
}

PyObject* statusTexts(PyObject* /*module*/, PyObject* /*none*/)
{
    return answer([] {
        std::array<Status, kStatusCount> all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = static_cast<Status>(i);
        return list(all, [](Status status) { return text(statusText(status)); });
    });
}

/// (number of an index, value): the text that all tables show, empty for NaN.
PyObject* formatValue(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        int number = 0;
        double value = 0;
        if (PyArg_ParseTuple(arguments, "id", &number, &value) == 0)
            throw PythonError();
        const values::Format format = catalogue::row(index(number).number).format;
        return text(std::isfinite(value) ? texts::format(value, format) : std::string());
    });
}

/// (values, from, to): an array of doubles.
PyObject* convertArray(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        PyObject* values = nullptr;
        const char* from = nullptr;
        const char* to = nullptr;
        if (PyArg_ParseTuple(arguments, "Oss", &values, &from, &to) == 0)
            throw PythonError();
        const auto unit = [](const char* symbol) -> const Unit& {
            if (const Unit* const found = findUnit(symbol))
                return *found;
            throw std::invalid_argument("comfortics: there is no unit \"" + std::string(symbol) + "\"");
        };
        const Doubles given(values);
        Reference results = given.like();
        convert(given.data(), given.size(), unit(from), unit(to), dataOf(results));
        return results;
    });
}

/// (latitude, longitude, day of year, minute of day, offset, cloudiness), all of one shape: the four arrays
/// of the library's SolarRadiation.
PyObject* solarRadiationArrays(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        std::array<PyObject*, 6> given{};
        if (PyArg_ParseTuple(arguments, "OOOOOO", &given[0], &given[1], &given[2], &given[3], &given[4],
                             &given[5]) == 0)
            throw PythonError();
        std::vector<Doubles> columns;
        columns.reserve(given.size());
        for (PyObject* const object : given)
            columns.emplace_back(object);
        for (const Doubles& column : columns)
            if (column.size() != columns[0].size())
                throw std::invalid_argument("comfortics: the arrays have different sizes");
        Reference horizontal = columns[0].like();
        Reference tilted = columns[0].like();
        Reference horizontalClouds = columns[0].like();
        Reference tiltedClouds = columns[0].like();
        const PlaceAndTime where{.latitude = columns[0].data(),
                                 .longitude = columns[1].data(),
                                 .dayOfYear = columns[2].data(),
                                 .minuteOfDay = columns[3].data(),
                                 .utcOffset = columns[4].data(),
                                 .cloudiness = columns[5].data()};
        const SolarRadiation results{dataOf(horizontal), dataOf(tilted), dataOf(horizontalClouds),
                                     dataOf(tiltedClouds)};
        Py_BEGIN_ALLOW_THREADS solarRadiation(where, columns[0].size(), results);
        Py_END_ALLOW_THREADS return tuple(horizontal, tilted, horizontalClouds, tiltedClouds);
    });
}

std::array<PyMethodDef, 19> methods{{
    {"catalogue", catalogue, METH_NOARGS, nullptr},
    {"quantities", quantities, METH_NOARGS, nullptr},
    {"units", allUnits, METH_NOARGS, nullptr},
    {"status_texts", statusTexts, METH_NOARGS, nullptr},
    {"format_value", formatValue, METH_VARARGS, nullptr},
    {"calculate_arrays", calculateArrays, METH_VARARGS, nullptr},
    {"explain_point", explainPoint, METH_VARARGS, nullptr},
    {"convert_array", convertArray, METH_VARARGS, nullptr},
    {"solar_radiation_arrays", solarRadiationArrays, METH_VARARGS, nullptr},
    {"models", models, METH_NOARGS, nullptr},
    {"evaluate_model", evaluateModels, METH_VARARGS, nullptr},
    {"explain_model", explainModels, METH_VARARGS, nullptr},
    {"model_course", courseOfModel, METH_VARARGS, nullptr},
    {"person_tables", personTables, METH_NOARGS, nullptr},
    {"insulation_of_garments", insulationOfGarments, METH_VARARGS, nullptr},
    {"clothing_by_weather_array", clothingByWeatherArray, METH_VARARGS, nullptr},
    {"metabolic_rate_arrays", metabolicRateArrays, METH_VARARGS, nullptr},
    {"running_mean_arrays", runningMeanArrays, METH_VARARGS, nullptr},
    {nullptr, nullptr, 0, nullptr},
}};

PyModuleDef definition{PyModuleDef_HEAD_INIT,
                       "_comfortics",
                       "The compiled part of comfortics.",
                       -1,
                       methods.data(),
                       nullptr,
                       nullptr,
                       nullptr,
                       nullptr};

} // namespace

} // namespace comfortics::python

PyMODINIT_FUNC PyInit__comfortics()
{
    using namespace comfortics::python;
    import_array();
    import_umath();
    return answer([] {
        Reference module(PyModule_Create(&definition));
        addUfuncs(module.get());
        if (PyModule_AddObjectRef(module.get(), "version", text(comfortics::version()).get()) < 0)
            throw PythonError();
        const Reference exponent = number(comfortics::Assumptions().windExponent[0]);
        if (PyModule_AddObjectRef(module.get(), "wind_exponent", exponent.get()) < 0)
            throw PythonError();
        return module;
    });
}
