// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/adaptive_ashrae.h"

namespace comfortics::standards {

double ashraeOperative(double ta, double tr, double v) noexcept
{
    const double A = v < 0.2 ? 0.5 : v < 0.6 ? 0.6 : 0.7;
    // A ta + (1 - A) tr, written so that equal temperatures give themselves.
    return tr + A * (ta - tr);
}

double airSpeedRise(double operative, double v) noexcept
{
    if (!(operative > 25) || v < 0.6)
        return 0;
    if (v < 0.9)
        return 1.2;
    return v < 1.2 ? 1.8 : 2.2;
}

bool accepts(const ComfortBand& band, double operative) noexcept
{
    constexpr double kRounding = 1e-9; // [K]
    return operative >= band.low - kRounding && operative <= band.up + kRounding;
}

AdaptiveAshrae adaptiveAshrae(double ta, double tr, double v, double tp, Limits limits) noexcept
{
    using namespace adaptive_ashrae_range;
    Examination examination(limits);
    examination.look(kTa, ta);
    examination.look(kTr, tr);
    examination.look(kSpeed, v);
    examination.look(kOutdoor, tp);
    AdaptiveAshrae result{.verdict = examination.verdict()};
    if (!examination.hasValue())
        return result;
    result.operative = ashraeOperative(ta, tr, v);
    result.tNeutral = 0.31 * tp + 17.8;
    const double rise = airSpeedRise(result.operative, v);
    const auto band = [&](double width) {
        ComfortBand made{result.tNeutral - width, result.tNeutral + width + rise};
        made.accepted = kOutdoor.range.contains(tp) && accepts(made, result.operative);
        return made;
    };
    result.of80 = band(3.5);
    result.of90 = band(2.5);
    return result;
}

} // namespace comfortics::standards
