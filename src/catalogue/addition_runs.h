// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models over numbers in the order of the table: each takes its inputs one after the other, puts its
// figures in the order of the table, and a verdict beside each.
#pragma once

#include "standards/answer.h"

#include <cstddef>
#include <span>

namespace comfortics::catalogue::runs {

using standards::Limits;
using standards::Verdict;

void pmvIso(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void pmvAshrae(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void twoNode(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void pet(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void petWg(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void phs2004(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void phs2023(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void ireq(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void sunPosition(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void wbgtLiljegren(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void wbgt7243(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void workRest(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void adaptiveAshrae(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void adaptiveEn(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void tmrtGlobe(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void tmrtSix(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void tmrtFlux(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void tmrtSolarCal(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void utci(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void heatIndex(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void windChill(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;
void bodySurface(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept;

std::size_t twoNodeMinutes(std::span<const double> in) noexcept;
std::size_t phsMinutes(std::span<const double> in) noexcept;
Verdict twoNodeCourse(std::span<const double> in, std::span<double> rows, Limits limits) noexcept;
Verdict phs2004Course(std::span<const double> in, std::span<double> rows, Limits limits) noexcept;
Verdict phs2023Course(std::span<const double> in, std::span<double> rows, Limits limits) noexcept;

inline constexpr std::size_t kTwoNodeFigures = 6;
inline constexpr std::size_t kPhsFigures = 11;
/// Where the duration stands among the inputs of heat strain.
inline constexpr std::size_t kPhsDuration = 13;

} // namespace comfortics::catalogue::runs
