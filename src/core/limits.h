// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/catalogue.h"

#include <array>
#include <string>
#include <string_view>

namespace comfortics::core {

/// A bound as the limits file gives it: number text, and the number it stands for.
struct Bound {
    std::string text = "0";
    double number = 0;
};

/// The validity limits of one index. Temperatures in °C, winds in m/s, both ends inclusive.
struct IndexLimits {
    std::string Name;   ///< read and kept, without effect
    std::string TA_Cat; ///< read and kept, without effect
    Bound Tair_min;
    Bound Tair_max;
    Bound WS_min;
    Bound WS_max;           ///< 0 or less: the index has no wind limit
    double Active = 0;      ///< read and kept, without effect
    std::string Categories; ///< read and kept, without effect

    /// Whether a file told temperatures: both 0 is what a file without the index gives.
    bool given() const { return Tair_min.number != 0 || Tair_max.number != 0; }
};

/// The limits of the 222 indices, read once at start.
class Limits {
public:
    /// All bounds 0: what an absent file gives. Nearly all gated indices then stay blank.
    Limits() = default;

    /// Reads a limits file. A missing file, section or key raises no error: texts read as empty,
    /// bounds as 0.
    static Limits Load_Limits(const std::string& path);
    static Limits fromText(std::string_view iniText);

    /// Limits of index 1 to 222.
    const IndexLimits& of(int index) const { return m_rows.at(static_cast<std::size_t>(index - 1)); }

private:
    std::array<IndexLimits, kIndexCount> m_rows;
};

} // namespace comfortics::core
