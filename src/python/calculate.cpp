// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/calculate.h"

#include "python/sheet.h"

#include <comfortics/comfortics.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace comfortics::python {

namespace {

constexpr std::size_t kReadings = 6;
constexpr std::size_t kInputs = 12; // readings and assumptions
/// Points that NumPy converts, and that go to the threads, at a time.
constexpr npy_intp kBuffered = npy_intp{1} << 17;
/// Points that are calculated at a time where readings come in other units or figures are single precision.
constexpr std::size_t kScratch = 8192;

/// How a reading becomes one of the catalogue's: from another unit, then by a factor and a divisor.
struct Conversion {
    const Unit* unit = nullptr;
    double factor = 1;
    double divisor = 1;

    bool needed() const { return unit != nullptr || factor != 1 || divisor != 1; }
    void apply(double* values, std::size_t count) const
    {
        if (unit != nullptr) {
            const auto sameDimension = [this](const Unit& other) {
                return other.dimension == unit->dimension;
            };
            const auto base = std::find_if(units().begin(), units().end(), sameDimension);
            convert(values, count, *unit, *base, values);
        }
        for (std::size_t i = 0; i < count && (factor != 1 || divisor != 1); ++i)
            values[i] = values[i] * factor / divisor;
    }
};

enum class RuleSet : int { Precise, Classic, Robust };

struct Call {
    std::array<PyObject*, kInputs> inputs{}; // null or an array; borrowed
    std::array<Conversion, kInputs> conversions;
    std::vector<Target> targets;
    RuleSet rules = RuleSet::Precise;
    bool limits = true;
    unsigned threads = 1;
};

SheetRules sheetRules(const Call& call)
{
    return {call.rules == RuleSet::Classic ? formulas::Rules::Classic : formulas::Rules::Robust, call.limits};
}

Column* readingOf(Readings& readings, std::size_t place)
{
    const std::array<Column*, kReadings> all{&readings.airTemperature,   &readings.globeTemperature,
                                             &readings.solarRadiation,   &readings.dewPoint,
                                             &readings.relativeHumidity, &readings.windSpeed};
    return all[place];
}

Column* assumptionOf(Assumptions& assumptions, std::size_t place)
{
    const std::array<Column*, kInputs - kReadings> all{
        &assumptions.windExponent,           &assumptions.barometricPressure, &assumptions.emissivity,
        &assumptions.effectiveRadiatingArea, &assumptions.bodyHeight,         &assumptions.bodyMass};
    return all[place];
}

/// An index by its number, a quantity by its place from -1 down.
Target targetOf(PyObject* number)
{
    const long value = PyLong_AsLong(number);
    if (value == -1 && PyErr_Occurred() != nullptr)
        throw PythonError();
    if (value > 0)
        return index(static_cast<int>(value));
    const long place = -1 - value;
    if (value == 0 || place >= static_cast<long>(kQuantityCount))
        throw std::out_of_range("comfortics: there is no quantity " + std::to_string(place));
    return static_cast<Quantity>(place);
}

std::vector<std::size_t> placesOf(PyObject* numbers)
{
    std::vector<std::size_t> places;
    for (Py_ssize_t i = 0; i < PyTuple_Size(numbers); ++i) {
        places.push_back(PyLong_AsSize_t(PyTuple_GetItem(numbers, i)));
        if (PyErr_Occurred() != nullptr)
            throw PythonError();
    }
    return places;
}

std::vector<Target> targetsOf(PyObject* numbers)
{
    std::vector<Target> targets;
    const Py_ssize_t count = PyTuple_Size(numbers);
    if (count < 0)
        throw PythonError();
    for (Py_ssize_t i = 0; i < count; ++i)
        targets.push_back(targetOf(PyTuple_GetItem(numbers, i)));
    return targets;
}

Conversion conversionOf(PyObject* given)
{
    const char* symbol = nullptr;
    Conversion conversion;
    if (PyArg_ParseTuple(given, "zdd", &symbol, &conversion.factor, &conversion.divisor) == 0)
        throw PythonError();
    if (symbol != nullptr && (conversion.unit = findUnit(symbol)) == nullptr)
        throw std::invalid_argument("comfortics: there is no unit \"" + std::string(symbol) + "\"");
    return conversion;
}

void takeInputs(Call& call, PyObject* inputs)
{
    for (std::size_t i = 0; i < kInputs; ++i) {
        PyObject* const input = PyTuple_GetItem(inputs, static_cast<Py_ssize_t>(i));
        if (input == nullptr)
            throw PythonError();
        if (input != Py_None)
            call.inputs[i] = input;
    }
}

/// Gives the interpreter's lock away while it lives.
class Unlocked {
public:
    Unlocked() : m_state(PyEval_SaveThread()) {}
    ~Unlocked() { PyEval_RestoreThread(m_state); }
    Unlocked(const Unlocked&) = delete;
    Unlocked& operator=(const Unlocked&) = delete;

private:
    PyThreadState* m_state;
};

/// Whether the user asked for an end, by Ctrl-C for one; Python has the error then. The thread has no lock.
bool interrupted()
{
    const PyGILState_STATE state = PyGILState_Ensure();
    const bool result = PyErr_CheckSignals() != 0;
    PyGILState_Release(state);
    return result;
}

/// What a call gives besides the figures.
struct Wanted {
    bool statuses = false;
    std::vector<std::size_t> classes{}; ///< the places of the targets whose classes are wanted
};

/// The arrays of the targets: figures, statuses, classes and severities.
class Results {
public:
    Results(std::size_t targets, PyObject* shape, bool single, const Wanted& wanted) : m_single(single)
    {
        std::array<npy_intp, NPY_MAXDIMS> lengths{};
        const Py_ssize_t dimensions = PyTuple_Size(shape);
        if (dimensions < 0 || dimensions > NPY_MAXDIMS)
            throw std::invalid_argument("comfortics: the arrays have too many dimensions");
        for (Py_ssize_t i = 0; i < dimensions; ++i)
            lengths[static_cast<std::size_t>(i)] = PyLong_AsSsize_t(PyTuple_GetItem(shape, i));
        const auto make = [&](int type) {
            return Reference(PyArray_SimpleNew(static_cast<int>(dimensions), lengths.data(), type));
        };
        m_outputs.resize(targets);
        for (Arrays& output : m_outputs) {
            output.values = data(m_values.emplace_back(make(single ? NPY_FLOAT : NPY_DOUBLE)));
            if (wanted.statuses)
                output.statuses = static_cast<Status*>(data(m_statuses.emplace_back(make(NPY_INT8))));
        }
        for (const std::size_t place : wanted.classes) {
            Arrays& output = m_outputs.at(place);
            output.categories = static_cast<std::int8_t*>(data(m_categories.emplace_back(make(NPY_INT8))));
            output.severities = static_cast<std::int8_t*>(data(m_severities.emplace_back(make(NPY_INT8))));
        }
    }

