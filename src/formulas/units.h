// SPDX-License-Identifier: GPL-3.0-or-later
//
// The units that can be converted into those of the readings: °C, m/s, W/m².
#pragma once

#include "values/number.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace comfortics::formulas {

/// What is measured.
enum class Measure { Temperature, AirVelocity, SolarRadiation };

inline constexpr std::size_t kMeasureCount = 3;

/// The unit that the readings of a measure are in.
constexpr std::string_view unitOfReadings(Measure measure)
{
    constexpr std::array<std::string_view, kMeasureCount> kUnitsOfReadings{"°C", "m/s", "W/m²"};
    return kUnitsOfReadings[static_cast<std::size_t>(measure)];
}

/// A foreign unit, and the way from it to the unit of the readings: one text for both number types, so
/// the same bits.
struct Unit {
    Measure measure;
    std::string_view name; ///< short name, as typed in a terminal
    std::string_view unit; ///< written out; a radiation unit without its superscript two
    values::Number (*checked)(values::Number x);
    double (*plain)(double x);
};

namespace detail {

template <class Formula>
constexpr Unit unit(Measure measure, std::string_view name, std::string_view text, Formula formula)
{
    return {measure, name, text, formula, formula};
}

} // namespace detail

inline constexpr std::size_t kUnitCount = 20;

// clang-format off
/// The factors stand as published; none is derived from another.
inline constexpr std::array<Unit, kUnitCount> kUnits{{
    detail::unit(Measure::Temperature, "F", "Fahrenheit", [](auto x) { return (x - 32) * (decltype(x)(5) / 9); }),
    detail::unit(Measure::Temperature, "K", "Kelvin", [](auto x) { return x - 273.15; }),
    detail::unit(Measure::Temperature, "Ra", "Rankine", [](auto x) { return (x - 491.67) * (decltype(x)(5) / 9); }),
    detail::unit(Measure::Temperature, "D", "Delisle", [](auto x) { return 100 - x * (decltype(x)(2) / 3); }),
    detail::unit(Measure::Temperature, "N", "Newton", [](auto x) { return x * (decltype(x)(100) / 33); }),
    detail::unit(Measure::Temperature, "Re", "Reaumur", [](auto x) { return x * (decltype(x)(5) / 4); }),
    detail::unit(Measure::Temperature, "Ro", "Romer", [](auto x) { return (x - 7.5) * (decltype(x)(40) / 21); }),
    detail::unit(Measure::AirVelocity, "m/min", "meters per minute", [](auto x) { return x / 60; }),
    detail::unit(Measure::AirVelocity, "km/h", "kilometers per hour", [](auto x) { return x / 3.6; }),
    detail::unit(Measure::AirVelocity, "kn", "knots", [](auto x) { return x / 1.9438; }),
    detail::unit(Measure::AirVelocity, "mph", "miles per hour", [](auto x) { return x / 2.2369; }),
    detail::unit(Measure::AirVelocity, "ft/s", "feet per second", [](auto x) { return x / 3.2808; }),
    detail::unit(Measure::AirVelocity, "ft/min", "feet per minute", [](auto x) { return x / 196.85; }),
    detail::unit(Measure::SolarRadiation, "W/in2", "W/in", [](auto x) { return x * 1550.0031000062; }),
    detail::unit(Measure::SolarRadiation, "CHU/h/ft2", "CHU/h/ft", [](auto x) { return x * 5.6782633953555; }),
    detail::unit(Measure::SolarRadiation, "kcal/h/m2", "kcal/h/m", [](auto x) { return x * 1.1629800200033; }),
    detail::unit(Measure::SolarRadiation, "J/s/m2", "J/s/m", [](auto x) { return x * 1; }),
    detail::unit(Measure::SolarRadiation, "kW/m2", "kW/m", [](auto x) { return x * 1000; }),
    detail::unit(Measure::SolarRadiation, "W/cm2", "W/cm", [](auto x) { return x * 10000; }),
    detail::unit(Measure::SolarRadiation, "Btu/s/ft2", "Btu/s/ft", [](auto x) { return x * 11356.538527057; }),
}};
// clang-format on

/// The unit of that short name, exactly as it stands; none for any other text.
constexpr const Unit* findUnit(std::string_view name)
{
    for (const Unit& unit : kUnits)
        if (unit.name == name)
            return &unit;
    return nullptr;
}

} // namespace comfortics::formulas
