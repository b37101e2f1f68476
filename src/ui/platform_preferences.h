// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/preferences.h"

#include <QSettings>

namespace comfortics::ui {

/// Where the platform keeps the settings of programs. What cannot be read counts as never written.
class PlatformPreferences final : public workspace::Preferences {
public:
    std::optional<std::string> read(const std::string& key) const override;
    void write(const std::string& key, const std::string& text) override;
    void remove(const std::string& key) override;

private:
    QSettings m_settings{QStringLiteral("comfortics"), QStringLiteral("comfortics")};
};

} // namespace comfortics::ui
