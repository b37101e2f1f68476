// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/utci_polynomial.h"

#include "formulas/block_runner.h"
#include "formulas/primitives.h"
#include "model_cases.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <utility>

namespace comfortics::tests {
namespace {

using namespace models;

/// The sum as it is defined, in a loop over the table: eight partial sums, the first with a bare Ta.
Number looped(Number Ta, Number va, Number D, Number Pa)
{
    constexpr std::array<std::size_t, 8> kPartialSums{50, 25, 25, 25, 25, 25, 25, 10};
    Number total;
    std::size_t at = 0;
    for (std::size_t sum = 0; sum < kPartialSums.size(); ++sum) {
        Number partial = Ta;
        for (std::size_t term = 0; term < kPartialSums[sum]; ++term, ++at) {
            const UtciTerm& t = kUtciTerms[at];
            Number product = t.coefficient;
            for (const auto& [factor, power] : {std::pair(Ta, t.Ta), {va, t.va}, {D, t.D}, {Pa, t.Pa}})
                for (int i = 0; i < power; ++i)
                    product = product * factor;
            partial = sum > 0 && term == 0 ? product : partial + product;
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
        ASSERT_EQ(shown([&] { return UTCI_Polynomial(Ta, va, D, Pa); }, kAllDigits),
                  shown([&] { return looped(Ta, va, D, Pa); }, kAllDigits))
            << "seed " << Random::kSeed << ": " << Ta << " " << va << " " << D << " " << Pa;
    }
}

// Over weather, in which now and then the humidity has no logarithm or is missing.
TEST(UtciPolynomial, ColumnsAreThePoints)
{
    constexpr std::size_t kPoints = 3000;
    Random random;
    std::array<std::array<double, kPoints>, 4> columns{};
    for (std::size_t i = 0; i < kPoints; ++i) {
        columns[0][i] = random.between(-60, 58);
        columns[1][i] = random.between(-60, 90);
        columns[2][i] = random.between(0, 40);
        columns[3][i] = i % 700 == 699 ? -1 : i % 900 == 899 ? std::nan("") : random.between(0.1, 100);
    }
    const formulas::InputColumn inputs[] = {
        {columns[0].data()}, {columns[1].data()}, {columns[2].data()}, {columns[3].data()}};
    std::array<double, kPoints> results{};
    std::array<formulas::PointStatus, kPoints> statuses{};
    formulas::calculateColumns(kUtciOfHumidity, inputs, {}, formulas::Rules::Robust, kPoints,
                               {results.data(), 1, statuses.data()});
    for (std::size_t i = 0; i < kPoints; ++i) {
        const auto point = [&] {
            const auto& [Ta, Tmrt, va, RH] = columns;
            return looped(Ta[i], va[i], Number(Tmrt[i]) - Ta[i],
                          UTCI_Vapour_Pressure(formulas::Dew_Point_Magnus(Number(Ta[i]), Number(RH[i]))));
        };
        using enum formulas::PointStatus;
        if (std::isnan(columns[3][i]))
            EXPECT_EQ(statuses[i], Missing);
        else if (columns[3][i] < 0)
            EXPECT_EQ(statuses[i], Undefined);
        else
            ASSERT_EQ(shown([&] { return Number(results[i]); }, kAllDigits), shown(point, kAllDigits)) << i;
    }
}

} // namespace
} // namespace comfortics::tests
