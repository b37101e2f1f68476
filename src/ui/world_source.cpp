// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/world_source.h"

#include "ui/text.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <string>

namespace comfortics::ui {

using radiation::GeoPoint;
using radiation::kTileSize;
using radiation::MapPoint;
using radiation::MapView;

namespace {

constexpr double kMostZoom = 12;
constexpr double kHalfTurn = 180; // degrees
constexpr std::size_t kMostNames = 60;
constexpr double kDotRadius = 2.5;
constexpr int kNameGap = 5;

const QColor kSea(0xCF, 0xE3, 0xF1);
const QColor kLand(0xF6, 0xF3, 0xEA);
const QColor kCoast(0x6F, 0x8F, 0xA8);
const QColor kBorder(0xB9, 0xAC, 0x9E);
const QColor kInk(0x2B, 0x2B, 0x2B);

std::string resource(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

// Letters without their accents and without case. What carries its stroke inside is no letter with an
// accent to Unicode.
std::string plainLetters(std::string_view text)
{
    static const QHash<QChar, QString> strokes{{u'ł', u"l"_qs},  {u'đ', u"d"_qs},  {u'ð', u"d"_qs},
                                               {u'ø', u"o"_qs},  {u'ħ', u"h"_qs},  {u'ŧ', u"t"_qs},
                                               {u'æ', u"ae"_qs}, {u'œ', u"oe"_qs}, {u'þ', u"th"_qs},
                                               {u'ı', u"i"_qs},  {u'–', u"-"_qs},  {u'’', u"'"_qs}};
    QString plain;
    for (const QChar character : toQt(text).toCaseFolded().normalized(QString::NormalizationForm_KD))
        if (!character.isMark())
            plain += strokes.value(character, character);
    return fromQt(plain);
}

// How many people a place needs to be shown at a zoom.
double leastPopulation(double zoom)
{
    return 8e6 / std::exp2(1.3 * (zoom - 1));
}

} // namespace

WorldSource::WorldSource(QObject* parent)
    : MapSource(parent), m_places(resource(QStringLiteral(":/map/places.tsv")), plainLetters)
{
    const auto map = radiation::readWorldMap(resource(QStringLiteral(":/map/world.map")));
    if (!map)
        return;
    for (const radiation::MapLine& line : map->lines) {
        m_lines.push_back(shape(line.points));
        m_lines.back().isBorder = line.isBorder;
    }
    for (const auto& ring : map->rings)
        m_rings.push_back(shape(ring));
}

WorldSource::Shape WorldSource::shape(const std::vector<GeoPoint>& points)
{
    Shape result;
    double turn = 0; // beyond the date line a shape goes on into the world's next copy
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double step = i == 0 ? 0 : points[i].longitude - points[i - 1].longitude;
        if (std::abs(step) > kHalfTurn && points[i].latitude > -radiation::kMaxLatitude)
            turn -= std::copysign(kTileSize, step);
        const MapPoint at = radiation::project(points[i], 0);
        result.points << QPointF(at.x + turn, at.y);
    }
    result.bounds = result.points.boundingRect();
    return result;
}

void WorldSource::paint(QPainter& painter, const MapView& view)
{
    const double scale = std::exp2(view.zoom());
    const MapPoint middle = radiation::project(view.center(), 0);
    const QRectF window(0, 0, view.width(), view.height());
    painter.fillRect(window, kSea);
    // The world, and its copies to the west and the east.
    for (const double turn : {-kTileSize, 0.0, kTileSize}) {
        painter.save();
        painter.translate(view.width() / 2, view.height() / 2);
        painter.scale(scale, scale);
        painter.translate(turn - middle.x, -middle.y);
        paintCopy(painter, painter.transform().inverted().mapRect(window));
        painter.restore();
    }
    paintPlaces(painter, view);
}

void WorldSource::paintCopy(QPainter& painter, const QRectF& seen)
{
    // Flat shapes have no area, which "intersects" wants.
    const auto isSeen = [&seen](const Shape& shape) {
        return shape.bounds.right() >= seen.left() && shape.bounds.left() <= seen.right() &&
               shape.bounds.bottom() >= seen.top() && shape.bounds.top() <= seen.bottom();
    };
    QPainterPath land;
    land.setFillRule(Qt::OddEvenFill); // a lake is a ring within a ring
    for (const Shape& ring : m_rings)
        if (isSeen(ring))
            land.addPolygon(ring.points);
    painter.fillPath(land, kLand);

    for (const bool borders : {true, false}) {
        QPen pen(borders ? kBorder : kCoast, 1);
        pen.setCosmetic(true);
        painter.setPen(pen);
        for (const Shape& line : m_lines)
            if (line.isBorder == borders && isSeen(line))
                painter.drawPolyline(line.points);
    }
}

// The largest places first; a name that would cover another is left out.
void WorldSource::paintPlaces(QPainter& painter, const MapView& view)
{
    const QRectF window(0, 0, view.width(), view.height());
    const double least = leastPopulation(view.zoom());
    std::vector<QRectF> taken;
    painter.setPen(kInk);
    painter.setBrush(kInk);
    for (const radiation::Place& place : m_places.all()) {
        if (static_cast<double>(place.population) < least || taken.size() >= kMostNames)
            break;
        const MapPoint at = view.toScreen(place.at);
        const QPointF dot(at.x, at.y);
        if (!window.contains(dot))
            continue;
        const QString name = toQt(place.name);
        const QRectF box =
            QRectF(painter.fontMetrics().boundingRect(name)).translated(dot + QPointF(kNameGap, kNameGap));
        const bool covers = std::any_of(taken.begin(), taken.end(),
                                        [&box](const QRectF& other) { return other.intersects(box); });
        if (covers)
            continue;
        taken.push_back(box.adjusted(-kNameGap, 0, kNameGap, 0));
        painter.drawEllipse(dot, kDotRadius, kDotRadius);
        painter.drawText(dot + QPointF(kNameGap, kNameGap), name);
    }
}

QString WorldSource::attribution() const
{
    return QStringLiteral("Made with Natural Earth");
}

double WorldSource::mostZoom() const
{
    return kMostZoom;
}

} // namespace comfortics::ui
