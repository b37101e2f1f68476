// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/drawing_surface.h"

#include <QFont>

class QPaintDevice;

namespace comfortics::ui {

/// The font as named by a form; the system takes the nearest where it is not installed. A narrow one
/// stays narrow.
QFont screenFont(const controls::Font& font);

/// The font in the largest size, up to its own, in which a text is no wider than so many pixels of the
/// device.
QFont fittingFont(const QFont& font, const QString& text, double width, const QPaintDevice& device);

} // namespace comfortics::ui
