// SPDX-License-Identifier: GPL-3.0-or-later
//
//   M, W      metabolic rate, mechanical power [W/m²]     I         resultant insulation of the clothing
//   [m²K/W] ta, tr    air, mean radiant temperature [°C]          Ia        insulation of the air in motion
//   [m²K/W] tsk, tcl  skin, surface of the clothing [°C]          Icl       basic insulation of the clothing
//   [m²K/W] pa        vapour pressure [kPa]                       f         clothed to bare surface [-] E, H
//   heat by evaporation, by breath [W/m²]       R, C      heat by radiation, by convection [W/m²] S heat
//   stored [W/m²]                          K         what motion and wind leave of Icl [-]
#include "standards/ireq.h"

#include "formulas/bracketed_root.h"

#include <algorithm>
#include <cmath>

namespace comfortics::standards {

using formulas::bracketedRoot;

using namespace ireq_range;

namespace {

constexpr double kCloUnit = 0.155;  // [m²K/W]
constexpr double kSurface = 1.197;  // growth of the surface with the insulation [W/m²/K]
constexpr double kStillAir = 0.085; // insulation in which Icl is measured [m²K/W]
constexpr double kRadiation = 5.67e-8 * 0.95 * 0.77;
constexpr double kKelvin = 273;            // the standard's own
constexpr double kLeastInsulation = 0.001; // where IREQ is looked for [m²K/W]
constexpr double kMostInsulation = 4;
constexpr double kDebt = 40; // heat that may be lost [Wh/m²]

double vapourPressure(double t) // at saturation [kPa]
{
    return 0.1333 * std::exp(18.6686 - 4030.183 / (t + 235));
}

double surface(double I)
{
    return 1 + kSurface * I;
}

/// The surroundings and the body in them.
struct Cold {
    double M, W, ta, tr, pa, Ia, K;
    double H;

    double evaporation(double tsk, double wettedness, double I) const
    {
        return wettedness * (vapourPressure(tsk) - pa) * 0.38 / (0.06 * (Ia + I));
    }

    /// Radiation and convection. (tcl⁴ - tr⁴) / (tcl - tr) is written out, so that it has its limit.
    double dry(double tcl, double I) const
    {
        const double Tcl = tcl + kKelvin;
        const double Tr = tr + kKelvin;
        const double hr = kRadiation * (Tcl + Tr) * (Tcl * Tcl + Tr * Tr);
        const double R = surface(I) * hr * (tcl - tr);
        const double C = surface(I) * (1 / Ia - hr) * (tcl - ta);
        return R + C;
    }
};

/// Of one strain: what the skin is like.
struct Skin {
    double t;
    double wettedness;
};

/// What is left of the metabolic heat at an insulation I, without any stored. Its zero is the only one.
double spare(const Cold& cold, const Skin& skin, double I)
{
    const double through = cold.M - cold.W - cold.evaporation(skin.t, skin.wettedness, I) - cold.H;
    return through - cold.dry(skin.t - I * through, I);
}

/// Resultant insulation of the clothing Icl, by fixed point: the surface changes little with it.
std::optional<double> resultantInsulation(const Cold& cold, double Icl)
{
    constexpr int kMostPasses = 200;
    constexpr double kMoved = 1e-12;
    double I = Icl;
    for (int pass = 0; pass < kMostPasses; ++pass) {
        const double next = (Icl + kStillAir / surface(I)) * cold.K - cold.Ia / surface(I);
        const bool settled = std::fabs(next - I) <= kMoved;
        I = next;
        if (settled)
            return I > 0 ? std::optional(I) : std::nullopt;
    }
    return std::nullopt;
}

/// Heat stored with a resultant insulation I: what the clothing lets through, (tsk - tcl) / I, is what its
/// surface gives off.
std::optional<double> storage(const Cold& cold, const Skin& skin, double I)
{
    const auto tcl = bracketedRoot({.low = -kKelvin,
                                    .high = 400,
                                    .start = cold.ta + 0.2 * (skin.t - cold.ta),
                                    .slope = -1 / I - surface(I) / cold.Ia,
                                    .leastSlope = 1},
                                   [&](double t) { return (skin.t - t) / I - cold.dry(t, I); });
    if (!tcl)
        return std::nullopt;
    return cold.M - cold.W - cold.evaporation(skin.t, skin.wettedness, I) - cold.H - (skin.t - *tcl) / I;
}

IreqStrain strain(const Cold& cold, const Skin& skin, double Icl, const Examination& examination)
{
    IreqStrain result;
    Examination insulation = examination;
    Examination exposure = examination;

    if (spare(cold, skin, kLeastInsulation) >= 0) {
        insulation.refuse(Reason::HeatToSpare, "ireq");
    } else {
        const auto I = bracketedRoot({.low = kLeastInsulation,
                                      .high = kMostInsulation,
                                      .start = 0.3,
                                      .slope = -1000,
                                      .leastSlope = 10},
                                     [&](double x) { return -spare(cold, skin, x); });
        if (I && cold.K > 0) {
            result.ireq = *I / kCloUnit;
            result.icl = ((*I + cold.Ia / surface(*I)) / cold.K - kStillAir / surface(*I)) / kCloUnit;
        } else {
            insulation.refuse(I ? Reason::Undefined : Reason::NoRoot, "ireq");
        }
    }
    result.insulation = insulation.verdict();

    const auto worn = resultantInsulation(cold, Icl);
    const auto S = worn ? storage(cold, skin, *worn) : std::nullopt;
    if (!S) {
        exposure.refuse(worn ? Reason::NoRoot : Reason::Undefined, "dle");
    } else if (*S >= 0 || -kDebt / *S > kIreqShift) {
        exposure.refuse(Reason::Unlimited, "dle");
    } else {
        result.dle = -kDebt / *S;
    }
    result.exposure = exposure.verdict();
    return result;
}

/// The standard's own raising and lowering.
double heldTo(Examination& examination, const Input& input, const Interval& range, double value)
{
    const double held = std::clamp(value, range.low, range.high);
    if (held != value)
        examination.mark(input.name);
    return held;
}

} // namespace

IreqResult ireq(const IreqInputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kM, in.M);
    examination.look(kWork, in.work);
    if (in.work > in.M)
        examination.mark(kWork.name);
    examination.look(kTa, in.ta);
    examination.look(kTr, in.tr);
    examination.look(kPermeability, in.permeability);
    if (in.walking)
        examination.look(kWalking, *in.walking);
    examination.look(kV, in.v);
    examination.look(kRH, in.RH);
    examination.look(kClo, in.clo);

