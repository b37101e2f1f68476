// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/frm_raw_data.h"

#include "batch/column_map.h"
#include "batch/selected_indices.h"
#include "batch/table_reader.h"
#include "controls/grid_scroll.h"
#include "output/csv_export.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <fstream>
#include <memory>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace comfortics::batch {

using classic::kReadingCount;
using controls::Grid;
using controls::Key;
using controls::KeyPress;

namespace {

constexpr int kCtrl = 2;
constexpr const char* kNotBegun = "0%";
constexpr const char* kFinished = "100%";
constexpr const char* kOfEarlierRun = " (of an earlier run)";
constexpr const char* kOpenTitle = "Open Table";
constexpr std::chrono::milliseconds kPatience{5}; // of a wait for a row, between two looks at the interface

// Places of the design [twips].
constexpr int kGridLeft = 120;
constexpr int kGridTop = 960;
constexpr int kGridWidth = 9600;
constexpr int kGridHeight = 7200;

// The desktop's clipboard may end lines with a line feed alone; the sheet knows rows by their
// carriage returns.
std::string withCarriageReturns(const std::string& text)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '\n' && (result.empty() || result.back() != '\r'))
            result += '\r';
        if (c == '\n')
            result += '\n';
        else
            result += c;
    }
    return result;
}

std::string heading(const classic::Frm_Results& store, int index)
{
    const auto place = static_cast<std::size_t>(index);
    return store.lbl_Index[place].caption() + " - [" + store.lbl_Unit[place].caption() + "]";
}

std::string rowSpan(std::size_t first, std::size_t last)
{
    return first == last ? "row " + std::to_string(first)
                         : "rows " + std::to_string(first) + " to " + std::to_string(last);
}

// The allocator keeps what was freed for later; millions of rows are too much to keep.
void returnFreedMemory()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

// The rows of a file, one behind the other.
controls::GridCells readTable(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw MalformedTable(std::generic_category().message(errno) + ".");
    TableReader reader([&file](char* buffer, std::size_t size) {
        file.read(buffer, static_cast<std::streamsize>(size));
        if (file.bad()) // a folder, a broken disk
            throw MalformedTable("It cannot be read.");
        return static_cast<std::size_t>(file.gcount());
    });
    TableRow row;
    if (!reader.next(row))
        throw MalformedTable("The table is empty.");
    const ColumnMap columns = ColumnMap::from(row, reader.separator());
    controls::GridCells table(1024, kReadingCount);
    std::size_t count = 0;
    for (bool more = !columns.firstRowIsHeader() || reader.next(row); more; more = reader.next(row)) {
        columns.check(row);
        if (count == table.rows())
            table.resize(2 * count, kReadingCount);
        std::size_t column = 0;
        for (const std::string_view text : columns.readings(row))
            table.setText(count, column++, text);
        ++count;
    }
    table.resize(count, kReadingCount);
    return table;
}

} // namespace

Frm_Raw_Data::Frm_Raw_Data(classic::Frm_Main& main, const classic::Limits& limits, const Desktop& desktop,
                           unsigned threads)
    : Form("Raw Data"), m_main(main), m_limits(limits), m_desktop(desktop),
      m_threads(threads > 0 ? threads : std::max(1U, std::thread::hardware_concurrency()))
{
    Flex_Data.onKeyDown([this](KeyPress press) { Flex_Data_KeyDown(press); });
    Flex_Data.provideNotes([this](std::size_t row, std::size_t) { return dataNote(row); });
    Flex_Results.onMouseDown([this](controls::MouseButton button) {
        if (button == controls::MouseButton::Right)
            popUpMenu_copy.raise();
    });
    Flex_Results.provideNotes([this](std::size_t row, std::size_t col) { return resultNote(row, col); });
    cmd_Calculate.click.handle([this] { cmd_Calculate_Click(); });
    cmd_Open.click.handle([this] { cmd_Open_Click(); });
    cmd_Stop.click.handle([this] {
        m_stop = m_running;
        m_restart = false;
    });
    cmd_Back.click.handle([this] { Fra_Results.setVisible(false); });
    Menu_copy_copy.click.handle([this] { Menu_copy_copy_Click(); });
    Menu_Copy_Selection.click.handle([this] { Menu_Copy_Selection_Click(); });
    Menu_Export.click.handle([this] { Menu_Export_Click(); });
    Form_Load();
}

