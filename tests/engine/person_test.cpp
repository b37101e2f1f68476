// SPDX-License-Identifier: GPL-3.0-or-later
#include "plain_point.h"

#include <comfortics/comfortics.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace comfortics {
namespace {

using enum MetabolicUnit;

// A man of 75 kg, 1.8 m and 35 years has a surface of 1.937871 m² and a basal rate of 85.5364 W.
TEST(Person, HasMetabolicRatesInEachUnit)
{
    struct Case {
        double rate;
        MetabolicUnit from;
        MetabolicUnit to;
        double expected;
    };
    const Bodies man{.weight = 75, .height = 1.8, .age = 35, .sex = 0};
    for (const Case& one :
         {Case{150, Watts, Met, 1.33111803431}, Case{2.6, Met, Watts, 292.986790012},
          Case{165, WattsPerSquareMetre, Met, 2.83748925193},
          Case{165, WattsPerSquareMetre, WattsAboveBasal, 234.212438976},
          Case{150, WattsAboveBasal, Watts, 235.536356262},
          Case{150, WattsAboveBasal, WattsPerSquareMetre, 121.543847427}, Case{0.1, Met, Met, 0.1}}) {
        double found = 0;
        convertMetabolicRate(one.rate, one.from, one.to, man, 1, &found);
        EXPECT_NEAR(found, one.expected, 1e-9 * one.expected)
            << one.rate << " of unit " << static_cast<int>(one.from) << " to " << static_cast<int>(one.to);
    }
}

// Bodies of their own at each point; a surface that is told takes the place of the one by weight and height.
TEST(Person, HasRatesOverColumnsOfBodies)
{
    const std::array<double, 3> rates{1.2, test::kNaN, -1};
    std::array<double, 3> found{};
    convertMetabolicRate(rates, Met, WattsAboveBasal, {.weight = 60, .height = 1.65, .age = 70, .sex = 1}, 3,
                         found.data());
    EXPECT_NEAR(found[0], 57.645198731, 1e-9);
    EXPECT_TRUE(std::isnan(found[1]) && std::isnan(found[2]));
    const std::array<double, 2> surfaces{1.9, 0};
    convertMetabolicRate(2, Met, Watts, {.surface = surfaces}, 2, found.data());
    EXPECT_NEAR(found[0], 220.97, 1e-9);
    EXPECT_TRUE(std::isnan(found[1]));
    EXPECT_THROW(convertMetabolicRate(2, Met, Watts, {.weight = 70}, 1, found.data()), std::invalid_argument);
    EXPECT_THROW(convertMetabolicRate(2, WattsAboveBasal, Watts, {.weight = 70, .height = 1.7, .age = 30}, 1,
                                      found.data()),
                 std::invalid_argument);
}

TEST(Person, WearsGarmentsTogether)
{
    using Ids = std::vector<std::string_view>;
    // 0.04 + 0.08 + 0.15 + 0.02 + 0.02 = 0.31 clo, and a chair of 0.10 clo.
    EXPECT_NEAR(insulationOf(Ids{"underwear_men", "T_Shirt", "trousers_thin", "ankle_socks", "shoes"}),
                0.41985, 1e-12);
    EXPECT_NEAR(insulationOf(
                    Ids{"underwear_men", "t_shirt", "trousers_thin", "ankle_socks", "shoes", "chair_office"}),
                0.51985, 1e-12);
    EXPECT_EQ(insulationOf(Ids{"chair_executive"}), 0.15);
    EXPECT_TRUE(std::isnan(insulationOf(std::array{0.2, 5.1})));
    for (const Ids& wrong :
         {Ids{"t_shirt", "toga"}, Ids{"shoes", "shoes"}, Ids{"chair_office", "chair_executive"}})
        EXPECT_THROW(insulationOf(wrong), std::invalid_argument);
}

TEST(Person, KnowsTheWeatherOfTheDaysBefore)
{
    const std::array<double, 9> series{8, 25, 14, 10, 21, 16, 18, test::kNaN, 5};
    std::array<Column, kRunningDays> days;
    for (std::size_t k = 0; k < kRunningDays; ++k)
        days[k] = Column(series.data() + kRunningDays - 1 - k);
    std::array<double, 2> means{};
    std::array<ModelStatus, 2> statuses{};
    runningMean(days, 0.8, 2, means.data(), statuses.data());
    EXPECT_NEAR(means[0], 16.5468327368, 1e-9);
    EXPECT_TRUE(std::isnan(means[1]));
    EXPECT_EQ(statuses[0], ModelStatus::Ok);
    EXPECT_EQ(statuses[1], ModelStatus::None);
    runningMean(days, 0.95, 1, means.data(), statuses.data());
    EXPECT_EQ(statuses[0], ModelStatus::Outside);
    runningMeanFixed(days, 1, means.data());
    EXPECT_NEAR(means[0], 16.6052631579, 1e-9);
    EXPECT_THROW(runningMean(std::span(days).first(6), 0.8, 1, means.data()), std::invalid_argument);
}

} // namespace
} // namespace comfortics
