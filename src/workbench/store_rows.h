// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/chart_rows.h"
#include "workbench/table_store.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::workbench {

/// The rows of a store for charts: its indices and figures, then the readings that were taken.
class StoreRows final : public ChartRows {
public:
    /// `shown` are the rows of a filtered view, ascending; null: all. `filter` tells of the view, and `run`
    /// where it is not of the present file and options; sentences, which charts repeat.
    explicit StoreRows(std::shared_ptr<const TableStore> store,
                       std::shared_ptr<const std::vector<std::uint32_t>> shown = {},
                       const std::string& filter = {}, std::string run = {});

    std::size_t rows() const override { return m_shown ? m_shown->size() : m_store->rows(); }
    std::optional<std::int64_t> seconds(std::size_t row) const override;
    std::size_t station(std::size_t row) const override { return m_store->stationNumber(place(row)); }
    std::optional<double> value(std::size_t row, std::size_t column) const override;
    std::optional<catalogue::Meaning> meaning(std::size_t row, std::size_t column) const override;
    std::optional<std::size_t> word(std::size_t row, std::size_t column) const override;
    std::string whyNone(std::size_t row, std::size_t column) const override;

    const TableStore& store() const noexcept { return *m_store; }
    /// The row of the store.
    std::size_t place(std::size_t row) const { return m_shown ? (*m_shown)[row] : row; }

private:
    bool isFigure(std::size_t column) const { return column < m_store->items().size(); }
    classic::Reading readingOf(std::size_t column) const
    {
        return m_readings.at(column - m_store->items().size());
    }

    std::shared_ptr<const TableStore> m_store;
    std::shared_ptr<const std::vector<std::uint32_t>> m_shown;
    std::vector<classic::Reading> m_readings;
};

} // namespace comfortics::workbench
