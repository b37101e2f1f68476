// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/ireq.h"

#include "standard_cases.h"

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

IreqInputs frost()
{
    return {.M = 116, .ta = -15, .tr = -15, .walking = 0.4, .v = 0.4, .clo = 2.5};
}

TEST(Ireq, GivesThePrintedFigures)
{
    const char* const kLong = "none"; // more than 8 h
    const struct {
        IreqInputs in;
        const char *ireqMin, *ireqNeutral, *iclMin, *iclNeutral, *dleMin, *dleNeutral;
    } rows[] = {
        {{.M = 116, .ta = -15, .tr = -15, .permeability = 8, .walking = 0.3, .v = 0.4, .RH = 85, .clo = 2.5},
         "2.524",
         "2.853",
         "2.698",
         "3.052",
         "5.929",
         "2.124"},
        {{.M = 90, .ta = 0, .tr = 0, .walking = 0.3, .v = 2, .clo = 1.5},
         "2.243",
         "2.581",
         "2.705",
         "3.123",
         "0.837",
         "0.620"},
        {{.M = 175, .ta = -25, .tr = -25, .permeability = 50, .walking = 0.9, .v = 5, .RH = 70, .clo = 2.5},
         "2.093",
         "2.390",
         "3.704",
         "4.254",
         "0.653",
         "0.448"},
        {{.M = 115, .ta = -5, .tr = 5, .walking = 0.4, .v = 1, .RH = 50, .clo = 1.8},
         "1.762",
         "2.090",
         "1.984",
         "2.363",
         "4.968",
         "1.625"},
        {{.M = 140, .work = 20, .ta = -10, .tr = -10, .permeability = 20, .walking = 0.5, .v = 3, .clo = 2.2},
         "2.228",
         "2.595",
         "3.076",
         "3.599",
         "1.190",
         "0.744"},
        {{.M = 230, .ta = 5, .tr = 5, .walking = 1.0, .v = 0.4, .clo = 1.0},
         "0.254",
         "0.509",
         "0.244",
         "0.546",
         kLong,
         kLong},
    };
    for (const auto& row : rows) {
        const IreqResult result = ireq(row.in);
        SCOPED_TRACE(row.ireqMin);
        EXPECT_SHOWN(result.min.ireq, row.ireqMin);
        EXPECT_SHOWN(result.neutral.ireq, row.ireqNeutral);
        EXPECT_SHOWN(result.min.icl, row.iclMin);
        EXPECT_SHOWN(result.neutral.icl, row.iclNeutral);
        EXPECT_SHOWN(result.min.dle, row.dleMin);
        EXPECT_SHOWN(result.neutral.dle, row.dleNeutral);
        const bool isLong = row.dleMin == kLong;
        EXPECT_EQ(result.min.exposure.reason == Reason::Unlimited, isLong);
        EXPECT_EQ(result.neutral.exposure.reason == Reason::Unlimited, isLong);
    }
}

// The clothing that is required lasts for ever, by way of two roots that know nothing of one another; with
// less the heat lost is what the exposure allows.
TEST(Ireq, LastsWithTheInsulationRequired)
{
    Draw between;
    int bounded = 0;
    for (int i = 0; i < kPoints; ++i) {
        SCOPED_TRACE(testing::Message() << "seed " << Draw::kSeed << ", " << i);
        IreqInputs in{.M = between(60, 250), .ta = between(-50, 0), .v = between(0.4, 10), .clo = 1};
        in.tr = in.ta + between(-5, 15);
        const IreqResult required = ireq(in);
        if (!(required.neutral.icl < 4.9))
            continue;
        ++bounded;
        EXPECT_LT(required.min.ireq, required.neutral.ireq);
        IreqInputs more = in;
        more.M += 5;
        EXPECT_LT(ireq(more).neutral.ireq, required.neutral.ireq);

        in.clo = required.neutral.icl + 1e-6;
        EXPECT_EQ(ireq(in).neutral.exposure, none(Reason::Unlimited, "dle"));
        in.clo = 0.5 * required.neutral.icl;
        const double half = ireq(in).neutral.dle;
        in.clo = 0.4 * required.neutral.icl;
        EXPECT_LT(ireq(in).neutral.dle, half);
    }
    EXPECT_GT(bounded, kPoints / 4);
}

