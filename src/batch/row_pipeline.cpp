// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_pipeline.h"

#include "batch/ordered_crew.h"
#include "batch/row_figures.h"
#include "batch/selected_indices.h"
#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
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
constexpr std::size_t kRowsPerBlock = RowCalculator::kMostRows;
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
    Worker(const classic::Limits& limits, const BatchOptions& options, const ColumnMap& columns,
           const std::vector<int>& indices, const ModelColumns& models)
        : m_options(options), m_columns(columns), m_indices(indices), m_models(models),
          m_calculator(makeRowCalculator(limits, options.settings, options.assumptions,
                                         {indices, options.live || models.readsLive(), options.categories}))
    {
        if (options.provenance)
            m_provenance = "," + std::string(classic::ruleName(options.settings.rules)) + "," +
                           std::string(classic::limitsUse(options.settings));
    }

    Done run(const Block& block)
    {
        Done done;
        done.csv.reserve(m_longestBlock);
        m_readings.clear();
        for (const TableRow& row : block)
            m_readings.push_back(m_columns.readings(row));
        const RowCounts before = m_calculator->counts();
        const std::size_t messagesBefore = m_calculator->messages();
        if (!isStopped(m_options))
            m_calculator->calculate(m_readings, [&](std::size_t row, RowFigures& figures) {
                appendRow(done.csv, block[row], figures);
                return !isStopped(m_options); // nobody will write what is done then
            });
        const RowCounts& after = m_calculator->counts();
        done.rows = {after.calculated - before.calculated, after.skipped - before.skipped,
                     after.failed - before.failed, after.lostValues - before.lostValues};
        done.messages = m_calculator->messages() - messagesBefore;
        m_longestBlock = std::max(m_longestBlock, done.csv.size());
        return done;
    }

private:
    void appendRow(std::string& csv, const TableRow& row, RowFigures& figures) const
    {
        for (const std::string& cell : row.cells) {
            appendCsvCell(csv, cell);
            csv += ',';
        }
        appendCsvCell(csv, figures.statusText());
        const bool values = figures.status() == RowStatus::Calculated;
        if (m_options.reasons) {
            csv += ',';
            if (values)
                appendCsvCell(csv, reasons(figures, m_indices));
        }
        csv += m_provenance;
        for (std::size_t i = 0; m_options.live && i < formulas::kLiveCount; ++i) {
            csv += ',';
            if (values)
                appendCsvCell(csv, figures.live(static_cast<formulas::Live>(i)));
        }
        for (std::size_t place = 0; place < m_indices.size(); ++place) {
            csv += ',';
            if (values)
                appendCsvCell(csv, figures.result(place));
            if (!m_options.categories || catalogue::scale(m_indices[place]).categories.empty())
                continue;
            csv += ',';
            const auto meaning = values ? figures.meaning(place) : std::nullopt;
            if (meaning)
                appendCsvCell(csv, meaning->category->label);
            csv += ',';
            if (meaning)
                csv += std::to_string(meaning->severity);
        }
        m_models.calculate({[&row](std::size_t column, const catalogue::InputInfo&) {
                                std::string text = row.cells[column];
                                if (text.find('.') == std::string::npos)
                                    std::ranges::replace(text, ',',
                                                         '.'); // a decimal comma, as in the readings
                                return text;
                            },
                            [&](formulas::Live quantity) {
                                return values ? std::string(figures.live(quantity)) : std::string();
                            },
                            {},
                            values},
                           [&](const ModelFigures& ofModel) {
                               m_models.cells(ofModel, [&csv](std::string_view cell) {
                                   csv += ',';
                                   appendCsvCell(csv, cell);
                               });
                           });
        csv += "\r\n";
    }

    const BatchOptions& m_options;
    const ColumnMap& m_columns;
    const std::vector<int>& m_indices;
    const ModelColumns& m_models;
    std::unique_ptr<RowCalculator> m_calculator;
    std::vector<RowCalculator::Readings> m_readings;
    std::string m_provenance;       // its two cells
    std::size_t m_longestBlock = 0; // of CSV, in bytes
};

using Crew = OrderedCrew<Block, Done>;

std::string headerLine(const ColumnMap& columns, const BatchOptions& options, const std::vector<int>& indices,
                       const ModelColumns& models)
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
    for (const ModelHeading& heading : models.headings()) {
        line += ',';
        appendCsvCell(line, heading.unit.empty() ? heading.name : heading.name + " [" + heading.unit + "]");
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
    const ModelColumns models(options.models, columns.names(),
                              {.reasons = options.reasons, .categories = options.categories});
    write(headerLine(columns, options, indices, models));

    Crew crew(options.threads, [&]() -> Crew::Work {
        const auto worker = std::make_shared<Worker>(limits, options, columns, indices, models);
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
