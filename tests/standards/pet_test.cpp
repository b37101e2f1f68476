// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/pet.h"
#include "standards/pet_wg.h"

#include "standard_cases.h"

#include <gtest/gtest.h>

#include <array>
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

void expectFigures(const Pet& r, double last, const std::array<const char*, 4>& expected)
{
    const double figures[] = {r.pet, r.tCore, r.tSkin, last};
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_SHOWN(figures[i], expected[i]) << " of the PET " << expected[0];
    EXPECT_EQ(r.verdict, Verdict{});
}

TEST(Pet, Figures)
{
    struct Case {
        PetInputs in;
        std::array<const char*, 4> expected; // PET, core, skin, wettedness
    };
    PetInputs old = ofPaper(25, 40, 0.5, 15);
    old.clo = 0.5;
    old.work = 150;
    old.age = 70;
    old.sex = Sex::Female;
    old.height = 1.65;
    old.weight = 60;
    PetInputs sitting = ofPaper(15, 20, 1, 9);
    sitting.posture = Posture::Sitting;
    sitting.clo = 1.2;
    PetInputs high = ofPaper(20, 30, 1, 12);
    high.pressure = 850;
    const Case cases[] = {
        {ofPaper(21, 21, 0.1, 12), {"21.000", "36.863", "34.483", "0.031"}},
        {ofPaper(30, 60, 1, 21), {"42.748", "37.230", "35.970", "0.462"}},
        {ofPaper(35, 50, 2, 18), {"40.704", "37.179", "35.860", "0.336"}},
        {ofPaper(0, 0, 3, 4), {"-6.429", "24.473", "10.767", "0"}},
        {old, {"30.606", "37.274", "35.549", "0.294"}},
        {sitting, {"13.286", "36.782", "31.198", "0"}},
        {high, {"20.744", "36.852", "34.436", "0.007"}},
    };
    for (const Case& c : cases) {
        const Pet r = pet(c.in);
        expectFigures(r, r.wettedness, c.expected);
    }
}

// The table of the paper of 1999, in whole degrees.
TEST(Pet, TableOfThePaper)
{
    struct Case {
        PetInputs in;
        const char* pet;
    };
    const Case cases[] = {
        {ofPaper(21, 21, 0.1, 12), "21"}, {ofPaper(-5, 40, 0.5, 2), "10"}, {ofPaper(-5, -5, 5, 2), "-13"},
        {ofPaper(30, 60, 1, 21), "43"},   {ofPaper(30, 30, 1, 21), "29"},
    };
    for (const Case& c : cases)
        EXPECT_SHOWN(pet(c.in).pet, c.pet);
}

TEST(PetWaltherGoestchel, Figures)
{
    struct Case {
        PetInputs in;
        std::array<const char*, 4> expected; // PET, core, skin, clothing
    };
    PetInputs old = of2018(12, 25, 0.3, 60, 120, 0.7);
    old.age = 60;
    old.sex = Sex::Female;
    old.height = 1.64;
    old.weight = 62;
    PetInputs sitting = of2018(5, 10, 1, 60, 80, 1.9); // by a calculation apart from this program
    sitting.age = 40;
    sitting.sex = Sex::Female;
    sitting.height = 1.7;
    sitting.weight = 60;
    sitting.pressure = 880;
    sitting.posture = Posture::Sitting;
    const Case cases[] = {
        {sitting, {"3.2498", "34.5793", "21.6147", "8.2564"}},
        {of2018(20, 20, 0.15, 50, 80, 0.5), {"18.860", "36.623", "24.645", "22.965"}},
        {of2018(30, 45, 1, 40, 80, 0.9), {"34.122", "36.819", "32.471", "34.390"}},
        {of2018(0, -2, 2, 70, 80, 0.9), {"-6.739", "22.372", "8.249", "1.791"}},
        {of2018(34, 60, 0.5, 30, 100, 0.5), {"45.514", "37.011", "34.964", "39.605"}},
        {old, {"16.852", "36.730", "24.313", "20.644"}},
    };
    for (const Case& c : cases) {
        const Pet r = petWaltherGoestchel(c.in);
        expectFigures(r, r.tClothing, c.expected);
    }
}

