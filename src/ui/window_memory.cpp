// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window_memory.h"

#include "ui/text.h"
#include "workspace/kept_bytes.h"

#include <QMainWindow>
#include <QScreen>
#include <QStringList>

#include <algorithm>
#include <optional>

namespace comfortics::ui {

namespace {

// The corner of the frame: before a window is shown it has none, and its own would stand in its place, so
// that it came down by a title bar at each start.
std::string cornerKey(const std::string& key)
{
    return key + "-corner";
}

std::optional<QPoint> keptCorner(const workspace::Preferences& preferences, const std::string& key)
{
    const QStringList numbers =
        toQt(preferences.read(cornerKey(key)).value_or(std::string())).split(QLatin1Char(' '));
    bool isX = false;
    bool isY = false;
    const QPoint corner(numbers.first().toInt(&isX), numbers.last().toInt(&isY));
    return isX && isY && numbers.size() == 2 ? std::optional(corner) : std::nullopt;
}

} // namespace

void keepPlace(const QMainWindow& window, workspace::Preferences& preferences, const std::string& key)
{
    workspace::keepBytes(preferences, key, window.saveGeometry().toStdString());
    preferences.write(cornerKey(key), std::to_string(window.x()) + ' ' + std::to_string(window.y()));
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
    const QPoint corner = keptCorner(preferences, key).value_or(window.pos());
    window.move(
        std::clamp(corner.x(), usable.left(), std::max(usable.left(), usable.right() + 1 - window.width())),
        std::clamp(corner.y(), usable.top(), std::max(usable.top(), usable.bottom() + 1 - window.height())));
    return true;
}

} // namespace comfortics::ui
