// SPDX-License-Identifier: GPL-3.0-or-later
//
// Two small controls that only this form has.
#pragma once

#include "controls/controls.h"
#include "controls/list_box.h"

#include <chrono>
#include <cstddef>

namespace comfortics::radiation {

using Date = std::chrono::year_month_day;

/// A month calendar with one date.
class MonthCalendar : public controls::Control {
public:
    Date value() const noexcept { return m_value; }
    /// Shows a date; no click.
    void setValue(Date date);
    /// The user picks a date. Picking the one that is shown is a click, too.
    void pick(Date date);

    controls::Event change; ///< the date changed; only views listen
    controls::Event click;

private:
    Date m_value{std::chrono::year(2000), std::chrono::January, std::chrono::day(1)};
};

/// Days from January 1 of the date's own year to the date, plus 1.
int dayOfYear(Date date);

/// A list of which one row is selected at a time.
class ChoiceList : public controls::ListBox {
public:
    /// The user clicks on a row.
    void choose(std::size_t row);

    controls::Event click;
};

} // namespace comfortics::radiation
