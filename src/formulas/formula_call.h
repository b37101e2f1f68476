// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/assumptions.h"
#include "formulas/block.h"
#include "formulas/real.h"
#include "formulas/rules.h"

#include <array>
#include <cstddef>
#include <optional>
#include <type_traits>
#include <utility>

namespace comfortics::formulas {

class QuickReal; // formulas/quick_real.h

inline constexpr std::size_t kMostInputs = 6;

/// What a formula may read besides its inputs.
struct FormulaContext {
    const Assumptions& assumptions;
    Rules rules;
};

/// The inputs of one call, in the formula's order.
using FormulaInputs = std::array<Number, kMostInputs>;

/// An index behind one signature: the checked formula of a point, and the same formula in plain doubles
/// for blocks of points.
struct FormulaCall {
    using Function = std::optional<Number> (*)(const FormulaContext&, const FormulaInputs&);
    using BlockFunction = void (*)(const Block&);

    Function function = nullptr;
    BlockFunction block = nullptr;
    std::size_t arity = 0;
    bool readsAssumptions = false;
};

namespace detail {

template <typename Parameter>
inline constexpr bool isInput = std::is_same_v<Parameter, Number> || std::is_same_v<Parameter, double> ||
                                std::is_same_v<Parameter, QuickReal>;

template <typename... Parameters>
inline constexpr std::size_t inputCount = (std::size_t{0} + ... + (isInput<Parameters> ? 1U : 0U));

// Inputs are numbered among the number parameters; context parameters take no number.
template <typename... Parameters>
constexpr std::size_t placeAmongInputs(std::size_t parameter)
{
    constexpr std::array<bool, sizeof...(Parameters)> inputs{isInput<Parameters>...};
    std::size_t before = 0;
    for (std::size_t i = 0; i < parameter; ++i)
        before += inputs[i] ? 1U : 0U;
    return before;
}

template <std::size_t parameter, typename... Parameters>
inline constexpr std::size_t inputPlace = placeAmongInputs<Parameters...>(parameter);

template <auto formula, typename... Parameters, std::size_t... at>
std::optional<Number> callWith(const FormulaContext& context, const FormulaInputs& inputs,
                               std::index_sequence<at...>)
{
    const auto argument = [&]<typename Parameter, std::size_t index>() -> decltype(auto) {
        if constexpr (isInput<Parameter>)
            return inputs[inputPlace<index, Parameters...>];
        else if constexpr (std::is_same_v<Parameter, Rules>)
            return context.rules;
        else
            return (context.assumptions);
    };
    return formula(argument.template operator()<Parameters, at>()...);
}

template <auto checked, auto plain, typename Result, typename... Parameters>
consteval FormulaCall wrap(Result (*)(Parameters...))
{
    return {.function =
                [](const FormulaContext& context, const FormulaInputs& inputs) {
                    return callWith<checked, Parameters...>(context, inputs,
                                                            std::index_sequence_for<Parameters...>());
                },
            .block = &calculateBlock<plain>,
            .arity = inputCount<Parameters...>,
            .readsAssumptions = (std::is_same_v<std::remove_cvref_t<Parameters>, Assumptions> || ...)};
}

} // namespace detail

/// Wraps an index over both its number types: its number parameters are inputs in order; assumptions and
/// rules come from the context.
template <auto checked, auto plain>
consteval FormulaCall formula()
{
    return detail::wrap<checked, plain>(checked);
}

} // namespace comfortics::formulas
