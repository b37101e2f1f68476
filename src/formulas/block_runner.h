// SPDX-License-Identifier: GPL-3.0-or-later
//
// One formula over columns of points, at the speed of plain doubles and with the results of the checked
// Number, bit for bit.
#pragma once

#include "formulas/assumptions.h"
#include "formulas/formula_call.h"
#include "formulas/rules.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace comfortics::formulas {

/// What became of a point.
enum class PointStatus : std::uint8_t {
    Value,
    NoValue,   ///< the formula is not meant for these inputs
    Undefined, ///< a step has no defined result, as a division by zero
    Missing,   ///< an input is NaN
};

/// A column of inputs. Stride 0 gives all points the same value.
struct InputColumn {
    const double* values = nullptr;
    std::ptrdiff_t stride = 1; ///< from one point to the next, in elements
};

/// Where the results of the points go; NaN where there is no value.
struct ResultColumn {
    double* values = nullptr;
    std::ptrdiff_t stride = 1;
    PointStatus* statuses = nullptr; ///< why, if wanted: one per point, without gaps
};

/// Calculates `count` points of a formula: `inputs` in its order, as many as it has.
///
/// A result may take the place of an input of the same point. Throws nothing, allocates nothing, and
/// leaves the floating-point flags as they were.
void calculateColumns(const FormulaCall& formula, std::span<const InputColumn> inputs,
                      const AssumptionsOf<double>& assumptions, Rules rules, std::size_t count,
                      const ResultColumn& results) noexcept;

} // namespace comfortics::formulas
