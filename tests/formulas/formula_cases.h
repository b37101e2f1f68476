// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the formula tests state their rows: formula, inputs, and the text that the result must show.
#pragma once

#include "formulas/assumptions.h"
#include "formulas/rules.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

namespace comfortics::tests {

using formulas::Assumptions;
using values::Number;

/// Assumptions that differ from the defaults, from one another, and from 0 and 1, so that a swap
/// of two of them shows; one of them is set anew if `member` is given.
inline Assumptions unusualAssumptions(Number Assumptions::*member = nullptr, Number value = 0)
{
    Assumptions site{.Friction = 0.27,
                     .Height = 0.62,
                     .Weight = 171,
                     .Barometric = 987,
                     .Emissivity = 0.91,
                     .ArAdu = 0.71};
    if (member != nullptr)
        site.*member = value;
    return site;
}

// Each makes one primitive or division fail.
inline const Assumptions kNegativeHeight = unusualAssumptions(&Assumptions::Height, -0.62);
inline const Assumptions kNegativeWeight = unusualAssumptions(&Assumptions::Weight, -171);
inline const Assumptions kNoPressure = unusualAssumptions(&Assumptions::Barometric, 0);

/// One row: the result of the formula must read `expected` with nine significant digits ("none" where it has
/// no value, "fails" for a run failure). The inputs are the numbers among its parameters, in order.
struct FormulaCase {
    template <typename Result, typename... Parameters>
    FormulaCase(const std::string& index, Result (*formula)(Parameters...), const std::vector<double>& inputs,
                std::string shownResult, const Assumptions& site = unusualAssumptions())
        : name(index + " of " + testing::PrintToString(inputs)), expected(std::move(shownResult)),
          compute([formula, inputs, site]() -> std::optional<Number> {
              EXPECT_EQ(inputs.size(), (std::is_same_v<Parameters, Number> + ... + 0U));
              Source source{inputs.begin(), site};
              return std::apply(formula, std::tuple<Parameters...>{source.next<Parameters>()...});
          })
    {
    }

    std::string name;
    std::string expected;
    std::function<std::optional<Number>()> compute;

private:
    struct Source {
        std::vector<double>::const_iterator input;
        const Assumptions& site;

        template <typename Parameter>
        Parameter next()
        {
            if constexpr (std::is_same_v<Parameter, const Assumptions&>)
                return site;
            else if constexpr (std::is_same_v<Parameter, formulas::Rules>)
                return formulas::Rules::Classic;
            else
                return *input++;
        }
    };
};

inline std::string shown(const std::function<std::optional<Number>()>& compute)
{
    try {
        const std::optional<Number> result = compute();
        if (!result)
            return "none";
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "%.9g", result->value());
        return buffer;
    } catch (const values::RunFailure&) {
        return "fails";
    }
}

inline void expectAll(std::span<const FormulaCase> cases)
{
    for (const FormulaCase& row : cases)
        EXPECT_EQ(shown(row.compute), row.expected) << row.name;
}

} // namespace comfortics::tests
