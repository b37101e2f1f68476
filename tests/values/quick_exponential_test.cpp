// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/quick_exponential.h"

#include "values/clones.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <string_view>
#include <vector>
#if defined(__GLIBC__)
#include <gnu/libc-version.h>
#endif

namespace comfortics::values {

namespace {

std::uint64_t bits(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

/// How many of the exponentials have other bits than the library's; the first is shown.
std::size_t differences(std::vector<double> numbers)
{
    const std::vector<double> given = numbers;
    quick::exponentials(numbers.data(), numbers.size());
    std::size_t found = 0;
    for (std::size_t i = 0; i < given.size(); ++i) {
        const double expected = std::exp(given[i]);
        if (bits(expected) != bits(numbers[i]) && !(std::isnan(expected) && std::isnan(numbers[i])) &&
            found++ == 0)
            ADD_FAILURE() << std::hexfloat << "exp(" << given[i] << ") is " << expected << ", not "
                          << numbers[i];
    }
    return found;
}

/// Whether all is as it was when this was tried: a processor that fuses, and the library of Debian 12 taking
/// the way for it.
bool mustBeAvailable()
{
#if defined(__GLIBC__)
    return COMFORTICS_HAS_FUSED && std::string_view(gnu_get_libc_version()) == "2.36" &&
           std::getenv("GLIBC_TUNABLES") == nullptr;
#else
    return false;
#endif
}

class QuickExponential : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(quick::available() || !mustBeAvailable()) << "It lost the library's bits.";
        if (!quick::available())
            GTEST_SKIP() << "This processor, C library or build takes the library's exponential.";
    }
};

TEST_F(QuickExponential, HasTheLibrarysBitsOfMillionsOfNumbers)
{
    std::mt19937_64 random(19700101);
    for (const double range : {511.999, 100.0, 20.0, 3.0, 0.5, 1e-3, 1e-9, 1e-16, 1e-300}) {
        std::uniform_real_distribution<double> any(-range, range);
        std::vector<double> numbers(500'000);
        std::generate(numbers.begin(), numbers.end(), [&] { return any(random); });
        EXPECT_EQ(differences(numbers), 0U) << range;
    }
}

// Where the table goes from one power to the next, and where a whole number is rounded to.
TEST_F(QuickExponential, HasThemAroundTheStepsOfItsTable)
{
    std::vector<double> numbers;
    for (int step = -94'000; step <= 94'000; ++step) {
        const double middle = (step + 0.5) * std::log(2.0) / 128;
        for (const double x : {middle, step * std::log(2.0) / 128})
            for (const double towards : {-1000.0, 1000.0})
                numbers.insert(numbers.end(), {x, std::nextafter(x, towards)});
    }
    EXPECT_EQ(differences(numbers), 0U);
}

// Not of them alone: whoever stands beside one of these has its own.
TEST(QuickExponentials, LeaveToTheLibraryWhatIsBeyond)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double odd :
         {512.0, -512.0, 709.782712893384, 709.782712893385, -708.4, -745.13, -745.2, 1e308, kInfinity,
          -kInfinity, std::numeric_limits<double>::quiet_NaN(), 0.0, -0.0, 5e-324}) {
        std::vector<double> numbers(130, 1.5);
        numbers[17] = odd;
        EXPECT_EQ(differences(numbers), 0U) << odd;
    }
}

// What a block of a formula is told by, and then repeats such points.
TEST_F(QuickExponential, IsNoNumberBeyond)
{
    for (const double odd : {512.0, -512.0, 1e308, std::numeric_limits<double>::infinity()})
        EXPECT_TRUE(std::isnan(quick::exponential(odd))) << odd;
}

} // namespace
} // namespace comfortics::values
