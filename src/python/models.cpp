// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/models.h"

#include "python/lists.h"

#include <comfortics/comfortics.h>

#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::python {

namespace {

PyArrayObject* arrayOf(const Reference& object)
{
    return static_cast<PyArrayObject*>(static_cast<void*>(object.get()));
}

Reference choicesOf(std::span<const ModelChoice> choices)
{
    return list(choices, [](const ModelChoice& choice) {
        return tuple(number(choice.value), text(choice.word), text(choice.text));
    });
}

Reference inputOf(const ModelInput& input)
{
    return tuple(text(input.id), text(input.symbol), text(input.name), text(input.unit), number(input.low),
                 number(input.high), number(static_cast<long>(input.need)), number(input.start),
                 text(input.startSource), text(input.without), text(input.unless), text(input.onlyFor),
                 choicesOf(input.choices));
}

Reference resultOf(const ModelResult& result)
{
    return tuple(text(result.id), text(result.name), text(result.unit),
                 number(static_cast<long>(result.decimals)), choicesOf(result.choices),
                 list(result.categories, [](const Category& category) {
                     return tuple(number(category.lower), number(category.upper), text(category.label),
                                  number(static_cast<long>(category.severity)), text(category.note));
                 }));
}

const Model& modelOf(const char* id)
{
    if (const Model* const model = findModel(id))
        return *model;
    throw std::invalid_argument("comfortics: there is no model \"" + std::string(id) + "\"");
}

/// Inputs as the package gives them: None, or an array of doubles, which is of one or of all points.
class Inputs {
public:
    Inputs(PyObject* inputs, std::size_t count)
    {
        for (Py_ssize_t i = 0; i < PyTuple_Size(inputs); ++i) {
            PyObject* const object = PyTuple_GetItem(inputs, i);
            if (object == Py_None) {
                m_columns.emplace_back();
                continue;
            }
            m_arrays.emplace_back(PyArray_FROMANY(object, NPY_DOUBLE, 0, 1, NPY_ARRAY_CARRAY_RO));
            PyArrayObject* const array = arrayOf(m_arrays.back());
            const auto* const data = static_cast<const double*>(PyArray_DATA(array));
            if (PyArray_NDIM(array) == 0)
                m_columns.emplace_back(*data);
            else if (static_cast<std::size_t>(PyArray_SIZE(array)) == count)
                m_columns.emplace_back(data);
            else
                throw std::invalid_argument("comfortics: the arrays have different sizes");
        }
    }

    std::span<const Column> columns() const { return m_columns; }

private:
    std::vector<Reference> m_arrays;
    std::vector<Column> m_columns;
};

Reference newArray(std::size_t count, int type)
{
    auto length = static_cast<npy_intp>(count);
    return Reference(PyArray_SimpleNew(1, &length, type));
}

} // namespace

PyObject* models(PyObject* /*module*/, PyObject* /*none*/)
{
    return answer([] {
        return list(allModels(), [](const Model& model) {
            return tuple(text(model.id), text(model.name), text(model.authors), text(model.year),
                         text(familyName(model.family)), text(model.description), list(model.warnings, text),
                         list(model.references, text), list(model.inputs, inputOf),
                         list(model.results, resultOf), list(model.courseFigures, resultOf));
        });
    });
}

/// (id, inputs, count, places of results, blank, threads): (values, statuses), an array for each result.
PyObject* evaluateModels(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        const char* id = nullptr;
        PyObject* inputs = nullptr;
        Py_ssize_t count = 0;
        PyObject* places = nullptr;
        int blank = 0;
        unsigned threads = 1;
        if (PyArg_ParseTuple(arguments, "sO!nO!pI", &id, &PyTuple_Type, &inputs, &count, &PyTuple_Type,
                             &places, &blank, &threads) == 0)
            throw PythonError();
        const Model& model = modelOf(id);
        const auto points = static_cast<std::size_t>(count);
        const Inputs given(inputs, points);
        std::vector<Reference> values;
        std::vector<Reference> statuses;
        std::vector<ModelOutput> outputs;
        static_assert(sizeof(ModelStatus) == 1);
        for (Py_ssize_t i = 0; i < PyTuple_Size(places); ++i) {
            const long place = PyLong_AsLong(PyTuple_GetItem(places, i));
            values.push_back(newArray(points, NPY_DOUBLE));
            statuses.push_back(newArray(points, NPY_INT8));
            outputs.push_back(
                {.result = static_cast<std::size_t>(place),
                 .values = static_cast<double*>(PyArray_DATA(arrayOf(values.back()))),
                 .stride = 1,
                 .statuses = static_cast<ModelStatus*>(PyArray_DATA(arrayOf(statuses.back())))});
        }
        std::exception_ptr failure;
        Py_BEGIN_ALLOW_THREADS
        try {
            evaluateModel(
                model, given.columns(), points, outputs,
                {.limits = blank != 0 ? ModelLimits::Blank : ModelLimits::Mark, .threads = threads});
        } catch (...) {
            failure = std::current_exception();
        }
        Py_END_ALLOW_THREADS if (failure) std::rethrow_exception(failure);
        const auto taken = [](const Reference& array) { return Reference(Py_NewRef(array.get())); };
        return tuple(list(values, taken), list(statuses, taken));
    });
}

/// (id, inputs of one point, place of a result, blank): a sentence, or an empty text.
PyObject* explainModels(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        const char* id = nullptr;
        PyObject* inputs = nullptr;
        Py_ssize_t result = 0;
        int blank = 0;
        if (PyArg_ParseTuple(arguments, "sO!np", &id, &PyTuple_Type, &inputs, &result, &blank) == 0)
            throw PythonError();
        return text(explainModel(modelOf(id), Inputs(inputs, 1).columns(), static_cast<std::size_t>(result),
                                 0, blank != 0 ? ModelLimits::Blank : ModelLimits::Mark));
    });
}

/// (id, inputs of one point, blank): (the figures of all minutes side by side, what stands behind them).
PyObject* courseOfModel(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        const char* id = nullptr;
        PyObject* inputs = nullptr;
        int blank = 0;
        if (PyArg_ParseTuple(arguments, "sO!p", &id, &PyTuple_Type, &inputs, &blank) == 0)
            throw PythonError();
        const Model& model = modelOf(id);
        const Inputs given(inputs, 1);
        const std::size_t size = courseMinutes(model, given.columns()) * model.courseFigures.size();
        Reference figures = newArray(size, NPY_DOUBLE);
        const ModelStatus status =
            modelCourse(model, given.columns(), {static_cast<double*>(PyArray_DATA(arrayOf(figures))), size},
                        0, blank != 0 ? ModelLimits::Blank : ModelLimits::Mark);
        return tuple(figures, number(static_cast<long>(status)));
    });
}

} // namespace comfortics::python
