// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace comfortics::classic {

/// The settings of one INI file, as the classic profile call reads them: section and key without
/// regard to case, the first of equal keys in the first of equal sections, blanks around a value
/// and one pair of quotes around it dropped, lines that start with a semicolon ignored.
class IniFile {
public:
    enum class State : std::uint8_t { Read, Missing, Unreadable };

    /// A file that cannot be read, or is larger than kLargest, has no settings.
    static IniFile read(const std::string& path);
    static constexpr std::size_t kLargest = std::size_t{1} << 20; ///< [bytes]

    explicit IniFile(std::string_view text);

    State state() const noexcept { return m_state; }
    /// Why the file could not be read, in one clause; empty where it was.
    const std::string& problem() const noexcept { return m_problem; }

    /// The value, cut to 149 characters; the empty text if section or key is missing.
    std::string Read_Index_Setting(std::string_view section, std::string_view key) const;

private:
    State m_state = State::Read;
    std::string m_problem;
    std::unordered_map<std::string, std::string> m_values; // "section\nkey", lower case
};

} // namespace comfortics::classic
