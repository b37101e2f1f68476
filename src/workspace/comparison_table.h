// SPDX-License-Identifier: GPL-3.0-or-later
//
// Pinned situations beside the present one as a table of texts, for windows, the clipboard and files.
#pragma once

#include "catalogue/categories.h"
#include "workspace/comparison.h"
#include "workspace/item.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::workspace {

struct ComparisonCell {
    std::string shown; ///< with the decimals that mean something; empty where there is no value
    std::string text;  ///< with all decimals
    std::string note;  ///< why it is blank, or what there is to know of it
    std::optional<double> number;
    std::optional<catalogue::Meaning> meaning; ///< of a class
    bool doubtful = false;                     ///< outside of limits that are ignored
};

enum class ComparisonColumnKind : std::uint8_t { Quantity, Unit, Value, Class, Difference };

struct ComparisonColumn {
    ComparisonColumnKind kind;
    std::optional<std::size_t> pin; ///< none for the present
    std::string heading;            ///< by itself, for instance "Now less morning"
    std::string brief;              ///< beside the others, for instance "Difference"
    std::string note;
};

struct ComparisonRow {
    std::optional<Item> item{}; ///< an index or a figure of a model; none for any other quantity
    std::vector<ComparisonCell> cells;
};

struct ComparisonTable {
    std::vector<ComparisonColumn> columns;
    std::vector<ComparisonRow> rows;
};

/// Readings, live quantities and the given items of a situation, the present one, and of what is pinned. A
/// difference is the present number less the pinned one, before either was rounded, with the decimals of the
/// texts; where one of them has no number there is none. Assumptions, person and place are rows where they
/// differ.
ComparisonTable comparisonTable(const Situation& present, const Comparison& comparison,
                                const std::vector<Item>& items);

/// A cell by its row and column.
using ComparisonPlace = std::pair<std::size_t, std::size_t>;

/// The rows and columns in which the given cells lie, whole, with quantities and units before them and the
/// class of each value.
ComparisonTable partOf(const ComparisonTable& table, const std::set<ComparisonPlace>& cells);

/// For the clipboard: cells apart by tabs, all decimals.
std::string plainTable(const ComparisonTable& table);

/// As CSV with quoted cells, lines ended by CR LF, all decimals.
std::string csvTable(const ComparisonTable& table);

} // namespace comfortics::workspace
