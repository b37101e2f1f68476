// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/recent_files.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace comfortics::workspace {

namespace {

constexpr std::size_t kMostRecent = 8;

} // namespace

RecentFiles::RecentFiles(Preferences& preferences, std::string key)
    : m_preferences(preferences), m_key(std::move(key))
{
}

std::vector<std::string> RecentFiles::paths() const
{
    std::vector<std::string> paths;
    const auto list = nlohmann::json::parse(m_preferences.read(m_key).value_or("[]"), nullptr, false);
    if (list.is_array())
        for (const auto& path : list)
            if (path.is_string() && paths.size() < kMostRecent)
                paths.push_back(path.get<std::string>());
    return paths;
}

void RecentFiles::add(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path whole = std::filesystem::absolute(path, error);
    const std::string name = error ? path : whole.lexically_normal().string();
    std::vector<std::string> all = paths();
    std::erase(all, name);
    all.insert(all.begin(), name);
    all.resize(std::min(all.size(), kMostRecent));
    // A name that is no UTF-8 is not worth a failure.
    m_preferences.write(m_key,
                        nlohmann::json(all).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void RecentFiles::forget()
{
    m_preferences.remove(m_key);
}

} // namespace comfortics::workspace
