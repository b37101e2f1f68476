// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/chart_painter.h"

#include "ui/chip.h"
#include "ui/colors.h"
#include "ui/picture_file.h"
#include "ui/text.h"
#include "workbench/time_marks.h"

#include <QBuffer>
#include <QFontInfo>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace comfortics::ui {

using workbench::Band;
using workbench::Chart;
using workbench::ChartPlace;
using workspace::Axis;

namespace {

constexpr double kDense = 1; // points of a line for each pixel, from which it is drawn thin, which is quicker
constexpr double kSpace = 6; // [pixel]
constexpr double kBandOpacity = 0.45; // the figures stay the strongest
constexpr float kGridOpacity = 0.18F;
constexpr float kShadeOpacity = 0.3F;
constexpr float kHatchOpacity = 0.35F;
constexpr double kHatch = 7; // between two lines of a hatch [pixel]
constexpr double kMarker = 4;
constexpr int kMarkersOfLine = 7;
constexpr double kReach = 20; // how near to a point the mouse reads it [pixel]
constexpr double kRampWidth = 120;
constexpr int kSharpness = 2; // pixels of a picture to a pixel of the screen
constexpr double kPixelsPerPoint = 96.0 / 72;
constexpr int kPdfResolution = 300;

// Of lines, on light and on dark ground; told apart by their markers, too.
constexpr std::array<QRgb, 5> kLightInks{0xFF0060A8, 0xFFB84A00, 0xFF007A55, 0xFF96287F, 0xFF6B5200};
constexpr std::array<QRgb, 5> kDarkInks{0xFF6CC0F5, 0xFFFFA366, 0xFF4FDCA4, 0xFFEE9AD2, 0xFFEADB5A};
// From dark to light, so that values are told apart without the hues.
constexpr std::array<QRgb, 5> kRamp{0xFF440154, 0xFF3B528B, 0xFF21918C, 0xFF5EC962, 0xFFFDE725};

QColor lineInk(std::size_t line, const QPalette& palette)
{
    if (line == 0)
        return palette.color(QPalette::Text);
    return QColor::fromRgb((isDark(palette) ? kDarkInks : kLightInks)[(line - 1) % kLightInks.size()]);
}

QColor rampColor(double share)
{
    const double place = std::clamp(share, 0.0, 1.0) * (kRamp.size() - 1);
    const auto low = std::min(static_cast<std::size_t>(place), kRamp.size() - 2);
    const double part = place - static_cast<double>(low);
    const QColor from = QColor::fromRgb(kRamp[low]);
    const QColor to = QColor::fromRgb(kRamp[low + 1]);
    const auto mixed = [part](int one, int other) {
        return static_cast<int>(std::lround(one + (other - one) * part));
    };
    return {mixed(from.red(), to.red()), mixed(from.green(), to.green()), mixed(from.blue(), to.blue())};
}

void paintMarker(QPainter& painter, const QPointF& at, std::size_t line)
{
    const double r = kMarker;
    switch (line % workbench::kMostLines) {
    case 0:
        painter.drawEllipse(at, r, r);
        break;
    case 1:
        painter.drawRect(QRectF(at.x() - r, at.y() - r, 2 * r, 2 * r));
        break;
    case 2:
        painter.drawPolygon(
            QPolygonF{{at.x(), at.y() - r}, {at.x() + r, at.y() + r}, {at.x() - r, at.y() + r}});
        break;
    case 3:
        painter.drawPolygon(QPolygonF{
            {at.x(), at.y() - r}, {at.x() + r, at.y()}, {at.x(), at.y() + r}, {at.x() - r, at.y()}});
        break;
    case 4:
        painter.drawPolygon(
            QPolygonF{{at.x(), at.y() + r}, {at.x() + r, at.y() - r}, {at.x() - r, at.y() - r}});
        break;
    default:
        painter.drawLine(QPointF(at.x() - r, at.y() - r), QPointF(at.x() + r, at.y() + r));
        painter.drawLine(QPointF(at.x() - r, at.y() + r), QPointF(at.x() + r, at.y() - r));
    }
}

// Lines of its own: a pattern is not known to all that show pictures.
void paintHatch(QPainter& painter, const QRectF& room, const QPalette& palette)
{
    painter.save();
    painter.setClipRect(room, Qt::IntersectClip);
    painter.setPen(QPen(faded(palette.color(QPalette::Text), kHatchOpacity), 1));
    for (double x = room.left() - room.height(); x < room.right(); x += kHatch)
        painter.drawLine(QPointF(x, room.bottom()), QPointF(x + room.height(), room.top()));
    painter.restore();
}

// Words without a severity have colours in their order.
QColor classColor(const workbench::ClassHours& hours, std::size_t place, const QPalette& palette)
{
    if (const auto& severity = hours.classes[place].severity)
        return severityField(*severity, palette);
    return rampColor((static_cast<double>(place) + 0.5) / static_cast<double>(hours.classes.size()));
}

bool isSeen(const Band& band, const Axis& axis)
{
    return band.low < axis.high && band.high > axis.low;
}

QString columnTitle(const workbench::ChartColumn& column)
{
    const QString name = toQt(column.name);
    return column.unit.empty() ? name : QStringLiteral("%1 [%2]").arg(name, toQt(column.unit));
}

// A long name gives way to its unit.
QString titleIn(const QString& title, const QFontMetricsF& metrics, double room)
{
    const qsizetype unit = title.lastIndexOf(QStringLiteral(" ["));
    const QString kept = unit < 0 ? QString() : title.mid(unit);
    return metrics.elidedText(title.left(unit < 0 ? title.size() : unit), Qt::ElideRight,
                              room - metrics.horizontalAdvance(kept)) +
           kept;
}

QString amountTitle(bool hours)
{
    return hours ? QStringLiteral("Hours") : QStringLiteral("Rows");
}

} // namespace

