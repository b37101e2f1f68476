// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/print_job.h"

#include "values/run_failure.h"

namespace comfortics::output {

namespace {

constexpr float kMargin = 567;        // 1 cm
constexpr double kPageGrowth = 16840; // the height of a page on a picture surface
constexpr controls::Color kPageMark = 0x808080;

} // namespace

void printGrid(controls::Grid& grid, clsTablePrint& table, mdlTPHelper& helper, Printer& printer)
{
    printer.print();
    helper.ImportFlexGrid(table, grid, static_cast<float>(printer.pageWidth() - 2 * kMargin));
    table.MarginBottom = kMargin;
    table.MarginLeft = kMargin;
    table.MarginTop = kMargin;
    printer.setCurrentY(table.MarginTop);
    try {
        table.DrawTable(printer, table.MarginTop, 1);
    } catch (const values::RunFailure&) {
        printer.endDoc();
        throw;
    }
    printer.endDoc();
}

void startNextPage(const clsTablePrint& table, controls::DrawingSurface& surface, bool& topIsSet)
{
    if (auto* printer = dynamic_cast<Printer*>(&surface)) {
        printer->newPage();
        return;
    }
    surface.setCurrentY(surface.scaleHeight());
    surface.setHeight(surface.height() + kPageGrowth);
    surface.line(0, surface.currentY(), surface.scaleWidth(), surface.currentY(), kPageMark);
    surface.setCurrentY(surface.currentY() + table.MarginTop);
    topIsSet = true;
}

} // namespace comfortics::output
