// SPDX-License-Identifier: GPL-3.0-or-later
//
// Adaptive comfort in buildings without mechanical cooling, EN 16798-1 (2019). The limits below the neutral
// temperature are wider than those above; in the older EN 15251 they were alike.
//
//   ta, tr  air and mean radiant temperature [°C]
//   v       air speed [m/s]
//   tm      running mean of the outdoor temperature [°C]
//
// Holds for 1 to 1.3 met and clothing that people are free to adapt within 0.5 to 1 clo. Some readings of the
// standard want a running mean above 12.73 °C before moving air raises the upper limits; this does not.
#pragma once

#include "standards/adaptive_ashrae.h"
#include "standards/answer.h"

#include <span>

namespace comfortics::standards {

namespace adaptive_en_range {
inline constexpr Input kTa{"ta", Quantity::Temperature};
inline constexpr Input kTr{"tr", Quantity::Temperature};
inline constexpr Input kSpeed{"v", Quantity::Speed};
inline constexpr Input kOutdoor{"t_m", Quantity::Temperature, {10, 30}};
inline constexpr Input kDay{"t_k", Quantity::Temperature};
inline constexpr Input kAlpha{"alpha", Quantity::Positive, {0.6, 0.9}};
} // namespace adaptive_en_range

struct AdaptiveEn {
    Verdict verdict{};
    double operative = kNaN; ///< [°C]
    double tNeutral = kNaN;  ///< [°C]
    ComfortBand categoryI{};
    ComfortBand categoryII{};
    ComfortBand categoryIII{};
};

AdaptiveEn adaptiveEn(double ta, double tr, double v, double tm, Limits limits = Limits::Mark) noexcept;

/// How many days a running mean looks back on.
inline constexpr std::size_t kRunningDays = 7;

struct RunningMean {
    Verdict verdict{};
    double t = kNaN; ///< [°C]
};

/// Daily means of the outdoor temperature [°C], yesterday's first, each day weighing alpha of the one after
/// it. ASHRAE 55 and EN 16798-1 take alpha from 0.6 to 0.9.
RunningMean runningMean(std::span<const double, kRunningDays> days, double alpha = 0.8,
                        Limits limits = Limits::Mark) noexcept;

/// The same with the fixed weights of EN 16798-1: 1, 0.8, 0.6, 0.5, 0.4, 0.3, 0.2.
RunningMean runningMeanFixed(std::span<const double, kRunningDays> days) noexcept;

} // namespace comfortics::standards
