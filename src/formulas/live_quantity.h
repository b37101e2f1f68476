// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace comfortics::formulas {

/// The eleven live quantities of a calculation, from which every index is evaluated.
enum class Live {
    Ta,   ///< air temperature [°C]
    Tg,   ///< globe temperature [°C]
    SR,   ///< solar radiation [W/m²]
    Td,   ///< dew point [°C]
    RH,   ///< relative humidity [%]
    WS,   ///< wind speed as measured [m/s]
    Tmrt, ///< mean radiant temperature [°C]
    Tnwb, ///< natural wet-bulb temperature [°C]
    Tpwb, ///< psychrometric wet-bulb temperature [°C]
    Es,   ///< saturated vapour pressure [hPa]
    Ea,   ///< actual vapour pressure [hPa]
};

inline constexpr std::size_t kLiveCount = 11;

/// How a live quantity is named to users.
struct LiveInfo {
    std::string_view symbol;
    std::string_view name;
    std::string_view unit;
};

inline constexpr std::array<LiveInfo, kLiveCount> kLiveInfo{{
    {"Ta", "Air temperature", "°C"},
    {"Tg", "Globe temperature", "°C"},
    {"SR", "Solar radiation", "W/m²"},
    {"Td", "Dew point", "°C"},
    {"RH", "Relative humidity", "%"},
    {"WS", "Wind speed", "m/s"},
    {"Tmrt", "Mean radiant temperature", "°C"},
    {"Tnwb", "Natural wet-bulb temperature", "°C"},
    {"Tpwb", "Psychrometric wet-bulb temperature", "°C"},
    {"Es", "Saturated vapour pressure", "hPa"},
    {"Ea", "Actual vapour pressure", "hPa"},
}};

} // namespace comfortics::formulas
