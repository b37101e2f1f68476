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

LiljegrenInputs singapore()
{
    return {2024, 4, 15, 14.5, 8, 60, 1.3521, 103.8198, 742, 1008.4, 32.1, 68, 2.8, 10, -0.4, true};
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
        {12, 800, 1.5, 0, 0.15, 0.07},
        {12, 800, 2.5, 0, 0.15, 0.07},
        {12, 400, 2.5, 0, 0.20, 0.10},
        {12, 100, 2.5, 0, 0.25, 0.15},
        {0.5, 0, 2.4, -1, 0.30, 0.35},
        {0.5, 0, 2.4, 1, 0.30, 0.55},
        // On a bound of the classes, of which a product of quotients may fall short.
        {12.25, 175, 2, 0, 0.20, 0.10},
        {13.25, 175, 2, 0, 0.20, 0.10},
        {13.3, 675, 5, 0, 0.20, 0.10},
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

} // namespace
} // namespace comfortics::tests
