// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/cold.h"

#include "formula_cases.h"
#include "texts/number_text.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(Cold, Formulas)
{
    const FormulaCase cases[] = {
        {"21", Index_021<Number>, {-12.7, 63, 5.3}, "5.51033038"},
        {"21, below -90 °C", Index_021<Number>, {-90.1, 63, 5.3}, "7.97246753"},
        {"21, hole at -90 °C", Index_021<Number>, {-90, 63, 5.3}, "0"},
        {"21, above -90 °C", Index_021<Number>, {-89.9, 63, 5.3}, "0.0326073922"},
        {"21, below 22 °C", Index_021<Number>, {21.9, 63, 5.3}, "7.96537204"},
        {"21, at 22 °C", Index_021<Number>, {22, 63, 5.3}, "7.97246753"},
        {"21, above 22 °C", Index_021<Number>, {22.1, 63, 5.3}, "7.95149994"},
        {"21, at 60 °C", Index_021<Number>, {60, 63, 5.3}, "0.00478348052"},
        {"21, above 60 °C", Index_021<Number>, {60.1, 63, 5.3}, "7.97246753"},
        {"21, dry air", Index_021<Number>, {-12.7, 38, 5.3}, "5.54117179"},
        {"21, at 50 %", Index_021<Number>, {-12.7, 50, 5.3}, "5.94013259"},
        {"24", Index_024<Number>, {-12.7, 5.3}, "5.45320968"},
        {"74", Index_074<Number>, {-12.7, 5.3}, "1.64802571"},
        {"74, light wind, power form", Index_074<Number>, {-12.7, 0.6}, "20.3628515"},
        {"74, at 1 m/s", Index_074<Number>, {-12.7, 1}, "16.7811321"},
        {"74, still air", Index_074<Number>, {-12.7, 0}, "fails"},
        {"75", Index_075<Number>, {-12.7, 5.3}, "6.32282947"},
        {"76", Index_076<Number>, {-12.7, 5.3}, "-0.677170526"},
        {"77", Index_077<Number>, {-12.7, 5.3}, "4.32282947"},
        {"95", Index_095<Number>, {-12.7, 5.3}, "2.69758431"},
        {"95, just above the cut", Index_095<Number>, {27.2, 1.3}, "0.00763945875"},
        {"95, cut to 0", Index_095<Number>, {27.5, 1.3}, "0"},
        {"108", Index_108<Number>, {-12.7, 5.3}, "-5.87696114"},
        {"138", Index_138<Number>, {5.3, -12.7}, "1315.87138"},
        {"142", Index_142<Number>, {-12.7, 5.3, 63}, "2.9309989"},
        {"143", Index_143<Number>, {-12.7, 5.3, 63}, "4.3102925"},
        {"144", Index_144<Number>, {-12.7, 5.3, 63}, "3.6206457"},
        {"145", Index_145<Number>, {-12.7, 5.3, 63}, "3.7930574"},
        {"146", Index_146<Number>, {-12.7, 5.3, 63}, "3.9654691"},
        {"147", Index_147<Number>, {-12.7, 5.3, 63}, "4.1378808"},
        {"148", Index_148<Number>, {-12.7, 5.3, 63}, "3.1034106"},
        {"149", Index_149<Number>, {-12.7, 5.3, 63}, "3.2758223"},
        {"150", Index_150<Number>, {-12.7, 5.3, 63}, "3.448234"},
        {"174", Index_174<Number>, {-12.7, 7.3}, "32.746"},
        {"174, nothing at hand", Index_174<Number>, {18.1, 0}, "32.6"},
        {"179", Index_179<Number>, {1.3}, "0.126352377"},
        {"180", Index_180<Number>, {1.3}, "0.177806945"},
        {"181", Index_181<Number>, {1.3}, "0.220600339"},
        {"182", Index_182<Number>, {1.3}, "0.258595771"},
        {"211", Index_211<Number>, {-12.7, 5.3}, "-23.6995021"},
        {"212", Index_212<Number>, {5.3, -12.7}, "1287.44801"},
        {"213", Index_213<Number>, {-12.7, 5.3, -4.6}, "1465.31236"},
        {"213, negative height", Index_213<Number>, {-12.7, 5.3, -4.6}, "fails", kNegativeHeight},
        {"214", Index_214<Number>, {-12.7, 5.3}, "-18.091519"},
        {"216", Index_216<Number>, {5.3}, "9.61833379"},
        {"217", Index_217<Number>, {5.3}, "12.8150055"},
        {"218", Index_218<Number>, {5.3}, "10.2768038"},
        {"219", Index_219<Number>, {5.3}, "6.60901292"},
        {"220", Index_220<Number>, {5.3}, "7.38018021"},
        {"221", Index_221<Number>, {5.3}, "9.61833379"},
        {"222", Index_222<Number>, {-12.7, 63}, "-13.2271"},
    };
    expectAll(cases);
}

// The charts published with the formulas, in whole degrees: wind chill in °C by Environment Canada (2001),
// the wind in km/h at 10 m, so that the profile exponent is 0 here, and in °F by the National Weather
// Service (2001), the wind in mph.
TEST(Cold, WindChillCharts)
{
    struct Entry {
        double Ta, WS;
        const char* windChill;
    };
    const Assumptions level = unusualAssumptions(&Assumptions::Friction, 0);
    const Entry metric[] = {{5, 5, "4"}, {0, 15, "-4"}, {-10, 20, "-18"}, {-30, 40, "-48"}, {-50, 80, "-81"}};
    for (const auto& [Ta, WS, windChill] : metric)
        EXPECT_EQ(texts::format(Index_211<Number>(level, Ta, WS / 3.6).value(), values::kFormat0), windChill)
            << Ta << " °C";
    const Entry imperial[] = {
        {40, 5, "36"}, {20, 5, "13"}, {0, 15, "-19"}, {-25, 5, "-40"}, {-45, 60, "-98"}};
    for (const auto& [Ta, WS, windChill] : imperial)
        EXPECT_EQ(
            texts::format(Index_108<Number>((Ta - 32) / 1.8, WS / 2.2369362912).value(), values::kFormat0),
            windChill)
            << Ta << " °F";
}

TEST(Cold, SeverityByHumidity)
{
    const std::pair<double, const char*> rows[] = {
        {60, "3.7567602"},   {60.1, "3.9654691"}, {70, "3.9654691"},   {70.1, "4.174178"}, {80, "4.174178"},
        {80.1, "4.3828869"}, {90, "4.3828869"},   {90.1, "4.5915958"}, {100, "4.5915958"}, {100.1, "0"}};
    for (const auto& [RH, severity] : rows)
        EXPECT_EQ(shown([RH = RH] { return Index_146<Number>(-12.7, 5.3, RH); }), severity) << RH << " %";
}

} // namespace
} // namespace comfortics::tests
