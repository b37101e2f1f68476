// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/solvers.h"

#include "model_cases.h"

#include <gtest/gtest.h>

#include <tuple>

namespace comfortics::tests {
namespace {

using namespace models;

struct Row {
    std::string name;
    std::string result;
    std::string expected;
};

void expectAll(const std::vector<Row>& rows)
{
    for (const Row& row : rows)
        EXPECT_EQ(row.result, row.expected) << row.name;
}

// The expected values of this file come from a separate evaluation of the balance in Python.

TEST(Convection, RaisesAWindThatIsANumber)
{
    const std::tuple<Variant, const char*, const char*, Variant> rows[] = {
        {1.7, "43.3146505", "19.6180071", 1.7},
        {0.1, "7.91344269", "5.50666373", 0.1},
        {0.04, "7.91344269", "5.50666373", 0.1},
        {"0.04", "4.56668921", "3.84596224", "0.04"}, // a text is above every number
        {Variant(), "7.91344269", "5.50666373", 0.1}, // Empty counts as 0
    };
    for (const auto& [before, cylinder, sphere, after] : rows) {
        Variant wind = before;
        EXPECT_EQ(shown([&] { return Convection_Cylinder(293.5, 870, wind, 0.1); }), cylinder)
            << before.text();
        EXPECT_EQ(wind, after);
        wind = before;
        EXPECT_EQ(shown([&] { return Convection_Sphere(293.5, 870, wind, 0.1); }), sphere) << before.text();
        EXPECT_EQ(wind, after);
    }
}

std::string plainGlobe(double Ta, double RH, double v, double SR, double P = 101, double fdir = 0.8,
                       double z = 0)
{
    Variant wind = v;
    return shown([&] { return plain::Globe_Temperature_Model(Ta, RH, P, wind, SR, fdir, z, 0); });
}

std::string plainWick(double SR, double P, double fdir, double z, double radiationSwitch)
{
    Variant wind = 1.4;
    return shown(
        [&] { return plain::Natural_Wet_Bulb(31, 18.2, 47, P, wind, 0, SR, fdir, z, radiationSwitch); });
}

TEST(Globe, SolvesTheBalance)
{
    const double inputs[][4] = {
        {31, 47, 1.4, 730}, {31, 47, 1.4, 0}, {-17, 82, 3.2, 140}, {57, 12, 0.2, 1300}, {4, 99, 8, 55}};
    const char* const expected[] = {"43.5921064", "29.959515", "-16.3817189", "91.3596175", "3.78928519"};
    for (std::size_t i = 0; i < std::size(inputs); ++i) {
        const double Ta = inputs[i][0], RH = inputs[i][1], WS = inputs[i][2], SR = inputs[i][3];
        EXPECT_EQ(plainGlobe(Ta, RH, WS, SR), expected[i]) << "row " << i;
        EXPECT_EQ(shown([&] { return Globe_Temperature_Model(Ta, RH, WS, SR); }), expected[i]) << "row " << i;
    }
}

TEST(Globe, SiteAndZenith)
{
    expectAll({
        {"pressure", plainGlobe(31, 47, 1.4, 730, 87), "44.2546819"},
        {"direct fraction", plainGlobe(31, 47, 1.4, 730, 101, 0.35), "46.5871774"},
        {"low sun", plainGlobe(31, 47, 1.4, 730, 101, 0.8, 1.1), "49.9811703"},
        {"horizon", plainGlobe(31, 47, 1.4, 730, 101, 0.8, 1.57), "1025.7579"},
        {"below the horizon counts as 1.57", plainGlobe(31, 47, 1.4, 730, 101, 0.8, 1.65), "1025.7579"},
        {"a negative angle counts as 1e-10", plainGlobe(31, 47, 1.4, 730, 101, 0.8, -0.4), "43.5921064"},
    });
}

TEST(Globe, EndsWithoutATemperature)
{
    expectAll({
        {"a gale swings the iteration", shown([] { return Globe_Temperature_Model(0, 50, 30, 600); }),
         "no convergence"},
        {"the same, plainly", plainGlobe(0, 50, 30, 600), "no convergence"},
        {"a gale in great cold",
         shown([] { return Globe_Temperature_Model(-40, 50, 20, 600); }).substr(0, 50),
         "fails: negative base with a fractional exponent (-"},
        {"below 0 K", shown([] { return Globe_Temperature_Model(-300, 50, 1, 600); }).substr(0, 19),
         "fails: negative bas"},
        {"still air", shown([] { return Globe_Temperature_Model(31, 47, 0, 100); }), "34.0594557"},
    });
}

TEST(WetBulb, SolvesTheBalance)
{
    const double inputs[][5] = {
        {31, 18.2, 47, 1.4, 730}, {31, 18.2, 47, 1.4, 0},   {-17, -19.3, 82, 3.2, 140},
        {57, 17, 12, 0.2, 1300},  {4, 3.9, 99, 8, 55}, // the first pass is within the tolerance
        {38.5, 35.1, 77, 0.1, 0}, {30.8, 29.2, 81, 5, 100}, {4.2, 4.1, 87, 5, 100}, // thrown down on the way
    };
    const char* const expected[] = {"23.9746106", "22.2501642", "-17.2323141", "36.3742659",
                                    "3.85233647", "34.9823773", "28.0809302",  "3.36358385"};
    for (std::size_t i = 0; i < std::size(inputs); ++i) {
        const double Ta = inputs[i][0], Td = inputs[i][1], RH = inputs[i][2];
        const double WS = inputs[i][3], SR = inputs[i][4];
        EXPECT_EQ(shown([&] { return Natural_Wet_Bulb(Ta, Td, RH, WS, SR); }), expected[i]) << "row " << i;
    }
}

TEST(WetBulb, SiteZenithAndSwitch)
{
    expectAll({
        {"pressure", plainWick(730, 87, 0.8, 0, 1), "23.6007036"},
        {"direct fraction", plainWick(730, 101, 0.35, 0, 1), "25.06323"},
        {"low sun", plainWick(730, 101, 0.8, 1.1, 1), "25.1817071"},
        {"no radiation", plainWick(730, 101, 0.8, 0, 0), "22.0802827"},
        {"a negative angle counts as 1e-10", plainWick(730, 101, 0.8, -0.4, 1), "23.9746106"},
        {"1.6 counts as 1.57", plainWick(0.5, 101, 0.8, 1.6, 1), "22.8310558"},
        {"15 W/m2: still 1.57", plainWick(15, 101, 0.8, 1.6, 1), "35.2396414"},
        {"above 15 W/m2 1.54", plainWick(15.5, 101, 0.8, 1.6, 1), "22.7531697"},
        {"900 W/m2: still 1.54", plainWick(900, 101, 0.8, 1.6, 1), "40.918444"},
        {"above 900 W/m2 1.52", plainWick(901, 101, 0.8, 1.6, 1), "35.8820301"},
    });
}

TEST(WetBulb, EndsWithoutATemperature)
{
    expectAll({
        {"damp heat", shown([] { return Natural_Wet_Bulb(52.7, 50.8, 91, 0.9, 370); }), "no convergence"},
        {"still air", shown([] { return Natural_Wet_Bulb(31, 18.2, 47, 0, 100); }),
         "fails: division by zero"},
    });
}

TEST(RadiantTemperature, FromTheGlobe)
{
    expectAll({
        {"wind decides", shown([] { return MRT_From_Globe(22, 31, 1.3); }), "52.1285984"},
        {"buoyancy decides", shown([] { return MRT_From_Globe(22, 31, 0.02); }), "36.4028397"},
        {"still air", shown([] { return MRT_From_Globe(22, 31, 0); }), "36.4028397"},
        {"globe below air", shown([] { return MRT_From_Globe(30, 24, 2.1); }), "-1.42237823"},
        {"globe at air temperature", shown([] { return MRT_From_Globe(25, 25, 7); }), "25"},
        {"globe far below air", shown([] { return MRT_From_Globe(60, 0, 9); }).substr(0, 48),
         "fails: negative base with a fractional exponent "},
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
        const int unusual = random.integer(0, 11); // every fourth input is out of the ordinary
        if (unusual == 0) {
            Ta = random.between(-280, 900);
            Td = random.between(-290, 400);
        } else if (unusual == 1) {
            WS = random.oneIn(2) ? 0 : random.between(-1, 2000);
            RH = random.between(-10, 5000);
        } else if (unusual == 2) {
            SR = random.between(-3000, 9000);
        }
        SCOPED_TRACE(testing::Message() << "seed " << Random::kSeed << ": Ta " << Ta << " Td " << Td << " RH "
                                        << RH << " WS " << WS << " SR " << SR);
        Variant wind = WS;
        ASSERT_EQ(bits([&] { return Globe_Temperature_Model(Ta, RH, WS, SR); }),
                  bits([&] { return plain::Globe_Temperature_Model(Ta, RH, 101, wind, SR, 0.8, 0, -2); }));
        ASSERT_EQ(bits([&] { return Natural_Wet_Bulb(Ta, Td, RH, WS, SR); }),
                  bits([&] { return plain::Natural_Wet_Bulb(Ta, Td, RH, 101, wind, -2, SR, 0.8, 0, 1); }));
    }
}

} // namespace
} // namespace comfortics::tests
