// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "core/calculation.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace comfortics::batch {

/// Answers the models' message boxes of a batch: counts them, shows none.
class MessageCounter final : public controls::Messages {
public:
    controls::Answer show(const controls::MessageBox&) override
    {
        ++m_count;
        return controls::Answer::Ok;
    }
    std::size_t count() const noexcept { return m_count; }

private:
    std::size_t m_count = 0;
};

enum class RowStatus { Calculated, Skipped, Failed };

/// How many rows of a batch ended how.
struct RowCounts {
    std::size_t calculated = 0;
    std::size_t skipped = 0;
    std::size_t failed = 0;
    std::size_t lostValues = 0; ///< values of calculated rows that are blank for a failure

    std::size_t total() const { return calculated + skipped + failed; }
    void add(RowStatus status);
    void add(const RowCounts& other);
};

/// Runs the rows of a batch through a calculation of its own, one after another. What a row gives
/// depends on that row alone: each starts from empty boxes.
class RowRunner {
public:
    RowRunner(const core::Limits& limits, const core::Settings& settings);

    /// Assumptions may be written here before the first row.
    core::Calculation& calculation() noexcept { return m_calculation; }

    RowStatus run(const std::array<std::string_view, core::kReadingCount>& readings);

    /// "ok", or "skipped: …" or "failed: …" with the reason.
    const std::string& statusText() const noexcept { return m_statusText; }

    const RowCounts& counts() const noexcept { return m_counts; }
    /// Messages of solvers that did not converge.
    std::size_t messages() const noexcept { return m_messages.count(); }

private:
    void countLostValues();

    MessageCounter m_messages;
    core::Settings m_settings;
    core::Calculation m_calculation;
    std::string m_statusText;
    RowCounts m_counts;
};

} // namespace comfortics::batch
