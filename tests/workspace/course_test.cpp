// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/course.h"

#include "texts/number_text.h"
#include "workspace/plain_words.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace comfortics::workspace {
namespace {

using classic::Reading;
using tests::projectLimits;

CourseRequest request(int index, CourseAxis axis, std::array<std::string, 6> readings,
                      classic::Rules rules = classic::Rules::Robust)
{
    CourseRequest wanted{{std::move(readings), tests::kUsualAssumptions, {}}, index, axis};
    wanted.inputs.settings.rules = rules;
    return wanted;
}

const CoursePoint& at(const Course& course, double reading)
{
    for (const CoursePoint& point : course.points)
        if (point.reading == reading)
            return point;
    throw std::runtime_error("there is no such point");
}

// The table of the Canadian weather service for 30 °C: dew points of 15, 20 and 25 °C feel like 34, 38
// and 42.
TEST(Course, FollowsAPublishedTable)
{
    for (const classic::Rules rules : {classic::Rules::Robust, classic::Rules::Precise}) {
        const Course course = courseOf(
            projectLimits(), request(90, CourseAxis::Humidity, {"30", "", "300", "18", "", "1"}, rules));
        EXPECT_EQ(course.moved, Reading::DP);
        EXPECT_EQ(std::lround(at(course, 15).value.value()), 34);
        EXPECT_EQ(std::lround(at(course, 20).value.value()), 38);
        EXPECT_EQ(std::lround(at(course, 25).value.value()), 42);
        EXPECT_EQ(course.points.back().readingText, "30") << "never above the air";
        ASSERT_TRUE(course.present);
        EXPECT_EQ(course.points[*course.present].readingText, "18");
    }
}

TEST(Course, IsWhatTheMainFormCalculatesAtEachPoint)
{
    for (const classic::Rules rules : classic::kAllRules)
        for (std::size_t axis = 0; axis < kCourseAxisCount; ++axis) {
            const CourseRequest wanted =
                request(195, static_cast<CourseAxis>(axis), {"31.37", "", "612.4", "", "48", "1.25"}, rules);
            const Course course = courseOf(projectLimits(), wanted);
            SCOPED_TRACE(course.held);
            ASSERT_GT(course.points.size(), 50U);
            ASSERT_LE(course.points.size(), 125U);
            ASSERT_TRUE(course.present);
            EXPECT_EQ(course.points[*course.present].readingText,
                      wanted.inputs.readings[static_cast<std::size_t>(course.moved)]);

            comfortics::tests::RecordedMessages messages;
            comfortics::tests::NoWindows windows;
            classic::Frm_Main form(projectLimits(), messages, windows);
            form.Opt_Rules.select(static_cast<std::size_t>(rules));
            for (std::size_t i = 0; i < course.points.size(); i += 7) {
                for (std::size_t reading = 0; reading < classic::kReadingCount; ++reading)
                    if (!wanted.inputs.readings[reading].empty())
                        form.calculation.readings.box(static_cast<Reading>(reading))
                            .setText(wanted.inputs.readings[reading]);
                form.calculation.readings.box(course.moved).setText(course.points[i].readingText);
                form.cmd_Calculate.click.raise();
                EXPECT_EQ(course.points[i].text, form.results.lbl_results[195].caption());
                EXPECT_EQ(course.points[i].reason,
                          inPlainWords(form.calculation.whyBlank(195), form.inputs()));
            }
        }
}

TEST(Course, LeavesGapsOutsideTheLimitsAndSaysWhy)
{
    const CourseRequest wanted = request(90, CourseAxis::AirTemperature, {"30", "", "300", "", "50", "1"});
    const Course course = courseOf(projectLimits(), wanted);
    for (const CoursePoint& point : course.points)
        EXPECT_EQ(point.value.has_value(), point.reading >= 20 && point.reading <= 55) << point.readingText;
    ASSERT_EQ(course.gaps.size(), 2U);
    EXPECT_EQ(course.gaps[0].from, course.points.front().reading);
    EXPECT_EQ(course.gaps[0].to, 19.5);
    EXPECT_EQ(course.gaps[1].from, 55.5);
    EXPECT_EQ(course.gaps[1].to, 58);
    EXPECT_EQ(course.gaps[1].reason, "outside its limits, Ta from 20 to 55 °C");
    EXPECT_NE(course.held.find("solar radiation 300 W/m², relative humidity 50 %, wind speed 1 m/s"),
              std::string::npos)
        << course.held;
    const std::string words = course.inWords();
    EXPECT_NE(
        words.find("No value from 17 to 19.5 °C and from 55.5 to 58 °C: outside its limits, Ta from 20 to 55 "
                   "°C."),
        std::string::npos)
        << words;
    EXPECT_NE(words.find("At present " + course.points[*course.present].text + " °C at 30 °C."),
              std::string::npos)
        << words;

    CourseRequest ignored = wanted;
    ignored.inputs.settings.ignoreLimits = true;
    for (const CoursePoint& point : courseOf(projectLimits(), ignored).points) {
        EXPECT_TRUE(point.value);
        EXPECT_EQ(point.inside, point.reading >= 20 && point.reading <= 55) << point.readingText;
    }
}

TEST(Course, KeepsToReadingsThatCanBe)
{
    // The dew point stays as given: the air begins at it and ends 10 °C above the globe.
    const Course air = courseOf(
        projectLimits(), request(200, CourseAxis::AirTemperature, {"28", "31.5", "", "12.3", "", "1"}));
    EXPECT_EQ(air.points.front().readingText, "12.3");
    EXPECT_EQ(air.points.back().readingText, "41.5");
    EXPECT_TRUE(air.gaps.empty()) << air.gaps.front().reason;

    const Course globe =
        courseOf(projectLimits(), request(200, CourseAxis::Radiation, {"28", "31.5", "", "12.3", "", "1"}));
    EXPECT_EQ(globe.moved, Reading::TG);
    EXPECT_EQ(globe.points.front().readingText, "18");
    // No sun heats a globe of 50 mm in this wind to 30 °C above the air.
    ASSERT_EQ(globe.gaps.size(), 1U);
    EXPECT_GT(globe.gaps[0].from, 45);
    EXPECT_NE(globe.gaps[0].reason.find("no solar radiation"), std::string::npos) << globe.gaps[0].reason;

    const Course wind =
        courseOf(projectLimits(), request(211, CourseAxis::Wind, {"-8", "", "0", "", "70", "4"}));
    EXPECT_EQ(wind.points.front().readingText, "0.1");
    const Course sun =
        courseOf(projectLimits(), request(200, CourseAxis::Radiation, {"28", "", "433", "", "50", "1"}));
    EXPECT_EQ(sun.moved, Reading::SR);
    EXPECT_EQ(sun.points.front().reading, 0);

    const Course missing =
        courseOf(projectLimits(), request(90, CourseAxis::Wind, {"", "", "0", "", "70", "4"}));
    EXPECT_TRUE(missing.points.empty());
    EXPECT_NE(missing.problem.find("air temperature"), std::string::npos);
}

// Its denominator is zero where the vapour pressure is 42 mmHg, 56 hPa: saturated air of about 35 °C.
TEST(Course, KnowsWhereAFormulaTurnsItsSign)
{
    const Course course =
        courseOf(projectLimits(), request(19, CourseAxis::AirTemperature, {"30", "", "0", "", "95", "1"}));
    for (const CoursePoint& point : course.points)
        if (point.value) {
            const double Ea = 0.95 * 6.11 * std::pow(10, 7.5 * point.reading / (237.3 + point.reading));
            if (std::abs(Ea - 56) > 0.5) {
                EXPECT_EQ(point.beyondPole, Ea > 56) << point.readingText;
            }
            EXPECT_EQ(point.meaning.has_value(), !point.beyondPole) << point.readingText;
        }
}

TEST(Course, EndsWhereNobodyWantsItAnyMore)
{
    int asked = 0;
    const Course course =
        courseOf(projectLimits(), request(90, CourseAxis::AirTemperature, {"30", "", "300", "", "50", "1"}),
                 [&asked] { return ++asked < 3; });
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(course.points.empty() && course.problem.empty());
}

TEST(Course, OfAModelRisesAndTellsWhereItLiesOutside)
{
    CourseRequest wanted = request(1, CourseAxis::AirTemperature, {"22", "", "0", "", "50", "0.1"});
    wanted.item = Item::ofId("pmv_iso.pmv").value();
    wanted.person = {{"met", "1.2"}, {"clo", "0.5"}};
    const Course course = courseOf(projectLimits(), wanted);
    ASSERT_TRUE(course.present) << course.problem;
    EXPECT_EQ(course.points[*course.present].text,
              itemFigure(wanted.item, evaluate(projectLimits(), wanted.inputs), wanted.person).figure.text);
    EXPECT_LE(course.points.front().reading, 10);
    EXPECT_GE(course.points.back().reading, 30) << "the standard goes from 10 to 30 °C";
    for (std::size_t i = 1; i < course.points.size(); ++i) {
        EXPECT_GT(course.points[i].value.value(), course.points[i - 1].value.value());
        if (course.points[i].reading > 30) {
            EXPECT_FALSE(course.points[i].inside);
        }
    }
    wanted.person.clear();
    const Course none = courseOf(projectLimits(), wanted);
    EXPECT_NE(none.problem.find("the metabolic rate is missing"), std::string::npos) << none.problem;
    EXPECT_TRUE(none.points.empty()) << "a chart would invent a scale";
    wanted.item = Item::ofId("pmv_iso.category").value();
    EXPECT_FALSE(courseOf(projectLimits(), wanted).problem.empty());
}

} // namespace
} // namespace comfortics::workspace
