// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"
#include "controls/dialogs.h"
#include "controls/grid.h"
#include "radiation/chart_data.h"

#include <QWidget>

#include <array>
#include <vector>

class QCategoryAxis;
class QChart;
class QChartView;
class QGraphicsLineItem;
class QLabel;
class QLineSeries;
class QPainter;
class QValueAxis;

namespace comfortics::ui {

/// The four curves of the radiation table over the clock time. It shows the table's figures and
/// nothing else; the cursor reads them under the mouse.
class ChartPanel : public QWidget {
    Q_OBJECT

public:
    /// `heading` says what the table was calculated for; saved pictures have it.
    ChartPanel(const controls::Grid& table, const controls::Label& heading, controls::FileDialogs& files,
               controls::Messages& messages, QWidget* parent = nullptr);

    /// Reads the table anew.
    void refresh();
    /// Writes the chart as SVG where the name ends in .svg, else as PNG. Tells a failure.
    bool saveAs(const QString& path);
    /// Asks for a name and saves. A name without the ending of a picture gets .png.
    void save();
    /// What the cursor reads at a minute of the clock.
    void moveCursor(double minute);

    const std::vector<radiation::ChartPoint>& points() const noexcept { return m_points; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void buildChart();
    void wearPalette();
    void hideCursor();
    QByteArray picture(bool asSvg);
    int paintTexts(QPainter* painter, int width) const;

    const controls::Grid& m_table;
    const controls::Label& m_heading;
    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    std::vector<radiation::ChartPoint> m_points;
    std::array<QLineSeries*, radiation::kFigureCount> m_curves{};
    QChart* m_chart = nullptr;
    QChartView* m_view = nullptr;
    QCategoryAxis* m_time = nullptr;
    QValueAxis* m_radiation = nullptr;
    QGraphicsLineItem* m_cursor = nullptr;
    QLabel* m_note = nullptr; // of what leaves the chart
    QLabel* m_reading = nullptr;
};

} // namespace comfortics::ui
