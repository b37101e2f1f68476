// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_program.h"

#include "ui/grid_model.h"
#include "ui/grid_view.h"
#include "ui/main_window.h"
#include "ui/printer_surface.h"
#include "ui/results_window.h"
#include "ui/text.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPrinter>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <memory>
#include <string>

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

    explicit Shown(std::size_t rows, std::size_t cols = 3) : grid(rows + 1, cols)
    {
        for (std::size_t row = 1; row <= rows; ++row)
            grid.setTextMatrix(row, 0, std::to_string(row));
        grid.setTextMatrix(0, 1, "Value");
        view = std::make_unique<GridView>(grid);
        view->resize(400, 300);
        view->show();
    }
    QPoint middleOf(int row, int col) const
    {
        return view->visualRect(view->model()->index(row, col)).center();
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
    EXPECT_EQ(shown.view->model()->rowCount(), 3);
    EXPECT_EQ(shown.view->model()->headerData(1, Qt::Horizontal), QStringLiteral("Value"));
    EXPECT_EQ(shown.view->model()->index(2, 0).data(), QStringLiteral("3"));
    shown.grid.setTextMatrix(3, 0, "°C");
    EXPECT_EQ(shown.view->model()->index(2, 0).data(), QStringLiteral("°C"));
    shown.grid.setRows(6);
    shown.grid.setCols(5);
    EXPECT_EQ(shown.view->model()->rowCount(), 5);
    EXPECT_EQ(shown.view->model()->columnCount(), 5);
    shown.grid.setRows(1);
    EXPECT_EQ(shown.view->model()->rowCount(), 0);
}

