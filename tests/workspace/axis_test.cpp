// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/axis.h"

#include <gtest/gtest.h>

namespace comfortics::workspace {
namespace {

constexpr int kWithPole = 19;
constexpr int kWithoutPole = 65;

Course through(int index, std::initializer_list<std::optional<double>> values)
{
    Course course;
    course.request.item = index;
    for (const auto& value : values) {
        CoursePoint& point = course.points.emplace_back();
        point.reading = static_cast<double>(course.points.size());
        point.value = value;
    }
    return course;
}

TEST(Axis, StepsByNiceNumbers)
{
    const struct {
        double low, high;
        int steps;
        Axis axis;
    } rows[]{{3, 47, 5, {0, 50, 10}},        {-50, 58, 6, {-60, 60, 20}},
             {0, 12, 6, {0, 12, 2}},         {-0.42, 0.13, 5, {-0.6, 0.2, 0.2}},
             {100, 1100, 5, {0, 1200, 200}}, {0, 2.6, 5, {0, 3, 1}}};
    for (const auto& row : rows) {
        const Axis axis = niceAxis(row.low, row.high, row.steps);
        EXPECT_NEAR(axis.low, row.axis.low, 1e-12) << row.low;
        EXPECT_NEAR(axis.high, row.axis.high, 1e-12) << row.low;
        EXPECT_NEAR(axis.step, row.axis.step, 1e-12) << row.low;
    }
}

TEST(Axis, OfReadingsGoesNoFurtherThanTheyDo)
{
    const Axis axis = readingAxis(through(kWithoutPole, {1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(axis.low, 1);
    EXPECT_EQ(axis.high, 7);
    EXPECT_EQ(axis.step, 1);
}

TEST(Axis, OfValuesHoldsAllOfThemUnlessTheyRunOffBesideAPole)
{
    const Course plain = through(kWithoutPole, {{}, -1e6, 10, 1e6});
    EXPECT_LE(valueAxis(plain).low, -1e6);
    EXPECT_GE(valueAxis(plain).high, 1e6);
    EXPECT_FALSE(leaves(plain, valueAxis(plain)));

    Course pole = through(kWithPole, {{}, -1e6, 10, 1e6});
    EXPECT_LT(valueAxis(pole).span(), 1e4);
    EXPECT_LE(valueAxis(pole).low, 10);
    EXPECT_TRUE(leaves(pole, valueAxis(pole)));
    pole.present = 3;
    EXPECT_GE(valueAxis(pole).high, 1e6) << "the present point is in sight";
    pole.present = 0; // without a value
    EXPECT_LT(valueAxis(pole).span(), 1e4);

    EXPECT_EQ(valueAxis(through(kWithoutPole, {400, 10})).low, 0) << "no minutes below 0";
    EXPECT_LT(valueAxis(through(kWithoutPole, {400, -1})).low, -1);

    for (const Course& flat : {through(kWithoutPole, {{}, {}}), through(kWithoutPole, {7, 7})})
        EXPECT_GT(valueAxis(flat).span(), 0) << "a line needs room";
}

} // namespace
} // namespace comfortics::workspace
