// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/picking_tables.h"

#include <cmath>

namespace comfortics::standards {

Clothing ensembleOf(std::span<const double> garments, double chair) noexcept
{
    constexpr Input kGarment{"garment", Quantity::Clothing};
    constexpr Input kChair{"chair", Quantity::Clothing};
    Examination examination;
    double sum = 0;
    for (const double clo : garments) {
        examination.look(kGarment, clo);
        sum += clo;
    }
    examination.look(kChair, chair);
    if (!examination.hasValue())
        return {examination.verdict()};
    const double worn = garments.empty() ? 0 : 0.835 * sum + 0.161;
    return {examination.verdict(), worn + chair};
}

Clothing clothingByWeather(double tAtSix) noexcept
{
    Examination examination;
    examination.look({"t_6", Quantity::Temperature}, tAtSix);
    if (!examination.hasValue())
        return {examination.verdict()};
    double clo = 0.46;
    if (tAtSix < -5)
        clo = 1;
    else if (tAtSix < 5)
        clo = 0.818 - 0.0364 * tAtSix;
    else if (tAtSix < 26)
        clo = std::pow(10, -0.1635 - 0.0066 * tAtSix);
    return {examination.verdict(), clo};
}

} // namespace comfortics::standards
