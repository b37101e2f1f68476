// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/platform_preferences.h"

#include "ui/text.h"

namespace comfortics::ui {

std::optional<std::string> PlatformPreferences::read(const std::string& key) const
{
    const QVariant kept = m_settings.value(toQt(key));
    if (kept.metaType().id() != QMetaType::QString)
        return std::nullopt;
    return fromQt(kept.toString());
}

void PlatformPreferences::write(const std::string& key, const std::string& text)
{
    m_settings.setValue(toQt(key), toQt(text));
}

void PlatformPreferences::remove(const std::string& key)
{
    m_settings.remove(toQt(key));
}

} // namespace comfortics::ui
