// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/minutes_chart.h"

#include "ui/colors.h"
#include "ui/text.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace comfortics::ui {

using workspace::MinutesCurve;
using workspace::MinutesMark;
using workspace::MinutesPanel;

namespace {

constexpr double kBodyShare = 0.46; // of the height; the other panels share the rest
constexpr double kSample = 22;      // length of a curve's sample beside its name [pixel]
constexpr double kMarker = 3.5;     // radius of the cursor's points [pixel]

// Curves of a panel are told apart by their strokes, whatever the colours.
QPen strokeOf(std::size_t curve, const QColor& ink)
{
    constexpr std::array kStyles{Qt::SolidLine, Qt::DashLine, Qt::DotLine};
    return {ink, 2, kStyles[curve % kStyles.size()], Qt::FlatCap};
}

// As much of it as there is room for.
QString markInWords(const MinutesMark& mark, const QFontMetricsF& metrics, double room)
{
    const QString minute = QStringLiteral("%1 min: ").arg(mark.minute);
    const QString end = mark.ends ? QStringLiteral(", exposure ends") : QString();
    for (const QString& text : {minute + toQt(mark.what) + end, minute + toQt(mark.limit) + end})
        if (metrics.horizontalAdvance(text) <= room)
            return text;
    return metrics.elidedText(minute + toQt(mark.limit), Qt::ElideRight, room);
}

} // namespace

struct MinutesChart::Frame {
    QRectF plot;
    workspace::Axis minutes;
    workspace::Axis values;

    double x(double minute) const
    {
        return plot.left() + (minute - minutes.low) / minutes.span() * plot.width();
    }
    double y(double value) const
    {
        return plot.bottom() - (value - values.low) / values.span() * plot.height();
    }
};

MinutesChart::MinutesChart(QWidget* parent)
    : ChartView(QStringLiteral("minutes"), QStringLiteral("Course over the minutes"), parent)
{
}

void MinutesChart::show(workspace::MinutesCourse course)
{
    const QString why = toQt(course.problem);
    const QString description = toQt(course.inWords());
    m_course.reset();
    if (course.minutes != 0) {
        m_minutes = workspace::minuteAxis(course.minutes);
        m_course = std::move(course);
    }
    shows(why, description);
}

std::size_t MinutesChart::places() const
{
    return m_course ? m_course->minutes : 0;
}

// At the end of the exposure.
std::size_t MinutesChart::startPlace() const
{
    const MinutesMark* const end = m_course->end();
    return (end != nullptr ? end->minute : m_course->minutes) - 1;
}

std::size_t MinutesChart::placeAt(double x, const QRectF& room) const
{
    const Frame frame = frameIn(room, 0);
    const double minute = m_minutes.low + (x - frame.plot.left()) / frame.plot.width() * m_minutes.span();
    const auto last = static_cast<double>(places());
    return static_cast<std::size_t>(std::clamp(std::round(minute), 1.0, last)) - 1;
}

QString MinutesChart::placeInWords(std::size_t place) const
{
    return toQt(m_course->minuteInWords(place + 1));
}

QString MinutesChart::title() const
{
    return toQt(m_course->request.item.model()->name) + QStringLiteral(", over the minutes");
}

double MinutesChart::numbersWidth() const
{
    const QFontMetricsF metrics(font());
    double width = 0;
    for (const MinutesPanel& panel : m_course->panels)
        for (const double end : {panel.values.low, panel.values.high, panel.values.low + panel.values.step})
            width = std::max(width, metrics.horizontalAdvance(axisNumber(end)));
    return width;
}

// Each panel has its title above it, the last one the minutes below it.
MinutesChart::Frame MinutesChart::frameIn(const QRectF& room, std::size_t panel) const
{
    const QFontMetricsF metrics(font());
    const double line = metrics.height();
    const auto count = static_cast<double>(m_course->panels.size());
    const double titles = count * (line + kChartSpace);
    const double plots = std::max(room.height() - titles - 2 * line - kChartSpace, 0.0);
    double top = room.top();
    double height = 0;
    for (std::size_t i = 0; i <= panel; ++i) {
        top += height + line + kChartSpace;
        height = plots * (i == 0 ? kBodyShare : (1 - kBodyShare) / (count - 1));
    }
    const double left = numbersWidth() + 2 * kChartSpace;
    const double right = metrics.horizontalAdvance(QStringLiteral("00")) + kChartSpace;
    return {QRectF(room.left() + left, top, std::max(room.width() - left - right, 0.0), height), m_minutes,
            m_course->panels[panel].values};
}

