// SPDX-License-Identifier: GPL-3.0-or-later
//
//   ta, tr        air, mean radiant temperature [°C]
//   tsk, tcl      skin, surface of the clothing [°C]
//   tcr, tre      core, rectal [°C]
//   tce           core by the metabolic rate alone [°C]
//   v, var        air speed, that relative to the body, or equal to it [m/s]
//   Wa            speed of walking [m/s]
//   hc            convective coefficient [W/m²/K]
//   Ist, Ia       insulation of clothing, of the air [m²K/W]
//   Itd, Iad      the same in motion
//   Icd           of the clothing alone, in motion
//   Rt            resistance to vapour [m²kPa/W]
//   Ereq, Emax    evaporation required, possible [W/m²]
//   SWreq, SWp    sweat required, predicted [W/m²]
//   beta          share of the skin in the body's heat
//   c             heat capacity [W min/m²/K]
//   w             wettedness of the skin [-]
#include "standards/phs.h"

#include "formulas/bracketed_root.h"
#include "standards/body_surface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace comfortics::standards {

using formulas::bracketedRoot;

using namespace phs_range;

namespace {

enum class PhsEdition : std::uint8_t { Of2004, Of2023 };

/// What a difference or quotient of inputs may be off by rounding.
constexpr double kRounding = 1e-9;

bool withinRange(const Interval& range, double value)
{
    return value >= range.low - kRounding && value <= range.high + kRounding;
}

constexpr double kStefanBoltzmann = 5.67e-8;
constexpr double kKelvin = 273; // the standard's own
constexpr double kEmissivity = 0.97;
constexpr double kStillAir = 0.111;            // insulation [m²K/W]
constexpr double kLewis = 16.7;                // [K/kPa]
constexpr double kGramsPerMinute = 2.67 / 108; // of a loss of 1 W from 1 m²: 1/1.8 g/h per watt of 0.675 Wh/g

/// How far beyond the ends between which a root lies it is looked for [K]: it may stand on one of them.
constexpr double kMargin = 1e-3;

constexpr double kStartCore = 36.8;
constexpr double kStartSkin = 34.1;
constexpr double kMostBeta = 0.3;
constexpr double kLeastBeta = 0.1;

double saturation(double t) // [kPa]
{
    return 0.6105 * std::exp(17.27 * t / (t + 237.3));
}

double fourth(double T)
{
    return (T * T) * (T * T);
}

double betaOf(double tcr)
{
    return std::clamp(kMostBeta - 0.09 * (tcr - kStartCore), kLeastBeta, kMostBeta);
}

/// What does not change from minute to minute.
struct Exposure {
    Exposure(PhsEdition edition, const PhsInputs& in, double area, double M);

