// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/minutes_course.h"

#include "workspace_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace comfortics::workspace {
namespace {

// 36 °C of air and walls, 0.2 m/s, 62 %; 380 W of 75 kg and 1.80 m, sitting, not used to the heat.
MinutesCourse courseOf(FieldTexts more, const char* figure = "phs_2023.d_lim", const char* globe = "36")
{
    MinutesRequest request{{{"36", globe, "", "", "62", "0.2"}, tests::kUsualAssumptions, {}},
                           *Item::ofId(figure),
                           {{"met", "3.3721656869199323"},
                            {"clo", "0.6"},
                            {"posture", "sitting"},
                            {"acclimatised", "no"},
                            {"weight", "75"},
                            {"height", "1.8"}}};
    request.inputs.settings.rules = classic::Rules::Precise;
    more.merge(request.person);
    request.person = std::move(more);
    return minutesCourseOf(tests::projectLimits(), request);
}

double valueAt(const MinutesCourse& course, std::size_t panel, std::size_t curve, std::size_t minute)
{
    return course.panels.at(panel).curves.at(curve).values.at(minute - 1);
}

// The figures are those of a program of its own, which solves each balance of ISO 7933 by bisection.
TEST(MinutesCourse, FollowsTheHeatStrainToItsLimits)
{
    const MinutesCourse course = courseOf({});
    ASSERT_EQ(course.problem, "");
    EXPECT_EQ(course.minutes, 480U);
    const double figures[][6] = {{34, 37.96664246, 38.02104840, 35.57520019, 384.95953752, 469.77592990},
                                 {35, 38.00074192, 38.05372380, 35.59308978, 386.39082677, 488.71207979}};
    for (const auto& [minute, rectal, core, skin, sweat, loss] : figures) {
        const auto at = static_cast<std::size_t>(minute);
        EXPECT_NEAR(valueAt(course, 0, 0, at), rectal, 1e-5);
        EXPECT_NEAR(valueAt(course, 0, 1, at), core, 1e-5);
        EXPECT_NEAR(valueAt(course, 0, 2, at), skin, 1e-5);
        EXPECT_NEAR(valueAt(course, 1, 0, at), sweat, 1e-3);
        EXPECT_NEAR(valueAt(course, 2, 0, at), loss, 1e-3);
    }
    EXPECT_NEAR(valueAt(course, 2, 0, 480), 8011.1311, 1e-2);
    ASSERT_EQ(course.marks.size(), 2U);
    EXPECT_EQ(course.end(), &course.marks.front());
    EXPECT_EQ(course.marks[0].minute, 35U);
    EXPECT_EQ(course.marks[1].minute, 203U);
    EXPECT_EQ(
        course.marksInWords(),
        "In minute 35 the rectal temperature reaches 38 °C: the exposure ends. In minute 203 the loss of "
        "water reaches 3750 g, 5 % of the weight. From minute 68 on the rectal temperature is above 39 "
        "°C, a formal value and no prediction: core, skin and rectal temperature are not drawn.");
    EXPECT_FALSE(std::isnan(valueAt(course, 0, 1, 67)));
    for (const std::size_t curve : {0U, 1U, 2U})
        EXPECT_TRUE(std::isnan(valueAt(course, 0, curve, 68)));
    EXPECT_EQ(
        course.minuteInWords(35),
        "Minute 35: rectal 38.00 °C, core 38.05 °C, skin 35.59 °C, sweat rate 386.4 W/m², water loss 489 "
        "g. Here the rectal temperature reaches 38 °C: the exposure ends.");
    // Each panel shows its limit.
    EXPECT_LE(course.panels[0].values.low, 35);
    EXPECT_GE(course.panels[2].values.high, 8011);
}

TEST(MinutesCourse, MarksWhatTheDrinkAndTheDurationMakeOfIt)
{
    EXPECT_EQ(courseOf({{"drink", "no"}}).marks[1].minute, 126U);
    const MinutesCourse brief = courseOf({{"duration", "30"}});
    EXPECT_EQ(brief.end(), nullptr);
    EXPECT_EQ(brief.marksInWords(), "No limit is reached within 30 minutes.");
    EXPECT_EQ(courseOf({}, "phs_2004.t_re").marks.back().what,
              "the loss of water reaches 5625 g, 7.5 % of the weight (the mean worker)");
    EXPECT_NE(courseOf({}, "phs_2023.d_lim", "40").held.find("Outside the range"), std::string::npos);
    EXPECT_EQ(courseOf({{"clo", "x"}}).minutes, 0U);
    EXPECT_NE(courseOf({{"clo", "x"}}).problem, "");
}

// 24.7 °C of SET has a skin of 33.939 °C and a core of 36.841 °C after an hour, by ASHRAE's appendix.
TEST(MinutesCourse, FollowsTheTwoNodeBody)
{
    MinutesRequest request{{{"25", "25", "", "", "50", "0.1"}, tests::kUsualAssumptions, {}},
                           *Item::ofId("two_node.set"),
                           {{"met", "1"}, {"clo", "0.6"}}};
    const MinutesCourse course = minutesCourseOf(tests::projectLimits(), request);
    ASSERT_EQ(course.minutes, 60U);
    EXPECT_NEAR(valueAt(course, 0, 0, 60), 36.841, 1e-3);
    EXPECT_NEAR(valueAt(course, 0, 1, 60), 33.939, 1e-3);
    EXPECT_NEAR(valueAt(course, 2, 0, 60), 0.103, 1e-3);
    EXPECT_EQ(course.marksInWords(), "");
    EXPECT_FALSE(hasMinutes(*Item::ofId("pmv_iso")));
}

} // namespace
} // namespace comfortics::workspace
