// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/row_runner.h"
#include "catalogue/categories.h"
#include "classic/calculation.h"
#include "classic/outcome.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::batch {

/// What a row came to. Texts are valid until the next call.
class RowFigures {
public:
    virtual ~RowFigures() = default;

    virtual RowStatus status() const = 0;
    /// "ok", or "skipped: …" or "failed: …" with the reason.
    virtual const std::string& statusText() const = 0;

    // Of a row that was calculated; `place` counts the wanted indices.

    virtual std::string_view result(std::size_t place) = 0;
    virtual std::string_view live(formulas::Live quantity) = 0;
    virtual classic::OutcomeKind outcome(std::size_t place) = 0;
    virtual std::string whyBlank(std::size_t place) = 0;
    virtual std::optional<catalogue::Meaning> meaning(std::size_t place) = 0;

protected:
    RowFigures() = default;
    RowFigures(const RowFigures&) = default;
    RowFigures& operator=(const RowFigures&) = default;
};

/// What is calculated for each row.
struct WantedFigures {
    std::vector<int> indices;
    bool live = false;
    bool meanings = false;
};

/// Calculates rows that start from empty boxes, so that what each gives depends on it alone. One lives on one
/// thread.
class RowCalculator {
public:
    static constexpr std::size_t kMostRows = 256;

    using Readings = std::array<std::string_view, classic::kReadingCount>;
    /// Is shown each row in order; false ends the calculation.
    using Show = std::function<bool(std::size_t row, RowFigures& figures)>;

    virtual ~RowCalculator() = default;
    RowCalculator(const RowCalculator&) = delete;
    RowCalculator& operator=(const RowCalculator&) = delete;

    /// Calculates up to kMostRows rows.
    virtual void calculate(std::span<const Readings> rows, const Show& show) = 0;

    /// Of all rows that were shown.
    const RowCounts& counts() const noexcept { return m_counts; }
    /// Messages of solvers that did not converge.
    virtual std::size_t messages() const { return 0; }

protected:
    RowCalculator() = default;

    RowCounts m_counts;
};

/// What failed in a row that was calculated, index by index.
std::string reasons(RowFigures& figures, const std::vector<int>& indices);

/// By the rules of the settings. Limits must outlive the calculator.
std::unique_ptr<RowCalculator> makeRowCalculator(const classic::Limits& limits,
                                                 const classic::Settings& settings,
                                                 const classic::AssumptionTexts& assumptions,
                                                 const WantedFigures& wanted);

} // namespace comfortics::batch
