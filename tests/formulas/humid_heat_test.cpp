// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/humid_heat.h"

#include "formula_cases.h"
#include "formulas/primitives.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

std::string wholeDegrees(const Variant& value)
{
    return values::format(value, values::kFormat0);
}

TEST(HumidHeat, FormulasWithoutBranches)
{
    expectAll({
        {"53 Thom, first", [] { return Index_053(23.4, 31.7); }, "73.572"},
        {"54 Thom, second", [] { return Index_054(31.7, 23.4); }, "80.272"},
        {"55 Giles", [] { return Index_055(31.7, 58); }, "27.7268"},
        {"56 Kawamura", [] { return Index_056(31.7, 19.6); }, "79.939"},
        {"57 Tennenbaum", [] { return Index_057(31.7, 23.4); }, "27.55"},
        {"58 South Africa", [] { return Index_058(31.7, 58); }, "105.786"},
        {"88 Rothfusz", [] { return Index_088(31.7, 58); }, "35.82312"},
        {"88 Rothfusz in cool air, no branch", [] { return Index_088(9.3, 58); }, "39.4534045"},
        {"89 Stull", [] { return Index_089(31.7, 58); }, "36.0995566"},
        {"89 Stull, dry", [] { return Index_089(41.2, 17); }, "40.5605688"},
        {"90 Masterson", [] { return Index_090(31.7, 19.6); }, "38.9517985"},
        {"92 Hevener", [] { return Index_092(31.7, 23.4); }, "27.55"},
        {"93 Lally", [] { return Index_093(31.7, 22.9); }, "38.8666667"},
        {"94 Weiss", [] { return Index_094(31.7, 19.6); }, "33.3"},
        {"104 Moran", [] { return Index_104(23.4, 31.7); }, "27.06"},
        {"115 Lind", [] { return Index_115(23.4, 31.7); }, "24.645"},
        {"153 Auliciems", [] { return Index_153(23.4, 41.2, 2.3); }, "35.6668498"},
        {"162 Scharlau sultriness", [] { return Index_162(22.9); }, "17.1764125"},
        {"164 Scharlau summer", [] { return Index_164(31.7, 58); }, "-6.10991061"},
        {"165 Pepi simmer", [] { return Index_165(31.7, 58); }, "40.723654"},
        {"167 Costanzo", [] { return Index_167(31.7, 58); }, "22.78868"},
        {"168 Pepi, first", [] { return Index_168(31.7, 58); }, "27.7139667"},
        {"169 Pepi, second", [] { return Index_169(31.7, 19.6); }, "26.6327778"},
        {"170 Romania", [] { return Index_170(31.7, 58); }, "81.88514"},
        {"171 Kyle", [] { return Index_171(31.7, 58); }, "27.7268"},
        {"172 Nieuwolt", [] { return Index_172(31.7, 58); }, "29.0372"},
        {"173 Schoen", [] { return Index_173(31.7, 19.6); }, "33.710011"},
        {"175 Vogt", [] { return Index_175(23.4, 31.7, 2.3); }, "23.59"},
        {"176 Zaninovic", [] { return Index_176(unusualAssumptions(), 31.7, 23.4, 2.3, 58); }, "91.9035425"},
        {"194 Sharma", [] { return Index_194(23.4, 41.2, 2.3); }, "35.6180553"},
    });
}

// The heat index chart of the National Weather Service, in whole degrees Fahrenheit.
TEST(HumidHeat, HeatIndexChart)
{
    struct ChartCell {
        double fahrenheit;
        double RH;
        std::string chart;
    };
    const std::vector<ChartCell> cells{
        {80, 40, "80"},  {84, 90, "98"},  {88, 85, "110"},  {90, 50, "95"},   {90, 70, "106"},
        {94, 55, "106"}, {96, 50, "108"}, {100, 40, "109"}, {100, 60, "129"}, {110, 40, "136"},
    };
    for (const ChartCell& cell : cells) {
        const Number Ta = To_Celsius(cell.fahrenheit);
        EXPECT_EQ(wholeDegrees(To_Fahrenheit(Index_086(Ta, cell.RH).number())), cell.chart)
            << "index 86 at " << cell.fahrenheit << " F, " << cell.RH << " %";
        EXPECT_EQ(wholeDegrees(To_Fahrenheit(Index_088(Ta, cell.RH).number())), cell.chart)
            << "index 88 at " << cell.fahrenheit << " F, " << cell.RH << " %";
    }
}

// Masterson and Richardson (1979): 30 °C with a dew point of 15 °C has a humidex of 34.
TEST(HumidHeat, HumidexOfItsAuthors)
{
    EXPECT_EQ(wholeDegrees(Index_090(30, 15)), "34");
}

