// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/utci_polynomial.h"

#include "model_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace comfortics::tests {
namespace {

using namespace models;

// Expected values from an evaluation of the published coefficients in Python.
TEST(UtciPolynomial, Evaluates)
{
    struct Case {
        double Ta, va, D, Pa;
        const char* expected;
    };
    const Case cases[] = {
        {21.4, 1.7, 13.2, 1.31, "24.004479"},  {-27.5, 6.4, -4.8, 0.07, "-49.8169411"},
        {43.9, 0.6, 26.1, 3.42, "52.9182674"}, {3.3, 11.9, 48.7, 0.66, "-6.49457989"},
        {-0.4, 0.13, -0.9, 5.7, "1206.01647"}, // outside the fit nothing is clamped
        {0, 0, 0, 0, "0.607562052"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(shown([&] { return UTCI_Polynomial(c.Ta, c.va, c.D, c.Pa); }), c.expected) << c.Ta << " °C";
}

double saturation(double t) // [kPa]
{
    return 0.6108 * std::exp(17.29 * t / (t + 237.3));
}

// By definition the index equals the air temperature in the reference climate: 0.5 m/s at 10 m,
// Tmrt = Ta, 50 % humidity up to 2 kPa. The regression keeps to that within its error, 1.1 K root
// mean square (Bröde et al., 2012).
TEST(UtciPolynomial, EqualsTheAirInTheReferenceClimate)
{
    for (int Ta = -50; Ta <= 50; Ta += 5)
        EXPECT_NEAR(UTCI_Polynomial(Ta, 0.5, 0, std::min(2.0, 0.5 * saturation(Ta))).value(), Ta, 1.3) << Ta;
}

TEST(UtciPolynomial, TheExampleQuotedEverywhere)
{
    // 25 °C, Tmrt 25 °C, 1 m/s, 50 %: 24.6 °C.
    EXPECT_NEAR(UTCI_Polynomial(25, 1, 0, 0.5 * saturation(25)).value(), 24.6, 0.05);
}

// The powers of Ta, va, D and Pa in the first term of each.
TEST(UtciTerms, PartialSumsBeginWhereTheyShould)
{
    constexpr std::array<std::array<int, 4>, 8> kFirst{{{0, 0, 0, 0},
                                                        {1, 0, 2, 0},
                                                        {1, 0, 4, 0},
                                                        {1, 3, 0, 1},
                                                        {1, 1, 2, 1},
                                                        {1, 2, 0, 2},
                                                        {0, 0, 0, 3},
                                                        {0, 2, 0, 4}}};
    std::size_t at = 0;
    for (std::size_t sum = 0; sum < kFirst.size(); at += kUtciPartialSums[sum++]) {
        const UtciTerm& t = kUtciTerms[at];
        EXPECT_EQ((std::array<int, 4>{t.Ta, t.va, t.D, t.Pa}), kFirst[sum]) << "S" << sum + 1;
    }
    EXPECT_EQ(at, kUtciTermCount);
}

/// The sum as it is defined, in a loop over the table.
Number looped(Number Ta, Number va, Number D, Number Pa)
{
    Number total;
    std::size_t at = 0;
    for (std::size_t sum = 0; sum < kUtciPartialSums.size(); ++sum) {
        Number partial = Ta;
        for (std::size_t i = 0; i < kUtciPartialSums[sum]; ++i, ++at) {
            const UtciTerm& t = kUtciTerms[at];
            Number product = t.coefficient;
            for (int power = 0; power < t.Ta; ++power)
                product = product * Ta;
            for (int power = 0; power < t.va; ++power)
                product = product * va;
            for (int power = 0; power < t.D; ++power)
                product = product * D;
            for (int power = 0; power < t.Pa; ++power)
                product = product * Pa;
            partial = sum > 0 && i == 0 ? product : partial + product;
        }
        total = sum == 0 ? partial : total + partial;
    }
    return total;
}

TEST(UtciPolynomial, FastIsTheLoop)
{
    Random random;
    for (int i = 0; i < 20000 / kSlowness; ++i) {
        const double stretch = random.oneIn(10) ? random.size(1, 1e60) : 1;
        const double Ta = random.between(-60, 58) * stretch;
        const double va = random.between(0, 60) * stretch;
        const double D = random.between(-80, 90);
        const double Pa = random.between(0, 20) * stretch;
        ASSERT_EQ(bits([&] { return UTCI_Polynomial(Ta, va, D, Pa); }),
                  bits([&] { return looped(Ta, va, D, Pa); }))
            << "seed " << Random::kSeed << ": " << Ta << " " << va << " " << D << " " << Pa;
    }
}

} // namespace
} // namespace comfortics::tests
