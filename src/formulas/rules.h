// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace comfortics::formulas {

/// Which set of rules a calculation follows.
///
/// Robust differs from Classic in these places and no other: the dew-point test of the models, the
/// psychrometric search in saturated air, the end of a mean-vote walk that turns back, what index
/// 196 reads, how far a failure reaches, a sign or point alone in a box of a pair, which counts as
/// nothing typed, a globe or wet bulb whose iteration has no end, which is the root of its balance,
/// a quantity without a value, which never counts as 0, and temperatures below absolute zero, which
/// are none. Where both give a value it is the same text.
///
/// Precise is Robust without any rounding on the way: what the other two look for by steps or until a
/// tolerance is met is the root of the same balance, one globe serves all indices, and no number goes through
/// a text. The engine knows no other.
enum class Rules : std::uint8_t {
    Classic, ///< a failure anywhere ends the run
    Robust,  ///< a failure costs what depends on it
    Precise, ///< as Robust, and the roots of the balances
};

} // namespace comfortics::formulas
