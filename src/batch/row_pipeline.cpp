// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_pipeline.h"

#include "batch/ordered_crew.h"
#include "batch/selected_indices.h"
#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
#include "classic/precise_rows.h"
#include "formulas/live_quantity.h"
#include "output/csv_cell.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace comfortics::batch {

using output::appendCsvCell;

namespace {

// A block is full with so many rows, or with rows of so many bytes.
constexpr std::size_t kRowsPerBlock = 256;
constexpr std::size_t kBytesPerBlock = std::size_t{1} << 20;

using Block = std::vector<TableRow>;

struct Done {
    std::string csv;
    RowCounts rows;
    std::size_t messages = 0;
};

std::size_t heldBytes(const TableRow& row)
{
    std::size_t bytes = sizeof row;
    for (const std::string& cell : row.cells)
        bytes += sizeof(std::string) + cell.capacity();
    return bytes;
}

bool isStopped(const BatchOptions& options)
{
    return options.stopped && options.stopped();
}

// What turns a block of rows into CSV, on one thread.
class Worker {
public:
    Worker(const BatchOptions& options, const ColumnMap& columns, const std::vector<int>& indices)
        : m_options(options), m_columns(columns), m_indices(indices)
    {
        if (options.provenance)
            m_provenance = "," + std::string(classic::ruleName(options.settings.rules)) + "," +
                           std::string(classic::limitsUse(options.settings));
    }
    virtual ~Worker() = default;
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    Done run(const Block& block)
    {
        Done done;
        done.csv.reserve(m_longestBlock);
        append(block, done);
        m_longestBlock = std::max(m_longestBlock, done.csv.size());
        return done;
    }

protected:
    virtual void append(const Block& block, Done& done) = 0;

    const BatchOptions& options() const { return m_options; }
    const ColumnMap& columns() const { return m_columns; }
    const std::vector<int>& indices() const { return m_indices; }

    static void appendGiven(std::string& csv, const TableRow& row, const std::string& status)
    {
        for (const std::string& cell : row.cells) {
            appendCsvCell(csv, cell);
            csv += ',';
        }
        appendCsvCell(csv, status);
    }

    // The cells behind the status; `liveText` and `resultText` of a place are only asked for rows with
    // values.
    template <typename Reasons, typename LiveText, typename ResultText, typename MeaningOf>
    void appendCalculated(std::string& csv, bool values, Reasons reasons, LiveText liveText,
                          ResultText resultText, MeaningOf meaningOf) const
    {
        if (m_options.reasons) {
            csv += ',';
            if (values)
                appendCsvCell(csv, reasons());
        }
        csv += m_provenance;
        for (std::size_t i = 0; m_options.live && i < formulas::kLiveCount; ++i) {
            csv += ',';
            if (values)
                appendCsvCell(csv, liveText(static_cast<formulas::Live>(i)));
        }
        for (std::size_t place = 0; place < m_indices.size(); ++place) {
            csv += ',';
            if (values)
                appendCsvCell(csv, resultText(place));
            if (!m_options.categories || catalogue::scale(m_indices[place]).categories.empty())
                continue;
            csv += ',';
            const auto meaning = values ? meaningOf(place) : std::nullopt;
            if (meaning)
                appendCsvCell(csv, meaning->category->label);
            csv += ',';
            if (meaning)
                csv += std::to_string(meaning->severity);
        }
        csv += "\r\n";
    }

    // What failed in a row, index by index.
    template <typename Failed, typename Why>
    std::string reasons(Failed failed, Why why) const
    {
        std::string text;
        for (std::size_t place = 0; place < m_indices.size(); ++place) {
            if (!failed(place))
                continue;
            if (!text.empty())
                text += ' ';
            text += std::to_string(m_indices[place]);
            text += ": ";
            text += why(m_indices[place]);
        }
        return text;
    }

private:
    const BatchOptions& m_options;
    const ColumnMap& m_columns;
    const std::vector<int>& m_indices;
    std::string m_provenance;       // its two cells
    std::size_t m_longestBlock = 0; // of CSV, in bytes
};

// Row after row through a calculation of its own.
class RowWorker final : public Worker {
public:
    RowWorker(const classic::Limits& limits, const BatchOptions& options, const ColumnMap& columns,
              const std::vector<int>& indices)
        : Worker(options, columns, indices), m_runner(limits, options.settings)
    {
        m_runner.calculation().assumptions.write(options.assumptions);
        m_runner.calculation().advice = classic::kTerminalAdvice;
    }

private:
    void append(const Block& block, Done& done) override
    {
        const RowCounts before = m_runner.counts();
        const std::size_t messagesBefore = m_runner.messages();
        for (const TableRow& row : block) {
            if (isStopped(options()))
                break; // nobody will write what is done here
            appendRow(done.csv, row);
        }
        const RowCounts& after = m_runner.counts();
        done.rows = {after.calculated - before.calculated, after.skipped - before.skipped,
                     after.failed - before.failed, after.lostValues - before.lostValues};
        done.messages = m_runner.messages() - messagesBefore;
    }

    void appendRow(std::string& csv, const TableRow& row)
    {
        const RowStatus status = m_runner.run(columns().readings(row));
        const classic::Calculation& calculation = m_runner.calculation();
        appendGiven(csv, row, m_runner.statusText());
        const auto failed = [&](std::size_t place) {
            return calculation.outcome(indices()[place]).kind == classic::OutcomeKind::RunFailed;
        };
        appendCalculated(
            csv, status == RowStatus::Calculated,
            [&] { return reasons(failed, [&](int index) { return calculation.whyBlank(index); }); },
            [&](formulas::Live quantity) -> const std::string& {
                return calculation.liveLabel(quantity).caption();
            },
            [&](std::size_t place) -> const std::string& {
                return calculation.results.lbl_results[static_cast<std::size_t>(indices()[place])].caption();
            },
            [&](std::size_t place) { return calculation.meaning(indices()[place]); });
    }

