// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace comfortics::ui {

/// Tells what the program is and which keys its windows know.
void showHelp(QWidget& window);

} // namespace comfortics::ui
