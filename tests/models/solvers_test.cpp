// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/solvers.h"

#include "model_cases.h"
#include "texts/number_text.h"

#include <gtest/gtest.h>

#include <tuple>

namespace comfortics::tests {
namespace {

using namespace models;

struct Row {
    std::string name;
    std::string result;
    std::string expected; // its beginning
};

void expectAll(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        EXPECT_TRUE(row.result.starts_with(row.expected))
            << row.name << ": " << row.result << ", expected " << row.expected;
}

// The expected values of this file come from a separate evaluation of the balance in Python.

TEST(Convection, TakesTheWindAsItStands)
{
    const std::tuple<double, const char*, const char*> rows[] = {
        {1.7, "43.3146505", "19.6180071"},
        {0.1, "7.91344269", "5.50666373"},
        {0.04, "4.56668921", "3.84596224"},
    };
    for (const auto& [wind, cylinder, sphere] : rows) {
        EXPECT_EQ(shown([v = wind] { return Convection_Cylinder<Number>(293.5, 870, v); }), cylinder);
        EXPECT_EQ(shown([v = wind] { return Convection_Sphere<Number>(293.5, 870, v); }), sphere);
    }
}

std::string globe(double Ta, double RH, double WS, double SR)
{
    return shown([&] { return Globe_Temperature_Model(Ta, RH, WS, SR); });
}

std::string globeAt(double P, double fdir, double z)
{
    return shown([&] { return plain::Globe_Temperature_Model(31, 47, P, 1.4, 730, fdir, z); });
}

TEST(Globe, SolvesTheBalance)
{
    expectAll({
        {"sun", globe(31, 47, 1.4, 730), "43.5921064"},
        {"shade", globe(31, 47, 1.4, 0), "29.959515"},
        {"cold", globe(-17, 82, 3.2, 140), "-16.3817189"},
        {"heat", globe(57, 12, 0.2, 1300), "91.3596175"},
        {"still air", globe(31, 47, 0, 100), "34.0594557"},
        {"a gale swings the iteration", globe(0, 50, 30, 600), "no convergence"},
        {"a gale in great cold", globe(-40, 50, 20, 600),
         "fails: negative base with a fractional exponent (-"},
        {"pressure", globeAt(87, 0.8, 0), "44.2546819"},
        {"direct fraction", globeAt(101, 0.35, 0), "46.5871774"},
        {"low sun", globeAt(101, 0.8, 1.1), "49.9811703"},
        {"horizon", globeAt(101, 0.8, 1.57), "1025.7579"},
        {"below the horizon counts as 1.57", globeAt(101, 0.8, 1.65), "1025.7579"},
        {"a negative angle counts as 1e-10", globeAt(101, 0.8, -0.4), "43.5921064"},
    });
}

std::string wick(double Ta, double Td, double RH, double WS, double SR)
{
    return shown([&] { return Natural_Wet_Bulb(Ta, Td, RH, WS, SR); });
}

std::string wickAt(double SR, double P, double fdir, double z, double radiationSwitch)
{
    return shown([&] { return plain::Natural_Wet_Bulb(31, 18.2, 47, P, 1.4, SR, fdir, z, radiationSwitch); });
}

TEST(WetBulb, SolvesTheBalance)
{
    expectAll({
        {"sun", wick(31, 18.2, 47, 1.4, 730), "23.9746106"},
        {"shade", wick(31, 18.2, 47, 1.4, 0), "22.2501642"},
        {"cold", wick(-17, -19.3, 82, 3.2, 140), "-17.2323141"},
        {"heat", wick(57, 17, 12, 0.2, 1300), "36.3742659"},
        {"the first pass is within the tolerance", wick(4, 3.9, 99, 8, 55), "3.85233647"},
        {"thrown down on the way", wick(4.2, 4.1, 87, 5, 100), "3.36358385"},
        {"damp heat", wick(52.7, 50.8, 91, 0.9, 370), "no convergence"},
        {"still air", wick(31, 18.2, 47, 0, 100), "fails: division by zero"},
        {"pressure", wickAt(730, 87, 0.8, 0, 1), "23.6007036"},
        {"direct fraction", wickAt(730, 101, 0.35, 0, 1), "25.06323"},
        {"low sun", wickAt(730, 101, 0.8, 1.1, 1), "25.1817071"},
        {"no radiation", wickAt(730, 101, 0.8, 0, 0), "22.0802827"},
        {"a negative angle counts as 1e-10", wickAt(730, 101, 0.8, -0.4, 1), "23.9746106"},
        {"1.6 counts as 1.57", wickAt(0.5, 101, 0.8, 1.6, 1), "22.8310558"},
        {"15 W/m2: still 1.57", wickAt(15, 101, 0.8, 1.6, 1), "35.2396414"},
        {"above 15 W/m2 1.54", wickAt(15.5, 101, 0.8, 1.6, 1), "22.7531697"},
        {"900 W/m2: still 1.54", wickAt(900, 101, 0.8, 1.6, 1), "40.918444"},
        {"above 900 W/m2 1.52", wickAt(901, 101, 0.8, 1.6, 1), "35.8820301"},
    });
}

// The fast solvers against the plain ones, by bits, status and wording of the failure.
TEST(FastSolvers, AreThePlainOnes)
{
    Random random;
    for (int i = 0; i < 40000 / kSlowness; ++i) {
        double Ta = random.between(-60, 58);
        double RH = random.between(0.1, 100);
        double WS = random.size(0.1, 60);
        double SR = random.integer(0, 1376);
        double Td = Ta - random.between(0, 30);
        if (random.oneIn(4)) { // out of the ordinary
            Ta = random.between(-280, 900);
            Td = random.between(-290, 400);
            WS = random.oneIn(2) ? 0 : random.between(-1, 2000);
            RH = random.between(-10, 5000);
            SR = random.between(-3000, 9000);
        }
        SCOPED_TRACE(testing::Message() << "seed " << Random::kSeed << ": Ta " << Ta << " Td " << Td << " RH "
                                        << RH << " WS " << WS << " SR " << SR);
        ASSERT_EQ(
            shown([&] { return Globe_Temperature_Model(Ta, RH, WS, SR); }, kAllDigits),
            shown([&] { return plain::Globe_Temperature_Model(Ta, RH, 101, WS, SR, 0.8, 0); }, kAllDigits));
        ASSERT_EQ(
            shown([&] { return Natural_Wet_Bulb(Ta, Td, RH, WS, SR); }, kAllDigits),
            shown([&] { return plain::Natural_Wet_Bulb(Ta, Td, RH, 101, WS, SR, 0.8, 0, 1); }, kAllDigits));
    }
}

// By the robust rules an iteration without an end gives the root of its balance, and any other its value.
TEST(RobustSolvers, GiveTheRootWhereTheIterationHasNoEnd)
{
    const auto globe = [](double Ta, double RH, double WS, double SR, Rules rules = Rules::Robust) {
        return shown([&] { return Globe_Temperature_Model(Ta, RH, WS, SR, rules); }, 11);
    };
    const auto wick = [](double Ta, double Td, double RH, double WS, double SR, Rules rules = Rules::Robust) {
        return shown([&] { return Natural_Wet_Bulb(Ta, Td, RH, WS, SR, rules); }, 11);
    };
    expectAll({
        {"a gale swings the iteration", globe(0, 50, 30, 600), "2.610214968"},
        {"a gale in great cold", globe(-40, 50, 20, 600), "-36.81373451"},
        {"damp heat", wick(52.7, 50.8, 91, 0.9, 370), "51.39189240"},
        {"saturated heat", wick(43.4, 43.4, 100, 0.2, 630), "45.42509827"},
        {"cold", wick(-39.7, -48.6, 37.7, 13.7, 904), "-38.16"},
        {"no heat goes through still air", wick(31, 18.2, 47, 0, 100), "fails: division by zero"},
        {"no air", globe(-300, 50, 2, 600), "fails: "},
    });

    Random random;
    for (int i = 0; i < 3000 / kSlowness; ++i) {
        const double Ta = random.between(-45, 50);
        const double RH = random.between(1, 100);
        const double WS = random.size(0.1, 30);
        const double SR = random.integer(0, 1367);
        const double Td = Ta - random.between(0, 30);
        SCOPED_TRACE(testing::Message() << "seed " << Random::kSeed << ": Ta " << Ta << " Td " << Td << " RH "
                                        << RH << " WS " << WS << " SR " << SR);
        const std::string classicGlobe = globe(Ta, RH, WS, SR, Rules::Classic);
        const std::string classicWick = wick(Ta, Td, RH, WS, SR, Rules::Classic);
        if (texts::isNumeric(classicGlobe)) {
            ASSERT_EQ(globe(Ta, RH, WS, SR), classicGlobe);
        } else {
            const GlobeBalance<double> air(Ta, RH, kSitePressure, WS, kDirectFraction, kZenith);
            const double T = Globe_Temperature_Model(Ta, RH, WS, SR, Rules::Robust).celsius + 273.15;
            const auto surplus = [&](double Tp) {
                return air.withoutSun(Tp) + air.solar(SR) - std::pow(Tp, 4);
            };
            ASSERT_GT(surplus(T - 1e-6), 0);
            ASSERT_LT(surplus(T + 1e-6), 0);
        }
        if (texts::isNumeric(classicWick)) {
            ASSERT_EQ(wick(Ta, Td, RH, WS, SR), classicWick);
        } else {
            // Begun at its root the iteration ends in its first pass.
            const double root = Natural_Wet_Bulb(Ta, Td, RH, WS, SR, Rules::Robust).celsius;
            ASSERT_NEAR(Natural_Wet_Bulb(Ta, root, RH, WS, SR).celsius, root, 1e-6);
        }
    }
}

} // namespace
} // namespace comfortics::tests
