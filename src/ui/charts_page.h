// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workbench/station_charts.h"
#include "workbench/store_rows.h"
#include "workspace/latest_runner.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QToolButton;

namespace comfortics::ui {

class CutLabel;
class StationChart;

/// The charts of a run over a table: which one, of which columns, station and period. They are made on a
/// thread of their own.
class ChartsPage : public QWidget {
    Q_OBJECT

public:
    /// Dialogs and messages must outlive the page.
    ChartsPage(controls::FileDialogs& files, controls::Messages& messages, QWidget* parent = nullptr);
    ~ChartsPage() override;

    /// Shows charts of these rows. What was chosen stays where the rows have it, too; the part of the time
    /// that is seen where they are the `same` ones, of which something else is to be told.
    void show(std::shared_ptr<const workbench::StoreRows> rows, bool same = false);
    /// Draws this index or figure, where the rows have it.
    void choose(const workspace::Item& item);
    /// Shows none, and says why in a sentence.
    void showNone(const QString& why);
    /// Gives the rows back, until there are others to show.
    void forget();

    /// Asks for a name and saves the chart as it is seen: PNG, SVG or PDF by its ending.
    void save();
    /// Opens the report of the station and period.
    void report();

    std::vector<QWidget*> tabOrder() const;
    const StationChart& chart() const noexcept { return *m_chart; }
    /// No chart is being made.
    bool settled() const noexcept { return m_settled; }

private:
    struct Ask {
        std::shared_ptr<const workbench::StoreRows> rows;
        workbench::ChartRequest request;
    };
    struct Made {
        Ask asked;
        workbench::Chart chart;
        std::vector<workbench::NamedPeriod> periods;
    };
    using Runner = workspace::LatestRunner<Ask, std::shared_ptr<Made>>;

    QWidget* buildChoices();
    QWidget* buildButtons();
    void fillColumns();
    void fillStations();
    void fillPeriods(const std::vector<workbench::NamedPeriod>& periods);
    void fillAlso();
    void followKind();
    void ask();
    void hand();
    void showChart(workbench::Chart chart);
    workbench::ChartKind kind() const;
    workbench::ChartRequest request() const;
    std::optional<std::size_t> station() const;

    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    std::shared_ptr<const workbench::StoreRows> m_rows;
    std::vector<workbench::NamedPeriod> m_periods;
    std::vector<std::size_t> m_also; // columns of a time series beside the first
    std::optional<workbench::Period> m_window;
    bool m_settled = true;

    QComboBox* m_kind = nullptr;
    QComboBox* m_column = nullptr;
    QToolButton* m_more = nullptr; // of a time series
    QMenu* m_alsoMenu = nullptr;
    QLabel* m_overLabel = nullptr;
    QComboBox* m_over = nullptr; // of a scatter
    QLabel* m_stationLabel = nullptr;
    QComboBox* m_station = nullptr;
    QComboBox* m_period = nullptr;
    std::vector<QPushButton*> m_zooms;
    QPushButton* m_save = nullptr;
    QPushButton* m_report = nullptr;
    StationChart* m_chart = nullptr;
    CutLabel* m_reading = nullptr;
    QLabel* m_footer = nullptr;
    std::unique_ptr<Runner> m_runner; // ends before what it hands to
};

} // namespace comfortics::ui
