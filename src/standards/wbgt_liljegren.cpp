// SPDX-License-Identifier: GPL-3.0-or-later
//
//   T    air temperature [K]                   F    direct share of the irradiance [-]
//   Tg   globe [K], Tw wick [K]                mu   sine of the sun's altitude
//   Tf   between wick or globe and air [K]     S0   irradiance outside of the air [W/m²]
//   e    vapour pressure of the air [hPa]      h    heat transfer coefficient [W/m²/K]
//   Pr, Sc  Prandtl's and Schmidt's numbers
#include "standards/wbgt_liljegren.h"

#include "formulas/bracketed_root.h"
#include "models/heat_balance.h"
#include "standards/sun_position.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace comfortics::standards {

using formulas::bracketedRoot;
using formulas::Saturation_Pressure_Buck;
using models::kKelvin;
using models::Loose;

using namespace liljegren_range;

namespace {

constexpr double kMostHours = 24;

constexpr double kSolarConstant = 1367;
constexpr double kLeastSine = 0.00873; // of a sun that counts: half a degree
constexpr double kMostClearness = 0.85;
constexpr double kMostDirect = 0.9;
constexpr double kLeastWind = 0.13; // [m/s]
constexpr double kReference = 2;    // height of the wind [m]

constexpr double kStefanBoltzmann = models::balance::kStefanBoltzmann;
constexpr double kEmissivity = 0.95; // of globe and wick
constexpr double kGlobeDiameter = 0.0508;
constexpr double kGlobeAlbedo = 0.05;
constexpr double kWickAlbedo = 0.4;
constexpr double kWickEnds = 0.25 * 0.007 / 0.0254; // of the wick to its side
constexpr double kGroundEmissivity = 0.999;
constexpr double kGroundAlbedo = 0.45;
constexpr double kPrandtl = models::balance::kWickPrandtl;
constexpr double kPsychrometric = 1003.5 * 28.97 / 18.015;

constexpr double kGlobeBelow = 60; // where the roots are looked for, from the air's temperature [K]
constexpr double kGlobeAbove = 120;
constexpr double kWickBelow = 100;
constexpr double kWickAbove = 60;

double squared(double x)
{
    return x * x;
}

double fourth(double x)
{
    return squared(squared(x));
}

/// Exponents of the profile of the wind by class, Irwin (1979).
constexpr std::array kUrbanExponents{0.15, 0.15, 0.20, 0.25, 0.30, 0.30};
constexpr std::array kRuralExponents{0.07, 0.07, 0.10, 0.15, 0.35, 0.55};

/// The wind at 2 m; only a wind from another height has a least.
double windAtReference(const LiljegrenInputs& in, bool sunUp, double S)
{
    if (in.z == kReference)
        return in.v;
    const auto stability = static_cast<std::size_t>(stabilityOf(sunUp, S, in.v, in.dT));
    const double exponent = (in.urban ? kUrbanExponents : kRuralExponents)[stability];
    return std::max(kLeastWind, in.v * std::pow(kReference / in.z, exponent));
}

/// The direct share by the clearness n, S to S0.
double directShare(double n)
{
    return n > 0 ? std::clamp(std::exp(3 - 1.34 * n - 1.65 / n), 0.0, kMostDirect) : 0;
}

/// Bounds of RootSearch::bend, some twice what the balances have in an air of 220 to 330 K far from boiling:
/// the quotient of evaporation bends most.
constexpr double kGlobeBend = 0.05; // [/K]
constexpr double kWickBend = 0.2;
constexpr double kUnbounded = std::numeric_limits<double>::infinity();

/// Air and sun, and what does not change with the temperature of globe or wick.
struct Weather {
    double T, p, e, v;
    double es;       // saturation at T [hPa]
    double incoming; // of sky and ground, half of each [K⁴]
    bool ordinary;

    Weather(double ta, double RH, double pressure, double wind)
        : T(ta + kKelvin), p(pressure), v(std::max(wind, kLeastWind)), es(Saturation_Pressure_Buck(T))
    {
        e = RH / 100 * es;
        const double sky = 0.575 * std::pow(e, 0.143);
        incoming = 0.5 * (sky + kGroundEmissivity) * fourth(T);
        ordinary = T > 220 && T < 330 && p > 500;
    }

