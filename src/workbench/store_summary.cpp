// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/store_summary.h"

#include <algorithm>
#include <vector>

namespace comfortics::workbench {

namespace {

constexpr std::size_t kRowsBetweenQuestions = 256;

// A row of a store as one of a batch.
class StoredFigures final : public batch::RowFigures {
public:
    explicit StoredFigures(const TableStore& store) : m_store(store) {}

    void stand(std::size_t row) { m_row = row; }

    batch::RowStatus status() const override
    {
        switch (m_store.state(m_row)) {
        case RowState::Calculated:
            return batch::RowStatus::Calculated;
        case RowState::Failed:
            return batch::RowStatus::Failed;
        default:
            return batch::RowStatus::Skipped;
        }
    }
    const std::string& statusText() const override { return m_text; } // a summary asks for none
    std::string_view result(std::size_t place) override { return m_text = m_store.figureText(m_row, place); }
    std::string_view live(formulas::Live) override { return {}; }
    classic::OutcomeKind outcome(std::size_t place) override { return m_store.outcome(m_row, place); }
    std::string whyBlank(std::size_t place) override { return m_store.whyBlank(m_row, place); }
    std::optional<catalogue::Meaning> meaning(std::size_t place) override
    {
        return m_store.meaning(m_row, place);
    }

private:
    const TableStore& m_store;
    std::size_t m_row = 0;
    std::string m_text;
};

} // namespace

workspace::Item itemOf(const tables::IndexSummary& summary)
{
    return summary.figure ? workspace::Item(*summary.figure) : workspace::Item(summary.index);
}

tables::TableSummary summaryOf(const TableStore& store, const View& view,
                               const std::function<bool(double share)>& goOn)
{
    std::vector<std::uint32_t> rows = view.rows;
    std::sort(rows.begin(), rows.end());
    std::vector<int> indices;
    for (const workspace::Item& item : store.items())
        if (item.model() == nullptr)
            indices.push_back(item.index());
    tables::Summarizer summarizer(indices, store.facts().figures);
    StoredFigures figures(store);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i % kRowsBetweenQuestions == 0 &&
            !goOn(static_cast<double>(i) / static_cast<double>(rows.size())))
            return {};
        const std::size_t row = rows[i];
        figures.stand(row);
        const auto add = [&](const auto&... ofModels) {
            summarizer.add(store.station(row), store.line(row), store.time(row),
                           store.state(row) == RowState::Refused ? nullptr : &figures, ofModels...);
        };
        if (store.state(row) != RowState::Calculated) { // what has no row has no figures either
            add();
            continue;
        }
        const std::size_t first = indices.size();
        add([&](std::size_t place) -> tables::ModelValue {
            const std::size_t column = first + place;
            if (store.outcome(row, column) != classic::OutcomeKind::Value)
                return {};
            return {store.numberText(row, column), store.classOf(row, column), store.isMarked(row, column)};
        });
    }
    return summarizer.summary(store.facts().step);
}

} // namespace comfortics::workbench
