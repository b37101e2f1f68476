// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/station_charts.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace comfortics::ui {

/// A chart of a table. The mouse and the arrow keys read it; a time series is zoomed by the wheel, by
/// dragging over a part, and by + and −, moved by Shift with the arrows, and shown whole by Home.
class StationChart : public QWidget {
    Q_OBJECT

public:
    explicit StationChart(QWidget* parent = nullptr);

    void show(workbench::Chart chart, std::shared_ptr<const workbench::ChartRows> rows);
    const workbench::Chart& chart() const noexcept { return m_chart; }

    /// Places the cursor, which is told by `placeRead`.
    void read(const std::optional<workbench::ChartPlace>& place);
    /// Of a time series: shows `share` of the window, around the cursor or the middle.
    void zoom(double share);
    void showWhole();
    bool canZoom() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The cursor stands at a place, or nowhere: then the text is empty.
    void placeRead(const QString& text);
    /// Another part of a time series is to be seen.
    void windowWanted(const workbench::Period& window);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const workbench::TimeSeries* series() const;
    void want(double from, double to);
    void zoomAround(double share, double at);
    void step(int along, int up);
    void stepInTime(const workbench::TimeSeries& series, int along);

    workbench::Chart m_chart;
    std::shared_ptr<const workbench::ChartRows> m_rows;
    std::optional<workbench::ChartPlace> m_cursor;
    std::optional<double> m_dragFrom; // [pixel]
    double m_dragTo = 0;
};

} // namespace comfortics::ui
