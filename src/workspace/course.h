// SPDX-License-Identifier: GPL-3.0-or-later
//
// The course of one index or figure of a model while one reading moves and the others are held.
#pragma once

#include "classic/calculation.h"
#include "classic/limits.h"
#include "workspace/item.h"
#include "workspace/situation.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::workspace {

/// What can move. Of a pair of readings it is the one that is given.
enum class CourseAxis : std::uint8_t { AirTemperature, Humidity, Wind, Radiation };

inline constexpr std::size_t kCourseAxisCount = 4;

/// The reading that moves: for humidity the dew point or the relative humidity, and so on.
classic::Reading movedReading(const classic::Inputs& inputs, CourseAxis axis);

struct CourseRequest {
    classic::Inputs inputs;
    Item item = 1;
    CourseAxis axis = CourseAxis::AirTemperature;
    FieldTexts person{}; ///< with which a model is calculated, the same at each point

    friend bool operator==(const CourseRequest&, const CourseRequest&) = default;
};

struct CoursePoint {
    double reading = 0;                        ///< in the unit of the reading
    std::string readingText;                   ///< as it is typed into its box
    std::optional<double> value;               ///< before it was rounded to its text
    std::string text;                          ///< as in the results table; empty without a value
    std::optional<catalogue::Meaning> meaning; ///< the class of the value
    bool inside = true;                        ///< the value lies within the limits of the index
    bool beyondPole = false;                   ///< damp heat has turned the sign of the formula
    classic::OutcomeKind kind = classic::OutcomeKind::NotCalculated;
    std::string reason; ///< why there is no value; empty where there is one
};

/// Points side by side without a value, all for the same cause.
struct CourseGap {
    double from = 0;
    double to = 0;
    classic::OutcomeKind kind = classic::OutcomeKind::NotCalculated;
    std::string reason; ///< a clause without a full stop
};

struct Course {
    CourseRequest request;
    classic::Reading moved = classic::Reading::TA;
    std::vector<CoursePoint> points; ///< ascending; empty where there is a problem
    std::vector<CourseGap> gaps;
    std::optional<std::size_t> present; ///< the place of the present readings among the points
    std::string held;                   ///< sentences on what is held, and by which rules this is
    std::string problem;                ///< why there is no course, in a sentence

    /// Where there is no value and why, in sentences; empty where there is one everywhere.
    std::string gapsInWords() const;
    /// The course in words, for those who do not see it: its ends, its extremes and the present.
    std::string inWords() const;
};

/// "Held: air temperature 33 °C, ..." of all readings that are given, but for one that moves.
std::string heldReadings(const classic::Inputs& inputs, std::optional<classic::Reading> moved = std::nullopt);

/// Calculates each point as all figures are calculated, in some tens of milliseconds altogether. Readings go
/// no further than they can: no dew point above the air, no globe more than 10 °C below it. `goOn` is asked
/// between two points and ends the calculation, whose course then has no points and no problem.
Course courseOf(const classic::Limits& limits, const CourseRequest& request,
                const std::function<bool()>& goOn = {});

} // namespace comfortics::workspace
