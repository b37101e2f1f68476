// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/sheet_rows.h"

#include "batch/selected_indices.h"
#include "classic/precise_rows.h"

#include <algorithm>

namespace comfortics::batch {

using classic::kReadingCount;
using classic::Reading;

namespace {

constexpr std::size_t kRowsPerBlock = 128;

std::array<std::string_view, kReadingCount> views(const BoxTexts& texts)
{
    std::array<std::string_view, kReadingCount> result;
    std::copy(texts.begin(), texts.end(), result.begin());
    return result;
}

} // namespace

BoxTexts boxTexts(const classic::ReadingBoxes& boxes)
{
    BoxTexts texts;
    for (std::size_t i = 0; i < kReadingCount; ++i)
        texts[i] = boxes.text(static_cast<Reading>(i));
    return texts;
}

void restore(classic::ReadingBoxes& boxes, const BoxTexts& texts)
{
    for (std::size_t i = 0; i < kReadingCount; ++i) {
        controls::TextBox& box = boxes.box(static_cast<Reading>(i));
        const controls::Event whole = box.change;
        box.change.handle({});
        box.setText(texts[i]);
        box.change = whole;
    }
}

/// One calculation with its boxes, which go from row to row as those of the main window do.
class SheetRows::Worker {
public:
    Worker(const classic::Limits& limits, const Terms& terms, std::vector<int> indices)
        : m_runner(limits, terms.settings), m_indices(std::move(indices))
    {
        m_runner.calculation().assumptions.write(terms.assumptions);
        if (terms.settings.rules != classic::Rules::Precise)
            return;
        m_together = std::make_unique<classic::PreciseRows>(limits, terms.settings, m_indices,
                                                            classic::PreciseRows::Wanted{});
        m_together->setAssumptions(m_runner.calculation().assumptions.read());
    }

    Done run(Block& block)
    {
        classic::ReadingBoxes& boxes = m_runner.calculation().readings;
        if (block.start)
            restore(boxes, *block.start);
        else
            leaveLikely(block.preceding);
        Done done;
        done.cells = std::move(block.cells);
        done.start = boxTexts(boxes);
        done.rows.reserve(done.cells.size());
        done.lengths.reserve(done.cells.size() * m_indices.size());
        if (m_together)
            runTogether(done);
        else
            for (const BoxTexts& cells : done.cells)
                runRow(cells, done);
        done.end = boxTexts(boxes);
        return done;
    }

    /// The box texts that a row leaves which was calculated from these.
    BoxTexts leftBy(const BoxTexts& asked)
    {
        restore(m_runner.calculation().readings, asked);
        m_runner.runBoxes();
        return boxTexts(m_runner.calculation().readings);
    }

private:
    // The box texts that a row most likely leaves; no calculation is spent on them.
    void leaveLikely(const BoxTexts& cells)
    {
        classic::ReadingBoxes& boxes = m_runner.calculation().readings;
        boxes.clear();
        boxes.write(views(cells));
        if (!m_together && boxes.complete() && boxes.valid())
            boxes.round();
    }

    // By the precise rules the boxes go from row to row as ever, and the rows that they leave are calculated
    // together.
    void runTogether(Done& done)
    {
        static_assert(kRowsPerBlock <= classic::PreciseRows::kMostRows);
        classic::ReadingBoxes& boxes = m_runner.calculation().readings;
        m_together->clear();
        for (const BoxTexts& cells : done.cells) {
            boxes.write(views(cells));
            done.rows.push_back({RowState::Skipped, boxTexts(boxes), 0, 0});
            if (boxes.complete())
                done.rows.back().state = m_together->take(boxes) ? RowState::Calculated : RowState::Rejected;
        }
        m_together->calculate();
        std::size_t at = 0; // of the rows that were taken
        for (Row& row : done.rows) {
            for (std::size_t place = 0; row.state != RowState::Skipped && place < m_indices.size(); ++place) {
                std::string text;
                if (row.state == RowState::Calculated) {
                    const auto figure = m_together->figure(place, at);
                    text = classic::resultText(catalogue::row(m_indices[place]), figure);
                    const bool lost = classic::outcomeKind(figure.status) == classic::OutcomeKind::RunFailed;
                    row.lostValues += lost ? 1U : 0U;
                }
                done.texts += text;
                done.lengths.push_back(static_cast<std::uint16_t>(text.size()));
            }
            row.valuesEnd = done.lengths.size();
            at += row.state == RowState::Calculated ? 1U : 0U;
        }
    }

