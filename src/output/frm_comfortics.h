// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/categories.h"
#include "controls/controls.h"
#include "controls/dialogs.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "output/print_job.h"
#include "output/table_print.h"
#include "output/tp_helper.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::output {

/// The texts of one catalogue entry, as the store holds them.
struct ResultRow {
    std::string_view name;
    std::string_view value;
    std::string_view unit;
    std::string doubt{}; ///< which limit the value lies outside of; else empty
    /// Of the value: its published class; none where there is no scale or no value.
    std::optional<catalogue::Meaning> meaning{};
};

/// The results window: the table of all entries, and in its place, while something is searched for,
/// the table of those whose names match. Exactly one of the two is visible, and all commands act
/// on that one. The window computes nothing; all its cells are texts, also when sorted.
class Frm_Comfortics : public controls::Form {
public:
    /// The answers must outlive the form. It starts hidden.
    Frm_Comfortics(controls::Clipboard& clipboard, controls::Messages& messages, controls::FileDialogs& files,
                   PrintDialog& printing);

    static constexpr std::size_t kValueCol = 1;

    controls::Grid Flex{1, 3};
    controls::Grid Flex_Search{1, 3};
    controls::TextBox txt_Search;
    controls::Label lbl_sort_Info{"Click headers to sort Comfortics."};
    controls::Label lbl_Earlier;  ///< says that the table is of earlier readings; else empty
    controls::Label lbl_In_Force; ///< the rules that the table was calculated by, and the use of limits
    controls::Picture Image1;     ///< the search icon

    controls::MenuEntry Menu_Copy{"Menu"}; ///< the popup menu that holds the four below
    controls::MenuEntry Menu_Copy_Copy{"Copy All"};
    controls::MenuEntry Menu_Copy_Selection{"Copy Selection"};
    controls::MenuEntry Menu_Export{"Export (*.csv)"};
    controls::MenuEntry Menu_Print{"Print Table"};
    /// Asks the view to open `Menu_Copy` under the mouse.
    controls::Event popUpMenu_Copy;

    /// The printed table, refilled for each print.
    clsTablePrint cTP;

    /// Fills the table with the entries 1 to `count`, shows the window, and searches anew for
    /// whatever the search box holds.
    void showResults(std::size_t count, const std::function<ResultRow(std::size_t index)>& entry);

    /// Says in one sentence why the value of an entry is blank, for whoever hovers over it; asked
    /// for blank values only, in whichever row sorting and searching have brought them.
    void provideReasons(std::function<std::string(int index)> reason) { m_reason = std::move(reason); }

    /// Says in one line where an index was published: the notes of its name and unit, behind the name.
    void provideLiterature(std::function<std::string(int index)> literature)
    {
        m_literature = std::move(literature);
    }

    /// What there is to say of a row, for those who use no mouse: of its value, else its literature.
    std::string rowNote(const controls::Grid& grid, std::size_t row) const;

    /// The value of the row lies outside of its limits, which were ignored; its note says which.
    bool isDoubtful(const controls::Grid& grid, std::size_t row) const { return !doubt(grid, row).empty(); }

    /// What the value of the row means; none for a blank and where no scale is published.
    std::optional<catalogue::Meaning> meaning(const controls::Grid& grid, std::size_t row) const;

    /// The index of a row; 0 in one of none.
    static int indexOf(const controls::Grid& grid, std::size_t row);

    /// Sizes both grids [twips] and shares the width among their columns.
    void resizeGrids(int width, int height);

    controls::Grid& visibleGrid() { return Flex_Search.visible() ? Flex_Search : Flex; }

    /// The wheel over the point x, y [twips, as the grids' left and top]: scrolls each visible grid
    /// under it.
    void MouseWheel(int modifierKeys, int rotation, int x, int y);

private:
    void Form_Load();
    void gridMouseDown(controls::Grid& grid, bool& sortedUp, controls::MouseButton button);
    void txt_Search_Change();
    void Menu_Copy_Copy_Click();
    void Menu_Copy_Selection_Click();
    void Menu_Export_Click();
    void Menu_Print_Click();
    void cTP_NewPage(controls::DrawingSurface& surface, bool& topIsSet);
    static void shareWidth(controls::Grid& grid);
    std::string note(const controls::Grid& grid, std::size_t row, std::size_t col) const;
    std::string_view doubt(const controls::Grid& grid, std::size_t row) const;
    std::string meaningNoteOf(const controls::Grid& grid, std::size_t row) const;
    std::string literature(const controls::Grid& grid, std::size_t row) const;

    controls::Clipboard& m_clipboard;
    controls::Messages& m_messages;
    controls::FileDialogs& m_files;
    PrintDialog& m_printing;
    mdlTPHelper m_helper;
    std::function<std::string(int)> m_reason;
    std::function<std::string(int)> m_literature;
    std::vector<std::string> m_doubts; // by index, from 1
    std::vector<std::optional<catalogue::Meaning>> m_meanings;
    // Whether the next click on a header sorts downwards: one flag for each grid, not for each
    // column.
    bool m_flexSortedUp = false;
    bool m_flexSearchSortedUp = false;
};

} // namespace comfortics::output
