// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/selection.h"
#include "formulas/rules.h"

namespace comfortics::core {

using formulas::Rules;

/// What a calculation is asked to do.
struct Settings {
    Selection selection = Selection::all();
    bool ignoreLimits = false; ///< evaluate selected indices whatever their limits
    Rules rules = Rules::Classic;
};

} // namespace comfortics::core
