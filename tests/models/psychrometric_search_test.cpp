// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/psychrometric_search.h"

#include "model_cases.h"
#include "values/plain_text.h"

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
        Variant Ta;
        double Td;
        const char* expected;
    };
    const Case cases[] = {
        {"25", 13.8575691655027, "17.9575692"},
        {"41.3", -3.2, "17.7"},
        {"12.5", 12.4, "12.5"}, // the second step ends it: the dew point and a tenth
        {12.5, 12.4, "12.4"},   // the balance is still above 0 when Tw = 12.4 + 0.2 passes a number
        {"5", 7, "7"},          // a dew point above the air ends the first step
        {"0.3", 0.3, "0.3"},    // below 0: ends at once
        {"2.2", 2.2, "2.3"},    // above 0: ends at the second step
        {"0", 0, kSaturated},
        {0.0, 0, "0"}, // an air temperature that is a number ends the steps above it
        {"20", -1e9, kNoEnd},
        {"3000", 2000, kNoEnd},
        {"20", -237.3, "fails: division by zero"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(shown([&] { return Psychrometric_Wet_Bulb(c.Ta, c.Td); }), c.expected)
            << c.Ta.text() << ", " << c.Td;
}

TEST(PsychrometricSearch, FastIsPlain)
{
    Random random;
    for (int i = 0; i < 40000 / kSlowness; ++i) {
        const double air = std::round(random.between(-120, 120) * 10) / 10;
        double Td = air - random.size(1e-16, 60); // from residues of saturated air on
        if (random.oneIn(3))
            Td = std::round(Td * 10) / 10;
        const Variant Ta = values::plainText(air);
        ASSERT_EQ(shown([&] { return Psychrometric_Wet_Bulb(Ta, Td); }, kAllDigits),
                  shown([&] { return plain::Psychrometric_Wet_Bulb(Ta, Td); }, kAllDigits))
            << "seed " << Random::kSeed << ": Ta " << Ta.text() << " Td " << Td;
    }
}

} // namespace
} // namespace comfortics::tests
