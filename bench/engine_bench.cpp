// SPDX-License-Identifier: GPL-3.0-or-later
//
// The library over a million points, against a loop over the plain formulas that a compiler makes of them:
// points per second, and how many times as many. One thread, but for the last lines.
//
// usage: engine_bench [--benchmark_filter=...]
#include <comfortics/comfortics.h>

#include "formulas/comfort_votes.h"
#include "formulas/humid_heat.h"
#include "formulas/mean_vote.h"
#include "formulas/primitives.h"
#include "formulas/psychrometry.h"
#include "models/precise_roots.h"
#include "models/quantity_formulas.h"
#include "models/utci_polynomial.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace comfortics {
namespace {

constexpr std::size_t kPoints = 1'000'000;
constexpr const char* kTwoThreads = ", two threads";

std::vector<double> between(double low, double high, unsigned seed)
{
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> spread(low, high);
    std::vector<double> values(kPoints);
    for (double& value : values)
        value = spread(random);
    return values;
}

/// One year's weather of a warm place and more, in columns.
struct Weather {
    std::vector<double> Ta = between(5, 42, 1);
    std::vector<double> RH = between(15, 95, 2);
    std::vector<double> WS = between(0.5, 8, 3);
    std::vector<double> SR = between(0, 1000, 4);
    std::vector<double> Tmrt = between(5, 70, 5);
    std::vector<double> WS10 = between(0.5, 15, 6);
    std::vector<double> Ea = between(5, 30, 7);
    std::vector<double> hot = between(27, 45, 8);
    std::vector<double> results = std::vector<double>(kPoints);

