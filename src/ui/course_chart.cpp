// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/course_chart.h"

#include "catalogue/categories.h"
#include "catalogue/notes.h"
#include "ui/chip.h"
#include "ui/colors.h"
#include "ui/text.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace comfortics::ui {

using workspace::Course;
using workspace::CoursePoint;

namespace {

constexpr double kSpace = kChartSpace;
constexpr double kMarker = 5;         // radius of the present point [pixel]
constexpr double kBandOpacity = 0.45; // the curve stays the strongest

bool has(const CoursePoint& point)
{
    return point.value.has_value();
}

// The sign of a scale of dissatisfied is that of the vote at the point: a band has it where all points agree.
std::optional<int> bandSeverity(const Course& course, const catalogue::Category& category)
{
    if (catalogue::voteBeside(course.request.item.index()) == 0)
        return category.severity;
    std::optional<int> found;
    for (const CoursePoint& point : course.points) {
        if (!point.meaning || point.meaning->category != &category)
            continue;
        if (found && *found != point.meaning->severity)
            return std::nullopt;
        found = point.meaning->severity;
    }
    return found;
}

} // namespace

/// Where the plot lies, and the scales of its axes.
struct CourseChart::Frame {
    QRectF plot;
    workspace::Axis readings;
    workspace::Axis values;

    double x(double reading) const
    {
        return plot.left() + (reading - readings.low) / readings.span() * plot.width();
    }
    double y(double value) const
    {
        return plot.bottom() - (value - values.low) / values.span() * plot.height();
    }
    QPointF at(const CoursePoint& point) const { return {x(point.reading), y(point.value.value_or(0))}; }
};

CourseChart::CourseChart(QWidget* parent)
    : ChartView(QStringLiteral("course"), QStringLiteral("Course of the index"), parent)
{
}

void CourseChart::show(Course course)
{
    const QString why = toQt(course.problem);
    const QString description = toQt(course.inWords());
    m_course.reset();
    if (!course.points.empty()) {
        m_readings = readingAxis(course);
        m_values = valueAxis(course);
        m_course = std::move(course);
    }
    shows(why, description);
}

bool CourseChart::curveLeaves() const
{
    return m_course && leaves(*m_course, m_values);
}

// A long name gives way to its unit.
QString CourseChart::valueAxisTitle(double room) const
{
    const QFontMetricsF metrics(font());
    const workspace::Item& item = m_course->request.item;
    QString unit = toQt(item.unit());
    if (!unit.isEmpty())
        unit = QStringLiteral(" [%1]").arg(unit);
    QString name = toQt(item.name()).trimmed();
    const auto abbreviations =
        item.index() != 0 ? catalogue::note(item.index()).abbreviations : std::span<const std::string_view>();
    const QString source = item.index() != 0
                               ? QStringLiteral("(%1)").arg(toQt(catalogue::row(item.index()).source()))
                               : QString();
    if (!abbreviations.empty())
        name = toQt(*std::min_element(abbreviations.begin(), abbreviations.end(),
                                      [](auto a, auto b) { return a.size() < b.size(); }));
    else if (!source.isEmpty() && name.endsWith(source))
        name = name.chopped(source.size()).trimmed();
    return metrics.elidedText(name, Qt::ElideRight, room - metrics.horizontalAdvance(unit)) + unit;
}

QString CourseChart::readingAxisTitle() const
{
    const classic::ReadingInfo& info = classic::kReadingInfo[static_cast<std::size_t>(m_course->moved)];
    return QStringLiteral("%1 [%2]").arg(toQt(info.heading), toQt(info.unit()));
}

CourseChart::Frame CourseChart::frameIn(const QRectF& room) const
{
    const QFontMetricsF metrics(font());
    double numbers = 0;
    for (double value = m_values.low; value <= m_values.high + m_values.step / 2; value += m_values.step)
        numbers = std::max(numbers, metrics.horizontalAdvance(
                                        axisNumber(std::round(value / m_values.step) * m_values.step)));
    const double line = metrics.height();
    const QRectF plot =
        room.adjusted(line + numbers + 2 * kSpace, line / 2 + kSpace,
                      -metrics.horizontalAdvance(QStringLiteral("00")) - kSpace, -2 * line - 2 * kSpace);
    return {plot, m_readings, m_values};
}

/// Points side by side, with half the way to their neighbours.
struct CourseChart::Run {
    double from;
    double to;
};

template <typename Is>
std::vector<CourseChart::Run> CourseChart::runsOf(Is is) const
{
    const std::vector<CoursePoint>& points = m_course->points;
    const auto between = [&points](std::size_t next) {
        return next == 0               ? points.front().reading
               : next == points.size() ? points.back().reading
                                       : (points[next - 1].reading + points[next].reading) / 2;
    };
    std::vector<Run> runs;
    for (std::size_t i = 0; i < points.size();) {
        std::size_t end = i + 1;
        if (is(points[i])) {
            while (end < points.size() && is(points[end]))
                ++end;
            runs.push_back({between(i), between(end)});
        }
        i = end;
    }
    return runs;
}