void MinutesChart::paintAxes(QPainter& painter, const Frame& frame, std::size_t panel) const
{
    const QFontMetricsF metrics(font());
    const QColor ink = palette().color(QPalette::Text);
    const QPen line(faded(ink, kChartGridOpacity), 1);
    const workspace::Axis& values = frame.values;
    const double least = metrics.height() * 0.9;
    double free = std::numeric_limits<double>::infinity(); // above it no number stands
    for (double value = values.low; value <= values.high + values.step / 2; value += values.step) {
        const double even = std::round(value / values.step) * values.step;
        const double y = frame.y(even);
        painter.setPen(line);
        painter.drawLine(QPointF(frame.plot.left(), y), QPointF(frame.plot.right(), y));
        if (y > free)
            continue;
        free = y - least;
        painter.setPen(ink);
        painter.drawText(QRectF(frame.plot.left() - numbersWidth() - 2 * kChartSpace,
                                y - metrics.height() / 2, numbersWidth() + kChartSpace, metrics.height()),
                         Qt::AlignRight | Qt::AlignVCenter, axisNumber(even));
    }
    const bool last = panel + 1 == m_course->panels.size();
    const double half = metrics.horizontalAdvance(QStringLiteral("0000"));
    for (double minute = 0; minute <= m_minutes.high; minute += m_minutes.step) {
        const double x = frame.x(minute);
        painter.setPen(line);
        painter.drawLine(QPointF(x, frame.plot.top()), QPointF(x, frame.plot.bottom()));
        if (!last)
            continue;
        painter.setPen(ink);
        painter.drawText(QRectF(x - half, frame.plot.bottom() + kChartSpace / 2, 2 * half, metrics.height()),
                         Qt::AlignHCenter | Qt::AlignTop, axisNumber(minute));
    }
    painter.setPen(ink);
    painter.drawRect(frame.plot);
    if (last)
        painter.drawText(QRectF(frame.plot.left(), frame.plot.bottom() + metrics.height() + kChartSpace / 2,
                                frame.plot.width(), metrics.height()),
                         Qt::AlignCenter, QStringLiteral("Minutes"));
}

// What it shows in which unit, and which curve is which.
void MinutesChart::paintTitle(QPainter& painter, const Frame& frame, const MinutesPanel& panel) const
{
    const QFontMetricsF metrics(font());
    const QColor ink = palette().color(QPalette::Text);
    const double middle = frame.plot.top() - metrics.height() / 2 - kChartSpace / 2;
    double left = frame.plot.left();
    const auto write = [&](const QString& text) {
        const QString shown = metrics.elidedText(text, Qt::ElideRight, frame.plot.right() - left);
        painter.setPen(ink);
        painter.drawText(
            QRectF(left, middle - metrics.height() / 2, frame.plot.right() - left, metrics.height()),
            Qt::AlignLeft | Qt::AlignVCenter, shown);
        left += metrics.horizontalAdvance(shown) + 2 * kChartSpace;
    };
    const QString unit = panel.unit.empty() ? QString() : QStringLiteral(" [%1]").arg(toQt(panel.unit));
    if (panel.curves.size() == 1) {
        write(toQt(panel.title) + unit);
        return;
    }
    write(unit.trimmed());
    for (std::size_t i = 0; i < panel.curves.size(); ++i) {
        painter.setPen(strokeOf(i, ink));
        painter.drawLine(QPointF(left, middle), QPointF(left + kSample, middle));
        left += kSample + kChartSpace;
        write(toQt(workspace::curveName(panel, panel.curves[i])));
    }
}

