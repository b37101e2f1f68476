// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/scale_strip.h"

#include <QPalette>
#include <QRectF>

class QPainter;

namespace comfortics::ui {

/// Paints a strip of classes or limits with the mark of the value on it; an arrow at the end where the value
/// lies beyond. Quiet, of earlier readings, it is paler.
void paintStrip(QPainter& painter, const QRectF& room, const workspace::ScaleStrip& strip,
                const QPalette& palette, bool quiet = false);

} // namespace comfortics::ui
