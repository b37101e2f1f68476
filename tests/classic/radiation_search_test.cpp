// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/radiation_search.h"

#include "../models/model_cases.h"
#include "long_tests.h"
#include "texts/number_text.h"
#include "values/plain_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace classic;

/// The candidate found, "none" or "fails: ...", and the number of reports before it.
template <typename Search>
std::string found(Search search)
{
    int reports = 0;
    const NoConvergence count = [&] { ++reports; };
    std::string result;
    try {
        const auto radiation = search(count);
        result = radiation ? std::to_string(*radiation) : "none";
    } catch (const values::RunFailure& failure) {
        result = "fails: " + failure.why();
    }
    return result + (reports == 0 ? "" : ", " + std::to_string(reports) + " without convergence");
}

std::string fast(double Ta, double RH, double WS, double Tg, int last = kLastCandidate,
                 Rules rules = Rules::Classic)
{
    return found([&](const auto& count) { return searchRadiation(Ta, RH, WS, Tg, last, count, rules); });
}

std::string scanned(double Ta, double RH, double WS, double Tg, Rules rules)
{
    return found([&](const auto& count) {
        return plain::searchRadiation(GlobeModel(Ta, RH, WS, rules), Tg, 0, kLastCandidate, count);
    });
}

// Expected candidates from a separate evaluation in Python, which solved them all.
TEST(RadiationSearch, FindsTheFirstCandidate)
{
    struct Case {
        double Ta, RH, WS, Tg;
        const char* expected;
    };
    const Case cases[] = {
        {27.5, 41, 1.3, 35.2, "469"},
        {-8, 60, 4.2, -6.5, "218"},
        {10, 90, 0.3, 9.5, "55"}, // a globe colder than the air
        {0, 80, 12, 4.1, "603"},  // the iteration swings
        {12, 60, 0, 20, "187"},
        {20, 50, 1, 18.2, "0"},
        {25, 50, 2, 90, "none"},
        {-20, 60, 20, -18, "0, 1 without convergence"}, // which counts as 0 and so reaches -18
        {-40, 50, 20, -39, "fails"},
    };
    for (const Case& c : cases) {
        const std::string result = fast(c.Ta, c.RH, c.WS, c.Tg);
        EXPECT_EQ(result.substr(0, result.find(": ")), c.expected) << c.Ta << " °C, " << c.Tg << " °C";
    }
    // By the robust rules every candidate has a globe.
    EXPECT_EQ(fast(-20, 60, 20, -18, kLastCandidate, Rules::Robust), "419");
    EXPECT_EQ(fast(-40, 50, 20, -39, kLastCandidate, Rules::Robust), "257");
    EXPECT_EQ(fast(0, 50, 30, 0.5, kLastCandidate, Rules::Robust), "199");
}

TEST(RadiationSearch, EndsAtTheLastCandidate)
{
    EXPECT_EQ(fast(27.5, 41, 1.3, 35.2, 469), "469");
    EXPECT_EQ(fast(27.5, 41, 1.3, 35.2, 468), "none");
}

TEST(RadiationSearch, ComparesTheNumberText)
{
    const GlobeModel globe(27.5, 41, 1.3);
    for (int candidate = 0; candidate < 80; ++candidate) {
        const double read = texts::val(values::plainText(globe.solve(candidate).celsius));
        EXPECT_EQ(fast(27.5, 41, 1.3, read), std::to_string(candidate));
        EXPECT_NE(fast(27.5, 41, 1.3, std::nextafter(read, 100)), std::to_string(candidate));
    }
}

TEST(RadiationSearch, SolvesFewCandidates)
{
    for (const double Ta : {-30.0, -5.0, 18.0, 42.0}) {
        const GlobeModel globe(Ta, 55, 2.5);
        const int skipped = skippableCandidates(globe, globe.solve(700).celsius, kLastCandidate);
        EXPECT_GT(skipped, 680) << Ta << " °C";
        EXPECT_LE(skipped, 700) << Ta << " °C";
    }
}

// Globes at, just above and just below what a candidate gives and out of reach, winds in which the
// iteration swings or fails.
TEST(RadiationSearch, FastIsTheScan)
{
    Random random;
    const int scans = points(12000, kSlowness);
    for (int i = 0; i < scans; ++i) {
        const double Ta = random.between(-60, 58);
        const double RH = random.size(0.1, 300);
        // As a text can hold it.
        const double WS = texts::val(values::plainText(random.oneIn(40) ? 0 : random.size(0.1, 20)));
        double Tg = Ta + random.between(-12, 12);
        try {
            const int candidate = random.integer(0, random.oneIn(3) ? 1376 : 150);
            const double T = texts::val(values::plainText(GlobeModel(Ta, RH, WS).solve(candidate).celsius));
            const double globes[] = {Tg, T, std::nextafter(T, 1000), std::nextafter(T, -1000),
                                     T + random.between(-0.06, 0.06)};
            Tg = globes[random.integer(0, 4)];
        } catch (const values::RunFailure&) {
        }
        const Rules rules = i % 30 == 0 ? Rules::Robust : Rules::Classic;
        ASSERT_EQ(fast(Ta, RH, WS, Tg, kLastCandidate, rules), scanned(Ta, RH, WS, Tg, rules))
            << "rules " << static_cast<int>(rules) << " seed " << Random::kSeed << ": Ta " << Ta << " RH "
            << RH << " WS " << WS << " Tg " << digits(Tg, kAllDigits);
    }
}

} // namespace
} // namespace comfortics::tests