    Readings readings() const
    {
        return {.airTemperature = Ta, .solarRadiation = SR, .relativeHumidity = RH, .windSpeed = WS};
    }
};

Weather& weather()
{
    static Weather all;
    return all;
}

/// One case: the library's way and the plain loop.
struct Case {
    std::string name;
    std::function<void()> library;
    std::function<void()> plain;
};

void evaluateIndex(const char* id, std::initializer_list<Column> inputs)
{
    const std::vector<Column> columns(inputs);
    evaluate(*findIndex(id), columns, kPoints, {weather().results.data()});
}

template <typename Formula>
void loop(Formula formula)
{
    double* const results = weather().results.data();
    for (std::size_t i = 0; i < kPoints; ++i)
        results[i] = formula(i);
    benchmark::DoNotOptimize(results);
}

void calculateOne(const Target& target, unsigned threads = 1)
{
    const Output output{target, weather().results.data()};
    calculate(weather().readings(), kPoints, {&output, 1}, {}, {.threads = threads});
}

/// As many points as fit, so that the results of all indices need no gigabytes.
constexpr std::size_t kPointsOfAll = 100'000;

void calculateAll(unsigned threads)
{
    static std::vector<double> values(kIndexCount * kPointsOfAll);
    std::vector<Output> outputs;
    for (const Index& index : indices())
        outputs.push_back({index, values.data() + static_cast<std::size_t>(index.number - 1) * kPointsOfAll});
    calculate(weather().readings(), kPointsOfAll, outputs, {}, {.threads = threads});
}

double plainUtci(double Ta, double Tmrt, double va, double RH)
{
    using formulas::exponential;
    const double Pa = exponential(models::UTCI_Vapour_Exponent(formulas::Dew_Point_Magnus(Ta, RH))) *
                      models::kUtciVapourFactor;
    return models::UTCI_Polynomial(Ta, va, Tmrt - Ta, Pa).value();
}

std::vector<Case> cases()
{
    const Weather& w = weather();
    const auto column = [](const std::vector<double>& values) { return Column(values); };
    using formulas::Rules;
    return {
        {"utci",
         [&, column] {
             evaluateIndex("utci", {column(w.Ta), column(w.Tmrt), column(w.WS10), column(w.RH)});
         },
         [&] { loop([&](std::size_t i) { return plainUtci(w.Ta[i], w.Tmrt[i], w.WS10[i], w.RH[i]); }); }},
        {"heat index 88",
         [&, column] {
             evaluate(index(88), std::array{column(w.hot), column(w.RH)}, kPoints,
                      {weather().results.data()});
         },
         [&] { loop([&](std::size_t i) { return formulas::Index_088<double>(w.hot[i], w.RH[i]); }); }},
        {"heat index 86",
         [&, column] {
             evaluate(index(86), std::array{column(w.hot), column(w.RH)}, kPoints,
                      {weather().results.data()});
         },
         [&] { loop([&](std::size_t i) { return formulas::Index_086<double>(w.hot[i], w.RH[i]); }); }},
        {"humidex 90",
         [&, column] {
             evaluate(index(90), std::array{column(w.hot), column(w.Ea)}, kPoints,
                      {weather().results.data()});
         },
         [&] { loop([&](std::size_t i) { return formulas::Index_090<double>(w.hot[i], w.Ea[i]); }); }},
        {"wet bulb 203",
         [&, column] {
             evaluate(index(203), std::array{column(w.Ta), column(w.RH)}, kPoints,
                      {weather().results.data()});
         },
         [&] { loop([&](std::size_t i) { return formulas::Index_203<double>(w.Ta[i], w.RH[i]); }); }},
        {"mean vote 120",
         [&, column] {
             evaluate(index(120), std::array{column(w.Ta), column(w.Tmrt), column(w.Ea), column(w.WS)},
                      kPoints, {weather().results.data()});
         },
         [&] {
             loop([&](std::size_t i) {
                 return formulas::Index_120<double>(w.Ta[i], w.Tmrt[i], w.Ea[i], w.WS[i], Rules::Precise);
             });
         }},
        {"outdoor WBGT from radiation", [] { calculateOne(Quantity::WbgtOutdoor); },
         [&] {
             loop([&](std::size_t i) {
                 const double Tg = models::preciseGlobeTemperature(w.Ta[i], w.RH[i], w.WS[i], w.SR[i]).value;
                 const double Tnwb = models::preciseNaturalWetBulb(w.Ta[i], w.RH[i], w.WS[i], w.SR[i]).value;
                 return models::Wbgt_Outdoor(Tnwb, Tg, w.Ta[i]);
             });
         }},
        {"utci from readings", [] { calculateOne(index(195)); }, {}},
        {"outdoor WBGT, two threads", [] { calculateOne(Quantity::WbgtOutdoor, 2); },
         [] { calculateOne(Quantity::WbgtOutdoor, 1); }},
        {"all indices (100,000 points)", [] { calculateAll(1); }, {}},
        {"all indices, two threads", [] { calculateAll(2); }, [] { calculateAll(1); }},
    };
}

/// Keeps the time of each way, for the table of ratios.
class Ratios : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration) {
                double& best = m_seconds[run.run_name.function_name];
                const bool byTheClock = run.run_name.function_name.find(kTwoThreads) != std::string::npos;
                const double now = (byTheClock ? run.real_accumulated_time : run.cpu_accumulated_time) /
                                   static_cast<double>(run.iterations);
                best = best == 0 || now < best ? now : best;
            }
    }

    void print(const std::vector<Case>& all) const
    {
        std::printf("\n%-30s %16s %16s %8s\n", "", "library [pt/s]", "compared [pt/s]", "ratio");
        for (const Case& one : all) {
            const auto library = m_seconds.find(one.name + "/library");
            const auto plain = m_seconds.find(one.name + "/compared");
            if (library == m_seconds.end())
                continue;
            const bool isAll = one.name.starts_with("all");
            const auto points = static_cast<double>(isAll ? kPointsOfAll : kPoints);
            std::printf("%-30s %16.4g", one.name.c_str(), points / library->second);
            if (plain != m_seconds.end())
                std::printf(" %16.4g %8.2f", points / plain->second, plain->second / library->second);
            std::printf("\n");
        }
    }

private:
    std::map<std::string, double> m_seconds;
};

} // namespace
} // namespace comfortics

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    const auto all = comfortics::cases();
    for (const auto& one : all) {
        const auto repeat = [](const std::function<void()>& way) {
            return [&way](benchmark::State& state) {
                for (auto _ : state)
                    way();
            };
        };
        // One thread by its processor time, which other work on the machine disturbs less; two by the clock.
        const auto add = [&](const char* way, const std::function<void()>& work) {
            auto* const added = benchmark::RegisterBenchmark((one.name + way).c_str(), repeat(work))
                                    ->Unit(benchmark::kMillisecond);
            if (one.name.ends_with(comfortics::kTwoThreads))
                added->UseRealTime();
        };
        add("/library", one.library);
        if (one.plain)
            add("/compared", one.plain);
    }
    comfortics::Ratios ratios;
    benchmark::RunSpecifiedBenchmarks(&ratios);
    ratios.print(all);
    return 0;
}
