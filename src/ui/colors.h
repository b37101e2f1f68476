// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"

#include <QColor>
#include <QPalette>

namespace comfortics::ui {

/// True where the palette has light text on a dark ground.
bool isDark(const QPalette& palette);

/// The colour as written: its bytes are blue, green, red.
QColor screenColor(controls::Color color);

/// The palette with a box's ground in the form's colour and legible text on it. On a dark palette
/// the ground keeps the hue and is darkened. White, which boxes have from the start, is the
/// palette's own ground.
QPalette boxPalette(const QPalette& palette, controls::Color ground);

/// The colour, through which 1 - opacity of the ground is seen.
QColor faded(QColor color, float opacity);

} // namespace comfortics::ui
