// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/psychrometric_search.h"

#include "model_cases.h"

#include <gtest/gtest.h>

namespace comfortics::tests {
namespace {

using namespace models;

// Expected values from a separate evaluation in Python. What is left of the balance of saturated air by
// rounding decides: 1e-13 beside the first 10000.
TEST(PsychrometricSearch, StepsFromTheDewPoint)
{
    constexpr const char* kSaturated = "fails: the psychrometric wet-bulb search has no end in saturated air";
    constexpr const char* kNoEnd = "fails: the psychrometric wet-bulb search has no end";
    struct Case {
        double Ta;
        bool stopsAboveAir;
        double Td;
        const char* expected;
    };
    const Case cases[] = {
        {25, false, 13.8575691655027, "17.9575692"},
        {41.3, false, -3.2, "17.7"},
        {12.5, false, 12.4, "12.5"}, // the second step ends it: the dew point and a tenth
        {12.5, true, 12.4, "12.4"},  // the balance is still above 0 when Tw = 12.4 + 0.2 passes the air
        {5, false, 7, "7"},          // a dew point above the air ends the first step
        {0.3, false, 0.3, "0.3"},    // below 0: ends at once
        {2.2, false, 2.2, "2.3"},    // above 0: ends at the second step
        {0, false, 0, kSaturated},
        {0, true, 0, "0"}, // the steps end above the air temperature
        {20, false, -1e9, kNoEnd},
        {3000, false, 2000, kNoEnd},
        {20, false, -237.3, "fails: division by zero"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(shown([&] { return Psychrometric_Wet_Bulb(c.Ta, c.stopsAboveAir, c.Td); }), c.expected)
            << c.Ta << ", " << c.Td;
}

TEST(PsychrometricSearch, FastIsPlain)
{
    Random random;
    for (int i = 0; i < 40000 / kSlowness; ++i) {
        const double air = std::round(random.between(-120, 120) * 10) / 10;
        double Td = air - random.size(1e-16, 60); // from residues of saturated air on
        if (random.oneIn(3))
            Td = std::round(Td * 10) / 10;
        const bool stops = random.oneIn(4);
        ASSERT_EQ(shown([&] { return Psychrometric_Wet_Bulb(air, stops, Td); }, kAllDigits),
                  shown([&] { return plain::Psychrometric_Wet_Bulb(air, stops, Td); }, kAllDigits))
            << "seed " << Random::kSeed << ": Ta " << air << " stops " << stops << " Td " << Td;
    }
}

} // namespace
} // namespace comfortics::tests
