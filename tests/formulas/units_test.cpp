// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/units.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>
#include <tuple>

namespace comfortics::formulas {
namespace {

// Fixed points of the scales, and sizes that other tables of units give.
TEST(Units, LeadToThoseOfTheReadings)
{
    const std::tuple<const char*, double, double, double> rows[] = {
        {"F", 212, 100, 1e-12},
        {"K", 373.15, 100, 1e-12},
        {"Ra", 671.67, 100, 1e-12},
        {"D", -60, 140, 1e-12},
        {"N", 33, 100, 1e-12},
        {"Re", 80, 100, 1e-12},
        {"Ro", 60, 100, 1e-12},
        {"m/min", 90, 1.5, 1e-12},
        {"km/h", 90, 25, 1e-12},
        {"kn", 36, 18.52, 1e-3},
        {"mph", 25, 11.176, 1e-3},
        {"ft/s", 25, 7.62, 1e-3},
        {"ft/min", 1250, 6.35, 1e-3},
        {"W/in2", 2, 3100.0062, 1e-4},
        {"CHU/h/ft2", 2, 11.35653, 1e-4},
        {"kcal/h/m2", 4, 4.652, 1e-3},
        {"J/s/m2", 7, 7, 0},
        {"kW/m2", 3, 3000, 0},
        {"W/cm2", 3, 30000, 0},
        {"Btu/s/ft2", 2, 22713.07, 0.01},
    };
    ASSERT_EQ(std::size(rows), kUnitCount);
    for (const auto& [name, x, expected, tolerance] : rows) {
        const Unit* const unit = findUnit(name);
        ASSERT_NE(unit, nullptr) << name;
        EXPECT_NEAR(unit->plain(x), expected, tolerance) << name;
    }
    EXPECT_EQ(findUnit("f"), nullptr);
}

TEST(Units, HaveTheSameBitsInBothNumberTypes)
{
    constexpr std::uint64_t kSeed = 20261123;
    std::mt19937_64 random(kSeed);
    std::uniform_real_distribution<double> wide(-5000, 5000);
    for (const Unit& unit : kUnits)
        for (int i = 0; i < 2000; ++i) {
            const double x = wide(random);
            ASSERT_EQ(std::bit_cast<std::uint64_t>(unit.plain(x)),
                      std::bit_cast<std::uint64_t>(unit.checked(x).value()))
                << "seed " << kSeed << ": " << unit.name << " " << x;
        }
}

} // namespace
} // namespace comfortics::formulas
