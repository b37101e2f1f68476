// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/units.h>

#include "formulas/units.h"
#include "values/float_flags.h"
#include "values/same_letters.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace comfortics {

namespace {

using formulas::Measure;

constexpr std::size_t kBaseCount = formulas::kMeasureCount;

static_assert(static_cast<int>(Dimension::Temperature) == static_cast<int>(Measure::Temperature) &&
              static_cast<int>(Dimension::Speed) == static_cast<int>(Measure::AirVelocity) &&
              static_cast<int>(Dimension::Irradiance) == static_cast<int>(Measure::SolarRadiation));

constexpr auto kAll = [] {
    constexpr std::array<std::string_view, kBaseCount> names{"Celsius", "meters per second",
                                                             "watts per square meter"};
    std::array<Unit, kBaseCount + formulas::kUnitCount> all{};
    for (std::size_t i = 0; i < kBaseCount; ++i)
        all[i] = {formulas::unitOfReadings(static_cast<Measure>(i)), names[i], static_cast<Dimension>(i)};
    for (std::size_t i = 0; i < formulas::kUnitCount; ++i)
        all[kBaseCount + i] = {formulas::kUnits[i].name, formulas::kUnits[i].unit,
                               static_cast<Dimension>(formulas::kUnits[i].measure)};
    return all;
}();

/// How values of a unit become those of the readings; null for the readings' own.
const formulas::Unit* wayFrom(const Unit& unit)
{
    return formulas::findUnit(unit.symbol);
}

/// The other way: every unit is a factor and an offset, seen at two points.
double backTo(const formulas::Unit& unit, double value)
{
    constexpr double kFar = 1048576; // a power of 2, so that the division adds no error
    const double offset = unit.plain(0);
    const double factor = (unit.plain(kFar) - offset) / kFar;
    return (value - offset) / factor;
}

} // namespace

std::span<const Unit> units() noexcept
{
    return kAll;
}

const Unit* findUnit(std::string_view symbol) noexcept
{
    for (const Unit& unit : kAll)
        if (values::sameLetters(unit.symbol, symbol))
            return &unit;
    return nullptr;
}

void convert(const double* values, std::size_t count, const Unit& from, const Unit& to, double* results)
{
    if (from.dimension != to.dimension)
        throw std::invalid_argument("comfortics: " + std::string(from.symbol) + " cannot be converted to " +
                                    std::string(to.symbol));
    if (from.symbol == to.symbol) {
        std::copy_n(values, values == results ? 0 : count, results);
        return;
    }
    const values::FloatFlags flags;
    const formulas::Unit* const first = wayFrom(from);
    const formulas::Unit* const second = wayFrom(to);
    for (std::size_t i = 0; i < count; ++i) {
        const double base = first == nullptr ? values[i] : first->plain(values[i]);
        results[i] = second == nullptr ? base : backTo(*second, base);
    }
}

double convert(double value, std::string_view from, std::string_view to)
{
    const auto find = [](std::string_view symbol) -> const Unit& {
        if (const Unit* const unit = findUnit(symbol))
            return *unit;
        throw std::invalid_argument("comfortics: there is no unit \"" + std::string(symbol) + "\"");
    };
    convert(&value, 1, find(from), find(to), &value);
    return value;
}

} // namespace comfortics
