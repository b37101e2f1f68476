// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/situation.h"

#include "controls/dialogs.h"
#include "formulas/primitives.h"
#include "texts/number_text.h"
#include "values/run_failure.h"
#include "workspace/plain_words.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace comfortics::workspace {

namespace {

constexpr std::string_view kWarmestAir = "58"; // that a box takes

// What a model would tell the user at once stands in the figures as their reason.
class NoMessages final : public controls::Messages {
public:
    controls::Answer show(const controls::MessageBox&) override { return controls::Answer::Ok; }
};

Figure figureOf(const classic::Calculation& calculation, const classic::Inputs& inputs, int index)
{
    Figure figure;
    figure.text = calculation.results.lbl_results[static_cast<std::size_t>(index)].caption();
    figure.reason = inPlainWords(calculation.whyBlank(index), inputs);
    const classic::Outcome& outcome = calculation.outcome(index);
    figure.kind = outcome.kind;
    figure.limits = outcome.limits;
    if (catalogue::row(index).gate != catalogue::Gate::None &&
        outcome.kind != classic::OutcomeKind::RunFailed &&
        outcome.limits != classic::OutcomeKind::RunFailed) {
        if (std::isfinite(outcome.gatedValue))
            figure.judged = outcome.gatedValue;
        if (std::isfinite(outcome.wind))
            figure.wind = outcome.wind;
    }
    if (outcome.kind != classic::OutcomeKind::Value || figure.text.empty())
        return figure;
    figure.number = outcome.value;
    figure.meaning = calculation.meaning(index);
    figure.doubt = inPlainWords(calculation.whyDoubtful(index), inputs);
    return figure;
}

// Has no figures, for one reason.
void lack(Situation& situation, std::string problem)
{
    situation.problem = std::move(problem);
    for (Figure& figure : situation.figures)
        figure.reason = situation.problem;
}

} // namespace

std::optional<double> windAt10m(const Situation& situation)
{
    const auto& wind = situation.liveFigure(formulas::Live::WS).number;
    return wind ? windAt10m(
                      *wind,
                      situation.inputs.assumptions[static_cast<std::size_t>(classic::Assumption::Friction)])
                : std::nullopt;
}

std::optional<double> windAt10m(double wind, const std::string& friction)
{
    formulas::Assumptions assumptions;
    assumptions.Friction = texts::val(friction);
    try {
        return formulas::Wind_At_10m(assumptions, values::Number(wind)).value();
    } catch (const values::RunFailure&) {
        return std::nullopt;
    }
}

void write(const classic::Inputs& inputs, classic::Calculation& calculation)
{
    calculation.assumptions.write(inputs.assumptions);
    calculation.readings.clear(); // no rule of a pair sees what stood there
    std::array<std::string_view, classic::kReadingCount> readings;
    std::copy(inputs.readings.begin(), inputs.readings.end(), readings.begin());
    // A dew point is tested when it is typed, and stands when the air gets colder afterwards.
    const std::string_view air = std::exchange(readings.front(), kWarmestAir);
    calculation.readings.write(readings);
    calculation.readings.txt_TA.setText(std::string(air));
}

Situation awaited(const classic::Inputs& inputs)
{
    Situation situation;
    situation.inputs = inputs;
    lack(situation, kAwaited);
    return situation;
}

Situation evaluate(const classic::Limits& limits, const classic::Inputs& inputs)
{
    NoMessages messages;
    classic::Calculation calculation(limits, messages);
    write(inputs, calculation);

    Situation situation;
    situation.inputs = inputs;
    situation.inputs.settings.selection = classic::Selection::all();
    const std::string incomplete = calculation.readings.whatIsWrong();
    situation.status = calculation.run(situation.inputs.settings);
    if (situation.status == classic::RunStatus::Rejected) {
        // What a rule of the run has emptied is missing only now.
        const std::string wrong = incomplete.empty() ? calculation.readings.whatIsWrong() : incomplete;
        lack(situation, "Nothing is calculated: " + wrong + ".");
        return situation;
    }
    if (calculation.failure())
        situation.problem = inPlainWords(calculation.failure()->sentence(), inputs);
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
        LiveFigure& live = situation.live[i];
        live.text = calculation.liveLabel(static_cast<formulas::Live>(i)).caption();
        if (!live.text.empty())
            live.number = calculation.liveNumber(static_cast<formulas::Live>(i));
    }
    for (int index = 1; index <= catalogue::kLastIndex; ++index)
        situation.figures[static_cast<std::size_t>(index)] = figureOf(calculation, inputs, index);
    return situation;
}

} // namespace comfortics::workspace