// Only over readings whose values have a class.
void CourseChart::paintBands(QPainter& painter, const Frame& frame) const
{
    const std::vector<Run> runs = runsOf([](const CoursePoint& point) { return point.meaning.has_value(); });
    for (const catalogue::Category& category : m_course->request.item.scale().categories) {
        const double low = std::max(category.lower, m_values.low);
        const double high = std::min(category.upper, m_values.high);
        if (low >= high)
            continue;
        const std::optional<int> severity = bandSeverity(*m_course, category);
        for (const Run& run : runs) {
            const QRectF band(QPointF(frame.x(run.from), frame.y(high)),
                              QPointF(frame.x(run.to), frame.y(low)));
            if (severity) {
                painter.setOpacity(kBandOpacity);
                painter.fillRect(band, severityField(*severity, palette()));
                painter.setOpacity(1);
            }
            if (low > m_values.low) {
                painter.setPen(QPen(faded(palette().color(QPalette::Text), kChartGapOpacity), 1));
                painter.drawLine(band.bottomLeft(), band.bottomRight());
            }
        }
    }
}

void CourseChart::paintBandLabels(QPainter& painter, const Frame& frame) const
{
    const QFontMetricsF metrics(font());
    const std::vector<Run> runs = runsOf([](const CoursePoint& point) { return point.meaning.has_value(); });
    if (runs.empty())
        return;
    const Run& widest = *std::max_element(
        runs.begin(), runs.end(), [](const Run& a, const Run& b) { return a.to - a.from < b.to - b.from; });
    painter.setPen(palette().color(QPalette::Text));
    for (const catalogue::Category& category : m_course->request.item.scale().categories) {
        const double low = std::max(category.lower, m_values.low);
        const double high = std::min(category.upper, m_values.high);
        if (low >= high)
            continue;
        const QRectF room =
            QRectF(QPointF(frame.x(widest.from), frame.y(high)), QPointF(frame.x(widest.to), frame.y(low)))
                .adjusted(kSpace, 0, -kSpace, 0);
        if (room.height() < metrics.height())
            continue;
        const std::optional<int> severity = bandSeverity(*m_course, category);
        const QString label = severity ? chipText({&category, *severity}) : toQt(category.label);
        painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                         metrics.elidedText(label, Qt::ElideRight, room.width()));
    }
}

void CourseChart::paintGaps(QPainter& painter, const Frame& frame) const
{
    const QFontMetricsF metrics(font());
    const QColor ink = faded(palette().color(QPalette::Text), kChartGapOpacity);
    for (const Run& run : runsOf([](const CoursePoint& point) { return !has(point); })) {
        const QRectF gap(QPointF(frame.x(run.from), frame.plot.top()),
                         QPointF(frame.x(run.to), frame.plot.bottom()));
        painter.fillRect(gap, QBrush(ink, Qt::BDiagPattern));
        const QString label = QStringLiteral("no value");
        QRectF field = metrics.boundingRect(label).adjusted(-kSpace, -1, kSpace, 1);
        field.moveCenter(gap.center());
        if (field.width() < gap.width()) {
            painter.fillRect(field, palette().color(QPalette::Base));
            painter.setPen(palette().color(QPalette::Text));
            painter.drawText(field, Qt::AlignCenter, label);
        }
    }
}

