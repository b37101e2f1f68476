// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/settings.h"

namespace comfortics::classic {

std::string_view ruleName(Rules rules)
{
    switch (rules) {
    case Rules::Classic:
        return "classic";
    case Rules::Robust:
        return "robust";
    case Rules::Precise:
        break;
    }
    return "precise";
}

std::optional<Rules> rulesOfName(std::string_view name)
{
    for (const Rules rules : kAllRules)
        if (name == ruleName(rules))
            return rules;
    return std::nullopt;
}

std::string_view limitsUse(const Settings& settings)
{
    return settings.ignoreLimits ? "ignored" : "kept";
}

std::string inForce(const Settings& settings)
{
    return std::string(ruleName(settings.rules)) + " rules, limits " + std::string(limitsUse(settings));
}

} // namespace comfortics::classic
