// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::controls {

/// A list whose rows can be selected, several at a time.
class ListBox : public Control {
public:
    void addItem(std::string text);
    std::size_t count() const noexcept { return m_rows.size(); }
    const std::string& item(std::size_t row) const { return m_rows.at(row).text; }

    bool selected(std::size_t row) const { return m_rows.at(row).selected; }
    void setSelected(std::size_t row, bool selected);
    /// One change event for all rows, so that a view repaints once.
    void selectAll(bool selected);

    /// The row that the keyboard stands on and the view keeps in sight. Nothing at start.
    std::optional<std::size_t> currentRow() const noexcept { return m_currentRow; }
    void setCurrentRow(std::size_t row);

    /// What there is to say of a row, for whoever hovers over it; empty where nothing is.
    std::string note(std::size_t row) const { return m_notes ? m_notes(row) : std::string(); }
    void provideNotes(std::function<std::string(std::size_t row)> provider) { m_notes = std::move(provider); }

    Event change;  ///< rows or selection changed
    Event current; ///< the current row moved
    Event sight;   ///< a row was made current, perhaps anew: a view scrolls to it

private:
    struct Row {
        std::string text;
        bool selected = false;
    };
    std::vector<Row> m_rows;
    std::function<std::string(std::size_t)> m_notes;
    std::optional<std::size_t> m_currentRow;
};

} // namespace comfortics::controls
