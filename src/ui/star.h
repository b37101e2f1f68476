// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/workspace.h"

#include <QString>

#include <functional>
#include <string>

class QMenu;
class QWidget;

namespace comfortics::ui {

/// The key that stars the index of a row, wherever indices stand; a bookmark of a kind.
inline constexpr const char* kStarKey = "Ctrl+B";

/// Stars the index of an id, or takes its star away; nothing for an empty id.
void turnStar(workspace::Workspace& workspace, const std::string& id);

/// The words of the entry that does so, which name the set and the key.
QString starWords(const workspace::Workspace& workspace, const std::string& id);

/// Adds that entry to a menu.
void addStarEntry(QMenu& menu, workspace::Workspace& workspace, const std::string& id);

/// Gives a widget the key; `id` tells the current row's.
void addStarKey(QWidget& widget, workspace::Workspace& workspace, std::function<std::string()> id);

} // namespace comfortics::ui