/// Where something is drawn, and what its edges stand for.
struct ChartPainter::Plot {
    QRectF room;
    double left = 0;
    double right = 1;
    double bottom = 0;
    double top = 1;

    double x(double value) const { return room.left() + (value - left) / (right - left) * room.width(); }
    double y(double value) const { return room.bottom() - (value - bottom) / (top - bottom) * room.height(); }
    QPointF at(double along, double up) const { return {x(along), y(up)}; }
    double along(double x) const { return left + (x - room.left()) / room.width() * (right - left); }
    double up(double y) const { return bottom + (room.bottom() - y) / room.height() * (top - bottom); }
    QRectF box(double fromX, double toX, double fromY, double toY) const
    {
        return QRectF(at(fromX, fromY), at(toX, toY)).normalized();
    }
};

/// Of a legend.
struct ChartPainter::Entry {
    enum class Kind { Words, Line, Field, Hatch, Ramp };
    Kind kind = Kind::Words;
    QString text;
    std::size_t line = 0;
    QColor color{};
    double opacity = 1;
};

struct ChartPainter::Frame {
    std::vector<Plot> plots;     ///< of a time series one for each panel, else one
    std::vector<Axis> upAxes;    ///< of each plot
    std::vector<QString> titles; ///< beside each plot
    QRectF legend;
    std::vector<std::pair<QRectF, Entry>> entries;
};

namespace {

struct Edges {
    double left = 0;
    double right = 1;
    Axis up;
    QString title;
};

// The numbers of an axis up, for hours of the day as well.
constexpr Axis kHoursOfDay{0, 24, 6};

std::vector<Edges> edgesOf(const Chart& chart)
{
    struct Visitor {
        const Chart& chart;
        std::vector<Edges> operator()(const std::monostate&) const { return {}; }
        std::vector<Edges> operator()(const workbench::TimeSeries& series) const
        {
            std::vector<Edges> all;
            for (const workbench::TimePanel& panel : series.panels)
                all.push_back({static_cast<double>(series.window.from), static_cast<double>(series.window.to),
                               panel.values,
                               panel.lines.size() == 1 ? columnTitle(chart.columns[panel.lines[0].column])
                               : panel.unit.empty()    ? QString()
                                                       : QStringLiteral("[%1]").arg(toQt(panel.unit))});
            return all;
        }
        std::vector<Edges> operator()(const workbench::Spreads& spreads) const
        {
            const QString title = columnTitle(chart.columns[spreads.column]);
            if (spreads.names.empty())
                return {{static_cast<double>(spreads.days.from), static_cast<double>(spreads.days.to),
                         spreads.values, title}};
            return {{-0.5, static_cast<double>(spreads.names.size()) - 0.5, spreads.values, title}};
        }
        std::vector<Edges> operator()(const workbench::HeatMap& map) const
        {
            const auto first = static_cast<double>(map.firstDay * workbench::kDay);
            return {{first,
                     first + static_cast<double>(map.days.size()) * static_cast<double>(workbench::kDay),
                     kHoursOfDay, QStringLiteral("Hour of the day")}};
        }
        std::vector<Edges> operator()(const workbench::Histogram& histogram) const
        {
            return {{histogram.values.low, histogram.values.high, histogram.amounts,
                     amountTitle(histogram.hours)}};
        }
        std::vector<Edges> operator()(const workbench::ClassHours& hours) const
        {
            return {{-0.5, static_cast<double>(hours.months.size()) - 0.5, hours.amounts,
                     amountTitle(hours.hours)}};
        }
        std::vector<Edges> operator()(const workbench::Scatter& scatter) const
        {
            return {{scatter.along.low, scatter.along.high, scatter.up,
                     columnTitle(chart.columns[scatter.upColumn])}};
        }
    };
    return std::visit(Visitor{chart}, chart.body);
}

void eachMark(const Axis& axis, const std::function<void(double)>& mark)
{
    for (double number = std::ceil(axis.low / axis.step - 1e-9);
         number * axis.step <= axis.high + axis.step * 1e-9; ++number)
        mark(number * axis.step);
}

} // namespace

