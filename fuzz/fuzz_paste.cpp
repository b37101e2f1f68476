// SPDX-License-Identifier: GPL-3.0-or-later
//
// Pasting any text into the batch sheet, running a few rows, and copying out.
#include "check.h"
#include "desk.h"
#include "input.h"

#include "batch/frm_raw_data.h"
#include "catalogue/categories.h"
#include "output/csv_writer.h"
#include "output/frm_comfortics.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::fuzz {
namespace {

using classic::kReadingCount;
using controls::Grid;

using Rows = std::vector<std::vector<std::string>>;

struct NoPrinting final : output::PrintDialog {
    void show(const std::function<bool(output::Printer&)>&) override {}
};

struct TextSink final : output::ByteSink {
    std::string text;
    bool write(std::string_view bytes) override
    {
        text += bytes;
        return true;
    }
};

struct Sheet {
    KeptMessages messages;
    batch::MessageGate gate{messages};
    NoWindows windows;
    classic::Frm_Main main{projectLimits(), gate, windows};
    HeldClipboard clipboard;
    NoFiles files;
    NoPrinting printing;
    output::Frm_Comfortics table{clipboard, messages, files, printing};
    batch::Frm_Raw_Data form{main, projectLimits(), {gate, clipboard, files}, 1};

    Sheet() { form.open(table); }

    void paste(std::string_view text)
    {
        clipboard.held = text;
        form.Flex_Data.press({controls::Key::V, 2});
    }
    std::string copyData()
    {
        Grid& grid = form.Flex_Data;
        grid.select(grid.fixedRows(), 0, grid.rows() - 1, grid.cols() - 1);
        return grid.clip();
    }
};

// Rows end at CR LF, CR or LF, what stands behind the last end is lost; cells end at a tab, and only
// six of them count.
Rows pastedRows(std::string_view text)
{
    Rows rows;
    std::vector<std::string> cells(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\n' && i > 0 && text[i - 1] == '\r')
            continue;
        if (c == '\r' || c == '\n') {
            cells.resize(kReadingCount);
            rows.push_back(cells);
            cells.assign(1, "");
        } else if (c == '\t') {
            cells.emplace_back();
        } else {
            cells.back() += c;
        }
    }
    return rows;
}

void requireRows(const Grid& grid, const Rows& rows, const char* what)
{
    require(grid.rows() == rows.size() + grid.fixedRows() && grid.cols() == kReadingCount, what,
            std::to_string(grid.rows() - grid.fixedRows()), std::to_string(rows.size()));
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t col = 0; col < kReadingCount; ++col)
            requireEqual(grid.textMatrix(grid.fixedRows() + row, col), rows[row][col], what);
}

// The sheet's run against rows written one by one into the boxes of a main window.
void requireRun(Sheet& sheet, const Rows& rows)
{
    KeptMessages messages;
    NoWindows windows;
    classic::Frm_Main main(projectLimits(), messages, windows);
    main.Opt_Rules.select(sheet.main.Opt_Rules.selected());
    sheet.form.cmd_Calculate.setValue(true);
    const Grid& results = sheet.form.Flex_Results;
    for (std::size_t row = 1; row <= rows.size(); ++row) {
        for (std::size_t col = 0; col < kReadingCount; ++col)
            main.calculation.readings.box(static_cast<classic::Reading>(col)).setText(rows[row - 1][col]);
        const bool complete = main.calculation.readings.complete();
        require((sheet.form.rowState(row) == batch::RowState::Skipped) != complete,
                "rows that are calculated");
        if (!complete)
            continue;
        main.cmd_Calculate.setValue(true);
        for (std::size_t index = 1; index <= catalogue::kIndexCount; ++index)
            requireEqual(results.textMatrix(row, index - 1), main.results.lbl_results[index].caption(),
                         "a row of the sheet and the same in the main window");
        for (const int index : {1, 90, 195, catalogue::kLastIndex}) {
            const std::size_t col = static_cast<std::size_t>(index) - 1;
            const std::string note = results.note(row, col);
            if (results.textMatrix(row, col).empty()) {
                require(!note.empty(), "a blank figure has a reason", note);
                continue;
            }
            const auto meaning = main.calculation.meaning(index);
            requireEqual(note, meaning ? catalogue::meaningNote(index, *meaning) : std::string(),
                         "the note of a figure is what it means in the main window");
        }
    }
    for (std::size_t i = 0; i < kReadingCount; ++i)
        requireEqual(sheet.main.calculation.readings.text(static_cast<classic::Reading>(i)),
                     main.calculation.readings.text(static_cast<classic::Reading>(i)),
                     "what the last row leaves in the boxes");

    sheet.form.Menu_copy_copy.click.raise();
    const std::string& copied = sheet.clipboard.held;
    require(static_cast<std::size_t>(std::count(copied.begin(), copied.end(), '\r')) == results.rows() - 1,
            "the copied results have all rows");
    require(static_cast<std::size_t>(std::count(copied.begin(), copied.end(), '\t')) ==
                results.rows() * (results.cols() - 1),
            "the copied results have all columns");
}

void check(unsigned settings, std::string_view text)
{
    static Sheet kept;
    if (text.empty())
        return; // an empty clipboard leaves the sheet as it is
    const Rows rows = pastedRows(text);
    kept.paste(text);
    requireRows(kept.form.Flex_Data, rows, "the pasted rows");
    if (rows.empty())
        return;

    const std::string copied = kept.copyData();
    kept.paste(copied + "\r");
    requireRows(kept.form.Flex_Data, rows, "rows copied and pasted again");
    requireEqual(kept.copyData(), copied, "rows copied twice");

    TextSink sink;
    require(output::writeCsv(kept.form.Flex_Data, output::CsvForm::Terminated, sink), "the table is written");
    require(static_cast<std::size_t>(std::count(sink.text.begin(), sink.text.end(), '\n')) ==
                kept.form.Flex_Data.rows(),
            "a line for each row");

    constexpr std::size_t kMostRows = 4;
    if (settings % 2 == 1 && rows.size() <= kMostRows) {
        Sheet sheet;
        sheet.main.Opt_Rules.select(std::min(settings / 2 % 4, 2U));
        sheet.paste(text);
        requireRun(sheet, rows);
    }
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a letter for the settings (bit 0: run the rows, bits 1 and 2: the rules), then the
/// text of the clipboard.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    comfortics::fuzz::Input input(data, size);
    const unsigned settings = input.byte();
    comfortics::fuzz::check(settings, input.rest());
    return 0;
}
