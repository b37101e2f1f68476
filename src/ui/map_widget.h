// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "radiation/map_view.h"
#include "ui/map_source.h"

#include <QWidget>

#include <optional>

namespace comfortics::ui {

/// A map to pick a place on: the wheel zooms, dragging moves, a click picks. With the keyboard the
/// arrows move, plus and minus zoom, and Enter picks the middle.
class MapWidget : public QWidget {
    Q_OBJECT

public:
    explicit MapWidget(MapSource& source, QWidget* parent = nullptr);

    const radiation::MapView& view() const noexcept { return m_view; }
    void show(radiation::GeoPoint center, double zoom);
    void setMarker(std::optional<radiation::GeoPoint> marker);

    QSize sizeHint() const override;

signals:
    /// The place as text, at the precision of the zoom.
    void picked(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pick(radiation::MapPoint at);
    void zoomBy(double levels, radiation::MapPoint at);
    void paintNote(QPainter& painter, const QString& text, Qt::Alignment corner);

    MapSource& m_source;
    radiation::MapView m_view;
    std::optional<radiation::GeoPoint> m_marker;
    std::optional<QPointF> m_mouse;
    QPointF m_pressed;
    QPointF m_last;
    bool m_dragging = false;
};

} // namespace comfortics::ui
