// SPDX-License-Identifier: GPL-3.0-or-later
#include "shown_value.h"
#include "standards/tmrt_flux.h"
#include "standards/tmrt_globe.h"
#include "standards/tmrt_six.h"
#include "standards/tmrt_solarcal.h"

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

TEST(TmrtGlobe, GivesThePrintedFigures)
{
    const struct {
        TmrtGlobeInputs in;
        const char* tmrt;
    } rows[] = {
        {{55, 30, 0.3}, "74.62"},
        {{40, 32, 1}, "55.14"},
        {{40, 32, 1, 0.05}, "62.67"},
        {{28, 30, 0.5}, "24.94"},
        {{25, 24.5, 0.05}, "25.20"},
        {{45, 35, 2, 0.04, 0.9}, "88.08"},
        {{60, 30, 0.02, 0.1}, "80.0555608"}, // natural convection, by a second program
        {{20, 45, 5, 0.04}, "none"},
    };
    for (const auto& row : rows)
        EXPECT_SHOWN(tmrtGlobe(row.in).tmrt, row.tmrt);
    EXPECT_EQ(tmrtGlobe({20, 45, 5, 0.04}).verdict, none(Reason::Undefined, "tmrt"));
    EXPECT_EQ(tmrtGlobe({33, 33, 1}).tmrt, 33);
}

TEST(TmrtGlobe, MarksAndRefuses)
{
    for (const auto& [D, verdict] : {std::pair{0.03, kOk},
                                     {0.2, kOk},
                                     {0.0299, outside("D")},
                                     {0.2001, outside("D")},
                                     {0.0, none(Reason::BeyondPhysics, "D")}})
        EXPECT_EQ(tmrtGlobe({40, 32, 1, D}).verdict, verdict) << D;
    EXPECT_EQ(tmrtGlobe({40, 32, 1, 0.15, 1.01}).verdict, outside("emissivity"));
    EXPECT_EQ(tmrtGlobe({40, 32, -1}).verdict, none(Reason::BeyondPhysics, "v"));
    EXPECT_EQ(tmrtGlobe({40, kNaN, 1}).verdict, none(Reason::Missing, "ta"));
    EXPECT_TRUE(std::isnan(tmrtGlobe({40, 32, 1, 0.21}, Limits::Blank).tmrt));
}

TEST(TmrtSix, WeighsTheSides)
{
    TmrtSixInputs in{.K = {100, 150, 300, 200, 700, 120}, .L = {420, 430, 440, 425, 360, 500}};
    EXPECT_SHOWN(tmrtSix(in).tmrt, "45.351");
    in.weights = SixSides::Even;
    EXPECT_SHOWN(tmrtSix(in).tmrt, "49.960");
    TmrtSixInputs night{.K = {}, .L = {430, 430, 430, 430, 430, 430}};
    EXPECT_SHOWN(tmrtSix(night).tmrt, "21.951");
    night.shortAbsorptance = 0.2; // of no sun
    EXPECT_SHOWN(tmrtSix(night).tmrt, "21.951");
    in.L[4] = -1;
    EXPECT_EQ(tmrtSix(in).verdict, none(Reason::BeyondPhysics, "L_up"));
    in.K[3] = kNaN;
    EXPECT_EQ(tmrtSix(in).verdict, none(Reason::Missing, "K_west"));
    night.longAbsorptance = 1.1;
    EXPECT_EQ(tmrtSix(night).verdict, outside("longAbsorptance"));
}

TEST(TmrtFlux, AddsUpTheFluxes)
{
    EXPECT_SHOWN(tmrtFlux({800, 640, 700, 560, 380, -110, 0.8}).tmrt, "57.690");
    EXPECT_SHOWN(tmrtFlux({0, 0, 0, 0, 300, -70, 0}).tmrt, "4.096");
    EXPECT_SHOWN(tmrtFlux({300, 240, 200, 40, 350, -60, 0.2}).tmrt, "39.103");
    EXPECT_SHOWN(tmrtFlux({0, 0, 0, 0, 300, -70, -0.5}).tmrt, "4.096"); // no beam, no angle
    EXPECT_EQ(tmrtFlux({300, 240, 1, 40, 350, -60, -1e-9}).verdict, none(Reason::BelowHorizon, "I"));
    EXPECT_EQ(tmrtFlux({300, 240, 0, 40, 350, -60, 1.01}).verdict, none(Reason::BeyondPhysics, "mu"));
    EXPECT_EQ(tmrtFlux({300, 301, 0, 40, 350, -60, 1}).verdict, outside("netS"));
    EXPECT_EQ(tmrtFlux({300, 240, 0, 301, 350, -60, 1}).verdict, outside("Dh"));
    EXPECT_EQ(tmrtFlux({300, 240, 0, 40, 350, 351, 1}).verdict, outside("netL"));
    EXPECT_EQ(tmrtFlux({-1, 240, 0, 40, 350, -60, 1}).verdict, none(Reason::BeyondPhysics, "S"));
    EXPECT_EQ(tmrtFlux({0, 0, 0, 0, 10, 100, 1}).verdict, none(Reason::Undefined, "tmrt"));
}

