// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the tests of the models for people hold roots to plainly halved ones, at random inputs.
#pragma once

#include "shown_value.h"

#include <cstdint>
#include <random>

namespace comfortics::tests {

/// Where f changes its sign, by halving alone.
template <typename Function>
double halvedRoot(Function f, double low, double high)
{
    const bool falls = f(low) > 0;
    while (high - low > 1e-10) {
        const double middle = 0.5 * (low + high);
        ((f(middle) > 0) == falls ? low : high) = middle;
    }
    return 0.5 * (low + high);
}

/// Random inputs; the seed goes into the failure message of a test.
class Draw {
public:
    static constexpr std::uint64_t kSeed = 20261123;

    double operator()(double low, double high)
    {
        return std::uniform_real_distribution<>(low, high)(m_engine);
    }

private:
    std::mt19937_64 m_engine{kSeed};
};

/// Sanitizers slow everything down; the random tests then try fewer inputs.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr int kPoints = 100;
#else
inline constexpr int kPoints = 1000;
#endif

} // namespace comfortics::tests