std::vector<ChartPainter::Entry> ChartPainter::legend() const
{
    std::vector<Entry> entries;
    const auto field = [&](const Band& band, double opacity) {
        if (band.severity)
            entries.push_back({Entry::Kind::Field, toQt(workbench::bandWords(band)), 0,
                               severityField(*band.severity, m_palette), opacity});
    };
    const auto bands = [&](const std::vector<Band>& all, const Axis& axis, const std::string& name) {
        if (std::any_of(all.begin(), all.end(),
                        [&](const Band& band) { return band.severity && isSeen(band, axis); }))
            entries.push_back({Entry::Kind::Words, QStringLiteral("Classes of %1:").arg(toQt(name))});
        for (const Band& band : all)
            if (isSeen(band, axis))
                field(band, kBandOpacity);
    };
    if (const auto* const series = std::get_if<workbench::TimeSeries>(&m_chart.body)) {
        std::size_t line = 0;
        for (const workbench::TimePanel& panel : series->panels)
            for (const workbench::TimeLine& one : panel.lines)
                entries.push_back({Entry::Kind::Line, columnTitle(m_chart.columns[one.column]), line++});
        for (const workbench::TimePanel& panel : series->panels)
            bands(panel.bands, panel.values, m_chart.columns[panel.bandsOf].name);
    } else if (const auto* const spreads = std::get_if<workbench::Spreads>(&m_chart.body)) {
        entries.push_back({Entry::Kind::Line, QStringLiteral("Mean"), 0});
        entries.push_back({Entry::Kind::Field, QStringLiteral("Lowest to highest"), 0,
                           m_palette.color(QPalette::Text), kShadeOpacity});
        bands(spreads->bands, spreads->values, m_chart.columns[spreads->column].name);
    } else if (const auto* const map = std::get_if<workbench::HeatMap>(&m_chart.body)) {
        std::vector<bool> came(map->bands.size());
        bool classless = false;
        bool gaps = false;
        for (const auto& day : map->days)
            for (const workbench::HeatMap::Field& one : day) {
                if (one.band)
                    came[*one.band] = true;
                classless = classless || (one.mean && !one.band);
                gaps = gaps || !one.mean;
            }
        for (std::size_t i = 0; i < came.size(); ++i)
            if (came[i])
                field(map->bands[i], 1);
        if (map->bands.empty())
            entries.push_back(
                {Entry::Kind::Ramp, QStringLiteral("%1|%2").arg(
                                        toQt(workbench::withUnit(m_chart.columns[map->column], map->low)),
                                        toQt(workbench::withUnit(m_chart.columns[map->column], map->high)))});
        else if (classless)
            entries.push_back({Entry::Kind::Field, QStringLiteral("no class"), 0,
                               m_palette.color(QPalette::Text), kShadeOpacity});
        if (gaps)
            entries.push_back({Entry::Kind::Hatch, QStringLiteral("no value")});
    } else if (const auto* const histogram = std::get_if<workbench::Histogram>(&m_chart.body))
        bands(histogram->bands, histogram->values, m_chart.columns[histogram->column].name);
    else if (const auto* const hours = std::get_if<workbench::ClassHours>(&m_chart.body)) {
        const auto total = [&](double amount) {
            const QString number =
                toQt(workbench::valueText({.decimals = amount == std::round(amount) ? 0 : 1}, amount));
            return QStringLiteral(": %1 %2").arg(number,
                                                 hours->hours ? QStringLiteral("h") : QStringLiteral("rows"));
        };
        for (std::size_t i = 0; i < hours->classes.size(); ++i) {
            entries.push_back({Entry::Kind::Field, toQt(workbench::bandWords(hours->classes[i])), 0,
                               classColor(*hours, i, m_palette), 1});
            entries.back().text += total(hours->totals[i]);
        }
        if (hours->without > 0)
            entries.push_back({Entry::Kind::Hatch, QStringLiteral("no class") + total(hours->without)});
    }
    return entries;
}

ChartPainter::Frame ChartPainter::frameIn(const QRectF& room) const
{
    const QFontMetricsF metrics(m_font);
    const double line = metrics.height();
    Frame frame;
    // The legend flows over as many lines as it needs.
    const double sample = 2.2 * line;
    double x = room.left() + kSpace;
    int row = 0;
    for (const Entry& entry : legend()) {
        const double wanted = metrics.horizontalAdvance(entry.text) + (entry.kind == Entry::Kind::Words ? 0
                                                                       : entry.kind == Entry::Kind::Ramp
                                                                           ? kRampWidth + 2 * kSpace
                                                                           : sample + kSpace);
        const double width = std::min(wanted, room.width() - 2 * kSpace);
        if (x + width > room.right() && x > room.left() + kSpace) {
            x = room.left() + kSpace;
            ++row;
        }
        frame.entries.emplace_back(QRectF(x, row * (line + 2), width, line), entry);
        x += width + 2.5 * kSpace;
    }
    const double legendHeight = frame.entries.empty() ? 0 : (row + 1) * (line + 2) + kSpace;
    for (auto& [place, entry] : frame.entries)
        place.translate(0, room.bottom() - legendHeight + kSpace / 2);
    const std::vector<Edges> edges = edgesOf(m_chart);
    double numbers = metrics.horizontalAdvance(QStringLiteral("00"));
    for (const Edges& one : edges)
        eachMark(one.up, [&](double value) {
            numbers = std::max(numbers, metrics.horizontalAdvance(
                                            axisNumber(std::round(value / one.up.step) * one.up.step)));
        });
    const QRectF all = room.adjusted(line + numbers + 2 * kSpace, line / 2 + kSpace, -2 * kSpace,
                                     -2 * line - 2 * kSpace - legendHeight);
    const double between = line;
    const auto count = static_cast<double>(std::max<std::size_t>(edges.size(), 1));
    const double height = (all.height() - (count - 1) * between) / count;
    for (std::size_t i = 0; i < edges.size(); ++i) {
        const Edges& one = edges[i];
        frame.plots.push_back(
            {QRectF(all.left(), all.top() + static_cast<double>(i) * (height + between), all.width(), height),
             one.left, one.right, one.up.low, one.up.high});
        frame.upAxes.push_back(one.up);
        frame.titles.push_back(one.title);
    }
    return frame;
}

/// Paints what stands in a plot.
struct ChartPainter::Body {
    const ChartPainter& from;
    QPainter& painter;
    const Frame& frame;
    const std::optional<ChartPlace>& cursor;

    const QPalette& palette() const { return from.m_palette; }
    QColor ink() const { return palette().color(QPalette::Text); }
    const Plot& plot() const { return frame.plots.front(); }

