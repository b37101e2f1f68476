// SPDX-License-Identifier: GPL-3.0-or-later
//
// Formulas over columns: the blocks of plain doubles beside the checked formula, point by point. The
// counter "ns_per_point" is what to read.
#include "catalogue/catalogue.h"
#include "formulas/block_runner.h"
#include "models/utci_polynomial.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

using namespace comfortics;
using formulas::FormulaCall;

constexpr std::size_t kPoints = 100'000;

/// The low and high ends of each input's weather.
using Ranges = std::vector<std::pair<double, double>>;

struct Columns {
    explicit Columns(const Ranges& ranges)
    {
        std::mt19937_64 random(86);
        for (const auto& [low, high] : ranges) {
            auto& column = values.emplace_back(kPoints);
            for (double& value : column)
                value = std::uniform_real_distribution<double>(low, high)(random);
        }
        for (const auto& column : values)
            inputs.push_back({column.data(), 1});
    }
    std::vector<std::vector<double>> values;
    std::vector<formulas::InputColumn> inputs;
};

void tellPoints(benchmark::State& state)
{
    state.counters["ns_per_point"] =
        benchmark::Counter(static_cast<double>(kPoints) * 1e-9,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void blocks(benchmark::State& state, const FormulaCall& call, const Ranges& ranges)
{
    const Columns columns(ranges);
    std::vector<double> results(kPoints);
    for (auto _ : state) {
        calculateColumns(call, columns.inputs, {}, formulas::Rules::Robust, kPoints, {results.data()});
        benchmark::DoNotOptimize(results.data());
        benchmark::ClobberMemory();
    }
    tellPoints(state);
}

void checkedPoints(benchmark::State& state, const FormulaCall& call, const Ranges& ranges)
{
    const Columns columns(ranges);
    const formulas::Assumptions site;
    for (auto _ : state) {
        for (std::size_t point = 0; point < kPoints; ++point) {
            formulas::FormulaInputs inputs;
            for (std::size_t i = 0; i < columns.values.size(); ++i)
                inputs[i] = columns.values[i][point];
            benchmark::DoNotOptimize(call.function({site, formulas::Rules::Robust}, inputs));
        }
    }
    tellPoints(state);
}

const FormulaCall& index(int number)
{
    return catalogue::row(number).formula;
}

const Ranges kHeat{{22, 45}, {20, 95}};
const Ranges kDewPoints{{22, 45}, {5, 25}};
const Ranges kVote{{10, 35}, {10, 60}, {5, 25}, {0.1, 5}};
const Ranges kUtci{{-20, 45}, {-20, 75}, {0.5, 17}, {10, 100}};

#define COMFORTICS_PAIR(name, ...)                                                                           \
    BENCHMARK_CAPTURE(blocks, name, __VA_ARGS__);                                                            \
    BENCHMARK_CAPTURE(checkedPoints, name, __VA_ARGS__)

COMFORTICS_PAIR(index_65, index(65), kHeat);
COMFORTICS_PAIR(index_86, index(86), kHeat);
COMFORTICS_PAIR(index_88, index(88), kHeat);
COMFORTICS_PAIR(index_89, index(89), kHeat);
COMFORTICS_PAIR(index_90, index(90), kDewPoints);
COMFORTICS_PAIR(index_203, index(203), kHeat);
COMFORTICS_PAIR(index_120, index(120), kVote);
COMFORTICS_PAIR(utci, models::kUtciOfHumidity, kUtci);

} // namespace
