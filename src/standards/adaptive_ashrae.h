// SPDX-License-Identifier: GPL-3.0-or-later
//
// Adaptive comfort in rooms that their occupants cool by windows, ASHRAE 55, after de Dear and Brager (1998).
//
//   ta, tr  air and mean radiant temperature [°C]
//   v       air speed [m/s]
//   tp      prevailing mean outdoor temperature [°C]
//
// Holds for 1 to 1.3 met, clothing that people are free to adapt within 0.5 to 1 clo, and no mechanical
// cooling.
#pragma once

#include "standards/answer.h"

namespace comfortics::standards {

namespace adaptive_ashrae_range {
inline constexpr Input kTa{"ta", Quantity::Temperature};
inline constexpr Input kTr{"tr", Quantity::Temperature};
inline constexpr Input kSpeed{"v", Quantity::Speed};
inline constexpr Input kOutdoor{"t_p", Quantity::Temperature, {10, 33.5}};
} // namespace adaptive_ashrae_range

/// Operative temperature between two limits.
struct ComfortBand {
    double low = kNaN; ///< [°C]
    double up = kNaN;
    /// Both ends are accepted. Never beyond the range of the outdoor temperature.
    bool accepted = false;
};

struct AdaptiveAshrae {
    Verdict verdict{};
    double operative = kNaN; ///< [°C]
    double tNeutral = kNaN;  ///< [°C]
    ComfortBand of80{};      ///< for 80 % acceptability
    ComfortBand of90{};
};

AdaptiveAshrae adaptiveAshrae(double ta, double tr, double v, double tp,
                              Limits limits = Limits::Mark) noexcept;

/// Operative temperature [°C] by ASHRAE 55: the faster the air, the more it counts.
double ashraeOperative(double ta, double tr, double v) noexcept;

/// By how much moving air raises the upper limits [K], above an operative temperature of 25 °C.
double airSpeedRise(double operative, double v) noexcept;

/// Whether the operative temperature lies in the band, to a rounding of the sums that make it.
bool accepts(const ComfortBand& band, double operative) noexcept;

} // namespace comfortics::standards
