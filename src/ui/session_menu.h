// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/session_desk.h"

#include <functional>

class QMenu;
class QWidget;

namespace comfortics::ui {

/// Adds what a session can do to a menu of a window: open, recent ones, save, the last readings, the report.
/// They come before the entries that the menu has. The keys work in that window.
void addSessionEntries(QMenu& menu, workspace::SessionDesk& session, std::function<void()> report,
                       QWidget& window);

} // namespace comfortics::ui
