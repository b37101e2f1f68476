// SPDX-License-Identifier: GPL-3.0-or-later
//
// The whole calculation on any texts, by the three sets of rules.
#include "check.h"
#include "desk.h"
#include "input.h"

#include "classic/calculation.h"
#include "texts/number_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace comfortics::fuzz {
namespace {

using classic::Calculation;
using classic::Rules;
using classic::RunStatus;

using Texts = std::array<std::string, classic::kReadingCount>;

constexpr int kIndices = catalogue::kLastIndex;

/// All that a run shows.
struct Shown {
    RunStatus status = RunStatus::Ok;
    Texts boxes;
    std::array<std::string, formulas::kLiveCount> live;
    std::array<std::string, catalogue::kIndexCount + 1> values;
    std::array<std::string, catalogue::kIndexCount + 1> whyBlank;
    std::string failure;
    std::size_t messages = 0;
    bool operator==(const Shown&) const = default;
};

/// A calculation that lives through several runs.
class Desk {
public:
    Desk(const classic::Settings& settings, const Texts& assumptions) : m_settings(settings)
    {
        m_calculation.assumptions.write(assumptions);
    }

    Shown run(const Texts& readings)
    {
        m_messages.texts.clear();
        classic::ReadingBoxes& boxes = m_calculation.readings;
        boxes.clear();
        boxes.write({readings[0], readings[1], readings[2], readings[3], readings[4], readings[5]});
        Shown shown;
        shown.status = m_calculation.run(m_settings);
        for (std::size_t i = 0; i < shown.boxes.size(); ++i)
            shown.boxes[i] = boxes.text(static_cast<classic::Reading>(i));
        // A run whose readings are rejected leaves the labels as they were.
        if (shown.status != RunStatus::Rejected)
            for (std::size_t i = 0; i < shown.live.size(); ++i)
                shown.live[i] = m_calculation.liveLabel(static_cast<formulas::Live>(i)).caption();
        for (int index = 1; index <= kIndices; ++index) {
            const auto place = static_cast<std::size_t>(index);
            shown.values[place] = m_calculation.results.lbl_results[place].caption();
            shown.whyBlank[place] = m_calculation.whyBlank(index);
        }
        if (m_calculation.failure())
            shown.failure = m_calculation.failure()->sentence();
        shown.messages = m_messages.texts.size();
        check(shown);
        return shown;
    }

private:
    void check(const Shown& shown) const
    {
        require((shown.status == RunStatus::Failed) == !shown.failure.empty(),
                "a failed run, and no other, says why");
        require(shown.status != RunStatus::Failed || m_settings.rules == Rules::Classic,
                "no run fails but by the classic rules", shown.failure);
        const bool calculated = shown.status == RunStatus::Ok;
        for (const std::string& caption : shown.live)
            require(caption.empty() || (calculated && texts::isNumeric(caption)),
                    "a live quantity is a number, or blank where the run failed", caption, shown.failure);
        for (int index = 1; index <= kIndices; ++index) {
            const auto place = static_cast<std::size_t>(index);
            const std::string& value = shown.values[place];
            const std::string name = std::to_string(index);
            require(value.empty() || calculated, "a value without a calculation", value, name);
            require(value.empty() == !shown.whyBlank[place].empty(), "a blank value, and no other, says why",
                    value, name);
            require(value.empty() || texts::isNumeric(value), "a value is a number", value, name);
            if (!m_settings.selection.contains(index))
                require(value.empty(), "a value of an index that is not selected", value, name);
        }
    }

    KeptMessages m_messages;
    classic::Settings m_settings;
    Calculation m_calculation{projectLimits(), m_messages};
};

void requireSame(const Shown& one, const Shown& other, const char* what)
{
    require(one.status == other.status && one.failure == other.failure, what, one.failure, other.failure);
    for (std::size_t i = 0; i < one.live.size(); ++i)
        requireEqual(one.live[i], other.live[i], what);
    for (std::size_t i = 0; i < one.values.size(); ++i)
        require(one.values[i] == other.values[i] && one.whyBlank[i] == other.whyBlank[i], what,
                std::to_string(i) + ": " + one.values[i] + one.whyBlank[i],
                other.values[i] + other.whyBlank[i]);
    require(one == other, what);
}

// One calculation that goes from a row to another and back must give what new ones give.
Shown runAll(classic::Settings settings, Rules rules, const Texts& first, const Texts& second,
             const Texts& assumptions)
{
    settings.rules = rules;
    Desk kept(settings, assumptions);
    Shown result = kept.run(first);
    requireSame(kept.run(second), Desk(settings, assumptions).run(second), "a run after another, and alone");
    requireSame(kept.run(first), result, "the same again");
    return result;
}

void check(unsigned flags, const Texts& first, const Texts& second, const Texts& assumptions)
{
    classic::Settings settings;
    settings.ignoreLimits = flags % 2 == 1;
    if (flags / 2 % 2 == 1)
        for (int index = 1; index <= kIndices; ++index)
            settings.selection.set(index, index % 3 != 0);
    const Shown classic = runAll(settings, Rules::Classic, first, second, assumptions);
    const Shown robust = runAll(settings, Rules::Robust, first, second, assumptions);

    const Shown precise = runAll(settings, Rules::Precise, first, second, assumptions);

    for (const Shown* other : {&robust, &precise}) {
        require((classic.status == RunStatus::Rejected) == (other->status == RunStatus::Rejected),
                "all sets of rules reject the same readings");
        require(other->messages == 0, "only the classic rules go on with what did not converge");
    }
    // What classic calculates on after a solver without convergence, or below absolute zero, has no value.
    const bool belowZero =
        std::any_of(robust.whyBlank.begin(), robust.whyBlank.end(), [](const std::string& why) {
            return why.find("below absolute zero") != std::string::npos;
        });
    if (classic.messages > 0 || belowZero)
        return;
    for (std::size_t i = 0; i < classic.live.size(); ++i)
        require(classic.live[i].empty() || classic.live[i] == robust.live[i],
                "a live quantity that the classic rules show", classic.live[i], robust.live[i]);
    for (std::size_t i = 0; i < classic.values.size(); ++i)
        require(classic.values[i].empty() || classic.values[i] == robust.values[i],
                "a value that the classic rules show", std::to_string(i) + ": " + classic.values[i],
                robust.values[i]);
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a letter for the settings (bit 0: ignore limits, bit 1: not all selected) and a line
/// end, then a line for each text: six readings, six of another row, six assumptions. Assumptions
/// that are not there stand as at start, another row that is not there is the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace comfortics::fuzz;
    Input input(data, size);
    const unsigned settings = input.byte();
    input.line();
    Texts first;
    for (std::string& text : first)
        text = input.line();
    Texts second = first;
    if (!input.empty())
        for (std::string& text : second)
            text = input.line();
    Texts assumptions = comfortics::classic::AssumptionBoxes().texts();
    for (std::string& text : assumptions)
        if (!input.empty())
            text = input.line();
    check(settings, first, second, assumptions);
    return 0;
}