TEST(GridView, MouseAndKeysMoveTheGridsOwnSelection)
{
    Shown shown(5);
    QTest::mouseClick(shown.view->viewport(), Qt::LeftButton, {}, shown.middleOf(1, 1));
    EXPECT_EQ(shown.selection(), "2,1 to 2,1");
    QTest::mouseClick(shown.view->viewport(), Qt::LeftButton, Qt::ShiftModifier, shown.middleOf(2, 2));
    EXPECT_EQ(shown.selection(), "2,1 to 3,2");
    EXPECT_EQ(shown.selectedInView(), "1,1 1,2 2,1 2,2 ");
    QTest::keyClick(shown.view.get(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(shown.selection(), "2,1 to 4,2");
    QTest::keyClick(shown.view.get(), Qt::Key_Left);
    EXPECT_EQ(shown.selection(), "4,1 to 4,1");
    QTest::keyClick(shown.view.get(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(shown.selection(), "1,0 to 5,2");

    QTest::mousePress(shown.view->viewport(), Qt::LeftButton, {}, shown.middleOf(0, 0));
    QMouseEvent drag(QEvent::MouseMove, QPointF(shown.middleOf(2, 1)),
                     shown.view->viewport()->mapToGlobal(QPointF(shown.middleOf(2, 1))), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(shown.view->viewport(), &drag);
    EXPECT_EQ(shown.selection(), "1,0 to 3,1");
}

TEST(GridView, WritesOfTheFormMoveTheViewsSelection)
{
    Shown shown(5);
    shown.grid.select(0, 0, 2, 1); // with the header
    EXPECT_EQ(shown.selectedInView(), "0,0 0,1 1,0 1,1 ");
    shown.grid.select(0, 0, 0, 2);
    EXPECT_EQ(shown.selectedInView(), "");
}

TEST(GridView, ButtonsReachTheFormOnHeaderAndBody)
{
    Shown shown(5);
    std::string told;
    shown.grid.onMouseDown([&](controls::MouseButton button) {
        told += std::to_string(static_cast<int>(button)) + "@" + std::to_string(shown.grid.mouseRow()) + "," +
                std::to_string(shown.grid.mouseCol()) + " ";
    });
    QHeaderView& header = *shown.view->horizontalHeader();
    const QPoint second(header.sectionViewportPosition(1) + 5, 5);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(shown.selection(), "1,1 to 5,1");
    QTest::mouseClick(header.viewport(), Qt::RightButton, {}, second);
    QTest::mouseClick(shown.view->viewport(), Qt::RightButton, {}, shown.middleOf(3, 2));
    QTest::mouseClick(shown.view->viewport(), Qt::LeftButton, {}, shown.middleOf(0, 0));
    EXPECT_EQ(told, "1@0,1 2@0,1 2@4,2 1@1,0 ");
}

TEST(GridView, KeysReachTheForm)
{
    Shown shown(5);
    std::string told;
    shown.grid.onKeyDown([&told](controls::KeyPress press) {
        told += std::to_string(static_cast<int>(press.key)) + "/" + std::to_string(press.shift) + " ";
    });
    QTest::keyClick(shown.view.get(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(shown.view.get(), Qt::Key_Down);
    EXPECT_EQ(told, "86/2 40/0 ");
}

TEST(GridView, EachNotchIsAPageAndSmallTurnsAddUp)
{
    Shown shown(500);
    ASSERT_EQ(shown.grid.topRow(), 1U);
    turnWheel(*shown.view->viewport(), -60);
    EXPECT_EQ(shown.grid.topRow(), 1U);
    turnWheel(*shown.view->viewport(), -60);
    const std::size_t page = shown.grid.topRow() - 1;
    // The rows that the view really shows whole.
    const QRect inside = shown.view->viewport()->rect();
    int whole = 0;
    shown.view->verticalScrollBar()->setValue(0);
    while (
        inside.contains(shown.view->visualRect(shown.view->model()->index(whole, 2)).adjusted(0, 0, -1, 0)))
        ++whole;
    EXPECT_NEAR(static_cast<double>(page), whole, 1);
    EXPECT_GT(page, 5U);

    shown.grid.setTopRow(1);
    turnWheel(*shown.view->viewport(), -120);
    EXPECT_EQ(shown.view->verticalScrollBar()->value(), static_cast<int>(shown.grid.topRow()) - 1);
    turnWheel(*shown.view->viewport(), -60);
    turnWheel(*shown.view->viewport(), 60); // turned round: starts anew
    turnWheel(*shown.view->viewport(), 60);
    EXPECT_EQ(shown.grid.topRow(), 1U);
    for (int notch = 0; notch < 200; ++notch)
        turnWheel(*shown.view->viewport(), -120);
    const int last = shown.view->verticalScrollBar()->maximum();
    EXPECT_NEAR(shown.view->verticalScrollBar()->value(), last, 1);
}

TEST(GridView, TheScrollBarMovesTheGridsTopRow)
{
    Shown shown(500);
    shown.view->verticalScrollBar()->setValue(100);
    EXPECT_EQ(shown.grid.topRow(), 101U);
    shown.grid.setTopRow(31);
    EXPECT_EQ(shown.view->verticalScrollBar()->value(), 30);
}

TEST(GridView, TheLastOfAMillionRowsCanBeReached)
{
    Shown shown(1000000, 2);
    QTest::keyClick(shown.view.get(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(shown.grid.row(), 1000000U);
    const QRect last = shown.view->visualRect(shown.view->model()->index(999999, 0));
    EXPECT_GT(last.top(), 0);
    EXPECT_LT(last.bottom(), shown.view->viewport()->height());
    EXPECT_GT(shown.grid.topRow(), 999900U);
}

struct OpenedResults : tests::Program {
    MainWindow main{form};
    std::unique_ptr<ResultsWindow> window;
    bool closed = false;

    OpenedResults()
    {
        write("30", "600", "50", "2");
        form.Img_Calculate.click.raise();
        window = std::make_unique<ResultsWindow>(results(), main, [this] { closed = true; });
        results().show();
        QApplication::setActiveWindow(window.get());
    }
    output::Frm_Comfortics& results() { return *shell.results.get(); }
    GridView& table(const char* name) { return find<GridView>(*window, name); }
    QLineEdit& search() { return find<QLineEdit>(*window, "txt_Search"); }
};

TEST(ResultsWindow, OneOfTheTwoTablesShows)
{
    OpenedResults opened;
    EXPECT_TRUE(opened.table("Flex").isVisible());
    EXPECT_FALSE(opened.table("Flex_Search").isVisible());
    QTest::keyClicks(&opened.search(), QStringLiteral("wind chill"));
    EXPECT_FALSE(opened.table("Flex").isVisible());
    EXPECT_TRUE(opened.table("Flex_Search").isVisible());
    EXPECT_EQ(opened.table("Flex_Search").model()->rowCount(),
              static_cast<int>(opened.results().Flex_Search.rows()) - 1);
    EXPECT_GT(opened.table("Flex_Search").model()->rowCount(), 3);
    QTest::keyClick(opened.window.get(), Qt::Key_Escape);
    EXPECT_EQ(opened.results().txt_Search.text(), "");
    EXPECT_TRUE(opened.table("Flex").isVisible());
}

TEST(ResultsWindow, AHeaderClickSorts)
{
    OpenedResults opened;
    QHeaderView& header = *opened.table("Flex").horizontalHeader();
    const QPoint unit(header.sectionViewportPosition(2) + 10, 5);
    const auto firstUnit = [&opened] { return opened.table("Flex").model()->index(0, 2).data().toString(); };
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, unit);
    EXPECT_EQ(firstUnit(), toQt(opened.results().Flex.textMatrix(1, 2)));
    const QString lowest = firstUnit();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, unit);
    EXPECT_NE(firstUnit(), lowest);
}

TEST(ResultsWindow, KeysCopyExportPrintAndSearch)
{
    OpenedResults opened;
    GridView& table = opened.table("Flex");
    table.setFocus();
    opened.results().Flex.select(134, 0, 134, 2);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(opened.clipboard.kept, opened.results().Flex.clip());
    EXPECT_NE(opened.clipboard.kept.find("\t50.0\t"), std::string::npos);
    QTest::keyClick(&table, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(opened.files.asked, 1);
    QTest::keyClick(&table, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(opened.printing.shown, 1);
    QTest::keyClick(&table, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(opened.window->focusWidget(), &opened.search());
}

TEST(ResultsWindow, ColumnsShareTheWidthOfTheWindow)
{
    OpenedResults opened;
    const GridView& table = opened.table("Flex");
    for (const int width : {600, 1100}) {
        opened.window->resize(width, 500);
        const double eighth = table.viewport()->width() / 8.0;
        EXPECT_NEAR(table.columnWidth(0), eighth * 5, 2);
        EXPECT_NEAR(table.columnWidth(1), eighth, 2);
        EXPECT_NEAR(table.columnWidth(2), eighth * 2, 2);
    }
}

TEST(ResultsWindow, ClosingUnloadsTheForm)
{
    OpenedResults opened;
    opened.window->close();
    EXPECT_TRUE(opened.closed);
}

// A4 is 210 by 297 mm, 1440 twips or 2540 hundredths of a millimetre are an inch. Paper is measured
// in whole points, which are 20 twips.
TEST(PrinterSurface, MeasuresThePaperFromItsCorner)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageSize(QPageSize(QPageSize::A4));
    PrinterSurface::prepare(printer);
    PrinterSurface surface(printer);
    EXPECT_NEAR(surface.pageWidth(), 210 / 25.4 * 1440, 20);
    EXPECT_NEAR(surface.scaleHeight(), 297 / 25.4 * 1440, 20);
    surface.setScaleMode(controls::ScaleMode::HiMetric);
    EXPECT_NEAR(surface.scaleWidth(), 21000, 36);
    surface.setScaleMode(controls::ScaleMode::Twips);

    surface.setFont(std::make_shared<const controls::Font>(controls::Font{.name = "Arial", .size = 20}));
    const double line = surface.textHeight("Wind");
    EXPECT_GT(line, 20 * 20 * 0.9); // twenty twips are a point
    EXPECT_LT(line, 20 * 20 * 1.8);
    EXPECT_NEAR(surface.textHeight("Wind\r\nchill"), 2 * line, 1);
    EXPECT_NEAR(surface.textHeight(""), line, 1);

    controls::PixelRect rectangle{10, 20, 11, 21};
    const int height = surface.drawText("Wind", rectangle, controls::DT_CALCRECT);
    EXPECT_EQ(rectangle.left, 10);
    EXPECT_EQ(rectangle.bottom, 20 + height);
    controls::PixelRect wider = rectangle;
    surface.drawText("Wind chill", wider, controls::DT_CALCRECT);
    EXPECT_GT(wider.right, rectangle.right);
}

} // namespace
} // namespace comfortics::ui
