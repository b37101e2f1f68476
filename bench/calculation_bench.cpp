// SPDX-License-Identifier: GPL-3.0-or-later
//
// One whole calculation, from the texts of the boxes to the texts of the store, and each index alone
// on top of the models. The models' and solvers' own benchmarks stand the plain ways beside the quick
// ones.
#include "core/calculation.h"

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

using Texts = std::array<std::string_view, core::kReadingCount>;

// Two sets of readings in turn, so that no calculation finds the solves of the one before it.
constexpr std::array<Texts, 2> kRadiationGiven{
    {{"30", "", "600", "", "50", "2"}, {"27.5", "", "812", "", "61", "3.4"}}};
constexpr std::array<Texts, 2> kGlobeGiven{
    {{"30", "38.5", "", "", "50", "2"}, {"27.5", "41.2", "", "", "61", "3.4"}}};

core::Settings everything()
{
    core::Settings settings;
    settings.ignoreLimits = true;
    settings.selection.set(196, false); // has no value where the radiation box is empty
    return settings;
}

void calculate(benchmark::State& state, const std::array<Texts, 2>& readings, const core::Settings& settings)
{
    const core::Limits limits;
    SilentMessages messages;
    core::Calculation calculation(limits, messages);
    std::size_t turn = 0;
    for (auto _ : state) {
        calculation.readings.write(readings[turn ^= 1]);
        if (calculation.run(settings) != core::RunStatus::Ok)
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
    core::Settings settings;
    settings.selection = core::Selection::none();
    calculate(state, kRadiationGiven, settings);
}
BENCHMARK(modelsOnlyRadiationGiven);

void modelsOnlyGlobeGiven(benchmark::State& state)
{
    core::Settings settings;
    settings.selection = core::Selection::none();
    calculate(state, kGlobeGiven, settings);
}
BENCHMARK(modelsOnlyGlobeGiven);

// What one index costs above the models: the ten slowest among them.
void oneIndex(benchmark::State& state)
{
    core::Settings settings;
    settings.selection = core::Selection::none();
    settings.selection.set(static_cast<int>(state.range(0)), true);
    settings.ignoreLimits = true;
    state.SetLabel(std::string(core::catalogueRow(static_cast<int>(state.range(0))).name));
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
