// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/kept_mappings.h"

#include <algorithm>

namespace comfortics::workbench {

namespace {

constexpr std::size_t kMost = 50;

std::string keyOf(std::size_t place)
{
    return "mappings/" + std::to_string(place + 1);
}

} // namespace

KeptMappings::KeptMappings(workspace::Preferences& preferences) : m_preferences(preferences)
{
    for (std::size_t place = 0; place < kMost; ++place) {
        const auto text = m_preferences.read(keyOf(place));
        if (!text)
            break;
        const tables::MappingRead read = tables::readMapping(*text);
        if (read.mapping && !read.mapping->name.empty())
            m_mappings.push_back(*read.mapping);
    }
}

const tables::Mapping* KeptMappings::find(std::string_view name) const
{
    const auto found = std::find_if(m_mappings.begin(), m_mappings.end(),
                                    [name](const tables::Mapping& one) { return one.name == name; });
    return found == m_mappings.end() ? nullptr : &*found;
}

void KeptMappings::keep(const tables::Mapping& mapping)
{
    std::erase_if(m_mappings, [&](const tables::Mapping& one) { return one.name == mapping.name; });
    m_mappings.insert(m_mappings.begin(), mapping);
    if (m_mappings.size() > kMost)
        m_mappings.pop_back();
    write();
}

void KeptMappings::remove(std::string_view name)
{
    const std::string wanted(name); // may be of the one that goes
    std::erase_if(m_mappings, [&](const tables::Mapping& one) { return one.name == wanted; });
    write();
}

void KeptMappings::write() const
{
    for (std::size_t place = 0; place < m_mappings.size(); ++place)
        m_preferences.write(keyOf(place), tables::mappingText(m_mappings[place]));
    m_preferences.remove(keyOf(m_mappings.size()));
}

} // namespace comfortics::workbench
