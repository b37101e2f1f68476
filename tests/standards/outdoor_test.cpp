// SPDX-License-Identifier: GPL-3.0-or-later
//
// The sun's position and the wet-bulb globe temperature under it.
#include "models/heat_balance.h"
#include "standard_cases.h"
#include "standards/sun_position.h"
#include "standards/wbgt_liljegren.h"

#include <cmath>
#include <numbers>

namespace comfortics::tests {
namespace {

using namespace standards;

TEST(SunPosition, IsWhereTheAlmanacHasIt)
{
    // Those with six decimals were calculated by a second program: poles, horizon, the ends of the range.
    const struct {
        SunInputs in;
        const char *altitude, *azimuth, *distance;
    } rows[] = {
        {{2023, 6, 21, 12, 51.48, 0}, "61.9619", "179.1418", "1.0162"},
        {{2024, 2, 29, 6.5, -35.3, 149.1}, "26.0721", "279.3171", "0.9907"},
        {{1999, 12, 22, 17, 40, -105}, "20.8528", "150.9753", "0.9837"},
        {{2024, 12, 31, 4, 20, 77}, "29.3980", "133.0914", "0.9833"},
        {{1950, 1, 1, 0, 89, -170}, "-22.081602", "189.123437", "0.983300"},
        {{2049, 12, 31, 23.99, -60, 170}, "52.213183", "16.637390", "0.983313"},
        {{2023, 3, 20, 6.02, 0, 0}, "-1.604474", "90.249967", "0.995706"},
        {{2023, 6, 21, 4.2, 51.48, 0}, "2.999248", "54.622853", "1.016214"},
        {{2023, 3, 20, 7.1, 0, 0}, "14.658686", "90.239822", "0.995718"},
        {{2000, 2, 29, 18.3, -12, -77}, "75.171318", "285.769689", "0.990833"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.altitude);
        const SunResult sun = sunPosition(row.in);
        EXPECT_EQ(sun.verdict, kOk);
        EXPECT_SHOWN(sun.altitude, row.altitude);
        EXPECT_SHOWN(sun.azimuth, row.azimuth);
        EXPECT_SHOWN(sun.distanceAu, row.distance);
        EXPECT_NEAR(sun.cosZenith, std::sin(sun.altitude * std::numbers::pi / 180), 1e-15);
    }
}

TEST(SunPosition, CountsHoursIntoOtherDays)
{
    const double day = daysFrom2000(2024, 2, 28);
    const ApparentSun late = apparentSun(day, 24.5, 40, 10);
    const ApparentSun next = apparentSun(day + 1, 0.5, 40, 10);
    EXPECT_EQ(late.altitude, next.altitude);
    EXPECT_EQ(late.azimuth, next.azimuth);
    EXPECT_EQ(apparentSun(day, -3, 40, 10).altitude, apparentSun(day - 1, 21, 40, 10).altitude);
    EXPECT_EQ(daysFrom2000(2024, 3, 1) - day, 2);
    EXPECT_EQ(daysFrom2000(1999, 12, 31), -1);
}

TEST(SunPosition, MarksItsYearsAndRefusesWhatNoCalendarHas)
{
    const auto at = [](int year, int month, int day, double hour, double latitude, double longitude) {
        return sunPosition({year, month, day, hour, latitude, longitude}).verdict;
    };
    EXPECT_EQ(at(1950, 1, 1, 0, 90, 360), kOk);
    EXPECT_EQ(at(2049, 12, 31, 24, -90, -180), kOk);
    EXPECT_EQ(at(1949, 12, 31, 12, 0, 0), outside("date"));
    EXPECT_EQ(at(2050, 1, 1, 12, 0, 0), outside("date"));
    EXPECT_EQ(at(2023, 2, 29, 12, 0, 0), none(Reason::BeyondPhysics, "date"));
    EXPECT_EQ(at(2023, 13, 1, 12, 0, 0), none(Reason::BeyondPhysics, "date"));
    EXPECT_EQ(at(2023, 1, 0, 12, 0, 0), none(Reason::BeyondPhysics, "date"));
    EXPECT_EQ(at(2023, 1, 1, 24.01, 0, 0), none(Reason::BeyondPhysics, "hour"));
    EXPECT_EQ(at(2023, 1, 1, 12, 90.01, 0), none(Reason::BeyondPhysics, "latitude"));
    EXPECT_EQ(at(2023, 1, 1, 12, 0, -180.01), none(Reason::BeyondPhysics, "longitude"));
    EXPECT_EQ(at(2023, 1, 1, 12, 0, kNaN), none(Reason::Missing, "longitude"));
}

LiljegrenInputs singapore()
{
    return {2024, 4, 15, 14.5, 8, 60, 1.3521, 103.8198, 742, 1008.4, 32.1, 68, 2.8, 10, -0.4, true};
}

TEST(Liljegren, GivesTheFiguresOfPlaceAndTime)
{
    // Those with six decimals were calculated by a second program; in the last the sun rises.
    const struct {
        LiljegrenInputs in;
        const char *wbgt, *tg, *tnw, *tpsy, *v, *F;
    } rows[] = {
        // clang-format off
        {singapore(), "32.494", "45.790", "28.751", "26.941", "2.199", "0.516"},
        {{2023, 7, 21, 13, -5, 0, 33.75, -84.39, 850, 985, 33, 50, 1.5, 2, 0, false},
         "31.881", "49.539", "26.676", "24.200", "1.5", "0.683"},
        {{2021, 1, 10, 12, 11, 30, -33.87, 151.21, 900, 1012, 30, 55, 3, 10, -0.3, true},
         "29.354", "44.792", "24.851", "22.737", "2.357", "0.715"},
        {{2022, 6, 1, 9.25, 1, 15, 51.5, -0.12, 420, 1015, 22, 60, 4, 10, -0.2, false},
         "20.701", "29.009", "18.141", "16.743", "3.405", "0.428"},
        {{2023, 8, 5, 2, 2, 60, 45.46, 9.19, 0, 1005, 26, 80, 1, 10, 0.3, true},
         "23.879", "25.078", "23.233", "23.248", "0.617", "0"},
        {{2020, 12, 31, 23 + 40 / 60.0, -9, 20, 61.2, -149.9, 0, 960, -8, 85, 3.2, 30, 0.2, false},
         "-9.098660", "-9.645012", "-9.099511", "-8.573371", "2.131750", "0.000000"},
        {{2024, 3, 10, 7 + 10 / 60.0, 5.5, 30, 28.6, 77.2, 180, 880, 41, 12, 0.05, 5, -0.5, false},
         "33.193649", "57.162555", "25.230197", "18.286084", "0.130000", "0.900000"},
        {{2022, 7, 1, 16, 2, 0, 48, 11.5, 90, 1100, 49, 97, 0, 2, kNaN, false},
         "50.716996", "56.068932", "49.433156", "48.448326", "0.000000", "0.000000"},
        {{2022, 2, 3, 5.5, 1, 60, 55, 12, 0, 1020, 3, 70, 2.4, 1, 0.1, true},
         "1.156079", "1.677090", "0.743801", "1.018654", "2.954747", "0.000000"},
        {{2023, 6, 21, 3 + 44 / 60.0, 0, 0, 51.48, 0, 3, 1010, 12, 80, 1.5, 10, kNaN, false},
         "10.249402", "10.606842", "9.897191", "10.124911", "1.178273", "0.000000"},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.wbgt);
        const LiljegrenResult result = wbgtLiljegren(row.in);
        EXPECT_SHOWN(result.wbgt, row.wbgt);
        EXPECT_SHOWN(result.tg, row.tg);
        EXPECT_SHOWN(result.tnw, row.tnw);
        EXPECT_SHOWN(result.tpsy, row.tpsy);
        EXPECT_SHOWN(result.v2m, row.v);
        EXPECT_SHOWN(result.directFraction, row.F);
    }
}

TEST(Liljegren, HasThePrintedPropertiesOfAir)
{
    using models::Loose;
    EXPECT_NEAR(formulas::Saturation_Pressure_Buck(300.0), 35.4778, 5e-5);
    EXPECT_NEAR(models::Air_Viscosity<double>(300), 1.84382e-5, 5e-11);
    EXPECT_NEAR((models::Air_Diffusivity<double>(300, 1013.25)), 2.62627e-5, 5e-11);
    EXPECT_EQ(evaporationHeat(300), 2376134.5);
    EXPECT_SHOWN(globeConvection(300, 1013.25, 2), "22.5646");
    EXPECT_SHOWN(wickConvection(300, 1013.25, 2), "51.9820");
    EXPECT_EQ(globeConvection(300, 1013.25, 0.1), globeConvection(300, 1013.25, 0.13));
    EXPECT_EQ(wickConvection(300, 1013.25, 0), wickConvection(300, 1013.25, 0.13));
}

TEST(Liljegren, KnowsHowStableTheAirIs)
{
    using enum Stability;
    const struct {
        double v;
        Stability byS[4]; // from 925, 675, 175 W/m² and less
    } rows[] = {
        {0, {A, A, B, D}}, {2, {A, B, C, D}}, {3, {B, B, C, D}}, {5, {C, C, D, D}}, {6, {C, D, D, D}}};
    for (const auto& row : rows) {
        for (const auto& [S, column] :
             {std::pair{925.0, 0}, {924.9, 1}, {675.0, 1}, {674.9, 2}, {175.0, 2}, {174.9, 3}}) {
            EXPECT_EQ(stabilityOf(true, S, row.v, 0), row.byS[column]) << S << ' ' << row.v;
            if (row.v > 0) {
                EXPECT_EQ(stabilityOf(true, S, std::nextafter(row.v, 0), 0),
                          rows[&row - rows - 1].byS[column]);
            }
        }
    }
    EXPECT_EQ(stabilityOf(false, 0, 2.4, -0.1), E);
    EXPECT_EQ(stabilityOf(false, 0, 2.4, 0), F);
    EXPECT_EQ(stabilityOf(false, 0, 2.5, -0.1), D);
    EXPECT_EQ(stabilityOf(false, 0, 2.5, 0), D);
}

// Near noon and at night; the profile goes by class and surroundings.
TEST(Liljegren, TakesTheWindToTwoMetres)
{
    const struct {
        double hour, S, v, dT;
        double urban, rural; // exponents
    } rows[] = {
        {12, 800, 1.5, 0, 0.15, 0.07}, {12, 800, 2.5, 0, 0.15, 0.07}, {12, 400, 2.5, 0, 0.20, 0.10},
        {12, 100, 2.5, 0, 0.25, 0.15}, {0.5, 0, 2.4, -1, 0.30, 0.35}, {0.5, 0, 2.4, 1, 0.30, 0.55},
    };
    for (const auto& row : rows) {
        for (const bool urban : {false, true}) {
            LiljegrenInputs in = singapore();
            in.utcOffset = 7;
            in.hour = row.hour;
            in.S = row.S;
            in.v = row.v;
            in.dT = row.dT;
            in.urban = urban;
            EXPECT_NEAR(wbgtLiljegren(in).v2m, row.v * std::pow(0.2, urban ? row.urban : row.rural), 1e-12)
                << row.S << ' ' << row.v;
        }
    }
}

// The balances written down apart from the code, in which a root shows by its sign on either side.
struct Balances {
    double T, p, v, S, F, mu, e;
    static constexpr double kSigma = 5.6696e-8;
    static double saturation(double t)
    {
        return 1.004 * 6.1121 * std::exp(17.502 * (t - 273.15) / (t - 32.18));
    }
    double incoming() const { return 0.5 * (0.575 * std::pow(e, 0.143) + 0.999) * std::pow(T, 4); }
    double globe(double Tg) const
    {
        const double sun = 0.95 * S / (2 * 0.95 * kSigma) * (F * (1 / (2 * mu) - 1) + 1.45);
        return incoming() - globeConvection((Tg + T) / 2, p, v) * (Tg - T) / (0.95 * kSigma) + sun -
               std::pow(Tg, 4);
    }
    double wick(double Tw, bool radiation) const
    {
        const double Tf = (Tw + T) / 2;
        const double R = 8314.34 / 28.97;
        const double Pr = 1003.5 / (1003.5 + 1.25 * R);
        const double Sc =
            models::Air_Viscosity<double>(Tf) / (100 * p / (R * Tf) * models::Air_Diffusivity<double>(Tf, p));
        const double r = 0.25 * 0.007 / 0.0254;
        const double tanZ = std::tan(std::acos(mu));
        const double A = 0.95 * kSigma * (incoming() - std::pow(Tw, 4)) +
                         0.6 * S * ((1 - F) * (1 + r) + F * (tanZ / std::numbers::pi + r) + 0.45);
        return T - Tw + (radiation ? A / wickConvection(Tf, p, v) : 0) -
               evaporationHeat(Tf) / (1003.5 * 28.97 / 18.015) * (saturation(Tw) - e) / (p - saturation(Tw)) *
                   std::pow(Pr / Sc, 0.56);
    }
};

TEST(Liljegren, FindsTheRootsOfTheBalances)
{
    Draw between;
    for (int i = 0; i < kPoints; ++i) {
        LiljegrenInputs in = singapore();
        const bool far = i % 10 == 0;
        in.p = far ? between(300, 1100) : between(800, 1050);
        in.ta = far ? between(-90, 80) : between(-20, 50);
        in.RH = between(0.1, 100);
        in.hour = between(8, 18);
        in.S = between(0, 1000);
        in.v = between(0, 8);
        in.z = 2;
        SCOPED_TRACE(testing::Message()
                     << "seed " << Draw::kSeed << ", " << i << ": ta " << in.ta << " RH " << in.RH);
        const LiljegrenResult result = wbgtLiljegren(in);
        const double T = in.ta + 273.15;
        const double e = in.RH / 100 * Balances::saturation(T);
        if (e >= in.p) {
            EXPECT_EQ(result.verdict.reason, Reason::Undefined);
            continue;
        }
        ASSERT_TRUE(result.verdict.hasValue());
        const ApparentSun sun =
            apparentSun(daysFrom2000(2024, 4, 15), in.hour - 8.5, in.latitude, in.longitude);
        const double S = std::fmin(in.S, 0.85 * 1367 * sun.sine / (sun.distance * sun.distance));
        const Balances balance{T, in.p, in.v, S, result.directFraction, sun.sine, e};
        constexpr double kStep = 1e-7;
        for (const double step : {-kStep, kStep}) {
            EXPECT_EQ(balance.globe(result.tg + 273.15 + step) > 0, step < 0);
            EXPECT_EQ(balance.wick(result.tnw + 273.15 + step, true) > 0, step < 0);
            EXPECT_EQ(balance.wick(result.tpsy + 273.15 + step, false) > 0, step < 0);
        }
        EXPECT_DOUBLE_EQ(result.wbgt, 0.7 * result.tnw + 0.2 * result.tg + 0.1 * in.ta);
    }
}

TEST(Liljegren, MarksAndRefuses)
{
    const auto with = [](double LiljegrenInputs::*input, double value) {
        LiljegrenInputs in = singapore();
        in.*input = value;
        return wbgtLiljegren(in).verdict;
    };
    EXPECT_EQ(wbgtLiljegren(singapore()).verdict, kOk);
    const struct {
        double LiljegrenInputs::*input;
        double value;
        Verdict verdict;
    } rows[] = {
        {&LiljegrenInputs::ta, -10, kOk},
        {&LiljegrenInputs::ta, -10.01, outside("ta")},
        {&LiljegrenInputs::ta, 50.01, outside("ta")},
        {&LiljegrenInputs::RH, 0, outside("RH")},
        {&LiljegrenInputs::z, 0.99, outside("z")},
        {&LiljegrenInputs::z, 50.01, outside("z")},
        {&LiljegrenInputs::S, 1400, outside("S")},
        {&LiljegrenInputs::interval, 60.5, outside("interval")},
        {&LiljegrenInputs::dT, kNaN, kOk}, // not needed by day
        {&LiljegrenInputs::hour, 24.5, none(Reason::BeyondPhysics, "hour")},
        {&LiljegrenInputs::p, 1100.5, none(Reason::BeyondPhysics, "p")},
        {&LiljegrenInputs::S, -1, none(Reason::BeyondPhysics, "S")},
        {&LiljegrenInputs::v, kNaN, none(Reason::Missing, "v")},
        {&LiljegrenInputs::ta, 120, none(Reason::Undefined, "RH")}, // vapour alone has the pressure
    };
    for (const auto& row : rows)
        EXPECT_EQ(with(row.input, row.value), row.verdict) << &row - rows;
    LiljegrenInputs night = singapore();
    night.hour = 2;
    EXPECT_EQ(wbgtLiljegren(night).verdict, outside("S")); // sunlight at night
    night.S = 0;
    night.dT = kNaN;
    EXPECT_EQ(wbgtLiljegren(night).verdict, none(Reason::Missing, "dT"));
    night.z = 2;
    EXPECT_EQ(wbgtLiljegren(night).verdict, kOk);
}

} // namespace
} // namespace comfortics::tests
