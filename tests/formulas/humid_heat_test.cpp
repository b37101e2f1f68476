// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/humid_heat.h"

#include "formula_cases.h"
#include "formulas/primitives.h"
#include "texts/number_text.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

std::string wholeDegrees(Number value)
{
    return texts::format(value.value(), values::kFormat0);
}

TEST(HumidHeat, Formulas)
{
    // Neighbouring doubles: one reads exactly 40 or 80 °F, the next one just above or below.
    const FormulaCase cases[] = {
        {"53", Index_053<Number>, {23.4, 31.7}, "73.572"},
        {"54", Index_054<Number>, {31.7, 23.4}, "80.272"},
        {"55", Index_055<Number>, {31.7, 58}, "27.7268"},
        {"56", Index_056<Number>, {31.7, 19.6}, "79.939"},
        {"57", Index_057<Number>, {31.7, 23.4}, "27.55"},
        {"58", Index_058<Number>, {31.7, 58}, "105.786"},
        {"85 at 20", Index_085<Number>, {20, 58}, "none"},
        {"85 above 20", Index_085<Number>, {20.1, 58}, "24.6836846"},
        {"85 warm", Index_085<Number>, {31.7, 58}, "35.8231283"},
        {"86 at 40 F", Index_086<Number>, {4.444444444444446, 58}, "4.44444444"},
        {"86 above 40 F", Index_086<Number>, {4.444444444444447, 58}, "2.45888889"},
        {"86 below 80 F", Index_086<Number>, {26.666666666666657, 58}, "26.9033333"},
        {"86 at 80 F", Index_086<Number>, {26.66666666666667, 58}, "27.5547557"},
        {"86 at 80 F, dry", Index_086<Number>, {26.66666666666667, 9}, "25.4072702"},
        {"86 at 80 F, humid", Index_086<Number>, {26.66666666666667, 92}, "30.5112918"},
        {"86 dry", Index_086<Number>, {36.1, 9}, "32.7521869"},
        {"86 not dry enough", Index_086<Number>, {36.1, 14}, "33.5910024"},
        {"86 dry, above 112 F", Index_086<Number>, {45, 9}, "41.7092579"},
        {"86 humid", Index_086<Number>, {28.3, 92}, "35.4285647"},
        {"86 hardly humid", Index_086<Number>, {28.3, 85.4}, "33.8488136"},
        {"86 not humid enough", Index_086<Number>, {28.3, 84}, "33.5726793"},
        {"86 humid, above 87 F", Index_086<Number>, {30.8, 92}, "44.6513749"},
        {"87 at 80 F", Index_087<Number>, {26.66666666666667, 58}, "26.6666667"},
        {"87 above 80 F", Index_087<Number>, {26.666666666666675, 58}, "25.8712533"},
        {"87 at RH 40", Index_087<Number>, {31.7, 40}, "31.7"},
        {"87 above RH 40", Index_087<Number>, {31.7, 40.1}, "30.6992215"},
        {"87 warm", Index_087<Number>, {31.7, 58}, "34.1365579"},
        {"88", Index_088<Number>, {31.7, 58}, "35.82312"},
        {"89", Index_089<Number>, {31.7, 58}, "36.0995566"},
        {"90", Index_090<Number>, {31.7, 19.6}, "38.9517985"},
        {"92", Index_092<Number>, {31.7, 23.4}, "27.55"},
        {"93", Index_093<Number>, {31.7, 22.9}, "38.8666667"},
        {"94", Index_094<Number>, {31.7, 19.6}, "33.3"},
        {"104", Index_104<Number>, {23.4, 31.7}, "27.06"},
        {"115", Index_115<Number>, {23.4, 31.7}, "24.645"},
        {"153", Index_153<Number>, {23.4, 41.2, 2.3}, "35.6668498"},
        {"162", Index_162<Number>, {22.9}, "17.1764125"},
        {"163 below", Index_163<Number>, {18.7999999}, "0"},
        {"163 at", Index_163<Number>, {18.8}, "1"},
        {"163 above", Index_163<Number>, {18.9}, "1.05"},
        {"164", Index_164<Number>, {31.7, 58}, "-6.10991061"},
        {"165", Index_165<Number>, {31.7, 58}, "40.723654"},
        {"167", Index_167<Number>, {31.7, 58}, "22.78868"},
        {"168", Index_168<Number>, {31.7, 58}, "27.7139667"},
        {"169", Index_169<Number>, {31.7, 19.6}, "26.6327778"},
        {"170", Index_170<Number>, {31.7, 58}, "81.88514"},
        {"171", Index_171<Number>, {31.7, 58}, "27.7268"},
        {"172", Index_172<Number>, {31.7, 58}, "29.0372"},
        {"173", Index_173<Number>, {31.7, 19.6}, "33.710011"},
        {"175", Index_175<Number>, {23.4, 31.7, 2.3}, "23.59"},
        {"176", Index_176<Number>, {31.7, 23.4, 2.3, 58}, "91.9035425"},
        {"194", Index_194<Number>, {23.4, 41.2, 2.3}, "35.6180553"},
    };
    expectAll(cases);
}

