// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/print_job.h"

#include "values/run_failure.h"

#include <algorithm>

namespace comfortics::output {

namespace {

constexpr float kMargin = 567;        // 1 cm
constexpr double kPageGrowth = 16840; // the height of a page on a picture surface
constexpr controls::Color kPageMark = 0x808080;

} // namespace

std::vector<int> pagesOnPaper(const PageChoice& choice, int pages)
{
    const auto chosen = [&](int page) {
        return choice.ranges.empty() ||
               std::any_of(choice.ranges.begin(), choice.ranges.end(),
                           [page](const auto& range) { return range.first <= page && page <= range.second; });
    };
    std::vector<int> once;
    for (int page = 1; page <= pages; ++page)
        if (chosen(page))
            once.push_back(page);
    if (choice.lastFirst)
        std::reverse(once.begin(), once.end());
    std::vector<int> all;
    for (int copy = 0; copy < choice.copies; ++copy)
        all.insert(all.end(), once.begin(), once.end());
    if (!choice.collated)
        std::stable_sort(all.begin(), all.end(),
                         [&](int a, int b) { return choice.lastFirst ? a > b : a < b; });
    return all;
}

WriteResult printGrid(controls::Grid& grid, clsTablePrint& table, mdlTPHelper& helper, Printer& printer)
{
    const PageMargins own = printer.margins();
    const auto margin = [](double size) { return std::max(kMargin, static_cast<float>(size)); };
    const float width = static_cast<float>(printer.pageWidth()) - margin(own.left) - margin(own.right);
    if (width <= 0)
        throw values::RunFailure("the margins of the page leave no room");
    printer.print();
    helper.ImportFlexGrid(table, grid, width);
    table.MarginBottom = margin(own.bottom);
    if (table.MarginBottom > kMargin) // a page holds one row more than fits above it
        table.MarginBottom += static_cast<float>(table.BodyRowHeight(printer));
    table.MarginLeft = margin(own.left);
    table.MarginTop = margin(own.top);
    printer.setCurrentY(table.MarginTop);
    table.DrawTable(printer, table.MarginTop, 1);
    return printer.endDoc();
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
