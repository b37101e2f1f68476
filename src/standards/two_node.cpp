// SPDX-License-Identifier: GPL-3.0-or-later
//
// Legend. Temperatures in °C, pressures in torr unless said, heat in W/m², resistances in m²K/W and m²torr/W.
//   a           pressure of the air in atmospheres
//   hc, hr, h   coefficients of convection and radiation, and both together [W/m²K]
//   LR          Lewis ratio [K/torr]
//   f           ratio of the clothed to the bare surface
//   ra, rcl     resistance of air and clothing to heat; rea, recl to vapour
//   im          permeation efficiency of the clothing
//   to          operative temperature
//   alpha       the skin's share of the body's mass
//   M0, M       metabolic rate without and with shivering
//   pv          vapour pressure of the air
//   w, wMax     wettedness of the skin and the most that there can be
//   eMax        evaporation from a skin that is wet all over
//   eRsw, eDif  evaporation of sweat and by diffusion
// An s behind a name is for the standard surroundings.
#include "standards/two_node.h"

#include "formulas/bracketed_root.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace comfortics::standards {

namespace {

constexpr double kWattsPerMet = 58.2; // [W/m²]
constexpr double kCloInsulation = 0.155;
constexpr double kStefanBoltzmann = 5.6697e-8; // [W/m²K⁴]
constexpr double kKelvin = 273.15;
constexpr double kAtmosphere = 101'325; // [Pa]

constexpr double kNeutralSkin = 33.7;
constexpr double kNeutralCore = 36.8;
constexpr double kNeutralBody = 0.1 * kNeutralSkin + 0.9 * kNeutralCore;
constexpr double kNeutralBlood = 6.3; // [L/m²h]
constexpr double kSweatHeat = 0.68;   // [Wh/g]
constexpr double kBodyHeat = 0.97;    // specific heat [Wh/kgK]

constexpr double kLeastSpeed = 0.1;         // [m/s]
constexpr double kClothingTolerance = 0.01; // [K]
constexpr int kMostClothingSteps = 200;

double saturation(double t)
{
    return std::exp(18.6686 - 4030.183 / (t + 235));
}

/// How fast it rises [torr/K], from its value.
double saturationSlope(double t, double pressure)
{
    return pressure * 4030.183 / ((t + 235) * (t + 235));
}

double excess(double value, double threshold)
{
    return std::max(0.0, value - threshold);
}

/// Whether the convection includes that of moving limbs.
enum class LimbConvection : bool { No, Yes };

double limbConvection(double met)
{
    return met > 0.85 ? 5.66 * std::pow(met - 0.85, 0.39) : 0;
}

/// What surroundings take from a skin, for a surplus that is 0 at the temperature sought.
struct Surroundings {
    double dry = kNaN; ///< coefficient of dry heat [W/m²K]
    double wet = kNaN; ///< of vapour [W/m²torr]
};

struct Person {
    Person(const TwoNodeInputs& in, LimbConvection limbs) noexcept;

    /// The body one minute on. False where the clothing has no temperature.
    bool step() noexcept;
    /// So many steps, and whether the body has a state then.
    bool run(int minutes) noexcept;

    std::optional<double> set() const noexcept;
    std::optional<double> et() const noexcept;
    double tsens() const noexcept;
    double disc() const noexcept;
    BodyMinute minute() const noexcept
    {
        return {.tCore = tcr, .tSkin = tsk, .wettedness = w, .eSkin = eSkin, .sweat = sweat, .blood = blood};
    }

    TwoNodeInputs in;
    bool limbs; ///< they add to the convection
    double a, LR, f, rcl, im, M0, W, pv, wMax, hc;
    double radiantFactor; ///< of the third power of the mean temperature
    double perWatt;       ///< rise of the whole body in a minute [m²K/W]

