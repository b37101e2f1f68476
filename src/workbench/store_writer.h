// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/results.h"
#include "tables/row_mapper.h"
#include "workbench/table_store.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::workbench {

/// Takes the rows of a run into a store.
class StoreWriter final : public tables::ResultWriter {
public:
    /// Facts without counts and columns; the options have the models of their figures, see modelRequest.
    /// Limits must outlive the store. Throws TableFault where there is no
    /// temporary file.
    StoreWriter(RunFacts facts, const classic::Limits& limits, const tables::RowMapper& mapper);

    /// What the run is to be asked for.
    static tables::RunOptions asked(tables::RunOptions options);

    void begin(const std::vector<tables::ResultColumn>& columns) override;
    std::string prepared(const tables::ResultBlock& block) const override;
    /// Throws TableFault where the disk is full, or there are too many stations or rows.
    void write(const tables::ResultBlock& block, const std::string& prepared) override;
    void end() override {}

    /// The rows that were written, also of a run that was stopped. Nothing is written after it.
    std::shared_ptr<const TableStore> finish(const tables::RunCounts& counts);

    std::size_t rows() const noexcept { return m_data->lines.size(); }
    /// What the rows hold in memory [bytes].
    std::size_t bytes() const { return m_data->bytes(); }

private:
    static void endBeside(TableStore::Data* data);
    void writeRow(const tables::ResultBlock& block, std::size_t row);
    void writeModels(const tables::ResultBlock& block, std::size_t row, std::size_t at, bool calculated);

    std::shared_ptr<TableStore::Data> m_data;
    std::optional<std::size_t> m_stationColumn; // among the carried
    std::map<std::string, std::uint32_t, std::less<>> m_stations;
    tables::StepFinder m_steps;
};

} // namespace comfortics::workbench
