// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/message_gate.h"
#include "batch/row_runner.h"
#include "batch/sheet_rows.h"
#include "classic/frm_main.h"
#include "controls/controls.h"
#include "controls/dialogs.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/grid_cells.h"
#include "output/frm_comfortics.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace comfortics::batch {

/// The batch sheet: rows of readings on one grid, the selected indices of every row on another.
///
/// A run has the outcome of writing row after row into the main window's boxes and pressing its
/// `cmd_Calculate`, to the last character, but the rows are calculated on all cores by calculations
/// of their own. The last row is left in the main window. A row that fails is blank and the run
/// goes on.
class Frm_Raw_Data : public controls::Form {
public:
    struct Desktop {
        MessageGate& messages; ///< the one that the main window's messages go through
        controls::Clipboard& clipboard;
        controls::FileDialogs& files;
    };

    /// Main window, limits and desktop must outlive the form. `threads` 0: all cores.
    Frm_Raw_Data(classic::Frm_Main& main, const classic::Limits& limits, const Desktop& desktop,
                 unsigned threads = 0);

    controls::Frame Fra_Data;
    controls::Grid Flex_Data{2, classic::kReadingCount};
    controls::Label lbl_information;
    controls::Button cmd_Calculate{"Calculate"};
    controls::Button cmd_Open{"Open..."};
    controls::Button cmd_Stop{"Stop"};
    controls::Frame Fra_Progress;
    controls::Label lbl_progress; ///< the bar; its length is `progressShare`
    controls::Label lbl_progress_value{"0%"};
    controls::Label lbl_progress_rows; ///< "r out of last"

    controls::Frame Fra_Results; ///< lies over the data; being visible marks the result view
    controls::Grid Flex_Results{2, 1};
    controls::Button cmd_Back{"Back"};
    controls::Label lbl_outcome; ///< how many rows of the last run ended how
    /// By which rules the figures were calculated, and what has changed since that they depend on.
    controls::Label lbl_terms;
    /// How far the run under way is, or what became of the last one; unlike the progress, which stays at
    /// its end in later runs over the same rows.
    controls::Label lbl_status;

    controls::MenuEntry Menu_copy{"Menu"}; ///< the popup menu that holds the three below
    controls::MenuEntry Menu_copy_copy{"Copy All"};
    controls::MenuEntry Menu_Copy_Selection{"Copy Selection"};
    controls::MenuEntry Menu_Export{"Export (*.csv)"};
    /// Asks the view to open `Menu_copy` under the mouse.
    controls::Event popUpMenu_copy;

    /// What opens the sheet: writes the headers, rebuilds the results table from the store, heads
    /// a column for each index selected now, and shows the form. A later change of the selection
    /// changes no header.
    void open(output::Frm_Comfortics& table);

    /// Fills the sheet from a CSV or TSV file, whose columns are found by name where it has a
    /// header row. A file that cannot be read is told in one sentence and changes nothing.
    void openFile(const std::string& path);

    /// Lets the interface process what is pending. A run calls it before each row, but no more often
    /// than `every`; the progress is updated as often. Without it a run is not interrupted.
    void keepAlive(std::function<void()> processEvents,
                   std::chrono::milliseconds every = std::chrono::milliseconds(0));

    bool running() const noexcept { return m_running; }
    /// The share of rows that are done, as the bar shows it: 0 to 1. Views of `lbl_progress` follow
    /// its `appearance`.
    double progressShare() const noexcept { return m_progressShare; }
    /// What became of a row of `Flex_Data` in the last run, on the same row of `Flex_Results`.
    RowState rowState(std::size_t row) const;

    /// Sizes both grids [twips]; the columns of the data share the width.
    void resizeGrids(int width, int height);
    /// The wheel over the point x, y [twips, as the grids' left and top]: scrolls the grid of the
    /// visible frame if it lies under it.
    void MouseWheel(int modifierKeys, int rotation, int x, int y);

    /// The figures were calculated with other options than those that stand now in the main window.
    bool resultsAreEarlier() const;
    /// Looks again at the options of the main window.
    void tellTerms();

    /// Ends a run that is under way, and gives back the memory of the rows.
    void Form_Unload();

private:
    // Rows from `first` on were calculated with these terms.
    struct Stretch {
        std::size_t first = 1;
        Terms terms;
    };

    void Form_Load();
    void takeRows(std::size_t count);
    void Flex_Data_KeyDown(controls::KeyPress press);
    void cmd_Calculate_Click();
    void cmd_Open_Click();
    void Menu_copy_copy_Click();
    void Menu_Copy_Selection_Click();
    void Menu_Export_Click();

    std::size_t lastRow() const { return Flex_Data.rows() - Flex_Data.fixedRows(); }
    BoxTexts cells(std::size_t row) const;
    Terms terms() const;
    bool interrupted() const { return m_stop || m_restart || m_unloaded; }

    void run();
    std::size_t calculateRows(std::size_t last);
    void letEventsPass();
    void keepRow(std::size_t row, const SheetRow& result);
    void showMessages(const SheetRow& result);
    void updateProgress(std::size_t row, std::size_t last);
    void leaveInMainWindow(std::size_t row);
    void calculateInMainWindow(std::size_t row);
    void showOutcome(std::size_t done, std::size_t last);
    void freeRows();

    std::vector<std::string> calculatedHeaders() const;
    bool headersAreOther() const;
    BoxTexts asked(std::size_t row) const;
    const Stretch& stretch(std::size_t row) const;
    RowRunner& explainer(std::size_t row) const;
    std::string whyNoFigures(std::size_t row) const;
    std::string resultNote(std::size_t row, std::size_t col) const;
    std::string dataNote(std::size_t row) const;

    classic::Frm_Main& m_main;
    const classic::Limits& m_limits;
    Desktop m_desktop;
    unsigned m_threads;
    std::function<void()> m_processEvents;
    std::chrono::milliseconds m_every{0};
    std::chrono::steady_clock::time_point m_lastEvents;

    bool m_running = false;
    bool m_stop = false;           // the run under way is to end
    bool m_restart = false;        // the run under way is to start over
    bool m_unloaded = false;       // the form goes
    bool m_userHadTheWord = false; // settings may have changed
    bool m_messagesHidden = false; // for the rest of a run, as the user wished
    double m_progressShare = 0;

    std::vector<int> m_headed;             // the indices that the columns are headed with
    std::vector<std::string> m_oldHeaders; // of what the runs before the last have left in the columns

    // The last run: what became of the rows, and what each was calculated from, so that the reason
    // of a blank can be found when somebody asks for it.
    std::vector<RowState> m_states; // element 0 unused
    controls::GridCells m_asked{1, classic::kReadingCount};
    std::vector<Stretch> m_stretches;
    RowCounts m_counts;
    bool m_stopped = false;
    mutable std::unique_ptr<RowRunner> m_explainer; // holds the calculation of row m_explained
    mutable std::size_t m_explained = 0;
};

} // namespace comfortics::batch