void CourseChart::paintAxes(QPainter& painter, const Frame& frame) const
{
    const QFontMetricsF metrics(font());
    const QColor ink = palette().color(QPalette::Text);
    const QPen line(faded(ink, kChartGridOpacity), 1);
    for (double value = m_values.low; value <= m_values.high + m_values.step / 2; value += m_values.step) {
        const double even = std::round(value / m_values.step) * m_values.step;
        const double y = frame.y(even);
        painter.setPen(line);
        painter.drawLine(QPointF(frame.plot.left(), y), QPointF(frame.plot.right(), y));
        painter.setPen(ink);
        painter.drawText(QRectF(frame.plot.left() - kSpace - frame.plot.left(), y - metrics.height() / 2,
                                frame.plot.left(), metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, axisNumber(even));
    }
    for (double reading = std::ceil(m_readings.low / m_readings.step) * m_readings.step;
         reading <= m_readings.high; reading += m_readings.step) {
        const double even = std::round(reading / m_readings.step) * m_readings.step;
        const double x = frame.x(even);
        painter.setPen(line);
        painter.drawLine(QPointF(x, frame.plot.top()), QPointF(x, frame.plot.bottom()));
        painter.setPen(ink);
        const double width = frame.plot.width() / 3;
        painter.drawText(QRectF(x - width / 2, frame.plot.bottom() + kSpace / 2, width, metrics.height()),
                         Qt::AlignHCenter | Qt::AlignTop, axisNumber(even));
    }
    painter.setPen(ink);
    painter.drawRect(frame.plot);
    painter.drawText(QRectF(frame.plot.left(), frame.plot.bottom() + metrics.height() + kSpace / 2,
                            frame.plot.width(), metrics.height() + kSpace),
                     Qt::AlignHCenter | Qt::AlignVCenter,
                     metrics.elidedText(readingAxisTitle(), Qt::ElideRight, frame.plot.width()));
    painter.save();
    painter.translate(metrics.height() / 2 + kSpace / 2, frame.plot.center().y());
    painter.rotate(-90);
    painter.drawText(
        QRectF(-frame.plot.height() / 2, -metrics.height() / 2, frame.plot.height(), metrics.height()),
        Qt::AlignCenter, valueAxisTitle(frame.plot.height()));
    painter.restore();
}

void CourseChart::paintCurve(QPainter& painter, const Frame& frame) const
{
    const std::vector<CoursePoint>& points = m_course->points;
    const QColor ink = palette().color(QPalette::Text);
    QPainterPath inside;
    QPainterPath outside; // of limits that are ignored
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (!has(points[i]))
            continue;
        const auto goesOn = [&points](std::size_t from) { // no curve leads over a pole
            return has(points[from]) && has(points[from + 1]) &&
                   points[from].beyondPole == points[from + 1].beyondPole;
        };
        const bool next = i + 1 < points.size() && goesOn(i);
        const bool before = i > 0 && goesOn(i - 1);
        if (next) {
            QPainterPath& path = points[i].inside && points[i + 1].inside ? inside : outside;
            path.moveTo(frame.at(points[i]));
            path.lineTo(frame.at(points[i + 1]));
        } else if (!before) { // alone
            inside.addEllipse(frame.at(points[i]), 1, 1);
        }
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(inside);
    painter.setPen(QPen(ink, 1.5, Qt::DotLine, Qt::FlatCap));
    painter.drawPath(outside);
}

void CourseChart::paintPresent(QPainter& painter, const Frame& frame) const
{
    const auto line = [&](double x, Qt::PenStyle style) {
        painter.setPen(QPen(palette().color(QPalette::Text), 1, style));
        painter.drawLine(QPointF(x, frame.plot.top()), QPointF(x, frame.plot.bottom()));
    };
    if (m_course->present) {
        const CoursePoint& point = m_course->points[*m_course->present];
        line(frame.x(point.reading), Qt::DashLine);
        if (has(point)) {
            painter.setPen(QPen(palette().color(QPalette::Base), 1.5));
            painter.setBrush(palette().color(QPalette::Text));
            painter.drawEllipse(frame.at(point), kMarker, kMarker);
        }
    }
    if (cursor()) {
        const CoursePoint& point = m_course->points[*cursor()];
        line(frame.x(point.reading), Qt::DotLine);
        if (has(point)) {
            painter.setPen(QPen(palette().color(QPalette::Text), 1.5));
            painter.setBrush(palette().color(QPalette::Base));
            painter.drawEllipse(frame.at(point), kMarker - 1, kMarker - 1);
        }
    }
}

void CourseChart::paintChart(QPainter& painter, const QRectF& room) const
{
    const Frame frame = frameIn(room);
    if (frame.plot.width() <= 0 || frame.plot.height() <= 0)
        return;
    painter.fillRect(frame.plot, palette().color(QPalette::Base));
    painter.save();
    painter.setClipRect(frame.plot);
    paintBands(painter, frame);
    paintGaps(painter, frame);
    painter.restore();
    paintAxes(painter, frame);
    painter.save();
    painter.setClipRect(frame.plot);
    paintBandLabels(painter, frame);
    paintCurve(painter, frame);
    painter.restore();
    paintPresent(painter, frame);
}

QString CourseChart::placeInWords(std::size_t place) const
{
    const CoursePoint& point = m_course->points[place];
    const auto& info = classic::kReadingInfo[static_cast<std::size_t>(m_course->moved)];
    const std::string_view unit = m_course->request.item.unit();
    QString text = QStringLiteral("%1 %2: ").arg(toQt(point.readingText), toQt(info.unit()));
    if (has(point)) {
        text += toQt(point.text);
        if (!unit.empty())
            text += QLatin1Char(' ') + toQt(unit);
        if (point.meaning)
            text += QStringLiteral(", ") + toQt(catalogue::inWords(*point.meaning));
        if (!point.inside)
            text += QStringLiteral(", outside of the limits");
    } else {
        text += QStringLiteral("no value. ") + toQt(point.reason);
    }
    return text;
}

std::size_t CourseChart::placeAt(double x, const QRectF& room) const
{
    const Frame frame = frameIn(room);
    const auto nearer = [&](const CoursePoint& a, const CoursePoint& b) {
        return std::abs(frame.x(a.reading) - x) < std::abs(frame.x(b.reading) - x);
    };
    const auto nearest = std::min_element(m_course->points.begin(), m_course->points.end(), nearer);
    return static_cast<std::size_t>(nearest - m_course->points.begin());
}

std::size_t CourseChart::places() const
{
    return m_course ? m_course->points.size() : 0;
}

std::size_t CourseChart::startPlace() const
{
    return m_course->present.value_or((places() - 1) / 2);
}

QString CourseChart::title() const
{
    return valueAxisTitle(std::numeric_limits<int>::max());
}

} // namespace comfortics::ui
