// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/answer.h"

#include "shown_value.h"

#include <gtest/gtest.h>

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

constexpr Input kAir{"ta", Quantity::Temperature, {10, 30}};
constexpr Input kHumidity{"RH", Quantity::Humidity};

Verdict lookedAt(const Input& input, double value, Limits limits = Limits::Mark)
{
    Examination examination(limits);
    examination.look(input, value);
    return examination.verdict();
}

TEST(Examination, BoundsEachQuantityAndKeepsItsEnds)
{
    struct Case {
        Quantity quantity;
        double low, high;
    };
    const Case cases[] = {
        {Quantity::Temperature, -100, 150}, {Quantity::Humidity, 0, 100},    {Quantity::Speed, 0, 1e9},
        {Quantity::Flux, 0, 1e9},           {Quantity::Clothing, 0, 5},      {Quantity::Pascal, 30e3, 110e3},
        {Quantity::Hectopascal, 300, 1100}, {Quantity::Positive, 1e-9, 1e9}, {Quantity::Any, -1e9, 1e9},
    };
    for (const Case& c : cases) {
        const Input input{"x", c.quantity};
        const Verdict refused{Standing::None, Reason::BeyondPhysics, "x"};
        EXPECT_EQ(lookedAt(input, c.low), Verdict{}) << c.low;
        EXPECT_EQ(lookedAt(input, c.high), Verdict{}) << c.high;
        EXPECT_EQ(lookedAt(input, std::nextafter(c.low, -kInfinity)), refused) << c.low;
        EXPECT_EQ(lookedAt(input, std::nextafter(c.high, kInfinity)), refused) << c.high;
        EXPECT_EQ(lookedAt(input, kNaN), (Verdict{Standing::None, Reason::Missing, "x"}));
    }
}

TEST(Examination, MarksOrBlanksBeyondTheRange)
{
    EXPECT_EQ(lookedAt(kAir, 10), Verdict{});
    EXPECT_EQ(lookedAt(kAir, 30), Verdict{});
    for (const double outside : {std::nextafter(10.0, 0), std::nextafter(30.0, 40)}) {
        EXPECT_EQ(lookedAt(kAir, outside), (Verdict{Standing::Outside, Reason::BeyondRange, "ta"}));
        EXPECT_EQ(lookedAt(kAir, outside, Limits::Blank),
                  (Verdict{Standing::None, Reason::BeyondRange, "ta"}));
    }
}

TEST(Examination, KeepsTheFirstRefusalOrElseTheFirstMark)
{
    Examination examination;
    examination.mark("first");
    examination.look(kAir, 40);
    EXPECT_EQ(examination.verdict(), (Verdict{Standing::Outside, Reason::BeyondRange, "first"}));
    EXPECT_TRUE(examination.hasValue());
    examination.look(kHumidity, 101);
    examination.look(kAir, kNaN);
    examination.mark("last");
    EXPECT_EQ(examination.verdict(), (Verdict{Standing::None, Reason::BeyondPhysics, "RH"}));
    EXPECT_FALSE(examination.hasValue());
}

} // namespace
} // namespace comfortics::tests
