// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_pipeline.h"

#include "batch/ordered_crew.h"
#include "batch/selected_indices.h"
#include "core/catalogue.h"
#include "formulas/live_quantity.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace comfortics::batch {

namespace {

constexpr std::size_t kRowsPerBlock = 256;

using Block = std::vector<TableRow>;

struct Done {
    std::string csv;
    RowCounts rows;
    std::size_t messages = 0;
};

// One calculation and what it takes to turn a block of rows into CSV.
class Worker {
public:
    Worker(const core::Limits& limits, const BatchOptions& options, const ColumnMap& columns,
           const std::vector<int>& indices)
        : m_runner(limits, options.settings), m_columns(columns), m_indices(indices), m_live(options.live),
          m_reasons(options.reasons)
    {
        m_runner.calculation().assumptions.write(options.assumptions);
    }

    Done run(const Block& block)
    {
        const RowCounts before = m_runner.counts();
        const std::size_t messagesBefore = m_runner.messages();
        Done done;
        done.csv.reserve(m_longestBlock);
        for (const TableRow& row : block)
            appendRow(done.csv, row);
        m_longestBlock = std::max(m_longestBlock, done.csv.size());
        const RowCounts& after = m_runner.counts();
        done.rows = {after.calculated - before.calculated, after.skipped - before.skipped,
                     after.failed - before.failed, after.lostValues - before.lostValues};
        done.messages = m_runner.messages() - messagesBefore;
        return done;
    }

private:
    void appendRow(std::string& csv, const TableRow& row)
    {
        const RowStatus status = m_runner.run(m_columns.readings(row));
        const core::Calculation& calculation = m_runner.calculation();
        for (const std::string& cell : row.cells) {
            appendCsvCell(csv, cell);
            csv += ',';
        }
        appendCsvCell(csv, m_runner.statusText());
        const bool values = status == RowStatus::Calculated;
        if (m_reasons) {
            csv += ',';
            if (values)
                appendCsvCell(csv, reasons());
        }
        if (m_live) {
            for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
                csv += ',';
                if (values)
                    appendCsvCell(csv, calculation.liveLabel(static_cast<formulas::Live>(i)).caption());
            }
        }
        for (const int index : m_indices) {
            csv += ',';
            if (values)
                appendCsvCell(csv,
                              calculation.results.lbl_results[static_cast<std::size_t>(index)].caption());
        }
        csv += "\r\n";
    }

    // What failed in a calculated row, index by index.
    std::string reasons()
    {
        std::string text;
        for (const int index : m_indices) {
            if (m_runner.calculation().outcome(index).kind != core::OutcomeKind::RunFailed)
                continue;
            if (!text.empty())
                text += ' ';
            text += std::to_string(index);
            text += ": ";
            text += m_runner.calculation().whyBlank(index);
        }
        return text;
    }

    RowRunner m_runner;
    const ColumnMap& m_columns;
    const std::vector<int>& m_indices;
    bool m_live;
    bool m_reasons;
    std::size_t m_longestBlock = 0; // of CSV, in bytes
};

using Crew = OrderedCrew<Block, Done>;

std::string headerLine(const ColumnMap& columns, const BatchOptions& options, const std::vector<int>& indices)
{
    std::string line;
    for (const std::string& name : columns.names()) {
        appendCsvCell(line, name);
        line += ',';
    }
    line += options.reasons ? "Status,Reasons" : "Status";
    if (options.live) {
        for (const formulas::LiveInfo& info : formulas::kLiveInfo) {
            line += ',';
            appendCsvCell(line, std::string(info.symbol) + " [" + std::string(info.unit) + "]");
        }
    }
    for (const int index : indices) {
        line += ',';
        appendCsvCell(line, indexHeading(index));
    }
    return line + "\r\n";
}

} // namespace

void appendCsvCell(std::string& line, std::string_view cell)
{
    // A tab outside quotes would make the reader take the table for a tab-separated one.
    const auto special = [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n' || c == '\t'; };
    if (std::none_of(cell.begin(), cell.end(), special)) {
        line += cell;
        return;
    }
    line += '"';
    for (const char c : cell) {
        if (c == '"')
            line += '"';
        line += c;
    }
    line += '"';
}

std::string indexHeading(int index)
{
    const core::CatalogueRow& row = core::catalogueRow(index);
    return std::to_string(index) + " " + std::string(row.name) + " [" + std::string(row.unit) + "]";
}

BatchSummary runBatch(TableReader& reader, const core::Limits& limits, const BatchOptions& options,
                      const std::function<void(std::string_view)>& write,
                      const std::function<bool(const RowCounts&)>& progress)
{
    BatchSummary summary;
    TableRow row;
    if (!reader.next(row))
        throw MalformedTable("The table is empty.");
    const ColumnMap columns = ColumnMap::from(row);
    const std::vector<int> indices = selectedIndices(options.settings.selection);
    write(headerLine(columns, options, indices));

    Crew crew(options.threads, [&]() -> Crew::Work {
        const auto worker = std::make_shared<Worker>(limits, options, columns, indices);
        return [worker](const Block& block) { return worker->run(block); };
    });
    const auto finishOne = [&] {
        const Done done = crew.takeNext();
        summary.rows.add(done.rows);
        summary.messages += done.messages;
        write(done.csv);
        summary.stopped = !progress(summary.rows);
    };

    Block block;
    const auto submit = [&] {
        if (!block.empty())
            crew.submit(std::exchange(block, {}));
    };
    const auto keep = [&](TableRow& next) {
        block.push_back(std::move(next));
        if (block.size() == kRowsPerBlock)
            submit();
    };
    // A row that cannot be read ends the batch only after the rows before it are written.
    std::optional<MalformedTable> malformed;
    if (!columns.firstRowIsHeader())
        keep(row);
    while (!summary.stopped) {
        TableRow next;
        try {
            if (!reader.next(next))
                break;
            columns.check(next);
        } catch (const MalformedTable& error) {
            malformed = error;
            break;
        }
        keep(next);
        while (!summary.stopped && crew.full())
            finishOne();
    }
    submit();
    while (!summary.stopped && !crew.empty())
        finishOne();
    if (malformed)
        throw MalformedTable(*malformed);
    return summary;
}

} // namespace comfortics::batch
