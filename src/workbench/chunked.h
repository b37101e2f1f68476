// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace comfortics::workbench {

/// A long row of plain values that grows without moving: its memory never stands twice.
template <class T>
class Chunked {
public:
    void push(T value)
    {
        if (m_size % kChunk == 0)
            m_chunks.push_back(std::make_unique<T[]>(kChunk));
        m_chunks[m_size / kChunk][m_size % kChunk] = value;
        ++m_size;
    }
    const T& operator[](std::size_t place) const { return m_chunks[place / kChunk][place % kChunk]; }
    std::size_t size() const noexcept { return m_size; }
    std::size_t bytes() const noexcept { return m_chunks.size() * kChunk * sizeof(T); }

private:
    static constexpr std::size_t kChunk = 8192;

    std::vector<std::unique_ptr<T[]>> m_chunks;
    std::size_t m_size = 0;
};

} // namespace comfortics::workbench
