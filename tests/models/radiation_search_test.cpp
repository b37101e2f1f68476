// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/radiation_search.h"

#include "model_cases.h"

#include <gtest/gtest.h>

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace models;

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

std::string fast(double Ta, double RH, double WS, double Tg, int last = kLastCandidate)
{
    return found([&](const auto& count) { return searchRadiation(Ta, RH, WS, Tg, last, count); });
}

std::string scanned(double Ta, double RH, double WS, double Tg, int last = kLastCandidate)
{
    return found([&](const auto& count) {
        return plain::searchRadiation(GlobeModel(Ta, RH, WS), Tg, 0, last, count);
    });
}

/// Candidate by candidate with the plain solver, written out here.
std::string writtenOut(double Ta, double RH, double WS, double Tg)
{
    return found([&](const auto& count) -> std::optional<std::int16_t> {
        for (int c = 0; c <= 1376; ++c) {
            Variant wind = values::plainText(WS);
            const Variant T = plain::Globe_Temperature_Model(Ta, RH, 101, wind, c, 0.8, 0, 0.1).temperature();
            if (T.isEmpty())
                count();
            if (values::val(T.text()) >= Tg)
                return static_cast<std::int16_t>(c);
        }
        return std::nullopt;
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
        {31, 31.27068, 0.05, 44, "377"},
        {-8, 60, 4.2, -6.5, "218"},
        {40, 15, 6, 44.4, "521"},
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
}

TEST(RadiationSearch, EndsAtTheLastCandidate)
{
    EXPECT_EQ(fast(27.5, 41, 1.3, 35.2, 469), "469");
    EXPECT_EQ(fast(27.5, 41, 1.3, 35.2, 468), "none");
    const GlobeModel globe(27.5, 41, 1.3);
    const double reached = globe.solve(1376).celsius;
    EXPECT_EQ(fast(27.5, 41, 1.3, reached - 0.001), scanned(27.5, 41, 1.3, reached - 0.001));
    EXPECT_EQ(fast(27.5, 41, 1.3, reached + 0.001), "none");
}

TEST(RadiationSearch, ComparesTheNumberText)
{
    const GlobeModel globe(27.5, 41, 1.3);
    int roundedUp = 0;
    for (int candidate = 0; candidate < 80; ++candidate) {
        const double T = globe.solve(candidate).celsius;
        const double read = values::val(values::plainText(T));
        EXPECT_EQ(fast(27.5, 41, 1.3, read), std::to_string(candidate));
        EXPECT_NE(fast(27.5, 41, 1.3, std::nextafter(read, 100)), std::to_string(candidate));
        roundedUp += T < read ? 1 : 0;
    }
    EXPECT_GT(roundedUp, 5) << "texts above the temperature that they show";
}

TEST(RadiationSearch, SolvesFewCandidates)
{
    for (const double Ta : {-30.0, -5.0, 18.0, 42.0})
        for (const double WS : {0.1, 0.7, 2.5, 7.0}) {
            const GlobeModel globe(Ta, 55, WS);
            const double Tg = globe.solve(700).celsius;
            const int skipped = skippableCandidates(globe, Tg, kLastCandidate);
            EXPECT_GT(skipped, 680) << Ta << " °C, " << WS << " m/s";
            EXPECT_LE(skipped, 700) << Ta << " °C, " << WS << " m/s";
        }
}

/// Inputs that try the edges: globes at, just above and just below what a candidate gives, out of
/// reach on both sides, winds in which the iteration swings or fails.
struct Input {
    double Ta, RH, WS, Tg;
};

Input randomInput(Random& random)
{
    Input in{random.between(-60, 58), random.between(0.1, 100), random.size(0.1, 12), 0};
    const auto tenths = [](double x) { return std::round(x * 10) / 10; };
    const int unusual = random.integer(0, 11);
    if (unusual == 0)
        in.Ta = random.between(-90, 120);
    else if (unusual == 1)
        in.RH = random.size(1e-3, 1e3);
    else if (unusual == 2)
        in.WS = random.oneIn(4) ? 0 : random.size(10, 60);
    else if (unusual == 3)
        in = {tenths(in.Ta), tenths(in.RH), tenths(in.WS), 0};
    in.WS = values::val(values::plainText(in.WS)); // as a text can hold it
    double T = in.Ta;
    try {
        const int candidate = random.integer(0, random.oneIn(3) ? 1376 : 150);
        T = values::val(values::plainText(GlobeModel(in.Ta, in.RH, in.WS).solve(candidate).celsius));
    } catch (const values::RunFailure&) {
    }
    const double globes[] = {T,
                             std::nextafter(T, 1000),
                             std::nextafter(T, -1000),
                             T + random.between(-0.06, 0.06),
                             tenths(T),
                             in.Ta + random.between(-12, 12),
                             random.oneIn(10) ? random.between(-300, 500) : in.Ta + random.between(-3, 3)};
    in.Tg = globes[random.integer(0, 6)];
    return in;
}

TEST(RadiationSearch, FastIsTheScanIsWrittenOut)
{
    Random random;
    for (int i = 0; i < 20000 / kSlowness; ++i) {
        const auto [Ta, RH, WS, Tg] = randomInput(random);
        SCOPED_TRACE(testing::Message() << "seed " << Random::kSeed << ": Ta " << Ta << " RH " << RH << " WS "
                                        << WS << " Tg " << digits(Tg, 17));
        const std::string candidate = scanned(Ta, RH, WS, Tg);
        ASSERT_EQ(fast(Ta, RH, WS, Tg), candidate);
        if (i % 50 == 0) {
            ASSERT_EQ(writtenOut(Ta, RH, WS, Tg), candidate);
        }
    }
}

} // namespace
} // namespace comfortics::tests
