// SPDX-License-Identifier: GPL-3.0-or-later
//
// Legend
//   M, W, m   metabolic rate, external work, M less W [W/m²]
//   I         clothing insulation [m²K/W]
//   R, C      losses by radiation and convection [W/m²]
//   L         heat load: what the body would have to spare at the comfort's skin and sweat [W/m²]
#include "standards/pmv_iso.h"

#include "formulas/bracketed_root.h"
#include "formulas/mean_vote.h"

#include <algorithm>
#include <cmath>

namespace comfortics::standards {

namespace {

constexpr double kWattsPerMet = 58.15; // [W/m²]
constexpr double kKelvin = 273;
constexpr double kRadiation = 3.96e-8; // [W/m²K⁴]

double fourthPower(double x)
{
    const double square = x * x;
    return square * square;
}

} // namespace

double pmvVapourPressure(double ta, double RH) noexcept
{
    return 10 * RH * std::exp(16.6536 - 4030.183 / (ta + 235));
}

ComfortCategory comfortCategory(double pmv) noexcept
{
    const double size = std::fabs(pmv);
    if (size < 0.2)
        return ComfortCategory::A;
    if (size < 0.5)
        return ComfortCategory::B;
    return size < 0.7 ? ComfortCategory::C : ComfortCategory::Beyond;
}

ClothingBalance::ClothingBalance(double ta, double tr, double vr, double clo, double heat) noexcept
    : m_ta(ta), m_tr(tr), m_insulation(0.155 * clo),
      m_area(m_insulation <= 0.078 ? 1 + 1.29 * m_insulation : 1.05 + 0.645 * m_insulation),
      m_forced(12.1 * std::sqrt(vr)), m_skin(35.7 - 0.028 * heat), m_surroundings(fourthPower(tr + kKelvin))
{
}

double ClothingBalance::radiation(double t) const noexcept
{
    return kRadiation * m_area * (fourthPower(t + kKelvin) - m_surroundings);
}

double ClothingBalance::convection(double t) const noexcept
{
    const double natural = 2.38 * std::sqrt(std::sqrt(std::fabs(t - m_ta)));
    return m_area * std::max(natural, m_forced) * (t - m_ta);
}

// The surface lies among the skin, the air and the surroundings.
std::optional<double> ClothingBalance::temperature() const noexcept
{
    const double low = std::min({m_ta, m_tr, m_skin});
    const double high = std::max({m_ta, m_tr, m_skin});
    if (!(low > -kKelvin))
        return std::nullopt;
    const double middle = 0.5 * (m_ta + m_skin);
    const double kelvin = middle + kKelvin;
    const double natural = 2.38 * std::sqrt(std::sqrt(std::fabs(middle - m_ta)));
    const double slope =
        -1 - m_insulation * m_area *
                 (4 * kRadiation * kelvin * kelvin * kelvin + std::max(1.25 * natural, m_forced));
    return formulas::bracketedRoot({.low = low,
                                    .high = high,
                                    .start = middle - surplus(middle) / slope,
                                    .slope = slope,
                                    .leastSlope = 1},
                                   [this](double t) { return surplus(t); });
}

std::optional<MeanVote> meanVote(const PmvInputs& in) noexcept
{
    const double pa = pmvVapourPressure(in.ta, in.RH);
    const double M = kWattsPerMet * in.met;
    const double W = kWattsPerMet * in.work;
    const double m = M - W;
    const ClothingBalance clothing(in.ta, in.tr, in.v, in.clo, m);
    const std::optional<double> tCl = clothing.temperature();
    if (!tCl)
        return std::nullopt;
    const double L = m - 3.05e-3 * (5733 - 6.99 * m - pa) - 0.42 * std::max(0.0, m - kWattsPerMet) -
                     1.7e-5 * M * (5867 - pa) - 0.0014 * M * (34 - in.ta) - clothing.losses(*tCl);
    return MeanVote{(0.303 * std::exp(-0.036 * M) + 0.028) * L, *tCl};
}

void lookAtTyped(Examination& examination, const PmvRanges& ranges, const PmvInputs& in) noexcept
{
    examination.look(ranges.ta, in.ta);
    examination.look(ranges.tr, in.tr);
    examination.look({ranges.speed.name, ranges.speed.quantity}, in.v);
    examination.look(ranges.RH, in.RH);
    examination.look(ranges.met, in.met);
    examination.look({ranges.clo.name, ranges.clo.quantity}, in.clo);
    examination.look(ranges.work, in.work);
}

void lookAtMotion(Examination& examination, const PmvRanges& ranges, const InMotion& moving) noexcept
{
    examination.look(ranges.speed, moving.v);
    examination.look(ranges.clo, moving.clo);
}

void lookAtVote(Examination& examination, const PmvRanges& ranges,
                const std::optional<MeanVote>& vote) noexcept
{
    if (!vote)
        examination.refuse(Reason::NoRoot, "t_cl");
    else if (!std::isfinite(vote->pmv))
        examination.refuse(Reason::Undefined, ranges.pmv.name);
    else
        examination.look(ranges.pmv, vote->pmv);
}

PmvIso pmvIso(const PmvInputs& inputs, Motion motion, Limits limits) noexcept
{
    Examination examination(limits);
    lookAtTyped(examination, kPmvIsoRanges, inputs);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};

    const InMotion moving = inMotion(motion, inputs.v, inputs.met, inputs.clo);
    lookAtMotion(examination, kPmvIsoRanges, moving);
    if (inputs.work > inputs.met)
        examination.mark(kPmvIsoRanges.work.name);
    examination.look(kPmvIsoVapour, pmvVapourPressure(inputs.ta, inputs.RH));

    PmvInputs actual = inputs;
    actual.v = moving.v;
    actual.clo = moving.clo;
    const std::optional<MeanVote> vote = meanVote(actual);
    lookAtVote(examination, kPmvIsoRanges, vote);
    if (!examination.hasValue())
        return {.verdict = examination.verdict(), .inMotion = moving};
    return {.verdict = examination.verdict(),
            .pmv = vote->pmv,
            .ppd = formulas::Predicted_Percentage_Dissatisfied(vote->pmv),
            .category = comfortCategory(vote->pmv),
            .tCl = vote->tCl,
            .inMotion = moving};
}

} // namespace comfortics::standards
