// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/station_chart.h"

#include "ui/chart_painter.h"
#include "ui/colors.h"
#include "ui/text.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace comfortics::ui {

using workbench::ChartPlace;
using workbench::Period;
using workbench::TimeSeries;

namespace {

constexpr double kIn = 0.5; // of the window that is left
constexpr double kOut = 2;
constexpr double kMoved = 0.25;    // of the window
constexpr double kLeastSpan = 120; // of a window [s]
constexpr double kDragged = 6;     // that is no click [pixel]

} // namespace

StationChart::StationChart(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setObjectName(QStringLiteral("stationChart"));
    setAccessibleName(QStringLiteral("Chart of the results"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize StationChart::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 26};
}

QSize StationChart::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 14};
}

void StationChart::show(workbench::Chart chart, std::shared_ptr<const workbench::ChartRows> rows)
{
    // The cursor of a time series stays at its row while the window moves.
    const bool same = !chart.empty() && series() != nullptr &&
                      std::holds_alternative<TimeSeries>(chart.body) &&
                      std::get<TimeSeries>(chart.body).timeline == series()->timeline;
    m_chart = std::move(chart);
    m_rows = std::move(rows);
    if (!same)
        read(std::nullopt);
    setAccessibleDescription(toQt(m_chart.inWords()));
    update();
}

const TimeSeries* StationChart::series() const
{
    return std::get_if<TimeSeries>(&m_chart.body);
}

bool StationChart::canZoom() const
{
    return series() != nullptr;
}

void StationChart::read(const std::optional<ChartPlace>& place)
{
    if (place == m_cursor)
        return;
    m_cursor = place;
    update();
    const QString text = place && m_rows ? toQt(workbench::wordsAt(m_chart, *place, *m_rows)) : QString();
    if (place) {
        setAccessibleDescription(text);
        QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&changed);
    }
    emit placeRead(text);
}

void StationChart::want(double from, double to)
{
    const Period& whole = series()->whole;
    const auto first = static_cast<double>(whole.from);
    const auto last = static_cast<double>(whole.to);
    const double span = std::clamp(to - from, std::min(kLeastSpan, last - first), last - first);
    const double begin = std::clamp(from, first, last - span);
    const Period window{static_cast<std::int64_t>(std::floor(begin)),
                        static_cast<std::int64_t>(std::ceil(begin + span))};
    if (window != series()->window)
        emit windowWanted(window);
}

void StationChart::zoomAround(double share, double at)
{
    if (!canZoom())
        return;
    const auto from = static_cast<double>(series()->window.from);
    const auto to = static_cast<double>(series()->window.to);
    const double span = std::max((to - from) * share, kLeastSpan);
    const double left = (at - from) / (to - from); // the time stays where it is
    want(at - left * span, at + (1 - left) * span);
}

void StationChart::zoom(double share)
{
    if (!canZoom())
        return;
    const Period& window = series()->window;
    double at = static_cast<double>(window.from + window.to) / 2;
    if (m_cursor) {
        const std::int64_t seconds = series()->timeline->seconds.at(m_cursor->along);
        if (seconds >= window.from && seconds < window.to)
            at = static_cast<double>(seconds);
    }
    zoomAround(share, at);
}

void StationChart::showWhole()
{
    if (canZoom() && series()->window != series()->whole)
        emit windowWanted(series()->whole);
}

// As far as a pixel, or to the next row where that is farther.
void StationChart::stepInTime(const TimeSeries& series, int along)
{
    const workbench::Timeline& timeline = *series.timeline;
    const auto last = static_cast<std::ptrdiff_t>(timeline.seconds.size()) - 1;
    std::ptrdiff_t place = 0;
    if (!m_cursor || timeline.seconds[m_cursor->along] < series.window.from ||
        timeline.seconds[m_cursor->along] >= series.window.to)
        place = static_cast<std::ptrdiff_t>(
            workbench::nearestRow(timeline, static_cast<double>(series.window.from + series.window.to) / 2));
    else {
        const auto now = static_cast<std::ptrdiff_t>(m_cursor->along);
        const double pixel =
            static_cast<double>(series.window.to - series.window.from) / std::max(1, width());
        const auto wanted = static_cast<std::ptrdiff_t>(workbench::nearestRow(
            timeline, static_cast<double>(timeline.seconds[m_cursor->along]) + along * pixel));
        place = std::clamp<std::ptrdiff_t>(along > 0 ? std::max(wanted, now + 1) : std::min(wanted, now - 1),
                                           0, last);
    }
    read(ChartPlace{static_cast<std::size_t>(place), 0});
    const std::int64_t seconds = timeline.seconds[static_cast<std::size_t>(place)];
    const auto span = static_cast<double>(series.window.to - series.window.from);
    if (seconds < series.window.from || seconds >= series.window.to)
        want(static_cast<double>(seconds) - span / 2, static_cast<double>(seconds) + span / 2);
}

