// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class QString;
class QWidget;

namespace comfortics::ui {

/// Lets a window take one local file that is dropped on it, wherever in it that falls: a box for text does
/// not get its path. `welcome` answers whether a file is taken now.
void takeDroppedFiles(QWidget& window, std::function<bool()> welcome,
                      std::function<void(const QString& path)> take);

} // namespace comfortics::ui