void Frm_Raw_Data::Form_Load()
{
    Fra_Results.setVisible(false);
    cmd_Stop.setEnabled(false);
    for (Grid* grid : {&Flex_Data, &Flex_Results})
        grid->moveTo(kGridLeft, kGridTop);
    resizeGrids(kGridWidth, kGridHeight);
}

void Frm_Raw_Data::resizeGrids(int width, int height)
{
    for (Grid* grid : {&Flex_Data, &Flex_Results})
        grid->setSize(width, height);
    const Grid::Bulk bulk(Flex_Data);
    for (std::size_t col = 0; col < Flex_Data.cols(); ++col)
        Flex_Data.setColWidth(col, width / static_cast<int>(kReadingCount));
}

void Frm_Raw_Data::MouseWheel(int /*modifierKeys*/, int rotation, int x, int y)
{
    Grid& grid = Fra_Results.visible() ? Flex_Results : Flex_Data;
    if (x >= grid.left() && x <= grid.left() + grid.width() && y >= grid.top() &&
        y <= grid.top() + grid.height())
        controls::ScrollFlexGrid(grid, rotation);
}

// --- opening

void Frm_Raw_Data::open(output::Frm_Comfortics& table)
{
    for (std::size_t col = 0; col < kReadingCount; ++col)
        Flex_Data.setTextMatrix(0, col, sheetHeader(classic::kReadingInfo[col]));
    lbl_information.setCaption("Use Ctr + V to paste your values into the following table.\r\n"
                               "Report 'Globe Temperature' OR 'Solar Radiation', and 'Dew Point' OR "
                               "'Relative Humidity'");

    const classic::Frm_Results& store = m_main.results;
    Grid& catalogue = table.Flex;
    {
        // A sorted table goes back to the order of the catalogue here, so the values go with the
        // names.
        const Grid::Bulk bulk(catalogue);
        const std::size_t count = store.controlCount() / 3 - 1;
        catalogue.setRows(count + 1);
        catalogue.setCols(3);
        for (std::size_t index = 1; index <= count; ++index) {
            catalogue.setTextMatrix(index, 0, store.lbl_Index[index].caption());
            catalogue.setTextMatrix(index, 1, store.lbl_results[index].caption());
            catalogue.setTextMatrix(index, 2, store.lbl_Unit[index].caption());
            catalogue.setRowKey(index, static_cast<std::int32_t>(index));
        }
    }
    {
        const Grid::Bulk bulk(Flex_Results);
        m_headed = selectedIndices(m_main.settings().selection);
        Flex_Results.setCols(std::max<std::size_t>(m_headed.size(), 1));
        Flex_Results.setTextMatrix(0, 0, "");
        std::size_t col = 0;
        for (const int index : m_headed)
            Flex_Results.setTextMatrix(0, col++, heading(store, index));
    }
    tellTerms();
    show();
}

void Frm_Raw_Data::cmd_Open_Click()
{
    const auto path = m_desktop.files.askOpen(
        {.title = kOpenTitle, .filter = "Tables (*.csv *.tsv *.txt)|*.csv *.tsv *.txt"});
    if (path && !path->empty())
        openFile(*path);
}

