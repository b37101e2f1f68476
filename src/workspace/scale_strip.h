// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where a value stands on the scale of its index, as a small strip shows it.
#pragma once

#include "classic/limits.h"
#include "workspace/situation.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace comfortics::workspace {

/// A strip from 0 at its left to 1 at its right.
struct ScaleStrip {
    struct Band {
        double from = 0;
        double to = 0;
        std::optional<int> severity{}; ///< of a class; none where the band is what the limits span
    };
    enum class Beyond : std::uint8_t { No, Left, Right };

    std::vector<Band> bands;
    double mark = 0;            ///< where the value stands
    Beyond beyond = Beyond::No; ///< the value lies off the strip, whose end the mark stands at
};

/// The classes of an index with a value on them. The strip begins and ends one class of middling width beyond
/// the outermost bounds, since the outermost classes have no end. `towards` is -1 or 1, the side that
/// unsigned severities fall to. None without a published scale.
std::optional<ScaleStrip> classStrip(int index, double value, int towards = 1);

/// What the temperature limits of an index span, with what they judge on it. The strip goes a quarter of the
/// span beyond both. None where limits are not given.
std::optional<ScaleStrip> limitStrip(const classic::IndexLimits& limits, double judged);

/// The strip of an index where a situation stands: classes with the value on them, else limits with what they
/// judge. None without a value, and where there is neither.
std::optional<ScaleStrip> stripOf(const Situation& situation, const classic::Limits& limits, int index);

} // namespace comfortics::workspace
