// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/store_writer.h"

#include "batch/selected_indices.h"
#include "texts/text.h"
#include "values/plain_text.h"
#include "workbench/row_inputs.h"
#include "workbench/store_texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <system_error>
#include <thread>

namespace comfortics::workbench {

namespace {

constexpr std::size_t kMostStations = 1000;                // as in a summary
constexpr std::size_t kEndedBeside = std::size_t{8} << 20; // a larger store [bytes]

RowState stateOf(std::string_view status)
{
    if (status == kOk)
        return RowState::Calculated;
    if (status.starts_with("skipped"))
        return RowState::Skipped;
    return status.starts_with("failed") ? RowState::Failed : RowState::Refused;
}

classic::OutcomeKind outcomeOfWord(std::string_view word)
{
    using classic::OutcomeKind;
    for (const OutcomeKind kind :
         {OutcomeKind::Value, OutcomeKind::OutsideTemperature, OutcomeKind::OutsideWind, OutcomeKind::NoValue,
          OutcomeKind::RunFailed, OutcomeKind::NotSelected})
        if (tables::outcomeWord(kind) == word)
            return kind;
    return OutcomeKind::NotCalculated; // a row without results has no words
}

std::optional<NumberColumn::ClassMark> markOf(std::span<const catalogue::Category> classes,
                                              std::string_view label, std::string_view severity)
{
    const auto found = std::find_if(classes.begin(), classes.end(),
                                    [label](const catalogue::Category& one) { return one.label == label; });
    if (found == classes.end())
        return std::nullopt;
    return NumberColumn::ClassMark{static_cast<std::size_t>(found - classes.begin()),
                                   severity != std::to_string(found->severity)};
}

} // namespace

// To give back hundreds of megabytes takes longer than a window may stand still.
void StoreWriter::endBeside(TableStore::Data* data)
{
    if (data->bytes() > kEndedBeside) {
        try {
            std::thread([data] { delete data; }).detach();
            return;
        } catch (const std::system_error&) { // there is no further thread
        }
    }
    delete data;
}

StoreWriter::StoreWriter(RunFacts facts, const classic::Limits& limits, const tables::RowMapper& mapper)
    : m_data(new TableStore::Data, &StoreWriter::endBeside)
{
    m_data->facts = std::move(facts);
    m_data->facts.options.stopped = nullptr;
    m_data->facts.hasTime = mapper.hasTime();
    m_data->facts.hasStation = mapper.station().has_value();
    m_data->limits = &limits;
    m_data->indices = batch::selectedIndices(m_data->facts.options.settings.selection);
    m_data->items.assign(m_data->indices.begin(), m_data->indices.end());
    for (const catalogue::Figure& figure : m_data->facts.figures)
        m_data->items.emplace_back(figure);
    m_data->figures.resize(m_data->items.size());
    if (!m_data->facts.figures.empty()) {
        const tables::RunOptions& options = m_data->facts.options;
        m_data->models.emplace(options.models, std::vector<std::string>(), batch::ModelExtras());
        tables::Layout layout = m_data->facts.layout;
        layout.decimal = '.'; // as the cells have it that are kept
        m_data->mapper.emplace(m_data->facts.mapping, layout, options.assumptions[kFriction]);
    }
    if (mapper.station())
        m_stationColumn = static_cast<std::size_t>(
            std::find(mapper.carried().begin(), mapper.carried().end(), *mapper.station()) -
            mapper.carried().begin());
}

tables::RunOptions StoreWriter::asked(tables::RunOptions options)
{
    options.inputs = options.status = options.categories = true;
    options.live = options.reasons = options.provenance = false;
    return options;
}

void StoreWriter::begin(const std::vector<tables::ResultColumn>& columns)
{
    for (const tables::ResultColumn& column : columns)
        if (column.kind == tables::ResultColumn::Kind::Carried)
            m_data->facts.carried.push_back(column);
}

std::string StoreWriter::prepared(const tables::ResultBlock& block) const
{
    const std::size_t carried = m_data->facts.carried.size();
    std::string bytes;
    std::string record;
    for (std::size_t row = 0; row < block.rows(); ++row) {
        record.clear();
        const std::string_view status = block.cell(row, carried);
        for (std::size_t column = 0; column < carried; ++column)
            appendCell(record, block.cell(row, column));
        if (status != kOk)
            appendCell(record, status);
        appendCell(bytes, record); // a record is a cell of the block
    }
    return bytes;
}

void StoreWriter::write(const tables::ResultBlock& block, const std::string& prepared)
{
    if (m_data->lines.size() + block.rows() > std::numeric_limits<std::uint32_t>::max())
        throw tables::TableFault("The table has too many rows.");
    const std::vector<std::string> records = cellsOf(prepared);
    for (std::size_t row = 0; row < block.rows(); ++row) {
        writeRow(block, row);
        m_data->texts.add(records[row]);
    }
}

void StoreWriter::writeRow(const tables::ResultBlock& block, std::size_t row)
{
    std::size_t at = m_data->facts.carried.size();
    const auto next = [&] { return block.cell(row, at++); };
    const RowState state = stateOf(next());
    m_data->states.push(state);
    m_data->lines.push(static_cast<std::uint32_t>(tables::cellNumber(next(), '.').value_or(0)));

    std::optional<tables::Moment> time;
    if (m_data->facts.hasTime)
        time = tables::readMoment(next(), tables::DateOrder::YearMonthDay);
    if (time)
        m_steps.add(*time);
    m_data->seconds.push(time ? time->seconds : kNoTime);
    m_data->offsets.push(time && time->offset ? static_cast<std::int16_t>(*time->offset) : kNoOffset);

    const std::string_view station =
        m_stationColumn ? texts::trimmed(block.cell(row, *m_stationColumn)) : std::string_view();
    auto found = m_stations.find(station);
    if (found == m_stations.end()) {
        if (m_stations.size() == kMostStations)
            throw tables::TableFault("The column of the station holds more than " +
                                     std::to_string(kMostStations) + " different texts.");
        found = m_stations.emplace(station, static_cast<std::uint32_t>(m_data->stations.size())).first;
        m_data->stations.emplace_back(station);
    }
    m_data->stationNumbers.push(found->second);

    for (NumberColumn& column : m_data->readings) {
        const std::string_view text = next();
        if (text.empty())
            column.addBlank(classic::OutcomeKind::NotCalculated);
        else
            column.add(text);
    }
    for (std::size_t column = 0; column < m_data->indices.size(); ++column) {
        const auto classes = catalogue::scale(m_data->indices[column]).categories;
        const std::string_view text = next();
        const classic::OutcomeKind outcome = outcomeOfWord(next());
        std::optional<NumberColumn::ClassMark> mark;
        if (!classes.empty()) {
            const std::string_view label = next();
            mark = markOf(classes, label, next());
        }
        if (outcome == classic::OutcomeKind::Value)
            m_data->figures[column].add(text, mark);
        else
            m_data->figures[column].addBlank(outcome);
    }
    writeModels(block, row, at, state == RowState::Calculated);
}

// The cells of all figures of the models, of which some are shown.
void StoreWriter::writeModels(const tables::ResultBlock& block, std::size_t row, std::size_t at,
                              bool calculated)
{
    struct Cell {
        double value = standards::kNaN;
        bool marked = false;
        std::string_view label;
        std::string_view severity;
    };
    std::array<Cell, catalogue::kMostAdditionResults> cells;
    std::array<double, catalogue::kMostAdditionResults> numbers{};
    for (const catalogue::Addition* const model : m_data->facts.options.models.models) {
        for (std::size_t i = 0; i < model->results.size(); ++i) {
            const catalogue::AdditionResult& result = model->results[i];
            Cell& cell = cells.at(i);
            cell = {};
            const std::string_view text = block.cell(row, at++);
            cell.value = (result.choices.empty() ? tables::cellNumber(text, '.')
                                                 : catalogue::choiceOf(result.choices, text))
                             .value_or(standards::kNaN);
            cell.marked = block.cell(row, at++) == "outside";
            if (!catalogue::scaleOf(result).categories.empty()) {
                cell.label = block.cell(row, at++);
                cell.severity = block.cell(row, at++);
            }
            numbers.at(i) = cell.value;
        }
        for (std::size_t i = 0; i < m_data->facts.figures.size(); ++i) {
            const catalogue::Figure& figure = m_data->facts.figures[i];
            if (figure.model != model)
                continue;
            NumberColumn& column = m_data->figures[m_data->indices.size() + i];
            const Cell& cell = cells.at(figure.result);
            if (!calculated || std::isnan(cell.value)) {
                column.addBlank(calculated ? classic::OutcomeKind::NoValue
                                           : classic::OutcomeKind::NotCalculated);
                continue;
            }
            const catalogue::AdditionResult& result = figure.info();
            const auto flag = result.reachedBy.empty() ? std::nullopt : model->resultPlace(result.reachedBy);
            std::optional<NumberColumn::ClassMark> mark;
            if (flag && numbers.at(*flag) == 0)
                mark = {TableStore::kNotReached, cell.marked};
            else if (cell.marked)
                mark = {TableStore::kMarked, false};
            else
                mark = markOf(catalogue::scaleOf(result).categories, cell.label, cell.severity);
            column.add(result.choices.empty() ? catalogue::resultText(result, cell.value)
                                              : values::plainText(cell.value),
                       mark);
        }
    }
}

std::shared_ptr<const TableStore> StoreWriter::finish(const tables::RunCounts& counts)
{
    m_data->texts.finish();
    m_data->facts.counts = counts;
    m_data->facts.step = m_steps.step();
    return std::shared_ptr<const TableStore>(new TableStore(std::move(m_data)));
}

} // namespace comfortics::workbench
