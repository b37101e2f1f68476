// SPDX-License-Identifier: GPL-3.0-or-later
//
// Wind chill: the temperature of 2001 (Osczevski and Bluestein, 2005; ISO 11079, annex D), and the heat loss
// of Siple and Passel (1945).
//
//   ta  air temperature [°C]     v10  wind speed at 10 m [m/s]     v  wind speed [m/s]
#pragma once

#include "standards/answer.h"

namespace comfortics::standards {

namespace wind_chill_range {
inline constexpr Input kTa{"ta", Quantity::Temperature};
/// Of the temperature: [°C] and, from 4.8 km/h, [m/s].
inline constexpr Input kTemperatureTa{"ta", Quantity::Temperature, {-kInfinity, 10}};
inline constexpr Input kTemperatureSpeed{"v", Quantity::Speed, {4.8 / 3.6, kInfinity}};
/// Of the heat loss [m/s].
inline constexpr Input kLossSpeed{"v", Quantity::Speed, {0, 20}};
} // namespace wind_chill_range

struct WindChill {
    Verdict verdict{};
    double value = kNaN;
};

/// Wind chill temperature [°C].
WindChill windChillTemperature(double ta, double v10, Limits limits = Limits::Mark) noexcept;

/// Wind chill index, a heat loss [W/m²].
WindChill windChillIndex(double ta, double v, Limits limits = Limits::Mark) noexcept;

} // namespace comfortics::standards
