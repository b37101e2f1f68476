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

std::string TableStore::numberText(std::size_t row, std::size_t column) const
{
    const auto place = againPlace(row);
    return place ? m_again->numberText(*place, column) : m_data->figures[column].text(row);
}

std::string TableStore::figureText(std::size_t row, std::size_t column) const
{
    if (const auto place = againPlace(row))
        return m_again->figureText(*place, column);
    const NumberColumn& figures = m_data->figures[column];
    if (const workspace::Item& item = m_data->items[column]; item.isWord()) {
        const auto number = figures.number(row);
        return number ? catalogue::resultText(item.model()->results[item.result()], *number) : std::string();
    }
    const auto mark = isIndex(column) ? std::nullopt : figures.mark(row);
    return mark && mark->place == kNotReached ? "not reached in " + figures.text(row) : figures.text(row);
}

classic::OutcomeKind TableStore::outcome(std::size_t row, std::size_t column) const
{
    const auto place = againPlace(row);
    return place ? m_again->outcome(*place, column) : m_data->figures[column].outcome(row);
}

std::optional<NumberColumn::ClassMark> TableStore::mark(std::size_t row, std::size_t column) const
{
    const auto place = againPlace(row);
    return place ? m_again->mark(*place, column) : m_data->figures[column].mark(row);
}

std::optional<catalogue::Meaning> TableStore::meaning(std::size_t row, std::size_t column) const
{
    const auto found = mark(row, column);
    const auto categories = m_data->items[column].scale().categories;
    if (!found || found->place >= categories.size())
        return std::nullopt;
    const catalogue::Category& category = categories[found->place];
    return catalogue::Meaning{&category, found->turned ? -category.severity : category.severity};
}

std::optional<std::size_t> TableStore::classOf(std::size_t row, std::size_t column) const
{
    const workspace::Item& item = m_data->items[column];
    if (!item.isWord()) {
        const auto found = meaning(row, column);
        return found
                   ? std::optional(static_cast<std::size_t>(found->category - item.scale().categories.data()))
                   : std::nullopt;
    }
    const auto words = item.model()->results[item.result()].choices;
    const auto number = figure(row, column);
    const catalogue::Choice* const word = number ? catalogue::choiceWith(words, *number) : nullptr;
    return word != nullptr ? std::optional(static_cast<std::size_t>(word - words.data())) : std::nullopt;
}

bool TableStore::isMarked(std::size_t row, std::size_t column) const
{
    const auto found = isIndex(column) ? std::nullopt : mark(row, column);
    return found && (found->place == kMarked || (found->place == kNotReached && found->turned));
}

std::string TableStore::whyBlank(std::size_t row, std::size_t column) const
{
    if (const auto place = againPlace(row))
        return m_again->whyBlank(*place, column);
    if (m_data->states[row] != RowState::Calculated)
        return status(row);
    if (outcome(row, column) == classic::OutcomeKind::Value && !isMarked(row, column))
        return {};
    std::string why;
    calculate(row, *makeCalculator(), [&](batch::RowFigures& figures) {
        why = isIndex(column) ? figures.whyBlank(column)
                              : modelReasons(row, figures)[column - m_data->indices.size()];
    });
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
    std::vector<std::pair<std::string, std::string>> told; // what several say for one reason stands once
    const auto tell = [&told](const std::string& what, const std::string& why) {
        if (!told.empty() && told.back().second == why)
            told.back().first += ", " + what;
        else
            told.emplace_back(what, why);
    };
    calculate(row, *calculators.first, [&](batch::RowFigures& figures) {
        for (std::size_t column = 0; column < m_data->indices.size(); ++column)
            if (outcome(row, column) != classic::OutcomeKind::Value)
                told.emplace_back(std::to_string(m_data->indices[column]), figures.whyBlank(column));
        const std::vector<std::string> ofModels = modelReasons(row, figures);
        for (std::size_t i = 0; i < ofModels.size(); ++i)
            if (!ofModels[i].empty())
                tell(m_data->items[m_data->indices.size() + i].id(), ofModels[i]);
    });
    std::string text;
    for (const auto& [what, why] : told) {
        if (!text.empty())
            text += ' ';
        text.append(what).append(": ").append(why);
    }
    return text;
}

// Of each figure of a model that is shown why it is blank or marked; empty where all is well.
std::vector<std::string> TableStore::modelReasons(std::size_t row, batch::RowFigures& figures) const
{
    std::vector<std::string> reasons(m_data->facts.figures.size());
    if (!m_data->models)
        return reasons;
    const std::vector<std::string> carried = this->carried(row);
    tables::Row cells;
    cells.cells.resize(m_data->facts.layout.names.size());
    for (std::size_t i = 0; i < carried.size(); ++i)
        cells.cells.at(m_data->mapper->carried()[i]) = carried[i];
    const auto time = this->time(row);
    m_data->models->calculate(
        {[&](std::size_t column, const catalogue::InputInfo& input) {
             return m_data->mapper->inputText(column, input, cells, {});
         },
         [&figures](formulas::Live quantity) { return std::string(figures.live(quantity)); },
         time ? std::optional(tables::rowClock(*time)) : std::nullopt},
        [&](const batch::ModelFigures& made) {
            for (std::size_t i = 0; i < reasons.size(); ++i)
                if (const catalogue::Figure& one = m_data->facts.figures[i]; one.model == made.model)
                    reasons[i] =
                        !made.unreadable.empty()
                            ? made.unreadable
                            : catalogue::verdictInWords(*made.model, made.verdicts[one.result], made.inputs);
        });
    return reasons;
}

std::unique_ptr<batch::RowCalculator> TableStore::makeCalculator() const
{
    const tables::RunOptions& options = m_data->facts.options;
    return batch::makeRowCalculator(
        *m_data->limits, options.settings, options.assumptions,
        {.indices = m_data->indices, .live = m_data->models.has_value(), .meanings = false});
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

std::size_t TableStore::expectedBytes(std::size_t rows, std::size_t columns)
{
    // Line, time, offset, station, state, place of the texts.
    constexpr std::size_t kRest = 4 + 8 + 2 + 4 + 1 + 8;
    return rows * (kRest + 4 * (classic::kReadingCount + columns));
}

} // namespace comfortics::workbench
