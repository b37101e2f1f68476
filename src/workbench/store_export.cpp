// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/store_export.h"

#include "catalogue/catalogue.h"
#include "output/code_page.h"
#include "output/whole_file.h"
#include "tables/workbook_writer.h"
#include "workbench/row_inputs.h"

#include <algorithm>
#include <array>
#include <span>

namespace comfortics::workbench {

using tables::ResultColumn;
using Form = ExportRequest::Form;

namespace {

constexpr std::size_t kRowsOfBlock = 256;

// Passed through the writers where nothing more is wanted.
struct Ended {};
struct NotWritten {};

std::vector<ResultColumn> columnsOf(const ExportRequest& request)
{
    using Kind = ResultColumn::Kind;
    const TableStore& store = *request.store;
    std::vector<ResultColumn> columns = store.facts().carried;
    columns.push_back({"Status", "", Kind::Text});
    if (store.rowsAgain() > 0)
        columns.push_back({"Rules", "", Kind::Text});
    if (request.status)
        columns.push_back({"Line", "", Kind::Number});
    if (request.reasons)
        columns.push_back({"Reasons", "", Kind::Text});
    if (request.inputs) {
        if (store.facts().hasTime)
            columns.push_back({"Time taken", "", Kind::Text});
        for (const classic::ReadingInfo& info : classic::kReadingInfo)
            columns.push_back(
                {std::string(info.symbol()) + " taken", std::string(info.unit()), Kind::Number});
    }
    for (const workspace::Item& item : store.items()) {
        const std::string_view unit =
            item.model() != nullptr ? item.unit() : catalogue::row(item.index()).unit;
        columns.push_back({columnTitle(item), std::string(unit), item.isWord() ? Kind::Text : Kind::Number});
        if (request.status)
            columns.push_back({columnId(item) + " status", "", Kind::Text});
    }
    return columns;
}

// Why figures are blank, in sentences: the rows are calculated again for it, by the rules that they were
// calculated by.
class Reasons {
public:
    explicit Reasons(const TableStore& store) : m_store(store) {}

    std::string of(std::size_t row)
    {
        const std::size_t count = m_store.items().size();
        bool blank = false;
        for (std::size_t column = 0; column < count && !blank; ++column)
            blank =
                m_store.outcome(row, column) != classic::OutcomeKind::Value || m_store.isMarked(row, column);
        if (m_store.state(row) != RowState::Calculated || !blank)
            return {};
        return m_store.whyBlank(row, m_calculators);
    }

private:
    const TableStore& m_store;
    TableStore::Calculators m_calculators;
};

void append(tables::ResultBlock& block, const ExportRequest& request, std::size_t row, Reasons& reasons)
{
    const TableStore& store = *request.store;
    for (const std::string& cell : store.carried(row))
        block.add(cell);
    block.add(store.status(row));
    if (store.rowsAgain() > 0)
        block.add(classic::ruleName(store.rules(row)));
    if (request.status)
        block.add(std::to_string(store.line(row)));
    if (request.reasons)
        block.add(reasons.of(row));
    if (request.inputs) {
        if (store.facts().hasTime) {
            const auto time = store.time(row);
            block.add(time ? tables::momentText(*time) : std::string());
        }
        for (std::size_t i = 0; i < classic::kReadingCount; ++i)
            block.add(store.readingText(row, static_cast<classic::Reading>(i)));
    }
    const bool calculated = store.state(row) == RowState::Calculated;
    for (std::size_t column = 0; column < store.items().size(); ++column) {
        block.add(calculated ? store.figureText(row, column) : std::string());
        if (!request.status)
            continue;
        const bool marked = calculated && store.isMarked(row, column);
        block.add(marked       ? "value outside its range"
                  : calculated ? tables::outcomeWord(store.outcome(row, column))
                               : std::string_view());
    }
}

void writeRows(const ExportRequest& request, tables::ResultWriter& writer,
               const std::function<bool(double share)>& goOn)
{
    const std::vector<ResultColumn> columns = columnsOf(request);
    const std::size_t rows = request.view ? request.view->rows.size() : request.store->rows();
    Reasons reasons(*request.store);
    writer.begin(columns);
    for (std::size_t first = 0; first < rows; first += kRowsOfBlock) {
        if (!goOn(static_cast<double>(first) / static_cast<double>(rows)))
            throw Ended();
        tables::ResultBlock block(columns.size());
        for (std::size_t i = first; i < std::min(rows, first + kRowsOfBlock); ++i)
            append(block, request, request.view ? request.view->rows[i] : i, reasons);
        writer.write(block, writer.prepared(block));
    }
    if (!goOn(1))
        throw Ended();
    writer.end();
}

} // namespace

std::vector<std::pair<std::string, std::string>> exportMetadata(const ExportRequest& request)
{
    const RunFacts& facts = request.store->facts();
    auto lines = tables::runMetadata(facts.mapping, facts.layout, facts.options, facts.counts);
    std::vector<std::pair<std::string, std::string>> first{{"Program", request.program},
                                                           {"Source file", facts.source}};
    if (request.store->rowsAgain() > 0)
        first.emplace_back("Rows calculated again by the robust rules",
                           std::to_string(request.store->rowsAgain()));
    if (facts.counts.stopped)
        first.emplace_back("Stopped", "more rows follow in the table");
    for (auto& line : modelFacts(facts))
        lines.push_back(std::move(line));
    if (request.view) {
        first.emplace_back("Rows written", std::to_string(request.view->rows.size()));
        if (request.view->filtered)
            first.emplace_back("Rows that", request.view->words);
    }
    lines.insert(lines.begin(), first.begin(), first.end());
    return lines;
}

std::optional<std::string> exportStore(const ExportRequest& request,
                                       const std::function<bool(double share)>& goOn)
{
    output::WholeFile file(request.path);
    if (!file.result().succeeded())
        return file.result().error;
    const auto take = [&](std::string_view bytes) {
        std::string paged;
        if (request.form == Form::CsvWindows1252) {
            output::appendWindows1252(paged, bytes);
            bytes = paged;
        }
        if (!file.write(bytes))
            throw NotWritten();
    };
    try {
        if (request.form == Form::Xlsx) {
            tables::WorkbookWriter writer([&request] { return exportMetadata(request); }, take);
            writeRows(request, writer, goOn);
        } else {
            tables::SeparatedWriter writer(',', take);
            writeRows(request, writer, goOn);
        }
    } catch (const Ended&) {
        return std::nullopt;
    } catch (const NotWritten&) {
        return file.result().error;
    } catch (const tables::TableFault& fault) {
        return fault.what();
    }
    if (!goOn(1)) // stopped while a workbook was packed: what was promised not to be written is not
        return std::nullopt;
    const output::WriteResult result = file.commit();
    return result.succeeded() ? std::nullopt : std::optional(result.error);
}

} // namespace comfortics::workbench
