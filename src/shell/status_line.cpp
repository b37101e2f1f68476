// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/status_line.h"

#include "catalogue/catalogue.h"
#include "classic/outcome.h"

#include <array>
#include <string_view>
#include <utility>

namespace comfortics::shell {

using catalogue::kLastIndex;
using classic::OutcomeKind;

namespace {

constexpr const char* kHint = "Type the readings, then press Enter. F1 shows help.";

// Empty where nothing was calculated.
std::string outcome(const classic::Calculation& calculation)
{
    if (calculation.failure())
        return calculation.failure()->sentence();
    std::array<int, 7> counts{};
    int shownOutside = 0; // since limits are ignored
    for (int index = 1; index <= kLastIndex; ++index) {
        const classic::Outcome& one = calculation.outcome(index);
        ++counts.at(static_cast<std::size_t>(one.kind));
        if (one.kind == OutcomeKind::Value &&
            (one.limits == OutcomeKind::OutsideTemperature || one.limits == OutcomeKind::OutsideWind))
            ++shownOutside;
    }
    const auto count = [&counts](OutcomeKind kind) { return counts.at(static_cast<std::size_t>(kind)); };
    if (count(OutcomeKind::NotCalculated) == kLastIndex)
        return {};

    const int values = count(OutcomeKind::Value);
    std::string sentence =
        values == 1 ? "1 index has a value" : std::to_string(values) + " indices have a value";
    if (shownOutside > 0)
        sentence += " (" + std::to_string(shownOutside) + " of them outside the limits, which are ignored)";
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

} // namespace

StatusLine statusLine(const classic::Frm_Main& form)
{
    if (!form.told().empty())
        return {form.told()};
    if (form.refused())
        if (const std::string wrong = form.calculation.readings.whatIsWrong(); !wrong.empty())
            return {"Nothing was calculated: " + wrong + "." + form.remarks()};
    std::string sentence = outcome(form.calculation);
    if (sentence.empty())
        return {kHint};
    sentence += form.remarks();
    if (form.resultsAreEarlier())
        return {"Of earlier readings: " + sentence, true};
    return {sentence};
}

} // namespace comfortics::shell
