// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/charts.h"
#include "tables/summary.h"

#include <gtest/gtest.h>

#include <random>

namespace comfortics::tables {
namespace {

// Against pandas: Series([3.1, -2, 3.1, 8.4, 0.5, 11.25]).quantile([...]), .mean() and
// numpy.histogram(bins=3).
TEST(ValueCounts, AgreesWithPandas)
{
    ValueCounts counts;
    for (const double value : {3.1, -2.0, 3.1, 8.4, 0.5, 11.25})
        counts.add(value);
    const std::pair<double, double> quantiles[] = {{0, -2},    {0.01, -1.875}, {0.05, -1.375},  {0.25, 1.15},
                                                   {0.5, 3.1}, {0.75, 7.075},  {0.95, 10.5375}, {1, 11.25}};
    for (const auto& [share, value] : quantiles)
        EXPECT_NEAR(counts.quantile(share), value, 1e-12) << share;
    EXPECT_NEAR(counts.mean(), 4.058333333333333, 1e-12);
    const auto bins = counts.histogram(3);
    EXPECT_EQ((std::array{bins[0].count, bins[1].count, bins[2].count}),
              (std::array<std::size_t, 3>{2, 2, 2}));
    EXPECT_NEAR(bins[1].from, 2.4166666666666667, 1e-12);
}

// Merged parts and long rows, against a sorted copy of all values.
TEST(ValueCounts, PartsMakeTheSameAsAllValues)
{
    constexpr unsigned kSeed = 20240701;
    std::mt19937 random(kSeed);
    std::vector<double> all;
    ValueCounts parts[3];
    for (int i = 0; i < 30000; ++i) {
        all.push_back(static_cast<double>(random() % 5000) / 10 - 100);
        parts[random() % 3].add(all.back());
    }
    parts[0].add(parts[1]);
    parts[0].add(parts[2]);
    std::sort(all.begin(), all.end());
    double sum = 0;
    for (const double value : all)
        sum += value;
    EXPECT_EQ(parts[0].count(), all.size());
    EXPECT_NEAR(parts[0].mean(), sum / 30000, 1e-9);
    for (const std::size_t place : {0U, 1U, 7777U, 29999U})
        EXPECT_NEAR(parts[0].quantile(static_cast<double>(place) / 29999), all[place], 1e-9) << kSeed;
}

TEST(Steps, TheMostFrequentOneIsFound)
{
    StepFinder steps;
    EXPECT_EQ(steps.step(), std::nullopt);
    for (const int minute : {0, 10, 20, 50, 60, 0, 10})
        steps.add({minute * 60, std::nullopt});
    EXPECT_EQ(steps.step(), 600.0);
}

TEST(Course, DaysMonthsAndHoursHaveTheirMeans)
{
    Course course;
    const auto at = [](int month, int day, int hour, int minute) {
        return *momentOf({2024, month, day, hour, minute});
    };
    course.add(at(2, 29, 23, 50), 1);
    course.add(at(3, 2, 0, 0), 4);
    course.add(at(3, 2, 0, 59), 6);
    course.add(at(3, 2, 1, 0), -1);
    std::string shown;
    for (const auto& stretches : {course.daily(), course.monthly()})
        for (const Stretch& one : stretches)
            shown += one.begin + " " + std::to_string(one.count) + " " +
                     std::to_string(one.mean).substr(0, 4) + " " +
                     std::to_string(static_cast<int>(one.lowest)) + " " +
                     std::to_string(static_cast<int>(one.highest)) + "\n";
    EXPECT_EQ(shown,
              "2024-02-29 1 1.00 1 1\n2024-03-02 3 3.00 -1 6\n2024-02 1 1.00 1 1\n2024-03 3 3.00 -1 6\n");
    const auto map = course.heatMap();
    ASSERT_EQ(map.size(), 3U);
    EXPECT_EQ(map[0].means[23], 1.0);
    EXPECT_EQ(map[1].day, "2024-03-01");
    EXPECT_EQ(map[1].means[0], std::nullopt);
    EXPECT_EQ(map[2].means[0], 5.0);
    EXPECT_EQ(map[2].means[1], -1.0);
}

} // namespace
} // namespace comfortics::tables
