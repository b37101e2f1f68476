// SPDX-License-Identifier: GPL-3.0-or-later
//
// The course of a model over the minutes of an exposure: the body, the sweat and the loss of water, and the
// minutes in which a limit is reached.
#pragma once

#include "classic/calculation.h"
#include "classic/limits.h"
#include "workspace/axis.h"
#include "workspace/item.h"
#include "workspace/person_and_place.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::workspace {

struct MinutesRequest {
    classic::Inputs inputs;
    Item item = 1; ///< any figure of the model
    FieldTexts person{};

    friend bool operator==(const MinutesRequest&, const MinutesRequest&) = default;
};

/// A figure at the end of each minute, the first one first; NaN where there is none.
struct MinutesCurve {
    const catalogue::AdditionResult* figure = nullptr;
    std::vector<double> values;
};

/// Curves of one unit, drawn together.
struct MinutesPanel {
    std::string title;
    std::string unit;
    std::vector<MinutesCurve> curves;
    std::optional<double> limit; ///< drawn as a line
    Axis values;
};

/// A minute in which a limit is reached.
struct MinutesMark {
    std::size_t minute = 0;
    std::size_t panel = 0;
    bool ends = false; ///< the first of them, which ends the exposure
    std::string what;  ///< a clause: "the rectal temperature reaches 38 °C"
    std::string limit; ///< the same where room is scarce: "rectal 38 °C"
};

struct MinutesCourse {
    MinutesRequest request;
    std::size_t minutes = 0;          ///< 0 where there is a problem
    std::vector<MinutesPanel> panels; ///< the body first
    std::vector<MinutesMark> marks;   ///< ascending
    std::size_t formalFrom = 0;       ///< from this minute on the body is not drawn; 0: to the end
    std::string held;                 ///< sentences on what it is calculated with, and what is doubtful
    std::string problem;              ///< why there is no course, in a sentence

    /// The minute that ends the exposure; null where no limit is reached.
    const MinutesMark* end() const;
    /// One minute in words; counted from 1.
    std::string minuteInWords(std::size_t minute) const;
    /// What is marked, in sentences: the limits, and where the body is a formal value.
    std::string marksInWords() const;
    /// All in words, for those who do not see it.
    std::string inWords() const;
};

/// What a curve of a panel is called: "Core", or the title where it is alone.
std::string curveName(const MinutesPanel& panel, const MinutesCurve& curve);

/// Whether the model of an item has minutes to follow.
bool hasMinutes(const Item& item);

/// Of an item that has minutes. Takes some milliseconds.
MinutesCourse minutesCourseOf(const classic::Limits& limits, const MinutesRequest& request);

/// Marks of the axis of so many minutes: whole hours or handy parts of them.
Axis minuteAxis(std::size_t minutes);

} // namespace comfortics::workspace