    void bandsUp(const std::vector<Band>& bands, const Plot& plot)
    {
        for (const Band& band : bands) {
            const double low = std::max(band.low, plot.bottom);
            const double high = std::min(band.high, plot.top);
            if (low < high)
                paintBand(band, plot.box(plot.left, plot.right, low, high));
            if (low > plot.bottom && low < plot.top) {
                painter.setPen(QPen(faded(ink(), kHatchOpacity), 1));
                painter.drawLine(plot.at(plot.left, low), plot.at(plot.right, low));
            }
        }
    }

    void paintBand(const Band& band, const QRectF& room)
    {
        if (!band.severity)
            return;
        painter.setOpacity(kBandOpacity);
        painter.fillRect(room, severityField(*band.severity, palette()));
        painter.setOpacity(1);
    }

    void cursorLine(const Plot& plot, double along)
    {
        painter.setPen(QPen(ink(), 1, Qt::DotLine));
        painter.drawLine(plot.at(along, plot.bottom), plot.at(along, plot.top));
    }

    void outline(const QRectF& room)
    {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Base), 4));
        painter.drawRect(room);
        painter.setPen(QPen(ink(), 2));
        painter.drawRect(room);
    }

    void operator()(const std::monostate&) {}

    void operator()(const workbench::TimeSeries& series)
    {
        std::size_t number = 0;
        for (std::size_t i = 0; i < series.panels.size(); ++i) {
            const Plot& plot = frame.plots[i];
            painter.save();
            painter.setClipRect(plot.room);
            bandsUp(series.panels[i].bands, plot);
            for (const workbench::TimeLine& line : series.panels[i].lines)
                paintLine(line, plot, number++);
            if (cursor && cursor->along < series.timeline->seconds.size())
                cursorLine(plot, static_cast<double>(series.timeline->seconds[cursor->along]));
            painter.restore();
        }
    }

    void paintLine(const workbench::TimeLine& line, const Plot& plot, std::size_t number)
    {
        const QColor color = lineInk(number, palette());
        const auto& points = line.points;
        const bool dense = static_cast<double>(points.size()) > kDense * plot.room.width();
        const double width = dense ? 1 : number == 0 ? 1.3 : 1.6;
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin));
        painter.setBrush(color);
        QPolygonF run;
        const auto flush = [&] {
            if (run.size() > 1)
                painter.drawPolyline(run);
            else if (run.size() == 1)
                painter.drawEllipse(run.front(), 1, 1);
            run.clear();
        };
        for (const workbench::LinePoint& point : points) {
            if (!point.joined)
                flush();
            run.push_back(plot.at(point.seconds, point.value));
        }
        flush();
        // Markers tell several lines apart without their colours.
        if (legendLines() < 2 || points.empty())
            return;
        painter.setPen(QPen(color, 1.5));
        painter.setBrush(palette().color(QPalette::Base));
        const std::size_t step = std::max<std::size_t>(1, points.size() / kMarkersOfLine);
        for (std::size_t i = step / 2 + number * step / (2 * workbench::kMostLines); i < points.size();
             i += step)
            paintMarker(painter, plot.at(points[i].seconds, points[i].value), number);
    }

    std::size_t legendLines() const
    {
        return static_cast<std::size_t>(
            std::count_if(frame.entries.begin(), frame.entries.end(),
                          [](const auto& entry) { return entry.second.kind == Entry::Kind::Line; }));
    }

    void operator()(const workbench::Spreads& spreads)
    {
        painter.setClipRect(plot().room);
        bandsUp(spreads.bands, plot());
        const auto& parts = spreads.parts;
        for (std::size_t i = 0; i < parts.size();) {
            std::size_t end = i + 1;
            while (end < parts.size() && parts[end].joined)
                ++end;
            QPolygonF shade;
            QPolygonF line;
            for (std::size_t k = i; k < end; ++k) {
                shade.push_back(plot().at(parts[k].at, parts[k].high));
                line.push_back(plot().at(parts[k].at, parts[k].mean));
            }
            for (std::size_t k = end; k-- > i;)
                shade.push_back(plot().at(parts[k].at, parts[k].low));
            painter.setBrush(faded(ink(), kShadeOpacity));
            painter.setPen(end - i == 1 ? QPen(faded(ink(), kShadeOpacity), 3) : QPen(Qt::NoPen));
            painter.drawPolygon(shade);
            painter.setBrush(ink());
            painter.setPen(QPen(ink(), 2, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin));
            painter.drawPolyline(line);
            if (end - i == 1 || !spreads.names.empty())
                for (const QPointF& point : line)
                    painter.drawEllipse(point, 2.5, 2.5);
            i = end;
        }
        if (cursor) {
            const workbench::Spread& part = parts[cursor->along];
            cursorLine(plot(), part.at);
            painter.setBrush(palette().color(QPalette::Base));
            painter.setPen(QPen(ink(), 1.5));
            painter.drawEllipse(plot().at(part.at, part.mean), kMarker, kMarker);
        }
    }

    void operator()(const workbench::HeatMap& map)
    {
        const QRectF room = plot().room;
        // As an image without smoothing: a year has 8760 fields.
        QImage image(static_cast<int>(map.days.size()), 24, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        bool gaps = false;
        for (std::size_t day = 0; day < map.days.size(); ++day)
            for (std::size_t hour = 0; hour < 24; ++hour) {
                const workbench::HeatMap::Field& field = map.days[day][hour];
                gaps = gaps || !field.mean;
                if (field.mean)
                    image.setPixelColor(static_cast<int>(day), 23 - static_cast<int>(hour),
                                        colorOf(map, field));
            }
        if (gaps)
            paintHatch(painter, room, palette());
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        // Large enough that what shows it has nothing left to smooth.
        const QSize size = room.size().toSize() * kSharpness;
        painter.drawImage(room, image.scaled(size.expandedTo(QSize(1, 1))));
        if (cursor)
            outline(fieldBox(map, *cursor));
    }

    QRectF fieldBox(const workbench::HeatMap& map, const ChartPlace& place) const
    {
        const double day = static_cast<double>(map.firstDay) + static_cast<double>(place.along);
        const auto length = static_cast<double>(workbench::kDay);
        return plot().box(day * length, (day + 1) * length, static_cast<double>(place.up),
                          static_cast<double>(place.up) + 1);
    }

    QColor colorOf(const workbench::HeatMap& map, const workbench::HeatMap::Field& field) const
    {
        if (map.bands.empty())
            return rampColor(map.high > map.low ? (*field.mean - map.low) / (map.high - map.low) : 0.5);
        if (field.band)
            return severityField(map.bands[*field.band].severity.value_or(0), palette());
        return faded(ink(), kShadeOpacity);
    }

    void operator()(const workbench::Histogram& histogram)
    {
        painter.setClipRect(plot().room);
        for (const Band& band : histogram.bands) {
            const double low = std::max(band.low, plot().left);
            const double high = std::min(band.high, plot().right);
            if (low < high)
                paintBand(band, plot().box(low, high, plot().bottom, plot().top));
        }
        for (std::size_t i = 0; i < histogram.bins.size(); ++i) {
            const workbench::Histogram::Bin& bin = histogram.bins[i];
            const QRectF bar = plot().box(bin.from, bin.to, 0, bin.amount);
            painter.setPen(QPen(palette().color(QPalette::Base), 1));
            painter.setBrush(faded(ink(), 0.75F));
            if (bin.amount > 0)
                painter.drawRect(bar);
            if (cursor && cursor->along == i) {
                cursorLine(plot(), (bin.from + bin.to) / 2);
                outline(bar);
            }
        }
    }

    void operator()(const workbench::ClassHours& hours)
    {
        constexpr double kHalf = 0.4;
        for (std::size_t i = 0; i < hours.months.size(); ++i) {
            const workbench::ClassHours::Month& month = hours.months[i];
            const auto middle = static_cast<double>(i);
            double below = 0;
            std::optional<QRectF> chosen;
            for (std::size_t k = 0; k <= hours.classes.size(); ++k) {
                const bool without = k == hours.classes.size();
                const double amount = without ? month.without : month.amounts[k];
                const QRectF box = plot().box(middle - kHalf, middle + kHalf, below, below + amount);
                below += amount;
                if (cursor && cursor->along == i && cursor->up == k)
                    chosen = box;
                if (amount <= 0)
                    continue;
                painter.setPen(QPen(faded(ink(), 0.6F), 1));
                painter.setBrush(without ? QBrush(Qt::NoBrush) : QBrush(classColor(hours, k, palette())));
                painter.drawRect(box);
                if (without)
                    paintHatch(painter, box, palette());
                else if (const auto& severity = hours.classes[k].severity)
                    paintSignIn(box, *severity);
            }
            if (chosen)
                outline(*chosen);
        }
    }

    // The sign of a class where there is room for it.
    void paintSignIn(const QRectF& box, int severity)
    {
        const QFontMetricsF metrics(from.m_font);
        const QString sign = toQt(catalogue::signedSeverity(severity));
        if (box.height() < metrics.height() || box.width() < metrics.horizontalAdvance(sign))
            return;
        const auto colors = workspace::severityColors(severity, isDark(palette()) ? workspace::Ground::Dark
                                                                                  : workspace::Ground::Light);
        painter.setPen(QColor(colors.text.red, colors.text.green, colors.text.blue));
        painter.drawText(box, Qt::AlignCenter, sign);
    }

    void operator()(const workbench::Scatter& scatter)
    {
        painter.setClipRect(plot().room);
        const QColor color = lineInk(1, palette());
        painter.setPen(Qt::NoPen);
        for (const workbench::Scatter::Point& point : scatter.points)
            if (scatter.gathered) {
                const double share = std::log1p(static_cast<double>(point.count)) /
                                     std::log1p(static_cast<double>(scatter.most));
                painter.fillRect(
                    plot().box(point.x - scatter.fieldWidth / 2, point.x + scatter.fieldWidth / 2,
                               point.y - scatter.fieldHeight / 2, point.y + scatter.fieldHeight / 2),
                    faded(ink(), static_cast<float>(0.15 + 0.85 * share)));
            } else {
                painter.setBrush(faded(color, 0.6F));
                painter.drawEllipse(plot().at(point.x, point.y), 2.5, 2.5);
            }
        if (cursor) {
            const workbench::Scatter::Point& point = scatter.points[cursor->along];
            painter.setBrush(Qt::NoBrush);
            painter.setPen(QPen(ink(), 2));
            painter.drawEllipse(plot().at(point.x, point.y), kMarker + 2, kMarker + 2);
        }
    }
};

