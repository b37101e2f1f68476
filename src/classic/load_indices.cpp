// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/load_indices.h"

#include "texts/bounded_file.h"
#include "texts/text.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace comfortics::classic {

using texts::lowered;
using texts::trimmed;

namespace {

// The buffer of the profile call holds 150 characters, the last of them its terminator.
constexpr std::size_t kLongestValue = 149;

constexpr std::string_view kBlanks = " \t\r";

std::string_view unquoted(std::string_view value)
{
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

} // namespace

IniFile IniFile::read(const std::string& path)
{
    texts::FileText file = texts::readFile(path, kLargest);
    if (file.state == texts::FileText::State::Read)
        return IniFile(file.text);
    IniFile none("");
    none.m_state = file.state == texts::FileText::State::Missing ? State::Missing : State::Unreadable;
    none.m_problem = std::move(file.problem);
    return none;
}

IniFile::IniFile(std::string_view text)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark))
        text.remove_prefix(kByteOrderMark.size());

    std::unordered_set<std::string> sectionsSeen;
    std::string section;
    bool inside = false;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = trimmed(text.substr(0, end), kBlanks);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line.front() == ';')
            continue;
        if (line.front() == '[') {
            const std::size_t close = line.find(']');
            section = lowered(
                trimmed(line.substr(1, close == std::string_view::npos ? close : close - 1), kBlanks));
            inside = sectionsSeen.insert(section).second;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!inside || equals == std::string_view::npos)
            continue;
        const std::string_view value = unquoted(trimmed(line.substr(equals + 1), kBlanks));
        m_values.try_emplace(section + '\n' + lowered(trimmed(line.substr(0, equals), kBlanks)),
                             value.substr(0, kLongestValue));
    }
}

std::string IniFile::Read_Index_Setting(std::string_view section, std::string_view key) const
{
    const auto found = m_values.find(lowered(section) + '\n' + lowered(key));
    return found == m_values.end() ? std::string() : found->second;
}

} // namespace comfortics::classic
