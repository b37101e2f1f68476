// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/two_node.h"

#include "standard_cases.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

TEST(TwoNode, Figures)
{
    struct Case {
        TwoNodeInputs in;
        std::array<const char*, 6> expected; // SET, skin, core, wettedness, evaporation, discomfort
    };
    const TwoNodeInputs sedentary{.ta = 25, .tr = 25, .v = 0.1, .RH = 50, .met = 1, .clo = 0.6};
    TwoNodeInputs high = sedentary;
    high.pressure = 80'000;
    const Case cases[] = {
        {sedentary, {"24.729", "33.939", "36.841", "0.103", "12.342", "0.330"}},
        {{.ta = 30, .tr = 35, .v = 0.3, .RH = 60, .met = 1.4, .clo = 0.5},
         {"32.230", "35.260", "37.019", "0.439", "60.646", "2.873"}},
        {{.ta = 16, .tr = 14, .v = 0.5, .RH = 40, .met = 1.2, .clo = 1.2, .posture = Posture::Sitting},
         {"19.039", "31.727", "36.845", "0.060", "7.049", "-0.229"}},
        {{.ta = 35, .tr = 40, .v = 1, .RH = 30, .met = 2, .clo = 0.4},
         {"31.331", "35.940", "37.282", "0.402", "113.512", "2.800"}},
        {high, {"25.130", "33.927", "36.840", "0.094", "13.374", "0.262"}},
        {{.ta = 40, .tr = 40, .v = 0.2, .RH = 70, .met = 1, .clo = 0.3},
         {"42.634", "37.496", "37.752", "0.671", "42.487", "5.131"}},
        {{.ta = 28, .tr = 28, .v = 0.8, .RH = 50, .met = 1.6, .clo = 0.5, .edition = Edition::Ashrae2017},
         {"26.201", "34.400", "36.951", "0.222", "44.244", "0.972"}},
    };
    for (const Case& c : cases) {
        const TwoNode r = twoNode(c.in);
        const double figures[] = {r.set, r.tSkin, r.tCore, r.wettedness, r.eSkin, r.disc};
        for (std::size_t i = 0; i < c.expected.size(); ++i)
            EXPECT_SHOWN(figures[i], c.expected[i]) << c.expected[0];
        EXPECT_EQ(r.verdict, Verdict{});
        EXPECT_EQ(r.setVerdict, Verdict{});
    }
}

// Work, altitude, the bare, the heat that the body cannot bear and the cold that it feels: by a calculation
// apart from this program.
TEST(TwoNode, SensationAndDiscomfort)
{
    struct Case {
        TwoNodeInputs in;
        std::array<const char*, 4> expected; // SET, ET, discomfort, sensation
    };
    const Case cases[] = {
        {{.ta = 27, .tr = 31, .v = 0.25, .RH = 55, .met = 1.8, .clo = 0.7, .work = 0.35},
         {"29.8659", "28.7451", "1.7051", "1.1484"}},
        {{.ta = 40, .tr = 45, .v = 0.1, .RH = 90, .met = 1.5, .clo = 0.8},
         {"47.9100", "48.0499", "6.0000", "4.3734"}},
        {{.ta = 38, .tr = 38, .v = 1.5, .RH = 20, .met = 1.2, .clo = 0},
         {"26.6354", "35.6241", "1.1746", "1.1139"}},
        {{.ta = 12,
          .tr = 20,
          .v = 0.6,
          .RH = 30,
          .met = 2.5,
          .clo = 1.1,
          .work = 0.5,
          .pressure = 90'000,
          .posture = Posture::Sitting},
         {"23.4430", "14.3173", "-0.0292", "-0.0292"}},
        {{.ta = 31,
          .tr = 29,
          .v = 0.15,
          .RH = 75,
          .met = 2.2,
          .clo = 0.9,
          .work = 0.4,
          .pressure = 70'000,
          .edition = Edition::Ashrae2017},
         {"39.3249", "33.4755", "5.3143", "2.3775"}},
        {{.ta = -10, .tr = -5, .v = 1, .RH = 80, .met = 1.5, .clo = 1.5},
         {"4.4226", "-8.6908", "-1.8707", "-1.8707"}},
        {{.ta = 22, .tr = 22, .v = 0, .RH = 50, .met = 0.8, .clo = 0.5},
         {"20.1114", "21.9852", "-0.4308", "-0.4308"}},
    };
    for (const Case& c : cases) {
        const TwoNode r = twoNode(c.in);
        const double figures[] = {r.set, r.et, r.disc, r.tsens};
        for (std::size_t i = 0; i < c.expected.size(); ++i)
            EXPECT_SHOWN(figures[i], c.expected[i]) << " of the SET " << c.expected[0];
    }
    EXPECT_EQ(twoNode(cases[6].in).inMotion.v, 0.1);
}

