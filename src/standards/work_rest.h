// SPDX-License-Identifier: GPL-3.0-or-later
//
// How many minutes of an hour can be worked in the heat: three ways that do not agree, each with its own
// basis.
//
// Traps: the metabolic rates are of the whole body in W, and that at rest is 115 W in one and 117 W in the
// other; the wet-bulb globe temperatures are effective, with what the clothing adds. The table of NIOSH is in
// whole degrees Fahrenheit: a temperature between two of its rows takes the hotter.
#pragma once

#include "standards/answer.h"

#include <cstdint>

namespace comfortics::standards {

namespace work_rest_range {
inline constexpr Input kWbgtWork{"wbgtWork", Quantity::Temperature};
inline constexpr Input kWbgtRest{"wbgtRest", Quantity::Temperature};
inline constexpr Input kWbgt{"wbgt", Quantity::Temperature};
inline constexpr Input kWork{"work", Quantity::Positive, {100, kInfinity}};
inline constexpr Input kRest{"rest", Quantity::Positive};
inline constexpr Input kTa{"ta", Quantity::Temperature};
inline constexpr Input kRH{"RH", Quantity::Humidity, {10, 60}};
} // namespace work_rest_range

struct WorkRest {
    Verdict verdict{};
    double workMin = kNaN; ///< minutes of work in an hour
    double restMin = kNaN; ///< the others
    double shown = kNaN;   ///< workMin, rounded down to 5 minutes
};

struct TimeWeighted {
    double wbgtWork = kNaN; ///< effective, at the place of work [°C]
    double wbgtRest = kNaN; ///< effective, where the rest is taken [°C]; mostly the same
    double work = kNaN;     ///< metabolic rate at work [W]
    double rest = 115;      ///< the same at rest [W]
    bool acclimatised = true;
};

/// By the averages of the hour, which must not exceed the limit for their metabolic rate (ISO 7243:2017 and
/// NIOSH 2016-106): the most work that holds. None, for Reason::NoRestHere, where even an hour of rest does
/// not.
WorkRest workRestTimeWeighted(const TimeWeighted& hour, Limits limits = Limits::Mark) noexcept;

/// The limits that workCapacity lies between.
enum class CapacityLimits : std::uint8_t {
    Iso,   ///< 34.9 - M / 46
    Niosh, ///< 56.7 - 11.5 log10 M
};

struct Capacity {
    double wbgt = kNaN; ///< effective [°C]
    double work = kNaN; ///< metabolic rate at work [W], above that at rest
    double rest = 117;  ///< the same at rest [W]
    CapacityLimits between = CapacityLimits::Iso;
};

struct CapacityResult {
    WorkRest hour{};
    double share = kNaN; ///< of the hour [%]
};

/// Work capacity by Bröde, Fiala, Lemke and Kjellstrom (2018): from all at the limit for work to none at the
/// limit for rest.
CapacityResult workCapacity(const Capacity& capacity, Limits limits = Limits::Mark) noexcept;

enum class Sunshine : std::uint8_t { Full, PartlyCloudy, None };
enum class Labour : std::uint8_t { Light, Moderate, Heavy };

struct NioshTable {
    double ta = kNaN; ///< air temperature [°C]
    double RH = kNaN; ///< relative humidity [%], 10..60
    Sunshine sun = Sunshine::Full;
    Labour labour = Labour::Moderate;
};

enum class NioshAdvice : std::uint8_t {
    Normal,   ///< work as usual
    Schedule, ///< work and rest by the minutes
    Caution,  ///< high levels of heat stress: no work
};

struct NioshResult {
    WorkRest hour{};
    double adjusted = kNaN; ///< temperature with what sun and humidity add [°F]
    NioshAdvice advice = NioshAdvice::Normal;
};

/// The table of NIOSH 2016-106 and 2017-127, first made for agriculture: for ordinary clothing, fit workers
/// who are rested, acclimatised and drink, in some movement of the air. None beyond its humidities.
NioshResult workRestByTable(const NioshTable& inputs) noexcept;

} // namespace comfortics::standards
