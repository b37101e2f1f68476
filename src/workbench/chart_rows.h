// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/categories.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workbench {

/// A column that a chart can show.
struct ChartColumn {
    int index = 0; ///< or of a figure of a model that whose classes are its own; 0 where there is none
    std::string name{};
    std::string unit{}; ///< empty where it has none
    int decimals = 1;   ///< of its values; a mean has one more
    std::string id{};   ///< as columnId() has it; empty for a reading
    /// Of a figure that is one of several words.
    std::vector<std::string_view> words{};

    friend bool operator==(const ChartColumn&, const ChartColumn&) = default;
};

/// What stands on each chart besides its figures.
struct ChartOrigin {
    std::string source; ///< the file
    std::string rules;  ///< by which rules and use of limits it was calculated, a clause
    std::string run;    ///< which run it is, where that is not the present one; a sentence
    std::string filter; ///< which rows are left out by the view; a sentence, empty where none are
};

/// Rows of results as charts read them. It does not change while a chart is made.
class ChartRows {
public:
    virtual ~ChartRows() = default;

    virtual std::size_t rows() const = 0;
    /// The clock of a row [s from 1970-01-01 00:00 of that clock]; none where it has no time.
    virtual std::optional<std::int64_t> seconds(std::size_t row) const = 0;
    /// The place of its station among `stations`.
    virtual std::size_t station(std::size_t row) const = 0;
    virtual std::optional<double> value(std::size_t row, std::size_t column) const = 0;
    /// The class of a value inside its limits.
    virtual std::optional<catalogue::Meaning> meaning(std::size_t row, std::size_t column) const = 0;
    /// Of a figure that is one of several words the place of its word.
    virtual std::optional<std::size_t> word(std::size_t, std::size_t) const { return std::nullopt; }
    /// Why there is no value, a sentence.
    virtual std::string whyNone(std::size_t row, std::size_t column) const = 0;

    std::vector<ChartColumn> columns;
    std::vector<std::string> stations; ///< one without a name where no column tells it
    ChartOrigin origin;

protected:
    ChartRows() = default;
    ChartRows(const ChartRows&) = default;
    ChartRows& operator=(const ChartRows&) = default;
};

} // namespace comfortics::workbench
