// SPDX-License-Identifier: GPL-3.0-or-later
//
// Printing a grid. Lengths are twips; 567 are 1 cm.
#pragma once

#include "controls/drawing_surface.h"
#include "controls/grid.h"
#include "output/table_print.h"
#include "output/tp_helper.h"

#include <functional>

namespace comfortics::output {

/// A surface made of pages. Its scale mode is twips at first.
class Printer : public controls::DrawingSurface {
public:
    /// Starts the job with no text. Fails (RunFailure) where the printer cannot be used.
    virtual void print() = 0;
    /// The page's width [twips].
    virtual double pageWidth() const = 0;
    virtual void newPage() = 0;
    virtual void endDoc() = 0;
};

/// Lets the user choose where to print, with a preview. Views answer with the system's dialog.
class PrintDialog {
public:
    virtual ~PrintDialog() = default;
    /// Calls `print` once for each time that the pages are wanted, be it for the preview or on
    /// paper, and not at all where the user cancels.
    virtual void show(const std::function<void(Printer&)>& print) = 0;
};

/// Prints a whole grid with 1 cm of margin on all sides. `table` raises its `NewPage` for each page
/// after the first; its owner answers with `startNextPage`. Fails (RunFailure) where the printer
/// cannot be used, or a page is too low for a row; the job has been ended then.
void printGrid(controls::Grid& grid, clsTablePrint& table, mdlTPHelper& helper, Printer& printer);

/// The answer to a page break: a printer gets a new page. Any other surface is a long picture: it
/// grows by a page and gets a grey line as a page mark, and topIsSet says that it stands below it.
void startNextPage(const clsTablePrint& table, controls::DrawingSurface& surface, bool& topIsSet);

} // namespace comfortics::output