void StationChart::step(int along, int up)
{
    const ChartPlace places = workbench::placesOf(m_chart);
    if (places.along == 0)
        return;
    if (const TimeSeries* const shown = series())
        return along == 0 ? void() : stepInTime(*shown, along);
    if (!m_cursor)
        return read(ChartPlace{places.along / 2, places.up / 2});
    const auto moved = [](std::size_t place, int by, std::size_t count) {
        return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(place) + by, 0,
                                                                   static_cast<std::ptrdiff_t>(count) - 1));
    };
    read(ChartPlace{moved(m_cursor->along, along, places.along), moved(m_cursor->up, up, places.up)});
}

void StationChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    ChartPainter(m_chart, inPixels(font()), palette()).paint(painter, rect(), m_cursor);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (m_dragFrom) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(faded(palette().color(QPalette::Highlight), 0.2F));
        painter.drawRect(QRectF(QPointF(*m_dragFrom, 2), QPointF(m_dragTo, height() - 3)).normalized());
    }
    if (hasFocus()) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void StationChart::mouseMoveEvent(QMouseEvent* event)
{
    if (m_dragFrom) {
        m_dragTo = event->position().x();
        update();
    }
    read(ChartPainter(m_chart, inPixels(font()), palette()).placeAt(rect(), event->position()));
}

void StationChart::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && canZoom())
        m_dragFrom = m_dragTo = event->position().x();
}

void StationChart::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_dragFrom)
        return;
    const double from = std::min(*m_dragFrom, event->position().x());
    const double to = std::max(*m_dragFrom, event->position().x());
    m_dragFrom.reset();
    update();
    if (to - from < kDragged || !canZoom())
        return;
    const ChartPainter painter(m_chart, inPixels(font()), palette());
    want(painter.timeAt(rect(), from), painter.timeAt(rect(), to));
}

void StationChart::mouseDoubleClickEvent(QMouseEvent*)
{
    m_dragFrom.reset();
    showWhole();
}

void StationChart::wheelEvent(QWheelEvent* event)
{
    if (!canZoom() || event->angleDelta().y() == 0 || event->modifiers().testFlag(Qt::ControlModifier)) {
        QWidget::wheelEvent(event); // with Ctrl the letters grow
        return;
    }
    const double at =
        ChartPainter(m_chart, inPixels(font()), palette()).timeAt(rect(), event->position().x());
    zoomAround(event->angleDelta().y() > 0 ? kIn : kOut, at);
    event->accept();
}

void StationChart::leaveEvent(QEvent*)
{
    if (!hasFocus())
        read(std::nullopt);
}

void StationChart::focusOutEvent(QFocusEvent* event)
{
    read(std::nullopt);
    QWidget::focusOutEvent(event);
}

void StationChart::keyPressEvent(QKeyEvent* event)
{
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    const auto move = [this](double share) {
        const auto by = share * static_cast<double>(series()->window.to - series()->window.from);
        want(static_cast<double>(series()->window.from) + by, static_cast<double>(series()->window.to) + by);
    };
    if (event->modifiers().testFlag(Qt::ControlModifier) || event->modifiers().testFlag(Qt::AltModifier)) {
        QWidget::keyPressEvent(event);
        return;
    }
    const ChartPlace places = workbench::placesOf(m_chart);
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right: {
        const int along = event->key() == Qt::Key_Left ? -1 : 1;
        if (shift && canZoom())
            move(along * kMoved);
        else
            step(along, 0);
        break;
    }
    case Qt::Key_Up:
        step(0, 1);
        break;
    case Qt::Key_Down:
        step(0, -1);
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift
        zoom(kIn);
        break;
    case Qt::Key_Minus:
        zoom(kOut);
        break;
    case Qt::Key_Home:
        if (canZoom())
            showWhole();
        else if (places.along > 0)
            read(ChartPlace{0, m_cursor ? m_cursor->up : 0});
        break;
    case Qt::Key_End:
        if (!canZoom() && places.along > 0)
            read(ChartPlace{places.along - 1, m_cursor ? m_cursor->up : 0});
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace comfortics::ui
