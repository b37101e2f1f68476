// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/preferences.h"

#include <string>
#include <vector>

namespace comfortics::workspace {

/// Paths of the files that were opened last, the newest first, as the preferences keep them under a key.
class RecentFiles {
public:
    /// Preferences must outlive this.
    RecentFiles(Preferences& preferences, std::string key);

    std::vector<std::string> paths() const;
    void add(const std::string& path);
    void forget();

private:
    Preferences& m_preferences;
    std::string m_key;
};

} // namespace comfortics::workspace
