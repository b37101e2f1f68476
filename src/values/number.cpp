// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/number.h"

#include "values/plain_text.h"
#include "values/run_failure.h"

#include <string>

namespace comfortics::values {

namespace {

[[noreturn]] void throwDomain(const char* what, double value)
{
    throw RunFailure(std::string(what) + " (" + plainText(value) + ")");
}

Number finite(double result)
{
    if (!std::isfinite(result)) [[unlikely]]
        throw RunFailure("overflow");
    return Number(result);
}

} // namespace

void Number::throwOverflow()
{
    throw RunFailure("overflow");
}

void Number::throwDivisionByZero()
{
    throw RunFailure("division by zero");
}

Number power(Number base, Number exponent)
{
    const double b = base.value();
    const double e = exponent.value();
    const double result = std::pow(b, e);
    if (!std::isfinite(b) || !std::isfinite(e)) [[unlikely]]
        throw RunFailure("overflow");
    if (!std::isfinite(result)) [[unlikely]] {
        if (b == 0 && e < 0)
            throw RunFailure("zero to a negative power (0 ^ " + plainText(e) + ")");
        if (std::isnan(result))
            throw RunFailure("negative base with a fractional exponent (" + plainText(b) + " ^ " +
                             plainText(e) + ")");
        throw RunFailure("overflow");
    }
    return Number(result);
}

Number exponential(Number x)
{
    return finite(std::exp(finite(x.value()).value()));
}

Number logarithm(Number x)
{
    if (!(x.value() > 0)) [[unlikely]]
        throwDomain("logarithm of a number not above zero", x.value());
    return Number(std::log(x.value()));
}

Number squareRoot(Number x)
{
    if (x.value() < 0) [[unlikely]]
        throwDomain("root of a negative number", x.value());
    return Number(std::sqrt(x.value()));
}

Number sine(Number x)
{
    return finite(std::sin(x.value()));
}

Number cosine(Number x)
{
    return finite(std::cos(x.value()));
}

Number tangent(Number x)
{
    return finite(std::tan(x.value()));
}

Number arcTangent(Number x)
{
    return Number(std::atan(x.value()));
}

Number roundHalfEven(Number x)
{
    return Number(std::nearbyint(x.value()));
}

} // namespace comfortics::values
