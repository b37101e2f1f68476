// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/preferences.h"

#include <QObject>
#include <QSettings>
#include <QTimer>

#include <functional>

namespace comfortics::ui {

/// Where the platform keeps the settings of programs. What cannot be read counts as never written.
class PlatformPreferences final : public QObject, public workspace::Preferences {
    Q_OBJECT

public:
    PlatformPreferences();

    std::optional<std::string> read(const std::string& key) const override;
    void write(const std::string& key, const std::string& text) override;
    void remove(const std::string& key) override;

    /// Forgets all of them. False where the file cannot be written.
    bool reset();

    /// Told once, in a sentence, when something could not be written for the next session.
    std::function<void(const std::string& sentence)> onFailure;

private:
    void save();

    QSettings m_settings{QStringLiteral("comfortics"), QStringLiteral("comfortics")};
    QTimer m_soon; // several that are written together go to the file together
    bool m_told = false;
};

} // namespace comfortics::ui
