// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/limits.h"

#include <cstdint>
#include <string>

namespace comfortics::classic {

enum class OutcomeKind : std::uint8_t {
    NotCalculated,      ///< no calculation has run, or its readings were rejected
    Value,              ///< a value stands
    NotSelected,        ///< its row of the list is not selected
    OutsideTemperature, ///< the gated value lies outside the temperature limits
    OutsideWind,        ///< the wind lies outside the wind limits
    NoValue,            ///< the formula has no value for these readings
    RunFailed,          ///< the run failed, here or elsewhere
};

/// What became of one index, with the numbers that decided it.
struct Outcome {
    OutcomeKind kind = OutcomeKind::NotCalculated;
    double value = 0;                        ///< the number beside the text, as it was calculated
    double gatedValue = 0;                   ///< the value that met the temperature limits [°C]
    double wind = 0;                         ///< the wind that met the wind limits [m/s]
    OutcomeKind limits = OutcomeKind::Value; ///< where they are ignored: what they would have made of it
    bool asTexts = false;                    ///< the gated value was compared character by character
    std::string failure{}; ///< but by the classic rules: the sentence of what this index failed on
};

/// One sentence for the user: why index 1 to kLastIndex is blank. Empty where a value stands.
/// runFailure is the sentence of the failed run.
std::string whyBlank(int index, const Outcome& outcome, const Limits& limits, const std::string& runFailure);

/// One sentence for the user: which limit the value that stands lies outside of, since limits are
/// ignored. Empty where it lies inside, or none stands.
std::string whyDoubtful(int index, const Outcome& outcome, const Limits& limits);

} // namespace comfortics::classic