// The validation table of ASHRAE 55-2017 and before, of one decimal: 25 °C, 0.15 m/s, 50 %, 1 met, 0.5 clo
// but for one input.
TEST(TwoNode, ValidationTableOf2017)
{
    const TwoNodeInputs usual{
        .ta = 25, .tr = 25, .v = 0.15, .RH = 50, .met = 1, .clo = 0.5, .edition = Edition::Ashrae2017};
    struct Case {
        double TwoNodeInputs::*input;
        double value;
        double set;
    };
    const Case cases[] = {
        {&TwoNodeInputs::ta, 25, 23.8},   {&TwoNodeInputs::ta, 0, 12.3},  {&TwoNodeInputs::ta, 10, 17.0},
        {&TwoNodeInputs::ta, 15, 19.3},   {&TwoNodeInputs::ta, 20, 21.6}, {&TwoNodeInputs::ta, 30, 26.4},
        {&TwoNodeInputs::ta, 40, 34.3},   {&TwoNodeInputs::RH, 10, 23.3}, {&TwoNodeInputs::RH, 90, 24.9},
        {&TwoNodeInputs::v, 0.1, 24.0},   {&TwoNodeInputs::v, 0.6, 21.4}, {&TwoNodeInputs::v, 1.1, 20.3},
        {&TwoNodeInputs::v, 3, 18.8},     {&TwoNodeInputs::tr, 40, 31.8}, {&TwoNodeInputs::clo, 0.1, 20.7},
        {&TwoNodeInputs::clo, 1, 27.3},   {&TwoNodeInputs::clo, 2, 32.5}, {&TwoNodeInputs::clo, 4, 37.7},
        {&TwoNodeInputs::met, 0.8, 23.3}, {&TwoNodeInputs::met, 2, 29.7}, {&TwoNodeInputs::met, 4, 36.0},
    };
    for (const Case& c : cases) {
        TwoNodeInputs in = usual;
        in.*c.input = c.value;
        EXPECT_NEAR(twoNode(in).set, c.set, 0.05 + 0.01) << c.value;
    }
    for (const auto& [met, set] : {std::pair(2, "25.9"), {4, "30.5"}}) {
        TwoNodeInputs in = usual;
        in.met = met;
        in.edition = Edition::Ashrae2020;
        EXPECT_SHOWN(twoNode(in).set, set);
    }
}

TwoNodeInputs drawnRoom(Draw& draw)
{
    return {.ta = draw(10, 40),
            .tr = draw(10, 40),
            .v = draw(0, 2),
            .RH = draw(5, 95),
            .met = draw(1, 4),
            .clo = draw(0, 1.5)};
}