SolarCalInputs sun(double altitude, double sharp, double I, double transmittance, double skyView,
                   double exposed, double absorptance, SolarPosture posture, double floor)
{
    return {.tmrt = 25,
            .altitude = altitude,
            .sharp = sharp,
            .I = I,
            .transmittance = transmittance,
            .skyView = skyView,
            .exposed = exposed,
            .absorptance = absorptance,
            .floor = floor,
            .posture = posture};
}

TEST(TmrtSolarCal, GivesThePrintedFigures)
{
    using enum SolarPosture;
    // Those with six decimals were calculated by a second program, which reads the table from print.
    const struct {
        SolarCalInputs in;
        const char *erf, *delta;
    } rows[] = {
        {sun(45, 0, 700, 0.8, 0.2, 0.5, 0.7, Sitting, 0.6), "64.884", "15.537"},
        {sun(30, 60, 600, 0.7, 0.4, 0.6, 0.7, Standing, 0.6), "61.612", "14.164"},
        {sun(52, 137, 850, 1, 1, 1, 0.7, Standing, 0.25), "192.343", "44.217"},
        {sun(10, 20, 300, 0.5, 0.5, 0.5, 0.6, Sitting, 0.6), "17.425", "4.173"},
        {sun(70, 90, 900, 0.6, 0.3, 0.3, 0.7, Lying, 0.6), "67.495", "15.516"},
        {sun(0, 37, 800, 0.9, 0.3, 0.7, 0.65, Sitting, 0.4), "81.955451", "19.625347"},
        {sun(90, 180, 800, 0.9, 0.3, 0.7, 0.65, Standing, 0.4), "56.930968", "13.087579"},
        {sun(52.5, 7.5, 800, 0.9, 0.3, 0.7, 0.65, Standing, 0.4), "89.254187", "20.518204"},
        {sun(20, 100, 800, 0.9, 0.3, 0.7, 0.65, Sitting, 0.4), "82.025963", "19.642233"},
        {sun(90, 40, 800, 0.9, 0.3, 0.7, 0.65, Lying, 0.4), "123.933789", "28.490526"},
        {sun(0, 90, 800, 0.9, 0.3, 0.7, 0.65, Lying, 0.4), "72.503053", "16.667368"},
        {sun(33, 165, 800, 0.9, 0.3, 0.7, 0.65, Lying, 0.4), "80.749733", "18.563157"},
        {sun(15, 0, 800, 0.9, 0.3, 0.7, 0.65, Lying, 0.4), "56.548503", "12.999656"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.erf);
        const SolarCalResult result = tmrtSolarCal(row.in);
        EXPECT_EQ(result.verdict, kOk);
        EXPECT_SHOWN(result.erf, row.erf);
        EXPECT_SHOWN(result.deltaMrt, row.delta);
        EXPECT_EQ(result.tmrt, 25 + result.deltaMrt);
    }
}

// All nodes at once, each weighed by its number; the sums were added up from the printed table.
TEST(TmrtSolarCal, HasTheTableAsPrinted)
{
    double standing = 0;
    double sitting = 0;
    for (int node = 0; node < 13 * 7; ++node) {
        const double altitude = 15 * (node % 7);
        const double sharp = 15 * std::floor(node / 7.0);
        standing += (node + 1) * projectedShare(altitude, sharp, SolarPosture::Standing);
        sitting += (node + 1) * projectedShare(altitude, sharp, SolarPosture::Sitting);
    }
    EXPECT_NEAR(standing, 864.866, 1e-9);
    EXPECT_NEAR(sitting, 899.201, 1e-9);
}

TEST(TmrtSolarCal, FoldsTheAngle)
{
    const double rows[][3] = {{180, 180, 0}, {350, 20, 30},  {20, 350, 30},
                              {0, 180, 180}, {90, 315, 135}, {725, 0, 5}};
    for (const auto& [azimuth, facing, angle] : rows)
        EXPECT_EQ(solarAngle(azimuth, facing), angle) << azimuth;
}

TEST(TmrtSolarCal, MarksAndRefuses)
{
    const auto with = [](double SolarCalInputs::*input, double value) {
        SolarCalInputs in = sun(45, 30, 700, 0.8, 0.2, 0.5, 0.7, SolarPosture::Sitting, 0.6);
        in.*input = value;
        return tmrtSolarCal(in).verdict;
    };
    EXPECT_EQ(with(&SolarCalInputs::tmrt, kNaN), kOk);
    EXPECT_EQ(with(&SolarCalInputs::altitude, -0.1), none(Reason::BeyondRange, "altitude"));
    EXPECT_EQ(with(&SolarCalInputs::altitude, 90.1), none(Reason::BeyondRange, "altitude"));
    EXPECT_EQ(with(&SolarCalInputs::sharp, 180.1), none(Reason::BeyondRange, "sharp"));
    EXPECT_EQ(with(&SolarCalInputs::skyView, 1.1), outside("skyView"));
    EXPECT_EQ(with(&SolarCalInputs::transmittance, 1.1), outside("transmittance"));
    EXPECT_EQ(with(&SolarCalInputs::I, -1), none(Reason::BeyondPhysics, "I"));
    EXPECT_EQ(with(&SolarCalInputs::exposed, kNaN), none(Reason::Missing, "exposed"));
}

} // namespace
} // namespace comfortics::tests
