// SPDX-License-Identifier: GPL-3.0-or-later
//
// One set of readings with all that follows from it, as plain values: what cards, comparison, index sheet,
// session and report show. It is calculated on the same road as the results table, so both have the same
// texts.
#pragma once

#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
#include "classic/calculation.h"
#include "classic/limits.h"
#include "formulas/live_quantity.h"

#include <array>
#include <optional>
#include <string>

namespace comfortics::workspace {

/// One index in a situation.
struct Figure {
    std::string text;                          ///< as in the results table; empty where there is no value
    std::optional<double> number;              ///< before it was rounded to its text
    std::optional<catalogue::Meaning> meaning; ///< its class; none where no scale is published
    std::string reason;                        ///< why there is no value; empty where there is one
    std::string doubt;                         ///< the limit that is ignored, where it lies outside of it
    classic::OutcomeKind kind = classic::OutcomeKind::NotCalculated;
    classic::OutcomeKind limits = classic::OutcomeKind::Value; ///< what ignored limits would have made of it
    std::optional<double> judged; ///< what its temperature limits bound [°C]; none where it has no limits
    std::optional<double> wind;   ///< what its wind limits bound [m/s]
};

/// A live quantity in a situation; empty and without a number where there is none.
struct LiveFigure {
    std::string text; ///< as the label of the main window has it
    std::optional<double> number;
};

/// Readings, and what they come to.
struct Situation {
    /// As they were typed. The ticks of the list are no part of it: all indices are calculated.
    classic::Inputs inputs;
    classic::RunStatus status = classic::RunStatus::Rejected;
    /// One sentence, where the readings are incomplete or the run failed; else empty.
    std::string problem;
    std::array<LiveFigure, formulas::kLiveCount> live;
    std::array<Figure, catalogue::kLastIndex + 1> figures; ///< by number of the index, from 1

    const Figure& figure(int index) const { return figures.at(static_cast<std::size_t>(index)); }
    const LiveFigure& liveFigure(formulas::Live quantity) const
    {
        return live.at(static_cast<std::size_t>(quantity));
    }
};

/// The wind of a situation taken from 1.1 m to 10 m by its assumptions [m/s]; none where there is none.
std::optional<double> windAt10m(const Situation& situation);
/// The same of a wind by itself; `friction` is the exponent of its profile, as the box of the assumptions has
/// it.
std::optional<double> windAt10m(double wind, const std::string& friction);

/// Writes readings and assumptions to the boxes of a calculation, as if they were typed into empty ones. The
/// settings are none of them.
void write(const classic::Inputs& inputs, classic::Calculation& calculation);

/// Why there is no figure while it is being calculated.
inline constexpr const char* kAwaited = "It is being calculated.";

/// What stands for a situation meanwhile, with that reason in place of each figure.
Situation awaited(const classic::Inputs& inputs);

/// Calculates all indices, whatever is ticked, in a calculation of its own: the boxes, captions and results
/// of others stay untouched, and any number can run at once. Takes some tenths of a millisecond; by the
/// classic and robust rules at the edge of what converges some hundred milliseconds.
Situation evaluate(const classic::Limits& limits, const classic::Inputs& inputs);

} // namespace comfortics::workspace
