// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/table_run.h"

#include "batch/ordered_crew.h"
#include "batch/row_pipeline.h"
#include "batch/selected_indices.h"
#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
#include "formulas/live_quantity.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <utility>

namespace comfortics::tables {

namespace {

// A block is full with so many rows, or with rows of so many bytes.
constexpr std::size_t kRowsPerBlock = batch::RowCalculator::kMostRows;
constexpr std::size_t kBytesPerBlock = std::size_t{1} << 20;

using Block = std::vector<Row>;
using Kind = ResultColumn::Kind;

struct Done {
    ResultBlock results;
    std::string prepared;
    RunCounts counts;
    std::vector<Moment> times; // of the rows that have one, where a summary is wanted
};

bool isStopped(const RunOptions& options)
{
    return options.stopped && options.stopped();
}

std::size_t heldBytes(const Row& row)
{
    std::size_t bytes = sizeof row + row.refused.capacity();
    for (const std::string& cell : row.cells)
        bytes += sizeof(std::string) + cell.capacity();
    return bytes;
}

bool hasScale(int index)
{
    return !catalogue::scale(index).categories.empty();
}

// What turns a block of rows into results, on one thread.
class Worker {
public:
    Worker(const RowMapper& mapper, const Layout& layout, const classic::Limits& limits,
           const RunOptions& options, const batch::ModelColumns& models, const ResultWriter* writer,
           std::size_t columns, bool summarize)
        : m_mapper(mapper), m_layout(layout), m_options(options), m_models(models), m_writer(writer),
          m_columns(columns), m_indices(batch::selectedIndices(options.settings.selection)),
          m_calculator(batch::makeRowCalculator(
              limits, options.settings, options.assumptions,
              {m_indices, options.live || models.readsLive(), options.categories || summarize}))
    {
        m_modelColumns = models.headings().size();
        if (summarize)
            m_summarizer.emplace(m_indices, options.models.models);
    }

    const Summarizer& summarizer() const { return *m_summarizer; }

    Done run(const Block& block)
    {
        Done done{ResultBlock(m_columns), {}, {}, {}};
        m_mapped.resize(block.size());
        m_readings.clear();
        for (std::size_t i = 0; i < block.size(); ++i) {
            m_mapper.map(block[i], m_mapped[i]);
            if (m_mapped[i].refused.empty())
                m_readings.push_back(m_mapped[i].views());
        }
        const batch::RowCounts before = m_calculator->counts();
        const std::size_t messagesBefore = m_calculator->messages();
        std::size_t at = 0;
        const auto passRefused = [&] {
            for (; at < block.size() && !m_mapped[at].refused.empty(); ++at) {
                ++done.counts.refused;
                take(done, block[at], m_mapped[at], nullptr);
            }
        };
        passRefused();
        if (!isStopped(m_options))
            m_calculator->calculate(m_readings, [&](std::size_t, batch::RowFigures& figures) {
                take(done, block[at], m_mapped[at], &figures);
                ++at;
                passRefused();
                return !isStopped(m_options); // nobody will write what is done then
            });
        const batch::RowCounts& after = m_calculator->counts();
        done.counts.rows = {after.calculated - before.calculated, after.skipped - before.skipped,
                            after.failed - before.failed, after.lostValues - before.lostValues};
        done.counts.messages = m_calculator->messages() - messagesBefore;
        if (m_writer != nullptr)
            done.prepared = m_writer->prepared(done.results);
        return done;
    }

private:
    void take(Done& done, const Row& row, const MappedRow& mapped, batch::RowFigures* figures)
    {
        if (m_writer != nullptr)
            append(done.results, row, mapped, figures);
        const bool values = figures != nullptr && figures->status() == batch::RowStatus::Calculated;
        m_ofModels.clear();
        if (figures != nullptr && !m_options.models.models.empty())
            m_models.calculate({[&](std::size_t column, const catalogue::InputInfo& input) {
                                    return m_mapper.inputText(column, input, row, mapped);
                                },
                                [&](formulas::Live quantity) {
                                    return values ? std::string(figures->live(quantity)) : std::string();
                                },
                                mapped.time ? std::optional(rowClock(*mapped.time)) : std::nullopt, values},
                               [this](const batch::ModelFigures& ofModel) { m_ofModels.push_back(ofModel); });
        if (m_writer != nullptr)
            appendModels(done.results);
        if (!m_summarizer)
            return;
        if (mapped.time)
            done.times.push_back(*mapped.time);
        const bool told = m_mapper.station() && row.refused.empty();
        m_summarizer->add(told ? texts::trimmed(row.cells[*m_mapper.station()]) : std::string_view(),
                          row.line, mapped.time, figures, m_ofModels);
    }

