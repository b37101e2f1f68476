// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/list_box.h"

namespace comfortics::controls {

void ListBox::addItem(std::string text)
{
    m_rows.push_back({std::move(text), false});
    change.raise();
}

void ListBox::setSelected(std::size_t row, bool selected)
{
    Row& target = m_rows.at(row);
    if (target.selected == selected)
        return;
    target.selected = selected;
    change.raise();
}

void ListBox::selectAll(bool selected)
{
    for (Row& row : m_rows)
        row.selected = selected;
    change.raise();
}

void ListBox::setCurrentRow(std::size_t row)
{
    if (m_currentRow != row) {
        m_currentRow = row;
        current.raise();
    }
    sight.raise();
}

} // namespace comfortics::controls