    IreqResult result;
    if (!examination.hasValue()) {
        result.min.insulation = result.min.exposure = examination.verdict();
        result.neutral = result.min;
        return result;
    }
    const double M = std::clamp(in.M, kM.range.low, kM.range.high);
    const double v = std::clamp(in.v, kV.range.low, kV.range.high);
    const double leastWalk = 0.0052 * (M - 58);
    const Interval walk{std::min(leastWalk, kWalking.range.high), kWalking.range.high};
    const double w = heldTo(examination, kWalking, walk, in.walking.value_or(walk.low));
    // From 288.8 W/m² on no speed lies within both bounds: the upper one holds.
    if (leastWalk > walk.high)
        examination.mark(kWalking.name);
    if (!examination.hasValue()) {
        result.min.insulation = result.min.exposure = examination.verdict();
        result.neutral = result.min;
        return result;
    }
    result.M = M;
    result.walking = w;
    result.v = v;

    const double motion = std::exp(-0.15 * v - 0.22 * w);
    const double pa = in.RH / 100 * vapourPressure(in.ta);
    const double breath = 29 + 0.2 * in.ta; // temperature of the air breathed out [°C]
    const Cold cold{.M = M,
                    .W = in.work,
                    .ta = in.ta,
                    .tr = in.tr,
                    .pa = pa,
                    .Ia = 0.092 * motion - 0.0045,
                    .K = 0.54 * motion * std::pow(in.permeability, 0.075) - 0.06 * std::log(in.permeability) +
                         0.5,
                    .H = 0.0173 * M * (vapourPressure(breath) - pa) + 0.0014 * M * (breath - in.ta)};
    const double Icl = in.clo * kCloUnit;
    result.min = strain(cold, {33.34 - 0.0354 * M, 0.06}, Icl, examination);
    result.neutral = strain(cold, {35.7 - 0.0285 * M, 0.001 * M}, Icl, examination);
    return result;
}

LocalCooling localCooling(double windChillTemperature) noexcept
{
    if (windChillTemperature <= -60)
        return LocalCooling::Within2Minutes;
    if (windChillTemperature <= -35)
        return LocalCooling::Within10Minutes;
    if (windChillTemperature <= -25)
        return LocalCooling::SkinMayFreeze;
    if (windChillTemperature <= -10)
        return LocalCooling::UncomfortablyCold;
    return LocalCooling::None;
}

} // namespace comfortics::standards
