// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/scale_strip.h"

#include "workspace/live_text.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace comfortics::workspace {
namespace {

using Beyond = ScaleStrip::Beyond;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ScaleStrip, MarksAValueOnItsClassesAndTellsWhereItIsClipped)
{
    // UTCI: bounds from -40 to 46 with eight classes between, 10.75 °C each on average.
    const struct {
        double value;
        double mark;
        Beyond beyond;
    } rows[] = {
        {-50.75, 0, Beyond::No},       {-50.76, 0, Beyond::Left}, {-kInfinity, 0, Beyond::Left},
        {-40, 1.0 / 10, Beyond::No},   {3, 0.5, Beyond::No},      {24.5, 0.7, Beyond::No},
        {46, 9.0 / 10, Beyond::No},    {56.75, 1, Beyond::No},    {56.76, 1, Beyond::Right},
        {kInfinity, 1, Beyond::Right},
    };
    for (const auto& row : rows) {
        const auto strip = classStrip(195, row.value);
        ASSERT_TRUE(strip);
        EXPECT_NEAR(strip->mark, row.mark, 1e-12) << row.value;
        EXPECT_EQ(strip->beyond, row.beyond) << row.value;
    }
    EXPECT_FALSE(classStrip(195, std::nan("")));
    EXPECT_FALSE(classStrip(5, 20)) << "no scale is published";
}

TEST(ScaleStrip, TheMarkStandsInTheBandOfItsClassOnEveryScale)
{
    for (int index = 1; index <= catalogue::kLastIndex; ++index) {
        const auto& classes = catalogue::scale(index).categories;
        for (std::size_t place = 0; place < classes.size(); ++place) {
            const double low =
                std::isinf(classes[place].lower) ? classes[place].upper - 0.01 : classes[place].lower;
            const double high = std::isinf(classes[place].upper) ? low + 0.01 : classes[place].upper;
            const auto strip = classStrip(index, low + (high - low) / 3);
            ASSERT_TRUE(strip && strip->bands.size() == classes.size()) << index;
            const ScaleStrip::Band& band = strip->bands[place];
            EXPECT_TRUE(band.from < strip->mark && strip->mark < band.to) << index << " " << place;
            EXPECT_EQ(band.severity, classes[place].severity) << index << " " << place;
            EXPECT_EQ(band.from, place == 0 ? 0 : strip->bands[place - 1].to) << index;
        }
        if (!classes.empty()) {
            EXPECT_EQ(classStrip(index, 1)->bands.back().to, 1) << index;
        }
    }
}

TEST(ScaleStrip, OfASituationIsThatOfItsClassesElseItsLimits)
{
    tests::Program program;
    program.main.Opt_Limits.select(1);
    program.main.Opt_Rules.select(1); // robust: frost ends the classic run
    const auto strip = [&program](int index) {
        return stripOf(program.workspace.present(), program.limits, index);
    };
    EXPECT_FALSE(strip(195)) << "no readings, no mark";
    // Who is dissatisfied in the cold is so on the cold side.
    program.type("12", "0", "50", "1");
    EXPECT_EQ(strip(124)->bands.back().severity, -3);
    program.type("40", "800", "50", "1");
    EXPECT_EQ(strip(124)->bands.back().severity, 3);

    // Index 74 has no scale; its limits are -50 to 10 °C of the air, so the strip goes from -65 to 25.
    const auto ofLimits = strip(74);
    ASSERT_TRUE(ofLimits && ofLimits->bands.size() == 1);
    EXPECT_NEAR(ofLimits->bands[0].from, 1.0 / 6, 1e-12);
    EXPECT_NEAR(ofLimits->bands[0].to, 5.0 / 6, 1e-12);
    EXPECT_FALSE(ofLimits->bands[0].severity);
    EXPECT_EQ(ofLimits->beyond, Beyond::Right);
    program.type("-20", "0", "50", "1");
    ASSERT_TRUE(strip(74));
    EXPECT_NEAR(strip(74)->mark, 0.5, 1e-12);
    EXPECT_EQ(strip(74)->beyond, Beyond::No);
    EXPECT_FALSE(strip(5)) << "neither classes nor limits";
}

TEST(LiveText, ShowsTheDecimalsThatMeanSomething)
{
    using enum formulas::Live;
    const struct {
        formulas::Live quantity;
        const char* caption;
        const char* shown;
    } rows[] = {
        {Ta, "33.40000", "33.40"},
        {Tmrt, "64.1234567890123", "64.1"},
        {RH, "49.95000", "50.0"},
        {SR, "612.50000", "613"},
        {Es, "07.37770", "7.38"},
        {Td, "-0.00100", "0.00"},
        {Tg, "", ""},
        {Tnwb, "No convergence", "No convergence"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(liveInShort(row.quantity, row.caption), row.shown);
}

} // namespace
} // namespace comfortics::workspace
