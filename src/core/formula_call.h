// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/assumptions.h"
#include "formulas/live_quantity.h"
#include "formulas/rules.h"
#include "values/variant.h"

#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

namespace comfortics::core {

inline constexpr std::size_t kMostInputs = 6;

/// What a formula may read besides its inputs, and where it may write a caption.
struct FormulaContext {
    const formulas::Assumptions& assumptions;
    formulas::Captions& captions;
    formulas::Rules rules;
};

/// The inputs of one call, in the formula's order.
using FormulaInputs = std::array<values::Number, kMostInputs>;

/// A formula of any number of inputs behind one signature.
struct FormulaCall {
    using Function = values::Variant (*)(const FormulaContext&, const FormulaInputs&);

    Function function = nullptr;
    std::size_t arity = 0;
};

namespace detail {

template <typename Parameter>
inline constexpr bool isInput = std::is_same_v<std::remove_cvref_t<Parameter>, values::Number>;

// Inputs are numbered among the Number parameters; context parameters take no number.
template <auto formula, typename... Parameters, std::size_t... at>
values::Variant callWith(const FormulaContext& context, const FormulaInputs& inputs,
                         std::index_sequence<at...>)
{
    constexpr std::array<bool, sizeof...(Parameters)> numbers{isInput<Parameters>...};
    constexpr auto place = [numbers](std::size_t parameter) {
        std::size_t before = 0;
        for (std::size_t i = 0; i < parameter; ++i)
            before += numbers[i] ? 1U : 0U;
        return before;
    };
    const auto argument = [&]<typename Parameter, std::size_t index>() -> decltype(auto) {
        if constexpr (isInput<Parameter>)
            return inputs[place(index)];
        else if constexpr (std::is_same_v<Parameter, const formulas::Assumptions&>)
            return (context.assumptions);
        else if constexpr (std::is_same_v<Parameter, formulas::Rules>)
            return context.rules;
        else
            return (context.captions);
    };
    return formula(argument.template operator()<Parameters, at>()...);
}

template <auto formula, typename Result, typename... Parameters>
consteval FormulaCall wrap(Result (*)(Parameters...))
{
    return {[](const FormulaContext& context, const FormulaInputs& inputs) {
                return callWith<formula, Parameters...>(context, inputs,
                                                        std::index_sequence_for<Parameters...>());
            },
            (std::size_t{0} + ... + (isInput<Parameters> ? 1U : 0U))};
}

} // namespace detail

/// Wraps a formula function: its Number parameters are inputs in order; assumptions, captions and
/// rules come from the context.
template <auto function>
consteval FormulaCall formula()
{
    return detail::wrap<function>(function);
}

} // namespace comfortics::core
