// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the tests of the models show what a model or solver did.
#pragma once

#include "models/solvers.h"
#include "values/run_failure.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace comfortics::tests {

using models::Solution;
using values::Number;

/// Sanitizers slow everything down; the random tests then try fewer inputs.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr int kSlowness = 5;
#else
inline constexpr int kSlowness = 1;
#endif

inline std::string digits(double value, int count)
{
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.*g", count, value);
    return buffer;
}

/// What tells a double from every other.
inline constexpr int kAllDigits = 17;

/// Digits of what `compute` gives; "no convergence", or "fails: " and why.
template <typename Compute>
std::string shown(Compute compute, int count = 9)
{
    try {
        const auto result = compute();
        if constexpr (std::is_same_v<std::decay_t<decltype(result)>, Solution>)
            return result.converged() ? digits(result.celsius, count) : "no convergence";
        else
            return digits(result.value(), count);
    } catch (const values::RunFailure& failure) {
        return "fails: " + failure.why();
    }
}

/// Random inputs; the seed goes into the failure message of a test.
class Random {
public:
    static constexpr std::uint64_t kSeed = 20260611;

    double between(double low, double high) { return std::uniform_real_distribution<>(low, high)(m_engine); }
    int integer(int low, int high) { return std::uniform_int_distribution<>(low, high)(m_engine); }
    bool oneIn(int count) { return integer(1, count) == 1; }
    /// Evenly spread over the powers of ten.
    double size(double low, double high) { return std::pow(10, between(std::log10(low), std::log10(high))); }

private:
    std::mt19937_64 m_engine{kSeed};
};

} // namespace comfortics::tests