TEST(Ireq, RaisesAndLowersWithAMark)
{
    const struct {
        void (*change)(IreqInputs& in);
        std::string_view marked;
        double M, walking, v; // calculated with
    } rows[] = {
        {[](IreqInputs&) {}, "", 116, 0.4, 0.4},
        {[](IreqInputs& in) { in.walking.reset(); }, "", 116, 0.0052 * 58, 0.4},
        {[](IreqInputs& in) { in.walking = 0.3; }, "walking", 116, 0.0052 * 58, 0.4},
        {[](IreqInputs& in) { in.walking = 1.3; }, "walking", 116, 1.2, 0.4},
        {[](IreqInputs& in) { in.v = 0.3; }, "v", 116, 0.4, 0.4},
        {[](IreqInputs& in) { in.v = 19; }, "v", 116, 0.4, 18},
        {[](IreqInputs& in) { in.M = 57; }, "M", 58, 0.4, 0.4},
        {[](IreqInputs& in) { in.M = 401, in.walking.reset(); }, "M", 400, 1.2, 0.4},
        {[](IreqInputs& in) { in.ta = 10.5; }, "ta", 116, 0.4, 0.4},
        {[](IreqInputs& in) { in.permeability = 101; }, "permeability", 116, 0.4, 0.4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        IreqInputs in = frost();
        row.change(in);
        const IreqResult result = ireq(in);
        EXPECT_EQ(result.min.insulation, row.marked.empty() ? kOk : outside(row.marked));
        EXPECT_EQ(result.M, row.M);
        EXPECT_DOUBLE_EQ(result.walking, row.walking);
        EXPECT_EQ(result.v, row.v);
        // Held to the bound, the figures are those of the bound.
        in.M = row.M;
        in.walking = result.walking;
        in.v = row.v;
        EXPECT_EQ(ireq(in).min.ireq, result.min.ireq);

        row.change(in);
        const IreqResult blank = ireq(in, Limits::Blank);
        EXPECT_EQ(std::isnan(blank.min.ireq), !row.marked.empty());
        EXPECT_EQ(std::isnan(blank.neutral.dle), !row.marked.empty());
    }
}

TEST(Ireq, TellsWhyThereIsNoValue)
{
    IreqInputs in = frost();
    in.M = 300;
    in.ta = in.tr = 10;
    in.walking = std::nullopt;
    const IreqResult warm = ireq(in);
    EXPECT_EQ(warm.min.insulation, none(Reason::HeatToSpare, "ireq"));
    EXPECT_TRUE(std::isnan(warm.min.ireq) && std::isnan(warm.min.icl));

    in = frost();
    in.work = 110; // leaves less than the breath takes
    EXPECT_EQ(ireq(in).min.insulation, none(Reason::NoRoot, "ireq"));

    in = frost();
    in.M = 58;
    in.walking = 0;
    in.clo = 0;
    in.permeability = 100; // lets through more than the air around holds
    const IreqResult bare = ireq(in);
    EXPECT_EQ(bare.min.exposure, none(Reason::Undefined, "dle"));
    EXPECT_EQ(bare.min.insulation, kOk);

    in.RH = kNaN;
    EXPECT_EQ(ireq(in).neutral.exposure, none(Reason::Missing, "RH"));
}

TEST(LocalCooling, StepsWhereItsClassesBegin)
{
    using enum LocalCooling;
    const struct {
        double at;
        LocalCooling from, above;
    } rows[] = {{-10, UncomfortablyCold, None},
                {-25, SkinMayFreeze, UncomfortablyCold},
                {-35, Within10Minutes, SkinMayFreeze},
                {-60, Within2Minutes, Within10Minutes}};
    for (const auto& row : rows) {
        EXPECT_EQ(localCooling(row.at), row.from) << row.at;
        EXPECT_EQ(localCooling(std::nextafter(row.at, 0)), row.above) << row.at;
    }
    EXPECT_EQ(localCooling(kNaN), None);
}

} // namespace
} // namespace comfortics::tests
