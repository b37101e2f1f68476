// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/calendar.h"

namespace comfortics::radiation {

void MonthCalendar::setValue(Date date)
{
    if (date == m_value)
        return;
    m_value = date;
    change.raise();
}

void MonthCalendar::pick(Date date)
{
    setValue(date);
    click.raise();
}

int dayOfYear(Date date)
{
    using namespace std::chrono;
    const sys_days newYear = date.year() / January / 1;
    return static_cast<int>((sys_days(date) - newYear).count()) + 1;
}

void ChoiceList::choose(std::size_t row)
{
    for (std::size_t other = 0; other < count(); ++other)
        setSelected(other, other == row);
    setCurrentRow(row);
    click.raise();
}

} // namespace comfortics::radiation
