// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the formulas are written in. Each is one template over its number type Real:
//   Number  the checked double: the first operation without a defined result throws RunFailure;
//   double  for blocks of points: nothing is checked. Such an operation raises the processor's flag
//           of overflow, division by zero or invalid operation, and whoever runs the block repeats
//           it with Number where a flag stands (formulas/block_runner.h).
// Both give the same bits, since both make the same operations in the written order.
#pragma once

#include "values/elementary.h"
#include "values/number.h"
#include "values/run_failure.h"

#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

namespace comfortics::formulas {

using values::Number;

using values::absolute;
using values::arcTangent;
using values::cosine;
using values::exponential;
using values::logarithm;
using values::power;
using values::roundHalfEven;
using values::squareRoot;
using values::tangent;
using values::unchecked::absolute;
using values::unchecked::arcTangent;
using values::unchecked::cosine;
using values::unchecked::exponential;
using values::unchecked::logarithm;
using values::unchecked::power;
using values::unchecked::roundHalfEven;
using values::unchecked::squareRoot;
using values::unchecked::tangent;

/// Negative powers of ten, with the bits of power(10, -k).
inline constexpr double kTenToMinus1 = 1e-1;
inline constexpr double kTenToMinus2 = 1e-2;
inline constexpr double kTenToMinus3 = 1e-3;
inline constexpr double kTenToMinus4 = 1e-4;
inline constexpr double kTenToMinus5 = 1e-5;
inline constexpr double kTenToMinus6 = 1e-6;
inline constexpr double kTenToMinus7 = 1e-7;
inline constexpr double kTenToMinus8 = 1e-8;
inline constexpr double kTenToMinus10 = 1e-10;
inline constexpr double kTenToMinus11 = 1e-11;

/// The result of a formula that has no value for some inputs; one that always has returns Real.
template <class Real>
using Result = std::conditional_t<std::is_same_v<Real, Number>, std::optional<Number>, Real>;

/// The result of a formula where it has no value: nothing, or NaN without a flag.
template <class Real>
constexpr Result<Real> none()
{
    if constexpr (std::is_same_v<Real, Number>)
        return std::nullopt;
    else
        return std::numeric_limits<Real>::quiet_NaN();
}

/// The result, which does not depend on `term`; yet a term without a defined value leaves none.
///
/// Number has failed at the term before it gets here. For double this keeps the operations of the
/// term, and so their flags, where a compiler would find them unread.
template <class Real>
Real mustBeDefined([[maybe_unused]] Real term, Real result)
{
    if constexpr (std::is_same_v<Real, Number>)
        return result;
    else
        return std::isfinite(term) ? result : std::numeric_limits<Real>::quiet_NaN();
}

constexpr double asDouble(Number value)
{
    return value.value();
}
constexpr double asDouble(double value)
{
    return value;
}

/// Whether a value that is still to be worked with is defined, as a Number always is. A search asks
/// before it goes by a double.
template <class Real>
bool isDefined(Real value)
{
    return std::is_same_v<Real, Number> || std::isfinite(asDouble(value));
}

/// Fails, for the reason given: throws, or raises a flag and gives NaN.
template <class Real>
Real undefined([[maybe_unused]] const char* why)
{
    if constexpr (std::is_same_v<Real, Number>)
        throw values::RunFailure(why);
    else
        return values::unchecked::invalid();
}

/// The value of `compute()`, and none where a step of it fails. For double such a step raises a flag as
/// any other does; the repeat with Number finds that there is none.
template <class Real, typename Compute>
Result<Real> noneWhereItFails(Compute compute)
{
    if constexpr (std::is_same_v<Real, Number>) {
        try {
            return compute();
        } catch (const values::RunFailure&) {
            return std::nullopt;
        }
    } else {
        return compute();
    }
}

} // namespace comfortics::formulas
