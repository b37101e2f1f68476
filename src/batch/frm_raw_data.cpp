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
#include <system_error>
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
    : Form("Raw Data"), m_main(main), m_desktop(desktop),
      m_run(*this, main, limits, desktop.messages, threads)
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
    cmd_Stop.click.handle([this] { m_run.stop(); });
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
    if (running())
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
    if (press.key != Key::V || press.shift != kCtrl || running())
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
    m_run.forget();
    m_oldHeaders.clear();
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
    m_run.keepAlive(std::move(processEvents), every);
}

BoxTexts Frm_Raw_Data::cells(std::size_t row) const
{
    BoxTexts texts;
    for (std::size_t col = 0; col < kReadingCount; ++col)
        texts[col] = Flex_Data.textMatrix(row, col);
    return texts;
}

void Frm_Raw_Data::hold(bool running)
{
    Flex_Data.setEnabled(!running);
    cmd_Open.setEnabled(!running);
    cmd_Stop.setEnabled(running);
}

void Frm_Raw_Data::runBegins(std::size_t last)
{
    m_oldHeaders = calculatedHeaders();
    for (std::string& header : m_oldHeaders)
        if (!header.empty() && !header.ends_with(kOfEarlierRun))
            header += kOfEarlierRun;
    lbl_outcome.setCaption("");
    lbl_status.setCaption("Calculating " + std::to_string(last) + (last == 1 ? " row." : " rows."));
}

void Frm_Raw_Data::take(std::size_t row, const SheetRow& result)
{
    if (!m_bulk)
        m_bulk.emplace(Flex_Results);
    if (result.state == RowState::Skipped || result.state == RowState::NotRun)
        return; // its row of results stays as it was
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
void Frm_Raw_Data::showProgress(std::size_t row, std::size_t last)
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

void Frm_Raw_Data::runEnds(std::size_t done, std::size_t last)
{
    if (done < last && Flex_Results.rows() > done + 1) {
        // What an earlier run has left there is no result of this one.
        const Grid::Bulk bulk(Flex_Results);
        Flex_Results.setRows(done + 1);
        Flex_Results.setRows(last + 1);
    }
    const RowCounts& counts = m_run.counts();
    std::string text = std::to_string(counts.calculated) + " calculated, " + std::to_string(counts.skipped) +
                       " skipped, " + std::to_string(counts.failed) + " failed.";
    if (counts.lostValues > 0)
        text += " Values blank for a failure: " + std::to_string(counts.lostValues) + ".";
    lbl_outcome.setCaption(
        (done < last ? "Stopped after row " + std::to_string(done) + " of " + std::to_string(last) + ": "
                     : "Rows: ") +
        text);
    lbl_status.setCaption(lbl_outcome.caption());
    m_main.tell("The sheet has run. " + lbl_outcome.caption() +
                (done > 0 ? " Its row " + std::to_string(done) + " is left in the readings." : ""));
    tellTerms();
}

void Frm_Raw_Data::runsEnded()
{
    Fra_Results.setVisible(true);
    if (m_run.abandoned())
        freeRows();
}

// --- by which terms

bool Frm_Raw_Data::resultsAreEarlier() const
{
    return !m_run.stretches().empty() && m_run.stretches().back().terms != m_run.terms();
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
    if (m_run.stretches().empty())
        return {};
    std::vector<std::vector<Part>> columns(Flex_Results.cols());
    for (const SheetRun::Stretch& one : m_run.stretches()) {
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
    const auto& stretches = m_run.stretches();
    const classic::Settings now = stretches.empty() ? m_main.settings() : stretches.back().terms.settings;
    std::string text = "By " + classic::inForce(now) + ".";
    if (stretches.size() > 1)
        text += " Options or ticks changed under way; this holds from row " +
                std::to_string(stretches.back().first) + " on.";
    if (headersAreOther())
        text += " The columns hold other indices than the headers tell, because the ticks have changed since "
                "the sheet was opened. An export has the right headers; opening the sheet again and "
                "calculating gives them here, too.";
    else if (stretches.empty() && selectedIndices(now.selection) != m_headed)
        text += " The ticks have changed since the sheet was opened; open it again for their headers.";
    if (resultsAreEarlier())
        text += " Options, assumptions or ticks have changed since the run.";
    lbl_terms.setCaption(text);
}

// --- the end

void Frm_Raw_Data::Form_Unload()
{
    m_run.abandon();
    if (!running())
        freeRows();
}

void Frm_Raw_Data::freeRows()
{
    takeRows(0);
    returnFreedMemory();
}

// --- what became of a row

std::string Frm_Raw_Data::resultNote(std::size_t row, std::size_t col) const
{
    if (running())
        return {};
    const bool blank = Flex_Results.textMatrix(row, col).empty();
    if (rowState(row) != RowState::Calculated) {
        std::string why = m_run.whyNoFigures(row);
        if (!why.empty() && !blank)
            why += " Its figures are those of an earlier run.";
        return why;
    }
    const std::vector<int> indices = selectedIndices(m_run.stretch(row).terms.settings.selection);
    if (col >= indices.size())
        return {};
    if (blank)
        return m_run.whyBlank(row, indices[col]);
    const auto meaning = m_run.meaning(row, indices[col]);
    return meaning ? catalogue::meaningNote(indices[col], *meaning) : std::string();
}

std::vector<std::optional<catalogue::Meaning>> Frm_Raw_Data::meanings(std::size_t row) const
{
    std::vector<std::optional<catalogue::Meaning>> result;
    if (running() || rowState(row) != RowState::Calculated)
        return result;
    for (const int index : selectedIndices(m_run.stretch(row).terms.settings.selection))
        result.push_back(m_run.meaning(row, index));
    return result;
}

std::string Frm_Raw_Data::dataNote(std::size_t row) const
{
    return running() ? std::string() : m_run.whyNoFigures(row);
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
