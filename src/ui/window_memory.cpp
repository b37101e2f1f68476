// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window_memory.h"

#include "workspace/kept_bytes.h"

#include <QMainWindow>
#include <QScreen>

#include <algorithm>

namespace comfortics::ui {

void keepPlace(const QMainWindow& window, workspace::Preferences& preferences, const std::string& key)
{
    workspace::keepBytes(preferences, key, window.saveGeometry().toStdString());
}

bool restorePlace(QMainWindow& window, const workspace::Preferences& preferences, const std::string& key)
{
    const auto kept = workspace::keptBytes(preferences, key);
    if (!kept || !window.restoreGeometry(QByteArray::fromStdString(*kept)))
        return false;
    if (window.isMaximized() || window.isFullScreen())
        return true;
    // Of a screen that is no longer there, or is smaller now.
    const QRect usable = window.screen()->availableGeometry();
    window.resize(window.size().boundedTo(usable.size()));
    const QPoint place(
        std::clamp(window.x(), usable.left(), std::max(usable.left(), usable.right() + 1 - window.width())),
        std::clamp(window.y(), usable.top(), std::max(usable.top(), usable.bottom() + 1 - window.height())));
    if (place != window.pos()) // a move means the frame, of which nothing is known yet: it would wander
        window.move(place);
    return true;
}

} // namespace comfortics::ui
