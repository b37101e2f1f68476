// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/conversions.h"

#include <gtest/gtest.h>

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

TEST(Conversions, AreFoundByAnyOfTheirNamesAndNoNameLeadsToTwo)
{
    EXPECT_EQ(findConversion("FAHRENHEIT"), findConversion("f"));
    EXPECT_EQ(findConversion("kw/M²"), findConversion("kWm"));
    for (const char* unknown : {"", "C", "txt_F", "Fahren", "m/s", "²"})
        EXPECT_EQ(findConversion(unknown), nullptr) << unknown;
    for (const Conversion& conversion : kConversions) {
        EXPECT_EQ(findConversion(conversion.name), &conversion) << conversion.name;
        EXPECT_EQ(findConversion(unitText(conversion)), &conversion) << conversion.unit;
        EXPECT_EQ(findConversion(conversion.box.substr(4)), &conversion) << conversion.box;
    }
}

} // namespace
} // namespace comfortics::converter