void Frm_Raw_Data::openFile(const std::string& path)
{
    if (m_running)
        return;
    try {
        const controls::GridCells table = readTable(path);
        const Grid::Bulk bulk(Flex_Data);
        takeRows(table.rows());
        for (std::size_t row = 0; row < table.rows(); ++row)
            for (std::size_t col = 0; col < kReadingCount; ++col)
                Flex_Data.setTextMatrix(Flex_Data.fixedRows() + row, col, table.text(row, col));
    } catch (const MalformedTable& error) {
        m_desktop.messages.show(
            {.text = "The file " + path + " cannot be opened. " + error.what(), .title = kOpenTitle});
    }
}

// Ctrl+V and no other key, also not with Shift. A text without a line break at its end loses its
// last line, deliberately: the rows are counted by their ends.
void Frm_Raw_Data::Flex_Data_KeyDown(KeyPress press)
{
    if (press.key != Key::V || press.shift != kCtrl || m_running)
        return;
    std::string text = withCarriageReturns(m_desktop.clipboard.text());
    if (text.empty())
        return;
    const auto rows = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\r'));
    std::erase(text, '\n');
    const Grid::Bulk bulk(Flex_Data);
    takeRows(rows);
    if (rows == 0)
        return;
    Flex_Data.select(Flex_Data.fixedRows(), 0, Flex_Data.rows() - 1, Flex_Data.cols() - 1);
    Flex_Data.setClip(text);
}

// What was calculated from other rows goes: no figure of theirs may stand beside the new ones.
void Frm_Raw_Data::takeRows(std::size_t count)
{
    Flex_Data.setRows(Flex_Data.fixedRows() + count);
    {
        const Grid::Bulk bulk(Flex_Results);
        Flex_Results.setRows(Flex_Results.fixedRows());
        Flex_Results.setRows(Flex_Results.fixedRows() + count);
    }
    m_states.clear();
    m_stretches.clear();
    m_oldHeaders.clear();
    m_asked = controls::GridCells(1, kReadingCount);
    m_explainer.reset();
    m_counts = {};
    m_stopped = false;
    m_progressShare = 0;
    lbl_progress_value.setCaption(kNotBegun);
    lbl_progress.appearance.raise();
    lbl_progress_rows.setCaption("");
    lbl_outcome.setCaption("");
    lbl_status.setCaption("");
    tellTerms();
}

// --- the run

void Frm_Raw_Data::keepAlive(std::function<void()> processEvents, std::chrono::milliseconds every)
{
    m_processEvents = std::move(processEvents);
    m_every = every;
}

BoxTexts Frm_Raw_Data::cells(std::size_t row) const
{
    BoxTexts texts;
    for (std::size_t col = 0; col < kReadingCount; ++col)
        texts[col] = Flex_Data.textMatrix(row, col);
    return texts;
}

Terms Frm_Raw_Data::terms() const
{
    return {m_main.settings(), m_main.calculation.assumptions.texts()};
}

void Frm_Raw_Data::cmd_Calculate_Click()
{
    if (m_running) {
        m_restart = true; // the run under way starts over from row 1
        m_stop = false;
        return;
    }
    // While it runs, the rows stay as they are; whatever ends the run gives them free again.
    class Running {
    public:
        explicit Running(Frm_Raw_Data& form) : m_form(form) { set(true); }
        ~Running() { set(false); }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        void set(bool running)
        {
            m_form.m_running = running;
            m_form.Flex_Data.setEnabled(!running);
            m_form.cmd_Open.setEnabled(!running);
            m_form.cmd_Stop.setEnabled(running);
        }
        Frm_Raw_Data& m_form;
    };
    const Running running(*this);
    m_unloaded = false;
    m_messagesHidden = false;
    do {
        m_stop = false;
        m_restart = false;
        run();
    } while (m_restart && !m_unloaded);
    Fra_Results.setVisible(true);
    if (m_unloaded)
        freeRows();
}

