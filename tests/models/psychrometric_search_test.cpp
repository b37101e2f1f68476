// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/psychrometric_search.h"

#include "model_cases.h"

#include <gtest/gtest.h>

namespace comfortics::tests {
namespace {

using namespace models;

std::string search(const Variant& Ta, double Td)
{
    return shown([&] { return Psychrometric_Wet_Bulb(Ta, Td); });
}

// Expected values from a separate evaluation in Python.
TEST(PsychrometricSearch, StepsFromTheDewPoint)
{
    struct Case {
        const char* Ta;
        double Td;
        const char* expected;
    };
    const Case cases[] = {
        {"30", 18.4, "22.1"},       {"25", 13.8575691655027, "17.9575692"},
        {"-8", -9.7, "-8.4"},       {"41.3", -3.2, "17.7"},
        {"12.5", 12.4, "12.5"},                    // the second step ends it: the dew point and a tenth
        {"20", 19.9999, "20.0999"}, {"5", 7, "7"}, // a dew point above the air ends the first step
    };
    for (const Case& c : cases)
        EXPECT_EQ(search(c.Ta, c.Td), c.expected) << c.Ta << ", " << c.Td;
}

TEST(PsychrometricSearch, SaturatedAir)
{
    // What is left of the balance by rounding decides: 1e-13 beside the first 10000.
    EXPECT_EQ(search("0.3", 0.3), "0.3") << "below 0: ends at once";
    EXPECT_EQ(search("2.2", 2.2), "2.3") << "above 0: ends at the second step";
    EXPECT_EQ(search("0", 0), "fails: the psychrometric wet-bulb search has no end in saturated air");
    EXPECT_EQ(search("-30", -30), "fails: the psychrometric wet-bulb search has no end in saturated air");
    EXPECT_EQ(search(Variant(0.0), 0), "0") << "an air temperature that is a number ends the steps above it";
}

TEST(PsychrometricSearch, AnAirTemperatureThatIsANumberEndsTheSteps)
{
    // The balance still lies above 0 when Tw = 12.4 + 0.2 passes 12.5.
    EXPECT_EQ(search(12.5, 12.4), "12.4");
    EXPECT_EQ(search(30.0, 18.4), "22.1") << "reached below it";
}

TEST(PsychrometricSearch, NeverHangs)
{
    EXPECT_EQ(search("20", -1e9), "fails: the psychrometric wet-bulb search has no end");
    EXPECT_EQ(search("3000", 2000), "fails: the psychrometric wet-bulb search has no end");
    EXPECT_EQ(search("20", -237.3), "fails: division by zero");
}

TEST(PsychrometricSearch, FastIsPlain)
{
    Random random;
    for (int i = 0; i < 40000 / kSlowness; ++i) {
        double air = std::round(random.between(-60, 58) * 10) / 10;
        double Td = air - random.size(1e-3, 60);
        switch (random.integer(0, 5)) {
        case 0:
            Td = std::round(Td * 10) / 10;
            break;
        case 1:
            Td = air - random.size(1e-16, 1); // residues of saturated air
            break;
        case 2:
            air = random.between(-120, 120);
            Td = random.between(-150, 120);
            break;
        default:
            break;
        }
        const Variant Ta = values::plainText(air);
        ASSERT_EQ(bits([&] { return Psychrometric_Wet_Bulb(Ta, Td); }),
                  bits([&] { return plain::Psychrometric_Wet_Bulb(Ta, Td); }))
            << "seed " << Random::kSeed << ": Ta " << Ta.text() << " Td " << Td;
    }
}

} // namespace
} // namespace comfortics::tests
