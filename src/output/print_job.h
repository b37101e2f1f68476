// SPDX-License-Identifier: GPL-3.0-or-later
//
// Printing a grid. Lengths are twips; 567 are 1 cm.
#pragma once

#include "controls/drawing_surface.h"
#include "controls/grid.h"
#include "output/table_print.h"
#include "output/tp_helper.h"
#include "output/whole_file.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::output {

/// The margins that a page is set up with [twips].
struct PageMargins {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// A surface made of pages. Its scale mode is twips at first.
class Printer : public controls::DrawingSurface {
public:
    /// Starts the job with no text.
    virtual void print() = 0;
    /// The page's width [twips].
    virtual double pageWidth() const = 0;
    virtual PageMargins margins() const { return {}; }
    virtual void newPage() = 0;
    /// Ends the job: what was drawn comes on paper or into the file, or the answer says why not. A job
    /// that is left without it leaves nothing.
    virtual WriteResult endDoc() = 0;
};

/// Which pages of a job come on paper, as print dialogs let users choose.
struct PageChoice {
    std::vector<std::pair<int, int>> ranges = {}; ///< first and last page, counted from 1; all where empty
    bool lastFirst = false;
    int copies = 1;
    bool collated = true; ///< copy after copy, else page after page
};

/// The pages of a job of so many in the order in which they come on paper.
std::vector<int> pagesOnPaper(const PageChoice& choice, int pages);

/// Lets the user choose where to print, with a preview. Views answer with the system's dialog.
class PrintDialog {
public:
    virtual ~PrintDialog() = default;
    /// What the next job is called, in the dialog's title and wherever jobs or files are listed.
    virtual void nameDocument(const std::string& /*name*/) {}
    /// Calls `print` once for each time that the pages are wanted, be it for the preview or on
    /// paper, and not at all where the user cancels. It tells whether that went well.
    virtual void show(const std::function<bool(Printer&)>& print) = 0;
};

/// Prints a whole grid with 1 cm of margin on all sides, or the page's own where it is larger. `table`
/// raises its `NewPage` for each page after the first; its owner answers with `startNextPage`. Fails
/// (RunFailure), with nothing on paper, where a page is too low for a row or too narrow; otherwise says
/// how the job ended.
WriteResult printGrid(controls::Grid& grid, clsTablePrint& table, mdlTPHelper& helper, Printer& printer);

/// The answer to a page break: a printer gets a new page. Any other surface is a long picture: it
/// grows by a page and gets a grey line as a page mark, and topIsSet says that it stands below it.
void startNextPage(const clsTablePrint& table, controls::DrawingSurface& surface, bool& topIsSet);

} // namespace comfortics::output