    void appendModels(ResultBlock& results) const
    {
        for (const batch::ModelFigures& figures : m_ofModels)
            m_models.cells(figures, [&results](std::string_view cell) { results.add(cell); });
        // Of a row that was refused nothing is known.
        for (std::size_t i = 0; m_ofModels.empty() && i < m_modelColumns; ++i)
            results.add({});
    }

    void append(ResultBlock& results, const Row& row, const MappedRow& mapped, batch::RowFigures* figures)
    {
        for (const std::size_t column : m_mapper.carried())
            results.add(row.refused.empty() ? carried(row.cells[column]) : std::string_view());
        if (figures != nullptr)
            results.add(figures->statusText());
        else
            results.add("refused: line " + std::to_string(row.line) + ": " + mapped.refused);
        if (m_options.status)
            results.add(std::to_string(row.line));
        const bool values = figures != nullptr && figures->status() == batch::RowStatus::Calculated;
        if (m_options.reasons)
            results.add(values ? reasons(*figures, m_indices) : std::string());
        if (m_options.provenance) {
            results.add(classic::ruleName(m_options.settings.rules));
            results.add(classic::limitsUse(m_options.settings));
        }
        if (m_options.inputs) {
            if (m_mapper.hasTime())
                results.add(mapped.time ? momentText(*mapped.time) : std::string());
            for (const std::string& reading : mapped.readings)
                results.add(reading);
        }
        for (std::size_t i = 0; m_options.live && i < formulas::kLiveCount; ++i)
            results.add(values ? figures->live(static_cast<formulas::Live>(i)) : std::string_view());
        for (std::size_t place = 0; place < m_indices.size(); ++place) {
            results.add(values ? figures->result(place) : std::string_view());
            if (m_options.status)
                results.add(values ? outcomeWord(figures->outcome(place)) : std::string_view());
            if (!m_options.categories || !hasScale(m_indices[place]))
                continue;
            const auto meaning = values ? figures->meaning(place) : std::nullopt;
            results.add(meaning ? meaning->category->label : std::string_view());
            results.add(meaning ? std::to_string(meaning->severity) : std::string());
        }
    }

    // A number gets the point that the results have; all else stands.
    std::string_view carried(std::string_view cell)
    {
        if (m_layout.decimal != ',' || cell.find(',') == std::string_view::npos || !cellNumber(cell, ','))
            return cell;
        m_cell = texts::trimmed(cell);
        std::replace(m_cell.begin(), m_cell.end(), ',', '.');
        return m_cell;
    }