    double globeExchange(double Tg) const // [K³]
    {
        return globeConvection(0.5 * (Tg + T), p, v) / (kEmissivity * kStefanBoltzmann);
    }

    /// What the wick takes up by evaporation, as a difference of temperatures [K].
    double evaporation(double Tw, double Tf) const
    {
        const double ew = Saturation_Pressure_Buck(Tw);
        const double density = 100 * p / (models::balance::kRair * Tf);
        const double Sc =
            models::Air_Viscosity<Loose>(Tf) / (density * models::Air_Diffusivity<Loose>(Tf, p));
        return evaporationHeat(Tf) / kPsychrometric * (ew - e) / (p - ew) * std::pow(kPrandtl / Sc, 0.56);
    }
};

/// The lesser zero in size of constant + slope * x + 0.5 * curve * x^2, or where it comes nearest to 0.
double nearZero(double constant, double slope, double curve)
{
    const double discriminant = squared(slope) - 2 * curve * constant;
    if (discriminant < 0)
        return -slope / curve;
    return -2 * constant / (slope + std::copysign(std::sqrt(discriminant), slope));
}

/// Globe temperature [K]. `sun` is what it takes up of the sun, as a fourth power of a temperature.
std::optional<double> globe(const Weather& air, double sun)
{
    const double received = air.incoming + sun;
    const double slope = -(4 * air.T * squared(air.T) + air.globeExchange(air.T));
    const double curve = -12 * squared(air.T);
    const double excess = nearZero(received - fourth(air.T), slope, curve);
    return bracketedRoot(
        {.low = air.T - kGlobeBelow,
         .high = air.T + kGlobeAbove,
         .start = air.T + excess,
         .slope = slope + curve * excess,
         .leastSlope = 4e6,
         .bend = air.ordinary ? kGlobeBend : kUnbounded},
        [&](double Tg) { return received - air.globeExchange(Tg) * (Tg - air.T) - fourth(Tg); });
}

/// Wick temperature [K] up to where its water boils: its vapour pressure is that of the air.
/// `surplus` falls with the temperature; `radiation` is about its loss by radiation per kelvin [-].
template <typename Surplus>
std::optional<double> wick(const Weather& air, double radiation, Surplus surplus)
{
    const double x = std::log(air.p / (1.004 * 6.1121));
    const double boiling = (17.502 * kKelvin - 32.18 * x) / (17.502 - x);
    const double high = std::min(air.T + kWickAbove, boiling - 1e-9);
    const double from = std::min(air.T, high - 15);
    const double es = from == air.T ? air.es : Saturation_Pressure_Buck(from);
    const double factor = 1590 / (air.p - es); // of the evaporation, about [K]
    const double growth = 17.502 * 240.97 / squared(from - 32.18);
    const double slope = -(1 + radiation + factor * es * growth);
    const double curve = -factor * es * squared(growth);
    const double change = nearZero(surplus(from), slope, curve);
    return bracketedRoot({.low = air.T - kWickBelow,
                          .high = high,
                          .start = from + change,
                          .slope = slope + curve * change,
                          .leastSlope = 0.5,
                          .bend = air.ordinary ? kWickBend : kUnbounded},
                         surplus);
}

} // namespace

double globeConvection(double T, double p, double v) noexcept
{
    const double viscosity = models::Air_Viscosity<Loose>(T);
    const double k = models::balance::kConductivity * viscosity;
    const double density = 100 * p / (models::balance::kRair * T);
    const double Re = std::max(v, kLeastWind) * density * kGlobeDiameter / viscosity;
    return (2 + 0.6 * std::sqrt(Re) * models::balance::kGlobePrandtlPower.value) * k / kGlobeDiameter;
}

double wickConvection(double T, double p, double v) noexcept
{
    return models::Convection_Cylinder<Loose>(T, p, std::max(v, kLeastWind));
}

double evaporationHeat(double T) noexcept
{
    return 2.4073e6 - 71100 * (313.15 - T) / 30;
}

