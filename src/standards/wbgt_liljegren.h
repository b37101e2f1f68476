// SPDX-License-Identifier: GPL-3.0-or-later
//
// Wet-bulb globe temperature outdoors by Liljegren, Carhart, Lawday, Tschopp and Sharp (2008): the balances
// of a globe of 50.8 mm and of a wick of 7 mm under the real sun of a place and time, with a pressure and a
// wind measured at any height.
//
// It differs from models/heat_balance.h, which the indices rest on: sun, pressure and direct share are the
// place's own, the ground reflects 0.45, the globe is 0.8 mm larger, and all properties of the wick's air
// are taken between wick and air. The temperatures are roots of the balances. The authors' program averages
// steps until they move less than 0.02 K, and is off by that much.
//
// Traps: the time is the end of the interval that the radiation was averaged over; the radiation is cut to
// 0.85 of what arrives outside of the air, in sunlight alone; a wind at 2 m is taken as it is.
#pragma once

#include "standards/answer.h"

#include <cstdint>

namespace comfortics::standards {

/// Ranges of use. The irradiance has an upper bound that goes with the sun.
namespace liljegren_range {
inline constexpr Input kHour{"hour", Quantity::Flux, {0, 24}};
inline constexpr Input kUtcOffset{"utcOffset", Quantity::Any, {-14, 14}};
inline constexpr Input kInterval{"interval", Quantity::Flux, {0, 60}};
inline constexpr Input kS{"S", Quantity::Flux};
inline constexpr Input kP{"p", Quantity::Hectopascal};
inline constexpr Input kTa{"ta", Quantity::Temperature, {-10, 50}};
inline constexpr Input kRH{"RH", Quantity::Humidity, {std::numeric_limits<double>::denorm_min(), 100}};
inline constexpr Input kV{"v", Quantity::Speed};
inline constexpr Input kZ{"z", Quantity::Positive, {1, 50}};
inline constexpr Input kDT{"dT"};
} // namespace liljegren_range

struct LiljegrenInputs {
    int year = 0; ///< of the local clock
    int month = 0;
    int day = 0;
    double hour = kNaN;      ///< local time at the end of the interval [h], 0..24
    double utcOffset = kNaN; ///< local time less UTC [h]
    double interval = kNaN;  ///< of averaging [min], 0..60
    double latitude = kNaN;  ///< [degrees], north positive
    double longitude = kNaN; ///< [degrees], east positive
    double S = kNaN;         ///< global irradiance on the horizontal [W/m²]
    double p = kNaN;         ///< pressure of the air [hPa]
    double ta = kNaN;        ///< air temperature [°C], -10..50
    double RH = kNaN;        ///< relative humidity [%], above 0
    double v = kNaN;         ///< wind speed [m/s]
    double z = kNaN;         ///< height at which it was measured [m], 1..50
    /// Air temperature above less that below [K]. Its sign tells how stable the air is at night; read then,
    /// and only for a wind that is not from 2 m.
    double dT = kNaN;
    bool urban = false;
};

struct LiljegrenResult {
    Verdict verdict{};
    double wbgt = kNaN;           ///< [°C]
    double tg = kNaN;             ///< globe [°C]
    double tnw = kNaN;            ///< natural wet bulb [°C]
    double tpsy = kNaN;           ///< psychrometric wet bulb [°C]
    double v2m = kNaN;            ///< wind at 2 m [m/s]
    double directFraction = kNaN; ///< of the irradiance [-]
};

LiljegrenResult wbgtLiljegren(const LiljegrenInputs& inputs, Limits limits = Limits::Mark) noexcept;

/// Pasquill's classes, from most unstable to most stable.
enum class Stability : std::uint8_t { A, B, C, D, E, F };

/// Of the air, by the wind [m/s] as measured and the irradiance S [W/m²], at night by dT [K].
Stability stabilityOf(bool sunUp, double S, double v, double dT) noexcept;

/// Heat transfer coefficients [W/m²/K] of globe and wick: T film temperature [K], p [hPa], v [m/s], which
/// counts as 0.13 at least.
double globeConvection(double T, double p, double v) noexcept;
double wickConvection(double T, double p, double v) noexcept;

/// Heat that evaporates a kilogram of water at T [K], [J/kg].
double evaporationHeat(double T) noexcept;

} // namespace comfortics::standards