// Clothing that covers all, beyond the range, and the skin's wettedness: by a calculation apart from this
// program.
TEST(Pet, CoveredAndWet)
{
    PetInputs thick = ofPaper(-20, -15, 4, 1);
    thick.clo = 2.5;
    EXPECT_SHOWN(pet(thick).pet, "-25.9511");
    PetInputs sitting = of2018(-20, -15, 4, 60, 80, 2.5);
    sitting.posture = Posture::Sitting;
    EXPECT_SHOWN(petWaltherGoestchel(sitting).pet, "-24.1562");
    EXPECT_SHOWN(petWaltherGoestchel(of2018(34, 60, 0.5, 30, 100, 0.5)).wettedness, "0.36515");
    EXPECT_SHOWN(petWaltherGoestchel(of2018(36, 36, 0.5, 80, 80, 0.9)).pet, "40.7176");
    EXPECT_EQ(petWaltherGoestchel(of2018(36, 36, 0.5, 80, 80, 0.9)).wettedness, 1);
    PetInputs still = of2018(20, 22, 0, 50, 80, 0.9); // in which natural convection is the larger
    still.pressure = 1090;
    EXPECT_SHOWN(petWaltherGoestchel(still).pet, "22.26406");
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
    in.e = -1;
    EXPECT_EQ(pet(in).verdict, none(Reason::BeyondPhysics, "e"));
    in.e.reset();
    EXPECT_EQ(pet(in).verdict, none(Reason::Missing, "RH"));
    // ASHRAE's tables: 23.39 hPa at 20 °C, 2.60 over ice at -10 °C.
    EXPECT_SHOWN(petWgSaturation(20), "23.39");
    EXPECT_SHOWN(petWgSaturation(-10), "2.60");
}

TEST(Pet, NamesWhatIsBeyondItsRange)
{
    const PetInputs in = ofPaper(20, 25, 1, 10);
    struct Case {
        double PetInputs::*input;
        double value;
        Verdict verdict;
    };
    constexpr Reason kPhysics = Reason::BeyondPhysics;
    const Case cases[] = {
        {&PetInputs::v, 0, outside("v")},
        {&PetInputs::v, -0.1, none(kPhysics, "v")},
        {&PetInputs::clo, 0.049, outside("clo")},
        {&PetInputs::clo, 2.01, outside("clo")},
        {&PetInputs::clo, 0.013, none(Reason::Undefined, "clo")}, // its clothing covers nothing
        {&PetInputs::clo, 0, none(Reason::Undefined, "clo")},
        {&PetInputs::clo, -0.1, none(kPhysics, "clo")},
        {&PetInputs::ta, 151, none(kPhysics, "ta")},
        {&PetInputs::tmrt, -101, none(kPhysics, "tmrt")},
        {&PetInputs::pressure, 299, none(kPhysics, "pressure")},
        {&PetInputs::work, -1, none(kPhysics, "work")},
        {&PetInputs::age, 0, none(kPhysics, "age")},
        {&PetInputs::height, 0, none(kPhysics, "height")},
        {&PetInputs::weight, kNaN, none(Reason::Missing, "weight")},
        {&PetInputs::work, 1e5, none(Reason::NoRoot, "t_skin")},
    };
    for (const Case& c : cases) {
        PetInputs other = in;
        other.*c.input = c.value;
        for (const Pet& r : {pet(other), petWaltherGoestchel(other)}) {
            EXPECT_EQ(r.verdict, c.verdict) << c.value << " for " << c.verdict.about;
            EXPECT_EQ(std::isnan(r.pet), !c.verdict.hasValue());
        }
    }
    PetInputs thick = in;
    thick.clo = 2.5;
    EXPECT_EQ(pet(thick, Limits::Blank).verdict, none(Reason::BeyondRange, "clo"));
    // Air damper than the skin: the balance jumps over 0.
    EXPECT_EQ(petWaltherGoestchel(of2018(40, 40, 0.5, 80, 80, 0.9)).verdict, none(Reason::NoRoot, "t_skin"));
}

} // namespace
} // namespace comfortics::tests
