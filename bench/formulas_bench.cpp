// SPDX-License-Identifier: GPL-3.0-or-later
//
// The two searches that walk in equal steps: the way that skips steps beside the one that makes
// them. The rows of the plain way count how many fast solves take as long ("fast_solves").
#include "formulas/mean_vote.h"
#include "formulas/wind_chill_equivalent.h"

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using comfortics::values::Number;
using namespace comfortics::formulas;

struct Weather {
    double Ta, Tmrt, Ea, WS;
};

// From short walks to long ones.
constexpr Weather kSummer{30.2, 51.4, 19.6, 1.3};
constexpr Weather kSpring{17.1, 23.8, 9.2, 2.4};
constexpr Weather kWinter{-6.3, -1.2, 3.1, 3.7};
constexpr Weather kPolar{-38.4, -35.9, 0.2, 1.1};

template <typename Solve>
double secondsPerSolve(Solve solve)
{
    constexpr int kSolves = 20'000;
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kSolves; ++i)
        benchmark::DoNotOptimize(solve());
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / kSolves;
}

template <typename Fast>
void runFast(benchmark::State& state, Fast fast)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(fast());
}

template <typename Plain, typename Fast>
void runPlain(benchmark::State& state, Plain plain, Fast fast)
{
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state)
        benchmark::DoNotOptimize(plain());
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    state.counters["fast_solves"] = seconds / static_cast<double>(state.iterations()) / secondsPerSolve(fast);
}

using Vote = Number (*)(Number, Number, Number, Number, Number, Rules);

template <Vote vote>
auto voteIn(Weather weather)
{
    return [weather] { return vote(weather.Ta, weather.Tmrt, weather.Ea, weather.WS, 165, Rules::Classic); };
}

void meanVoteFast(benchmark::State& state, Weather weather)
{
    runFast(state, voteIn<Predicted_Mean_Vote<Number>>(weather));
}

void meanVotePlain(benchmark::State& state, Weather weather)
{
    runPlain(state, voteIn<Predicted_Mean_Vote_plain<Number>>(weather),
             voteIn<Predicted_Mean_Vote<Number>>(weather));
}

void meanVotePrecise(benchmark::State& state, Weather weather)
{
    runFast(state, [weather] {
        return Predicted_Mean_Vote<double>(weather.Ta, weather.Tmrt, weather.Ea, weather.WS, 165,
                                           Rules::Precise);
    });
}

using Equivalent = Number (*)(Number, Number);

Number equivalentFast(Number WS, Number Ta)
{
    return Index_215(WS, Ta, Rules::Classic);
}

template <Equivalent equivalent>
auto equivalentIn(Weather weather)
{
    return [weather] { return equivalent(weather.WS, weather.Ta); };
}

void windChillFast(benchmark::State& state, Weather weather)
{
    runFast(state, equivalentIn<equivalentFast>(weather));
}

void windChillPlain(benchmark::State& state, Weather weather)
{
    runPlain(state, equivalentIn<Index_215_plain<Number>>(weather), equivalentIn<equivalentFast>(weather));
}

BENCHMARK_CAPTURE(meanVoteFast, summer, kSummer);
BENCHMARK_CAPTURE(meanVotePlain, summer, kSummer);
BENCHMARK_CAPTURE(meanVoteFast, spring, kSpring);
BENCHMARK_CAPTURE(meanVotePlain, spring, kSpring);
BENCHMARK_CAPTURE(meanVoteFast, winter, kWinter);
BENCHMARK_CAPTURE(meanVotePlain, winter, kWinter);
BENCHMARK_CAPTURE(meanVoteFast, polar, kPolar);
BENCHMARK_CAPTURE(meanVotePlain, polar, kPolar);
BENCHMARK_CAPTURE(meanVotePrecise, summer, kSummer);
BENCHMARK_CAPTURE(meanVotePrecise, polar, kPolar);
BENCHMARK_CAPTURE(windChillFast, spring, kSpring);
BENCHMARK_CAPTURE(windChillPlain, spring, kSpring);
BENCHMARK_CAPTURE(windChillFast, polar, kPolar);
BENCHMARK_CAPTURE(windChillPlain, polar, kPolar);

} // namespace
