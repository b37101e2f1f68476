// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/ufuncs.h"

#include "catalogue/catalogue.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <comfortics/comfortics.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <deque>
#include <span>
#include <string>

namespace comfortics::python {

using texts::lowered;

namespace {

constexpr std::size_t kMostInputs = 8;
/// Points of another type that are converted at a time.
constexpr std::size_t kConverted = 1024;

using Inputs = std::array<Column, kMostInputs>;

void run(const Index& index, const Inputs& inputs, std::size_t count, const Result& result)
{
    evaluate(index, {inputs.data(), index.inputs.size()}, count, result);
}

double* doubles(char* bytes)
{
    return static_cast<double*>(static_cast<void*>(bytes));
}

/// Whether a point reads what another has written, as in reduce and accumulate.
bool isChained(char* const* args, const npy_intp* steps, std::size_t inputs, std::size_t count)
{
    return count > 1 && (steps[inputs] == 0 || args[0] + steps[0] == args[inputs]);
}

void runDoubles(const Index& index, char* const* args, std::size_t count, const npy_intp* steps)
{
    constexpr auto kSize = static_cast<npy_intp>(sizeof(double));
    const std::size_t places = index.inputs.size();
    Inputs inputs;
    for (std::size_t i = 0; i < places; ++i)
        inputs[i] = Column(doubles(args[i]), steps[i] / kSize);
    run(index, inputs, count, {.values = doubles(args[places]), .stride = steps[places] / kSize});
}

void runFloats(const Index& index, char* const* args, std::size_t count, const npy_intp* steps)
{
    const std::size_t places = index.inputs.size();
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): written before they are read
    std::array<std::array<double, kConverted>, kMostInputs> columns;
    std::array<double, kConverted> results; // NOLINT(cppcoreguidelines-pro-type-member-init): likewise
    for (std::size_t first = 0; first < count; first += kConverted) {
        const std::size_t size = std::min(kConverted, count - first);
        const auto at = [&](std::size_t place, std::size_t i) {
            void* const bytes = args[place] + static_cast<npy_intp>(first + i) * steps[place];
            return static_cast<float*>(bytes);
        };
        Inputs inputs;
        for (std::size_t place = 0; place < places; ++place) {
            for (std::size_t i = 0; i < size; ++i)
                columns[place][i] = static_cast<double>(*at(place, i));
            inputs[place] = Column(columns[place].data());
        }
        run(index, inputs, size, {.values = results.data()});
        for (std::size_t i = 0; i < size; ++i)
            *at(places, i) = static_cast<float>(results[i]);
    }
}

using Run = void (*)(const Index&, char* const*, std::size_t, const npy_intp*);

// NumPy calls it without the interpreter's lock.
template <Run run>
void loop(char** args, const npy_intp* dimensions, const npy_intp* steps, void* data)
{
    const Index& index = *static_cast<const Index*>(data);
    const auto count = static_cast<std::size_t>(dimensions[0]);
    const std::size_t inputs = index.inputs.size();
    try {
        if (!isChained(args, steps, inputs, count)) {
            run(index, args, count, steps);
            return;
        }
        std::array<char*, kMostInputs + 1> own{};
        for (std::size_t point = 0; point < count; ++point) {
            for (std::size_t i = 0; i <= inputs; ++i)
                own[i] = args[i] + static_cast<npy_intp>(point) * steps[i];
            run(index, own.data(), 1, steps);
        }
    } catch (...) {
        const PyGILState_STATE state = PyGILState_Ensure();
        raiseCurrentException();
        PyGILState_Release(state);
    }
}

std::string inUnit(double value, std::string_view unit)
{
    return values::plainText(value) + " " + std::string(unit);
}

std::string_view judgedText(Judged judged)
{
    switch (judged) {
    case Judged::AirTemperature:
        break;
    case Judged::NaturalWetBulbTemperature:
        return "natural wet-bulb temperature";
    case Judged::MeanOfRadiantAndAir:
        return "mean of radiant and air temperature";
    case Judged::RadiantLessAir:
        return "mean radiant less air temperature";
    case Judged::WbgtOutdoor:
        return "outdoor wet-bulb globe temperature";
    }
    return "air temperature";
}

std::string limitsText(const Limits& limits)
{
    if (!limits.bounded)
        return "It has no limits.";
    std::string said = "Meant for: " + std::string(judgedText(limits.judged)) + " from " +
                       values::plainText(limits.temperatureLow) + " to " +
                       inUnit(limits.temperatureHigh, "°C");
    if (limits.windBounded)
        said += std::string(", wind speed") + (limits.windAt10m ? " at 10 m" : "") + " from " +
                values::plainText(limits.windLow) + " to " + inUnit(limits.windHigh, "m/s");
    return said + ". The ufunc calculates outside of these limits, too; `calculate` keeps them.";
}

std::string rangeText(const Category& category)
{
    if (std::isinf(category.upper))
        return std::isinf(category.lower) ? "any" : "from " + values::plainText(category.lower);
    const std::string below = "below " + values::plainText(category.upper);
    return std::isinf(category.lower) ? below : values::plainText(category.lower) + " to " + below;
}

std::string docstring(const Index& index)
{
    std::string doc(index.name);
    doc += "\n\nParameters\n----------\n";
    for (const Quantity quantity : index.inputs) {
        const QuantityInfo& input = info(quantity);
        doc += lowered(input.symbol) + " : array_like\n    " + std::string(input.name) + " [" +
               std::string(input.unit) + "].\n";
    }
    doc += "\nReturns\n-------\nndarray or scalar\n    ";
    const std::string unit(catalogue::row(index.number).shownUnit());
    doc += unit.empty() ? std::string("The index, which has no unit") : "The index [" + unit + "]";
    doc += "; NaN where an input is NaN or the formula\n    has no defined value.\n\nNotes\n-----\nIndex " +
           std::to_string(index.number) + " (" + lowered(familyName(index.family)) + "). " +
           limitsText(index.limits) + "\n";
    if (index.readsAssumptions)
        doc += "Site and body are those that `calculate` assumes.\n";
    if (!index.categories.empty()) {
        doc += "\nClasses of values:\n\n";
        for (const Category& category : index.categories)
            doc += "- " + rangeText(category) + ": " + std::string(category.label) + "\n";
    }
    doc += "\nReferences\n----------\n" + index.reference.citation() + "\n";
    return doc;
}

/// What NumPy keeps pointers to for as long as it lives.
struct Kept {
    std::array<PyUFuncGenericFunction, 2> loops{&loop<runFloats>, &loop<runDoubles>};
    std::array<void*, 2> data{};
    std::array<char, 2 * (kMostInputs + 1)> types{};
    std::string name;
    std::string doc;
};

} // namespace

void addUfuncs(PyObject* module)
{
    static std::deque<Kept> all;
    for (const Index& index : indices()) {
        Kept& kept = all.emplace_back();
        const std::size_t places = index.inputs.size() + 1;
        std::fill_n(kept.types.begin(), places, static_cast<char>(NPY_FLOAT));
        std::fill_n(kept.types.begin() + static_cast<std::ptrdiff_t>(places), places,
                    static_cast<char>(NPY_DOUBLE));
        kept.data.fill(const_cast<Index*>(&index)); // NOLINT: only read
        kept.name = index.id;
        kept.doc = docstring(index);
        Reference ufunc(PyUFunc_FromFuncAndData(
            kept.loops.data(), kept.data.data(), kept.types.data(), static_cast<int>(kept.loops.size()),
            static_cast<int>(index.inputs.size()), 1, PyUFunc_None, kept.name.c_str(), kept.doc.c_str(), 0));
        if (PyModule_AddObjectRef(module, kept.name.c_str(), ufunc.get()) < 0)
            throw PythonError();
    }
}

} // namespace comfortics::python