namespace {

void paintNumbersUp(QPainter& painter, const QRectF& room, const Axis& axis, const QColor& ink)
{
    const QFontMetricsF metrics(painter.font());
    eachMark(axis, [&](double value) {
        const double even = std::round(value / axis.step) * axis.step;
        const double y = room.bottom() - (even - axis.low) / axis.span() * room.height();
        painter.setPen(QPen(faded(ink, kGridOpacity), 1));
        painter.drawLine(QPointF(room.left(), y), QPointF(room.right(), y));
        painter.setPen(ink);
        painter.drawText(QRectF(0, y - metrics.height() / 2, room.left() - kSpace, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, axisNumber(even));
    });
}

/// What is written below a plot: at how much of its width, and what.
struct BelowMark {
    double share = 0;
    QString text;
    bool line = true;
};

std::vector<BelowMark> timeBelow(double from, double to, double width, const QFontMetricsF& metrics,
                                 bool yearless)
{
    const double room = metrics.horizontalAdvance(QStringLiteral("0000-00-00  "));
    const auto most = std::max<std::size_t>(2, static_cast<std::size_t>(width / room));
    std::vector<BelowMark> marks;
    for (const workbench::TimeMark& mark :
         workbench::timeMarks(static_cast<std::int64_t>(from), static_cast<std::int64_t>(to), most, yearless))
        marks.push_back({(static_cast<double>(mark.seconds) - from) / (to - from), toQt(mark.text)});
    return marks;
}

std::vector<BelowMark> namesBelow(const std::vector<std::string>& names, double width,
                                  const QFontMetricsF& metrics)
{
    double widest = 1;
    for (const std::string& name : names)
        widest = std::max(widest, metrics.horizontalAdvance(toQt(name) + QStringLiteral("  ")));
    const auto count = static_cast<double>(names.size());
    const auto step = static_cast<std::size_t>(std::max(1.0, std::ceil(widest * count / width)));
    std::vector<BelowMark> marks;
    for (std::size_t i = 0; i < names.size(); i += step)
        marks.push_back({(static_cast<double>(i) + 0.5) / count, toQt(names[i]), false});
    return marks;
}

std::vector<BelowMark> numbersBelow(const Axis& axis)
{
    std::vector<BelowMark> marks;
    eachMark(axis, [&](double value) {
        const double even = std::round(value / axis.step) * axis.step;
        marks.push_back({(even - axis.low) / axis.span(), axisNumber(even)});
    });
    return marks;
}

/// The marks below a chart and the title of that axis.
struct Below {
    const Chart& chart;
    double width;
    const QFontMetricsF& metrics;
    QString title{};

    std::vector<BelowMark> operator()(const std::monostate&) { return {}; }
    std::vector<BelowMark> operator()(const workbench::TimeSeries& series)
    {
        title = QStringLiteral("Time");
        return timeBelow(static_cast<double>(series.window.from), static_cast<double>(series.window.to),
                         width, metrics, series.timeline->yearless());
    }
    std::vector<BelowMark> operator()(const workbench::Spreads& spreads)
    {
        title = chart.kind == workbench::ChartKind::Days     ? QStringLiteral("Day")
                : chart.kind == workbench::ChartKind::Months ? QStringLiteral("Month")
                                                             : QStringLiteral("Hour of the day");
        if (!spreads.names.empty())
            return namesBelow(spreads.names, width, metrics);
        return timeBelow(static_cast<double>(spreads.days.from), static_cast<double>(spreads.days.to), width,
                         metrics, spreads.yearless);
    }
    std::vector<BelowMark> operator()(const workbench::HeatMap& map)
    {
        title = QStringLiteral("Day");
        const auto first = static_cast<double>(map.firstDay * workbench::kDay);
        return timeBelow(first,
                         first + static_cast<double>(map.days.size()) * static_cast<double>(workbench::kDay),
                         width, metrics, map.yearless);
    }
    std::vector<BelowMark> operator()(const workbench::Histogram& histogram)
    {
        title = columnTitle(chart.columns[histogram.column]);
        return numbersBelow(histogram.values);
    }
    std::vector<BelowMark> operator()(const workbench::ClassHours& hours)
    {
        std::vector<std::string> names;
        for (const workbench::ClassHours::Month& month : hours.months)
            names.push_back(month.name.empty() ? "rows without a time" : month.name);
        title = QStringLiteral("Month");
        return namesBelow(names, width, metrics);
    }
    std::vector<BelowMark> operator()(const workbench::Scatter& scatter)
    {
        title = columnTitle(chart.columns[scatter.alongColumn]);
        return numbersBelow(scatter.along);
    }
};

} // namespace

void ChartPainter::paint(QPainter& painter, const QRectF& room, const std::optional<ChartPlace>& cursor) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(m_font);
    const QColor ink = m_palette.color(QPalette::Text);
    if (m_chart.empty()) {
        painter.setPen(m_palette.color(QPalette::WindowText));
        painter.drawText(room.adjusted(2 * kSpace, 2 * kSpace, -2 * kSpace, -2 * kSpace),
                         Qt::AlignCenter | Qt::TextWordWrap, toQt(m_chart.problem));
        return;
    }
    const Frame frame = frameIn(room);
    if (frame.plots.empty() || frame.plots.front().room.height() < 4 || frame.plots.front().room.width() < 4)
        return;
    const QFontMetricsF metrics(m_font);
    for (const Plot& plot : frame.plots)
        painter.fillRect(plot.room, m_palette.color(QPalette::Base));
    const bool over = std::holds_alternative<workbench::HeatMap>(m_chart.body); // fields hide the lines
    Below below{m_chart, frame.plots.front().room.width(), metrics};
    const std::vector<BelowMark> marks = std::visit(below, m_chart.body);
    const auto grid = [&] {
        for (std::size_t i = 0; i < frame.plots.size(); ++i) {
            const QRectF plot = frame.plots[i].room;
            paintNumbersUp(painter, plot, frame.upAxes[i], ink);
            painter.setPen(QPen(faded(ink, kGridOpacity), 1));
            for (const BelowMark& mark : marks)
                if (mark.line)
                    painter.drawLine(QPointF(plot.left() + mark.share * plot.width(), plot.top()),
                                     QPointF(plot.left() + mark.share * plot.width(), plot.bottom()));
        }
    };
    if (!over)
        grid();
    painter.save();
    std::visit(Body{*this, painter, frame, cursor}, m_chart.body);
    painter.restore();
    if (over)
        grid();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(ink);
    for (std::size_t i = 0; i < frame.plots.size(); ++i) {
        const QRectF plot = frame.plots[i].room;
        painter.drawRect(plot);
        painter.save();
        painter.translate(room.left() + metrics.height() / 2 + kSpace / 2, plot.center().y());
        painter.rotate(-90);
        painter.drawText(QRectF(-plot.height() / 2, -metrics.height() / 2, plot.height(), metrics.height()),
                         Qt::AlignCenter, titleIn(frame.titles[i], metrics, plot.height()));
        painter.restore();
    }
    const QRectF last = frame.plots.back().room;
    double written = room.left() - kSpace;
    for (const BelowMark& mark : marks) {
        const double width = metrics.horizontalAdvance(mark.text);
        const double x = std::min(last.left() + mark.share * last.width() - width / 2, room.right() - width);
        if (x < written + kSpace)
            continue;
        painter.drawText(QRectF(x, last.bottom() + kSpace / 2, width + 1, metrics.height()), Qt::AlignLeft,
                         mark.text);
        written = x + width;
    }
    painter.drawText(QRectF(last.left(), last.bottom() + metrics.height() + kSpace / 2, last.width(),
                            metrics.height() + kSpace),
                     Qt::AlignHCenter | Qt::AlignVCenter, titleIn(below.title, metrics, last.width()));
    for (const auto& [place, entry] : frame.entries) {
        QRectF box(place.left(), place.top() + 2, 2.2 * metrics.height(), place.height() - 4);
        QRectF words = place.adjusted(box.width() + kSpace, 0, 0, 0);
        painter.setPen(QPen(faded(ink, 0.6F), 1));
        painter.setBrush(Qt::NoBrush);
        QString text = entry.text;
        switch (entry.kind) {
        case Entry::Kind::Words:
            words = place;
            break;
        case Entry::Kind::Line:
            painter.setPen(QPen(lineInk(entry.line, m_palette), 2));
            painter.drawLine(QPointF(box.left(), box.center().y()), QPointF(box.right(), box.center().y()));
            painter.setBrush(m_palette.color(QPalette::Base));
            paintMarker(painter, box.center(), entry.line);
            break;
        case Entry::Kind::Field:
            painter.fillRect(box, m_palette.color(QPalette::Base));
            painter.setOpacity(entry.opacity);
            painter.fillRect(box, entry.color);
            painter.setOpacity(1);
            painter.drawRect(box);
            break;
        case Entry::Kind::Hatch:
            painter.drawRect(box);
            paintHatch(painter, box, m_palette);
            break;
        case Entry::Kind::Ramp: {
            const QString low = text.section(QLatin1Char('|'), 0, 0);
            text = text.section(QLatin1Char('|'), 1);
            painter.setPen(ink);
            painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, low);
            box.moveLeft(place.left() + metrics.horizontalAdvance(low) + kSpace);
            box.setWidth(kRampWidth);
            for (int i = 0; i < static_cast<int>(kRampWidth); ++i)
                painter.fillRect(QRectF(box.left() + i, box.top(), 1.5, box.height()),
                                 rampColor(i / kRampWidth));
            words.setLeft(box.right() + kSpace);
            words.setWidth(metrics.horizontalAdvance(text) + 1);
        }
        }
        painter.setPen(m_palette.color(QPalette::WindowText));
        painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(text, Qt::ElideRight, words.width() + 1));
    }
}

