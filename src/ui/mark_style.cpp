// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/mark_style.h"

#include "ui/colors.h"

#include <QStyleOptionButton>
#include <QWidget>

namespace comfortics::ui {

namespace {

constexpr int kDimmed = 130; // percent

} // namespace

void MarkStyle::wear(QWidget& widget)
{
    auto* const style = new MarkStyle;
    style->setParent(&widget);
    widget.setStyle(style);
}

// Qt's own style takes a darker window for the outline, which a dark one swallows: an empty mark is not
// to be seen then.
void MarkStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const
{
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool isMark = element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox;
    if (!isMark || !button || !isDark(option->palette)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionButton outlined = *button;
    outlined.palette.setColor(QPalette::Window, button->palette.color(QPalette::WindowText).darker(kDimmed));
    QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
}

} // namespace comfortics::ui