TEST(TwoNode, WarmsWithItsSurroundingsAndKeepsToItsBounds)
{
    Draw draw;
    for (int i = 0; i < kPoints; ++i) {
        const TwoNodeInputs in = drawnRoom(draw);
        const TwoNode r = twoNode(in);
        ASSERT_TRUE(r.setVerdict.hasValue() && r.etVerdict.hasValue());
        EXPECT_GE(r.wettedness, 0.06);
        EXPECT_LE(r.wettedness, 1);
        EXPECT_LE(r.disc, 6);
        EXPECT_LT(r.tSkin, r.tCore + 1);
        // Where the skin is as wet as it can be, results step.
        const double most =
            in.clo == 0 ? 0.38 * std::pow(in.v, -0.29) : 0.59 * std::pow(std::max(in.v, 0.1), -0.08);
        if (r.wettedness > 0.9 * most)
            continue;
        for (double TwoNodeInputs::*input : {&TwoNodeInputs::ta, &TwoNodeInputs::tr}) {
            TwoNodeInputs warmer = in;
            warmer.*input += 0.5;
            EXPECT_GT(twoNode(warmer).set, r.set) << "seed " << Draw::kSeed << ", point " << i;
        }
    }
}

// The effective temperature is by its definition that of air at 50 %, and slower air than 0.1 m/s does not
// cool less.
TEST(TwoNode, EffectiveTemperatureAndStillAir)
{
    for (const double t : {18.0, 25.0, 33.0}) {
        const TwoNodeInputs in{.ta = t, .tr = t, .v = 0.3, .RH = 50, .met = 1.2, .clo = 0.5};
        EXPECT_NEAR(twoNode(in).et, t, 0.03) << t; // in its last minute the skin still moves
        TwoNodeInputs still = in;
        still.v = 0;
        TwoNodeInputs slow = in;
        slow.v = 0.1;
        EXPECT_EQ(twoNode(still).set, twoNode(slow).set);
    }
}

TEST(TwoNode, TheCourseEndsInTheFigures)
{
    const TwoNodeInputs in{.ta = 38, .tr = 38, .v = 0.2, .RH = 60, .met = 2, .clo = 0.5};
    std::array<BodyMinute, 600> minutes;
    EXPECT_EQ(twoNodeCourse(in, minutes), Verdict{});
    const TwoNode r = twoNode(in);
    EXPECT_EQ(minutes[59].tCore, r.tCore);
    EXPECT_EQ(minutes[59].tSkin, r.tSkin);
    EXPECT_EQ(minutes[59].wettedness, r.wettedness);
    // One minute's step from the start, and a core that goes on heating.
    EXPECT_NEAR(minutes[0].tCore, kTwoNodeStartCore, 0.2);
    EXPECT_NEAR(minutes[0].tSkin, kTwoNodeStartSkin, 1);
    EXPECT_GT(minutes[599].tCore, minutes[59].tCore);
    EXPECT_EQ(minutes[59].eSkin, r.eSkin);
    TwoNodeInputs missing = in;
    missing.RH = kNaN;
    EXPECT_EQ(twoNodeCourse(missing, minutes), none(Reason::Missing, "RH"));
    EXPECT_TRUE(std::isnan(minutes[0].tCore) && std::isnan(minutes[599].tSkin));
}

// In a mild room the body comes to rest, and then gives away all that it makes.
TEST(TwoNode, TheBalanceClosesAtRest)
{
    const TwoNodeInputs in{.ta = 24, .tr = 27, .v = 0.2, .RH = 50, .met = 1.2, .clo = 0.6, .work = 0.1};
    std::array<BodyMinute, 900> minutes;
    EXPECT_EQ(twoNodeCourse(in, minutes), Verdict{});
    const BodyMinute& rest = minutes.back();
    EXPECT_NEAR(rest.tCore, minutes[889].tCore, 1e-5);
    EXPECT_NEAR(rest.tSkin, minutes[889].tSkin, 1e-5);
    const double hc = 5.66 * std::pow(1.2 - 0.85, 0.39); // that of the limbs is the largest
    const double f = 1 + 0.15 * 0.6;
    const auto radiation = [&](double tcl) { // [W/m²] of the clothing
        return 4 * 0.95 * 0.73 * 5.6697e-8 * std::pow((tcl + 27) / 2 + 273.15, 3) * (tcl - 27);
    };
    const double tcl = halvedRoot(
        [&](double t) { return (rest.tSkin - t) / (0.155 * 0.6) - f * (hc * (t - 24) + radiation(t)); }, 0,
        50);
    const double dry = (rest.tSkin - tcl) / (0.155 * 0.6);
    const double vapour = 0.5 * std::exp(18.6686 - 4030.183 / (24 + 235)); // [torr]
    const double breath = 58.2 * 1.2 * (0.0023 * (44 - vapour) + 0.0014 * (34 - 24));
    EXPECT_NEAR(dry + rest.eSkin + breath, 58.2 * (1.2 - 0.1), 0.02); // the clothing to 0.01 K
}

