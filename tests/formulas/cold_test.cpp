// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/cold.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

/// The discarded body surface area fails on a negative height.
Assumptions negativeHeight()
{
    Assumptions assumptions = unusualAssumptions();
    assumptions.Height = -0.62;
    return assumptions;
}

/// Charts give whole degrees.
Variant rounded(const Variant& result)
{
    return values::roundHalfEven(result.number());
}

// The charts published with the formulas: wind chill in °C by Environment Canada (2001), the wind in
// km/h at 10 m, so that the profile exponent is 0 here, and in °F by the National Weather Service
// (2001), the wind in mph.
TEST(Cold, windChillCharts)
{
    struct Entry {
        double temperature;
        double wind;
        const char* windChill;
    };
    constexpr Entry kMetric[]{{5, 5, "4"},      {0, 15, "-4"},    {-5, 10, "-9"},   {-10, 20, "-18"},
                              {-20, 30, "-33"}, {-30, 40, "-48"}, {-40, 50, "-63"}, {-50, 80, "-81"}};
    Assumptions level = unusualAssumptions();
    level.Friction = 0;
    for (const Entry& entry : kMetric)
        EXPECT_EQ(shown([&] { return rounded(Index_211(level, entry.temperature, entry.wind / 3.6)); }),
                  entry.windChill)
            << entry.temperature << " °C, " << entry.wind << " km/h";

    constexpr Entry kImperial[]{{40, 5, "36"},    {30, 15, "19"},  {20, 5, "13"},   {0, 15, "-19"},
                                {-10, 15, "-32"}, {-25, 5, "-40"}, {-45, 60, "-98"}};
    for (const Entry& entry : kImperial)
        EXPECT_EQ(shown([&] {
                      const Number Ta = (entry.temperature - 32) / 1.8;
                      return rounded(Index_108(Ta, entry.wind / 2.2369362912));
                  }),
                  entry.windChill)
            << entry.temperature << " °F, " << entry.wind << " mph";
}

TEST(Cold, windChill)
{
    expectAll({
        {"24", [] { return Index_024(unusualAssumptions(), -12.7, 5.3); }, "5.45320968"},
        {"108", [] { return Index_108(-12.7, 5.3); }, "-5.87696114"},
        {"138", [] { return Index_138(5.3, -12.7); }, "1315.87138"},
        {"211", [] { return Index_211(unusualAssumptions(), -12.7, 5.3); }, "-23.6995021"},
        {"212", [] { return Index_212(5.3, -12.7); }, "1287.44801"},
        {"211, still air", [] { return Index_211(unusualAssumptions(), -12.7, 0); }, "5.22695"},
        {"212, still air", [] { return Index_212(0, -12.7); }, "477.565"},
        {"214", [] { return Index_214(-12.7, 5.3); }, "-18.091519"},
        {"213", [] { return Index_213(unusualAssumptions(), -12.7, 5.3, -4.6); }, "1465.31236"},
        {"213, light wind, power form", [] { return Index_213(unusualAssumptions(), -12.7, 0.6, -4.6); },
         "412.475145"},
        {"213, at 1 m/s", [] { return Index_213(unusualAssumptions(), -12.7, 1, -4.6); }, "510.540361"},
        {"213, linear form", [] { return Index_213(unusualAssumptions(), -12.7, 1.7, -4.6); }, "665.968361"},
        {"213, still air", [] { return Index_213(unusualAssumptions(), -12.7, 0, -4.6); }, "139.050361"},
    });
}

TEST(Cold, skinAndBreath)
{
    expectAll({
        {"74", [] { return Index_074(-12.7, 5.3); }, "1.64802571"},
        {"74, light wind, power form", [] { return Index_074(-12.7, 0.6); }, "20.3628515"},
        {"74, at 1 m/s", [] { return Index_074(-12.7, 1); }, "16.7811321"},
        {"74, linear form", [] { return Index_074(-12.7, 1.7); }, "12.4610306"},
        {"75", [] { return Index_075(-12.7, 5.3); }, "6.32282947"},
        {"76", [] { return Index_076(-12.7, 5.3); }, "-0.677170526"},
        {"77", [] { return Index_077(-12.7, 5.3); }, "4.32282947"},
        {"174", [] { return Index_174(-12.7, 7.3); }, "32.746"},
        {"174, nothing at hand", [] { return Index_174(18.1, 0); }, "32.6"},
    });
}

TEST(Cold, clothing)
{
    expectAll({
        {"95", [] { return Index_095(-12.7, 5.3); }, "2.69758431"},
        {"95, just above the cut", [] { return Index_095(27.2, 1.3); }, "0.00763945875"},
        {"95, cut to 0", [] { return Index_095(27.5, 1.3); }, "0"},
        {"179", [] { return Index_179(1.3); }, "0.126352377"},
        {"180", [] { return Index_180(1.3); }, "0.177806945"},
        {"181", [] { return Index_181(1.3); }, "0.220600339"},
        {"182", [] { return Index_182(1.3); }, "0.258595771"},
    });
}

