// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace comfortics::ui {

/// Tells what the program is, its version and its licence.
void showAbout(QWidget& window);

} // namespace comfortics::ui
