// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/station_charts.h"

#include <QByteArray>
#include <QFont>
#include <QPalette>
#include <QRectF>

#include <optional>
#include <string>
#include <utility>

class QPainter;

namespace comfortics::ui {

/// Paints a chart of a table, on a screen and on paper alike, and finds what stands where.
class ChartPainter {
public:
    /// The chart must outlive it. The font has a size in pixels.
    ChartPainter(const workbench::Chart& chart, const QFont& font, QPalette palette)
        : m_chart(chart), m_font(font), m_palette(std::move(palette))
    {
    }

    void paint(QPainter& painter, const QRectF& room,
               const std::optional<workbench::ChartPlace>& cursor = {}) const;

    /// The place at a point; none beside the plot, and where nothing stands near.
    std::optional<workbench::ChartPlace> placeAt(const QRectF& room, const QPointF& point) const;
    /// Of a time series: the time at a point [s].
    double timeAt(const QRectF& room, double x) const;

private:
    struct Plot;
    struct Entry;
    struct Frame;
    struct Body;

    Frame frameIn(const QRectF& room) const;
    std::vector<Entry> legend() const;

    const workbench::Chart& m_chart;
    QFont m_font;
    QPalette m_palette;
};

enum class ChartFile { Png, Svg, Pdf };
/// By the ending of its name; PNG where that is none of them.
ChartFile chartFileOf(const std::string& path);

/// The chart with its title, source, rules and notes; empty where there is none.
QByteArray chartPicture(const workbench::Chart& chart, ChartFile kind, const QFont& font,
                        const QPalette& palette, const QSize& size);

/// The chart alone on white paper, as an SVG element within HTML.
std::string paperSvg(const workbench::Chart& chart, const QFont& font, const QSize& size);

/// The font with its size in pixels, so that it is as large on any device.
QFont inPixels(QFont font);

} // namespace comfortics::ui