    const RowMapper& m_mapper;
    const Layout& m_layout;
    const RunOptions& m_options;
    const batch::ModelColumns& m_models;
    std::size_t m_modelColumns = 0;
    std::vector<batch::ModelFigures> m_ofModels; // of the row at hand
    const ResultWriter* m_writer;
    std::size_t m_columns;
    std::vector<int> m_indices;
    std::unique_ptr<batch::RowCalculator> m_calculator;
    std::vector<MappedRow> m_mapped;
    std::vector<batch::RowCalculator::Readings> m_readings;
    std::string m_cell;
    std::optional<Summarizer> m_summarizer;
};

using Crew = batch::OrderedCrew<Block, Done>;

batch::ModelColumns modelColumns(const RowMapper& mapper, const RunOptions& options)
{
    try {
        return {options.models, mapper.inputNames(), {options.reasons, options.status, options.categories}};
    } catch (const batch::MalformedTable& error) {
        throw TableFault(error.what());
    }
}

} // namespace

std::string_view outcomeWord(classic::OutcomeKind kind)
{
    switch (kind) {
    case classic::OutcomeKind::NotCalculated:
        return "not calculated";
    case classic::OutcomeKind::Value:
        return "value";
    case classic::OutcomeKind::NotSelected:
        return "not selected";
    case classic::OutcomeKind::OutsideTemperature:
        return "outside temperature limits";
    case classic::OutcomeKind::OutsideWind:
        return "outside wind limits";
    case classic::OutcomeKind::NoValue:
        return "no value";
    case classic::OutcomeKind::RunFailed:
        return "failed";
    }
    return {};
}

batch::RowClock rowClock(const Moment& time)
{
    const ClockTime clock = clockTime(time);
    batch::RowClock made{clock.year, clock.month, clock.day, 0, {}};
    made.hour = clock.hour + clock.minute / 60.0 + clock.second / 3600.0;
    if (time.offset)
        made.utcOffset = *time.offset / 60.0;
    return made;
}

std::vector<ResultColumn> resultColumns(const RowMapper& mapper, const Layout& layout,
                                        const RunOptions& options)
{
    std::vector<ResultColumn> columns;
    const auto add = [&columns](std::string name, std::string_view unit, Kind kind) {
        columns.push_back({std::move(name), std::string(unit), kind});
    };
    for (const std::size_t column : mapper.carried()) {
        const std::string& name = layout.names[column];
        const std::string& unit = layout.units[column];
        const bool told = unit.empty() || name.find(unit) != std::string::npos;
        const bool bracketed = unit.starts_with('[') || unit.starts_with('(');
        add(name, told ? "" : bracketed ? unit.substr(1, unit.size() - 2) : unit, Kind::Carried);
    }
    add("Status", "", Kind::Text);
    if (options.status)
        add("Line", "", Kind::Number);
    if (options.reasons)
        add("Reasons", "", Kind::Text);
    if (options.provenance) {
        add("Rules", "", Kind::Text);
        add("Limits", "", Kind::Text);
    }
    if (options.inputs) {
        if (mapper.hasTime())
            add("Time taken", "", Kind::Text);
        for (const classic::ReadingInfo& info : classic::kReadingInfo)
            add(std::string(info.symbol()) + " taken", info.unit(), Kind::Number);
    }
    for (std::size_t i = 0; options.live && i < formulas::kLiveCount; ++i)
        add(std::string(formulas::kLiveInfo[i].symbol), formulas::kLiveInfo[i].unit, Kind::Number);
    for (const int index : batch::selectedIndices(options.settings.selection)) {
        const catalogue::CatalogueRow& row = catalogue::row(index);
        const std::string number = std::to_string(index);
        columns.push_back({number + " " + std::string(row.name), std::string(row.unit), Kind::Number});
        if (options.status)
            add(number + " status", "", Kind::Text);
        if (options.categories && hasScale(index)) {
            add(number + " category", "", Kind::Text);
            add(number + " severity", "", Kind::Number);
        }
    }
    for (const batch::ModelHeading& heading : modelColumns(mapper, options).headings())
        add(heading.name, heading.unit, heading.number ? Kind::Number : Kind::Text);
    return columns;
}

std::vector<std::pair<std::string, std::string>>
runMetadata(const Mapping& mapping, const Layout& layout, const RunOptions& options, const RunCounts& counts)
{
    std::vector<std::pair<std::string, std::string>> lines;
    if (!layout.place.empty())
        lines.emplace_back("Place", layout.place);
    lines.emplace_back("Rules", classic::ruleName(options.settings.rules));
    lines.emplace_back("Limits", classic::limitsUse(options.settings));
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i) {
        const classic::AssumptionInfo& info = classic::kAssumptionInfo[i];
        const std::string unit = info.unit.empty() ? "" : " " + std::string(info.unit);
        lines.emplace_back(info.hint, options.assumptions[i] + unit);
    }
    lines.emplace_back("Rows calculated", std::to_string(counts.rows.calculated));
    lines.emplace_back("Rows skipped", std::to_string(counts.rows.skipped));
    lines.emplace_back("Rows failed", std::to_string(counts.rows.failed));
    lines.emplace_back("Rows refused", std::to_string(counts.refused));
    for (const catalogue::Addition* const model : options.models.models)
        lines.emplace_back("Model " + std::string(model->id), model->name);
    for (const auto& [input, value] : options.models.constants) {
        const catalogue::Choice* const word = catalogue::choiceWith(input->choices, value);
        const std::string unit = input->unit.empty() ? "" : " " + std::string(input->unit);
        lines.emplace_back(input->name,
                           (word != nullptr ? std::string(word->text) : values::plainText(value)) + unit);
    }
    for (const ColumnUse& use : mapping.columns) {
        if (use.role == Role::Input)
            lines.emplace_back("Column of the input " + use.input,
                               "\"" + use.column + "\"" + (use.unit.empty() ? "" : " in " + use.unit));
        if (use.role != Role::Reading)
            continue;
        std::string text = "\"" + use.column + "\" in " + use.unit;
        if (use.height > 0)
            text += ", measured at " + values::plainText(use.height) + " m";
        if (use.step > 0)
            text += ", summed over " + values::plainText(use.step) + " s";
        lines.emplace_back("Column of the " + std::string(infoOf(use.quantity).name), text);
    }
    return lines;
}