TEST(HumidHeat, HeatIndexBranches)
{
    // Neighbouring doubles: one reads exactly 40 or 80 °F, the next one just above or below.
    expectAll({
        {"85 at 20", [] { return Index_085(20, 58); }, "empty"},
        {"85 above 20", [] { return Index_085(20.1, 58); }, "24.6836846"},
        {"85 warm", [] { return Index_085(31.7, 58); }, "35.8231283"},
        {"86 at 40 F", [] { return Index_086(4.444444444444446, 58); }, "4.44444444"},
        {"86 above 40 F", [] { return Index_086(4.444444444444447, 58); }, "2.45888889"},
        {"86 below 80 F", [] { return Index_086(26.666666666666657, 58); }, "26.9033333"},
        {"86 at 80 F", [] { return Index_086(26.66666666666667, 58); }, "27.5547557"},
        {"86 at 80 F, dry", [] { return Index_086(26.66666666666667, 9); }, "25.4072702"},
        {"86 at 80 F, humid", [] { return Index_086(26.66666666666667, 92); }, "30.5112918"},
        {"86 dry", [] { return Index_086(36.1, 9); }, "32.7521869"},
        {"86 dry, below 95 F", [] { return Index_086(31.7, 9); }, "29.0838607"},
        {"86 not dry enough", [] { return Index_086(36.1, 14); }, "33.5910024"},
        {"86 dry, above 112 F", [] { return Index_086(45, 9); }, "41.7092579"},
        {"86 humid", [] { return Index_086(28.3, 92); }, "35.4285647"},
        {"86 hardly humid", [] { return Index_086(28.3, 85.4); }, "33.8488136"},
        {"86 not humid enough", [] { return Index_086(28.3, 84); }, "33.5726793"},
        {"86 humid, above 87 F", [] { return Index_086(30.8, 92); }, "44.6513749"},
        {"87 at 80 F", [] { return Index_087(26.66666666666667, 58); }, "26.6666667"},
        {"87 above 80 F", [] { return Index_087(26.666666666666675, 58); }, "25.8712533"},
        {"87 at RH 40", [] { return Index_087(31.7, 40); }, "31.7"},
        {"87 above RH 40", [] { return Index_087(31.7, 40.1); }, "30.6992215"},
        {"87 warm", [] { return Index_087(31.7, 58); }, "34.1365579"},
    });
}

TEST(HumidHeat, HumiserySteps)
{
    struct Step {
        double Td;
        double WS;
        std::string expected; // at Ta 33.3
    };
    const std::vector<Step> steps{
        {20, 0, "33.3"},    {20.4, 0, "empty"}, {20.5, 0, "empty"}, {20.6, 0, "34.3"}, {21.5, 0, "36.3"},
        {22.5, 0, "36.3"},  {23, 0, "37.3"},    {24.5, 0, "39.3"},  {25, 0, "40.3"},   {26, 0, "42.3"},
        {27, 0, "44.3"},    {28, 0, "46.3"},    {29, 0, "47.3"},    {30, 0, "49.3"},   {31.4, 0, "51.3"},
        {31.5, 0, "empty"}, {33, 0, "empty"},   {19, 0.3, "33.3"},  {19, 1, "33.3"},   {19, 2.5, "33.3"},
        {19, 2.6, "31.3"},  {19, 3.5, "30.3"},  {19, 4.5, "30.3"},  {19, 4.6, "29.3"}, {19, 9, "29.3"},
        {19, -3, "33.3"},   {26, 3, "40.3"},
    };
    for (const Step& step : steps)
        EXPECT_EQ(shown([&] { return Index_091(33.3, step.Td, step.WS); }), step.expected)
            << "Td " << step.Td << ", WS " << step.WS;
}

TEST(HumidHeat, SultrinessThreshold)
{
    expectAll({
        {"163 below", [] { return Index_163(18.7999999); }, "0"},
        {"163 at", [] { return Index_163(18.8); }, "1"},
        {"163 above", [] { return Index_163(18.8000001); }, "1.00000005"},
        {"163 sultry", [] { return Index_163(22.9); }, "3.05"},
    });
}

TEST(HumidHeat, FailuresReachTheCaller)
{
    Assumptions withoutPressure;
    withoutPressure.Barometric = 0;
    expectAll({
        {"90 absolute zero", [] { return Index_090(31.7, -273.15); }, "fails"},
        {"153 negative wind", [] { return Index_153(23.4, 41.2, -0.1); }, "fails"},
        {"164 dry air", [] { return Index_164(31.7, 0); }, "fails"},
        {"176 negative wind", [] { return Index_176(unusualAssumptions(), 31.7, 23.4, -0.1, 58); }, "fails"},
        {"176 no pressure", [&] { return Index_176(withoutPressure, 31.7, 23.4, 2.3, 58); }, "fails"},
        {"194 negative wind", [] { return Index_194(23.4, 41.2, -0.1); }, "fails"},
    });
}

} // namespace
} // namespace comfortics::tests
