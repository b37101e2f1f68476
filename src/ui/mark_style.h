// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace comfortics::ui {

/// The desktop's style, but that boxes to tick and buttons to choose have an outline in dark palettes, too.
class MarkStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    /// Draws the marks of this widget alone; it keeps the style.
    static void wear(QWidget& widget);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

} // namespace comfortics::ui
