// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/model_columns.h"
#include "batch/row_figures.h"
#include "tables/results.h"
#include "tables/row_mapper.h"
#include "tables/summary.h"

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::tables {

/// What is calculated for the rows of a table, and what is written besides the figures.
struct RunOptions {
    classic::Settings settings;
    classic::AssumptionTexts assumptions;
    bool inputs = false; ///< the time and the readings as they were taken
    bool status =
        false; ///< the line of the file, and for each index in a word why its value stands or is blank
    bool live = false;       ///< the eleven live quantities
    bool reasons = false;    ///< what failed in a row, index by index
    bool categories = false; ///< the class and severity of each value
    bool provenance = false; ///< the rules and the use of limits
    /// Models of standards, whose columns stand behind those of the indices, see batch::ModelColumns: each
    /// figure as "pmv_iso.pmv", with its status, class and severity, and the reasons of a model, as for the
    /// indices. Which column is an input of a model the mapping tells, see RowMapper::inputNames.
    batch::ModelRequest models{};
    unsigned threads = 1;
    std::function<bool()> stopped; ///< asked on any thread: true ends the run
};

struct RunCounts {
    batch::RowCounts rows;
    std::size_t refused = 0;  ///< rows that could not be read or mapped
    std::size_t messages = 0; ///< solvers that did not converge
    bool stopped = false;     ///< as asked; not all rows are done

    std::size_t total() const { return rows.total() + refused; }
};

/// Why a value stands or is blank, in a word: "value", "outside temperature limits" and so on.
std::string_view outcomeWord(classic::OutcomeKind kind);

/// The clock of a row for models.
batch::RowClock rowClock(const Moment& time);

/// The columns of the results: those of the table but for the dropped ones, the status, what is asked for
/// besides, and the indices.
std::vector<ResultColumn> resultColumns(const RowMapper& mapper, const Layout& layout,
                                        const RunOptions& options);

/// What a reader of the results wants to know: rules, limits, assumptions, which column was which reading,
/// and how many rows came to what.
std::vector<std::pair<std::string, std::string>>
runMetadata(const Mapping& mapping, const Layout& layout, const RunOptions& options, const RunCounts& counts);

/// Streams a table through the calculation, on several threads, and writes the results in the order of the
/// rows. Memory does not grow with the table; what is written does not depend on the number of threads. A row
/// that is refused is written with its line and reason as its status. `progress`
/// is told after each block. Without a writer the rows are not written; `summary`, where it is given, gets
/// what they come to.
RunCounts runTable(RowSource& rows, const RowMapper& mapper, const Layout& layout,
                   const classic::Limits& limits, const RunOptions& options, ResultWriter* writer,
                   const std::function<void(const RunCounts&)>& progress, TableSummary* summary = nullptr);

} // namespace comfortics::tables
