// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/driver.h"

#include "formulas/primitives.h"
#include "values/plain_text.h"
#include "values/run_failure.h"

#include <utility>

namespace comfortics::classic {

using catalogue::Block;
using catalogue::CatalogueRow;
using catalogue::Gate;
using catalogue::Gated;
using catalogue::GateWind;
using catalogue::Input;
using catalogue::InputList;
using catalogue::kLastIndex;
using catalogue::liveOf;
using formulas::Live;
using texts::Variant;
using values::Number;
using values::RunFailure;

Driver::Driver(DriverDesk& desk, const Limits& limits) : m_desk(desk), m_limits(limits)
{
}

void Driver::reset()
{
    m_outcomes.fill({});
}

void Driver::run(const Settings& settings, const formulas::Assumptions& assumptions,
                 const Availability& availability)
{
    DriverRun run{settings, assumptions, availability};
    m_counter = 0;
    Indices_001to050(run);
    Indices_051to100(run);
    Indices_101to150(run);
    Indices_151to200(run);
    Indices_201to222(run);
}

void Driver::Indices_001to050(DriverRun& run)
{
    runProcedure(run, 50);
}

void Driver::Indices_051to100(DriverRun& run)
{
    runProcedure(run, 100);
}

void Driver::Indices_101to150(DriverRun& run)
{
    runProcedure(run, 150);
}

void Driver::Indices_151to200(DriverRun& run)
{
    runProcedure(run, 200);
}

void Driver::Indices_201to222(DriverRun& run)
{
    runProcedure(run, kLastIndex);
}

void Driver::runProcedure(DriverRun& run, int last)
{
    run.staleEa = 0;
    while (m_counter < last) {
        ++m_counter;
        if (run.settings.rules != Rules::Classic)
            runBlockAlone(run, catalogue::row(m_counter));
        else
            runBlock(run, catalogue::row(m_counter));
    }
}

// One index by the robust rules: whatever fails in it costs its own value alone.
void Driver::runBlockAlone(DriverRun& run, const CatalogueRow& row)
{
    std::string why;
    if (run.settings.selection.contains(row.number))
        why = run.availability.whyNot(row, run.settings.ignoreLimits);
    if (why.empty()) {
        try {
            runBlock(run, row);
            if (run.settings.ignoreLimits)
                why = run.availability.whyNot(row, false);
            if (!why.empty()) { // it was judged by a quantity that has no value
                outcome(row.number).limits = OutcomeKind::RunFailed;
                outcome(row.number).failure = std::move(why);
            }
            return;
        } catch (const RunFailure& failure) {
            why = "The formula fails: " + failure.why() + ".";
        }
    }
    Outcome& result = outcome(row.number);
    result.kind = OutcomeKind::RunFailed;
    result.failure = std::move(why);
    m_desk.writeResult(row.number, {});
}

void Driver::runBlock(DriverRun& run, const CatalogueRow& row)
{
    Outcome& result = outcome(row.number);
    result = {};
    if (!run.settings.selection.contains(row.number)) {
        result.kind = OutcomeKind::NotSelected;
        return; // the entry is left alone here and blanked at the end of the sequence
    }
    if (row.gate != Gate::None && !passes(run, row, result)) {
        m_desk.writeResult(row.number, {});
        return;
    }
    const Variant value = valueOf(run, row);
    result.kind = value.isEmpty() ? OutcomeKind::NoValue : OutcomeKind::Value;
    result.value = value.isEmpty() ? 0 : value.number().value();
    m_desk.writeResult(row.number, texts::format(value, row.format));
}

// Both tests are inclusive at both ends. The wind test can only turn a pass into a failure, and a
// highest wind of 0 or less switches it off.
bool Driver::passes(const DriverRun& run, const CatalogueRow& row, Outcome& result) const
{
    const IndexLimits& limits = m_limits.of(row.number);
    const Number Ta = m_desk.live(Live::Ta);
    Number X;
    switch (row.gated) {
    case Gated::Ta:
        X = Ta;
        break;
    case Gated::Tnwb:
        X = m_desk.live(Live::Tnwb);
        break;
    case Gated::MeanOfTmrtAndTa:
        X = (m_desk.live(Live::Tmrt) + Ta) / 2;
        break;
    case Gated::TmrtLessTa:
        X = m_desk.live(Live::Tmrt) - Ta;
        break;
    case Gated::WBGT_Outdoor:
        X = m_desk.WBGT_Outdoor_Value();
        break;
    }
    const Number wind = row.gateWind == GateWind::At10m ? windAt10m(run) : m_desk.live(Live::WS);

    bool temperaturePasses = false;
    if (row.gate == Gate::Text) {
        // Deliberate: 9.3 counts as above 10 here.
        const std::string text = values::plainText(X.value());
        temperaturePasses = limits.Tair_min.text <= text && limits.Tair_max.text >= text;
        result.asTexts = true;
    } else {
        temperaturePasses = limits.Tair_min.number <= X && limits.Tair_max.number >= X;
    }
    const bool windPasses =
        !(limits.WS_max.number > 0 && (limits.WS_min.number > wind || limits.WS_max.number < wind));

    result.gatedValue = X.value();
    result.wind = wind.value();
    if (temperaturePasses && windPasses)
        return true;
    const OutcomeKind outside =
        temperaturePasses ? OutcomeKind::OutsideWind : OutcomeKind::OutsideTemperature;
    (run.settings.ignoreLimits ? result.limits : result.kind) = outside;
    return run.settings.ignoreLimits;
}

Variant Driver::valueOf(DriverRun& run, const CatalogueRow& row)
{
    switch (row.block) {
    case Block::Template:
        break;
    case Block::MeanRadiantTemperature:
        return block100(run);
    case Block::Utci:
        return block195(run);
    case Block::RadiativeEffectiveTemperature:
        return block196(run);
    case Block::WbgtIndoor:
        return block199(run);
    case Block::WbgtOutdoor:
        return block200(run);
    case Block::WetKata:
        return block208(run);
    }
    return evaluate(run, row);
}

Variant Driver::evaluate(DriverRun& run, const CatalogueRow& row, const InputList& inputs)
{
    formulas::FormulaInputs numbers;
    std::size_t count = 0;
    for (const Input input : inputs)
        numbers[count++] = read(run, input);
    const auto value = row.formula.function({run.assumptions, run.settings.rules}, numbers);
    return value ? Variant(*value) : Variant();
}

Number Driver::read(DriverRun& run, Input input)
{
    if (const auto quantity = liveOf(input))
        return m_desk.live(*quantity);
    switch (input) {
    case Input::Ea:
        return run.staleEa = m_desk.vapourPressure();
    case Input::Wbgt:
        return m_desk.WBGT_Outdoor_Text();
    case Input::StaleEa:
        return run.staleEa;
    case Input::WindAt10m:
        return windAt10m(run);
    case Input::Unset:
        return 0;
    default: // the raw texts
        return m_desk.boxText(input).number();
    }
}

Number Driver::windAt10m(const DriverRun& run) const
{
    return formulas::Wind_At_10m(run.assumptions, m_desk.boxText(Input::TextWS).number());
}

Variant Driver::block100(DriverRun& /*run*/)
{
    return m_desk.runMeanRadiantTemperature();
}

Variant Driver::block195(DriverRun& run)
{
    return m_desk.runUtci(windAt10m(run));
}

Variant Driver::block196(DriverRun& run)
{
    const CatalogueRow& row = catalogue::row(196);
    return evaluate(run, row, run.settings.rules != Rules::Classic ? row.robustInputs : row.inputs);
}

Variant Driver::block199(DriverRun& /*run*/)
{
    return m_desk.runWbgtIndoor();
}

Variant Driver::block200(DriverRun& /*run*/)
{
    return m_desk.runWbgtOutdoor();
}

Variant Driver::block208(DriverRun& run)
{
    const Number Td = formulas::Dew_Point_Magnus(read(run, Input::Ta), read(run, Input::RH));
    m_desk.writeCaption(Live::Td, texts::format(Td.value(), values::kFormat00_00000));
    return evaluate(run, catalogue::row(208));
}

} // namespace comfortics::classic
