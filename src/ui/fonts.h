// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/drawing_surface.h"

#include <QFont>

namespace comfortics::ui {

/// The font as named by a form; the system takes the nearest where it is not installed.
QFont screenFont(const controls::Font& font);

} // namespace comfortics::ui
