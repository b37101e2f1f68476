// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/selection.h"
#include "formulas/rules.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::classic {

using formulas::Rules;

/// What a calculation is asked to do.
struct Settings {
    Selection selection = Selection::all();
    bool ignoreLimits = false; ///< evaluate selected indices whatever their limits
    Rules rules = Rules::Classic;

    friend bool operator==(const Settings&, const Settings&) = default;
};

/// The sets of rules in the order of the options.
inline constexpr std::array kAllRules{Rules::Classic, Rules::Robust, Rules::Precise};

/// The rules of a name, none for any other text.
std::optional<Rules> rulesOfName(std::string_view name);

/// The rules and the use of limits in words, alone ("classic", "kept") and together ("classic rules,
/// limits kept").
std::string_view ruleName(Rules rules);
std::string_view limitsUse(const Settings& settings);
std::string inForce(const Settings& settings);

} // namespace comfortics::classic
