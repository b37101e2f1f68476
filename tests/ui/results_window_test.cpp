// SPDX-License-Identifier: GPL-3.0-or-later
//
// A grid in its view, and the results window.
#include "full_disk.h"
#include "temporary_folder.h"
#include "test_program.h"

#include "ui/fonts.h"
#include "ui/grid_model.h"
#include "ui/grid_view.h"
#include "ui/main_window.h"
#include "ui/printer_surface.h"
#include "ui/results_window.h"
#include "ui/text.h"

#include <QApplication>
#include <QByteArray>
#include <QFontMetricsF>
#include <QHeaderView>
#include <QLineEdit>
#include <QPageRanges>
#include <QPrinter>
#include <QScrollBar>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::ui {
namespace {

using controls::Grid;
using tests::find;

void turnWheel(QWidget& viewport, int angle)
{
    const QPointF middle = viewport.rect().center();
    QWheelEvent event(middle, viewport.mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&viewport, &event);
}

// A grid in its view: a header, then rows named 1, 2, ...
struct Shown {
    Grid grid;
    std::unique_ptr<GridView> view;
    std::string told;

    explicit Shown(std::size_t rows, std::size_t cols = 3) : grid(rows + 1, cols)
    {
        for (std::size_t row = 1; row <= rows; ++row)
            grid.setTextMatrix(row, 0, std::to_string(row));
        grid.setTextMatrix(0, 1, "Value");
        view = std::make_unique<GridView>(grid);
        view->resize(400, 300);
        view->show();
        grid.onMouseDown([this](controls::MouseButton button) {
            told += std::to_string(static_cast<int>(button)) + "@" + std::to_string(grid.mouseRow()) + "," +
                    std::to_string(grid.mouseCol()) + " ";
        });
        grid.onKeyDown([this](controls::KeyPress press) {
            told += std::to_string(static_cast<int>(press.key)) + "/" + std::to_string(press.shift) + " ";
        });
    }
    QPoint middleOf(int row, int col) const
    {
        return view->visualRect(view->model()->index(row, col)).center();
    }
    void click(Qt::MouseButton button, int row, int col, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(view->viewport(), button, modifiers, middleOf(row, col));
    }
    std::string selection() const
    {
        return std::to_string(grid.row()) + "," + std::to_string(grid.col()) + " to " +
               std::to_string(grid.rowSel()) + "," + std::to_string(grid.colSel());
    }
    std::string selectedInView() const
    {
        std::string cells;
        for (const QModelIndex& index : view->selectionModel()->selectedIndexes())
            cells += std::to_string(index.row()) + "," + std::to_string(index.column()) + " ";
        return cells;
    }
};

TEST(GridView, ShowsTheFixedRowAsHeaderAndTheRestBelow)
{
    Shown shown(3);
    const QAbstractItemModel& model = *shown.view->model();
    EXPECT_EQ(model.headerData(1, Qt::Horizontal), QStringLiteral("Value"));
    EXPECT_EQ(model.headerData(1, Qt::Vertical), 2);
    shown.grid.setRows(6);
    shown.grid.setTextMatrix(5, 0, "°C");
    EXPECT_EQ(model.rowCount(), 5);
    EXPECT_EQ(model.index(4, 0).data(), QStringLiteral("°C"));
}

TEST(GridView, MouseAndKeysMoveTheGridsOwnSelectionAndReachTheForm)
{
    Shown shown(5);
    shown.click(Qt::LeftButton, 1, 1);
    EXPECT_EQ(shown.selection(), "2,1 to 2,1");
    shown.click(Qt::LeftButton, 2, 2, Qt::ShiftModifier);
    EXPECT_EQ(shown.selection(), "2,1 to 3,2");
    EXPECT_EQ(shown.selectedInView(), "1,1 1,2 2,1 2,2 ");
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* selection;
    } keys[] = {{Qt::Key_Down, Qt::ShiftModifier, "2,1 to 4,2"},
                {Qt::Key_Left, {}, "4,1 to 4,1"},
                {Qt::Key_A, Qt::ControlModifier, "1,0 to 5,2"}};
    for (const auto& row : keys) {
        QTest::keyClick(shown.view.get(), row.key, row.modifiers);
        EXPECT_EQ(shown.selection(), row.selection);
    }

    shown.grid.select(0, 0, 2, 1); // with the header
    EXPECT_EQ(shown.selectedInView(), "0,0 0,1 1,0 1,1 ");

