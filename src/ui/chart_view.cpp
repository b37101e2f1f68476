// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/chart_view.h"

#include <QBuffer>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSvgGenerator>

#include <utility>

namespace comfortics::ui {

namespace {

constexpr double kSharpness = 2;        // pixels of a picture to a pixel of the screen
constexpr QSize kPictureSize(760, 460); // whatever the size of the panel

} // namespace

ChartView::ChartView(const QString& objectName, const QString& accessibleName, QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setObjectName(objectName);
    setAccessibleName(accessibleName);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize ChartView::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 15};
}

QSize ChartView::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 13};
}

void ChartView::shows(const QString& why, const QString& description)
{
    m_cursor.reset();
    m_why = why;
    setAccessibleDescription(description);
    update();
}

void ChartView::showNone(const QString& why)
{
    forget();
    shows(why, why);
}

void ChartView::paint(QPainter& painter, const QRectF& room) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    if (places() != 0) {
        paintChart(painter, room);
        return;
    }
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room.adjusted(kChartSpace, kChartSpace, -kChartSpace, -kChartSpace),
                     Qt::AlignCenter | Qt::TextWordWrap, m_why);
}

void ChartView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paint(painter, rect());
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void ChartView::read(std::optional<std::size_t> place)
{
    if (places() == 0 || place == m_cursor)
        return;
    m_cursor = place;
    update();
    emit pointRead(place ? placeInWords(*place) : QString());
}

void ChartView::mouseMoveEvent(QMouseEvent* event)
{
    if (places() != 0)
        read(placeAt(event->position().x(), rect()));
}

void ChartView::leaveEvent(QEvent*)
{
    read(std::nullopt);
}

void ChartView::focusOutEvent(QFocusEvent* event)
{
    read(std::nullopt);
    QWidget::focusOutEvent(event);
}

void ChartView::keyPressEvent(QKeyEvent* event)
{
    if (places() == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    const std::size_t last = places() - 1;
    const std::size_t now = m_cursor.value_or(startPlace());
    switch (event->key()) {
    case Qt::Key_Left:
        read(m_cursor && now > 0 ? now - 1 : now);
        break;
    case Qt::Key_Right:
        read(m_cursor && now < last ? now + 1 : now);
        break;
    case Qt::Key_Home:
        read(0);
        break;
    case Qt::Key_End:
        read(last);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

QByteArray ChartView::picture(PictureKind kind, const QString& text)
{
    QByteArray bytes;
    if (places() == 0)
        return bytes;
    const std::optional<std::size_t> cursor = std::exchange(m_cursor, std::nullopt);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const int margin = static_cast<int>(kChartSpace);
    const QRect texts = QFontMetrics(font()).boundingRect(
        QRect(margin, 0, kPictureSize.width() - 2 * margin, 10000), Qt::TextWordWrap, text);
    const QSize size(kPictureSize.width(), kPictureSize.height() + texts.height() + 2 * margin);
    const auto paintAll = [&](QPainter& painter) {
        painter.fillRect(QRect({}, size), palette().color(QPalette::Window));
        paint(painter, QRect({}, kPictureSize));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(texts.translated(0, kPictureSize.height() + margin - texts.top()), Qt::TextWordWrap,
                         text);
    };
    if (kind == PictureKind::Svg) {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(size);
        svg.setViewBox(QRect({}, size));
        svg.setTitle(title());
        svg.setDescription(accessibleDescription());
        QPainter painter(&svg);
        paintAll(painter);
    } else {
        QImage image(size * kSharpness, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.scale(kSharpness, kSharpness);
        paintAll(painter);
        painter.end();
        image.save(&buffer, "PNG");
    }
    m_cursor = cursor;
    return bytes;
}

} // namespace comfortics::ui
