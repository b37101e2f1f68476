// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/sheet_run.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <thread>
#include <utility>

namespace comfortics::batch {

using classic::kReadingCount;

namespace {

constexpr std::chrono::milliseconds kPatience{5}; // of a wait for a row, between two looks at the interface

/// However the rows end, those that were taken are shown.
class ShownAtEnd {
public:
    explicit ShownAtEnd(Sheet& sheet) : m_sheet(sheet) {}
    ~ShownAtEnd() { m_sheet.showTaken(); }
    ShownAtEnd(const ShownAtEnd&) = delete;
    ShownAtEnd& operator=(const ShownAtEnd&) = delete;

private:
    Sheet& m_sheet;
};

} // namespace

SheetRun::SheetRun(Sheet& sheet, classic::Frm_Main& main, const classic::Limits& limits,
                   MessageGate& messages, unsigned threads)
    : m_sheet(sheet), m_main(main), m_limits(limits), m_messages(messages),
      m_threads(threads > 0 ? threads : std::max(1U, std::thread::hardware_concurrency()))
{
}

void SheetRun::keepAlive(std::function<void()> processEvents, std::chrono::milliseconds every)
{
    m_processEvents = std::move(processEvents);
    m_every = every;
}

Terms SheetRun::terms() const
{
    return {m_main.settings(), m_main.calculation.assumptions.texts()};
}

// --- the run

void SheetRun::start()
{
    if (m_running) {
        m_restart = true; // from row 1
        m_stop = false;
        return;
    }
    // Whatever ends the run gives the rows free again.
    class Running {
    public:
        explicit Running(SheetRun& run) : m_run(run) { set(true); }
        ~Running() { set(false); }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        void set(bool running)
        {
            m_run.m_running = running;
            m_run.m_sheet.hold(running);
        }
        SheetRun& m_run;
    };
    const Running running(*this);
    m_abandoned = false;
    m_messagesHidden = false;
    do {
        m_stop = false;
        m_restart = false;
        run();
    } while (m_restart && !m_abandoned);
    m_sheet.runsEnded();
}

void SheetRun::stop()
{
    m_stop = m_running;
    m_restart = false;
}

void SheetRun::abandon()
{
    m_abandoned = true;
}

void SheetRun::forget()
{
    m_states.clear();
    m_stretches.clear();
    m_asked = controls::GridCells(1, kReadingCount);
    m_explainer.reset();
    m_counts = {};
    m_stopped = false;
}

void SheetRun::run()
{
    const std::size_t last = m_sheet.lastRow();
    m_sheet.runBegins(last);
    m_states.assign(last + 1, RowState::NotRun);
    m_asked = controls::GridCells(last + 1, kReadingCount);
    m_stretches.clear();
    m_counts = {};
    m_explainer.reset();

    const std::size_t done = calculateRows(last);
    m_stopped = done < last;
    leaveInMainWindow(done);
    m_sheet.runEnds(done, last);
}

// The number of rows that are done: all of them, or those before the row at which the run was
// interrupted.
std::size_t SheetRun::calculateRows(std::size_t last)
{
    std::optional<SheetRows> rows;
    const ShownAtEnd shown(m_sheet);
    m_lastEvents = {};
    std::size_t told = 0;
    const auto tellProgress = [&](std::size_t row) { // with the rows that stand in the table
        if (row > told)
            m_sheet.showProgress(told = row, last);
    };
    for (std::size_t row = 1; row <= last; ++row) {
        const bool eventsDue = m_processEvents && std::chrono::steady_clock::now() - m_lastEvents >= m_every;
        if (eventsDue) {
            m_sheet.showTaken();
            letEventsPass();
        }
        if (interrupted())
            return row - 1;
        // A change of selection or options counts from this row on.
        if (!rows || (std::exchange(m_userHadTheWord, false) && rows->terms() != terms())) {
            BoxTexts before = rows ? rows->standing() : boxTexts(m_main.calculation.readings);
            m_stretches.push_back({row, terms()});
            m_sheet.termsBegin();
            rows.emplace(
                m_limits, m_stretches.back().terms, m_threads,
                [this](std::size_t at) { return m_sheet.cells(at); }, row, last, std::move(before));
        }
        while (!rows->nextIsDone(kPatience)) {
            m_sheet.showTaken();
            tellProgress(row - 1);
            letEventsPass();
            if (interrupted())
                return row - 1;
        }
        const SheetRow& result = rows->next();
        if (!result.messages.empty() && !m_messagesHidden) {
            m_sheet.showTaken();
            tellProgress(row - 1);
            showMessages(result);
        }
        keepRow(row, result);
        m_sheet.take(row, result);
        if (eventsDue || !m_processEvents || row == last)
            tellProgress(row);
    }
    return last;
}

void SheetRun::letEventsPass()
{
    if (m_processEvents)
        m_processEvents();
    m_userHadTheWord = true;
    m_lastEvents = std::chrono::steady_clock::now();
}

void SheetRun::showMessages(const SheetRow& result)
{
    for (const std::string_view text : result.messages) {
        if (m_messagesHidden || m_abandoned)
            return;
        m_messages.show({.text = std::string(text),
                         .checkBox = "Do not show this again in this run",
                         .checked = &m_messagesHidden});
        m_userHadTheWord = true;
    }
}

void SheetRun::keepRow(std::size_t row, const SheetRow& result)
{
    m_states[row] = result.state;
    for (std::size_t i = 0; i < kReadingCount; ++i)
        m_asked.setText(row, i, (*result.asked)[i]);
    switch (result.state) {
    case RowState::Calculated:
        ++m_counts.calculated;
        break;
    case RowState::Failed:
        ++m_counts.failed;
        break;
    case RowState::Skipped:
        ++m_counts.skipped;
        return;
    case RowState::Rejected:
        ++m_counts.skipped;
        break;
    case RowState::NotRun:
        return;
    }
    m_counts.lostValues += result.lostValues;
}

// Brings the main window to where it would stand had the rows been written there one by one: the
// boxes hold the last row, the results those of the last row that was calculated, and the captions
// of the live quantities those of the last row that had a calculation at all.
void SheetRun::leaveInMainWindow(std::size_t row)
{
    if (row == 0)
        return;
    const auto lastWhere = [this, row](auto holds) {
        std::size_t found = row;
        while (found > 0 && !holds(m_states[found]))
            --found;
        return found;
    };
    const std::size_t captions =
        lastWhere([](RowState state) { return state == RowState::Calculated || state == RowState::Failed; });
    const std::size_t results = lastWhere([](RowState state) { return state != RowState::Skipped; });
    const MessageGate::Hush hush(m_messages);
    if (captions > 0 && captions != results)
        calculateInMainWindow(captions);
    if (results > 0)
        calculateInMainWindow(results);
    if (results != row)
        restore(m_main.calculation.readings, asked(row));
}

void SheetRun::calculateInMainWindow(std::size_t row)
{
    restore(m_main.calculation.readings, asked(row));
    m_main.calculation.run(stretch(row).terms.settings);
}

// --- what became of a row

RowState SheetRun::rowState(std::size_t row) const
{
    return row < m_states.size() ? m_states[row] : RowState::NotRun;
}

BoxTexts SheetRun::asked(std::size_t row) const
{
    BoxTexts texts;
    for (std::size_t i = 0; i < kReadingCount; ++i)
        texts[i] = m_asked.text(row, i);
    return texts;
}

const SheetRun::Stretch& SheetRun::stretch(std::size_t row) const
{
    const auto after = std::find_if(m_stretches.begin(), m_stretches.end(),
                                    [row](const Stretch& one) { return one.first > row; });
    return *std::prev(after);
}

// Reasons are not kept, they are found again by calculating the row once more.
RowRunner& SheetRun::explainer(std::size_t row) const
{
    if (!m_explainer || m_explained != row) {
        const Terms& terms = stretch(row).terms;
        m_explainer = std::make_unique<RowRunner>(m_limits, terms.settings);
        m_explainer->calculation().assumptions.write(terms.assumptions);
        restore(m_explainer->calculation().readings, asked(row));
        m_explainer->runBoxes();
        m_explained = row;
    }
    return *m_explainer;
}

std::string SheetRun::whyNoFigures(std::size_t row) const
{
    const std::string name = "Row " + std::to_string(row);
    switch (rowState(row)) {
    case RowState::Skipped:
    case RowState::Rejected:
        return name + " was skipped: " + explainer(row).calculation().readings.whatIsWrong() + ".";
    case RowState::Failed:
        return name + " failed: " + explainer(row).calculation().failure()->sentence();
    case RowState::NotRun:
        return m_stopped && row > 0 && row < m_states.size()
                   ? "The run was stopped before row " + std::to_string(row) + "."
                   : std::string();
    case RowState::Calculated:
        break;
    }
    return {};
}

std::string SheetRun::whyBlank(std::size_t row, int index) const
{
    return explainer(row).calculation().whyBlank(index);
}

std::optional<catalogue::Meaning> SheetRun::meaning(std::size_t row, int index) const
{
    return explainer(row).calculation().meaning(index);
}

} // namespace comfortics::batch
