// SPDX-License-Identifier: GPL-3.0-or-later
//
// The loop over a block, for the kernels_*.cpp alone.
#pragma once

#include "formulas/block.h"
#include "formulas/formula_call.h"
#include "formulas/quick_real.h"
#include "values/clones.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace comfortics::formulas {

namespace detail {

template <auto formula, typename Result, typename... Parameters, std::size_t... at>
void forEachPoint(Result (*)(Parameters...), const Block& block, std::index_sequence<at...>)
{
    const std::array<const double*, kMostInputs> columns = [&block] {
        std::array<const double*, kMostInputs> inputs{};
        for (std::size_t i = 0; i < inputCount<Parameters...>; ++i)
            inputs[i] = block.inputs[i];
        return inputs;
    }();
    const AssumptionsOf<double> assumptions = block.assumptions;
    const Rules rules = block.rules;
    double* const __restrict results = block.results;
    const auto argument = [&]<typename Parameter, std::size_t index>(std::size_t point) -> decltype(auto) {
        if constexpr (isInput<Parameter>)
            return columns[inputPlace<index, Parameters...>][point];
        else if constexpr (std::is_same_v<Parameter, Rules>)
            return (rules);
        else
            return (assumptions);
    };
    for (std::size_t point = 0; point < block.count; ++point) {
        const auto result = formula(argument.template operator()<Parameters, at>(point)...);
        if constexpr (std::is_same_v<Result, QuickReal>)
            results[point] = result.value();
        else
            results[point] = result;
    }
}

template <auto formula, typename Result, typename... Parameters>
void forEachPoint(Result (*function)(Parameters...), const Block& block)
{
    forEachPoint<formula>(function, block, std::index_sequence_for<Parameters...>());
}

template <auto formula>
COMFORTICS_CLONES void calculatePlainly(const Block& block)
{
    forEachPoint<formula>(formula, block);
}

template <auto formula>
COMFORTICS_FUSED void calculateQuickly(const Block& block)
{
    forEachPoint<formula>(formula, block);
}

} // namespace detail

/// The same formula over QuickReal, where there is one.
template <auto formula>
inline constexpr std::nullptr_t quickTwin = nullptr;

template <auto formula>
void calculateBlock(const Block& block)
{
    // By its type: an address is no constant for the sanitizers.
    if constexpr (!std::is_same_v<decltype(quickTwin<formula>), const std::nullptr_t>) {
        if (values::quick::available()) {
            detail::calculateQuickly<quickTwin<formula>>(block);
            return;
        }
    }
    detail::calculatePlainly<formula>(block);
}

} // namespace comfortics::formulas
