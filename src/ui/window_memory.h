// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/preferences.h"

#include <string>

class QByteArray;
class QMainWindow;

namespace comfortics::ui {

/// Keeps where a window stands and how large it is, under a key of the preferences.
void keepPlace(const QMainWindow& window, workspace::Preferences& preferences, const std::string& key);

/// Puts the window where it stood, within what there is of screens now. False, and nothing is done, where
/// nothing whole is kept.
bool restorePlace(QMainWindow& window, const workspace::Preferences& preferences, const std::string& key);

} // namespace comfortics::ui
