// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/ordered_crew.h"
#include "batch/row_runner.h"
#include "classic/calculation.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace comfortics::batch {

/// The texts of the six boxes, or of a row's six cells, in the order of the sheet.
using BoxTexts = std::array<std::string, classic::kReadingCount>;

BoxTexts boxTexts(const classic::ReadingBoxes& boxes);

/// Puts texts that boxes once held into boxes again, past the cleaning handlers. Views are told.
void restore(classic::ReadingBoxes& boxes, const BoxTexts& texts);

/// What a run of the sheet calculates with.
struct Terms {
    classic::Settings settings;
    classic::AssumptionTexts assumptions;

    friend bool operator==(const Terms&, const Terms&) = default;
};

enum class RowState : std::uint8_t {
    NotRun,
    Skipped,  ///< a needed cell is missing or was emptied by the cleaning; not calculated
    Rejected, ///< passed the row test, but a needed box holds no number; calculated to blanks
    Failed,   ///< the calculation failed; blank
    Calculated,
};

/// What became of one row of the sheet. Views into the SheetRows that gave it, valid until its next
/// call.
struct SheetRow {
    RowState state = RowState::NotRun;
    const BoxTexts* asked = nullptr;      ///< the boxes as they stood before the calculation
    std::vector<std::string_view> values; ///< of the selected indices; empty if not calculated at all
    std::size_t lostValues = 0;           ///< values that are blank for a failure, by the robust rules
    std::vector<std::string_view> messages;
};

/// Calculates rows of the sheet on several threads and gives them in order. The outcome is that of
/// a main window into whose boxes one row is written after the other.
///
/// There a row can depend on the texts that the row before has left: a cell equal to the text of
/// its box raises no change event, so it is not cleaned again and leaves its partner alone (a dew
/// point that stays is not compared with the new air temperature). So each block of rows starts
/// from the box texts that it most likely finds, and a block that turns out to have started from
/// others is calculated again.
class SheetRows {
public:
    using Cells = std::function<BoxTexts(std::size_t row)>;

    /// Rows `first` to `last`; `before` are the texts of the boxes before the first. `cells` is
    /// asked on the thread that calls.
    SheetRows(const classic::Limits& limits, const Terms& terms, unsigned threads, Cells cells,
              std::size_t first, std::size_t last, BoxTexts before);

    const Terms& terms() const noexcept { return m_terms; }

    /// Waits up to that long; true if `next` would not wait. There must be a next row.
    bool nextIsDone(std::chrono::milliseconds atMost);
    const SheetRow& next();

    /// The texts of the boxes after the last row that was given.
    BoxTexts standing();

private:
    struct Block {
        std::vector<BoxTexts> cells;
        BoxTexts preceding;            // the cells of the row before, from which it is guessed
        std::optional<BoxTexts> start; // of the boxes, where it is known
    };
    struct Row {
        RowState state{};
        BoxTexts asked;
        std::size_t valuesEnd = 0; // behind its last text in `lengths`
        std::size_t lostValues = 0;
    };
    struct Done {
        std::vector<BoxTexts> cells;
        BoxTexts start;
        BoxTexts end;
        std::vector<Row> rows;
        std::string texts; // all values of all rows, one behind the other
        std::vector<std::uint16_t> lengths;
        std::vector<std::pair<std::size_t, std::string>> messages; // with their row
    };
    using Crew = OrderedCrew<Block, Done>;

    class Worker;

    void submitAhead();
    void openBlock();

    Terms m_terms;
    std::vector<int> m_indices;
    Cells m_cells;
    std::size_t m_ahead; // the next row to be submitted
    std::size_t m_last;
    std::shared_ptr<Worker> m_own; // for blocks that have to be calculated again
    BoxTexts m_end;                // of the boxes after the blocks that are done with
    Done m_block;                  // the block that rows are given from
    std::size_t m_given = 0;       // rows of it that were given
    std::size_t m_textsGiven = 0;
    SheetRow m_row;
    Crew m_crew;
};

} // namespace comfortics::batch
