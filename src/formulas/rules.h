// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace comfortics::formulas {

/// Which set of rules a calculation follows.
///
/// Robust differs from Classic in six places and no other: the dew-point test of the models, the
/// psychrometric search in saturated air, the end of a mean-vote walk that turns back, what index
/// 196 reads, how far a failure reaches, and a sign or point alone in a box of a pair, which counts
/// as nothing typed. Where both give a value it is the same text.
enum class Rules : std::uint8_t {
    Classic, ///< a failure anywhere ends the run
    Robust,  ///< a failure costs what depends on it
};

} // namespace comfortics::formulas