double ChartPainter::timeAt(const QRectF& room, double x) const
{
    const Frame frame = frameIn(room);
    return frame.plots.empty() ? 0
                               : frame.plots.front().along(std::clamp(x, frame.plots.front().room.left(),
                                                                      frame.plots.front().room.right()));
}

std::optional<ChartPlace> ChartPainter::placeAt(const QRectF& room, const QPointF& point) const
{
    const Frame frame = frameIn(room);
    const auto inside = std::find_if(frame.plots.begin(), frame.plots.end(),
                                     [&](const Plot& plot) { return plot.room.contains(point); });
    if (inside == frame.plots.end())
        return std::nullopt;
    const Plot& plot = *inside;
    const double along = plot.along(point.x());
    const double up = plot.up(point.y());
    struct Visitor {
        const Plot& plot;
        const QPointF& point;
        double along;
        double up;
        std::optional<ChartPlace> operator()(const std::monostate&) const { return std::nullopt; }
        std::optional<ChartPlace> operator()(const workbench::TimeSeries& series) const
        {
            return ChartPlace{workbench::nearestRow(*series.timeline, along), 0};
        }
        std::optional<ChartPlace> operator()(const workbench::Spreads& spreads) const
        {
            const auto nearest = std::min_element(
                spreads.parts.begin(), spreads.parts.end(), [this](const auto& one, const auto& other) {
                    return std::abs(one.at - along) < std::abs(other.at - along);
                });
            return ChartPlace{static_cast<std::size_t>(nearest - spreads.parts.begin()), 0};
        }
        std::optional<ChartPlace> operator()(const workbench::HeatMap& map) const
        {
            const auto day =
                static_cast<std::size_t>((along - static_cast<double>(map.firstDay * workbench::kDay)) /
                                         static_cast<double>(workbench::kDay));
            return ChartPlace{std::min(day, map.days.size() - 1),
                              std::min<std::size_t>(static_cast<std::size_t>(up), 23)};
        }
        std::optional<ChartPlace> operator()(const workbench::Histogram& histogram) const
        {
            for (std::size_t i = 0; i < histogram.bins.size(); ++i)
                if (along < histogram.bins[i].to)
                    return ChartPlace{i, 0};
            return std::nullopt;
        }
        std::optional<ChartPlace> operator()(const workbench::ClassHours& hours) const
        {
            const auto month = std::min(static_cast<std::size_t>(std::lround(std::max(0.0, along))),
                                        hours.months.size() - 1);
            double below = 0;
            for (std::size_t i = 0; i < hours.classes.size(); ++i) {
                below += hours.months[month].amounts[i];
                if (up < below)
                    return ChartPlace{month, i};
            }
            if (up < below + hours.months[month].without || hours.months[month].rows == 0)
                return ChartPlace{month, hours.classes.size()};
            return std::nullopt;
        }
        std::optional<ChartPlace> operator()(const workbench::Scatter& scatter) const
        {
            std::optional<ChartPlace> nearest;
            double least = kReach * kReach;
            for (std::size_t i = 0; i < scatter.points.size(); ++i) {
                const QPointF away = plot.at(scatter.points[i].x, scatter.points[i].y) - point;
                const double distance = QPointF::dotProduct(away, away);
                if (distance < least) {
                    least = distance;
                    nearest = ChartPlace{i, 0};
                }
            }
            return nearest;
        }
    };
    return std::visit(Visitor{plot, point, along, up}, m_chart.body);
}

