// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <type_traits>

namespace comfortics::values {

/// The checked double of all formulas.
///
/// Each operation is one IEEE double operation in the written order; an operation without a
/// defined result throws RunFailure at once, also where the infinity would vanish again later in
/// the expression. Integer constants turn into doubles on contact, but beware that the quotient
/// of two C++ integers is cut before it gets here: write 9.0 / 5, not 9 / 5.
class Number {
public:
    template <typename T>
    requires std::is_arithmetic_v<T>
    constexpr Number(T value) noexcept : m_value(static_cast<double>(value)) // NOLINT: implicit
    {
    }
    constexpr Number() noexcept = default;

    constexpr double value() const noexcept { return m_value; }
    constexpr explicit operator double() const noexcept { return m_value; }

    friend Number operator+(Number a, Number b) { return checked(a.m_value + b.m_value); }
    friend Number operator-(Number a, Number b) { return checked(a.m_value - b.m_value); }
    friend Number operator*(Number a, Number b) { return checked(a.m_value * b.m_value); }
    friend Number operator/(Number a, Number b)
    {
        if (b.m_value == 0)
            throwDivisionByZero();
        const double result = a.m_value / b.m_value;
        if (result == 0 && !std::isfinite(b.m_value)) [[unlikely]]
            throwOverflow(); // a number read from a text beyond the double range
        return checked(result);
    }
    constexpr Number operator-() const noexcept { return Number(-m_value); }

    friend constexpr bool operator==(Number a, Number b) noexcept { return a.m_value == b.m_value; }
    friend constexpr bool operator<(Number a, Number b) noexcept { return a.m_value < b.m_value; }
    friend constexpr bool operator>(Number a, Number b) noexcept { return a.m_value > b.m_value; }
    friend constexpr bool operator<=(Number a, Number b) noexcept { return a.m_value <= b.m_value; }
    friend constexpr bool operator>=(Number a, Number b) noexcept { return a.m_value >= b.m_value; }

private:
    static Number checked(double result)
    {
        if (!std::isfinite(result)) [[unlikely]]
            throwOverflow();
        return Number(result);
    }
    [[noreturn]] static void throwOverflow();
    [[noreturn]] static void throwDivisionByZero();

    double m_value = 0;
};

// The functions below stand out of line on purpose: the compiler then never folds a constant
// argument or turns power(x, 2) into a product, so every caller gets the bits of the library call.

/// base ^ exponent by std::pow. Fails on a negative base with a fractional exponent, on zero to a
/// negative power and on overflow.
Number power(Number base, Number exponent);
/// e ^ x. Fails on overflow.
Number exponential(Number x);
/// Natural logarithm. Fails unless x > 0.
Number logarithm(Number x);
/// Square root. Fails below 0.
Number squareRoot(Number x);
/// Angles in radians.
Number sine(Number x);
Number cosine(Number x);
Number tangent(Number x);
Number arcTangent(Number x);

constexpr Number absolute(Number x) noexcept
{
    return x.value() < 0 ? Number(-x.value()) : Number(x.value() + 0.0);
}

/// The nearest integer, ties to the even neighbour.
Number roundHalfEven(Number x);

} // namespace comfortics::values
