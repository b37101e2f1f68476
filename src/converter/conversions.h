// SPDX-License-Identifier: GPL-3.0-or-later
//
// The units of formulas/units.h as the converter shows them: their boxes, texts and formats.
#pragma once

#include "formulas/units.h"
#include "values/format.h"
#include "values/number.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace comfortics::converter {

/// A panel of the form for each measure.
using Panel = formulas::Measure;

inline constexpr std::size_t kPanelCount = formulas::kMeasureCount;

/// What a panel is called, and the unit that its results are in.
struct PanelInfo {
    std::string_view caption;
    std::string_view unit;
};

inline constexpr std::array<PanelInfo, kPanelCount> kPanelInfo{{
    {"Temperature", formulas::unitOfReadings(Panel::Temperature)},
    {"Air Velocity", formulas::unitOfReadings(Panel::AirVelocity)},
    {"Solar Radiation", formulas::unitOfReadings(Panel::SolarRadiation)},
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

inline constexpr std::size_t kConversionCount = formulas::kUnitCount;

namespace detail {

struct Box {
    std::string_view name;
    std::string_view unit;
    values::Format format;
};

// clang-format off
inline constexpr std::array<Box, kConversionCount> kBoxes{{
    {"txt_F", "F", values::kFormat0_0},
    {"txt_K", "K", values::kFormat0_0},
    {"txt_Ra", "Ra", values::kFormat0_0},
    {"txt_D", "D", values::kFormat0_0},
    {"txt_N", "N", values::kFormat0_0},
    {"txt_Re", "Re", values::kFormat0_0},
    {"txt_Ro", "Ro", values::kFormat0_0},
    {"txt_mm", "m/min", values::kFormat0_00},
    {"txt_kmh", "km/h", values::kFormat0_00},
    {"txt_knots", "kn", values::kFormat0_00},
    {"txt_mph", "mph", values::kFormat0_00},
    {"txt_fts", "ft/s", values::kFormat0_00},
    {"txt_ftm", "ft/min", values::kFormat0_00},
    {"txt_Win", "W/in2", values::kFormat0_0},
    {"txt_CHUhft", "CHU/h/ft2", values::kFormat0_0},
    {"txt_kcalhm", "kcal/h/m2", values::kFormat0_0},
    {"txt_Jsm", "J/s/m2", values::kFormat0_0},
    {"txt_kWm", "kW/m2", values::kFormat0_0},
    {"txt_Wcm", "W/cm2", values::kFormat0_0},
    {"txt_Btusft", "Btu/s/ft2", values::kFormat0_0},
}};
// clang-format on

} // namespace detail

/// The conversions, in the order of the form's boxes.
inline constexpr std::array<Conversion, kConversionCount> kConversions = [] {
    std::array<Conversion, kConversionCount> all{};
    for (std::size_t place = 0; place < kConversionCount; ++place) {
        const detail::Box& box = detail::kBoxes[place];
        const formulas::Unit& unit = *formulas::findUnit(box.unit); // one that is missing does not compile
        all[place] = {unit.measure, box.name, unit.name, unit.unit, unit.checked, box.format};
    }
    return all;
}();

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