RunCounts runTable(RowSource& rows, const RowMapper& mapper, const Layout& layout,
                   const classic::Limits& limits, const RunOptions& options, ResultWriter* writer,
                   const std::function<void(const RunCounts&)>& progress, TableSummary* summary)
{
    const std::vector<ResultColumn> columns = resultColumns(mapper, layout, options);
    const batch::ModelColumns models = modelColumns(mapper, options);
    if (writer != nullptr)
        writer->begin(columns);
    RunCounts counts;
    StepFinder steps;
    std::vector<std::shared_ptr<Worker>> workers;
    Crew crew(options.threads, [&]() -> Crew::Work {
        const auto worker = std::make_shared<Worker>(mapper, layout, limits, options, models, writer,
                                                     columns.size(), summary != nullptr);
        workers.push_back(worker);
        return [worker](const Block& block) { return worker->run(block); };
    });
    const auto finishOne = [&] {
        const Done done = crew.takeNext();
        counts.stopped = isStopped(options);
        if (counts.stopped)
            return;
        counts.rows.add(done.counts.rows);
        counts.refused += done.counts.refused;
        counts.messages += done.counts.messages;
        if (writer != nullptr)
            writer->write(done.results, done.prepared);
        for (const Moment& time : done.times)
            steps.add(time);
        progress(counts);
    };

    Block block;
    std::size_t bytes = 0;
    const auto submit = [&] {
        if (!block.empty())
            crew.submit(std::exchange(block, {}));
        bytes = 0;
    };
    // What cannot be read any further ends the run only after the rows before it are written.
    std::exception_ptr fault;
    while (!counts.stopped) {
        Row row;
        try {
            if (!rows.next(row))
                break;
        } catch (const TableFault&) {
            fault = std::current_exception();
            break;
        }
        bytes += heldBytes(row);
        block.push_back(std::move(row));
        if (block.size() == kRowsPerBlock || bytes >= kBytesPerBlock)
            submit();
        while (!counts.stopped && crew.full())
            finishOne();
    }
    submit();
    while (!counts.stopped && !crew.empty())
        finishOne();
    if (fault)
        std::rethrow_exception(fault);
    if (counts.stopped)
        return counts;
    if (writer != nullptr)
        writer->end();
    if (summary != nullptr) {
        Summarizer all(batch::selectedIndices(options.settings.selection), options.models.models);
        for (const auto& worker : workers)
            all.add(worker->summarizer());
        *summary = all.summary(steps.step());
    }
    return counts;
}

} // namespace comfortics::tables
