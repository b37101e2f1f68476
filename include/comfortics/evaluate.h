// SPDX-License-Identifier: GPL-3.0-or-later
//
// One formula over columns of its own inputs.
#pragma once

#include <comfortics/calculation.h>
#include <comfortics/catalogue.h>
#include <comfortics/column.h>
#include <comfortics/status.h>

#include <cstddef>
#include <span>

#pragma GCC visibility push(default)
namespace comfortics {

/// Where the figures of evaluate() go.
struct Result {
    double* values = nullptr;   ///< NaN where there is no value
    std::ptrdiff_t stride = 1;  ///< from one point to the next, in elements
    Status* statuses = nullptr; ///< one per point, side by side; null if they are not wanted
};

/// Evaluates the formula of an index at `count` points: `inputs` in the order of Index::inputs.
///
/// Limits are judged if options.limits is set, as far as the formula's own inputs tell; the start of this
/// call is without. A result may take the place of an input of the same point. An infinite input stands as a
/// value where a formula hands it on. Any number of calls may run at once. The memory that a call takes does
/// not depend on `count`.
///
///     const Index& humidex = *findIndex("humidex_masterson");
///     evaluate(humidex, std::array<Column, 2>{ta, td}, n, {.values = results});
///
/// Returns the number of points done, as calculate() does. Throws std::invalid_argument where the number of
/// inputs is not that of the index, one is not given, or there is no place for values, and as calculate()
/// does where the index has no number of the catalogue or a thread cannot be started.
std::size_t evaluate(const Index& index, std::span<const Column> inputs, std::size_t count,
                     const Result& result, const Assumptions& assumptions = {},
                     const Options& options = {.limits = false});

} // namespace comfortics
#pragma GCC visibility pop
