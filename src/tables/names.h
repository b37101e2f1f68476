// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace comfortics::tables {

/// The value of an enumeration whose names stand in that order.
template <class Value, std::size_t count>
std::optional<Value> valueOfName(const std::array<std::string_view, count>& names, std::string_view name)
{
    const auto* const found = std::find(names.begin(), names.end(), name);
    if (found == names.end())
        return std::nullopt;
    return static_cast<Value>(found - names.begin());
}

} // namespace comfortics::tables
