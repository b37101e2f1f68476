// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a run over a table has come to, row by row, for looking at it in any order.
#pragma once

#include "batch/model_columns.h"
#include "batch/row_figures.h"
#include "catalogue/categories.h"
#include "classic/limits.h"
#include "classic/reading_boxes.h"
#include "tables/moment.h"
#include "tables/table_run.h"
#include "workbench/chunked.h"
#include "workbench/number_column.h"
#include "workbench/spill_file.h"
#include "workspace/item.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::workbench {

/// What a row came to.
enum class RowState : std::uint8_t {
    Calculated,
    Skipped, ///< a reading is missing or out of its range
    Failed,  ///< the run failed
    Refused, ///< it could not be read or mapped
};

/// What was run over what.
struct RunFacts {
    std::string source;  ///< the file, or "clipboard", as the user knows it
    std::string place{}; ///< where the readings are from, where the file tells it
    tables::Mapping mapping{};
    tables::Layout layout{};
    tables::RunOptions options{};             ///< rules, limits, selection and assumptions
    std::vector<catalogue::Figure> figures{}; ///< of models that are shown beside the indices
    workspace::FieldTexts person{};           ///< what was typed for them
    tables::RunCounts counts{};
    /// The columns that are carried along, with their names and units.
    std::vector<tables::ResultColumn> carried{};
    bool hasTime = false;
    bool hasStation = false;
    std::optional<double> step{}; ///< between rows: the most frequent one [s]
    unsigned number = 0;          ///< of the run, from 1, in this session

    bool hasModels() const { return !figures.empty(); }
};

/// The rows of a run: figures in four bytes each, with their outcome and class; texts that are carried along
/// in a temporary file. It does not change once it is filled: any thread may look. Rows count from 0, in the
/// order of the file; columns count the indices of the run, then its figures of models.
class TableStore {
public:
    const RunFacts& facts() const noexcept { return m_data->facts; }
    std::size_t rows() const noexcept { return m_data->lines.size(); }
    /// What the columns are: indices in catalogue order, then figures of models.
    const std::vector<workspace::Item>& items() const noexcept { return m_data->items; }

    /// The line of the file, or row of the sheet, from 1.
    std::size_t line(std::size_t row) const { return m_data->lines[row]; }
    std::optional<tables::Moment> time(std::size_t row) const;
    /// All stations, in the order in which they came; an empty one where no column tells them, or a row could
    /// not be read.
    const std::vector<std::string>& stations() const noexcept { return m_data->stations; }
    std::size_t stationNumber(std::size_t row) const { return m_data->stationNumbers[row]; }
    const std::string& station(std::size_t row) const { return stations()[stationNumber(row)]; }

    RowState state(std::size_t row) const;
    /// "ok", or "skipped: …", "failed: …" or "refused: …" with the reason.
    std::string status(std::size_t row) const;
    /// The cells of the columns that are carried along; empty ones where the row was refused.
    std::vector<std::string> carried(std::size_t row) const;

    /// The readings as they were taken, in their units.
    std::optional<double> reading(std::size_t row, classic::Reading reading) const;
    std::string readingText(std::size_t row, classic::Reading reading) const;

    /// Of a figure that is one of several words the number of the word.
    std::optional<double> figure(std::size_t row, std::size_t column) const;
    std::string figureText(std::size_t row, std::size_t column) const;
    /// Its number alone, as it is shown.
    std::string numberText(std::size_t row, std::size_t column) const;
    classic::OutcomeKind outcome(std::size_t row, std::size_t column) const;
    /// The class of a figure, and its severity; none where the figure has none.
    std::optional<catalogue::Meaning> meaning(std::size_t row, std::size_t column) const;
    /// The place of its class, or of its word, among the item's classNames().
    std::optional<std::size_t> classOf(std::size_t row, std::size_t column) const;
    /// Whether a value of a model stands though it lies outside of the model's range.
    bool isMarked(std::size_t row, std::size_t column) const;

    /// Why a figure is blank or marked, in a sentence; empty where all is well. The row is calculated again
    /// for it.
    std::string whyBlank(std::size_t row, std::size_t column) const;
    /// What calculates rows again, for whoever asks about many; of one store and thread.
    struct Calculators {
        std::unique_ptr<batch::RowCalculator> first;
        std::unique_ptr<batch::RowCalculator> again;
    };
    /// Why figures of a calculated row are blank or marked, each with its number or id: "195: … 211: …".
    std::string whyBlank(std::size_t row, Calculators& calculators) const;

    /// Whether the row was calculated again by the robust rules, after the run had failed on it.
    bool again(std::size_t row) const { return againPlace(row).has_value(); }
    std::size_t rowsAgain() const noexcept { return m_again ? m_againRows.size() : 0; }
    classic::Rules rules(std::size_t row) const;

    /// This with the rows of another run in the place of its own; the rest is shared. `rows` ascend; `again`
    /// has a row and the same indices for each of them.
    std::shared_ptr<const TableStore> with(std::vector<std::uint32_t> rows,
                                           std::shared_ptr<const TableStore> again) const;

    /// What it holds in memory [bytes].
    std::size_t bytes() const;
    /// What so many rows and columns of figures will hold [bytes].
    static std::size_t expectedBytes(std::size_t rows, std::size_t columns);

private:
    friend class StoreWriter;

    struct Data {
        RunFacts facts;
        const classic::Limits* limits = nullptr;
        std::vector<int> indices;
        std::vector<workspace::Item> items;
        // What reads the inputs of models again; none without models.
        std::optional<batch::ModelColumns> models;
        std::optional<tables::RowMapper> mapper;
        Chunked<std::uint32_t> lines;
        Chunked<std::int64_t> seconds;
        Chunked<std::int16_t> offsets;
        Chunked<std::uint32_t> stationNumbers;
        Chunked<RowState> states;
        std::vector<std::string> stations;
        std::array<NumberColumn, classic::kReadingCount> readings;
        std::vector<NumberColumn> figures;
        SpillFile texts;

        std::size_t bytes() const;
    };

    // In place of a class: a value outside of its model's range, and a time within which nothing is reached.
    // No scale has so many classes.
    static constexpr std::size_t kMarked = 14;
    static constexpr std::size_t kNotReached = 13; // with the other sign marked, too

    explicit TableStore(std::shared_ptr<const Data> data) : m_data(std::move(data)) {}

    bool isIndex(std::size_t column) const { return column < m_data->indices.size(); }
    std::optional<NumberColumn::ClassMark> mark(std::size_t row, std::size_t column) const;
    std::vector<std::string> modelReasons(std::size_t row, batch::RowFigures& figures) const;
    std::optional<std::size_t> againPlace(std::size_t row) const;
    std::unique_ptr<batch::RowCalculator> makeCalculator() const;
    void calculate(std::size_t row, batch::RowCalculator& calculator,
                   const std::function<void(batch::RowFigures&)>& show) const;

    std::shared_ptr<const Data> m_data;
    std::vector<std::uint32_t> m_againRows;
    std::shared_ptr<const TableStore> m_again;
};

} // namespace comfortics::workbench
