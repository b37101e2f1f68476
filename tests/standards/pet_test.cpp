// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/pet.h"
#include "standards/pet_wg.h"

#include "standard_cases.h"

#include <gtest/gtest.h>

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

PetInputs ofPaper(double ta, double tmrt, double v, double e)
{
    return {.ta = ta, .tmrt = tmrt, .v = v, .e = e};
}

PetInputs of2018(double ta, double tmrt, double v, double RH, double work, double clo)
{
    return {.ta = ta, .tmrt = tmrt, .v = v, .RH = RH, .clo = clo, .work = work, .age = 23, .height = 1.80};
}

TEST(Pet, OfTheReferenceIsItsTemperature)
{
    for (double t = -25; t <= 45; t += 3.5) {
        EXPECT_NEAR(pet(ofPaper(t, t, 0.1, 12)).pet, t, 1e-8);
        PetInputs in = of2018(t, t, 0.1, 0, 80, 0.9);
        in.e = 12;
        EXPECT_NEAR(petWaltherGoestchel(in).pet, t, 1e-8);
        in.posture = Posture::Sitting;
        in.pressure = 870;
        EXPECT_NEAR(petWaltherGoestchel(in).pet, t, 1e-8);
    }
}

TEST(PetBody, BloodFlowsByWarmthAndCold)
{
    EXPECT_NEAR(pet_body::bloodFlow(36.5, 34.1), 6.3, 1e-12);
    EXPECT_NEAR(pet_body::bloodFlow(37, 34), 36.3, 1e-12); // 6.3 + 75 * 0.4
    EXPECT_NEAR(pet_body::bloodFlow(37, 30), 12.1, 1e-12); // a third
    EXPECT_EQ(pet_body::bloodFlow(38, 35), 90);
    EXPECT_NEAR(pet_body::coreToSkin(38, 35, 1), 285.84, 1e-9); // 3 * (5.28 + 90)
}

TEST(PetBody, TheCoreIsThatOfTheHeat)
{
    Draw draw;
    for (int i = 0; i < kPoints; ++i) {
        const double tSkin = i % 2 == 0 ? draw(30, 40) : draw(-80, 80);
        const double heat = draw(20, 500);
        const double tCore = pet_body::coreTemperature(tSkin, heat, 1.07).value_or(kNaN);
        const auto missing = [&](double t) { return heat - pet_body::coreToSkin(t, tSkin, 1.07); };
        ASSERT_NEAR(tCore, halvedRoot(missing, tSkin, tSkin + 200), 1e-9)
            << "seed " << Draw::kSeed << ": " << tSkin << " " << heat;
    }
    EXPECT_FALSE(pet_body::coreTemperature(30, 0, 1.07));
    EXPECT_FALSE(pet_body::coreTemperature(30, 3e4, 1.07));
}

/// Balances and equivalent temperatures against halving, the skin's temperature being the unknown.
template <typename Body>
void expectHalved(const PetInputs& in, const Pet& found)
{
    const Body body(in);
    const auto clothing = [&](double tSkin) {
        return halvedRoot([&](double t) { return tSkin - body.skinUnder(t); }, -120, 160);
    };
    const double tSkin =
        halvedRoot([&](double t) { return body.surplus(*body.stateUnder(clothing(t))); }, 0, 60);
    ASSERT_NEAR(found.tSkin, tSkin, 1e-6);
    const auto state = *body.stateUnder(found.tClothing);
    EXPECT_NEAR(body.surplus(state), 0, 1e-6);
    EXPECT_EQ(state.tCore, found.tCore);
    const double pet = halvedRoot([&](double t) { return body.referenceSurplus(state, t); }, kPetBracket.low,
                                  kPetBracket.high);
    ASSERT_NEAR(found.pet, pet, 1e-6);
}

TEST(Pet, RootsAreTheHalvedOnes)
{
    Draw draw;
    for (int i = 0; i < kPoints / 10; ++i) {
        PetInputs in{.ta = draw(-10, 40),
                     .tmrt = draw(-10, 70),
                     .v = draw(0.1, 8),
                     .RH = draw(10, 70),
                     .pressure = draw(700, 1060),
                     .clo = draw(0.2, 2),
                     .work = draw(40, 300),
                     .age = draw(18, 80),
                     .sex = i % 2 == 0 ? Sex::Male : Sex::Female,
                     .height = draw(1.5, 2),
                     .weight = draw(50, 100),
                     .posture = i % 3 == 0 ? Posture::Sitting : Posture::Standing};
        SCOPED_TRACE(testing::Message() << "seed " << Draw::kSeed << ", point " << i);
        expectHalved<PetBody>(in, pet(in));
        expectHalved<PetWgBody>(in, petWaltherGoestchel(in));
        // Warmer and stiller surroundings.
        PetInputs warmer = in;
        warmer.tmrt += 1;
        EXPECT_GT(pet(warmer).pet, pet(in).pet);
        EXPECT_GT(petWaltherGoestchel(warmer).pet, petWaltherGoestchel(in).pet);
    }
}

TEST(Pet, TakesTheVapourPressureOrTheHumidity)
{
    PetInputs in{.ta = 25, .tmrt = 40, .v = 1, .RH = 50};
    const double ofHumidity = pet(in).pet;
    in.e = 0.5 * petSaturation(25); // 6.11 * 10^(186.25 / 260)
    EXPECT_SHOWN(petSaturation(25), "31.7971");
    EXPECT_EQ(pet(in).pet, ofHumidity);
    in.RH = kNaN;
    EXPECT_EQ(pet(in).verdict, Verdict{});
    // ASHRAE's tables: 23.39 hPa at 20 °C, 2.60 over ice at -10 °C.
    EXPECT_SHOWN(petWgSaturation(20), "23.39");
    EXPECT_SHOWN(petWgSaturation(-10), "2.60");
}

} // namespace
} // namespace comfortics::tests
