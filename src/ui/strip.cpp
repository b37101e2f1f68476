// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/strip.h"

#include "ui/chip.h"

#include <QPainter>
#include <QPolygonF>

namespace comfortics::ui {

namespace {

constexpr double kMarkHalf = 4; // of the mark's width, and of the arrow's height
constexpr double kMarkHeight = 5;
constexpr double kQuietOpacity = 0.45;

} // namespace

void paintStrip(QPainter& painter, const QRectF& room, const workspace::ScaleStrip& strip,
                const QPalette& palette, bool quiet)
{
    using Beyond = workspace::ScaleStrip::Beyond;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (quiet)
        painter.setOpacity(kQuietOpacity);
    QColor outline = palette.color(QPalette::Text);
    outline.setAlphaF(0.35F);
    const QRectF bar = room.adjusted(kMarkHalf, kMarkHeight, -kMarkHalf, 0);
    painter.setPen(Qt::NoPen);
    QColor limits = palette.color(QPalette::Highlight);
    limits.setAlphaF(0.4F);
    for (const workspace::ScaleStrip::Band& band : strip.bands) {
        painter.setBrush(band.severity ? severityField(*band.severity, palette) : limits);
        painter.drawRect(QRectF(bar.left() + band.from * bar.width(), bar.top(),
                                (band.to - band.from) * bar.width(), bar.height()));
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(outline);
    painter.drawRect(bar);
    for (std::size_t i = 1; i < strip.bands.size(); ++i) { // classes of one severity are still two
        const double x = bar.left() + strip.bands[i].from * bar.width();
        painter.drawLine(QPointF(x, bar.top()), QPointF(x, bar.bottom()));
    }

    const QColor mark = palette.color(QPalette::Text);
    const double x = bar.left() + strip.mark * bar.width();
    painter.setBrush(mark);
    if (strip.beyond == Beyond::No) {
        painter.setPen(QPen(palette.color(QPalette::Base), 3)); // seen on each band
        painter.drawLine(QPointF(x, bar.top()), QPointF(x, bar.bottom()));
        painter.setPen(QPen(mark, 1.5));
        painter.drawLine(QPointF(x, room.top() + 1), QPointF(x, bar.bottom()));
        painter.setPen(Qt::NoPen);
        painter.drawPolygon(QPolygonF(
            {{x - kMarkHalf, room.top()}, {x + kMarkHalf, room.top()}, {x, room.top() + kMarkHeight + 1}}));
    } else {
        const double out = strip.beyond == Beyond::Right ? 1 : -1;
        const double y = bar.center().y();
        painter.setPen(QPen(palette.color(QPalette::Base), 1));
        painter.drawPolygon(QPolygonF({{x - out * kMarkHalf, y - kMarkHalf - 1},
                                       {x - out * kMarkHalf, y + kMarkHalf + 1},
                                       {x + out * kMarkHalf, y}}));
    }
    painter.restore();
}

} // namespace comfortics::ui
