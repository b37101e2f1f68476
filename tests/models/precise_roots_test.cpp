// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/precise_roots.h"

#include "model_cases.h"
#include "models/heat_balance.h"
#include "models/psychrometric_search.h"
#include "texts/number_text.h"

#include <gtest/gtest.h>

namespace comfortics::tests {
namespace {

using namespace models;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// What a balance in plain doubles has to spare at a globe or wick of t [°C].
double globeSurplus(double t, double Ta, double RH, double WS, double SR)
{
    const GlobeBalance<double> balance(Ta, RH, kSitePressure, std::max(WS, 0.1), kDirectFraction, kZenith);
    return balance.withoutSun(t + kKelvin) + balance.solar(SR) - std::pow(t + kKelvin, 4);
}

double wickSurplus(double t, double Ta, double RH, double WS, double SR)
{
    const WickBalance<double> balance(Ta, RH, kSitePressure, std::max(WS, 0.1), SR, kDirectFraction, kZenith,
                                      kRadiationSwitch);
    return balance.Tnew(t + kKelvin) - (t + kKelvin);
}

/// As the psychrometric search states it, written down apart from it.
double psychrometricSurplus(double Tw, double Ta, double Td)
{
    const auto e = [](double t) { return 0.6106 * std::exp(17.27 * t / (237.3 + t)); };
    return (1556 - 1.484 * Tw) * (e(Td) - e(Tw)) + 101 * (Ta - Tw);
}

template <typename Surplus, typename... Inputs>
void expectRoot(const Root& root, Surplus surplus, Inputs... inputs)
{
    ASSERT_EQ(root.status, RootStatus::Found);
    EXPECT_GT(surplus(root.value - 1e-9, inputs...), 0);
    EXPECT_LT(surplus(root.value + 1e-9, inputs...), 0);
}

// Weather of all kinds, and a tenth of it far outside: dry and saturated, storms, near boiling. Where the
// plain iteration converges, it stands within its 0.05 K of a point that the balance brings no farther.
TEST(PreciseRoots, AreWhereTheBalanceChangesItsSign)
{
    Random random;
    for (int i = 0; i < 20000 / kSlowness; ++i) {
        const bool far = random.oneIn(10);
        const double Ta = far ? random.between(-120, 99) : random.between(-60, 58);
        const double RH = random.oneIn(10) ? random.integer(0, 1) * 100 : random.between(0.1, 100);
        const double WS = far ? random.size(0.01, 500) : random.size(0.1, 40);
        const double SR = far ? random.between(0, 5000) : random.between(0, 1376);
        const double Td = Ta - random.between(0, random.oneIn(2) ? 1 : 40);
        SCOPED_TRACE(testing::Message() << "seed " << Random::kSeed << ": Ta " << Ta << " Td " << Td << " RH "
                                        << RH << " WS " << WS << " SR " << SR);
        const Root globe = preciseGlobeTemperature(Ta, RH, WS, SR);
        expectRoot(globe, globeSurplus, Ta, RH, WS, SR);
        const Root wick = preciseNaturalWetBulb(Ta, RH, WS, SR);
        if (!far || wick.status == RootStatus::Found) // a far wick may boil
            expectRoot(wick, wickSurplus, Ta, RH, WS, SR);
        const Root psychrometric = precisePsychrometricWetBulb(Ta, Td);
        expectRoot(psychrometric, psychrometricSurplus, Ta, Td);
        if (far || testing::Test::HasFatalFailure())
            continue;

        const std::string iterated = shown([&] { return Globe_Temperature_Model(Ta, RH, WS, SR); });
        if (texts::isNumeric(iterated)) {
            EXPECT_NEAR(texts::val(iterated), globe.value, kTolerance);
        }
        const double start = Td > -90 ? Td : -90;
        const std::string wetted = shown([&] { return Natural_Wet_Bulb(Ta, start, RH, WS, SR); });
        if (texts::isNumeric(wetted)) {
            EXPECT_NEAR(texts::val(wetted), wick.value, kTolerance);
        }
        // The search stops a step behind the sign change, or stays at the dew point.
        const double stepped = Psychrometric_Wet_Bulb(Ta, true, Td, Rules::Robust).value();
        EXPECT_LE(stepped, psychrometric.value + 0.11);
        EXPECT_GE(stepped, psychrometric.value - 0.31);
        // The sun that heats a globe is found again from it, also between whole numbers.
        EXPECT_NEAR(preciseRadiation(Ta, RH, WS, globe.value).value, SR, 1e-5);
    }
}

TEST(PreciseRoots, RiseWithWhatHeatsAndWets)
{
    for (const double Ta : {-30.0, 5.0, 38.0})
        for (const double WS : {0.1, 2.0, 25.0}) {
            for (double SR = 0; SR < 1376; SR += 3.7) {
                EXPECT_LT(preciseGlobeTemperature(Ta, 40, WS, SR).value,
                          preciseGlobeTemperature(Ta, 40, WS, SR + 0.01).value);
                EXPECT_LT(preciseNaturalWetBulb(Ta, 40, WS, SR).value,
                          preciseNaturalWetBulb(Ta, 40, WS, SR + 0.01).value);
            }
            for (double RH = 0; RH < 100; RH += 0.9)
                EXPECT_LT(preciseNaturalWetBulb(Ta, RH, WS, 300).value,
                          preciseNaturalWetBulb(Ta, RH + 0.01, WS, 300).value);
            for (double Td = Ta - 40; Td < Ta; Td += 0.9)
                EXPECT_LT(precisePsychrometricWetBulb(Ta, Td).value,
                          precisePsychrometricWetBulb(Ta, Td + 0.01).value);
        }
}

// The wind's floor, the ends of the radiation, saturated air, and inputs without an answer.
TEST(PreciseRoots, TakeAnyNumber)
{
    EXPECT_EQ(preciseGlobeTemperature(20, 50, 0.03, 600).value,
              preciseGlobeTemperature(20, 50, 0.1, 600).value);
    EXPECT_EQ(preciseNaturalWetBulb(20, 50, -4, 600).value, preciseNaturalWetBulb(20, 50, 0.1, 600).value);
    EXPECT_EQ(precisePsychrometricWetBulb(17, 17).value, 17);
    EXPECT_EQ(preciseRadiation(30, 50, 2, 10).value, 0);
    const double most = preciseGlobeTemperature(30, 50, 2, 1376).value;
    EXPECT_NEAR(preciseRadiation(30, 50, 2, most - 1e-6).value, 1376, 1e-3);
    EXPECT_EQ(preciseRadiation(30, 50, 2, most + 1e-6).status, RootStatus::None);

    constexpr double ordinary[] = {25, 50, 2, 600};
    constexpr double awkward[] = {kNaN,   kInfinity, -kInfinity, -300,   -273.15, -241, 0,     -0.0,
                                  5e-324, 100,       120,        -1e300, 1e300,   1e9,  1e-300};
    for (const double value : awkward)
        for (std::size_t place = 0; place < 4; ++place) {
            double x[] = {ordinary[0], ordinary[1], ordinary[2], ordinary[3]};
            x[place] = value;
            const Root roots[] = {preciseGlobeTemperature(x[0], x[1], x[2], x[3]),
                                  preciseNaturalWetBulb(x[0], x[1], x[2], x[3]),
                                  preciseRadiation(x[0], x[1], x[2], x[3]),
                                  precisePsychrometricWetBulb(x[0], place == 1 ? value : 9)};
            for (const Root& root : roots) {
                EXPECT_EQ(std::isfinite(root.value), root.status == RootStatus::Found)
                    << value << " at " << place;
                EXPECT_TRUE(std::isfinite(root.value) || std::isnan(root.value));
                const bool reads = &root != &roots[3] || place < 2;
                EXPECT_EQ(root.status == RootStatus::Missing, reads && std::isnan(value));
            }
        }
    EXPECT_EQ(preciseGlobeTemperature(-300, 50, 2, 600).status, RootStatus::None);
    EXPECT_EQ(preciseNaturalWetBulb(25, -1, 2, 600).status, RootStatus::None);
    EXPECT_EQ(preciseNaturalWetBulb(120, 100, 2, 600).status, RootStatus::None); // it boils
}

// The literals are what the library gives, to a rounding wherever this runs; the bit tables tell more.
TEST(HeatBalance, HasThePowersOfItsConstants)
{
    using namespace balance;
    for (const ConstantPower& power :
         {kViscosityCollision, kDiffusivityCritical, kDiffusivityPressure, kDiffusivityTemperature,
          kDiffusivityMass, kWickPrandtlPower, kGlobePrandtlPower})
        EXPECT_DOUBLE_EQ(values::power(power.base, power.exponent).value(), power.value);
}

} // namespace
} // namespace comfortics::tests
