// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_figures.h"

#include "classic/precise_rows.h"

#include <utility>

namespace comfortics::batch {

namespace {

// Row after row through a calculation of its own.
class OneByOne final : public RowCalculator, private RowFigures {
public:
    OneByOne(const classic::Limits& limits, const classic::Settings& settings,
             const classic::AssumptionTexts& assumptions, const WantedFigures& wanted)
        : m_runner(limits, settings), m_indices(wanted.indices)
    {
        m_runner.calculation().assumptions.write(assumptions);
        m_runner.calculation().advice = classic::kTerminalAdvice;
    }

    void calculate(std::span<const Readings> rows, const Show& show) override
    {
        for (std::size_t row = 0; row < rows.size(); ++row) {
            m_status = m_runner.run(rows[row]);
            m_counts = m_runner.counts();
            if (!show(row, *this))
                return;
        }
    }

    std::size_t messages() const override { return m_runner.messages(); }

private:
    int index(std::size_t place) const { return m_indices[place]; }

    RowStatus status() const override { return m_status; }
    const std::string& statusText() const override { return m_runner.statusText(); }
    std::string_view result(std::size_t place) override
    {
        return m_runner.calculation().results.lbl_results[static_cast<std::size_t>(index(place))].caption();
    }
    std::string_view live(formulas::Live quantity) override
    {
        return m_runner.calculation().liveLabel(quantity).caption();
    }
    classic::OutcomeKind outcome(std::size_t place) override
    {
        return m_runner.calculation().outcome(index(place)).kind;
    }
    std::string whyBlank(std::size_t place) override { return m_runner.calculation().whyBlank(index(place)); }
    std::optional<catalogue::Meaning> meaning(std::size_t place) override
    {
        return m_runner.calculation().meaning(index(place));
    }

    RowRunner m_runner;
    std::vector<int> m_indices;
    RowStatus m_status = RowStatus::Skipped;
};

// By the precise rules no row depends on another: the rows are calculated together.
class Together final : public RowCalculator, private RowFigures {
public:
    Together(const classic::Limits& limits, const classic::Settings& settings,
             const classic::AssumptionTexts& assumptions, const WantedFigures& wanted)
        : m_indices(wanted.indices),
          m_rows(limits, settings, m_indices, {.live = wanted.live, .meanings = wanted.meanings})
    {
        static_assert(kMostRows <= classic::PreciseRows::kMostRows);
        classic::AssumptionBoxes boxes;
        boxes.write(assumptions);
        m_rows.setAssumptions(boxes.read());
    }

    void calculate(std::span<const Readings> rows, const Show& show) override
    {
        m_rows.clear();
        m_skipped.clear();
        for (const Readings& readings : rows) {
            m_boxes.clear();
            m_boxes.write(readings);
            m_taken = m_boxes.complete() && m_rows.take(m_boxes);
            m_skipped.push_back(m_taken ? std::string() : "skipped: " + m_boxes.whatIsWrong());
        }
        m_rows.calculate();
        m_at = 0;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            m_taken = m_skipped[row].empty();
            m_counts.add(status());
            for (std::size_t place = 0; m_taken && place < m_indices.size(); ++place)
                m_counts.lostValues += outcome(place) == classic::OutcomeKind::RunFailed ? 1U : 0U;
            m_statusText = m_taken ? "ok" : m_skipped[row];
            if (!show(row, *this))
                return;
            m_at += m_taken ? 1 : 0;
        }
    }

private:
    RowStatus status() const override { return m_taken ? RowStatus::Calculated : RowStatus::Skipped; }
    const std::string& statusText() const override { return m_statusText; }
    std::string_view result(std::size_t place) override
    {
        m_text = classic::resultText(catalogue::row(m_indices[place]), m_rows.figure(place, m_at));
        return m_text;
    }
    std::string_view live(formulas::Live quantity) override
    {
        m_text = classic::liveText(m_rows.live(quantity, m_at));
        return m_text;
    }
    classic::OutcomeKind outcome(std::size_t place) override
    {
        return classic::outcomeKind(m_rows.figure(place, m_at).status);
    }
    std::string whyBlank(std::size_t place) override { return m_rows.whyNot(m_indices[place], m_at); }
    std::optional<catalogue::Meaning> meaning(std::size_t place) override
    {
        return m_rows.meaning(place, m_at);
    }

    std::vector<int> m_indices;
    classic::ReadingBoxes m_boxes;
    classic::PreciseRows m_rows;
    std::vector<std::string> m_skipped; // why; empty for a row that is calculated
    std::size_t m_at = 0;               // of the row that is shown, among those that were taken
    bool m_taken = false;
    std::string m_statusText;
    std::string m_text;
};

} // namespace

std::string reasons(RowFigures& figures, const std::vector<int>& indices)
{
    std::string text;
    for (std::size_t place = 0; place < indices.size(); ++place) {
        if (figures.outcome(place) != classic::OutcomeKind::RunFailed)
            continue;
        text += (text.empty() ? "" : " ") + std::to_string(indices[place]) + ": " + figures.whyBlank(place);
    }
    return text;
}

std::unique_ptr<RowCalculator> makeRowCalculator(const classic::Limits& limits,
                                                 const classic::Settings& settings,
                                                 const classic::AssumptionTexts& assumptions,
                                                 const WantedFigures& wanted)
{
    if (settings.rules == classic::Rules::Precise)
        return std::make_unique<Together>(limits, settings, assumptions, wanted);
    return std::make_unique<OneByOne>(limits, settings, assumptions, wanted);
}

} // namespace comfortics::batch
