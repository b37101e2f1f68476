// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/wbgt_iso7243.h"

#include <array>
#include <cmath>

namespace comfortics::standards {

using namespace wbgt_7243_range;

namespace {

/// In the order of WorkClass.
struct ClassRow {
    double mostM;               ///< [W]
    double acclimatised, other; ///< reference [°C]
};
constexpr std::array<ClassRow, 5> kClasses{
    {{125, 33, 32}, {235, 30, 29}, {360, 28, 26}, {465, 26, 23}, {kInfinity, 25, 20}}};

/// [K], in the order of WorkClothing.
constexpr std::array<double, 10> kAdjustments{0, 0, 0, 2, 3, 4, 10, 11, 12, 13};

} // namespace

Wbgt7243Result wbgt7243(const Wbgt7243Inputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kTnw, in.tnw);
    examination.look(kTg, in.tg);
    if (in.sun)
        examination.look(kTa, in.ta);
    Wbgt7243Result result{.verdict = examination.verdict()};
    if (examination.hasValue())
        result.wbgt = in.sun ? 0.7 * in.tnw + 0.2 * in.tg + 0.1 * in.ta : 0.7 * in.tnw + 0.3 * in.tg;
    return result;
}

double wbgtOfHeights(double head, double abdomen, double ankle) noexcept
{
    return (head + 2 * abdomen + ankle) / 4;
}

double clothingAdjustment(WorkClothing clothing) noexcept
{
    return kAdjustments[static_cast<std::size_t>(clothing)];
}

WorkClass workClassOf(double M) noexcept
{
    std::size_t row = 0;
    while (row + 1 < kClasses.size() && M > kClasses[row].mostM)
        ++row;
    return static_cast<WorkClass>(row);
}

double limitCurve(double M, bool acclimatised) noexcept
{
    return acclimatised ? 56.7 - 11.5 * std::log10(M) : 59.9 - 14.1 * std::log10(M);
}

HeatWorkResult assessHeat(const HeatWork& work, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kWbgt, work.wbgt);
    examination.look(kM, work.M);
    HeatWorkResult result{.verdict = examination.verdict()};
    if (!examination.hasValue())
        return result;
    result.wbgtEff = work.wbgt + clothingAdjustment(work.clothing);
    result.refClass = workClassOf(work.M);
    const ClassRow& row = kClasses[static_cast<std::size_t>(result.refClass)];
    if (work.reference == Reference::Curve)
        result.wbgtRef = limitCurve(work.M, work.acclimatised);
    else
        result.wbgtRef = work.acclimatised ? row.acclimatised : row.other;
    result.exceeds = result.wbgtEff > result.wbgtRef;
    return result;
}

} // namespace comfortics::standards