void Frm_Raw_Data::run()
{
    const std::size_t last = lastRow();
    m_oldHeaders = calculatedHeaders();
    for (std::string& header : m_oldHeaders)
        if (!header.empty() && !header.ends_with(kOfEarlierRun))
            header += kOfEarlierRun;
    m_states.assign(last + 1, RowState::NotRun);
    m_asked = controls::GridCells(last + 1, kReadingCount);
    m_stretches.clear();
    m_counts = {};
    m_explainer.reset();
    lbl_outcome.setCaption("");
    lbl_status.setCaption("Calculating " + std::to_string(last) + (last == 1 ? " row." : " rows."));

    const std::size_t done = calculateRows(last);
    m_stopped = done < last;
    if (m_stopped && Flex_Results.rows() > done + 1) {
        // What an earlier run has left there is no result of this one.
        const Grid::Bulk bulk(Flex_Results);
        Flex_Results.setRows(done + 1);
        Flex_Results.setRows(last + 1);
    }
    leaveInMainWindow(done);
    showOutcome(done, last);
}

// The number of rows that are done: all of them, or those before the row at which the run was
// interrupted.
std::size_t Frm_Raw_Data::calculateRows(std::size_t last)
{
    std::optional<SheetRows> rows;
    std::unique_ptr<Grid::Bulk> bulk; // gathers what happens between two looks at the interface
    m_lastEvents = {};
    for (std::size_t row = 1; row <= last; ++row) {
        const bool eventsDue = m_processEvents && std::chrono::steady_clock::now() - m_lastEvents >= m_every;
        if (eventsDue) {
            bulk.reset();
            letEventsPass();
        }
        if (interrupted())
            return row - 1;
        // A change of selection or options counts from this row on.
        if (!rows || (std::exchange(m_userHadTheWord, false) && rows->terms() != terms())) {
            BoxTexts before = rows ? rows->standing() : boxTexts(m_main.calculation.readings);
            m_stretches.push_back({row, terms()});
            tellTerms();
            rows.emplace(
                m_limits, m_stretches.back().terms, m_threads, [this](std::size_t at) { return cells(at); },
                row, last, std::move(before));
        }
        while (!rows->nextIsDone(kPatience)) {
            bulk.reset();
            letEventsPass();
            if (interrupted())
                return row - 1;
        }
        const SheetRow& result = rows->next();
        if (!result.messages.empty()) {
            bulk.reset();
            showMessages(result);
        }
        if (!bulk)
            bulk = std::make_unique<Grid::Bulk>(Flex_Results);
        keepRow(row, result);
        if (eventsDue || !m_processEvents || row == last)
            updateProgress(row, last);
    }
    return last;
}

void Frm_Raw_Data::letEventsPass()
{
    if (m_processEvents)
        m_processEvents();
    m_userHadTheWord = true;
    m_lastEvents = std::chrono::steady_clock::now();
}

void Frm_Raw_Data::showMessages(const SheetRow& result)
{
    for (const std::string_view text : result.messages) {
        if (m_messagesHidden || m_unloaded)
            return;
        m_desktop.messages.show({.text = std::string(text),
                                 .checkBox = "Do not show this again in this run",
                                 .checked = &m_messagesHidden});
        m_userHadTheWord = true;
    }
}

void Frm_Raw_Data::keepRow(std::size_t row, const SheetRow& result)
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
        return; // its row of results stays as it was
    case RowState::Rejected:
        ++m_counts.skipped;
        break;
    case RowState::NotRun:
        return;
    }
    m_counts.lostValues += result.lostValues;
    Flex_Results.setRows(Flex_Data.rows());
    // The columns are those of the selection of this moment; the headers stay those of the opening.
    if (result.values.size() > Flex_Results.cols())
        Flex_Results.setCols(result.values.size());
    std::size_t col = 0;
    for (const std::string_view text : result.values)
        Flex_Results.setTextMatrix(row, col++, text);
}

