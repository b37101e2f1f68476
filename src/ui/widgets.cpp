// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets.h"

#include "ui/colors.h"
#include "ui/text.h"

#include <QApplication>
#include <QHelpEvent>
#include <QIcon>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QVBoxLayout>

#include <algorithm>

namespace comfortics::ui {

namespace {

constexpr double kCorner = 6;
constexpr int kPadding = 12;
constexpr double kHeadingScale = 1.1;

} // namespace

void nameWidget(QWidget& widget, const QString& objectName, const QString& accessibleName,
                const QString& hint)
{
    widget.setObjectName(objectName);
    widget.setAccessibleName(accessibleName);
    widget.setToolTip(tip(hint));
    widget.setAccessibleDescription(hint); // else the tooltip would stand for it, wrapped as it is
}

Card::Card(const QString& heading, QLayout* content, QWidget* parent)
    : QFrame(parent), m_heading(new QLabel(heading))
{
    QFont font = m_heading->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kHeadingScale);
    m_heading->setFont(font);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    layout->addWidget(m_heading);
    layout->addLayout(content, 1);
}

void Card::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = palette().color(QPalette::Window);
    painter.setBrush(isDark(palette()) ? ground.lighter(118) : ground.lighter(103));
    painter.setPen(isDark(palette()) ? ground.lighter(160) : ground.darker(118));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

void CutLabel::showText(const QString& text)
{
    setText(text);
    setToolTip(text);
}

QSize CutLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void CutLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width()));
}

bool MenuBar::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const QAction* const action = actionAt(help->pos());
        // Without one of its own an action's tooltip repeats its text.
        if (action && action->property("tip").isValid())
            QToolTip::showText(help->globalPos(), action->property("tip").toString(), this);
        else
            QToolTip::hideText();
        return true;
    }
    return QMenuBar::event(event);
}

ContentArea::ContentArea(QWidget* content, QWidget* parent) : QScrollArea(parent)
{
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, QWidget* now) {
        if (now && widget() && widget()->isAncestorOf(now))
            ensureWidgetVisible(now);
    });
}

QSize ContentArea::sizeHint() const
{
    return widget()->sizeHint() + QSize(2 * frameWidth(), 2 * frameWidth());
}

QSize ContentArea::minimumSizeHint() const
{
    const QSize least = QScrollArea::minimumSizeHint();
    const int content = widget()->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width();
    const int claimed = std::min(content, m_most) + m_beyond;
    return {std::max(least.width(), claimed), least.height()};
}

void ContentArea::claimWidth(int most, int beyond)
{
    m_most = most;
    m_beyond = beyond;
    updateGeometry();
}

bool ContentArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

QLineEdit* searchLine(const QString& hint)
{
    auto* const line = new QLineEdit;
    line->setPlaceholderText(hint);
    line->setAccessibleName(hint);
    line->setClearButtonEnabled(true);
    line->addAction(QIcon(QStringLiteral(":/search.svg")), QLineEdit::LeadingPosition);
    return line;
}

QLabel* quietLabel(const QString& text)
{
    auto* const label = new QLabel(text);
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

} // namespace comfortics::ui
