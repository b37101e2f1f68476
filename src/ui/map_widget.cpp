// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/map_widget.h"

#include "ui/text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace comfortics::ui {

using radiation::GeoPoint;
using radiation::MapPoint;

namespace {

constexpr double kNotch = 120; // of the wheel
constexpr double kStep = 80;   // pixels of an arrow key
constexpr double kMarkerRadius = 6;
constexpr int kMargin = 4;

MapPoint mapPoint(QPointF point)
{
    return {.x = point.x(), .y = point.y()};
}

} // namespace

MapWidget::MapWidget(MapSource& source, QWidget* parent) : QWidget(parent), m_source(source)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setMinimumSize(240, 180);
    connect(&source, &MapSource::changed, this, [this] { update(); });
}

QSize MapWidget::sizeHint() const
{
    return {560, 420};
}

void MapWidget::show(GeoPoint center, double zoom)
{
    m_view.show(center, std::min(zoom, m_source.mostZoom()));
    update();
}

void MapWidget::setMarker(std::optional<GeoPoint> marker)
{
    m_marker = marker;
    update();
}

void MapWidget::zoomBy(double levels, MapPoint at)
{
    m_view.zoomBy(std::min(levels, m_source.mostZoom() - m_view.zoom()), at);
    update();
}

void MapWidget::pick(MapPoint at)
{
    setMarker(m_view.toGeo(at));
    emit picked(toQt(m_view.pick(at)));
}

void MapWidget::paintNote(QPainter& painter, const QString& text, Qt::Alignment corner)
{
    QRect box =
        painter.fontMetrics().boundingRect(text).adjusted(-kMargin, -kMargin / 2, kMargin, kMargin / 2);
    box.moveBottom(height() - kMargin);
    if (corner & Qt::AlignRight)
        box.moveRight(width() - kMargin);
    else
        box.moveLeft(kMargin);
    painter.fillRect(box, QColor(255, 255, 255, 210));
    painter.setPen(Qt::black);
    painter.drawText(box, Qt::AlignCenter, text);
}

void MapWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    m_source.paint(painter, m_view);
    if (m_marker) {
        const MapPoint at = m_view.toScreen(*m_marker);
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(QColor(0xD0, 0x2F, 0x2F));
        painter.drawEllipse(QPointF(at.x, at.y), kMarkerRadius, kMarkerRadius);
    }
    if (m_mouse)
        paintNote(painter, toQt(m_view.pick(mapPoint(*m_mouse))), Qt::AlignLeft);
    paintNote(painter, m_source.attribution(), Qt::AlignRight);
    if (hasFocus()) { // what Enter picks
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
        painter.drawLine(width() / 2 - kMargin, height() / 2, width() / 2 + kMargin, height() / 2);
        painter.drawLine(width() / 2, height() / 2 - kMargin, width() / 2, height() / 2 + kMargin);
    }
}

void MapWidget::resizeEvent(QResizeEvent*)
{
    m_view.resize(width(), height());
}

void MapWidget::mousePressEvent(QMouseEvent* event)
{
    m_pressed = m_last = event->position();
    m_dragging = false;
}

void MapWidget::mouseMoveEvent(QMouseEvent* event)
{
    m_mouse = event->position();
    if (event->buttons() & Qt::LeftButton) {
        if ((event->position() - m_pressed).manhattanLength() >= QApplication::startDragDistance())
            m_dragging = true;
        if (m_dragging) {
            const QPointF moved = event->position() - m_last;
            m_view.drag(moved.x(), moved.y());
            m_last = event->position();
        }
    }
    update();
}

void MapWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && !m_dragging)
        pick(mapPoint(event->position()));
    m_dragging = false;
}

void MapWidget::leaveEvent(QEvent*)
{
    m_mouse.reset();
    update();
}

void MapWidget::wheelEvent(QWheelEvent* event)
{
    zoomBy(event->angleDelta().y() / kNotch, mapPoint(event->position()));
    event->accept();
}

void MapWidget::keyPressEvent(QKeyEvent* event)
{
    const MapPoint middle{.x = width() / 2.0, .y = height() / 2.0};
    switch (event->key()) {
    case Qt::Key_Left:
        m_view.drag(kStep, 0);
        break;
    case Qt::Key_Right:
        m_view.drag(-kStep, 0);
        break;
    case Qt::Key_Up:
        m_view.drag(0, kStep);
        break;
    case Qt::Key_Down:
        m_view.drag(0, -kStep);
        break;
    case Qt::Key_Plus:
        zoomBy(1, middle);
        break;
    case Qt::Key_Minus:
        zoomBy(-1, middle);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pick(middle);
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    update();
}

} // namespace comfortics::ui