// Once it has come to 100 % the progress stays there, deliberately also in later runs over the same
// rows; the status line tells of those.
void Frm_Raw_Data::updateProgress(std::size_t row, std::size_t last)
{
    const double share = static_cast<double>(row) / static_cast<double>(last);
    const std::string percentage = std::to_string(static_cast<int>(std::floor(share * 100))) + "%";
    lbl_status.setCaption("Row " + std::to_string(row) + " of " + std::to_string(last) + " is done (" +
                          percentage + ").");
    if (lbl_progress_value.caption() == kFinished)
        return;
    lbl_progress_value.setCaption(percentage);
    m_progressShare = share;
    lbl_progress.appearance.raise();
    lbl_progress_rows.setCaption(std::to_string(row) + " out of " + std::to_string(last));
}

// Brings the main window to where it would stand had the rows been written there one by one: the
// boxes hold the last row, the results those of the last row that was calculated, and the captions
// of the live quantities those of the last row that had a calculation at all.
void Frm_Raw_Data::leaveInMainWindow(std::size_t row)
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
    const MessageGate::Hush hush(m_desktop.messages);
    if (captions > 0 && captions != results)
        calculateInMainWindow(captions);
    if (results > 0)
        calculateInMainWindow(results);
    if (results != row)
        restore(m_main.calculation.readings, asked(row));
}

void Frm_Raw_Data::calculateInMainWindow(std::size_t row)
{
    restore(m_main.calculation.readings, asked(row));
    m_main.calculation.run(stretch(row).terms.settings);
}

void Frm_Raw_Data::showOutcome(std::size_t done, std::size_t last)
{
    std::string text = std::to_string(m_counts.calculated) + " calculated, " +
                       std::to_string(m_counts.skipped) + " skipped, " + std::to_string(m_counts.failed) +
                       " failed.";
    if (m_counts.lostValues > 0)
        text += " Values blank for a failure: " + std::to_string(m_counts.lostValues) + ".";
    lbl_outcome.setCaption(
        (done < last ? "Stopped after row " + std::to_string(done) + " of " + std::to_string(last) + ": "
                     : "Rows: ") +
        text);
    lbl_status.setCaption(lbl_outcome.caption());
    m_main.tell("The sheet has run. " + lbl_outcome.caption() +
                (done > 0 ? " Its row " + std::to_string(done) + " is left in the readings." : ""));
    tellTerms();
}

// --- by which terms

bool Frm_Raw_Data::resultsAreEarlier() const
{
    return !m_stretches.empty() && m_stretches.back().terms != terms();
}

// What the columns hold; nothing before the first run over these rows. A header of the grid is that of the
// opening; the selection may have been another when the run came, and may have changed under way.
std::vector<std::string> Frm_Raw_Data::calculatedHeaders() const
{
    struct Part {
        std::string text;
        std::size_t first;
        std::size_t last;
    };
    if (m_stretches.empty())
        return {};
    std::vector<std::vector<Part>> columns(Flex_Results.cols());
    for (const Stretch& one : m_stretches) {
        const std::vector<int> indices = selectedIndices(one.terms.settings.selection);
        for (std::size_t col = 0; col < columns.size(); ++col) {
            std::vector<Part>& parts = columns[col];
            std::string text;
            if (col < indices.size())
                text = heading(m_main.results, indices[col]);
            else if (col < m_oldHeaders.size()) // no run since has written there
                text = m_oldHeaders[col];
            if (!parts.empty() && parts.back().text != text)
                parts.back().last = one.first - 1;
            if (parts.empty() || parts.back().text != text)
                parts.push_back({std::move(text), one.first, lastRow()});
        }
    }
    std::vector<std::string> headers;
    for (const std::vector<Part>& parts : columns) {
        std::string& header = headers.emplace_back();
        for (const Part& part : parts) {
            header += header.empty() ? "" : " / "; // a comma would end the cell of an export
            header += part.text;
            if (parts.size() > 1)
                header += " (" + rowSpan(part.first, part.last) + ")";
        }
    }
    return headers;
}