    bool soaked = false; ///< at some minute w was wMax
    double tsk = kTwoNodeStartSkin;
    double tcr = kTwoNodeStartCore;
    double blood = kNeutralBlood;
    double alpha = 0.1;
    double M;
    double eSkin;
    double tcl = 0, hr = 0, ra = 0, to = 0, dry = 0, w = 0, eMax = 0, eRsw = 0, eDif = 0, sweat = 0,
           tBody = 0;

private:
    void settleClothing(double radiantCoefficient) noexcept;
    void sweatAndDiffuse(double regulated) noexcept;
    /// The air at 50 % humidity and walls of one temperature, in which the heat loss is the actual one.
    std::optional<double> equalLoss(const Surroundings& surroundings) const noexcept;
};

Person::Person(const TwoNodeInputs& inputs, LimbConvection limbConvects) noexcept
    : in(inputs), limbs(limbConvects == LimbConvection::Yes), a(in.pressure / kAtmosphere), LR(2.2 / a),
      f(1 + 0.15 * in.clo), rcl(kCloInsulation * in.clo), im(in.clo == 0 ? 1 : 0.45),
      M0(kWattsPerMet * in.met), W(kWattsPerMet * in.work), pv(in.RH / 100 * saturation(in.ta)), M(M0),
      // Deliberately met and not W/m²: the start as published, forgotten within minutes.
      eSkin(0.1 * in.met)
{
    const double v = std::max(in.v, kLeastSpeed);
    const bool of2017 = in.edition == Edition::Ashrae2017;
    hc = std::max(3 * std::pow(a, 0.53), 8.600001 * std::pow(v * a, 0.53));
    if (limbs && !of2017)
        hc = std::max(hc, limbConvection(in.met));
    wMax = in.mostWettedness.value_or(in.clo == 0 ? 0.38 * std::pow(v, -0.29) : 0.59 * std::pow(v, -0.08));
    const double posture = in.posture == Posture::Sitting ? 0.70 : 0.73;
    radiantFactor = of2017 ? 4 * 0.72 * kStefanBoltzmann : 4 * 0.95 * kStefanBoltzmann * posture;
    perWatt = in.area / (kBodyHeat * in.weight.value_or(of2017 ? 69.9 : 70) * 60);
    settleClothing(4.7);
}

/// What follows from a coefficient of radiation.
void Person::settleClothing(double radiantCoefficient) noexcept
{
    hr = radiantCoefficient;
    const double h = hr + hc;
    ra = 1 / (f * h);
    to = (hr * in.tr + hc * in.ta) / h;
    tcl = (ra * tsk + rcl * to) / (ra + rcl);
}

bool Person::step() noexcept
{
    for (int pass = 0;; ++pass) {
        const double before = tcl;
        const double mean = 0.5 * (tcl + in.tr) + kKelvin;
        settleClothing(radiantFactor * (mean * mean * mean));
        if (std::fabs(tcl - before) <= kClothingTolerance)
            break;
        if (pass == kMostClothingSteps)
            return false;
    }
    dry = (tsk - to) / (ra + rcl);
    const double flow = (tcr - tsk) * (5.28 + 1.163 * blood);
    const double breath = 0.0023 * M * (44 - pv) + 0.0014 * M * (34 - in.ta);
    const double storedInCore = M - flow - breath - W;
    const double storedInSkin = flow - dry - eSkin;
    tsk += storedInSkin * perWatt / alpha;
    tcr += storedInCore * perWatt / (1 - alpha);
    tBody = alpha * tsk + (1 - alpha) * tcr;

    const double warmSkin = excess(tsk, kNeutralSkin);
    const double coldSkin = excess(kNeutralSkin, tsk);
    const double warmCore = excess(tcr, kNeutralCore);
    const double coldCore = excess(kNeutralCore, tcr);
    const double warmBody = excess(tBody, kNeutralBody);
    blood = std::min(std::max((kNeutralBlood + 120 * warmCore) / (1 + 0.5 * coldSkin), 0.5), in.mostBlood);
    const double wanted = warmBody > 0 ? 170 * warmBody * std::exp(warmSkin / 10.7) : 0;
    sweatAndDiffuse(kSweatHeat * std::min(wanted, in.mostSweat));
    M = M0 + 19.4 * coldSkin * coldCore;
    alpha = 0.0417737 + 0.7451833 / (blood + 0.585417);
    return true;
}

void Person::sweatAndDiffuse(double regulated) noexcept
{
    eRsw = regulated;
    const double rea = 1 / (LR * f * hc);
    const double recl = rcl / (LR * im);
    eMax = (saturation(tsk) - pv) / (rea + recl);
    if (eMax == 0)
        eMax = 0.001;
    const double regulatedShare = eRsw / eMax;
    w = 0.06 + 0.94 * regulatedShare;
    eDif = w * eMax - eRsw;
    if (w > wMax) {
        const double share = wMax / 0.94;
        soaked = true;
        w = wMax;
        eRsw = share * eMax;
        eDif = 0.06 * (1 - share) * eMax;
    }
    if (eMax < 0) {
        soaked = true;
        eDif = 0;
        eRsw = 0;
        w = wMax;
    }
    eSkin = eRsw + eDif;
    sweat = eRsw / kSweatHeat;
}

bool Person::run(int minutes) noexcept
{
    for (int minute = 0; minute < minutes; ++minute)
        if (!step())
            return false;
    return std::isfinite(tsk) && std::isfinite(tcr) && std::isfinite(eSkin);
}

std::optional<double> Person::equalLoss(const Surroundings& surroundings) const noexcept
{
    constexpr double kColdest = -200;
    constexpr double kHottest = 200;
    const double skinLoss = dry + eSkin;
    const double p = saturation(tsk);
    const double wetting = w * surroundings.wet;
    if (!(surroundings.dry > 0 && wetting >= 0))
        return std::nullopt;
    // The nearer of two straight lines, drawn at the skin and at what the first leads to.
    const auto surplus = [&](double t) {
        return surroundings.dry * (tsk - t) + wetting * (p - 0.5 * saturation(t)) - skinLoss;
    };
    const auto slopeAt = [&](double t) {
        return -(surroundings.dry + wetting * 0.5 * saturationSlope(t, saturation(t)));
    };
    const double skin = std::min(std::max(tsk, kColdest), kHottest);
    const double slope = slopeAt(skin);
    return formulas::bracketedRoot({.low = kColdest,
                                    .high = kHottest,
                                    .start = skin - surplus(skin) / slope,
                                    .slope = slope,
                                    .leastSlope = surroundings.dry},
                                   surplus);
}

std::optional<double> Person::set() const noexcept
{
    double hcs = 3;
    if (in.edition != Edition::Ashrae2017)
        hcs = std::max(hcs, 3 * std::pow(a, 0.53));
    if (limbs)
        hcs = std::max(hcs, limbConvection(in.met));
    const double hs = hcs + hr;
    const double clos = 1.52 / ((in.met - in.work) + 0.6944) - 0.1835;
    const double rcls = kCloInsulation * clos;
    const double fs = 1 + 0.25 * clos;
    const double F = 1 / (1 + kCloInsulation * fs * hs * clos);
    const double ims = 0.45 * (hcs / hs) * (1 - F) / (hcs / hs - 0.45 * F);
    const double ras = 1 / (fs * hs);
    const double reas = 1 / (LR * fs * hcs);
    const double recls = rcls / (LR * ims);
    return equalLoss({1 / (ras + rcls), 1 / (reas + recls)});
}

std::optional<double> Person::et() const noexcept
{
    const double rea = 1 / (LR * f * hc);
    const double recl = rcl / (LR * im);
    return equalLoss({1 / (ra + rcl), 1 / (rea + recl)});
}

double Person::tsens() const noexcept
{
    // The body temperatures at which regulation by blood ends below and by sweat ends above.
    const double cold = (0.194 / 58.15) * (M0 - W) + 36.301;
    const double hot = (0.347 / 58.15) * (M0 - W) + 36.669;
    if (tBody < cold)
        return 0.4685 * (tBody - cold);
    if (tBody < hot)
        return 4.7 * wMax * (tBody - cold) / (hot - cold);
    return 4.7 * wMax + 0.4685 * (tBody - hot);
}

double Person::disc() const noexcept
{
    constexpr double kMost = 6;
    const double eComfort = std::max(0.0, 0.42 * (M0 - W - kWattsPerMet));
    const double above = eRsw - eComfort;
    const double most = eMax * wMax - eComfort - eDif;
    const double sensation = tsens();
    if (most < 0 && sensation > 0)
        return kMost;
    const double disc = std::min(4.7 * above / most, kMost);
    return disc > 0 ? disc : sensation; // the sensation, too, where both are 0
}

void lookAt(Examination& examination, const TwoNodeInputs& in)
{
    using namespace two_node_range;
    examination.look(kTa, in.ta);
    examination.look(kTr, in.tr);
    examination.look({kSpeed.name, kSpeed.quantity}, in.v);
    examination.look(kRH, in.RH);
    examination.look(kMet, in.met);
    examination.look({kClo.name, kClo.quantity}, in.clo);
    examination.look(kWork, in.work);
    if (in.work > in.met)
        examination.mark(kWork.name);
    examination.look(kPressure, in.pressure);
    examination.look(kArea, in.area);
    if (in.weight)
        examination.look(kWeight, *in.weight);
    if (in.mostWettedness)
        examination.look(kMostWettedness, *in.mostWettedness);
    examination.look(kMostBlood, in.mostBlood);
    examination.look(kMostSweat, in.mostSweat);
}

/// The inputs with what the motion makes of speed and clothing, looked at.
TwoNodeInputs moved(Examination& examination, const TwoNodeInputs& inputs, Motion motion)
{
    const InMotion moving = inMotion(motion, inputs.v, inputs.met, inputs.clo);
    examination.look(two_node_range::kSpeed, moving.v);
    examination.look(two_node_range::kClo, moving.clo);
    TwoNodeInputs actual = inputs;
    actual.v = moving.v;
    actual.clo = moving.clo;
    return actual;
}

/// The same person and the verdict of a temperature that may have no root.
std::pair<double, Verdict> figure(const std::optional<double>& root, const Verdict& verdict,
                                  std::string_view name)
{
    if (root)
        return {*root, verdict};
    return {kNaN, {Standing::None, Reason::NoRoot, name}};
}

} // namespace

