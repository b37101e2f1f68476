// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/calculation.h"
#include "controls/dialogs.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::batch {

/// Answers the models' message boxes where nobody looks: counts them, keeps their texts, shows none.
class MessageKeeper final : public controls::Messages {
public:
    controls::Answer show(const controls::MessageBox& box) override
    {
        ++m_count;
        m_texts.push_back(box.text);
        return controls::Answer::Ok;
    }
    std::size_t count() const noexcept { return m_count; }
    const std::vector<std::string>& texts() const noexcept { return m_texts; }
    void forgetTexts() noexcept { m_texts.clear(); }

private:
    std::size_t m_count = 0;
    std::vector<std::string> m_texts;
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

/// Runs the rows of a batch through a calculation of its own, one after another.
class RowRunner {
public:
    RowRunner(const classic::Limits& limits, const classic::Settings& settings);

    /// Assumptions may be written here before the first row.
    classic::Calculation& calculation() noexcept { return m_calculation; }

    /// Runs a row that starts from empty boxes, so that what it gives depends on it alone.
    RowStatus run(const std::array<std::string_view, classic::kReadingCount>& readings);

    /// Runs what the boxes hold. A row whose boxes are not complete is not calculated.
    RowStatus runBoxes();

    /// "ok", or "skipped: …" or "failed: …" with the reason.
    const std::string& statusText() const noexcept { return m_statusText; }

    const RowCounts& counts() const noexcept { return m_counts; }
    /// Messages of solvers that did not converge.
    std::size_t messages() const noexcept { return m_messages.count(); }
    /// The messages of the last row.
    const std::vector<std::string>& rowMessages() const noexcept { return m_messages.texts(); }

private:
    void countLostValues();

    MessageKeeper m_messages;
    classic::Settings m_settings;
    classic::Calculation m_calculation;
    std::string m_statusText;
    RowCounts m_counts;
};

} // namespace comfortics::batch
