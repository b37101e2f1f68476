// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "radiation/world_map.h"
#include "ui/map_source.h"

#include <QPolygonF>
#include <QRectF>

#include <vector>

namespace comfortics::ui {

/// The embedded map, which needs no connection: land, borders and places.
class WorldSource : public MapSource {
    Q_OBJECT

public:
    explicit WorldSource(QObject* parent = nullptr);

    void paint(QPainter& painter, const radiation::MapView& view) override;
    QString attribution() const override;
    double mostZoom() const override;

    const radiation::Places& places() const noexcept { return m_places; }

private:
    struct Shape {
        QPolygonF points; // projected at zoom 0
        QRectF bounds;
        bool isBorder = false;
    };
    static Shape shape(const std::vector<radiation::GeoPoint>& points);
    void paintCopy(QPainter& painter, const QRectF& seen);
    void paintPlaces(QPainter& painter, const radiation::MapView& view);

    radiation::Places m_places;
    std::vector<Shape> m_lines;
    std::vector<Shape> m_rings;
};

} // namespace comfortics::ui
