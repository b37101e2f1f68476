// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/pet_body.h"

#include <algorithm>
#include <cmath>

namespace comfortics::standards::pet_body {

namespace {

constexpr double kConduction = 5.28;  // [W/m²K]
constexpr double kLeastBlood = 6.3;   // of neither a warm core nor a cold skin [L/m²h]
constexpr double kBloodOfWarmth = 75; // [L/m²hK]
constexpr double kMostBlood = 90;
constexpr double kWarmCore = 36.6; // [°C]
constexpr double kColdSkin = 34;

/// What a cold skin divides the blood flow by.
double constriction(double tSkin)
{
    return 1 + 0.5 * std::max(0.0, kColdSkin - tSkin);
}

} // namespace

void lookAt(Examination& examination, const PetInputs& in) noexcept
{
    using namespace pet_range;
    examination.look(kTa, in.ta);
    examination.look(kTmrt, in.tmrt);
    examination.look(kSpeed, in.v);
    if (in.e)
        examination.look(kVapourPressure, *in.e);
    else
        examination.look(kRH, in.RH);
    examination.look(kPressure, in.pressure);
    examination.look(kClo, in.clo);
    if (!(coveredShare(in.clo) > 0))
        examination.refuse(Reason::Undefined, kClo.name);
    examination.look(kWork, in.work);
    examination.look(kAge, in.age);
    examination.look(kHeight, in.height);
    examination.look(kWeight, in.weight);
}

double basalRate(const PetInputs& in) noexcept
{
    const double root = std::cbrt(in.weight);
    const double threeQuarters = std::pow(in.weight, 0.75);
    const double slenderness = 100 * in.height / root;
    const double youth = 0.004 * (30 - in.age);
    if (in.sex == Sex::Male)
        return 3.45 * threeQuarters * (1 + youth + 0.010 * (slenderness - 43.4));
    return 3.19 * threeQuarters * (1 + youth + 0.018 * (slenderness - 42.1));
}

double coveredShare(double clo) noexcept
{
    return (-2.36 + 173.51 * clo - 100.76 * clo * clo + 19.28 * clo * clo * clo) / 100;
}

double radiantShare(Posture posture) noexcept
{
    return posture == Posture::Sitting ? 0.696 : 0.725;
}

double bloodFlow(double tCore, double tSkin) noexcept
{
    const double warmth = std::max(0.0, tCore - kWarmCore);
    return std::min(kMostBlood, (kLeastBlood + kBloodOfWarmth * warmth) / constriction(tSkin));
}

double coreToSkin(double tCore, double tSkin, double bloodHeat) noexcept
{
    return (kConduction + bloodHeat * bloodFlow(tCore, tSkin)) * (tCore - tSkin);
}

std::optional<double> coreTemperature(double tSkin, double heat, double bloodHeat) noexcept
{
    constexpr double kFarthest = 200; // [K]
    if (!(heat > 0))
        return std::nullopt;
    const double divisor = constriction(tSkin);
    const double atRest = kConduction + bloodHeat * kLeastBlood / divisor;
    double tCore = tSkin + heat / atRest;
    if (tCore > kWarmCore) {
        // With x = tCore - kWarmCore: (atRest + growth x) (x + y) = heat. That rises from where both
        // factors are above 0, so the root is the larger one.
        const double growth = bloodHeat * kBloodOfWarmth / divisor;
        const double y = kWarmCore - tSkin;
        const double linear = atRest + growth * y;
        const double rest = heat - atRest * y;
        const double root = std::sqrt(linear * linear + 4 * growth * rest);
        const double x = linear > 0 ? 2 * rest / (linear + root) : (root - linear) / (2 * growth);
        tCore = kWarmCore + x;
        if ((kLeastBlood + kBloodOfWarmth * x) / divisor > kMostBlood)
            tCore = tSkin + heat / (kConduction + bloodHeat * kMostBlood);
    }
    if (!(tCore - tSkin < kFarthest))
        return std::nullopt;
    return tCore;
}

} // namespace comfortics::standards::pet_body