    shown.told.clear();
    QHeaderView& header = *shown.view->horizontalHeader();
    const QPoint second(header.sectionViewportPosition(1) + 5, 5);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(shown.selection(), "1,1 to 5,1");
    QTest::mouseClick(header.viewport(), Qt::RightButton, {}, second);
    shown.click(Qt::RightButton, 3, 2);
    shown.click(Qt::LeftButton, 0, 0);
    QTest::keyClick(shown.view.get(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(shown.view.get(), Qt::Key_Down);
    EXPECT_EQ(shown.told, "1@0,1 2@0,1 2@4,2 1@1,0 86/2 40/0 ");
}

TEST(GridView, EachNotchIsAPageAndSmallTurnsAddUp)
{
    Shown shown(500);
    QScrollBar& bar = *shown.view->verticalScrollBar();
    const std::vector<std::pair<int, bool>> turns = {
        {-60, false}, {-60, true}, {-60, true}, {60, true}, {60, false}};
    for (const auto& [angle, isDown] : turns) { // a turn round starts anew
        turnWheel(*shown.view->viewport(), angle);
        EXPECT_EQ(shown.grid.topRow() > 1, isDown) << angle;
        EXPECT_EQ(bar.value(), static_cast<int>(shown.grid.topRow()) - 1);
    }
    turnWheel(*shown.view->horizontalHeader()->viewport(), -120); // as over the rows
    const int page = shown.view->viewport()->height() / shown.view->rowHeight(0);
    EXPECT_NEAR(bar.value(), page, 1);
    shown.grid.setTopRow(101);
    EXPECT_EQ(bar.value(), 100);
    bar.setValue(7);
    EXPECT_EQ(shown.grid.topRow(), 8U);
}

struct OpenedTable : tests::Program {
    MainWindow main{shell.workspace()};
    std::unique_ptr<ResultsWindow> window;
    bool closed = false;

    OpenedTable()
    {
        write("30", "600", "50", "2");
        form.Img_Calculate.click.raise();
        window =
            std::make_unique<ResultsWindow>(results(), shell.workspace(), main, [this] { closed = true; });
        results().show();
        QApplication::setActiveWindow(window.get());
    }
    output::Frm_Comfortics& results() { return *shell.results.get(); }
    GridView& table(const char* name) { return find<GridView>(*window, name); }
    QLineEdit& search() { return find<QLineEdit>(*window, "txt_Search"); }
};

TEST(ResultsWindow, SearchSortCopyExportAndPrint)
{
    OpenedTable opened;
    GridView& table = opened.table("Flex");
    GridView& found = opened.table("Flex_Search");
    Grid& grid = opened.results().Flex;
    QTest::keyClick(&table, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(opened.window->focusWidget(), &opened.search());
    QTest::keyClicks(&opened.search(), QStringLiteral("wind chill"));
    EXPECT_TRUE(found.isVisible() && !table.isVisible());
    EXPECT_EQ(found.model()->rowCount(), static_cast<int>(opened.results().Flex_Search.rows()) - 1);
    QTest::keyClick(opened.window.get(), Qt::Key_Escape);
    EXPECT_EQ(opened.results().txt_Search.text(), "");

    grid.select(134, 0, 134, 2);
    const std::string selected = grid.clip();
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(opened.clipboard.text(), selected);
    QTest::keyClick(&table, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(opened.files.asked.size(), 1U);
    QTest::keyClick(&table, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(opened.printing.shown, 1);

    std::size_t blank = 1;
    while (!grid.textMatrix(blank, 1).empty())
        ++blank;
    grid.select(blank, 0, blank, 0);
    EXPECT_TRUE(tests::says(*opened.window, toQt(grid.note(blank, 1))));
    QHeaderView& header = *table.horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      QPoint(header.sectionViewportPosition(2) + 10, 5));
    EXPECT_EQ(table.model()->index(0, 2).data().toString(), toQt(grid.textMatrix(1, 2)));
    EXPECT_EQ(tests::nameless(*opened.window), "");
    opened.window->close();
    EXPECT_TRUE(opened.closed);
}

// A job of three pages, printed to a file.
struct PdfJob {
    comfortics::tests::TemporaryFolder folder;
    std::string path = folder.write("table.pdf", "old");
    QPrinter printer;

    PdfJob()
    {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(toQt(path));
        PrinterSurface::prepare(printer);
    }
    std::string print()
    {
        PrinterSurface surface(printer);
        surface.print();
        for (int page = 1; page <= 3; ++page) {
            controls::PixelRect at{0, 0, 500, 50};
            surface.drawText("text", at, 0);
            if (page < 3)
                surface.newPage();
        }
        return surface.endDoc().error;
    }
    std::string written() const { return comfortics::tests::readFile(path); }
    qsizetype pages() const { return QByteArray::fromStdString(written()).count("/Type /Page\n"); }
};

TEST(PrinterSurface, PrintsWhatTheDialogsChoose)
{
    PdfJob job;
    EXPECT_EQ(job.print(), "");
    EXPECT_EQ(job.pages(), 3);
    job.printer.setPageRanges(QPageRanges::fromString(QStringLiteral("2-9")));
    job.printer.setCopyCount(3);
    EXPECT_EQ(job.print(), "");
    EXPECT_EQ(job.pages(), 6);
    job.printer.setPageRanges(QPageRanges::fromString(QStringLiteral("4")));
    const std::string before = job.written();
    EXPECT_EQ(job.print(), "None of the chosen pages is there: the last one is 3.");
    EXPECT_EQ(job.written(), before);
}

// The old file was lost, and nothing was said.
TEST(PrinterSurface, LeavesTheOldFileWhereTheDiskIsFull)
{
    PdfJob job;
    {
        const comfortics::tests::FullDisk full(100);
        EXPECT_EQ(job.print(), "The file " + job.path + " cannot be written: File too large.");
    }
    EXPECT_EQ(job.written(), "old");
    EXPECT_EQ(job.folder.names().size(), 1U) << "something is left behind";
}

TEST(Fonts, AreNarrowWhereAFormSaysSoAndShrinkToTheirRoom)
{
    const QString text = QStringLiteral("Universal Thermal Climate Index (Broede; 2009)");
    QPrinter printer;
    PrinterSurface::prepare(printer);
    const auto width = [&](const QFont& font) {
        return QFontMetricsF(font, &printer).horizontalAdvance(text);
    };
    const QFont narrow(screenFont({.name = "Arial Narrow", .size = 10}), &printer);
    EXPECT_LT(width(narrow), 0.85 * width(QFont(screenFont({.name = "Arial", .size = 10}), &printer)));
    EXPECT_EQ(fittingFont(narrow, text, width(narrow), printer), narrow);
    for (const double share : {0.999, 0.7, 0.2}) {
        const double room = share * width(narrow);
        const double fitting = width(fittingFont(narrow, text, room, printer));
        EXPECT_LE(fitting, room);
        EXPECT_GE(fitting, 0.9 * room);
    }
}

} // namespace
} // namespace comfortics::ui