Stability stabilityOf(bool sunUp, double S, double v, double dT) noexcept
{
    using enum Stability;
    if (!sunUp) {
        if (v >= 2.5)
            return D;
        return dT < 0 ? E : F;
    }
    static constexpr std::array<std::array<Stability, 4>, 5> kClasses{
        {{A, A, B, D}, {A, B, C, D}, {B, B, C, D}, {C, C, D, D}, {C, D, D, D}}};
    std::size_t wind = 4;
    if (v < 2)
        wind = 0;
    else if (v < 3)
        wind = 1;
    else if (v < 5)
        wind = 2;
    else if (v < 6)
        wind = 3;
    std::size_t sun = 3;
    if (S >= 925)
        sun = 0;
    else if (S >= 675)
        sun = 1;
    else if (S >= 175)
        sun = 2;
    return kClasses[wind][sun];
}

LiljegrenResult wbgtLiljegren(const LiljegrenInputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    lookAtPlace(examination, in.year, in.month, in.day, in.latitude, in.longitude);
    examination.look(kHour, in.hour);
    if (in.hour > kMostHours)
        examination.refuse(Reason::BeyondPhysics, kHour.name);
    examination.look(kUtcOffset, in.utcOffset);
    examination.look(kInterval, in.interval);
    examination.look(kS, in.S);
    examination.look(kP, in.p);
    examination.look(kTa, in.ta);
    examination.look(kRH, in.RH);
    examination.look(kV, in.v);
    examination.look(kZ, in.z);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};

    const double moment = in.hour - in.utcOffset - in.interval / 120;
    const ApparentSun sun =
        apparentSun(daysFrom2000(in.year, in.month, in.day), moment, in.latitude, in.longitude);
    const double mu = sun.sine;
    const double S0 = mu < kLeastSine ? 0 : kSolarConstant * mu / squared(sun.distance);
    if (in.S > S0)
        examination.mark(kS.name);
    if (mu <= 0 && in.z != kReference)
        examination.look(kDT, in.dT);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};
    double S = in.S;
    double F = 0;
    if (S0 > 0) {
        // As typed where it is not cut: n * S0 may fall short of a bound of the classes by a rounding.
        const double clearness = S / S0;
        if (clearness > kMostClearness)
            S = kMostClearness * S0;
        F = directShare(std::min(clearness, kMostClearness));
    }
    const double wind = windAtReference(in, mu > 0, S);

    const Weather air(in.ta, in.RH, in.p, wind);
    if (!(air.e < air.p)) {
        examination.refuse(Reason::Undefined, kRH.name);
        return {.verdict = examination.verdict()};
    }
    const double beamOnGlobe = F > 0 ? F * (1 / (2 * mu) - 1) : 0;
    const double onGlobe =
        S / (2 * kEmissivity * kStefanBoltzmann) * (1 - kGlobeAlbedo) * (beamOnGlobe + 1 + kGroundAlbedo);
    const double tangent = F > 0 ? std::sqrt(1 - squared(mu)) / mu : 0; // of the zenith angle
    const double onWick =
        (1 - kWickAlbedo) * S *
        ((1 - F) * (1 + kWickEnds) + F * (tangent / std::numbers::pi + kWickEnds) + kGroundAlbedo);
    const auto Tg = globe(air, onGlobe);
    const auto dryer = [&](double Tw) {
        const double Tf = 0.5 * (Tw + air.T);
        return air.T - air.evaporation(Tw, Tf) - Tw;
    };
    const double black = kEmissivity * kStefanBoltzmann;
    const auto wetter = [&](double Tw) {
        const double Tf = 0.5 * (Tw + air.T);
        const double radiation = black * (air.incoming - fourth(Tw)) + onWick;
        return air.T - air.evaporation(Tw, Tf) + radiation / wickConvection(Tf, air.p, air.v) - Tw;
    };
    const double loss = 4 * black * air.T * squared(air.T) / wickConvection(air.T, air.p, air.v);
    const auto Tpsy = wick(air, 0, dryer);
    const auto Tnw = wick(air, loss, wetter);
    if (!Tg || !Tnw || !Tpsy) {
        examination.refuse(Reason::NoRoot, !Tg ? "tg" : "tnw");
        return {.verdict = examination.verdict()};
    }

    LiljegrenResult result{.verdict = examination.verdict()};
    result.tg = *Tg - kKelvin;
    result.tnw = *Tnw - kKelvin;
    result.tpsy = *Tpsy - kKelvin;
    result.wbgt = 0.7 * result.tnw + 0.2 * result.tg + 0.1 * in.ta;
    result.v2m = wind;
    result.directFraction = F;
    return result;
}

} // namespace comfortics::standards
