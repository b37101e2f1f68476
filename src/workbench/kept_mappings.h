// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/mapping.h"
#include "workspace/preferences.h"

#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workbench {

/// Mappings under names of the user's. Each change is kept at once.
class KeptMappings {
public:
    /// What is kept and makes no sense counts as nothing.
    explicit KeptMappings(workspace::Preferences& preferences);

    const std::vector<tables::Mapping>& all() const noexcept { return m_mappings; }
    const tables::Mapping* find(std::string_view name) const;
    /// Keeps a mapping, in the place of one that has its name.
    void keep(const tables::Mapping& mapping);
    void remove(std::string_view name);

private:
    void write() const;

    workspace::Preferences& m_preferences;
    std::vector<tables::Mapping> m_mappings; // the newest first
};

} // namespace comfortics::workbench