    bool single() const { return m_single; }
    float* floats(std::size_t target) const { return static_cast<float*>(m_outputs[target].values); }

    /// Where the points from `first` on go. There is no place for values in single precision.
    Output output(const Target& target, std::size_t place, std::size_t first) const
    {
        const Arrays& arrays = m_outputs[place];
        const auto from = [first](auto* data) { return data == nullptr ? nullptr : data + first; };
        return {.target = target,
                .values = m_single ? nullptr : static_cast<double*>(arrays.values) + first,
                .statuses = from(arrays.statuses),
                .categories = from(arrays.categories),
                .severities = from(arrays.severities)};
    }

    Reference release()
    {
        return tuple(list(m_values), list(m_statuses), list(m_categories), list(m_severities));
    }

private:
    static_assert(sizeof(Status) == sizeof(npy_int8));

    /// The elements of a target's arrays; null where one is not wanted.
    struct Arrays {
        void* values = nullptr;
        Status* statuses = nullptr;
        std::int8_t* categories = nullptr;
        std::int8_t* severities = nullptr;
    };

    static void* data(const Reference& array)
    {
        return PyArray_DATA(static_cast<PyArrayObject*>(static_cast<void*>(array.get())));
    }
    static Reference list(std::vector<Reference>& items)
    {
        Reference all(PyList_New(static_cast<Py_ssize_t>(items.size())));
        for (std::size_t i = 0; i < items.size(); ++i)
            PyList_SetItem(all.get(), static_cast<Py_ssize_t>(i), items[i].release());
        return all;
    }

    bool m_single;
    std::vector<Reference> m_values;
    std::vector<Reference> m_statuses;
    std::vector<Reference> m_categories;
    std::vector<Reference> m_severities;
    std::vector<Arrays> m_outputs;
};

/// Calculates runs of points one after the other, without the interpreter's lock.
class Runs {
public:
    Runs(const Call& call, const Results& results) : m_call(call), m_results(results)
    {
        m_options.limits = call.limits;
        m_options.threads = call.threads;
        const auto caller = std::this_thread::get_id();
        m_options.progress = [this, caller](std::size_t) {
            if (!m_interrupted && std::this_thread::get_id() == caller)
                m_interrupted = interrupted();
            return !m_interrupted;
        };
        m_inBlocks = results.single();
        for (const Conversion& conversion : call.conversions)
            m_inBlocks = m_inBlocks || conversion.needed();
        if (results.single())
            m_values.resize(call.targets.size() * kScratch);
    }

