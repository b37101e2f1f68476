// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which quantities a figure is made of, and how.
#pragma once

#include <comfortics/catalogue.h>

#include "catalogue/catalogue.h"
#include "formulas/formula_call.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace comfortics::engine {

/// A set of quantities.
class Quantities {
public:
    constexpr bool contains(Quantity quantity) const { return (m_bits & bit(quantity)) != 0; }
    constexpr void add(Quantity quantity) { m_bits |= bit(quantity); }

private:
    static constexpr std::uint32_t bit(Quantity quantity) { return 1U << static_cast<unsigned>(quantity); }
    std::uint32_t m_bits = 0;
};

constexpr std::size_t place(Quantity quantity)
{
    return static_cast<std::size_t>(quantity);
}

/// A formula and where its inputs come from.
struct Recipe {
    const formulas::FormulaCall* call = nullptr;
    /// In the formula's order, call->arity of them. None is a variable that the published formula has and
    /// nothing assigns: it counts as 0.
    std::array<std::optional<Quantity>, formulas::kMostInputs> sources{};
    /// It has a value only in an air whose dew point lies not above its temperature, whatever it reads.
    bool needsAir = false;

    std::span<const std::optional<Quantity>> inputs() const { return {sources.data(), call->arity}; }
};

/// How an index is made of derived quantities.
const Recipe& recipe(int index);

/// The same of an index for the inputs that it is published with: UTCI takes the humidity, where recipe() has
/// the dew point that was derived or given already.
const Recipe& publishedRecipe(int index);

/// Of a quantity that a formula derives; none for readings and for the roots of heat balances. Not the
/// humidities, which depend on which of the two is given.
const Recipe* quantityRecipe(Quantity quantity);

} // namespace comfortics::engine
