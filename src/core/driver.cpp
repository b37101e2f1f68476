// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/driver.h"

#include "formulas/primitives.h"
#include "formulas/radiant.h"
#include "values/run_failure.h"

#include <utility>

namespace comfortics::core {

using formulas::Live;
using values::Number;
using values::RunFailure;
using values::Variant;

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
    m_settings = &settings;
    m_assumptions = &assumptions;
    m_availability = &availability;
    m_counter = 0;
    Indices_001to050();
    Indices_051to100();
    Indices_101to150();
    Indices_151to200();
    Indices_201to222();
}

void Driver::Indices_001to050()
{
    runProcedure(50);
}

void Driver::Indices_051to100()
{
    runProcedure(100);
}

void Driver::Indices_101to150()
{
    runProcedure(150);
}

void Driver::Indices_151to200()
{
    runProcedure(200);
}

void Driver::Indices_201to222()
{
    runProcedure(222);
}

void Driver::runProcedure(int last)
{
    m_staleEa = 0;
    while (m_counter < last) {
        ++m_counter;
        if (m_settings->rules == Rules::Robust)
            runBlockAlone(catalogueRow(m_counter));
        else
            runBlock(catalogueRow(m_counter));
    }
}

// One index by the robust rules: whatever fails in it costs its own value alone.
void Driver::runBlockAlone(const CatalogueRow& row)
{
    std::string why;
    if (m_settings->selection.contains(row.number))
        why = m_availability->whyNot(row, m_settings->ignoreLimits);
    if (why.empty()) {
        try {
            runBlock(row);
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

void Driver::runBlock(const CatalogueRow& row)
{
    Outcome& result = outcome(row.number);
    result = {};
    if (!m_settings->selection.contains(row.number)) {
        result.kind = OutcomeKind::NotSelected;
        return; // the entry is left alone here and blanked at the end of the sequence
    }
    if (row.gate != Gate::None && !passes(row, result)) {
        m_desk.writeResult(row.number, {});
        return;
    }
    const Variant value = row.block != nullptr ? (this->*row.block)() : evaluate(row);
    result.kind = value.isEmpty() ? OutcomeKind::NoValue : OutcomeKind::Value;
    m_desk.writeResult(row.number, values::format(value, row.format));
}

// Both tests are inclusive at both ends. The wind test can only turn a pass into a failure, and a
// highest wind of 0 or less switches it off.
bool Driver::passes(const CatalogueRow& row, Outcome& result)
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
    const Number wind = row.gateWind == GateWind::At10m ? windAt10m() : m_desk.live(Live::WS);

    bool temperaturePasses = false;
    if (row.gate == Gate::Text) {
        // Deliberate: 9.3 counts as above 10 here.
        const std::string text = values::plainText(X.value());
        temperaturePasses = limits.Tair_min.text <= text && limits.Tair_max.text >= text;
    } else {
        temperaturePasses = limits.Tair_min.number <= X && limits.Tair_max.number >= X;
    }
    const bool windPasses =
        !(limits.WS_max.number > 0 && (limits.WS_min.number > wind || limits.WS_max.number < wind));

    result.gatedValue = X.value();
    result.wind = wind.value();
    if (m_settings->ignoreLimits || (temperaturePasses && windPasses))
        return true;
    result.kind = temperaturePasses ? OutcomeKind::OutsideWind : OutcomeKind::OutsideTemperature;
    return false;
}

Variant Driver::evaluate(const CatalogueRow& row)
{
    FormulaInputs inputs;
    std::size_t count = 0;
    for (const Input input : row.inputs)
        inputs[count++] = read(input);
    return row.formula.function({*m_assumptions, m_desk.captions(), m_settings->rules}, inputs);
}

Number Driver::read(Input input)
{
    if (const auto quantity = liveOf(input))
        return m_desk.live(*quantity);
    switch (input) {
    case Input::Ea:
        return m_staleEa = m_desk.vapourPressure();
    case Input::Wbgt:
        return m_desk.WBGT_Outdoor_Text();
    case Input::StaleEa:
        return m_staleEa;
    case Input::WindAt10m:
        return windAt10m();
    case Input::Unset:
        return 0;
    default: // the raw texts
        return m_desk.boxText(input).number();
    }
}

Number Driver::windAt10m() const
{
    return formulas::Wind_At_10m(*m_assumptions, m_desk.boxText(Input::TextWS).number());
}

Variant Driver::block100()
{
    return m_desk.runMeanRadiantTemperature();
}

Variant Driver::block195()
{
    return m_desk.runUtci(windAt10m());
}

Variant Driver::block196()
{
    if (m_settings->rules == Rules::Robust)
        return formulas::Index_196(read(Input::Ta), read(Input::WS), read(Input::RH), read(Input::SR));
    return formulas::Index_196(m_desk.boxText(Input::TextTa), m_desk.boxText(Input::TextWS),
                               m_desk.boxText(Input::TextRH), m_desk.boxText(Input::TextSR));
}

Variant Driver::block199()
{
    return m_desk.runWbgtIndoor();
}

Variant Driver::block200()
{
    return m_desk.runWbgtOutdoor();
}

} // namespace comfortics::core
