// SPDX-License-Identifier: GPL-3.0-or-later
//
// The precise rules behind the boxes: their numbers go to the engine as they stand, and come back as numbers.
#pragma once

#include "catalogue/categories.h"
#include "classic/limits.h"
#include "classic/outcome.h"
#include "classic/reading_boxes.h"
#include "classic/settings.h"
#include "engine/calculation.h"
#include "formulas/assumptions.h"
#include "formulas/live_quantity.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::classic {

/// A few rows of readings that are calculated together. Each row's figures depend on that row alone.
class PreciseRows {
public:
    static constexpr std::size_t kMostRows = engine::kBlockPoints;

    /// What is wanted besides the figures of the indices.
    struct Wanted {
        bool live = false;     ///< the live quantities
        bool meanings = false; ///< the classes of the figures
    };

    /// `indices` are those to be calculated. Limits must outlive the rows.
    PreciseRows(const Limits& limits, const Settings& settings, const std::vector<int>& indices,
                Wanted wanted);
    PreciseRows(const PreciseRows&) = delete;
    PreciseRows& operator=(const PreciseRows&) = delete;

    void setAssumptions(const formulas::Assumptions& assumptions);

    void clear();
    /// Adds a row where the boxes are valid, after the rules that come before a calculation; false where they
    /// are not. There are fewer than kMostRows rows.
    bool take(ReadingBoxes& boxes);

    void calculate();

    struct Figure {
        double value; ///< NaN unless the status is Value
        Status status;
    };
    /// Of `indices[place]`.
    Figure figure(std::size_t place, std::size_t row) const;
    /// Only where meanings are wanted.
    std::optional<catalogue::Meaning> meaning(std::size_t place, std::size_t row) const;
    /// Only where live quantities are wanted.
    Figure live(formulas::Live quantity, std::size_t row) const;

    // One by one, for the rows that ask.

    /// Why an index has no value; empty where it has one.
    std::string whyNot(int index, std::size_t row);
    /// What its limits make of an index, whether or not they are kept: Value inside of them.
    Status limitStatus(int index, std::size_t row);
    /// What its limits judge, of an index that has any.
    struct Judged {
        double temperature; ///< [°C]
        double wind;        ///< [m/s]; NaN where it is not judged
    };
    Judged judged(int index, std::size_t row);

private:
    /// The rows of which the same readings are given.
    struct Group {
        std::array<std::vector<double>, kReadingCount> columns;
        Readings readings;
        std::unique_ptr<engine::BlockCalculator> calculator;
        std::vector<double> values; // by target, then by row
        std::vector<Status> statuses;
        std::vector<std::int8_t> categories; // likewise, of the indices
        std::vector<std::int8_t> severities;
        std::size_t count = 0;
    };
    struct Row {
        std::uint8_t group;
        std::uint16_t place;
    };

    void add(const ReadingBoxes& boxes);
    Figure at(std::size_t target, std::size_t row) const;
    Group& groupOf(bool globe, bool dewPoint);
    engine::BlockCalculator& alone(std::size_t row);

    std::vector<Target> m_targets; // the indices, then the live quantities
    std::size_t m_indexCount;
    bool m_ignoreLimits;
    bool m_meanings;
    std::array<comfortics::Limits, catalogue::kIndexCount> m_limits;
    Assumptions m_assumptions;
    std::array<Group, 4> m_groups;
    std::vector<Row> m_rows;
};

/// What a status of the engine is called here; all that a quantity or a step is lacking for is a failure.
OutcomeKind outcomeKind(Status status);

/// The texts of a live quantity and of a result; empty without a value.
std::string liveText(const PreciseRows::Figure& figure);
std::string resultText(const catalogue::CatalogueRow& row, const PreciseRows::Figure& figure);

} // namespace comfortics::classic
