// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/assumptions.h"
#include "formulas/rules.h"

#include <cstddef>

namespace comfortics::formulas {

/// A run of points that one formula calculates in plain doubles.
struct Block {
    const double* const* inputs; ///< one column without gaps per input, in the formula's order
    const AssumptionsOf<double>& assumptions;
    Rules rules;
    double* results; ///< overlaps no input
    std::size_t count;
};

/// Calculates `formula`, an index over double, for each point of a block. The floating-point flags tell
/// afterwards whether a step of any point had no defined result.
///
/// Defined in formulas/block_kernel.h and made for each index in the files kernels_*.cpp, which are
/// compiled for speed.
template <auto formula>
void calculateBlock(const Block& block);

} // namespace comfortics::formulas
