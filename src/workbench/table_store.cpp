// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/table_store.h"

#include "workbench/store_texts.h"

#include <algorithm>
#include <span>

namespace comfortics::workbench {

std::optional<std::size_t> TableStore::againPlace(std::size_t row) const
{
    const auto found = std::lower_bound(m_againRows.begin(), m_againRows.end(), row);
    if (found == m_againRows.end() || *found != row)
        return std::nullopt;
    return static_cast<std::size_t>(found - m_againRows.begin());
}

std::optional<tables::Moment> TableStore::time(std::size_t row) const
{
    const std::int64_t seconds = m_data->seconds[row];
    if (seconds == kNoTime)
        return std::nullopt;
    tables::Moment moment{seconds, {}};
    if (const std::int16_t offset = m_data->offsets[row]; offset != kNoOffset)
        moment.offset = offset;
    return moment;
}

RowState TableStore::state(std::size_t row) const
{
    const auto place = againPlace(row);
    return place ? m_again->state(*place) : m_data->states[row];
}

std::string TableStore::status(std::size_t row) const
{
    if (const auto place = againPlace(row))
        return m_again->status(*place);
    return m_data->states[row] == RowState::Calculated ? std::string(kOk)
                                                       : cellsOf(m_data->texts.record(row)).back();
}

std::vector<std::string> TableStore::carried(std::size_t row) const
{
    std::vector<std::string> cells = cellsOf(m_data->texts.record(row));
    cells.resize(m_data->facts.carried.size()); // without the status
    return cells;
}

std::optional<double> TableStore::reading(std::size_t row, classic::Reading reading) const
{
    return m_data->readings[static_cast<std::size_t>(reading)].number(row);
}

std::string TableStore::readingText(std::size_t row, classic::Reading reading) const
{
    return m_data->readings[static_cast<std::size_t>(reading)].text(row);
}

std::optional<double> TableStore::figure(std::size_t row, std::size_t column) const
{
    const auto place = againPlace(row);
    return place ? m_again->figure(*place, column) : m_data->figures[column].number(row);
}

std::string TableStore::figureText(std::size_t row, std::size_t column) const
{
    const auto place = againPlace(row);
    return place ? m_again->figureText(*place, column) : m_data->figures[column].text(row);
}

classic::OutcomeKind TableStore::outcome(std::size_t row, std::size_t column) const
{
    const auto place = againPlace(row);
    return place ? m_again->outcome(*place, column) : m_data->figures[column].outcome(row);
}

std::optional<catalogue::Meaning> TableStore::meaning(std::size_t row, std::size_t column) const
{
    if (const auto place = againPlace(row))
        return m_again->meaning(*place, column);
    const auto mark = m_data->figures[column].mark(row);
    if (!mark)
        return std::nullopt;
    const catalogue::Category& category = catalogue::scale(m_data->indices[column]).categories[mark->place];
    return catalogue::Meaning{&category, mark->turned ? -category.severity : category.severity};
}

std::string TableStore::whyBlank(std::size_t row, std::size_t column) const
{
    if (const auto place = againPlace(row))
        return m_again->whyBlank(*place, column);
    if (m_data->states[row] != RowState::Calculated)
        return status(row);
    if (outcome(row, column) == classic::OutcomeKind::Value)
        return {};
    std::string why;
    calculate(row, *makeCalculator(), [&](batch::RowFigures& figures) { why = figures.whyBlank(column); });
    return why;
}

std::string TableStore::whyBlank(std::size_t row, Calculators& calculators) const
{
    if (const auto place = againPlace(row)) {
        if (!calculators.again)
            calculators.again = m_again->makeCalculator();
        Calculators own{std::move(calculators.again), nullptr};
        std::string why = m_again->whyBlank(*place, own);
        calculators.again = std::move(own.first);
        return why;
    }
    if (!calculators.first)
        calculators.first = makeCalculator();
    std::string text;
    calculate(row, *calculators.first, [&](batch::RowFigures& figures) {
        for (std::size_t column = 0; column < m_data->indices.size(); ++column)
            if (outcome(row, column) != classic::OutcomeKind::Value)
                text += (text.empty() ? "" : " ") + std::to_string(m_data->indices[column]) + ": " +
                        figures.whyBlank(column);
    });
    return text;
}

std::unique_ptr<batch::RowCalculator> TableStore::makeCalculator() const
{
    const tables::RunOptions& options = m_data->facts.options;
    return batch::makeRowCalculator(*m_data->limits, options.settings, options.assumptions,
                                    {.indices = m_data->indices, .live = false, .meanings = false});
}

void TableStore::calculate(std::size_t row, batch::RowCalculator& calculator,
                           const std::function<void(batch::RowFigures&)>& show) const
{
    std::array<std::string, classic::kReadingCount> texts;
    batch::RowCalculator::Readings readings;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        texts[i] = m_data->readings[i].text(row);
        readings[i] = texts[i];
    }
    calculator.calculate(std::span(&readings, 1), [&show](std::size_t, batch::RowFigures& figures) {
        show(figures);
        return true;
    });
}

classic::Rules TableStore::rules(std::size_t row) const
{
    return (again(row) ? *m_again : *this).m_data->facts.options.settings.rules;
}

std::shared_ptr<const TableStore> TableStore::with(std::vector<std::uint32_t> rows,
                                                   std::shared_ptr<const TableStore> again) const
{
    std::shared_ptr<TableStore> all(new TableStore(m_data));
    all->m_againRows = std::move(rows);
    all->m_again = std::move(again);
    return all;
}

std::size_t TableStore::Data::bytes() const
{
    std::size_t all = lines.bytes() + seconds.bytes() + offsets.bytes() + stationNumbers.bytes() +
                      states.bytes() + texts.bytes();
    for (const NumberColumn& column : readings)
        all += column.bytes();
    for (const NumberColumn& column : figures)
        all += column.bytes();
    return all;
}

std::size_t TableStore::bytes() const
{
    return m_data->bytes() + m_againRows.capacity() * sizeof m_againRows[0] +
           (m_again ? m_again->bytes() : 0);
}

std::size_t TableStore::expectedBytes(std::size_t rows, std::size_t indices)
{
    // Line, time, offset, station, state, place of the texts.
    constexpr std::size_t kRest = 4 + 8 + 2 + 4 + 1 + 8;
    return rows * (kRest + 4 * (classic::kReadingCount + indices));
}

} // namespace comfortics::workbench