TwoNode twoNode(const TwoNodeInputs& inputs, Motion motion, Limits limits) noexcept
{
    const auto none = [](const Verdict& verdict) {
        return TwoNode{.verdict = verdict, .setVerdict = verdict, .etVerdict = verdict};
    };
    Examination examination(limits);
    lookAt(examination, inputs);
    if (!examination.hasValue())
        return none(examination.verdict());
    const TwoNodeInputs actual = moved(examination, inputs, motion);
    if (!examination.hasValue())
        return none(examination.verdict());
    Person person(actual, LimbConvection::Yes);
    if (!person.run(kTwoNodeMinutes)) {
        examination.refuse(Reason::NoRoot, "t_cl");
        return none(examination.verdict());
    }
    TwoNode result{.verdict = examination.verdict()};
    std::tie(result.set, result.setVerdict) = figure(person.set(), result.verdict, "set");
    std::tie(result.et, result.etVerdict) = figure(person.et(), result.verdict, "et");
    result.tSkin = person.tsk;
    result.tCore = person.tcr;
    result.wettedness = person.w;
    result.eSkin = person.eSkin;
    result.disc = person.disc();
    result.tsens = person.tsens();
    result.inMotion = {std::max(actual.v, kLeastSpeed), actual.clo};
    return result;
}

Verdict twoNodeCourse(const TwoNodeInputs& inputs, std::span<BodyMinute> minutes, Motion motion,
                      Limits limits) noexcept
{
    std::fill(minutes.begin(), minutes.end(), BodyMinute{});
    Examination examination(limits);
    lookAt(examination, inputs);
    if (!examination.hasValue())
        return examination.verdict();
    const TwoNodeInputs actual = moved(examination, inputs, motion);
    if (!examination.hasValue())
        return examination.verdict();
    Person person(actual, LimbConvection::Yes);
    for (BodyMinute& minute : minutes) {
        if (!person.run(1)) {
            std::fill(minutes.begin(), minutes.end(), BodyMinute{});
            examination.refuse(Reason::NoRoot, "t_cl");
            break;
        }
        minute = person.minute();
    }
    return examination.verdict();
}

CoolingEffectSet coolingEffectSet(const TwoNodeInputs& inputs) noexcept
{
    TwoNodeInputs standing = inputs;
    standing.posture = Posture::Standing;
    Person person(standing, LimbConvection::No);
    if (!person.run(kTwoNodeMinutes))
        return {};
    return {person.set().value_or(kNaN), person.soaked};
}

} // namespace comfortics::standards
