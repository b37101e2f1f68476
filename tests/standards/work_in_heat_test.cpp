// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reference values of the wet-bulb globe temperature, and work and rest by it.
#include "shown_value.h"
#include "standards/wbgt_iso7243.h"
#include "standards/work_rest.h"

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

TEST(Wbgt7243, WeighsWithAndWithoutSun)
{
    EXPECT_DOUBLE_EQ(wbgt7243({25, 45, 32, true}).wbgt, 0.7 * 25 + 0.2 * 45 + 0.1 * 32);
    EXPECT_DOUBLE_EQ(wbgt7243({25, 45, kNaN, false}).wbgt, 31);
    EXPECT_EQ(wbgtOfHeights(30, 28, 25), 27.75);
    const struct {
        Wbgt7243Inputs in;
        Verdict verdict;
    } rows[] = {
        {{5, 20, 10, true}, kOk},
        {{40, 120, 60, true}, kOk},
        {{4.9, 20, 10, true}, outside("tnw")},
        {{40.1, 20, 10, true}, outside("tnw")},
        {{25, 19.9, 10, true}, outside("tg")},
        {{25, 120.1, 10, true}, outside("tg")},
        {{25, 45, 9.9, true}, outside("ta")},
        {{25, 45, 60.1, false}, kOk}, // not read
        {{25, 45, kNaN, true}, none(Reason::Missing, "ta")},
        {{25, 151, 30, true}, none(Reason::BeyondPhysics, "tg")},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(wbgt7243(row.in).verdict, row.verdict) << &row - rows;
        EXPECT_EQ(std::isnan(wbgt7243(row.in, Limits::Blank).wbgt), row.verdict != kOk) << &row - rows;
    }
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

TEST(WorkRest, SharesTheHourByItsAverages)
{
    // Those with eight decimals were calculated by a second program, which searches by small steps.
    const struct {
        TimeWeighted hour;
        const char *work, *shown;
    } rows[] = {
        {{30, 30, 180}, "60", "60"},
        {{30, 30, 300}, "30.74", "30"},
        {{30, 30, 415}, "18.95", "15"},
        {{28, 28, 415}, "39.62", "35"},
        {{31, 25, 260, 130, true}, "45.64247367", "45"},
        {{29.5, 28.5, 500, 115, true}, "22.96464803", "20"},
        {{27.2, 27.2, 210, 115, false}, "59.06563309", "55"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.work);
        const WorkRest result = workRestTimeWeighted(row.hour);
        EXPECT_EQ(result.verdict, kOk);
        EXPECT_SHOWN(result.workMin, row.work);
        EXPECT_SHOWN(result.shown, row.shown);
        EXPECT_DOUBLE_EQ(result.workMin + result.restMin, 60);
    }
    // The limit of an hour of rest at 115 W is 33.00197 °C.
    EXPECT_EQ(workRestTimeWeighted({33.0020, 33.0020, 300}).verdict, none(Reason::NoRestHere, "work_min"));
    EXPECT_NEAR(workRestTimeWeighted({33.0019, 33.0019, 300}).workMin, 0, 0.01);
    // A root on an end had no value.
    EXPECT_NEAR(workRestTimeWeighted({33.00197483593, 33.00197483593, 300}).workMin, 0, 1e-7);
    EXPECT_NEAR(workRestTimeWeighted({28.2131055708, 28.2131055708, 300}).workMin, 60, 1e-7);
    EXPECT_EQ(workRestTimeWeighted({27, 31, 340, 115, false}).verdict, none(Reason::NoRestHere, "work_min"));
    EXPECT_EQ(workRestTimeWeighted({30, kNaN, 300}).verdict, none(Reason::Missing, "wbgtRest"));
    EXPECT_EQ(workRestTimeWeighted({30, 30, 300, 0}).verdict, none(Reason::BeyondPhysics, "rest"));
}

TEST(WorkRest, GivesTheCapacityBetweenTwoLimits)
{
    using enum CapacityLimits;
    const struct {
        Capacity in;
        const char* share;
    } rows[] = {
        {{30, 300, 117, Iso}, "59.235"},
        {{30, 300, 117, Niosh}, "62.003"},
        {{31, 220, 110, Iso}, "63.0909090909"},
        {{31, 220, 110, Niosh}, "64.2427420267"},
        {{33, 118, 117, Iso}, "0"},
        {{20, 400, 117, Niosh}, "100"},
    };
    for (const auto& row : rows) {
        const CapacityResult result = workCapacity(row.in);
        EXPECT_SHOWN(result.share, row.share);
        EXPECT_DOUBLE_EQ(result.hour.workMin, 0.6 * result.share);
    }
    EXPECT_EQ(workCapacity({30, 117}).hour.verdict, none(Reason::Undefined, "work"));
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

TEST(WorkRest, AddsSunAndHumidity)
{
    const double rows[][2] = {{10, -8}, {15, -6}, {20, -4}, {30, 0}, {40, 3}, {50, 6}, {58, 8.4}, {60, 9}};
    for (const auto& [RH, kelvin] : rows)
        EXPECT_NEAR(workRestByTable({30, RH, Sunshine::None}).adjusted, 86 + kelvin, 1e-12) << RH;
    EXPECT_EQ(workRestByTable({30, 30, Sunshine::Full}).adjusted, 99);
    EXPECT_EQ(workRestByTable({30, 30, Sunshine::PartlyCloudy}).adjusted, 93);
    for (const double RH : {9.9, 60.1})
        EXPECT_EQ(workRestByTable({30, RH, Sunshine::None}).hour.verdict, none(Reason::BeyondRange, "RH"));
}

} // namespace
} // namespace comfortics::tests
