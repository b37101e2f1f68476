// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reference values of the wet-bulb globe temperature, and work and rest by it.
#include "shown_value.h"
#include "standards/wbgt_iso7243.h"
#include "standards/work_rest.h"

namespace comfortics::tests {
namespace {

using namespace standards;

TEST(Wbgt7243, WeighsTheAbdomenTwice)
{
    EXPECT_EQ(wbgtOfHeights(30, 28, 25), 27.75);
}

TEST(HeatWork, HoldsAgainstTheReferenceOfItsClass)
{
    using enum WorkClass;
    const struct {
        double from, most; // M
        WorkClass of;
        double acclimatised, other;
    } rows[] = {{100, 125, Rest, 33, 32},
                {126, 235, Low, 30, 29},
                {236, 360, Moderate, 28, 26},
                {361, 465, High, 26, 23},
                {466, 900, VeryHigh, 25, 20}};
    for (const auto& row : rows) {
        for (const double M : {row.from, row.most}) {
            SCOPED_TRACE(M);
            EXPECT_EQ(workClassOf(M), row.of);
            // At the reference is not above it.
            const HeatWorkResult at = assessHeat({.wbgt = row.acclimatised, .M = M});
            EXPECT_EQ(at.wbgtRef, row.acclimatised);
            EXPECT_EQ(at.refClass, row.of);
            EXPECT_FALSE(at.exceeds);
            const HeatWorkResult above =
                assessHeat({.wbgt = row.other + 0.01, .M = M, .acclimatised = false});
            EXPECT_EQ(above.wbgtRef, row.other);
            EXPECT_TRUE(above.exceeds);
        }
    }
    EXPECT_EQ(workClassOf(125.5), Low);
    EXPECT_EQ(assessHeat({.wbgt = 30, .M = 99}).verdict, outside("M"));
    EXPECT_EQ(assessHeat({.wbgt = 30, .M = 0}).verdict, none(Reason::BeyondPhysics, "M"));
    EXPECT_EQ(assessHeat({.wbgt = kNaN, .M = 200}).verdict, none(Reason::Missing, "wbgt"));
}

TEST(HeatWork, FallsWithTheCurve)
{
    EXPECT_SHOWN(limitCurve(300, true), "28.21");
    EXPECT_SHOWN(limitCurve(300, false), "24.97");
    const HeatWork work{.wbgt = 28.1, .M = 300, .acclimatised = false, .reference = Reference::Curve};
    EXPECT_EQ(assessHeat(work).wbgtRef, limitCurve(300, false));
    EXPECT_TRUE(assessHeat(work).exceeds);
}

TEST(HeatWork, AddsForTheClothing)
{
    const double kelvins[] = {0, 0, 0, 2, 3, 4, 10, 11, 12, 13}; // in the order of WorkClothing
    for (int i = 0; i < 10; ++i) {
        const auto clothing = static_cast<WorkClothing>(i);
        const double kelvin = kelvins[i];
        const HeatWorkResult result = assessHeat({.wbgt = 20.5, .M = 200, .clothing = clothing});
        EXPECT_EQ(result.wbgtEff, 20.5 + kelvin) << i;
        EXPECT_EQ(result.exceeds, 20.5 + kelvin > 30) << i;
    }
}

TEST(WorkRest, ReadsTheTableByDegreesFahrenheit)
{
    using enum Labour;
    constexpr int kNormal = 60;
    constexpr int kCaution = 0;
    const struct {
        Labour labour;
        double from, to; // adjusted [°F]
        int minutes;
    } rows[] = {
        {Light, 60, 105, kNormal},   {Light, 106, 106, 45},
        {Light, 107, 107, 40},       {Light, 108, 108, 35},
        {Light, 109, 109, 30},       {Light, 110, 110, 15},
        {Light, 111, 130, kCaution}, {Moderate, 60, 99, kNormal},
        {Moderate, 100, 100, 45},    {Moderate, 101, 101, 40},
        {Moderate, 102, 102, 35},    {Moderate, 103, 104, 30},
        {Moderate, 105, 105, 25},    {Moderate, 106, 106, 20},
        {Moderate, 107, 107, 15},    {Moderate, 108, 130, kCaution},
        {Heavy, 60, 94, kNormal},    {Heavy, 95, 96, 45},
        {Heavy, 97, 97, 40},         {Heavy, 98, 99, 35},
        {Heavy, 100, 101, 30},       {Heavy, 102, 102, 25},
        {Heavy, 103, 104, 20},       {Heavy, 105, 105, 15},
        {Heavy, 106, 130, kCaution},
    };
    for (const auto& row : rows) {
        for (double f = row.from; f <= row.to; ++f) {
            const NioshResult result = workRestByTable(
                {.ta = (f - 32) * 5 / 9, .RH = 30, .sun = Sunshine::None, .labour = row.labour});
            SCOPED_TRACE(f);
            EXPECT_NEAR(result.adjusted, f, 1e-12);
            EXPECT_EQ(result.hour.workMin, row.minutes);
            EXPECT_EQ(result.advice, row.minutes == kNormal    ? NioshAdvice::Normal
                                     : row.minutes == kCaution ? NioshAdvice::Caution
                                                               : NioshAdvice::Schedule);
        }
    }
    // Between two rows the hotter.
    EXPECT_EQ(workRestByTable({(105.2 - 32) / 1.8, 30, Sunshine::None, Light}).hour.workMin, 45);
}

} // namespace
} // namespace comfortics::tests
