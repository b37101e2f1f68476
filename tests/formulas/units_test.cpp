// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/units.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>

namespace comfortics::formulas {
namespace {

TEST(Units, HaveTheSameBitsInBothNumberTypes)
{
    EXPECT_EQ(findUnit("f"), nullptr) << "names are told apart by their case";
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