void MinutesChart::paintCurves(QPainter& painter, const Frame& frame, const MinutesPanel& panel) const
{
    const QColor ink = palette().color(QPalette::Text);
    if (panel.limit) {
        painter.setPen(QPen(faded(ink, 0.6F), 1));
        painter.drawLine(QPointF(frame.plot.left(), frame.y(*panel.limit)),
                         QPointF(frame.plot.right(), frame.y(*panel.limit)));
    }
    painter.setBrush(Qt::NoBrush);
    for (std::size_t i = 0; i < panel.curves.size(); ++i) {
        const std::vector<double>& values = panel.curves[i].values;
        QPainterPath path;
        for (std::size_t minute = 1; minute <= values.size(); ++minute) {
            if (std::isnan(values[minute - 1]))
                continue;
            const QPointF at(frame.x(static_cast<double>(minute)), frame.y(values[minute - 1]));
            if (minute > 1 && !std::isnan(values[minute - 2]))
                path.lineTo(at);
            else
                path.moveTo(at);
        }
        painter.setPen(strokeOf(i, ink));
        painter.drawPath(path);
    }
}

void MinutesChart::paintMarks(QPainter& painter, const Frame& frame, std::size_t panel) const
{
    const QColor ink = palette().color(QPalette::Text);
    for (const MinutesMark& mark : m_course->marks) {
        if (!mark.ends && mark.panel != panel)
            continue;
        const double x = frame.x(static_cast<double>(mark.minute));
        if (mark.ends)
            painter.fillRect(QRectF(QPointF(x, frame.plot.top()), frame.plot.bottomRight()),
                             QBrush(faded(ink, kChartGridOpacity), Qt::BDiagPattern));
        painter.setPen(QPen(ink, mark.ends ? 2 : 1, mark.ends ? Qt::SolidLine : Qt::DashLine));
        painter.drawLine(QPointF(x, frame.plot.top()), QPointF(x, frame.plot.bottom()));
    }
    if (!cursor())
        return;
    const double x = frame.x(static_cast<double>(*cursor() + 1));
    painter.setPen(QPen(ink, 1, Qt::DotLine));
    painter.drawLine(QPointF(x, frame.plot.top()), QPointF(x, frame.plot.bottom()));
    painter.setPen(QPen(ink, 1.5));
    painter.setBrush(palette().color(QPalette::Base));
    for (const MinutesCurve& curve : m_course->panels[panel].curves)
        if (const double value = curve.values[*cursor()]; !std::isnan(value))
            painter.drawEllipse(QPointF(x, frame.y(value)), kMarker, kMarker);
}

// Words of the limits beside their lines, one below the other, where there is more room.
void MinutesChart::paintLabels(QPainter& painter, const Frame& frame, std::size_t panel) const
{
    const QFontMetricsF metrics(font());
    double bottom = frame.plot.bottom() - kChartSpace / 2;
    for (const MinutesMark& mark : m_course->marks) {
        if (mark.panel != panel || bottom - metrics.height() < frame.plot.top())
            continue;
        const double x = frame.x(static_cast<double>(mark.minute));
        const bool behind = frame.plot.right() - x > x - frame.plot.left();
        const double room = (behind ? frame.plot.right() - x : x - frame.plot.left()) - 3 * kChartSpace;
        const QString text = markInWords(mark, metrics, room);
        QRectF field = metrics.boundingRect(text).adjusted(-kChartSpace / 2, -1, kChartSpace / 2, 1);
        field.moveBottom(bottom);
        if (behind)
            field.moveLeft(x + kChartSpace);
        else
            field.moveRight(x - kChartSpace);
        painter.fillRect(field, palette().color(QPalette::Base));
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(field, Qt::AlignCenter, text);
        bottom = field.top() - 1;
    }
}

void MinutesChart::paintChart(QPainter& painter, const QRectF& room) const
{
    for (std::size_t i = 0; i < m_course->panels.size(); ++i) {
        const Frame frame = frameIn(room, i);
        if (frame.plot.width() <= 0 || frame.plot.height() <= 0)
            return;
        const MinutesPanel& panel = m_course->panels[i];
        painter.fillRect(frame.plot, palette().color(QPalette::Base));
        paintAxes(painter, frame, i);
        paintTitle(painter, frame, panel);
        painter.save();
        painter.setClipRect(frame.plot);
        paintMarks(painter, frame, i);
        paintCurves(painter, frame, panel);
        paintLabels(painter, frame, i);
        painter.restore();
    }
}

} // namespace comfortics::ui
