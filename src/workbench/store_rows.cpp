// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/store_rows.h"

#include "workbench/view.h"

#include <array>
#include <utility>

namespace comfortics::workbench {

namespace {

constexpr int kReadingDecimals = 2;

std::string rulesOf(const TableStore& store)
{
    const std::string again =
        store.rowsAgain() == 0 ? ""
                               : "; " + std::to_string(store.rowsAgain()) + " rows again by the robust rules";
    return "Calculated by " + classic::inForce(store.facts().options.settings) + again + ".";
}

} // namespace

StoreRows::StoreRows(std::shared_ptr<const TableStore> store,
                     std::shared_ptr<const std::vector<std::uint32_t>> shown, const std::string& filter,
                     std::string run)
    : m_store(std::move(store)), m_shown(std::move(shown))
{
    for (const workspace::Item& item : m_store->items()) {
        std::string name = item.name();
        name.erase(name.find_last_not_of(' ') + 1);
        columns.push_back({.index = item.model() == nullptr ? item.index() : item.scaleIndex(),
                           .name = std::move(name),
                           .unit = std::string(item.unit()),
                           .decimals = item.decimals(),
                           .id = columnId(item)});
        if (item.isWord())
            columns.back().words = item.classNames();
    }
    const RunFacts& facts = m_store->facts();
    std::array<bool, classic::kReadingCount> taken{};
    for (const tables::ColumnUse& use : facts.mapping.columns)
        if (use.role == tables::Role::Reading) // of a vapour pressure a dew point is made
            taken.at(use.quantity == tables::Quantity::Ea ? static_cast<std::size_t>(classic::Reading::DP)
                                                          : static_cast<std::size_t>(use.quantity)) = true;
    for (std::size_t i = 0; i < taken.size(); ++i)
        if (taken[i]) {
            const classic::ReadingInfo& info = classic::kReadingInfo[i];
            m_readings.push_back(static_cast<classic::Reading>(i));
            columns.push_back({.index = 0,
                               .name = std::string(info.heading),
                               .unit = std::string(info.unit()),
                               .decimals = kReadingDecimals});
        }
    stations = m_store->stations();
    origin.source = facts.place.empty() ? facts.source : facts.source + " (" + facts.place + ")";
    origin.rules = rulesOf(*m_store);
    if (m_shown && (!filter.empty() || m_shown->size() < m_store->rows()))
        origin.filter = "Of a filtered view" + (filter.empty() ? "" : " (" + filter + ")") + ": " +
                        std::to_string(m_shown->size()) + " of " + std::to_string(m_store->rows()) + " rows.";
    origin.run = std::move(run);
}

std::optional<std::int64_t> StoreRows::seconds(std::size_t row) const
{
    const auto time = m_store->time(place(row));
    return time ? std::optional(time->seconds) : std::nullopt;
}

std::optional<double> StoreRows::value(std::size_t row, std::size_t column) const
{
    return isFigure(column) ? m_store->figure(place(row), column)
                            : m_store->reading(place(row), readingOf(column));
}

std::optional<catalogue::Meaning> StoreRows::meaning(std::size_t row, std::size_t column) const
{
    return isFigure(column) ? m_store->meaning(place(row), column) : std::nullopt;
}

std::optional<std::size_t> StoreRows::word(std::size_t row, std::size_t column) const
{
    return isFigure(column) && m_store->items()[column].isWord() ? m_store->classOf(place(row), column)
                                                                 : std::nullopt;
}

std::string StoreRows::whyNone(std::size_t row, std::size_t column) const
{
    const std::size_t place = this->place(row);
    if (m_store->state(place) != RowState::Calculated)
        return "The row was " + m_store->status(place) + ".";
    return isFigure(column)
               ? m_store->whyBlank(place, column)
               : std::string(classic::kReadingInfo[static_cast<std::size_t>(readingOf(column))].heading) +
                     " is not given.";
}

} // namespace comfortics::workbench
