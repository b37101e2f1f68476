// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/column_map.h"
#include "batch/model_columns.h"
#include "batch/row_runner.h"
#include "batch/table_reader.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace comfortics::batch {

/// What a batch computes and writes.
struct BatchOptions {
    classic::Settings settings;
    classic::AssumptionTexts assumptions;
    bool live = false;       ///< write the eleven live quantities too
    bool reasons = false;    ///< a column that tells what failed in a row, index by index
    bool categories = false; ///< columns behind each index with a scale: its class in words, and the severity
    bool provenance = false; ///< columns that tell the rules and the use of limits
    ModelRequest models{};   ///< their columns stand behind those of the indices
    unsigned threads = 1;
    std::function<bool()> stopped; ///< asked before each row, on any thread: true ends the batch
};

struct BatchSummary {
    RowCounts rows;
    std::size_t messages = 0; ///< solvers that did not converge
    bool stopped = false;     ///< as asked; not all rows are done
};

/// Streams a table through the calculation: rows are read in blocks, computed on `threads`
/// independent calculations, and written in their order. Memory does not grow with the table; the
/// bytes written do not depend on the number of threads.
///
/// `write` takes the output as RFC 4180 CSV: the header first, then blocks of rows. `progress`,
/// called after each block, is told the rows done. Throws MalformedTable; what `write` throws passes
/// through.
BatchSummary runBatch(TableReader& reader, const classic::Limits& limits, const BatchOptions& options,
                      const std::function<void(std::string_view)>& write,
                      const std::function<void(const RowCounts&)>& progress);

/// The heading of an index' column: number, name and unit.
std::string indexHeading(int index);

} // namespace comfortics::batch
