// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/message_gate.h"
#include "batch/row_runner.h"
#include "batch/sheet_rows.h"
#include "catalogue/categories.h"
#include "classic/frm_main.h"
#include "controls/grid_cells.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::batch {

/// What a run asks of the sheet that it calculates, and tells it. Rows count from 1.
class Sheet {
public:
    virtual ~Sheet() = default;

    virtual std::size_t lastRow() const = 0;
    virtual BoxTexts cells(std::size_t row) const = 0;

    /// While a run is under way its rows stay as they are.
    virtual void hold(bool running) = 0;
    /// Before the record of the last run goes; also where a run starts over.
    virtual void runBegins(std::size_t last) = 0;
    /// From the next row on other terms hold, the first ones included.
    virtual void termsBegin() = 0;
    virtual void take(std::size_t row, const SheetRow& result) = 0;
    /// What was taken is to be seen now.
    virtual void showTaken() = 0;
    virtual void showProgress(std::size_t row, std::size_t last) = 0;
    /// `done` rows of `last` are done, and left in the main window.
    virtual void runEnds(std::size_t done, std::size_t last) = 0;
    /// No run follows that a restart has asked for; the rows are still held.
    virtual void runsEnded() = 0;

protected:
    Sheet() = default;
    Sheet(const Sheet&) = default;
    Sheet& operator=(const Sheet&) = default;
};

/// Calculates the rows of a sheet, lets the interface live meanwhile, and knows afterwards what became of
/// each row.
///
/// A run has the outcome of writing row after row into the main window's boxes and pressing its
/// `cmd_Calculate`, to the last character; the last row is left there.
class SheetRun {
public:
    /// Rows from `first` on were calculated with these terms.
    struct Stretch {
        std::size_t first = 1;
        Terms terms;
    };

    /// All must outlive the run. `threads` 0: all cores. Messages are those that the main window's go
    /// through.
    SheetRun(Sheet& sheet, classic::Frm_Main& main, const classic::Limits& limits, MessageGate& messages,
             unsigned threads);

    /// Lets the interface process what is pending. A run calls it before each row, but no more often than
    /// `every`; the progress is told as often. Without it a run is not interrupted.
    void keepAlive(std::function<void()> processEvents, std::chrono::milliseconds every);

    /// Calculates all rows; a run under way starts over from row 1 in place of that.
    void start();
    /// Ends a run under way at the next row.
    void stop();
    /// Ends a run under way for good: no message, no restart. The next start takes it back.
    void abandon();
    bool running() const noexcept { return m_running; }
    bool abandoned() const noexcept { return m_abandoned; }

    /// What the main window is set to now.
    Terms terms() const;

    /// Forgets the last run, for other rows.
    void forget();

    // The last run, as far as it is.

    RowState rowState(std::size_t row) const;
    const std::vector<Stretch>& stretches() const noexcept { return m_stretches; }
    /// Of a row that was done.
    const Stretch& stretch(std::size_t row) const;
    const RowCounts& counts() const noexcept { return m_counts; }
    /// Why a row has no figures; empty where it has.
    std::string whyNoFigures(std::size_t row) const;
    /// Why an index is blank on a row that was calculated.
    std::string whyBlank(std::size_t row, int index) const;
    /// What the value of an index means on a row that was calculated: its published class.
    std::optional<catalogue::Meaning> meaning(std::size_t row, int index) const;

private:
    bool interrupted() const { return m_stop || m_restart || m_abandoned; }

    void run();
    std::size_t calculateRows(std::size_t last);
    void letEventsPass();
    void keepRow(std::size_t row, const SheetRow& result);
    void showMessages(const SheetRow& result);
    void leaveInMainWindow(std::size_t row);
    void calculateInMainWindow(std::size_t row);
    BoxTexts asked(std::size_t row) const;
    RowRunner& explainer(std::size_t row) const;

    Sheet& m_sheet;
    classic::Frm_Main& m_main;
    const classic::Limits& m_limits;
    MessageGate& m_messages;
    unsigned m_threads;
    std::function<void()> m_processEvents;
    std::chrono::milliseconds m_every{0};
    std::chrono::steady_clock::time_point m_lastEvents;

    bool m_running = false;
    bool m_stop = false;           // the run under way is to end
    bool m_restart = false;        // the run under way is to start over
    bool m_abandoned = false;      // the sheet goes
    bool m_userHadTheWord = false; // settings may have changed
    bool m_messagesHidden = false; // for the rest of a run, as the user wished

    // What became of the rows, and what each was calculated from, so that the reason of a blank can be
    // found when somebody asks for it.
    std::vector<RowState> m_states; // element 0 unused
    controls::GridCells m_asked{1, classic::kReadingCount};
    std::vector<Stretch> m_stretches;
    RowCounts m_counts;
    bool m_stopped = false;
    mutable std::unique_ptr<RowRunner> m_explainer; // holds the calculation of row m_explained
    mutable std::size_t m_explained = 0;
};

} // namespace comfortics::batch
