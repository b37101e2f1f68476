// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the tests of the classic room and of those above share: limits without a file, and a calculation with
// its surroundings.
#pragma once

#include "prepared_answers.h"

#include "catalogue/catalogue.h"
#include "classic/calculation.h"
#include "classic/limits.h"

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace comfortics::tests {

/// Limits that let every temperature from -100 to 100 pass, with the given lines on top: the first
/// of equal keys counts.
inline classic::Limits openLimits(const std::string& first = {})
{
    std::string text = "[INDICES]\r\n" + first;
    for (std::size_t i = 1; i <= catalogue::kIndexCount; ++i) {
        const std::string number = std::to_string(i);
        text += "Tair_min_" + number + "=-100\r\nTair_max_" + number + "=100\r\n";
    }
    return classic::Limits::fromText(text);
}

/// A calculation with its surroundings.
struct Bench {
    explicit Bench(classic::Limits given = openLimits()) : limits(std::move(given)) {}

    classic::Limits limits;
    RecordedMessages messages;
    classic::Calculation calculation{limits, messages};
    classic::Settings settings;

    /// From the texts of TA, TG, SR, DP, RH and WS.
    classic::RunStatus run(const std::array<std::string_view, classic::kReadingCount>& texts)
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
