// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/outcome.h"
#include "workbench/chunked.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace comfortics::workbench {

/// Number texts one below the other, each in four bytes where its digits allow: up to 8388607 without its
/// point, with up to six decimals. What does not fit so is kept as it stands. A text comes back as it was.
class NumberColumn {
public:
    /// The place of a class in its scale, and whether its severity has the other sign.
    struct ClassMark {
        std::size_t place = 0; ///< up to 14
        bool turned = false;
    };

    void add(std::string_view text, std::optional<ClassMark> mark = {});
    void addBlank(classic::OutcomeKind why);

    std::size_t size() const noexcept { return m_cells.size(); }
    /// None where it is blank, or no number.
    std::optional<double> number(std::size_t row) const;
    /// Empty where it is blank.
    std::string text(std::size_t row) const;
    classic::OutcomeKind outcome(std::size_t row) const;
    std::optional<ClassMark> mark(std::size_t row) const;

    std::size_t bytes() const noexcept
    {
        return m_cells.bytes() + m_texts.capacity() * sizeof(m_texts[0]) + m_longTexts;
    }

private:
    const std::string& keptText(std::size_t row) const;

    Chunked<std::uint32_t> m_cells;
    std::vector<std::pair<std::uint32_t, std::string>> m_texts; // by their row
    std::size_t m_longTexts = 0;                                // bytes beside the strings themselves
};

} // namespace comfortics::workbench
