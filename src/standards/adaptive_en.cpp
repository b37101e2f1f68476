// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/adaptive_en.h"

#include <array>
#include <cmath>

namespace comfortics::standards {

namespace {

using Days = std::span<const double, kRunningDays>;

double weighted(Days days, const std::array<double, kRunningDays>& weights)
{
    double sum = 0;
    double weight = 0;
    for (std::size_t k = 0; k < kRunningDays; ++k) {
        sum += weights[k] * days[k];
        weight += weights[k];
    }
    return sum / weight;
}

void lookAt(Examination& examination, Days days)
{
    for (const double day : days)
        examination.look(adaptive_en_range::kDay, day);
}

} // namespace

RunningMean runningMean(Days days, double alpha, Limits limits) noexcept
{
    Examination examination(limits);
    lookAt(examination, days);
    examination.look(adaptive_en_range::kAlpha, alpha);
    if (!examination.hasValue())
        return {examination.verdict()};
    std::array<double, kRunningDays> weights{};
    double weight = 1;
    for (double& w : weights) {
        w = weight;
        weight *= alpha;
    }
    return {examination.verdict(), weighted(days, weights)};
}

RunningMean runningMeanFixed(Days days) noexcept
{
    Examination examination;
    lookAt(examination, days);
    if (!examination.hasValue())
        return {examination.verdict()};
    return {examination.verdict(), weighted(days, {1, 0.8, 0.6, 0.5, 0.4, 0.3, 0.2})};
}

AdaptiveEn adaptiveEn(double ta, double tr, double v, double tm, Limits limits) noexcept
{
    using namespace adaptive_en_range;
    Examination examination(limits);
    examination.look(kTa, ta);
    examination.look(kTr, tr);
    examination.look(kSpeed, v);
    examination.look(kOutdoor, tm);
    AdaptiveEn result{.verdict = examination.verdict()};
    if (!examination.hasValue())
        return result;
    // (ta √(10v) + tr) / (1 + √(10v)), written so that equal temperatures give themselves.
    result.operative = tr + (ta - tr) * (1 - 1 / (1 + std::sqrt(10 * v)));
    result.tNeutral = 0.33 * tm + 18.8;
    const double rise = airSpeedRise(result.operative, v);
    const auto band = [&](double below, double above) {
        ComfortBand made{result.tNeutral - below, result.tNeutral + above + rise};
        made.accepted = kOutdoor.range.contains(tm) && accepts(made, result.operative);
        return made;
    };
    result.categoryI = band(3, 2);
    result.categoryII = band(4, 3);
    result.categoryIII = band(5, 4);
    return result;
}

} // namespace comfortics::standards
