// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the core tests share: limits without a file, and a calculation with its surroundings.
#pragma once

#include "prepared_answers.h"

#include "core/calculation.h"
#include "core/catalogue.h"
#include "core/limits.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace comfortics::tests {

/// Limits that let every temperature from -100 to 100 pass, with the given lines on top: the first
/// of equal keys counts.
inline core::Limits openLimits(const std::string& first = {})
{
    std::string text = "[INDICES]\r\n" + first;
    for (std::size_t i = 1; i <= core::kIndexCount; ++i) {
        const std::string number = std::to_string(i);
        text += "Tair_min_" + number + "=-100\r\nTair_max_" + number + "=100\r\n";
    }
    return core::Limits::fromText(text);
}

/// A calculation with its surroundings.
struct Bench {
    explicit Bench(core::Limits given = openLimits()) : limits(std::move(given)) {}

    core::Limits limits;
    RecordedMessages messages;
    core::Calculation calculation{limits, messages};
    core::Settings settings;

    /// From the texts of TA, TG, SR, DP, RH and WS.
    core::RunStatus run(const std::array<std::string_view, core::kReadingCount>& texts)
    {
        calculation.readings.clear();
        calculation.readings.write(texts);
        return calculation.run(settings);
    }
    const std::string& value(int index) const
    {
        return calculation.results.lbl_results[static_cast<std::size_t>(index)].caption();
    }
    const std::string& live(formulas::Live quantity) const
    {
        return calculation.liveLabel(quantity).caption();
    }
};

} // namespace comfortics::tests
