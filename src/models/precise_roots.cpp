// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/precise_roots.h"

#include "formulas/bracketed_root.h"
#include "models/heat_balance.h"

#include <algorithm>
#include <cmath>

namespace comfortics::models {

using formulas::bracketedRoot;
using formulas::Saturation_Pressure_Buck;

namespace {

constexpr double kColdest = 0;          // [K]
constexpr double kColdestBounded = 100; // the bounds below hold above
constexpr double kHottestAir = 1000;
constexpr double kHottestGlobe = 1400; // the viscosity has a pole at 1477

/// Bounds of RootSearch::bend, each some five times what the balance has in any weather.
constexpr double kGlobeBend = 0.05; // [/K]
constexpr double kWickBend = 0.2;
constexpr double kPsychrometricBend = 0.2;
constexpr double kUnbounded = std::numeric_limits<double>::infinity();

bool hasBalance(double Ta, double RH, double WS)
{
    const double Tair = Ta + kKelvin;
    return Tair > kColdest && Tair < kHottestAir && RH >= 0 && std::isfinite(RH) && WS >= 0 &&
           std::isfinite(WS);
}

double atLeast(double WS)
{
    return WS < kMinimumWind ? kMinimumWind : WS;
}

template <typename... Inputs>
bool anyMissing(Inputs... inputs)
{
    return (std::isnan(inputs) || ...);
}

Root rootOf(const std::optional<double>& found)
{
    return found ? Root{*found, RootStatus::Found} : Root{};
}

double squared(double x)
{
    return x * x;
}

/// The lesser zero in size of constant + slope * x + 0.5 * curve * x^2, or where it comes nearest to 0.
double nearZero(double constant, double slope, double curve)
{
    const double discriminant = squared(slope) - 2 * curve * constant;
    if (discriminant < 0)
        return -slope / curve;
    return -2 * constant / (slope + std::copysign(std::sqrt(discriminant), slope));
}

using SiteGlobe = GlobeBalance<Loose>;

SiteGlobe globeAtSite(double Ta, double RH, double WS)
{
    return {Ta, RH, kSitePressure, WS, kDirectFraction, kZenith};
}

} // namespace

// The balance gives the less the warmer the globe, so it meets the globe's own temperature once, between
// the air's and what it gives for a globe at the air's.
std::optional<double> globeRootInWind(double Ta, double RH, double WS, double SR) noexcept
{
    if (!hasBalance(Ta, RH, WS) || !std::isfinite(SR))
        return std::nullopt;
    const SiteGlobe balance = globeAtSite(Ta, RH, WS);
    const double Tair = balance.Tair();
    const double received = balance.surroundings() + balance.solar(SR);
    const double atAir = received > 0 ? std::sqrt(std::sqrt(received)) : 0;
    const double low = std::min(Tair, atAir);
    const double high = std::max(Tair, atAir);
    if (!(low > kColdest && high < kHottestGlobe))
        return std::nullopt;
    // The surplus at Tair and its derivatives there, but for the little that the exchange changes.
    const double cube = Tair * squared(Tair);
    const double slope = -(4 * cube + balance.exchange(Tair));
    const double curve = -12 * squared(Tair);
    const double excess = nearZero(received - Tair * cube, slope, curve);
    const double sun = balance.solar(SR);
    const auto root =
        bracketedRoot({.low = low,
                       .high = high,
                       .start = Tair + excess,
                       .slope = slope + curve * excess,
                       .leastSlope = 4 * low * squared(low),
                       .bend = low > kColdestBounded ? kGlobeBend : kUnbounded},
                      [&](double T) { return balance.withoutSun(T) + sun - squared(squared(T)); });
    return root ? std::optional(*root - kKelvin) : std::nullopt;
}

// Alike for the wick, up to the temperature at which its water boils. At half the air's temperature it
// gains heat.
std::optional<double> wickRootInWind(double Ta, double RH, double WS, double SR) noexcept
{
    if (!hasBalance(Ta, RH, WS) || !std::isfinite(SR))
        return std::nullopt;
    const WickBalance<Loose> balance(Ta, RH, kSitePressure, WS, SR, kDirectFraction, kZenith,
                                     kRadiationSwitch);
    const double Tair = balance.Tair();
    const double low = 0.5 * Tair;
    constexpr double kBoiling = 372.33; // where the vapour pressure is just below that of the site
    // A start from the balance at Tair: vapour pressure by its first two derivatives, 1.6 K/hPa for the
    // factor of the evaporation, the radiation in proportion.
    const double vapour = Saturation_Pressure_Buck(std::min(Tair, 340.0));
    const double growth = 17.502 * 240.97 / squared(std::min(Tair, 340.0) - 32.18);
    const double h = Convection_Cylinder<Loose>(Tair, balance.P(), WS);
    const double radiation = balance::kWickEmissivity * balance::kStefanBoltzmann * 4 * Tair * squared(Tair);
    const double slope = -(1 + radiation / h + 1.6 * vapour * growth);
    const double curve = -1.6 * vapour * squared(growth);
    const double change = nearZero(balance.Tnew(std::min(Tair, 340.0)) - std::min(Tair, 340.0), slope, curve);
    const auto root = bracketedRoot({.low = low,
                                     .high = kBoiling,
                                     .start = std::min(Tair, 340.0) + change,
                                     .slope = slope + curve * change,
                                     .leastSlope = 0.5,
                                     .bend = low > kColdestBounded ? kWickBend : kUnbounded},
                                    [&](double T) { return balance.Tnew(T) - T; });
    return root ? std::optional(*root - kKelvin) : std::nullopt;
}

Root preciseGlobeTemperature(double Ta, double RH, double WS, double SR) noexcept
{
    if (anyMissing(Ta, RH, WS, SR))
        return {.status = RootStatus::Missing};
    return rootOf(globeRootInWind(Ta, RH, atLeast(WS), SR));
}

Root preciseNaturalWetBulb(double Ta, double RH, double WS, double SR) noexcept
{
    if (anyMissing(Ta, RH, WS, SR))
        return {.status = RootStatus::Missing};
    return rootOf(wickRootInWind(Ta, RH, atLeast(WS), SR));
}

// At the dew point the balance is 101 * (Ta - Td), and at Ta it has the other sign; in between it falls by
// 101 per degree and more.
Root precisePsychrometricWetBulb(double Ta, double Td) noexcept
{
    if (anyMissing(Ta, Td))
        return {.status = RootStatus::Missing};
    const double low = std::min(Ta, Td);
    const double high = std::max(Ta, Td);
    if (!(low >= -200 && high <= 700))
        return {};
    const double ed = psychrometricPressure(Td);
    const double start = low + 0.4 * (high - low);
    const double ew = psychrometricPressure(start);
    const double growth = 17.27 * 237.3 / squared(237.3 + start);
    return rootOf(bracketedRoot(
        {.low = low,
         .high = high,
         .start = start,
         .slope = -((1556 - 1.484 * start) * ew * growth - 1.484 * (ew - ed) + 101),
         .leastSlope = 50,
         .bend = kPsychrometricBend},
        [&](double Tw) { return psychrometricBalance(Ta, Tw, ed, psychrometricPressure(Tw)); }));
}

Root preciseRadiation(double Ta, double RH, double WS, double Tg) noexcept
{
    if (anyMissing(Ta, RH, WS, Tg))
        return {.status = RootStatus::Missing};
    const double Tp = Tg + kKelvin;
    if (!hasBalance(Ta, RH, atLeast(WS)) || !(Tp > kColdest && Tp < kHottestGlobe))
        return {};
    const SiteGlobe balance = globeAtSite(Ta, RH, atLeast(WS));
    const double needed = (squared(squared(Tp)) - balance.withoutSun(Tp)) / balance.solar(1);
    if (!(needed <= kMostRadiation))
        return {};
    return {std::max(needed, 0.0), RootStatus::Found};
}

} // namespace comfortics::models