ChartFile chartFileOf(const std::string& path)
{
    return isSvg(path) ? ChartFile::Svg : isPdf(path) ? ChartFile::Pdf : ChartFile::Png;
}

QFont inPixels(QFont font)
{
    font.setPixelSize(QFontInfo(font).pixelSize());
    return font;
}

QByteArray chartPicture(const Chart& chart, ChartFile kind, const QFont& screenFont, const QPalette& palette,
                        const QSize& size)
{
    QByteArray bytes;
    if (chart.empty())
        return bytes;
    const QFont font = inPixels(screenFont);
    QFont titleFont = font;
    titleFont.setBold(true);
    titleFont.setPixelSize(font.pixelSize() * 5 / 4);
    constexpr int kMargin = 10;
    const int width = size.width() - 2 * kMargin;
    const QString title = toQt(chart.title);
    QStringList lines;
    for (const std::string& line : chart.footer())
        lines.push_back(toQt(line));
    const QString footer = lines.join(QLatin1Char('\n'));
    const auto heightOf = [width](const QFont& of, const QString& text) {
        return QFontMetrics(of).boundingRect(QRect(0, 0, width, 10000), Qt::TextWordWrap, text).height() + 2;
    };
    const int above = heightOf(titleFont, title) + kMargin;
    const int below = heightOf(font, footer) + 2 * kMargin;
    const QSize whole(size.width(), size.height() + above + below);
    const auto paintAll = [&](QPainter& painter) {
        painter.fillRect(QRect({}, whole), palette.color(QPalette::Window));
        painter.setPen(palette.color(QPalette::WindowText));
        painter.setFont(titleFont);
        painter.drawText(QRect(kMargin, kMargin, width, above), Qt::TextWordWrap, title);
        ChartPainter(chart, font, palette).paint(painter, QRectF(0, above, size.width(), size.height()));
        painter.setPen(palette.color(QPalette::WindowText));
        painter.setFont(font);
        painter.drawText(QRect(kMargin, above + size.height() + kMargin, width, below), Qt::TextWordWrap,
                         footer);
    };
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (kind == ChartFile::Svg) {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(whole);
        svg.setViewBox(QRect({}, whole));
        svg.setTitle(title);
        svg.setDescription(toQt(chart.inWords()));
        QPainter painter(&svg);
        paintAll(painter);
    } else if (kind == ChartFile::Pdf) {
        QPdfWriter pdf(&buffer);
        pdf.setPageSize(QPageSize(QSizeF(whole) / kPixelsPerPoint, QPageSize::Point));
        pdf.setPageMargins(QMarginsF());
        pdf.setResolution(kPdfResolution);
        pdf.setTitle(title);
        pdf.setCreator(QStringLiteral("Comfortics"));
        QPainter painter(&pdf);
        const double scale = kPdfResolution / 72.0 / kPixelsPerPoint;
        painter.scale(scale, scale);
        paintAll(painter);
    } else {
        QImage image(whole * kSharpness, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.scale(kSharpness, kSharpness);
        paintAll(painter);
        painter.end();
        image.save(&buffer, "PNG");
    }
    return bytes;
}

std::string paperSvg(const Chart& chart, const QFont& font, const QSize& size)
{
    QPalette paper;
    for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Base})
        paper.setColor(role, Qt::white);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        paper.setColor(role, QColor(0x11, 0x11, 0x11));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(size);
        svg.setViewBox(QRect({}, size));
        svg.setTitle(toQt(chart.title));
        svg.setDescription(toQt(chart.inWords()));
        QPainter painter(&svg);
        ChartPainter(chart, font, paper).paint(painter, QRectF({}, size));
    }
    // Without the head of a file, and no wider than the page.
    const std::string text = bytes.toStdString();
    const std::size_t begin = text.find("<svg");
    return begin == std::string::npos ? std::string()
                                      : R"(<svg style="max-width:100%;height:auto")" + text.substr(begin + 4);
}

} // namespace comfortics::ui
