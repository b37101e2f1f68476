// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "radiation/place_source.h"
#include "ui/map_source.h"

#include <QCache>
#include <QHash>
#include <QImage>
#include <QNetworkAccessManager>

namespace comfortics::ui {

/// Where map tiles come from. Without an address there are none.
struct TileSettings {
    QString address;     ///< with {z}, {x} and {y} in it
    QString attribution; ///< as the server's licence wants it

    /// From the environment (COMFORTICS_MAP_TILES, COMFORTICS_MAP_ATTRIBUTION), else from the user's
    /// settings file (map/tiles, map/attribution).
    static TileSettings read();
};

/// Raster map tiles (PNG, JPEG or WebP) from a server of the user's choice, kept in memory and on disk.
/// Whatever the server does, the map goes on: what is no picture, comes too late or is too large leaves its
/// place grey.
class TileSource : public MapSource {
    Q_OBJECT

public:
    explicit TileSource(TileSettings settings, QObject* parent = nullptr);
    ~TileSource() override;

    bool isConfigured() const;
    /// Asks for the tile of a point, to find out whether the server answers.
    void probe(radiation::GeoPoint point, int zoom);
    /// True once a tile has come.
    bool hasTiles() const noexcept { return m_hasTiles; }
    /// True while answers are awaited.
    bool isWaiting() const { return !m_pending.isEmpty(); }

    void paint(QPainter& painter, const radiation::MapView& view) override;
    QString attribution() const override;
    double mostZoom() const override;

private:
    struct Tile {
        int zoom = 0;
        int x = 0;
        int y = 0;
        friend bool operator==(const Tile&, const Tile&) = default;
        friend size_t qHash(const Tile& tile, size_t seed)
        {
            return qHashMulti(seed, tile.zoom, tile.x, tile.y);
        }
    };
    QImage* find(const Tile& tile);
    void request(const Tile& tile);
    void take(const Tile& tile, QNetworkReply& reply);
    void forget(const QList<Tile>& wanted);

    TileSettings m_settings;
    QNetworkAccessManager m_network;
    QCache<Tile, QImage> m_tiles;
    QHash<Tile, QNetworkReply*> m_pending;
    QHash<Tile, qint64> m_failed; // when, in milliseconds
    bool m_hasTiles = false;
};

/// The connected map as the form sees it.
class TilePlaces final : public radiation::PlaceSource {
public:
    explicit TilePlaces(TileSource& tiles) : m_tiles(tiles) {}

    void navigate(const radiation::MapOpening& opening) override;
    bool ready() override { return m_tiles.hasTiles(); }
    using PlaceSource::supply;

private:
    TileSource& m_tiles;
};

} // namespace comfortics::ui
