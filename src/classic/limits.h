// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/catalogue.h"
#include "classic/load_indices.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::classic {

/// A bound as it is kept: number text, and the number that the text stands for.
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

/// The limits of the indices, read once at start.
class Limits {
public:
    /// All bounds 0: what an absent file gives. Nearly all gated indices then stay blank.
    Limits() = default;

    /// Reads a limits file. A file that is missing or cannot be read, a missing section or key raise
    /// no error: texts read as empty, bounds as 0.
    static Limits Load_Limits(const std::string& path);
    static Limits fromText(std::string_view iniText);

    /// Limits of index 1 to kLastIndex.
    const IndexLimits& of(int index) const { return m_rows.at(static_cast<std::size_t>(index - 1)); }

    /// What became of the file, and why it could not be read.
    IniFile::State fileState() const noexcept { return m_fileState; }
    const std::string& fileProblem() const noexcept { return m_fileProblem; }

    /// Whether any index has limits.
    bool anyGiven() const;

    /// The bounds that are no numbers as a whole, one sentence each: such a bound counts as the
    /// number that it begins with, or as 0.
    const std::vector<std::string>& doubts() const noexcept { return m_doubts; }

private:
    static Limits from(const IniFile& file);

    std::array<IndexLimits, catalogue::kIndexCount> m_rows;
    IniFile::State m_fileState = IniFile::State::Missing;
    std::string m_fileProblem;
    std::vector<std::string> m_doubts;
};

/// What there is to warn of in the limits, in a few sentences: a file that cannot be read, limits
/// without a single bound, bounds that are no numbers. Empty where there is nothing. `file` is what
/// the user named; Limits.Index beside the program if empty.
std::string limitsWarning(const Limits& limits, const std::string& file = {});

} // namespace comfortics::classic
