// SPDX-License-Identifier: GPL-3.0-or-later
//
// The units that can be converted into those of the readings: °C, m/s, W/m².
#pragma once

#include "texts/number_text.h"
#include "values/number.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace comfortics::converter {

enum class Panel { Temperature, AirVelocity, SolarRadiation };

inline constexpr std::size_t kPanelCount = 3;

/// What a panel is called, and the unit that its results are in.
struct PanelInfo {
    std::string_view caption;
    std::string_view unit;
};

inline constexpr std::array<PanelInfo, kPanelCount> kPanelInfo{{
    {"Temperature", "°C"},
    {"Air Velocity", "m/s"},
    {"Solar Radiation", "W/m²"},
}};

constexpr const PanelInfo& panelInfo(Panel panel)
{
    return kPanelInfo[static_cast<std::size_t>(panel)];
}

/// One foreign unit: its box on the panel, its names and the way to the panel's unit.
struct Conversion {
    Panel panel = Panel::Temperature;
    std::string_view box;  ///< name of the form's box
    std::string_view name; ///< short name, as typed in a terminal
    std::string_view unit; ///< as the panel shows it; a radiation unit without its superscript two
    values::Number (*formula)(values::Number x) = nullptr;
    values::Format format = values::kFormat0_0;
};

inline constexpr std::size_t kConversionCount = 20;

namespace detail {
using values::kFormat0_0;
using values::kFormat0_00;
using values::Number;
} // namespace detail

// clang-format off
/// The factors stand as published; none is derived from another.
inline constexpr std::array<Conversion, kConversionCount> kConversions{{
    {Panel::Temperature, "txt_F",  "F",  "Fahrenheit", [](detail::Number x) { return (x - 32) * (detail::Number(5) / 9); }, detail::kFormat0_0},
    {Panel::Temperature, "txt_K",  "K",  "Kelvin",     [](detail::Number x) { return x - 273.15; }, detail::kFormat0_0},
    {Panel::Temperature, "txt_Ra", "Ra", "Rankine",    [](detail::Number x) { return (x - 491.67) * (detail::Number(5) / 9); }, detail::kFormat0_0},
    {Panel::Temperature, "txt_D",  "D",  "Delisle",    [](detail::Number x) { return 100 - x * (detail::Number(2) / 3); }, detail::kFormat0_0},
    {Panel::Temperature, "txt_N",  "N",  "Newton",     [](detail::Number x) { return x * (detail::Number(100) / 33); }, detail::kFormat0_0},
    {Panel::Temperature, "txt_Re", "Re", "Reaumur",    [](detail::Number x) { return x * (detail::Number(5) / 4); }, detail::kFormat0_0},
    {Panel::Temperature, "txt_Ro", "Ro", "Romer",      [](detail::Number x) { return (x - 7.5) * (detail::Number(40) / 21); }, detail::kFormat0_0},
    {Panel::AirVelocity, "txt_mm",    "m/min",  "meters per minute",   [](detail::Number x) { return x / 60; }, detail::kFormat0_00},
    {Panel::AirVelocity, "txt_kmh",   "km/h",   "kilometers per hour", [](detail::Number x) { return x / 3.6; }, detail::kFormat0_00},
    {Panel::AirVelocity, "txt_knots", "kn",     "knots",               [](detail::Number x) { return x / 1.9438; }, detail::kFormat0_00},
    {Panel::AirVelocity, "txt_mph",   "mph",    "miles per hour",      [](detail::Number x) { return x / 2.2369; }, detail::kFormat0_00},
    {Panel::AirVelocity, "txt_fts",   "ft/s",   "feet per second",     [](detail::Number x) { return x / 3.2808; }, detail::kFormat0_00},
    {Panel::AirVelocity, "txt_ftm",   "ft/min", "feet per minute",     [](detail::Number x) { return x / 196.85; }, detail::kFormat0_00},
    {Panel::SolarRadiation, "txt_Win",    "W/in2",     "W/in",     [](detail::Number x) { return x * 1550.0031000062; }, detail::kFormat0_0},
    {Panel::SolarRadiation, "txt_CHUhft", "CHU/h/ft2", "CHU/h/ft", [](detail::Number x) { return x * 5.6782633953555; }, detail::kFormat0_0},
    {Panel::SolarRadiation, "txt_kcalhm", "kcal/h/m2", "kcal/h/m", [](detail::Number x) { return x * 1.1629800200033; }, detail::kFormat0_0},
    {Panel::SolarRadiation, "txt_Jsm",    "J/s/m2",    "J/s/m",    [](detail::Number x) { return x * 1; }, detail::kFormat0_0},
    {Panel::SolarRadiation, "txt_kWm",    "kW/m2",     "kW/m",     [](detail::Number x) { return x * 1000; }, detail::kFormat0_0},
    {Panel::SolarRadiation, "txt_Wcm",    "W/cm2",     "W/cm",     [](detail::Number x) { return x * 10000; }, detail::kFormat0_0},
    {Panel::SolarRadiation, "txt_Btusft", "Btu/s/ft2", "Btu/s/ft", [](detail::Number x) { return x * 11356.538527057; }, detail::kFormat0_0},
}};
// clang-format on

/// The place of a box in kConversions; kConversionCount if there is no such box.
constexpr std::size_t placeOfBox(std::string_view box)
{
    std::size_t place = 0;
    while (place < kConversionCount && kConversions[place].box != box)
        ++place;
    return place;
}

/// The unit's text with its superscript, for instance "kW/m²".
std::string unitText(const Conversion& conversion);

/// x of the foreign unit in the panel's unit, in the panel's format. Fails (RunFailure) where the
/// result is beyond the range of numbers.
std::string converted(const Conversion& conversion, double x);

/// The unit of that name, whatever its case: the short name, the text that the panel shows, or the
/// name of its box without "txt_". None for any other text.
const Conversion* findConversion(std::string_view name);

} // namespace comfortics::converter
