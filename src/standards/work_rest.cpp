// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/work_rest.h"

#include "formulas/bracketed_root.h"
#include "standards/wbgt_iso7243.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace comfortics::standards {

using namespace work_rest_range;

namespace {

constexpr double kHour = 60; // [min]

WorkRest hourOf(const Verdict& verdict, double minutes)
{
    constexpr double kStep = 5;
    return {.verdict = verdict,
            .workMin = minutes,
            .restMin = kHour - minutes,
            .shown = kStep * std::floor(minutes / kStep)};
}

/// One row of the table: up to `top` [°F] this much work [min].
struct TableRow {
    double top;
    double minutes;
};
constexpr std::array<TableRow, 6> kLight{{{105, 60}, {106, 45}, {107, 40}, {108, 35}, {109, 30}, {110, 15}}};
constexpr std::array<TableRow, 8> kModerate{
    {{99, 60}, {100, 45}, {101, 40}, {102, 35}, {104, 30}, {105, 25}, {106, 20}, {107, 15}}};
constexpr std::array<TableRow, 8> kHeavy{
    {{94, 60}, {96, 45}, {97, 40}, {99, 35}, {101, 30}, {102, 25}, {104, 20}, {105, 15}}};

std::span<const TableRow> tableOf(Labour labour)
{
    switch (labour) {
    case Labour::Light:
        return kLight;
    case Labour::Moderate:
        return kModerate;
    case Labour::Heavy:
        break;
    }
    return kHeavy;
}

/// What the humidity adds at 10, 20, ... 60 % [°F].
constexpr std::array<double, 6> kHumidity{-8, -4, 0, 3, 6, 9};
/// What the sun adds, in the order of Sunshine [°F].
constexpr std::array<double, 3> kSunshine{13, 7, 0};

double humidityAddition(double RH)
{
    const double place = RH / 10 - 1;
    const std::size_t low = std::min<std::size_t>(static_cast<std::size_t>(place), kHumidity.size() - 2);
    return kHumidity[low] + (place - static_cast<double>(low)) * (kHumidity[low + 1] - kHumidity[low]);
}

} // namespace

WorkRest workRestTimeWeighted(const TimeWeighted& hour, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kWbgtWork, hour.wbgtWork);
    examination.look(kWbgtRest, hour.wbgtRest);
    examination.look(kWork, hour.work);
    examination.look(kRest, hour.rest);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};

    // The excess over the limit is concave in the share of work q, so where it holds at rest and not at work,
    // it is reached once, and where it holds at neither, nowhere.
    const auto spare = [&](double q) {
        return limitCurve(q * hour.work + (1 - q) * hour.rest, hour.acclimatised) -
               (q * hour.wbgtWork + (1 - q) * hour.wbgtRest);
    };
    if (spare(1) >= 0)
        return hourOf(examination.verdict(), kHour);
    if (spare(0) < 0) {
        examination.refuse(Reason::NoRestHere, "work_min");
        return {.verdict = examination.verdict()};
    }
    constexpr double kMargin = 1e-6; // the root may stand on an end
    const auto q = formulas::bracketedRoot({.low = -kMargin,
                                            .high = 1 + kMargin,
                                            .start = 0.5,
                                            .slope = spare(1) - spare(0),
                                            .leastSlope = 1e-3},
                                           spare);
    if (!q) {
        examination.refuse(Reason::NoRoot, "work_min");
        return {.verdict = examination.verdict()};
    }
    return hourOf(examination.verdict(), kHour * std::clamp(*q, 0.0, 1.0));
}

CapacityResult workCapacity(const Capacity& capacity, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kWbgt, capacity.wbgt);
    examination.look(kWork, capacity.work);
    examination.look(kRest, capacity.rest);
    if (!(capacity.work > capacity.rest))
        examination.refuse(Reason::Undefined, kWork.name);
    if (!examination.hasValue())
        return {.hour = {.verdict = examination.verdict()}};

    const auto limit = [&](double M) {
        return capacity.between == CapacityLimits::Iso ? 34.9 - M / 46 : limitCurve(M, true);
    };
    const double rest = limit(capacity.rest);
    const double share = std::clamp(100 * (rest - capacity.wbgt) / (rest - limit(capacity.work)), 0.0, 100.0);
    return {.hour = hourOf(examination.verdict(), kHour * share / 100), .share = share};
}

NioshResult workRestByTable(const NioshTable& in) noexcept
{
    Examination examination(Limits::Blank);
    examination.look(kTa, in.ta);
    examination.look(kRH, in.RH);
    if (!examination.hasValue())
        return {.hour = {.verdict = examination.verdict()}};

    NioshResult result;
    result.adjusted =
        9 * in.ta / 5 + 32 + kSunshine[static_cast<std::size_t>(in.sun)] + humidityAddition(in.RH);
    constexpr double kRounding = 1e-9; // of the way from °C
    double minutes = 0;
    result.advice = NioshAdvice::Caution;
    for (const TableRow& row : tableOf(in.labour)) {
        if (result.adjusted <= row.top + kRounding) {
            minutes = row.minutes;
            result.advice = minutes == kHour ? NioshAdvice::Normal : NioshAdvice::Schedule;
            break;
        }
    }
    result.hour = hourOf(examination.verdict(), minutes);
    return result;
}

} // namespace comfortics::standards
