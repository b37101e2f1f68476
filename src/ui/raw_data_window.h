// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/frm_raw_data.h"
#include "ui/form_window.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

class QMenu;
class QPushButton;

namespace comfortics::ui {

class CutLabel;
class GridView;

/// The view of the batch sheet: the data, or the results in their place. While a run is under way the
/// results appear below the data, row by row.
class RawDataWindow : public FormWindow {
    Q_OBJECT

public:
    /// `closed` unloads the form. A window that is closed during a run stops it and closes after it.
    RawDataWindow(batch::Frm_Raw_Data& form, const QWidget& main, std::function<void()> closed);

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QWidget* buildData();
    QWidget* buildProgress();
    QWidget* buildResults();
    void buildMenu();
    void orderTabs();
    void arrange();
    void followRows();
    void fitHeaders();
    void showReason();
    void goBackOrStop();
    const std::vector<std::optional<catalogue::Meaning>>* meanings(std::size_t row);
    void askNextMeanings();

    batch::Frm_Raw_Data& m_form;
    std::function<void()> m_closed;
    QMenu* m_menu = nullptr;
    QWidget* m_dataPage = nullptr;
    QWidget* m_resultsPage = nullptr;
    GridView* m_data = nullptr;
    GridView* m_results = nullptr;
    QPushButton* m_open = nullptr;
    QPushButton* m_calculate = nullptr;
    QPushButton* m_stop = nullptr;
    QPushButton* m_back = nullptr;
    QPushButton* m_menuButton = nullptr;
    CutLabel* m_reason = nullptr;
    std::string m_headers;            // those that the columns' widths were measured for
    std::size_t m_nextRow = 1;        // of the run, the first that is not known to be done
    std::size_t m_followedTopRow = 1; // where the results were last scrolled to as they came
    // What the figures of rows mean that were in sight, and the rows that wait to be asked.
    std::unordered_map<std::size_t, std::vector<std::optional<catalogue::Meaning>>> m_meanings;
    std::set<std::size_t> m_wanted;
    bool m_asking = false;
    bool m_showsResults = false;
    bool m_closing = false; // when the run has ended
};

} // namespace comfortics::ui