// The heat index chart of the National Weather Service, in whole degrees Fahrenheit.
TEST(HumidHeat, HeatIndexChart)
{
    struct ChartCell {
        double fahrenheit, RH;
        const char* heatIndex;
    };
    const ChartCell cells[] = {{80, 40, "80"},  {84, 90, "98"},   {90, 50, "95"},
                               {96, 50, "108"}, {100, 60, "129"}, {110, 40, "136"}};
    for (const auto& [fahrenheit, RH, heatIndex] : cells)
        for (const auto index : {Index_086<Number>, Index_088<Number>})
            EXPECT_EQ(wholeDegrees(To_Fahrenheit(index(To_Celsius(fahrenheit), RH))), heatIndex)
                << fahrenheit << " °F, " << RH << " %";
}

// Its factor to Torr has digits of its own.
TEST(HumidHeat, SultrinessToTheLastDigit)
{
    EXPECT_EQ(Index_162<Number>(22.9).value(), 17.176412533925838);
}

// Masterson and Richardson (1979): 30 °C with a dew point of 15 °C has a humidex of 34.
TEST(HumidHeat, HumidexOfItsAuthors)
{
    EXPECT_EQ(wholeDegrees(Index_090<Number>(30, 15)), "34");
}

TEST(HumidHeat, HumiserySteps)
{
    struct Step {
        double Td, WS;
        const char* expected; // at Ta 33.3
    };
    const Step steps[] = {
        {20, 0, "33.3"},   {20.4, 0, "none"}, {20.5, 0, "none"}, {20.6, 0, "34.3"}, {21.5, 0, "36.3"},
        {22.5, 0, "36.3"}, {23, 0, "37.3"},   {24.5, 0, "39.3"}, {25, 0, "40.3"},   {26, 0, "42.3"},
        {27, 0, "44.3"},   {28, 0, "46.3"},   {29, 0, "47.3"},   {30, 0, "49.3"},   {31.4, 0, "51.3"},
        {31.5, 0, "none"}, {33, 0, "none"},   {19, 0.3, "33.3"}, {19, 1, "33.3"},   {19, 2.5, "33.3"},
        {19, 2.6, "31.3"}, {19, 3.5, "30.3"}, {19, 4.5, "30.3"}, {19, 4.6, "29.3"}, {19, 9, "29.3"},
        {19, -3, "33.3"},  {26, 3, "40.3"},
    };
    for (const Step& step : steps)
        EXPECT_EQ(shown([&] { return Index_091<Number>(33.3, step.Td, step.WS); }), step.expected)
            << "Td " << step.Td << ", WS " << step.WS;
}

} // namespace
} // namespace comfortics::tests
