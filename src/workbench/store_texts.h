// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a store keeps what is no number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workbench {

inline constexpr std::string_view kOk = "ok";
inline constexpr std::int64_t kNoTime = std::numeric_limits<std::int64_t>::min();
inline constexpr std::int16_t kNoOffset = std::numeric_limits<std::int16_t>::min();

/// Appends a cell to a record.
inline void appendCell(std::string& record, std::string_view cell)
{
    const auto size = static_cast<std::uint32_t>(cell.size());
    char bytes[sizeof size];
    std::memcpy(bytes, &size, sizeof size);
    record.append(bytes, sizeof bytes);
    record += cell;
}

inline std::vector<std::string> cellsOf(std::string_view record)
{
    std::vector<std::string> cells;
    while (!record.empty()) {
        std::uint32_t size = 0;
        std::memcpy(&size, record.data(), sizeof size);
        cells.emplace_back(record.substr(sizeof size, size));
        record.remove_prefix(sizeof size + size);
    }
    return cells;
}

} // namespace comfortics::workbench