    void runRow(const BoxTexts& cells, Done& done)
    {
        classic::Calculation& calculation = m_runner.calculation();
        calculation.readings.write(views(cells));
        Row row{RowState::Skipped, boxTexts(calculation.readings), done.lengths.size(), 0};
        if (calculation.readings.complete()) {
            const std::size_t lostBefore = m_runner.counts().lostValues;
            switch (m_runner.runBoxes()) {
            case RowStatus::Calculated:
                row.state = RowState::Calculated;
                break;
            case RowStatus::Failed:
                row.state = RowState::Failed;
                break;
            case RowStatus::Skipped:
                row.state = RowState::Rejected;
                break;
            }
            row.lostValues = m_runner.counts().lostValues - lostBefore;
            for (const int index : m_indices) {
                const std::string& text =
                    calculation.results.lbl_results[static_cast<std::size_t>(index)].caption();
                done.texts += text;
                done.lengths.push_back(static_cast<std::uint16_t>(text.size()));
            }
            row.valuesEnd = done.lengths.size();
            for (const std::string& message : m_runner.rowMessages())
                done.messages.emplace_back(done.rows.size(), message);
        }
        done.rows.push_back(std::move(row));
    }

    RowRunner m_runner;
    const std::vector<int> m_indices;
    std::unique_ptr<classic::PreciseRows> m_together; // by the precise rules alone
};

SheetRows::SheetRows(const classic::Limits& limits, const Terms& terms, unsigned threads, Cells cells,
                     std::size_t first, std::size_t last, BoxTexts before)
    : m_terms(terms), m_indices(selectedIndices(terms.settings.selection)), m_cells(std::move(cells)),
      m_ahead(first), m_last(last), m_own(std::make_shared<Worker>(limits, terms, m_indices)),
      m_end(std::move(before)), m_crew(threads, [&]() -> Crew::Work {
          const auto worker = std::make_shared<Worker>(limits, terms, m_indices);
          return [worker](Block& block) { return worker->run(block); };
      })
{
    m_block.end = m_end;
    submitAhead();
}

void SheetRows::submitAhead()
{
    while (m_ahead <= m_last && !m_crew.full()) {
        Block block;
        if (m_crew.empty() && m_block.rows.empty())
            block.start = m_end;
        else
            block.preceding = m_cells(m_ahead - 1);
        for (; m_ahead <= m_last && block.cells.size() < kRowsPerBlock; ++m_ahead)
            block.cells.push_back(m_cells(m_ahead));
        m_crew.submit(std::move(block));
    }
}

bool SheetRows::nextIsDone(std::chrono::milliseconds atMost)
{
    return m_given < m_block.rows.size() || m_crew.nextIsDone(atMost);
}

void SheetRows::openBlock()
{
    m_end = m_block.end;
    Done done = m_crew.takeNext();
    if (done.start != m_end) {
        Block again{std::move(done.cells), {}, {m_end}};
        done = m_own->run(again);
    }
    m_block = std::move(done);
    m_given = 0;
    m_textsGiven = 0;
    submitAhead();
}

const SheetRow& SheetRows::next()
{
    if (m_given == m_block.rows.size())
        openBlock();
    const Row& row = m_block.rows[m_given];
    m_row.state = row.state;
    m_row.asked = &row.asked;
    m_row.lostValues = row.lostValues;
    m_row.values.clear();
    std::size_t length = m_given == 0 ? 0 : m_block.rows[m_given - 1].valuesEnd;
    for (; length < row.valuesEnd; ++length) {
        m_row.values.emplace_back(m_block.texts.data() + m_textsGiven, m_block.lengths[length]);
        m_textsGiven += m_block.lengths[length];
    }
    m_row.messages.clear();
    for (const auto& [place, message] : m_block.messages)
        if (place == m_given)
            m_row.messages.emplace_back(message);
    ++m_given;
    return m_row;
}

BoxTexts SheetRows::standing()
{
    if (m_given == m_block.rows.size())
        return m_block.end;
    if (m_given == 0)
        return m_end;
    const Row& row = m_block.rows[m_given - 1];
    return row.state == RowState::Skipped ? row.asked : m_own->leftBy(row.asked);
}

} // namespace comfortics::batch
