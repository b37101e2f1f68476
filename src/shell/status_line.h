// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/calculation.h"
#include "core/limits.h"

#include <string>

namespace comfortics::shell {

/// One sentence for the user on what became of the last calculation, or why none was made: the
/// failure, the reading that is missing, or how many indices have a value and why others have none.
std::string statusLine(const core::Calculation& calculation);

/// One sentence that warns of limits without a single bound, as an absent or damaged file gives
/// them; empty where there are bounds.
std::string limitsWarning(const core::Limits& limits);

} // namespace comfortics::shell
