// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/session_desk.h"

#include <functional>
#include <string>
#include <vector>

class QMenu;
class QWidget;

namespace comfortics::ui {

/// Fills a menu with files to open again; those that are gone are greyed.
void fillRecent(QMenu& menu, const std::vector<std::string>& paths,
                const std::function<void(const std::string&)>& open, const std::function<void()>& forget);

/// Adds what a session can do to a menu of a window: open, recent ones, save, the last readings, the report.
/// They come before the entries that the menu has. The keys work in that window.
void addSessionEntries(QMenu& menu, workspace::SessionDesk& session, std::function<void()> report,
                       QWidget& window);

} // namespace comfortics::ui
