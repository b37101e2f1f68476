// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/frm_comfortics.h"

#include "controls/grid_scroll.h"
#include "output/csv_export.h"
#include "texts/text.h"
#include "values/run_failure.h"

#include <cmath>
#include <iterator>

namespace comfortics::output {

using controls::Grid;
using controls::MouseButton;
using texts::lowered;

namespace {

constexpr std::size_t kNameCol = 0;
constexpr std::size_t kUnitCol = 2;
constexpr std::size_t kColCount = 3;
constexpr int kCentred = 4;

// Places of the design [twips].
constexpr int kGridLeft = 120;
constexpr int kGridTop = 720;
constexpr int kGridWidth = 9600;
constexpr int kGridHeight = 7200;

bool contains(std::string_view text, std::string_view part)
{
    return text.find(part) != std::string_view::npos;
}

void copyCells(const Grid& source, Grid& target, std::size_t row)
{
    for (std::size_t col = 0; col < kColCount; ++col)
        target.setTextMatrix(row, col, source.textMatrix(row, col));
}

} // namespace

Frm_Comfortics::Frm_Comfortics(controls::Clipboard& clipboard, controls::Messages& messages,
                               controls::FileDialogs& files, PrintDialog& printing)
    : Form("Comfortics"), m_clipboard(clipboard), m_messages(messages), m_files(files), m_printing(printing)
{
    Flex.moveTo(kGridLeft, kGridTop);
    for (Grid* grid : {&Flex, &Flex_Search}) {
        grid->setSize(kGridWidth, kGridHeight);
        grid->setFont({.name = "Arial Narrow"});
        grid->provideNotes([this, grid](std::size_t row, std::size_t col) { return note(*grid, row, col); });
    }
    Flex.onMouseDown([this](MouseButton button) { gridMouseDown(Flex, m_flexSortedUp, button); });
    Flex_Search.onMouseDown(
        [this](MouseButton button) { gridMouseDown(Flex_Search, m_flexSearchSortedUp, button); });
    txt_Search.change.handle([this] { txt_Search_Change(); });
    Menu_Copy_Copy.click.handle([this] { Menu_Copy_Copy_Click(); });
    Menu_Copy_Selection.click.handle([this] { Menu_Copy_Selection_Click(); });
    Menu_Export.click.handle([this] { Menu_Export_Click(); });
    Menu_Print.click.handle([this] { Menu_Print_Click(); });
    Form_Load();
}

void Frm_Comfortics::Form_Load()
{
    cTP.NewPage = [this](controls::DrawingSurface& surface, bool& topIsSet, bool& /*Cancel*/,
                         int /*lastRow*/) { cTP_NewPage(surface, topIsSet); };
    Flex_Search.moveTo(Flex.left(), Flex.top());
    Flex_Search.setVisible(false);
}

void Frm_Comfortics::shareWidth(Grid& grid)
{
    // Rounded to whole units, halves to even.
    const double eighth = grid.width() / 8.0;
    grid.setColWidth(kNameCol, static_cast<int>(std::nearbyint(eighth * 5)));
    grid.setColWidth(kValueCol, static_cast<int>(std::nearbyint(eighth)));
    grid.setColWidth(kUnitCol, static_cast<int>(std::nearbyint(eighth * 2)));
}

void Frm_Comfortics::resizeGrids(int width, int height)
{
    for (Grid* grid : {&Flex, &Flex_Search}) {
        const Grid::Bulk bulk(*grid);
        grid->setSize(width, height);
        shareWidth(*grid);
    }
}

void Frm_Comfortics::showResults(std::size_t count, const std::function<ResultRow(std::size_t)>& entry)
{
    {
        const Grid::Bulk bulk(Flex);
        Flex.setRows(count + 1);
        Flex.setCols(kColCount);
        for (Grid* grid : {&Flex, &Flex_Search}) {
            for (std::size_t col = 0; col < kColCount; ++col)
                grid->setColAlignment(col, kCentred);
            shareWidth(*grid);
        }
        Flex.setTextMatrix(0, kNameCol, "Thermal Index");
        Flex.setTextMatrix(0, kValueCol, "Value");
        Flex.setTextMatrix(0, kUnitCol, "Unit");
        m_doubts.assign(count + 1, {});
        m_meanings.assign(count + 1, {});
        for (std::size_t index = 1; index <= count; ++index) {
            const ResultRow row = entry(index);
            m_doubts[index] = row.doubt;
            m_meanings[index] = row.meaning;
            Flex.setTextMatrix(index, kNameCol, row.name);
            Flex.setTextMatrix(index, kValueCol, row.value);
            Flex.setTextMatrix(index, kUnitCol, row.unit);
            Flex.setRowKey(index, static_cast<std::int32_t>(index));
        }
    }
    show();

    const std::string searched = txt_Search.text();
    txt_Search.setText("");
    Flex_Search.setVisible(false);
    Flex.setVisible(true);
    txt_Search.setText(searched);
}

void Frm_Comfortics::gridMouseDown(Grid& grid, bool& sortedUp, MouseButton button)
{
    if (button == MouseButton::Right) {
        popUpMenu_Copy.raise();
    } else if (button == MouseButton::Left && grid.rows() >= 2 && grid.mouseRow() == 0) {
        grid.setSort(sortedUp ? controls::Sort::StringDescending : controls::Sort::StringAscending);
        sortedUp = !sortedUp;
    }
}

void Frm_Comfortics::txt_Search_Change()
{
    const bool searching = !txt_Search.text().empty();
    Flex_Search.setVisible(searching);
    Flex.setVisible(!searching);

    const Grid::Bulk bulk(Flex_Search);
    Flex_Search.clear();
    copyCells(Flex, Flex_Search, 0);
    const std::string searched = lowered(txt_Search.text());
    Flex_Search.setRows(Flex.rows());
    Flex_Search.setCols(Flex.cols());
    for (std::size_t row = 1; row < Flex.rows(); ++row) {
        if (!contains(lowered(Flex.textMatrix(row, kNameCol)), searched))
            continue;
        copyCells(Flex, Flex_Search, row);
        Flex_Search.setRowKey(row, Flex.rowKey(row));
    }
    // Brings the rows without a match to the bottom. Deliberate: it sorts by the selected column,
    // so a match with a blank cell there goes to the bottom too, and the cut below, which counts
    // names, can take it away.
    Flex_Search.setSort(controls::Sort::StringDescending);
    std::size_t filled = 0;
    for (std::size_t row = 0; row < Flex.rows(); ++row)
        if (!Flex_Search.textMatrix(row, kNameCol).empty())
            ++filled;
    Flex_Search.setRows(filled);
}

void Frm_Comfortics::Menu_Copy_Copy_Click()
{
    Grid& grid = visibleGrid();
    m_clipboard.clear();
    grid.select(0, 0, grid.rows() - 1, kUnitCol);
    m_clipboard.setText(grid.clip());
}

void Frm_Comfortics::Menu_Copy_Selection_Click()
{
    m_clipboard.clear();
    m_clipboard.setText(visibleGrid().clip());
}

void Frm_Comfortics::Menu_Export_Click()
{
    exportSpreadsheetTable(visibleGrid(), kResultsSaved, m_files, m_messages);
}

void Frm_Comfortics::Menu_Print_Click()
{
    // The page has room for the table alone.
    m_printing.nameDocument(lbl_In_Force.caption().empty() ? caption()
                                                           : caption() + ". " + lbl_In_Force.caption());
    m_printing.show([this](Printer& printer) {
        WriteResult result;
        try {
            result = printGrid(visibleGrid(), cTP, m_helper, printer);
        } catch (const values::RunFailure& failure) {
            result.error = "The table could not be printed: " + failure.why() + ".";
        }
        if (!result.succeeded())
            m_messages.show({.text = result.error, .title = Menu_Print.caption()});
        return result.succeeded();
    });
}

void Frm_Comfortics::cTP_NewPage(controls::DrawingSurface& surface, bool& topIsSet)
{
    startNextPage(cTP, surface, topIsSet);
}

void Frm_Comfortics::MouseWheel(int /*modifierKeys*/, int rotation, int x, int y)
{
    for (Grid* grid : {&Flex, &Flex_Search}) {
        const bool under = x >= grid->left() && x <= grid->left() + grid->width() && y >= grid->top() &&
                           y <= grid->top() + grid->height();
        if (grid->visible() && under)
            controls::ScrollFlexGrid(*grid, rotation);
    }
}

std::string Frm_Comfortics::note(const Grid& grid, std::size_t row, std::size_t col) const
{
    if (row < grid.fixedRows())
        return {};
    if (col != kValueCol) {
        const std::string where = literature(grid, row);
        return where.empty() ? where
                             : std::string(grid.textMatrix(row, 0)) + "\n" + where; // a long name may be cut
    }
    if (!grid.textMatrix(row, col).empty())
        return std::string(doubt(grid, row).empty() ? meaningNoteOf(grid, row) : doubt(grid, row));
    const int index = indexOf(grid, row);
    return index > 0 && m_reason ? m_reason(index) : std::string();
}

std::string Frm_Comfortics::rowNote(const Grid& grid, std::size_t row) const
{
    const std::string ofValue = note(grid, row, kValueCol);
    return ofValue.empty() ? literature(grid, row)
                           : ofValue.substr(0, ofValue.find('\n')); // one line is its room
}

std::string Frm_Comfortics::literature(const Grid& grid, std::size_t row) const
{
    const int index = indexOf(grid, row);
    return index > 0 && m_literature ? m_literature(index) : std::string();
}

int Frm_Comfortics::indexOf(const Grid& grid, std::size_t row)
{
    return row < grid.fixedRows() || row >= grid.rows() ? 0 : grid.rowKey(row);
}

std::string_view Frm_Comfortics::doubt(const Grid& grid, std::size_t row) const
{
    const auto index = static_cast<std::size_t>(indexOf(grid, row));
    return index < m_doubts.size() ? std::string_view(m_doubts[index]) : std::string_view();
}

std::optional<catalogue::Meaning> Frm_Comfortics::meaning(const Grid& grid, std::size_t row) const
{
    const auto index = static_cast<std::size_t>(indexOf(grid, row));
    return index < m_meanings.size() ? m_meanings[index] : std::nullopt;
}

std::string Frm_Comfortics::meaningNoteOf(const Grid& grid, std::size_t row) const
{
    const auto of = meaning(grid, row);
    return of ? catalogue::meaningNote(indexOf(grid, row), *of) : std::string();
}

} // namespace comfortics::output
