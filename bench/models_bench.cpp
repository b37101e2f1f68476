// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models' fast ways beside their plain ones, and the roots of the precise rules over weather of all
// kinds: there "ns_per_point" is what to read.
#include "classic/radiation_search.h"
#include "classic/wbgt_utci.h"
#include "models/precise_roots.h"
#include "models/psychrometric_search.h"
#include "models/utci_polynomial.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

using namespace comfortics;
using namespace comfortics::models;
using texts::Variant;

void globeFast(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Globe_Temperature_Model(30, 50, 2, 600));
}
BENCHMARK(globeFast);

void globePlain(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            plain::Globe_Temperature_Model(30, 50, kSitePressure, 2, 600, kDirectFraction, kZenith));
    }
}
BENCHMARK(globePlain);

void wetBulbFast(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Natural_Wet_Bulb(30, 18.4380854946834, 50, 2, 600));
}
BENCHMARK(wetBulbFast);

void wetBulbPlain(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(plain::Natural_Wet_Bulb(30, 18.4380854946834, 50, kSitePressure, 2, 600,
                                                         kDirectFraction, kZenith, kRadiationSwitch));
    }
}
BENCHMARK(wetBulbPlain);

// Globes that need some 600 W/m²: a summer day, a winter storm, and a wind in which the solver
// swings too far for any candidate to be skipped.
constexpr double kSearches[][4] = {{30, 50, 2, 39}, {0, 80, 10, 3}, {-20, 70, 17, -16.6}};

void radiationSearchFast(benchmark::State& state)
{
    const auto& [Ta, RH, WS, Tg] = kSearches[state.range(0)];
    for (auto _ : state)
        benchmark::DoNotOptimize(classic::searchRadiation(Ta, RH, WS, Tg, classic::kLastCandidate, [] {}));
}
BENCHMARK(radiationSearchFast)->DenseRange(0, 2);

void radiationSearchPlain(benchmark::State& state)
{
    const auto& [Ta, RH, WS, Tg] = kSearches[state.range(0)];
    for (auto _ : state)
        benchmark::DoNotOptimize(
            classic::plain::searchRadiation(GlobeModel(Ta, RH, WS), Tg, 0, classic::kLastCandidate, [] {}));
}
BENCHMARK(radiationSearchPlain)->DenseRange(0, 2);

void psychrometricFast(benchmark::State& state)
{
    const Number Ta = 30;
    for (auto _ : state)
        benchmark::DoNotOptimize(Psychrometric_Wet_Bulb(Ta, false, 18.4380854946834));
}
BENCHMARK(psychrometricFast);

void psychrometricPlain(benchmark::State& state)
{
    const Number Ta = 30;
    for (auto _ : state)
        benchmark::DoNotOptimize(plain::Psychrometric_Wet_Bulb(Ta, false, 18.4380854946834));
}
BENCHMARK(psychrometricPlain);

void utciPolynomial(benchmark::State& state)
{
    Number Ta = 30;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Ta);
        benchmark::DoNotOptimize(UTCI_Polynomial(Ta, 2, 21.3, 2.1));
    }
}
BENCHMARK(utciPolynomial);

struct Weather {
    double Ta, RH, WS, SR;
};

template <typename Solve>
void precise(benchmark::State& state, Solve solve)
{
    std::mt19937_64 random(3);
    const auto draw = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    std::vector<Weather> points(10'000);
    for (Weather& w : points)
        w = {draw(-20, 45), draw(5, 100), draw(0.1, 15), draw(0, 1200)};
    for (auto _ : state) {
        double sum = 0;
        for (const Weather& w : points)
            sum += solve(w);
        benchmark::DoNotOptimize(sum);
    }
    state.counters["ns_per_point"] =
        benchmark::Counter(static_cast<double>(points.size()) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

double preciseGlobe(const Weather& w)
{
    return preciseGlobeTemperature(w.Ta, w.RH, w.WS, w.SR).value;
}

double preciseWetBulb(const Weather& w)
{
    return preciseNaturalWetBulb(w.Ta, w.RH, w.WS, w.SR).value;
}

double preciseOutdoor(const Weather& w)
{
    return ((0.7 * preciseWetBulb(w)) + (0.2 * preciseGlobe(w))) + (0.1 * w.Ta);
}

double precisePsychrometric(const Weather& w)
{
    return precisePsychrometricWetBulb(w.Ta, w.Ta - 0.2 * (100 - w.RH)).value;
}

BENCHMARK_CAPTURE(precise, globe, preciseGlobe);
BENCHMARK_CAPTURE(precise, wetBulb, preciseWetBulb);
BENCHMARK_CAPTURE(precise, outdoorWbgt, preciseOutdoor);
BENCHMARK_CAPTURE(precise, psychrometric, precisePsychrometric);

class SilentDesk final : public classic::Desk {
public:
    void writeCaption(formulas::Live, std::string text) override { benchmark::DoNotOptimize(text); }
    void writeSolarRadiationResult(std::string text) override { benchmark::DoNotOptimize(text); }
    void showMessage(const std::string&) override {}
    void explain(std::string) override {}
};

/// All that one calculation asks of the models, indices 100, 195, 199 and 200 included.
void fullSet(benchmark::State& state, const char* globe, const char* radiation)
{
    SilentDesk desk;
    for (auto _ : state) {
        classic::WBGT_UTCI models(desk);
        const auto ask = [&](auto model) {
            Variant Ta = "30";
            Variant Tg = globe;
            Variant Td = "";
            Variant WS = "2";
            Variant SR = radiation;
            Variant RH = "50";
            benchmark::DoNotOptimize(model(Ta, Tg, Td, WS, SR, RH));
        };
        const auto utci = [&](auto& Ta, auto& Tg, auto& Td, auto& WS, auto& SR, auto& RH) {
            return models.UTCI_Regression(Ta, Tg, Td, WS, SR, RH);
        };
        const auto utciAt10m = [&](auto& Ta, auto& Tg, auto& Td, auto&, auto& SR, auto& RH) {
            Variant wind = 3.1098;
            return models.UTCI_Regression(Ta, Tg, Td, wind, SR, RH);
        };
        const auto outdoor = [&](auto& Ta, auto& Tg, auto& Td, auto& WS, auto& SR, auto& RH) {
            return models.WBGT_Outdoor(Ta, Tg, Td, WS, SR, RH);
        };
        const auto indoor = [&](auto& Ta, auto&, auto& Td, auto& WS, auto&, auto& RH) {
            return models.WBGT_Indoor(Ta, Td, WS, RH);
        };
        const auto radiant = [&](auto& Ta, auto& Tg, auto&, auto& WS, auto& SR, auto&) {
            return models.Mean_Radiant_Temperature_Model(Ta, Tg, SR, WS);
        };
        ask(utci);
        ask(outdoor);
        ask(indoor);
        ask(radiant);
        ask(radiant);
        ask(utciAt10m);
        ask(indoor);
        ask(outdoor);
    }
}
BENCHMARK_CAPTURE(fullSet, radiationGiven, "", "600");
BENCHMARK_CAPTURE(fullSet, globeGiven, "39", "");

} // namespace
