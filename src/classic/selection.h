// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/catalogue.h"

#include <bitset>
#include <vector>

namespace comfortics::classic {

/// Which of the indices a calculation evaluates.
class Selection {
public:
    static Selection all() { return Selection(true); }
    static Selection none() { return Selection(false); }

    bool contains(int index) const { return m_bits[static_cast<std::size_t>(index)]; }
    void set(int index, bool selected) { m_bits[static_cast<std::size_t>(index)] = selected; }
    std::size_t count() const { return m_bits.count(); }
    /// Those that it holds, in their order.
    std::vector<int> indices() const
    {
        std::vector<int> indices;
        for (int index = 1; index <= catalogue::kLastIndex; ++index)
            if (contains(index))
                indices.push_back(index);
        return indices;
    }

    friend bool operator==(const Selection&, const Selection&) = default;

private:
    explicit Selection(bool selected)
    {
        if (selected)
            for (int index = 1; index <= catalogue::kLastIndex; ++index)
                set(index, true);
    }

    std::bitset<catalogue::kIndexCount + 1> m_bits; // bit 0 unused
};

} // namespace comfortics::classic
