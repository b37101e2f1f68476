// SPDX-License-Identifier: GPL-3.0-or-later
//
// A formula over those points of a block that have its inputs.
#pragma once

#include "engine/recipe.h"
#include "formulas/block_runner.h"

#include <comfortics/calculation.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace comfortics::engine {

/// Points that are calculated together: few enough for their quantities to stay in a near cache.
inline constexpr std::size_t kBlockPoints = 512;

using BlockValues = std::array<double, kBlockPoints>;
using BlockStatuses = std::array<Status, kBlockPoints>;
/// The inputs of a formula in its order, without gaps; null for one that counts as 0.
using InputPointers = std::array<const double*, formulas::kMostInputs>;

class PointRunner {
public:
    explicit PointRunner(const Assumptions& assumptions);

    /// The point of the call at which the block begins.
    void begin(std::size_t first) noexcept { m_first = first; }

    /// Calculates the points whose status is Value, and gives them the status that they get. Where there is
    /// no value, results are NaN. `all` tells that no status is another.
    void run(const formulas::FormulaCall& call, const InputPointers& inputs, std::size_t count, bool all,
             double* results, Status* statuses);

    using Sites = formulas::AssumptionsOf<double>;
    /// Site and body of a point of the block.
    Sites siteAt(std::size_t point) const;
    /// Those of all points, for a formula to which they are the same and not missing; else null.
    const Sites* siteOf(const formulas::FormulaCall& call) const noexcept;

private:
    void runOn(const formulas::FormulaCall& call, const InputPointers& inputs, const Sites& site,
               std::size_t count, double* results, Status* statuses);
    void runEachAtItsSite(const formulas::FormulaCall& call, const InputPointers& inputs, std::size_t count,
                          double* results, Status* statuses);

    const Assumptions& m_assumptions;
    bool m_varies = false;
    std::size_t m_first = 0; ///< before m_site, which is read at it
    Sites m_site;
    // Read as far as they have been written.
    std::array<BlockValues, formulas::kMostInputs> m_together;
    BlockValues m_results;
    BlockStatuses m_statuses;
    std::array<formulas::PointStatus, kBlockPoints> m_pointStatuses;
    std::array<std::uint16_t, kBlockPoints> m_places;
};

} // namespace comfortics::engine
