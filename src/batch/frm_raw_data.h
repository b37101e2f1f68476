// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/message_gate.h"
#include "batch/sheet_run.h"
#include "classic/frm_main.h"
#include "controls/controls.h"
#include "controls/dialogs.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "output/frm_comfortics.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::batch {

/// The batch sheet: rows of readings on one grid, the selected indices of every row on another.
///
/// The rows are calculated on all cores by calculations of their own (SheetRun). A row that fails is blank
/// and the run goes on.
class Frm_Raw_Data : public controls::Form, private Sheet {
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

    bool running() const noexcept { return m_run.running(); }
    /// The share of rows that are done, as the bar shows it: 0 to 1. Views of `lbl_progress` follow
    /// its `appearance`.
    double progressShare() const noexcept { return m_progressShare; }
    /// What became of a row of `Flex_Data` in the last run, on the same row of `Flex_Results`.
    RowState rowState(std::size_t row) const { return m_run.rowState(row); }

    /// What the figures of a row of `Flex_Results` mean, by column: their published classes. The row is
    /// calculated once more for it. Empty while a run is under way and for a row without figures.
    std::vector<std::optional<catalogue::Meaning>> meanings(std::size_t row) const;

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
    void Form_Load();
    void takeRows(std::size_t count);
    void Flex_Data_KeyDown(controls::KeyPress press);
    void cmd_Calculate_Click() { m_run.start(); }
    void cmd_Open_Click();
    void Menu_copy_copy_Click();
    void Menu_Copy_Selection_Click();
    void Menu_Export_Click();

    // Sheet
    std::size_t lastRow() const override { return Flex_Data.rows() - Flex_Data.fixedRows(); }
    BoxTexts cells(std::size_t row) const override;
    void hold(bool running) override;
    void runBegins(std::size_t last) override;
    void termsBegin() override { tellTerms(); }
    void take(std::size_t row, const SheetRow& result) override;
    void showTaken() override { m_bulk.reset(); }
    void showProgress(std::size_t row, std::size_t last) override;
    void runEnds(std::size_t done, std::size_t last) override;
    void runsEnded() override;

    void freeRows();

    std::vector<std::string> calculatedHeaders() const;
    bool headersAreOther() const;
    std::string resultNote(std::size_t row, std::size_t col) const;
    std::string dataNote(std::size_t row) const;

    classic::Frm_Main& m_main;
    Desktop m_desktop;
    SheetRun m_run;
    std::optional<controls::Grid::Bulk> m_bulk; // gathers what happens between two looks at the interface
    double m_progressShare = 0;

    std::vector<int> m_headed;             // the indices that the columns are headed with
    std::vector<std::string> m_oldHeaders; // of what the runs before the last have left in the columns
};

} // namespace comfortics::batch
