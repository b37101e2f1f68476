// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/conversions.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <string>

namespace comfortics::converter {
namespace {

// A large value shows every digit of a factor, a small one an offset.
TEST(Conversions, GiveTheBaseUnit)
{
    struct Row {
        const char* name;
        const char* ofLarge; // of 98765432.1
        const char* ofSmall; // of 7.25
        const char* ofZero;
        Panel panel;
    };
    using enum Panel;
    const Row rows[] = {
        {"F", "54869666.7", "-13.8", "-17.8", Temperature},
        {"K", "98765159.0", "-265.9", "-273.2", Temperature},
        {"Ra", "54869411.4", "-269.1", "-273.2", Temperature},
        {"D", "-65843521.4", "95.2", "100.0", Temperature},
        {"N", "299289188.2", "22.0", "0.0", Temperature},
        {"Re", "123456790.1", "9.1", "0.0", Temperature},
        {"Ro", "188124618.3", "-0.5", "-14.3", Temperature},
        {"mm", "1646090.54", "0.12", "0.00", AirVelocity},
        {"kmh", "27434842.25", "2.01", "0.00", AirVelocity},
        {"knots", "50810490.84", "3.73", "0.00", AirVelocity},
        {"mph", "44152815.10", "3.24", "0.00", AirVelocity},
        {"fts", "30104069.77", "2.21", "0.00", AirVelocity},
        {"ftm", "501729.40", "0.04", "0.00", AirVelocity},
        {"Win", "153086725928.5", "11237.5", "0.0", SolarRadiation},
        {"CHUhft", "560816137.8", "41.2", "0.0", SolarRadiation},
        {"kcalhm", "114862224.2", "8.4", "0.0", SolarRadiation},
        {"Jsm", "98765432.1", "7.3", "0.0", SolarRadiation},
        {"kWm", "98765432100.0", "7250.0", "0.0", SolarRadiation},
        {"Wcm", "987654321000.0", "72500.0", "0.0", SolarRadiation},
        {"Btusft", "1121633434785.1", "82334.9", "0.0", SolarRadiation},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const Conversion* const conversion = findConversion(row.name);
        ASSERT_NE(conversion, nullptr);
        EXPECT_EQ(converted(*conversion, 98765432.1), row.ofLarge);
        EXPECT_EQ(converted(*conversion, 7.25), row.ofSmall);
        EXPECT_EQ(converted(*conversion, 0), row.ofZero);
        EXPECT_EQ(conversion->panel, row.panel);
    }
}

// Fixed points of the scales: freezing and boiling water.
TEST(Conversions, AgreeOnTheFixedPointsOfTheScales)
{
    struct Row {
        const char* name;
        double freezing;
        double boiling;
    };
    const Row rows[] = {{"F", 32, 212}, {"K", 273.15, 373.15}, {"Ra", 491.67, 671.67}, {"D", 150, 0},
                        {"N", 0, 33},   {"Re", 0, 80},         {"Ro", 7.5, 60}};
    for (const Row& row : rows) {
        EXPECT_EQ(converted(*findConversion(row.name), row.freezing), "0.0") << row.name;
        EXPECT_EQ(converted(*findConversion(row.name), row.boiling), "100.0") << row.name;
    }
}

TEST(Conversions, AreFoundByAnyOfTheirNames)
{
    const struct {
        const char* name;
        const char* box;
    } rows[] = {{"f", "txt_F"},       {"FAHRENHEIT", "txt_F"}, {"Re", "txt_Re"},
                {"kn", "txt_knots"},  {"KNOTS", "txt_knots"},  {"km/h", "txt_kmh"},
                {"kW/m2", "txt_kWm"}, {"kW/m²", "txt_kWm"},    {"feet per minute", "txt_ftm"},
                {"W/cm2", "txt_Wcm"}, {"m/min", "txt_mm"}};
    for (const auto& row : rows) {
        const Conversion* const found = findConversion(row.name);
        ASSERT_NE(found, nullptr) << row.name;
        EXPECT_EQ(found->box, row.box) << row.name;
    }
    for (const char* unknown : {"", "C", "txt_F", "Fahren", "m/s", "²"})
        EXPECT_EQ(findConversion(unknown), nullptr) << unknown;
}

TEST(Conversions, NoNameLeadsToTwoUnits)
{
    for (const Conversion& conversion : kConversions) {
        EXPECT_EQ(findConversion(conversion.name), &conversion) << conversion.name;
        EXPECT_EQ(findConversion(unitText(conversion)), &conversion) << conversion.unit;
        EXPECT_EQ(findConversion(conversion.box.substr(4)), &conversion) << conversion.box;
    }
}

TEST(Conversions, BeyondTheRangeOfNumbersFail)
{
    EXPECT_THROW(converted(*findConversion("W/cm2"), 1e306), values::RunFailure);
    EXPECT_NO_THROW(converted(*findConversion("W/cm2"), 1e303));
}

} // namespace
} // namespace comfortics::converter
