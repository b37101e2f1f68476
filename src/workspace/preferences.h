// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>

namespace comfortics::workspace {

/// Small texts that are kept between sessions. The window keeps them where the platform keeps settings.
///
/// Keys are words joined by a slash, for instance "cards/set". Whoever reads a text judges it: it may come
/// from another version or from a damaged file, and what makes no sense counts as nothing.
class Preferences {
public:
    virtual ~Preferences() = default;
    /// None where nothing is kept under the key.
    virtual std::optional<std::string> read(const std::string& key) const = 0;
    virtual void write(const std::string& key, const std::string& text) = 0;
    virtual void remove(const std::string& key) = 0;
};

/// For as long as the program runs.
class TransientPreferences final : public Preferences {
public:
    std::optional<std::string> read(const std::string& key) const override
    {
        const auto found = m_texts.find(key);
        return found == m_texts.end() ? std::nullopt : std::optional(found->second);
    }
    void write(const std::string& key, const std::string& text) override { m_texts[key] = text; }
    void remove(const std::string& key) override { m_texts.erase(key); }

private:
    std::map<std::string, std::string> m_texts;
};

} // namespace comfortics::workspace
