// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace comfortics::classic {

/// The last few results of a solve, found again by the bits of its arguments.
template <std::size_t ArgumentCount, typename Result, std::size_t Places>
class SolveMemory {
public:
    using Arguments = std::array<double, ArgumentCount>;

    /// The result for these arguments, from solve() if it is not here. What solve() throws is not
    /// kept.
    template <typename Solve>
    const Result& recall(const Arguments& arguments, Solve solve)
    {
        const Key key = std::bit_cast<Key>(arguments);
        for (std::size_t i = 0; i < std::min(m_solved, Places); ++i)
            if (m_entries[i].key == key)
                return m_entries[i].result;
        Result result = solve();
        Entry& entry = m_entries[m_solved++ % Places];
        entry = {key, std::move(result)};
        return entry.result;
    }

private:
    using Key = std::array<std::uint64_t, ArgumentCount>;
    struct Entry {
        Key key{};
        Result result{};
    };

    std::array<Entry, Places> m_entries{};
    std::size_t m_solved = 0;
};

} // namespace comfortics::classic
