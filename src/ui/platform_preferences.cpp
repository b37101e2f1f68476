// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/platform_preferences.h"

#include "ui/text.h"

#include <QFile>

#include <chrono>

namespace comfortics::ui {

namespace {

constexpr std::chrono::milliseconds kSoon{500};

} // namespace

PlatformPreferences::PlatformPreferences()
{
    // A damaged file would never be written again.
    if (m_settings.status() == QSettings::FormatError)
        reset();
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoon);
    connect(&m_soon, &QTimer::timeout, this, &PlatformPreferences::save);
}

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
    m_soon.start();
}

void PlatformPreferences::remove(const std::string& key)
{
    m_settings.remove(toQt(key));
    m_soon.start();
}

bool PlatformPreferences::reset()
{
    const QString path = m_settings.fileName();
    m_settings.clear();
    const bool gone = !QFile::exists(path) || QFile::remove(path);
    m_settings.sync(); // takes what lies there now, which is nothing
    return gone;
}

void PlatformPreferences::save()
{
    m_settings.sync();
    if (m_settings.status() == QSettings::NoError || m_told)
        return;
    m_told = true;
    if (onFailure)
        onFailure("The settings are not kept for the next session: " + fromQt(m_settings.fileName()) +
                  " cannot be written.");
}

} // namespace comfortics::ui
