// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/pmv_ashrae.h"

#include "formulas/bracketed_root.h"
#include "formulas/mean_vote.h"
#include "standards/adaptive_ashrae.h"
#include "standards/two_node.h"

#include <cmath>

namespace comfortics::standards {

namespace {

constexpr double kStillAir = 0.1;     // [m/s]
constexpr double kLargestEffect = 40; // [K]

/// The same person in still air that is cooler by `effect`.
PmvInputs cooled(const PmvInputs& inputs, double effect)
{
    PmvInputs still = inputs;
    still.ta -= effect;
    still.tr -= effect;
    still.v = kStillAir;
    return still;
}

CoolingEffectSet setOf(const PmvInputs& in, Edition edition)
{
    return coolingEffectSet({.ta = in.ta,
                             .tr = in.tr,
                             .v = in.v,
                             .RH = in.RH,
                             .met = in.met,
                             .clo = in.clo,
                             .work = in.work,
                             .edition = edition});
}

} // namespace

CoolingEffect coolingEffect(const PmvInputs& inputs, Edition edition) noexcept
{
    constexpr double kFall = -0.9; // of SET for each kelvin of cooler air, about
    constexpr double kLeastFall = 0.2;
    constexpr double kHalvedTo = 0.01; // [K]
    const double moving = setOf(inputs, edition).set;
    const CoolingEffectSet still = setOf(cooled(inputs, 0), edition);
    const auto surplus = [&](double effect) { return setOf(cooled(inputs, effect), edition).set - moving; };
    double low = 0;
    double high = kLargestEffect;
    double atLow = still.set - moving;
    if (std::isnan(atLow))
        return {};
    if (atLow == 0)
        return {.effect = 0, .cools = true};
    if (!(atLow > 0))
        return {.effect = 0};
    const auto bySecants = [&] {
        return formulas::bracketedRoot({.low = low,
                                        .high = high,
                                        .start = low - atLow / kFall,
                                        .slope = kFall,
                                        .leastSlope = kLeastFall},
                                       surplus);
    };
    if (!still.soaked)
        if (const auto root = bySecants())
            return {.effect = *root, .cools = true};
    // Where the skin is as wet as it can be, SET has steps and there may be several roots. Halving says which
    // is meant; below this width the rest is quicker by secants.
    if (!(surplus(high) < 0))
        return {.effect = 0};
    while (high - low > kHalvedTo) {
        const double middle = 0.5 * (low + high);
        const double there = surplus(middle);
        if (there > 0) {
            low = middle;
            atLow = there;
        } else
            high = middle;
    }
    return {.effect = bySecants().value_or(0.5 * (low + high)), .cools = true};
}

double airSpeedLimit(double operative, double met, double clo) noexcept
{
    if (!(clo < 0.7 && met < 1.3))
        return kNaN;
    if (operative > 25.5)
        return 0.8;
    return operative >= 23 ? 50.49 - 4.4047 * operative + 0.096425 * operative * operative : 0.2;
}

PmvAshrae pmvAshrae(const PmvInputs& inputs, Motion motion, Edition edition, Limits limits) noexcept
{
    Examination examination(limits);
    lookAtTyped(examination, kPmvAshraeRanges, inputs);
    if (inputs.work > inputs.met)
        examination.mark(kPmvAshraeRanges.work.name);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};

    PmvInputs actual = inputs;
    const InMotion moving = inMotion(motion, inputs.v, inputs.met, inputs.clo);
    actual.v = moving.v;
    actual.clo = moving.clo;
    lookAtMotion(examination, kPmvAshraeRanges, moving);
    if (!examination.hasValue())
        return {.verdict = examination.verdict(), .inMotion = moving};

    const bool still = moving.v <= kStillAir;
    const CoolingEffect cooling = still ? CoolingEffect{.effect = 0} : coolingEffect(actual, edition);
    std::optional<MeanVote> vote;
    if (std::isnan(cooling.effect))
        examination.refuse(Reason::NoRoot, "set");
    else {
        vote = meanVote(cooling.cools ? cooled(actual, cooling.effect) : actual);
        lookAtVote(examination, kPmvAshraeRanges, vote);
    }
    if (!examination.hasValue())
        return {.verdict = examination.verdict(), .inMotion = moving};
    // The limit is one of the room and its clothing as looked up, so of what was typed.
    const double limit =
        airSpeedLimit(ashraeOperative(inputs.ta, inputs.tr, inputs.v), inputs.met, inputs.clo);
    return {.verdict = examination.verdict(),
            .pmv = vote->pmv,
            .ppd = formulas::Predicted_Percentage_Dissatisfied(vote->pmv),
            .coolingEffect = cooling.effect,
            .compliant = std::fabs(vote->pmv) < 0.5,
            .speedLimit = limit,
            .beyondSpeedLimit = inputs.v > limit,
            .inMotion = moving};
}

} // namespace comfortics::standards
