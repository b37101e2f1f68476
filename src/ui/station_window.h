// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "controls/form.h"
#include "ui/form_window.h"
#include "workbench/import_desk.h"
#include "workbench/run_desk.h"
#include "workbench/view.h"
#include "workspace/latest_runner.h"
#include "workspace/workspace.h"

#include <QTimer>

#include <memory>
#include <optional>

class QLabel;
class QProgressBar;
class QPushButton;
class QTabWidget;

namespace comfortics::ui {

class ChartsPage;
class CutLabel;
class MappingPage;
class ResultsPage;

/// Where the preferences keep the files that were opened last.
inline constexpr const char* kRecentStations = "station/recent";

class StationForm final : public controls::Form {
public:
    StationForm() : Form("Station File") {}
};

/// Opens a table of any kind, calculates its rows, and shows what they come to.
class StationWindow : public FormWindow {
    Q_OBJECT

public:
    struct Surroundings {
        workspace::Workspace& workspace;
        controls::FileDialogs& files;
        controls::Messages& messages;
        controls::Clipboard& clipboard;
    };

    /// All must outlive the window.
    StationWindow(StationForm& form, const Surroundings& surroundings);
    ~StationWindow() override;

    /// Asks for a file.
    void open();
    void openFile(const std::string& path);
    void openClipboard();
    /// Runs the open table.
    void calculate();
    void stop();

    /// Mapping, Results and Charts.
    QTabWidget& pages() const { return *m_pages; }
    ResultsPage& results() const { return *m_results; }
    ChartsPage& charts() const { return *m_charts; }
    MappingPage& mappingPage() const { return *m_mapping; }
    const workbench::ImportDesk& importDesk() const { return m_import; }
    const Surroundings& surroundings() const { return m_surroundings; }
    /// Why the results are those of an earlier run, in a sentence; empty where they are not.
    QString earlier() const;
    bool busy() const { return m_looking || m_runs.running(); }

signals:
    /// Other rows are in sight, or they have become those of an earlier run.
    void resultsChanged();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    using Looker = workspace::LatestRunner<workbench::LookRequest, workbench::Look>;

    QWidget* buildTop();
    QWidget* buildBottom();
    void look(const workbench::LookRequest& request);
    void takeLook();
    void takeRun();
    void chooseIndices();
    void calculateAgain();
    void begin();
    void showState();
    void showProgress();
    void showCharts();
    tables::RunOptions options() const;
    std::string friction() const;

    StationForm& m_form;
    Surroundings m_surroundings;
    workbench::ImportDesk m_import;
    std::optional<classic::Selection> m_selection; // of this window's own; else that of the main one
    std::vector<catalogue::Figure> m_figures;      // of models
    workbench::TableSource m_ranSource;
    bool m_looking = false;
    QTabWidget* m_pages;
    MappingPage* m_mapping;
    ResultsPage* m_results;
    ChartsPage* m_charts;
    // Rows and their view that belong together, and what of them the charts show: those are made when they
    // are looked at.
    std::shared_ptr<const workbench::TableStore> m_seen;
    std::shared_ptr<const workbench::View> m_seenView;
    std::shared_ptr<const workbench::View> m_chartedView;
    QString m_chartedEarlier;
    std::optional<workspace::Item> m_chartedItem; // that the charts took from the results
    QPushButton* m_open = nullptr;
    QPushButton* m_paste = nullptr;
    CutLabel* m_name = nullptr;
    QLabel* m_rules = nullptr;
    QPushButton* m_indices = nullptr;
    QProgressBar* m_bar = nullptr;
    QLabel* m_left = nullptr;
    QPushButton* m_stop = nullptr;
    QPushButton* m_calculate = nullptr;
    CutLabel* m_message;
    QTimer m_ticks;
    // Last: they end before what they tell goes.
    workbench::RunDesk m_runs;
    Looker m_looker;
};

} // namespace comfortics::ui