TEST(TwoNode, TakesTheBoundsOfTheBody)
{
    TwoNodeInputs in{.ta = 42, .tr = 42, .v = 0.5, .RH = 40, .met = 2, .clo = 0.5};
    const TwoNode usual = twoNode(in);
    in.mostSweat = 100;
    std::array<BodyMinute, 60> minutes;
    twoNodeCourse(in, minutes);
    EXPECT_LE(minutes[59].sweat, 100 + 1e-9);
    EXPECT_GT(twoNode(in).tCore, usual.tCore);
    in.mostSweat = 500;
    in.mostBlood = 20;
    twoNodeCourse(in, minutes);
    EXPECT_EQ(minutes[59].blood, 20);
    in.mostBlood = 90;
    in.mostWettedness = 0.2;
    EXPECT_EQ(twoNode(in).wettedness, 0.2);
    in.mostWettedness = 1.01;
    EXPECT_EQ(twoNode(in).verdict, outside("ta"));
    in.ta = in.tr = 40;
    EXPECT_EQ(twoNode(in).verdict, outside("w_max"));
}

TEST(TwoNode, NamesWhatIsBeyondItsRange)
{
    const TwoNodeInputs in{.ta = 25, .tr = 26, .v = 0.2, .RH = 45, .met = 1.3, .clo = 0.7, .work = 0.1};
    struct Case {
        double TwoNodeInputs::*input;
        double outside;
        double impossible;
        const char* name;
    };
    const Case cases[] = {
        {&TwoNodeInputs::ta, 9.99, -100.1, "ta"},
        {&TwoNodeInputs::ta, 40.01, 150.1, "ta"},
        {&TwoNodeInputs::tr, 9.99, -100.1, "tr"},
        {&TwoNodeInputs::tr, 40.01, 150.1, "tr"},
        {&TwoNodeInputs::v, 2.01, -0.01, "v"},
        {&TwoNodeInputs::met, 0.99, -0.1, "met"},
        {&TwoNodeInputs::met, 4.01, -1, "met"},
        {&TwoNodeInputs::clo, 1.51, 5.1, "clo"},
        {&TwoNodeInputs::work, 1.31, -0.1, "work"},
        {&TwoNodeInputs::RH, kNaN, 101, "RH"},
        {&TwoNodeInputs::pressure, kNaN, 29'999, "pressure"},
        {&TwoNodeInputs::pressure, kNaN, 110'001, "pressure"},
        {&TwoNodeInputs::area, kNaN, 0, "area"},
    };
    for (const Case& c : cases) {
        TwoNodeInputs wrong = in;
        wrong.*c.input = c.outside;
        if (std::isnan(c.outside)) {
            EXPECT_EQ(twoNode(wrong).verdict, none(Reason::Missing, c.name));
        } else {
            EXPECT_EQ(twoNode(wrong).setVerdict, outside(c.name));
            EXPECT_EQ(twoNode(wrong, Motion::None, Limits::Blank).setVerdict,
                      none(Reason::BeyondRange, c.name));
        }
        wrong.*c.input = c.impossible;
        EXPECT_EQ(twoNode(wrong).etVerdict, none(Reason::BeyondPhysics, c.name));
        EXPECT_TRUE(std::isnan(twoNode(wrong).set));
    }
}

} // namespace
} // namespace comfortics::tests
