// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tile_source.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDateTime>
#include <QImageReader>
#include <QNetworkDiskCache>
#include <QNetworkReply>
#include <QPainter>
#include <QSettings>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <utility>

namespace comfortics::ui {

using radiation::kTileSize;
using radiation::MapPoint;
using radiation::MapView;

namespace {

constexpr int kTilesInMemory = 400;
constexpr qint64 kBytesOnDisk = 50LL * 1024 * 1024;
constexpr qint64 kMostBytes = 2LL * 1024 * 1024; // of one tile
constexpr int kMostPixels = 1024;                // its width or height
constexpr int kPatience = 10000;                 // ms for one answer
constexpr qint64 kRetryAfter = 30000;            // ms
constexpr int kOlderLevels = 4;                  // levels above from which a missing tile is filled
const QColor kEmpty(0xE4, 0xE4, 0xE4);

// Only what a tile server sends, and only at a size that a tile has. The other formats that Qt can read
// stay closed: an SVG, for one, opens files of this machine.
QImage readTile(QByteArray bytes)
{
    for (const char* const format : {"png", "jpeg", "webp"}) {
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, format);
        reader.setAutoDetectImageFormat(false);
        if (!reader.canRead())
            continue;
        const QSize size = reader.size();
        if (!size.isValid() || size.width() > kMostPixels || size.height() > kMostPixels)
            return {};
        return reader.read();
    }
    return {};
}

} // namespace

TileSettings TileSettings::read()
{
    const QSettings file(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("comfortics"),
                         QStringLiteral("comfortics"));
    const auto value = [&file](const char* variable, const QString& key) {
        const QString set = qEnvironmentVariable(variable);
        return set.isEmpty() ? file.value(key).toString() : set;
    };
    return {.address = value("COMFORTICS_MAP_TILES", QStringLiteral("map/tiles")),
            .attribution = value("COMFORTICS_MAP_ATTRIBUTION", QStringLiteral("map/attribution"))};
}

TileSource::TileSource(TileSettings settings, QObject* parent)
    : MapSource(parent), m_settings(std::move(settings)), m_tiles(kTilesInMemory)
{
    if (!isConfigured())
        return;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (!folder.isEmpty()) {
        auto* const cache = new QNetworkDiskCache(this);
        cache->setCacheDirectory(folder + QStringLiteral("/tiles"));
        cache->setMaximumCacheSize(kBytesOnDisk);
        m_network.setCache(cache);
    }
    m_network.setTransferTimeout(kPatience);
}

TileSource::~TileSource()
{
    forget({});
}

bool TileSource::isConfigured() const
{
    const QUrl url(m_settings.address);
    return (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http")) &&
           m_settings.address.contains(QLatin1String("{z}")) &&
           m_settings.address.contains(QLatin1String("{x}")) &&
           m_settings.address.contains(QLatin1String("{y}"));
}

void TileSource::probe(radiation::GeoPoint point, int zoom)
{
    const MapPoint at = radiation::project(point, zoom);
    request({zoom, static_cast<int>(at.x / kTileSize), static_cast<int>(at.y / kTileSize)});
}

void TileSource::request(const Tile& tile)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const auto failed = m_failed.constFind(tile);
    if (!isConfigured() || m_pending.contains(tile) ||
        (failed != m_failed.constEnd() && now - *failed < kRetryAfter))
        return;
    QString address = m_settings.address;
    address.replace(QLatin1String("{z}"), QString::number(tile.zoom))
        .replace(QLatin1String("{x}"), QString::number(tile.x))
        .replace(QLatin1String("{y}"), QString::number(tile.y));
    QNetworkRequest request{QUrl(address)};
    request.setHeader(QNetworkRequest::UserAgentHeader, QCoreApplication::applicationName() +
                                                            QLatin1Char('/') +
                                                            QCoreApplication::applicationVersion());
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::PreferCache);
    QNetworkReply* const reply = m_network.get(request);
    m_pending.insert(tile, reply);
    connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received, qint64) {
        if (received > kMostBytes)
            reply->abort();
    });
    connect(reply, &QNetworkReply::finished, this, [this, tile, reply] { take(tile, *reply); });
}

void TileSource::take(const Tile& tile, QNetworkReply& reply)
{
    reply.deleteLater();
    m_pending.remove(tile);
    const QImage image = reply.error() == QNetworkReply::NoError ? readTile(reply.readAll()) : QImage();
    if (image.isNull()) {
        m_failed.insert(tile, QDateTime::currentMSecsSinceEpoch());
        return;
    }
    m_failed.remove(tile);
    m_tiles.insert(tile, new QImage(image));
    m_hasTiles = true;
    emit changed();
}

// Requests for tiles that are no longer in sight.
void TileSource::forget(const QList<Tile>& wanted)
{
    for (const Tile& tile : m_pending.keys()) {
        if (wanted.contains(tile))
            continue;
        QNetworkReply* const reply = m_pending.take(tile);
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

QImage* TileSource::find(const Tile& tile)
{
    return m_tiles.object(tile);
}

void TileSource::paint(QPainter& painter, const MapView& view)
{
    painter.fillRect(QRectF(0, 0, view.width(), view.height()), kEmpty);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const int zoom = static_cast<int>(std::lround(view.zoom()));
    const int tilesAround = 1 << zoom;
    const double size = kTileSize * std::exp2(view.zoom() - zoom); // of a tile on the screen
    const MapPoint middle = radiation::project(view.center(), view.zoom());
    const double left = middle.x - view.width() / 2;
    const double top = middle.y - view.height() / 2;

    QList<Tile> wanted;
    const int firstRow = std::max(0, static_cast<int>(std::floor(top / size)));
    const int lastRow = std::min(tilesAround - 1, static_cast<int>(std::floor((top + view.height()) / size)));
    const int lastCol = static_cast<int>(std::floor((left + view.width()) / size));
    for (int row = firstRow; row <= lastRow; ++row) {
        for (int col = static_cast<int>(std::floor(left / size)); col <= lastCol; ++col) {
            const Tile tile{zoom, ((col % tilesAround) + tilesAround) % tilesAround, row};
            const QRectF target(col * size - left, row * size - top, size, size);
            wanted.append(tile);
            if (const QImage* const image = find(tile)) {
                painter.drawImage(target, *image);
                continue;
            }
            request(tile);
            // Until it comes, the part of a coarser tile that is here already.
            for (int up = 1; up <= std::min(kOlderLevels, zoom); ++up) {
                const QImage* const coarse = find({zoom - up, tile.x >> up, tile.y >> up});
                if (!coarse)
                    continue;
                const double part = 1.0 / (1 << up);
                const QRectF source((tile.x & ((1 << up) - 1)) * part * coarse->width(),
                                    (tile.y & ((1 << up) - 1)) * part * coarse->height(),
                                    part * coarse->width(), part * coarse->height());
                painter.drawImage(target, *coarse, source);
                break;
            }
        }
    }
    forget(wanted);
}

QString TileSource::attribution() const
{
    return m_settings.attribution.isEmpty() ? QUrl(m_settings.address).host() : m_settings.attribution;
}

double TileSource::mostZoom() const
{
    return radiation::kMaxZoom;
}

void TilePlaces::navigate(const radiation::MapOpening& opening)
{
    m_tiles.probe({.latitude = opening.latitude, .longitude = opening.longitude}, opening.zoom);
}

} // namespace comfortics::ui
