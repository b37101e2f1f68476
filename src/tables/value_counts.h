// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

namespace comfortics::tables {

/// Values and how often each came. Figures have few decimals, so that many rows have few different values:
/// memory grows with these alone, and every percentile is exact.
class ValueCounts {
public:
    /// A finite value.
    void add(double value);
    void add(const ValueCounts& other);

    std::size_t count() const noexcept { return m_count; }

    // There must be a value.

    double mean() const;
    double lowest() const;
    double highest() const;
    /// With linear interpolation between neighbours, as numpy and pandas do unless told otherwise. `share`: 0
    /// to 1.
    double quantile(double share) const;

    struct Bin {
        double from = 0;
        double to = 0; ///< belongs to the next bin, but for the last
        std::size_t count = 0;
    };
    /// Bins of equal width from the lowest to the highest value; a single value has a bin of width 1 around
    /// it.
    std::vector<Bin> histogram(std::size_t bins) const;
    /// Bins between edges that ascend, the first of which is no higher than any value and the last no lower.
    std::vector<Bin> histogram(const std::vector<double>& edges) const;

private:
    struct Counted {
        double value;
        std::size_t count;
    };
    void settle() const;
    double at(std::size_t place) const;

    mutable std::vector<Counted> m_sorted;
    mutable std::vector<double> m_recent; // not among them yet
    std::size_t m_count = 0;
};

} // namespace comfortics::tables
