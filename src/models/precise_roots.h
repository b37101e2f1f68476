// SPDX-License-Identifier: GPL-3.0-or-later
//
// The temperatures at which the described heat balances hold, and the radiation for which the globe's
// does: what the precise rules take where the others iterate until a tolerance is met or step. To
// 1e-9 K, in bare doubles, by a bounded number of steps (formulas/bracketed_root.h).
//
// All take any number, throw nothing and keep nothing. A wind below 0.1 m/s counts as 0.1 for globe and
// wick. The site is that of the balances: 101 kPa, a share of 0.8 direct radiation, the sun overhead.
//
//   Ta  air temperature [°C]     WS  wind speed [m/s]          Tg  globe temperature [°C]
//   Td  dew point [°C]           SR  solar radiation [W/m²]
//   RH  relative humidity [%]
#pragma once

#include <cstdint>
#include <limits>
#include <optional>

namespace comfortics::models {

enum class RootStatus : std::uint8_t {
    Found,
    Missing, ///< an input is NaN
    None,    ///< the balance has no root for these inputs, or is not defined there
};

/// What was found. The value is NaN unless it was.
struct Root {
    double value = std::numeric_limits<double>::quiet_NaN();
    RootStatus status = RootStatus::None;
};

/// Temperature [°C] of a black globe of 50 mm, Liljegren et al. (2008).
///
/// None outside of an air of 0 to 1000 K, below a humidity of 0, and where sun or shade bring the
/// globe out of 0 to 1400 K.
Root preciseGlobeTemperature(double Ta, double RH, double WS, double SR) noexcept;

/// Natural wet-bulb temperature [°C], of a wick of 7 mm, Liljegren et al. (2008).
///
/// None outside of an air of 0 to 1000 K, below a humidity of 0, and where the wick would have to be
/// as warm as boiling water (99.18 °C by the vapour pressure of the balance) or colder than half the air's
/// kelvin.
Root preciseNaturalWetBulb(double Ta, double RH, double WS, double SR) noexcept;

/// Psychrometric wet-bulb temperature [°C] at 101 kPa, of the balance that Bernard and Pourmoghani (1999)
/// state for the indoor wet-bulb globe temperature. Between the dew point and the air temperature.
///
/// None where one of them is below -200 or above 700 °C.
Root precisePsychrometricWetBulb(double Ta, double Td) noexcept;

/// The most radiation that is taken to explain a globe [W/m²].
inline constexpr double kMostRadiation = 1376;

/// The solar radiation [W/m²] at which the globe of preciseGlobeTemperature has the temperature Tg: the
/// balance solved for SR, so continuous. 0 for a globe colder than in shade.
///
/// None where more than kMostRadiation would be needed, outside of an air of 0 to 1000 K and a globe
/// of 0 to 1400 K, and below a humidity of 0.
Root preciseRadiation(double Ta, double RH, double WS, double Tg) noexcept;

// The first two [°C] for a wind as it stands, without the floor: for the robust rules. No value in still
// air for the wick, through which no heat goes.
std::optional<double> globeRootInWind(double Ta, double RH, double WS, double SR) noexcept;
std::optional<double> wickRootInWind(double Ta, double RH, double WS, double SR) noexcept;

} // namespace comfortics::models
