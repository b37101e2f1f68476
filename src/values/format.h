// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace comfortics::values {

/// A fixed number format: "0", "0.0", "0.00", "0.00000" or "00.00000".
struct Format {
    int decimals = 0;
    int integerWidth = 1;
};

inline constexpr Format kFormat0{0, 1};
inline constexpr Format kFormat0_0{1, 1};
inline constexpr Format kFormat0_00{2, 1};
inline constexpr Format kFormat0_00000{5, 1};
inline constexpr Format kFormat00_00000{5, 2};

} // namespace comfortics::values