    bool wasInterrupted() const { return m_interrupted; }

    /// The next `count` points, whose inputs are at `columns`. None at all are checked, too.
    void run(const std::array<Column, kInputs>& columns, std::size_t count)
    {
        if (!m_inBlocks || count == 0) {
            runBlock(columns, 0, count);
            return;
        }
        for (std::size_t first = 0; first < count && !m_interrupted; first += kScratch)
            runBlock(columns, first, std::min(kScratch, count - first));
    }

private:
    void runBlock(const std::array<Column, kInputs>& columns, std::size_t first, std::size_t count)
    {
        Readings readings;
        Assumptions assumptions;
        for (std::size_t i = 0; i < kInputs; ++i) {
            if (!columns[i].given())
                continue;
            const Column column(columns[i].data() + static_cast<std::ptrdiff_t>(first) * columns[i].stride(),
                                columns[i].stride());
            (i < kReadings ? *readingOf(readings, i) : *assumptionOf(assumptions, i - kReadings)) =
                inUnit(i, column, count);
        }
        std::vector<Output> outputs;
        for (std::size_t i = 0; i < m_call.targets.size(); ++i) {
            outputs.push_back(m_results.output(m_call.targets[i], i, m_done));
            if (m_results.single())
                outputs.back().values = m_values.data() + i * kScratch;
        }
        if (m_call.rules == RuleSet::Precise)
            calculate(readings, count, outputs, assumptions, m_options);
        else
            calculateSheet(sheetRules(m_call), readings, count, outputs, assumptions, m_options);
        for (std::size_t i = 0; m_results.single() && i < outputs.size(); ++i)
            std::transform(outputs[i].values, outputs[i].values + count, m_results.floats(i) + m_done,
                           [](double value) { return static_cast<float>(value); });
        m_done += count;
    }

    Column inUnit(std::size_t input, const Column& column, std::size_t count)
    {
        const Conversion& conversion = m_call.conversions[input];
        if (!conversion.needed())
            return column;
        std::vector<double>& converted = m_converted[input];
        converted.resize(kScratch);
        const std::size_t different = column.isScalar() ? 1 : count;
        for (std::size_t i = 0; i < different; ++i)
            converted[i] = column[i];
        conversion.apply(converted.data(), different);
        return {converted.data(), column.isScalar() ? 0 : 1};
    }

    const Call& m_call;
    const Results& m_results;
    Options m_options;
    bool m_inBlocks = false;
    bool m_interrupted = false;
    std::array<std::vector<double>, kInputs> m_converted;
    std::vector<double> m_values; // of a block, by target, where they are kept in single precision
    std::size_t m_done = 0;
};

struct IteratorEnd {
    void operator()(NpyIter* iterator) const { NpyIter_Deallocate(iterator); }
};

/// Goes through the inputs, broadcast and as doubles, in the order of the results.
void runAll(const Call& call, Runs& runs)
{
    std::array<PyArrayObject*, kInputs> arrays{};
    std::array<std::size_t, kInputs> places{};
    std::array<npy_uint32, kInputs> flags{};
    std::array<PyArray_Descr*, kInputs> types{};
    const Reference doubles(static_cast<PyObject*>(static_cast<void*>(PyArray_DescrFromType(NPY_DOUBLE))));
    std::size_t used = 0;
    for (std::size_t i = 0; i < kInputs; ++i) {
        if (call.inputs[i] == nullptr)
            continue;
        if (PyArray_Check(call.inputs[i]) == 0)
            throw std::invalid_argument("comfortics: an input is no array");
        arrays[used] = static_cast<PyArrayObject*>(static_cast<void*>(call.inputs[i]));
        places[used] = i;
        flags[used] = NPY_ITER_READONLY | NPY_ITER_NBO | NPY_ITER_ALIGNED;
        types[used] = static_cast<PyArray_Descr*>(static_cast<void*>(doubles.get()));
        ++used;
    }
    if (used == 0)
        throw std::invalid_argument("comfortics: no reading is given");
    const std::unique_ptr<NpyIter, IteratorEnd> iterator(NpyIter_AdvancedNew(
        static_cast<int>(used), arrays.data(),
        NPY_ITER_EXTERNAL_LOOP | NPY_ITER_BUFFERED | NPY_ITER_GROWINNER | NPY_ITER_ZEROSIZE_OK, NPY_CORDER,
        NPY_SAME_KIND_CASTING, flags.data(), types.data(), -1, nullptr, nullptr, kBuffered));
    if (!iterator)
        throw PythonError();
    if (NpyIter_GetIterSize(iterator.get()) == 0) { // there is nothing to point to
        static constexpr double kAny = 0;
        std::array<Column, kInputs> columns;
        for (std::size_t i = 0; i < used; ++i)
            columns[places[i]] = Column(&kAny, 0);
        runs.run(columns, 0);
        return;
    }
    auto* const next = NpyIter_GetIterNext(iterator.get(), nullptr);
    if (next == nullptr)
        throw PythonError();
    char** const data = NpyIter_GetDataPtrArray(iterator.get());
    const npy_intp* const strides = NpyIter_GetInnerStrideArray(iterator.get());
    const npy_intp* const size = NpyIter_GetInnerLoopSizePtr(iterator.get());

    const Unlocked unlocked;
    do {
        std::array<Column, kInputs> columns;
        for (std::size_t i = 0; i < used; ++i)
            columns[places[i]] = Column(static_cast<const double*>(static_cast<const void*>(data[i])),
                                        strides[i] / static_cast<npy_intp>(sizeof(double)));
        runs.run(columns, static_cast<std::size_t>(*size));
    } while (!runs.wasInterrupted() && next(iterator.get()) != 0);
}

} // namespace