    double ta, tr, v, pa, M, work, clo;
    double c;
    double mostSweat; // [W/m²]
    double mostWettedness;
    double radiation;    // exchange by radiation [W/m²/K⁴]
    double tEquilibrium; // of the core by the metabolic rate
    double fcl;
    double forced; // least hc
    double Icd;
    double Rt;
    double Cres, Eres;
    double clothedSkin, nudeSkin; // what of the skin's equilibrium stays the same
    bool skinAtOnce;
};

Exposure::Exposure(PhsEdition edition, const PhsInputs& in, double area, double metabolic)
    : ta(in.ta), tr(in.tr), v(in.v), pa(in.pa), M(metabolic), work(in.work), clo(in.clo)
{
    const bool of2004 = edition == PhsEdition::Of2004;
    c = of2004 ? 57.83 * in.weight / area : 3490 * in.weight / area / 60;
    if (of2004)
        mostSweat = std::clamp((M - 32) * area, 250.0, 400.0) * (in.acclimatised ? 1.25 : 1);
    else
        mostSweat = in.acclimatised ? 500 : 400;
    mostWettedness = in.acclimatised ? 1 : 0.85;
    tEquilibrium = of2004 ? 0.0036 * M + 36.6 : 0.0036 * (M - 55) + 36.8;
    skinAtOnce = !of2004;

    const double Ap = in.Ap.value_or(of2004 ? 0.54 : 0);
    const double Fr = in.Fr.value_or(of2004 ? 0.97 : 0);
    const double emissivity = kEmissivity * (1 - Ap) + (of2004 ? Fr : 1 - Fr) * Ap;
    constexpr std::array kRadiating{0.70, 0.77, 0.67}; // share of the surface, in the order of PhsPosture
    radiation = kStefanBoltzmann * emissivity * kRadiating[static_cast<std::size_t>(in.posture)];

    double Wa = std::min(0.7, 0.0052 * (M - 58));
    double var = v;
    if (in.walking) {
        Wa = *in.walking;
        var = in.angle ? std::fabs(v - Wa * std::cos(*in.angle * std::numbers::pi / 180)) : std::max(v, Wa);
    }
    forced = var <= 1 ? 3.5 + 5.2 * var : 8.7 * std::pow(var, 0.6);

    fcl = 1 + (of2004 ? 0.3 : 0.28) * clo;
    const double Ist = 0.155 * clo;
    const double Itst = Ist + kStillAir / fcl;
    const double x = std::min(var, 3.0);
    const double z = of2004 ? var : x;
    const double u = std::min(Wa, 1.5);
    const double clothed = std::min(1.0, 1.044 * std::exp((0.066 * x - 0.398) * x + (0.094 * u - 0.378) * u));
    const double air = std::min(1.0, std::exp((0.047 * z - 0.472) * z + (0.117 * u - 0.342) * u));
    const double correction = clo <= 0.6 ? ((0.6 - clo) * air + clo * clothed) / 0.6 : clothed;
    const double Itd = Itst * correction;
    const double Iad = air * kStillAir;
    Icd = clo > 0 ? Itd - Iad / fcl : 0; // without clothing a difference of what is the same
    const double im = std::min(0.9, in.imst * ((2.6 * correction - 6.5) * correction + 4.9));
    Rt = Itd / im / kLewis;

    Cres = 0.001516 * M * (28.56 + 0.115 * ta + 0.641 * pa - ta);
    Eres = 0.00127 * M * (59.34 + 0.53 * ta - 11.63 * pa);
    clothedSkin = 12.165 + 0.02017 * ta + 0.04361 * tr + 0.19354 * pa - 0.25315 * v + 0.005346 * M;
    nudeSkin = 7.191 + 0.064 * ta + 0.061 * tr + 0.198 * pa - 0.348 * v;
}

/// Convection and radiation [W/m²] of a skin of tsk through the clothing.
///
/// The clothing's surface takes up what the skin gives, (tsk - tcl) / Icd, and gives it to air and
/// surroundings; written without the quotient, so that no clothing is its limit. Nothing where it has no
/// temperature. `tcl` is the guess and then the root.
std::optional<double> dryHeat(const Exposure& at, double tsk, double& tcl)
{
    // By this minute's skin: taken once for all, it moves limits by a minute.
    const double hc = std::max(2.38 * std::sqrt(std::sqrt(std::fabs(tsk - at.ta))), at.forced);
    const double surroundings = fourth(at.tr + kKelvin);
    const auto given = [&](double t) {
        return at.fcl * (hc * (t - at.ta) + at.radiation * (fourth(t + kKelvin) - surroundings));
    };
    const auto [low, high] = std::minmax({tsk, at.ta, at.tr});
    const auto root = bracketedRoot({.low = low - kMargin,
                                     .high = high + kMargin,
                                     .start = tcl,
                                     .slope = -1 - at.Icd * at.fcl * (hc + 4 * at.radiation * 3e7),
                                     .leastSlope = 1},
                                    [&](double t) { return (tsk - t) - at.Icd * given(t); });
    if (!root)
        return std::nullopt;
    tcl = *root;
    return given(tcl);
}

/// The core temperature [°C] for a heat content: tcr * (1 - beta / 2) + tsk * beta / 2 = content.
///
/// For the least and the most beta the equation is solved by hand, and the root lies between.
std::optional<double> coreOf(double content, double tsk, double before)
{
    const auto of = [&](double beta) { return (content - tsk * beta / 2) / (1 - beta / 2); };
    const auto [low, high] = std::minmax({of(kLeastBeta), of(kMostBeta)});
    return bracketedRoot(
        {.low = low - kMargin, .high = high + kMargin, .start = before, .slope = -0.9, .leastSlope = 0.5},
        [&](double t) {
            const double beta = betaOf(t);
            return content - (t * (1 - beta / 2) + tsk * beta / 2);
        });
}

/// Sweat rate [W/m²] that the required evaporation asks for: less of it evaporates the wetter the skin.
double requiredSweat(double Ereq, double Emax, double most)
{
    if (Ereq <= 0)
        return 0;
    if (Emax <= 0)
        return most;
    const double w = Ereq / Emax;
    if (w >= 1.7)
        return most;
    const double sweat = w > 1 ? Ereq * 2 / ((2 - w) * (2 - w)) : Ereq / (1 - w * w / 2);
    return std::min(sweat, most);
}

double predictedEvaporation(double sweat, double Emax, double mostWettedness)
{
    const double k = Emax / sweat;
    const double w = k >= 0.5 ? -k + std::sqrt(k * k + 2) : 1;
    return std::min(w, mostWettedness) * Emax;
}

/// The body at the end of a minute.
struct Body {
    double tcr = kStartCore;
    double tsk = kStartSkin;
    double tre = kStartCore;
    double tce = kStartCore;
    double beta = kMostBeta;
    double sweat = 0;
    double tcl = kStartSkin;
};

/// One minute on. False where a temperature cannot be found.
bool step(const Exposure& at, bool first, Body& body, PhsMinute& minute)
{
    static const double kSlow = std::exp(-1.0 / 10);
    static const double kQuick = std::exp(-1.0 / 3);
    const Body before = body;

    body.tce = before.tce * kSlow + at.tEquilibrium * (1 - kSlow);
    minute.adaptation = at.c * (body.tce - before.tce) * (1 - before.beta);

    const double clothed = at.clothedSkin + 0.51274 * before.tre;
    const double nude = at.nudeSkin + 0.616 * before.tre;
    double equilibrium = nude + 2.5 * (clothed - nude) * (at.clo - 0.2);
    if (at.clo >= 0.6)
        equilibrium = clothed;
    else if (at.clo <= 0.2)
        equilibrium = nude;
    body.tsk = first && at.skinAtOnce ? equilibrium : before.tsk * kQuick + equilibrium * (1 - kQuick);

    const auto dry = dryHeat(at, body.tsk, body.tcl);
    if (!dry)
        return false;
    minute.dry = *dry;
    minute.breath = at.Cres + at.Eres;
    // Heat that is wanting is not taken from the body: this strain is one of heat alone.
    minute.required = std::max(0.0, at.M - minute.adaptation - at.work - at.Cres - at.Eres - *dry);
    // No sweat is asked for then, whatever the air can take up.
    double Emax = (saturation(body.tsk) - at.pa) / at.Rt;
    if (minute.required > 0 && Emax <= 0)
        Emax = 0;
    const double asked = requiredSweat(minute.required, Emax, at.mostSweat);

    body.sweat = before.sweat * kSlow + asked * (1 - kSlow);
    minute.evaporated = 0;
    if (body.sweat > 0)
        minute.evaporated = predictedEvaporation(body.sweat, Emax, at.mostWettedness);
    else
        body.sweat = 0;

    minute.storage = minute.required - minute.evaporated + minute.adaptation;
    const double content =
        minute.storage / at.c + before.tsk * before.beta / 2 + before.tcr * (1 - before.beta / 2);
    const auto core = coreOf(content, body.tsk, before.tcr);
    if (!core)
        return false;
    body.tcr = *core;
    body.beta = betaOf(*core);
    body.tre = before.tre + (2 * body.tcr - 1.962 * before.tre - 1.31) / 9;

    minute.tCore = body.tcr;
    minute.tSkin = body.tsk;
    minute.tRectal = body.tre;
    minute.sweat = body.sweat;
    return true;
}

void look(Examination& examination, const PhsInputs& in, PhsEdition edition, double area)
{
    const bool of2004 = edition == PhsEdition::Of2004;
    examination.look(kTa, in.ta);
    examination.look(kTr, in.tr);
    if (!withinRange(kRadiantExcess, in.tr - in.ta))
        examination.mark(kTr.name);
    examination.look(kV, in.v);
    examination.look(of2004 ? kPa2004 : kPa2023, in.pa);
    examination.look(kM, in.M);
    const double metabolic = of2004 ? in.M : in.M / area;
    if (!withinRange(of2004 ? kM2004 : kM2023, metabolic))
        examination.mark(kM.name);
    examination.look(kWork, in.work);
    if (in.work > metabolic)
        examination.mark(kWork.name);
    examination.look(kClo, in.clo);
    if (in.walking)
        examination.look(kWalking, *in.walking);
    if (in.angle)
        examination.look(kAngle, *in.angle);
    examination.look(kDuration, in.duration);
    if (in.duration > kPhsMostMinutes)
        examination.refuse(Reason::BeyondRange, kDuration.name);
    else if (in.duration != std::floor(in.duration))
        examination.refuse(Reason::Undefined, kDuration.name);
    examination.look(kWeight, in.weight);
    examination.look(kHeight, in.height);
    examination.look(kImst, in.imst);
    if (in.Ap)
        examination.look(kAp, *in.Ap);
    if (in.Fr)
        examination.look(kFr, *in.Fr);
}

void reach(PhsTime& time, bool now, int minute)
{
    if (now && !time.reached)
        time = {static_cast<double>(minute), true};
}

PhsResult refused(const Verdict& verdict, std::span<PhsMinute> course, std::size_t from)
{
    std::fill(course.begin() + static_cast<std::ptrdiff_t>(std::min(from, course.size())), course.end(),
              PhsMinute{});
    return {.verdict = verdict, .temperatures = verdict};
}

PhsResult predict(PhsEdition edition, const PhsInputs& in, Limits limits, std::span<PhsMinute> course)
{
    const double area = bodySurface(in.weight, in.height).area;
    Examination examination(limits);
    look(examination, in, edition, area);
    if (!examination.hasValue())
        return refused(examination.verdict(), course, 0);

    const bool of2004 = edition == PhsEdition::Of2004;
    const Exposure at(edition, in, area, of2004 ? in.M : in.M / area);
    if (!(at.Icd >= 0 && at.Rt > 0)) {
        examination.refuse(Reason::Undefined, kClo.name);
        return refused(examination.verdict(), course, 0);
    }
    const double lossLimit = phsLossLimit(in.weight, in.drink);
    const double meanLossLimit = phsMeanLossLimit(in.weight, in.drink);

    PhsResult result;
    Body body;
    double loss = 0;
    const int duration = static_cast<int>(in.duration);
    for (int i = 1; i <= duration; ++i) {
        PhsMinute minute;
        const bool found = step(at, i == 1, body, minute);
        loss += (body.sweat + at.Eres) * kGramsPerMinute * area;
        minute.waterLoss = loss;
        const auto index = static_cast<std::size_t>(i - 1);
        if (!found || !std::isfinite(body.tre) || !std::isfinite(loss)) {
            examination.refuse(Reason::NoRoot, found ? "t_re" : "t_cr");
            return refused(examination.verdict(), course, index);
        }
        reach(result.dLimTre, body.tre >= kPhsLimit, i);
        reach(result.dLimLoss, loss >= lossLimit, i);
        if (of2004)
            reach(result.dLimLossMean, loss >= meanLossLimit, i);
        if (body.tre > kPhsFormal && result.formalFrom == 0)
            result.formalFrom = i;
        if (index < course.size())
            course[index] = minute;
    }

    result.dLim = {in.duration, false};
    for (PhsTime* time : {&result.dLimTre, &result.dLimLoss, &result.dLimLossMean}) {
        if (!time->reached)
            time->minutes = in.duration;
        else if (!result.dLim.reached || time->minutes < result.dLim.minutes)
            result.dLim = *time;
    }
    if (!of2004)
        result.dLimLossMean = {};

    result.verdict = examination.verdict();
    result.waterLoss = loss;
    if (body.tre > kPhsFormal)
        examination.mark("t_re");
    result.temperatures = examination.verdict();
    if (result.temperatures.hasValue()) {
        result.tRectal = body.tre;
        result.tCore = body.tcr;
        result.tSkin = body.tsk;
    }
    return result;
}

} // namespace

double phsLossLimit(double weight, bool drink) noexcept
{
    return (drink ? 0.05 : 0.03) * weight * 1000;
}

double phsMeanLossLimit(double weight, bool drink) noexcept
{
    return (drink ? 0.075 : 0.03) * weight * 1000;
}

double phsVapourPressure(double ta, double RH) noexcept
{
    return RH / 100 * saturation(ta);
}

PhsResult phs2004(const PhsInputs& inputs, Limits limits, std::span<PhsMinute> course) noexcept
{
    return predict(PhsEdition::Of2004, inputs, limits, course);
}

PhsResult phs2023(const PhsInputs& inputs, Limits limits, std::span<PhsMinute> course) noexcept
{
    return predict(PhsEdition::Of2023, inputs, limits, course);
}

} // namespace comfortics::standards
