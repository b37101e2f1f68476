// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/elementary.h"

#include <cfenv>
#include <limits>

namespace comfortics::values::unchecked {

double power(double base, double exponent) noexcept
{
    return std::pow(base, exponent);
}

double exponential(double x) noexcept
{
    return std::exp(x);
}

double logarithm(double x) noexcept
{
    return std::log(x);
}

double arcTangent(double x) noexcept
{
    return std::atan(x);
}

double cosine(double x) noexcept
{
    return std::cos(x);
}

double tangent(double x) noexcept
{
    return std::tan(x);
}

double invalid() noexcept
{
    std::feraiseexcept(FE_INVALID);
    return std::numeric_limits<double>::quiet_NaN();
}

} // namespace comfortics::values::unchecked