/// (inputs, conversions, targets, rules, limits, threads, shape, single, statuses, classes): the readings and
/// the assumptions as arrays or None; for each the unit that it comes in or None, a factor and a divisor;
/// the targets; rules 0 precise, 1 classic, 2 robust; the shape that the arrays broadcast to; the places of
/// the targets whose classes are wanted. Gives lists of arrays: the figures, their statuses, which is empty
/// where they are not wanted, and the classes and severities.
PyObject* calculateArrays(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        PyObject* inputs = nullptr;
        PyObject* conversions = nullptr;
        PyObject* targets = nullptr;
        int rules = 0;
        int limits = 0;
        PyObject* shape = nullptr;
        int single = 0;
        int statuses = 0;
        PyObject* classes = nullptr;
        Call call;
        if (PyArg_ParseTuple(arguments, "O!O!O!ipIO!ppO!", &PyTuple_Type, &inputs, &PyTuple_Type,
                             &conversions, &PyTuple_Type, &targets, &rules, &limits, &call.threads,
                             &PyTuple_Type, &shape, &single, &statuses, &PyTuple_Type, &classes) == 0)
            throw PythonError();
        takeInputs(call, inputs);
        for (std::size_t i = 0; i < kInputs; ++i)
            call.conversions[i] = conversionOf(PyTuple_GetItem(conversions, static_cast<Py_ssize_t>(i)));
        call.targets = targetsOf(targets);
        call.rules = static_cast<RuleSet>(rules);
        call.limits = limits != 0;
        Results results(call.targets.size(), shape, single != 0,
                        {.statuses = statuses != 0, .classes = placesOf(classes)});
        Runs runs(call, results);
        runAll(call, runs);
        if (runs.wasInterrupted())
            throw PythonError();
        return results.release();
    });
}

/// (inputs, target, rules, limits): numbers or None in the order of calculateArrays. Gives a text.
PyObject* explainPoint(PyObject* /*module*/, PyObject* arguments)
{
    return answer([&] {
        PyObject* inputs = nullptr;
        PyObject* number = nullptr;
        int rules = 0;
        int limits = 0;
        if (PyArg_ParseTuple(arguments, "O!Oip", &PyTuple_Type, &inputs, &number, &rules, &limits) == 0)
            throw PythonError();
        Call call;
        takeInputs(call, inputs);
        Readings readings;
        Assumptions assumptions;
        for (std::size_t i = 0; i < kInputs; ++i) {
            if (call.inputs[i] == nullptr)
                continue;
            const double value = PyFloat_AsDouble(call.inputs[i]);
            if (value == -1.0 && PyErr_Occurred() != nullptr)
                throw PythonError();
            (i < kReadings ? *readingOf(readings, i) : *assumptionOf(assumptions, i - kReadings)) = value;
        }
        call.rules = static_cast<RuleSet>(rules);
        call.limits = limits != 0;
        const Target target = targetOf(number);
        if (call.rules == RuleSet::Precise)
            return text(explain(target, readings, 0, assumptions, {.limits = call.limits}));
        return text(explainSheet(sheetRules(call), readings, target, assumptions));
    });
}

} // namespace comfortics::python
