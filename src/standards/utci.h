// SPDX-License-Identifier: GPL-3.0-or-later
//
// Universal Thermal Climate Index in the inputs that people have: the regression of models/utci_polynomial.h
// with the vapour pressure after Hardy (1998), nothing rounded. Bröde et al. (2012).
//
//   ta, tmrt  air and mean radiant temperature [°C]     v   wind speed [m/s], at 10 m or at z
//   RH        relative humidity [%]                     z   height of the wind's measurement [m]
//
// The logarithmic profile over a roughness of 0.01 m takes the wind to 10 m.
#pragma once

#include "standards/answer.h"

#include <cstdint>

namespace comfortics::standards {

/// Ranges of the regression. The wind is that at 10 m.
namespace utci_range {
inline constexpr Input kTa{"ta", Quantity::Temperature, {-50, 50}};
inline constexpr Input kTmrt{"tmrt", Quantity::Temperature};
inline constexpr Input kRadiant{"tmrt - ta", Quantity::Any, {-30, 70}};
inline constexpr Input kSpeed{"v", Quantity::Speed, {0.5, 17}};
inline constexpr Input kRH{"RH", Quantity::Humidity};
inline constexpr double kPaBelow = 5; ///< vapour pressure [kPa], itself left out
inline constexpr Input kHeight{"z", Quantity::Positive};
} // namespace utci_range

inline constexpr double kUtciWindHeight = 10; ///< [m]
inline constexpr double kUtciRoughness = 0.01;

/// From cold to hot. Each takes the end that lies nearer to no stress.
enum class UtciStress : std::uint8_t {
    ExtremeCold,    ///< below -40 °C
    VeryStrongCold, ///< below -27
    StrongCold,     ///< below -13
    ModerateCold,   ///< below 0
    SlightCold,     ///< below 9
    None,
    ModerateHeat,   ///< above 26
    StrongHeat,     ///< above 32
    VeryStrongHeat, ///< above 38
    ExtremeHeat,    ///< above 46
};

struct Utci {
    Verdict verdict{};
    double utci = kNaN; ///< [°C]
    UtciStress stress = UtciStress::None;
    double v10 = kNaN; ///< wind at 10 m [m/s]
};

Utci utci(double ta, double tmrt, double v, double RH, double height = kUtciWindHeight,
          Limits limits = Limits::Mark) noexcept;

/// Of a value. The verdict tells whether there is one.
UtciStress utciStress(double utci) noexcept;

} // namespace comfortics::standards
