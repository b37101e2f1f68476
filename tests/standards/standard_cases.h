// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the tests of this room compare figures with printed ones, and roots with plainly halved ones.
#pragma once

#include "standards/answer.h"

#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>

namespace comfortics::tests {

/// The value with as many decimals as `printed` has.
inline std::string like(double value, std::string_view printed)
{
    const std::size_t point = printed.find('.');
    const int decimals = point == std::string_view::npos ? 0 : static_cast<int>(printed.size() - point - 1);
    char text[40];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

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

inline standards::Verdict marked(std::string_view about)
{
    return {standards::Standing::Outside, standards::Reason::BeyondRange, about};
}

inline standards::Verdict refused(standards::Reason reason, std::string_view about)
{
    return {standards::Standing::None, reason, about};
}

} // namespace comfortics::tests
