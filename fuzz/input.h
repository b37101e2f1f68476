// SPDX-License-Identifier: GPL-3.0-or-later
//
// The fuzzer's bytes, taken from the front. Inputs stay texts that can be read and written by hand:
// one line for each text, and settings as letters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace comfortics::fuzz {

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size)
        : m_rest(reinterpret_cast<const char*>(data), size) // NOLINT: bytes are bytes
    {
    }

    bool empty() const noexcept { return m_rest.empty(); }

    /// The next byte, 0 at the end.
    unsigned byte()
    {
        if (m_rest.empty())
            return 0;
        const char c = m_rest.front();
        m_rest.remove_prefix(1);
        return static_cast<unsigned char>(c);
    }

    /// What stands before the next `end`, which is passed over; the rest if there is none.
    std::string_view upTo(char end)
    {
        const std::size_t at = m_rest.find(end);
        const std::string_view text = m_rest.substr(0, at);
        m_rest.remove_prefix(at == std::string_view::npos ? m_rest.size() : at + 1);
        return text;
    }
    std::string line() { return std::string(upTo('\n')); }

    std::string_view rest() const noexcept { return m_rest; }

private:
    std::string_view m_rest;
};

} // namespace comfortics::fuzz
