// SPDX-License-Identifier: GPL-3.0-or-later
//
// One whole calculation, from the texts of the boxes to the texts of the store, and each index alone
// on top of the models. The models' and solvers' own benchmarks stand the plain ways beside the quick
// ones.
#include "classic/calculation.h"

#include "controls/dialogs.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <string_view>

namespace {

using namespace comfortics;

struct SilentMessages final : controls::Messages {
    controls::Answer show(const controls::MessageBox&) override { return controls::Answer::Ok; }
};

using Texts = std::array<std::string_view, classic::kReadingCount>;

// Two sets of readings in turn, so that no calculation finds the solves of the one before it.
constexpr std::array<Texts, 2> kRadiationGiven{
    {{"30", "", "600", "", "50", "2"}, {"27.5", "", "812", "", "61", "3.4"}}};
constexpr std::array<Texts, 2> kGlobeGiven{
    {{"30", "38.5", "", "", "50", "2"}, {"27.5", "41.2", "", "", "61", "3.4"}}};

classic::Settings everything()
{
    classic::Settings settings;
    settings.ignoreLimits = true;
    settings.selection.set(196, false); // has no value where the radiation box is empty
    return settings;
}

void calculate(benchmark::State& state, const std::array<Texts, 2>& readings,
               const classic::Settings& settings)
{
    const classic::Limits limits;
    SilentMessages messages;
    classic::Calculation calculation(limits, messages);
    std::size_t turn = 0;
    for (auto _ : state) {
        calculation.readings.write(readings[turn ^= 1]);
        if (calculation.run(settings) != classic::RunStatus::Ok)
            state.SkipWithError(calculation.failure()->sentence().c_str());
        benchmark::DoNotOptimize(calculation.results.lbl_results[222].caption().data());
    }
}

void wholeCalculationRadiationGiven(benchmark::State& state)
{
    calculate(state, kRadiationGiven, everything());
}
BENCHMARK(wholeCalculationRadiationGiven);

void wholeCalculationGlobeGiven(benchmark::State& state)
{
    calculate(state, kGlobeGiven, everything());
}
BENCHMARK(wholeCalculationGlobeGiven);

void modelsOnlyRadiationGiven(benchmark::State& state)
{
    classic::Settings settings;
    settings.selection = classic::Selection::none();
    calculate(state, kRadiationGiven, settings);
}
BENCHMARK(modelsOnlyRadiationGiven);

void modelsOnlyGlobeGiven(benchmark::State& state)
{
    classic::Settings settings;
    settings.selection = classic::Selection::none();
    calculate(state, kGlobeGiven, settings);
}
BENCHMARK(modelsOnlyGlobeGiven);

// What one index costs above the models: the ten slowest among them.
void oneIndex(benchmark::State& state)
{
    classic::Settings settings;
    settings.selection = classic::Selection::none();
    settings.selection.set(static_cast<int>(state.range(0)), true);
    settings.ignoreLimits = true;
    state.SetLabel(std::string(catalogue::row(static_cast<int>(state.range(0))).name));
    calculate(state, kRadiationGiven, settings);
}
BENCHMARK(oneIndex)
    ->Arg(195)
    ->Arg(215)
    ->Arg(118)
    ->Arg(119)
    ->Arg(120)
    ->Arg(121)
    ->Arg(122)
    ->Arg(123)
    ->Arg(208)
    ->Arg(176);

} // namespace
