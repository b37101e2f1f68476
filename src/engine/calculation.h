// SPDX-License-Identifier: GPL-3.0-or-later
//
// The calculation of a block of points, for the doors that stand on the engine.
#pragma once

#include "engine/point_runner.h"
#include "engine/weather.h"

#include <comfortics/calculation.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace comfortics::engine {

/// Where the limits of an index come from.
using LimitsOf = std::function<const Limits&(int number)>;
const Limits& limitsOfCatalogue(int number);

/// Throws std::invalid_argument as calculate() says.
void check(const Readings& readings, std::span<const Output> outputs, const LimitsOf& limitsOf, bool limits);

/// Calculates block after block. Each target's figures live until the next is asked for.
class BlockCalculator {
public:
    /// Readings and assumptions must outlive it, and have passed check().
    BlockCalculator(const Readings& readings, const Assumptions& assumptions, bool limits, LimitsOf limitsOf);
    ~BlockCalculator();
    BlockCalculator(const BlockCalculator&) = delete;
    BlockCalculator& operator=(const BlockCalculator&) = delete;

    /// Goes to the points first to first + count - 1; count is no more than kBlockPoints.
    void begin(std::size_t first, std::size_t count);

    Figures figures(const Target& target);

    /// What its limits make of an index at the first point of the block, whether or not they are kept: Value
    /// inside of them.
    Status limitStatus(int number);

    /// What the figures of an index mean, as Output tells; `figures` are those that were given for it last.
    /// Either array can be null.
    void meanings(int number, const Figures& figures, std::int8_t* categories, std::int8_t* severities);

    Weather& weather() noexcept { return *m_weather; }

private:
    bool judgeAll(int number, Status* statuses);

    std::unique_ptr<Weather> m_weather;
    bool m_limits;
    LimitsOf m_limitsOf;
    BlockValues m_values;         // NOLINT: written before they are read
    BlockStatuses m_statuses;     // NOLINT: likewise
    BlockStatuses m_judged;       // NOLINT: likewise
    BlockValues m_votes;          // NOLINT: likewise
    BlockStatuses m_voteStatuses; // NOLINT: likewise
};

/// Why a target has no value at the first point of the block; empty where it has one. `limits` are those that
/// an index is judged by, null if it is not.
std::string explainPoint(BlockCalculator& calculator, const Readings& readings, const Target& target,
                         const Limits* limits);

} // namespace comfortics::engine