bool Frm_Raw_Data::headersAreOther() const
{
    const std::vector<std::string> headers = calculatedHeaders();
    for (std::size_t col = 0; col < headers.size(); ++col)
        if (headers[col] != Flex_Results.textMatrix(0, col) && !headers[col].empty())
            return true;
    return false;
}

void Frm_Raw_Data::tellTerms()
{
    const classic::Settings now = m_stretches.empty() ? m_main.settings() : m_stretches.back().terms.settings;
    std::string text = "By " + classic::inForce(now) + ".";
    if (m_stretches.size() > 1)
        text += " Options or ticks changed under way; this holds from row " +
                std::to_string(m_stretches.back().first) + " on.";
    if (headersAreOther())
        text += " The columns hold other indices than the headers tell, because the ticks have changed since "
                "the sheet was opened. An export has the right headers; opening the sheet again and "
                "calculating gives them here, too.";
    else if (m_stretches.empty() && selectedIndices(now.selection) != m_headed)
        text += " The ticks have changed since the sheet was opened; open it again for their headers.";
    if (resultsAreEarlier())
        text += " Options, assumptions or ticks have changed since the run.";
    lbl_terms.setCaption(text);
}

// --- the end

void Frm_Raw_Data::Form_Unload()
{
    m_unloaded = true;
    if (!m_running)
        freeRows();
}

void Frm_Raw_Data::freeRows()
{
    takeRows(0);
    returnFreedMemory();
}

// --- what became of a row

RowState Frm_Raw_Data::rowState(std::size_t row) const
{
    return row < m_states.size() ? m_states[row] : RowState::NotRun;
}

BoxTexts Frm_Raw_Data::asked(std::size_t row) const
{
    BoxTexts texts;
    for (std::size_t i = 0; i < kReadingCount; ++i)
        texts[i] = m_asked.text(row, i);
    return texts;
}

const Frm_Raw_Data::Stretch& Frm_Raw_Data::stretch(std::size_t row) const
{
    const auto after = std::find_if(m_stretches.begin(), m_stretches.end(),
                                    [row](const Stretch& one) { return one.first > row; });
    return *std::prev(after);
}

// Reasons are not kept, they are found again by calculating the row once more.
RowRunner& Frm_Raw_Data::explainer(std::size_t row) const
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

std::string Frm_Raw_Data::whyNoFigures(std::size_t row) const
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

std::string Frm_Raw_Data::resultNote(std::size_t row, std::size_t col) const
{
    if (m_running)
        return {};
    const bool blank = Flex_Results.textMatrix(row, col).empty();
    if (rowState(row) != RowState::Calculated) {
        std::string why = whyNoFigures(row);
        if (!why.empty() && !blank)
            why += " Its figures are those of an earlier run.";
        return why;
    }
    const std::vector<int> indices = selectedIndices(stretch(row).terms.settings.selection);
    return blank && col < indices.size() ? explainer(row).calculation().whyBlank(indices[col])
                                         : std::string();
}

std::string Frm_Raw_Data::dataNote(std::size_t row) const
{
    return m_running ? std::string() : whyNoFigures(row);
}

// --- copying and export

void Frm_Raw_Data::Menu_copy_copy_Click()
{
    Flex_Results.select(0, 0, Flex_Results.rows() - 1, Flex_Results.cols() - 1);
    m_desktop.clipboard.setText(Flex_Results.clip());
}

void Frm_Raw_Data::Menu_Copy_Selection_Click()
{
    m_desktop.clipboard.clear();
    m_desktop.clipboard.setText(Flex_Results.clip());
}

void Frm_Raw_Data::Menu_Export_Click()
{
    output::exportSpreadsheetTable(Flex_Results, output::kBatchSaved, m_desktop.files, m_desktop.messages,
                                   calculatedHeaders());
}

} // namespace comfortics::batch
