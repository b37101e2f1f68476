// SPDX-License-Identifier: GPL-3.0-or-later
//
// The elementary functions of values/number.h for bare doubles: the same library calls without the
// checks. A formula that is written over its number type calls either by the same name.
#pragma once

#include <cmath>

namespace comfortics::values::unchecked {

// Out of line, as for Number: no compiler folds a constant argument or turns power(x, 2) into a
// product, so both number types get the bits of the library call. The attribute says that the
// result depends on the arguments alone: a call that a loop or a formula repeats is made once. The
// floating-point flags are left to it: where a call is made that could raise one, its result is
// read.

[[gnu::const]] double power(double base, double exponent) noexcept;
[[gnu::const]] double exponential(double x) noexcept;
[[gnu::const]] double logarithm(double x) noexcept;
[[gnu::const]] double arcTangent(double x) noexcept;
[[gnu::const]] double cosine(double x) noexcept;
[[gnu::const]] double tangent(double x) noexcept;

// Correctly rounded by IEEE 754, so they may be inline.

inline double squareRoot(double x) noexcept
{
    return std::sqrt(x);
}

inline double absolute(double x) noexcept
{
    return std::fabs(x);
}

/// The nearest integer, ties to the even neighbour.
inline double roundHalfEven(double x) noexcept
{
    return std::nearbyint(x);
}

/// NaN, and raises the floating-point flag of an invalid operation.
double invalid() noexcept;

} // namespace comfortics::values::unchecked
