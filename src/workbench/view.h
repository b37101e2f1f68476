// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which rows of a store are seen, and in which order. The store itself never changes.
#pragma once

#include "workbench/table_store.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::workbench {

/// What rows are sorted or filtered by.
struct Field {
    enum class Kind : std::uint8_t {
        Row, ///< the place in the file
        Time,
        Station,
        State,
        Reading, ///< `place` is that of classic::Reading
        Figure,  ///< `place` counts the columns of the store
        Carried, ///< `place` counts the columns that are carried along: numbers in front of texts
    };
    Kind kind = Kind::Row;
    std::size_t place = 0;

    friend bool operator==(const Field&, const Field&) = default;
};

/// What a row must be to be seen. A test has what its kind reads; the rest is not looked at.
struct Condition {
    enum class Test : std::uint8_t {
        Range,   ///< a reading or figure from `least` up to and with `most`
        Period,  ///< a time from `from` up to but without `to`
        Station, ///< `station`
        State,   ///< `state`
        Again,   ///< calculated again by the robust rules
        Value,   ///< a reading or figure that stands
        Blank,   ///< a reading or figure without a value, whatever the reason
        Outcome, ///< a figure with `outcome`
        Class,   ///< a figure in the class at `place` of its scale, or with that word
        Is,      ///< a carried cell that is `text`
        Holds,   ///< a carried cell that holds `text`, whatever its case and accents
        Marked,  ///< a figure of a model that stands outside of its range
    };
    Test test = Test::Range;
    Field field{};
    std::optional<double> least{};
    std::optional<double> most{};
    std::optional<std::int64_t> from{}; ///< as tables::Moment has it [s]
    std::optional<std::int64_t> to{};
    std::string station{};
    std::string text{};
    RowState state = RowState::Calculated;
    classic::OutcomeKind outcome = classic::OutcomeKind::Value;
    std::size_t place = 0;

    friend bool operator==(const Condition&, const Condition&) = default;
};

/// What is wanted of a store: the rows that meet all conditions. Rows of equal key keep their order; those
/// without a key stand last, whatever the direction.
struct ViewRequest {
    std::shared_ptr<const TableStore> store;
    std::vector<Condition> conditions{};
    Field sortBy{};
    bool descending = false;
};

struct View {
    std::vector<std::uint32_t> rows; ///< of the store, in the order in which they are seen
    bool filtered = false;           ///< there are conditions
    std::string words;               ///< the conditions, for a heading; empty without one
    /// The same rows as they stand in the table; null where none are left out.
    std::shared_ptr<const std::vector<std::uint32_t>> ascending{};
};

/// Asks `goOn` now and then; a view that is not wanted any more comes to nothing.
View makeView(const ViewRequest& request, const std::function<bool()>& goOn);

/// A condition as a short text: "195 from 32 to 38", "Ta is blank", "station is A".
std::string inWords(const Condition& condition, const TableStore& store);

/// What a row came to, in a word: "calculated", "skipped", "failed", "refused".
std::string_view stateWord(RowState state);

/// What a column is called: "195", "pmv_iso.pmv", and with its name behind.
std::string columnId(const workspace::Item& item);
std::string columnTitle(const workspace::Item& item);

/// What a column of the store is called, shortly: "Ta", "195".
std::string fieldName(const Field& field, const TableStore& store);

} // namespace comfortics::workbench