TEST(Cold, bioclimaticSeverity)
{
    expectAll({
        {"21", [] { return Index_021(unusualAssumptions(), -12.7, 63, 5.3); }, "5.51033038"},
        {"21, below -90 °C", [] { return Index_021(unusualAssumptions(), -90.1, 63, 5.3); }, "7.97246753"},
        {"21, hole at -90 °C", [] { return Index_021(unusualAssumptions(), -90, 63, 5.3); }, "0"},
        {"21, above -90 °C", [] { return Index_021(unusualAssumptions(), -89.9, 63, 5.3); }, "0.0326073922"},
        {"21, below 22 °C", [] { return Index_021(unusualAssumptions(), 21.9, 63, 5.3); }, "7.96537204"},
        {"21, at 22 °C", [] { return Index_021(unusualAssumptions(), 22, 63, 5.3); }, "7.97246753"},
        {"21, above 22 °C", [] { return Index_021(unusualAssumptions(), 22.1, 63, 5.3); }, "7.95149994"},
        {"21, at 60 °C", [] { return Index_021(unusualAssumptions(), 60, 63, 5.3); }, "0.00478348052"},
        {"21, above 60 °C", [] { return Index_021(unusualAssumptions(), 60.1, 63, 5.3); }, "7.97246753"},
        {"21, dry air", [] { return Index_021(unusualAssumptions(), -12.7, 38, 5.3); }, "5.54117179"},
        {"21, at 50 %", [] { return Index_021(unusualAssumptions(), -12.7, 50, 5.3); }, "5.94013259"},
    });
}

TEST(Cold, severityByRange)
{
    expectAll({
        {"142", [] { return Index_142(-12.7, 5.3, 63); }, "2.9309989"},
        {"143", [] { return Index_143(-12.7, 5.3, 63); }, "4.3102925"},
        {"144", [] { return Index_144(-12.7, 5.3, 63); }, "3.6206457"},
        {"145", [] { return Index_145(-12.7, 5.3, 63); }, "3.7930574"},
        {"146", [] { return Index_146(-12.7, 5.3, 63); }, "3.9654691"},
        {"147", [] { return Index_147(-12.7, 5.3, 63); }, "4.1378808"},
        {"148", [] { return Index_148(-12.7, 5.3, 63); }, "3.1034106"},
        {"149", [] { return Index_149(-12.7, 5.3, 63); }, "3.2758223"},
        {"150", [] { return Index_150(-12.7, 5.3, 63); }, "3.448234"},
    });
}

TEST(Cold, severityByHumidity)
{
    expectAll({
        {"146, 60 %", [] { return Index_146(-12.7, 5.3, 60); }, "3.7567602"},
        {"146, 60.1 %", [] { return Index_146(-12.7, 5.3, 60.1); }, "3.9654691"},
        {"146, 70 %", [] { return Index_146(-12.7, 5.3, 70); }, "3.9654691"},
        {"146, 70.1 %", [] { return Index_146(-12.7, 5.3, 70.1); }, "4.174178"},
        {"146, 80 %", [] { return Index_146(-12.7, 5.3, 80); }, "4.174178"},
        {"146, 80.1 %", [] { return Index_146(-12.7, 5.3, 80.1); }, "4.3828869"},
        {"146, 90 %", [] { return Index_146(-12.7, 5.3, 90); }, "4.3828869"},
        {"146, 90.1 %", [] { return Index_146(-12.7, 5.3, 90.1); }, "4.5915958"},
        {"146, 100 %", [] { return Index_146(-12.7, 5.3, 100); }, "4.5915958"},
        {"146, 100.1 %", [] { return Index_146(-12.7, 5.3, 100.1); }, "0"},
    });
}

TEST(Cold, wind)
{
    expectAll({
        {"216", [] { return Index_216(unusualAssumptions(), 5.3); }, "9.61833379"},
        {"217", [] { return Index_217(5.3); }, "12.8150055"},
        {"218", [] { return Index_218(5.3); }, "10.2768038"},
        {"219", [] { return Index_219(5.3); }, "6.60901292"},
        {"220", [] { return Index_220(5.3); }, "7.38018021"},
        {"221", [] { return Index_221(unusualAssumptions(), 5.3); }, "9.61833379"},
        {"222", [] { return Index_222(-12.7, 63); }, "-13.2271"},
    });
}

TEST(Cold, failures)
{
    expectAll({
        {"74, still air", [] { return Index_074(-12.7, 0); }, "fails"},
        {"75, negative wind", [] { return Index_075(-12.7, -0.4); }, "fails"},
        {"76, negative wind", [] { return Index_076(-12.7, -0.4); }, "fails"},
        {"77, negative wind", [] { return Index_077(-12.7, -0.4); }, "fails"},
        {"95, negative wind", [] { return Index_095(-12.7, -0.4); }, "fails"},
        {"108, negative wind", [] { return Index_108(-12.7, -0.4); }, "fails"},
        {"138, negative wind", [] { return Index_138(-0.4, -12.7); }, "fails"},
        {"211, negative wind", [] { return Index_211(unusualAssumptions(), -12.7, -0.4); }, "fails"},
        {"212, negative wind", [] { return Index_212(-0.4, -12.7); }, "fails"},
        {"213, negative wind", [] { return Index_213(unusualAssumptions(), -12.7, -0.4, -4.6); }, "fails"},
        {"213, negative height", [] { return Index_213(negativeHeight(), -12.7, 5.3, -4.6); }, "fails"},
    });
}

} // namespace
} // namespace comfortics::tests