    RowRunner m_runner;
};

// By the precise rules no row depends on another: the rows of a block are calculated together.
class PreciseWorker final : public Worker {
public:
    PreciseWorker(const classic::Limits& limits, const BatchOptions& options, const ColumnMap& columns,
                  const std::vector<int>& indices)
        : Worker(options, columns, indices),
          m_rows(limits, options.settings, indices, {.live = options.live, .meanings = options.categories})
    {
        static_assert(kRowsPerBlock <= classic::PreciseRows::kMostRows);
        classic::AssumptionBoxes assumptions;
        assumptions.write(options.assumptions);
        m_rows.setAssumptions(assumptions.read());
    }

private:
    void append(const Block& block, Done& done) override
    {
        m_rows.clear();
        m_skipped.clear();
        for (const TableRow& row : block) {
            m_boxes.clear();
            m_boxes.write(columns().readings(row));
            const bool taken = m_boxes.complete() && m_rows.take(m_boxes);
            m_skipped.push_back(taken ? std::string() : "skipped: " + m_boxes.whatIsWrong());
        }
        m_rows.calculate();
        std::size_t next = 0; // of the rows that were taken
        for (std::size_t i = 0; i < block.size(); ++i) {
            if (isStopped(options()))
                return;
            const bool taken = m_skipped[i].empty();
            done.rows.add(taken ? RowStatus::Calculated : RowStatus::Skipped);
            appendRow(done, block[i], taken ? "ok" : m_skipped[i], taken, next);
            next += taken ? 1 : 0;
        }
    }

    void appendRow(Done& done, const TableRow& row, const std::string& status, bool values, std::size_t at)
    {
        const auto failed = [&](std::size_t place) {
            return classic::outcomeKind(m_rows.figure(place, at).status) == classic::OutcomeKind::RunFailed;
        };
        for (std::size_t place = 0; values && place < indices().size(); ++place)
            done.rows.lostValues += failed(place) ? 1U : 0U;
        appendGiven(done.csv, row, status);
        appendCalculated(
            done.csv, values,
            [&] { return reasons(failed, [&](int index) { return m_rows.whyNot(index, at); }); },
            [&](formulas::Live quantity) { return classic::liveText(m_rows.live(quantity, at)); },
            [&](std::size_t place) {
                return classic::resultText(catalogue::row(indices()[place]), m_rows.figure(place, at));
            },
            [&](std::size_t place) { return m_rows.meaning(place, at); });
    }

    classic::ReadingBoxes m_boxes;
    classic::PreciseRows m_rows;
    std::vector<std::string> m_skipped; // why; empty for a row that is calculated
};

std::shared_ptr<Worker> makeWorker(const classic::Limits& limits, const BatchOptions& options,
                                   const ColumnMap& columns, const std::vector<int>& indices)
{
    if (options.settings.rules == classic::Rules::Precise)
        return std::make_shared<PreciseWorker>(limits, options, columns, indices);
    return std::make_shared<RowWorker>(limits, options, columns, indices);
}

using Crew = OrderedCrew<Block, Done>;

std::string headerLine(const ColumnMap& columns, const BatchOptions& options, const std::vector<int>& indices)
{
    std::string line;
    for (const std::string& name : columns.names()) {
        appendCsvCell(line, name);
        line += ',';
    }
    line += options.reasons ? "Status,Reasons" : "Status";
    if (options.provenance)
        line += ",Rules,Limits";
    if (options.live) {
        for (const formulas::LiveInfo& info : formulas::kLiveInfo) {
            line += ',';
            appendCsvCell(line, std::string(info.symbol) + " [" + std::string(info.unit) + "]");
        }
    }
    for (const int index : indices) {
        line += ',';
        appendCsvCell(line, indexHeading(index));
        if (options.categories && !catalogue::scale(index).categories.empty())
            line += "," + std::to_string(index) + " category," + std::to_string(index) + " severity";
    }
    return line + "\r\n";
}

} // namespace

std::string indexHeading(int index)
{
    const catalogue::CatalogueRow& row = catalogue::row(index);
    return std::to_string(index) + " " + std::string(row.name) + " [" + std::string(row.unit) + "]";
}

BatchSummary runBatch(TableReader& reader, const classic::Limits& limits, const BatchOptions& options,
                      const std::function<void(std::string_view)>& write,
                      const std::function<void(const RowCounts&)>& progress)
{
    BatchSummary summary;
    TableRow row;
    if (!reader.next(row))
        throw MalformedTable("The table is empty.");
    const ColumnMap columns = ColumnMap::from(row, reader.separator());
    const std::vector<int> indices = selectedIndices(options.settings.selection);
    write(headerLine(columns, options, indices));

    Crew crew(options.threads, [&]() -> Crew::Work {
        const auto worker = makeWorker(limits, options, columns, indices);
        return [worker](const Block& block) { return worker->run(block); };
    });
    const auto finishOne = [&] {
        const Done done = crew.takeNext();
        summary.stopped = isStopped(options);
        if (summary.stopped)
            return;
        summary.rows.add(done.rows);
        summary.messages += done.messages;
        write(done.csv);
        progress(summary.rows);
    };

    Block block;
    std::size_t blockBytes = 0;
    const auto submit = [&] {
        if (!block.empty())
            crew.submit(std::exchange(block, {}));
        blockBytes = 0;
    };
    const auto keep = [&](TableRow& next) {
        blockBytes += heldBytes(next);
        block.push_back(std::move(next));
        if (block.size() == kRowsPerBlock || blockBytes >= kBytesPerBlock)
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
