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

/// A text with no more than so many characters.
QString shortened(const QString& text, qsizetype most);

/// The name of an index for a menu or a button; a long one is cut.
QString shortName(const std::string& id);

/// What turning the star does: names the index and the set.
QString starText(const workspace::Workspace& workspace, const std::string& id);

/// The same as the words of a menu's entry, with the key.
QString starWords(const workspace::Workspace& workspace, const std::string& id);

/// Adds that entry to a menu.
void addStarEntry(QMenu& menu, workspace::Workspace& workspace, const std::string& id);

/// Gives a widget the key; `id` tells the current row's.
void addStarKey(QWidget& widget, workspace::Workspace& workspace, std::function<std::string()> id);

} // namespace comfortics::ui
