// SPDX-License-Identifier: GPL-3.0-or-later
//
// Stores of tables in memory.
#pragma once

#include "tables/mapping.h"
#include "workbench/store_writer.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::tests {

inline const classic::Limits& stationLimits()
{
    static const classic::Limits limits = classic::Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    return limits;
}

inline tables::OpenTable openStation(std::string text)
{
    return tables::openText(
        [text = std::move(text), at = std::size_t{0}](char* buffer, std::size_t size) mutable {
            const std::size_t count = text.copy(buffer, size, at);
            at += count;
            return count;
        });
}

inline tables::RunOptions stationOptions(const std::vector<int>& indices,
                                         classic::Rules rules = classic::Rules::Precise)
{
    tables::RunOptions options;
    options.assumptions = {"0.77", "0.97", "1016", "75", "180", "0.20"};
    options.settings.rules = rules;
    options.settings.selection = classic::Selection::none();
    for (const int index : indices)
        options.settings.selection.set(index, true);
    return options;
}

/// What a run over the table comes to, by a mapping in the command line's form.
inline std::shared_ptr<const workbench::TableStore> storeOf(std::string text, const std::string& mapping,
                                                            const tables::RunOptions& wanted)
{
    tables::OpenTable table = openStation(std::move(text));
    const tables::Mapping mapped = tables::mappingOfText(mapping, table.layout);
    const tables::RowMapper mapper(mapped, table.layout, "0.20");
    const tables::RunOptions options = workbench::StoreWriter::asked(wanted);
    workbench::StoreWriter writer({.source = "station.csv", .mapping = mapped, .options = options},
                                  stationLimits(), mapper);
    const tables::RunCounts counts = tables::runTable(*table.rows, mapper, table.layout, stationLimits(),
                                                      options, &writer, [](const tables::RunCounts&) {});
    return writer.finish(counts);
}

} // namespace comfortics::tests
