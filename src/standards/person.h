// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace comfortics::standards {

enum class Posture : std::uint8_t { Standing, Sitting };
enum class Sex : std::uint8_t { Male, Female };

/// The edition of ASHRAE Standard 55 whose two-node program is meant.
enum class Edition : std::uint16_t { Ashrae2017 = 2017, Ashrae2020 = 2020 };

} // namespace comfortics::standards
