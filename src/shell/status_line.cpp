// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/status_line.h"

#include "core/catalogue.h"
#include "core/outcome.h"

#include <array>
#include <string_view>
#include <utility>

namespace comfortics::shell {

using core::OutcomeKind;

namespace {

constexpr int kLastIndex = static_cast<int>(core::kIndexCount);

} // namespace

std::string statusLine(const core::Calculation& calculation)
{
    if (calculation.failure())
        return calculation.failure()->sentence();
    if (const std::string wrong = calculation.readings.whatIsWrong(); !wrong.empty())
        return "Nothing was calculated: " + wrong + ".";

    std::array<int, 7> counts{};
    for (int index = 1; index <= kLastIndex; ++index)
        ++counts.at(static_cast<std::size_t>(calculation.outcome(index).kind));
    const auto count = [&counts](OutcomeKind kind) { return counts.at(static_cast<std::size_t>(kind)); };
    if (count(OutcomeKind::NotCalculated) == kLastIndex)
        return "Nothing was calculated yet.";

    const int values = count(OutcomeKind::Value);
    std::string sentence =
        values == 1 ? "1 index has a value" : std::to_string(values) + " indices have a value";
    const std::pair<int, std::string_view> blanks[] = {
        {count(OutcomeKind::OutsideTemperature) + count(OutcomeKind::OutsideWind), " outside the limits"},
        {count(OutcomeKind::NoValue), " without a value for these readings"},
        {count(OutcomeKind::RunFailed), " failed"}, // by the robust rules, each for itself
        {count(OutcomeKind::NotSelected), " not selected"},
    };
    for (const auto& [number, words] : blanks)
        if (number > 0)
            sentence += ", " + std::to_string(number) + std::string(words);
    return sentence + ".";
}

std::string limitsWarning(const core::Limits& limits)
{
    for (int index = 1; index <= kLastIndex; ++index)
        if (limits.of(index).given())
            return {};
    return "Limits.Index, which belongs beside the program, is missing or holds no limits: "
           "indices with limits stay blank.";
}

} // namespace comfortics::shell
