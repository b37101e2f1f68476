// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/calculation.h"

#include "formulas/primitives.h"
#include "texts/number_text.h"
#include "values/plain_text.h"
#include "values/run_failure.h"

#include <cassert>
#include <string_view>
#include <utility>

namespace comfortics::classic {

using catalogue::Input;
using catalogue::kLastIndex;
using formulas::Live;
using texts::Variant;
using values::Number;
using values::RunFailure;

namespace {

constexpr std::string_view kIndexPrefix = "index ";

// How the user is told where a run stopped.
std::string phrase(const std::string& where)
{
    if (where.starts_with(kIndexPrefix)) {
        const int index = static_cast<int>(texts::val(where.substr(kIndexPrefix.size())));
        return "at " + where + ", " + std::string(catalogue::row(index).name);
    }
    constexpr std::pair<std::string_view, std::string_view> kModels[] = {
        {"UTCI_Regression", "in the Universal Thermal Climate Index"},
        {"WBGT_Outdoor", "in the outdoor WBGT"},
        {"WBGT_Indoor", "in the indoor WBGT"},
        {"Mean_Radiant_Temperature_Model", "in the mean radiant temperature"},
        {"Saturation_Pressure_Hardy", "in the saturated vapour pressure"},
        {"Dew_Point_Magnus", "in the dew point"},
        {"Relative_Humidity_Magnus", "in the relative humidity"},
        {"Vapor_Pressure_Magnus", "in the actual vapour pressure"},
    };
    for (const auto& [name, words] : kModels)
        if (where == name)
            return std::string(words);
    return "in " + where;
}

} // namespace

std::array<controls::TextBox*, kAssumptionCount> AssumptionBoxes::all()
{
    return {&txt_ArAdu, &txt_Emmisivity, &txt_Barometric, &txt_Height, &txt_Weight, &txt_Friction};
}

void AssumptionBoxes::write(const AssumptionTexts& texts)
{
    const auto boxes = all();
    for (std::size_t i = 0; i < kAssumptionCount; ++i)
        boxes[i]->setText(texts[i]);
}

AssumptionTexts AssumptionBoxes::texts() const
{
    return {txt_ArAdu.text(),  txt_Emmisivity.text(), txt_Barometric.text(),
            txt_Height.text(), txt_Weight.text(),     txt_Friction.text()};
}

formulas::Assumptions AssumptionBoxes::read() const
{
    const auto number = [](const controls::TextBox& box) { return texts::val(box.text()); };
    return {.Friction = number(txt_Friction),
            .Height = number(txt_Height) / 100,
            .Weight = number(txt_Weight),
            .Barometric = number(txt_Barometric),
            .Emissivity = number(txt_Emmisivity),
            .ArAdu = number(txt_ArAdu)};
}

std::string Failure::sentence() const
{
    return "The calculation stopped " + phrase(where) + ": " + why + ". " + std::string(advice);
}

Calculation::Calculation(const Limits& limits, controls::Messages& messages)
    : m_limits(limits), m_messages(messages), m_models(*this), m_driver(*this, limits)
{
}

Inputs Calculation::inputs(const Settings& settings) const
{
    Inputs result{{}, assumptions.texts(), settings};
    for (std::size_t i = 0; i < kReadingCount; ++i)
        result.readings[i] = readings.text(static_cast<Reading>(i));
    return result;
}

RunStatus Calculation::run(const Settings& settings)
{
    ++m_runs;
    m_resultInputs.reset();
    const RunStatus status = runSequence(settings);
    m_resultInputs = inputs(settings);
    if (status != RunStatus::Rejected)
        m_liveInputs = m_resultInputs;
    return status;
}

RunStatus Calculation::runSequence(const Settings& settings)
{
    m_failure.reset();
    m_explanation.clear();
    m_messagesShown = 0;
    m_messagesHidden = false;
    m_driver.reset();
    m_availability.reset();
    m_rules = settings.rules;
    m_models.setRules(settings.rules);

    if (m_rules == Rules::Precise) {
        blankResults();
        return calculatePrecisely(settings) ? RunStatus::Ok : RunStatus::Rejected;
    }
    readings.dropColdGlobe();
    blankResults();
    if (!readings.valid())
        return RunStatus::Rejected;
    if (m_rules != Rules::Classic)
        readings.dropUnfinished();

    try {
        calculate(settings);
    } catch (const RunFailure& failure) {
        m_failure = Failure{m_where.empty() ? std::string(kIndexPrefix) + std::to_string(m_driver.counter())
                                            : m_where,
                            failure.why(), advice};
        const auto air = texts::numericValue(readings.txt_TA.text());
        const auto dewPoint = texts::numericValue(readings.txt_DP.text());
        if (air && dewPoint && *dewPoint > *air && failure.why().find("the dew point ") == 0)
            m_failure->advice = kContradictionAdvice;
        blankResults();
        blankLive();
        for (int index = 1; index <= kLastIndex; ++index)
            m_driver.outcome(index).kind =
                settings.selection.contains(index) ? OutcomeKind::RunFailed : OutcomeKind::NotSelected;
        return RunStatus::Failed;
    }
    return RunStatus::Ok;
}

// The order of the steps is the order of every calculation. Each model gets working copies read
// afresh from the boxes, so what a model overwrote in an earlier call is lost; only the globe
// temperature that the mean radiant temperature derives survives, to the captions.
void Calculation::calculate(const Settings& settings)
{
    m_where = "readings";
    readings.round();
    writeUnreachableEntries();
    for (const Live quantity :
         {Live::Ta, Live::Tg, Live::Td, Live::WS, Live::SR, Live::RH, Live::Tnwb, Live::Tpwb})
        writeCaption(quantity, {});

    loseImpossibleReadings();
    attempt(
        "UTCI_Regression", [this] { runUtciIn(copy(Reading::WS)); }, [](const std::string&) {});
    attempt(
        "WBGT_Outdoor", [this] { runWbgtOutdoor(); },
        [this](const std::string& why) {
            m_availability.lose(Live::Tnwb, why);
            m_availability.loseWbgt(why);
            if (readings.txt_SR.text().empty())
                m_availability.lose(Live::SR, why);
        });
    attempt(
        "WBGT_Indoor", [this] { runWbgtIndoor(); },
        [this](const std::string& why) { m_availability.lose(Live::Tpwb, why); });

    Variant Ta = copy(Reading::TA);
    Variant Tg = copy(Reading::TG);
    Variant SR = copy(Reading::SR);
    Variant WS = copy(Reading::WS);
    attempt(
        "Mean_Radiant_Temperature_Model", [&] { m_models.Mean_Radiant_Temperature_Model(Ta, Tg, SR, WS); },
        [&](const std::string& why) {
            m_availability.lose(Live::Tmrt, why);
            if (Tg.isEmptyText())
                m_availability.lose(Live::Tg, why);
        });
    // Texts, also where a step below fails: what reads them then fails with it.
    Variant Td = copy(Reading::DP);
    Variant RH = copy(Reading::RH);
    Variant Es;
    attempt(
        "Saturation_Pressure_Hardy",
        [&] {
            Ta = copy(Reading::TA);
            mustExist(Live::Ta, Ta);
            Es = formulas::Saturation_Pressure_Hardy(Ta.number());
        },
        [this](const std::string& why) { m_availability.lose(Live::Es, why); });
    deriveHumidity(Ta, Td, RH);
    Variant Ea;
    attempt(
        "Vapor_Pressure_Magnus",
        [&] {
            mustExist(Live::Td, Td);
            Ea = formulas::Vapor_Pressure_Magnus(Td.number());
        },
        [this](const std::string& why) { m_availability.lose(Live::Ea, why); });

    m_where = "captions";
    const auto writeRounded = [this](Live quantity, const Variant& value) {
        writeCaption(quantity, texts::format(value, values::kFormat0_00000));
    };
    writeRounded(Live::Ta, Ta);
    writeRounded(Live::Tg, Tg);
    writeRounded(Live::Td, Td);
    writeRounded(Live::WS, WS);
    writeRounded(Live::SR, SR);
    writeRounded(Live::RH, RH);
    writeRounded(Live::Es, Es);
    writeRounded(Live::Ea, Ea);
    for (const Live quantity : {Live::Tmrt, Live::Tnwb, Live::Tpwb})
        if (!m_availability.has(quantity))
            writeCaption(quantity, {});

    m_where.clear();
    m_driver.run(settings, assumptions.read(), m_availability);
    for (int index = 1; index <= kLastIndex; ++index)
        if (!settings.selection.contains(index))
            writeResult(index, {});
}

// No box is rounded, and nothing is read back from what is written here.
bool Calculation::calculatePrecisely(const Settings& settings)
{
    std::vector<int> indices;
    for (int index = 1; index <= kLastIndex; ++index)
        if (settings.selection.contains(index))
            indices.push_back(index);
    PreciseRows row(m_limits, settings, indices, {.live = true});
    row.setAssumptions(assumptions.read());
    if (!row.take(readings))
        return false;
    row.calculate();
    for (int index = 1; index <= kLastIndex; ++index)
        if (!settings.selection.contains(index))
            m_driver.outcome(index).kind = OutcomeKind::NotSelected;

    for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
        const auto quantity = static_cast<Live>(i);
        writeCaption(quantity, liveText(row.live(quantity, 0)));
    }
    for (std::size_t place = 0; place < indices.size(); ++place) {
        const int index = indices[place];
        m_driver.outcome(index) = preciseOutcome(row, place, index, settings.ignoreLimits);
        writeResult(index, resultText(catalogue::row(index), row.figure(place, 0)));
    }
    return true;
}

Outcome Calculation::preciseOutcome(PreciseRows& row, std::size_t place, int index, bool ignoreLimits)
{
    const PreciseRows::Figure figure = row.figure(place, 0);
    Outcome outcome{.kind = outcomeKind(figure.status), .value = figure.value};
    if (outcome.kind == OutcomeKind::RunFailed)
        outcome.failure = row.whyNot(index, 0);
    if (ignoreLimits && outcome.kind == OutcomeKind::Value) {
        outcome.limits = outcomeKind(row.limitStatus(index, 0));
        if (outcome.limits == OutcomeKind::RunFailed)
            outcome.failure = "What its limits bound is not available.";
    }
    if (catalogue::row(index).gate != catalogue::Gate::None && outcome.kind != OutcomeKind::RunFailed) {
        const auto judged = row.judged(index, 0);
        outcome.gatedValue = judged.temperature;
        outcome.wind = judged.wind;
    }
    return outcome;
}

void Calculation::deriveHumidity(Variant& Ta, Variant& Td, Variant& RH)
{
    const bool dewPointGiven = !readings.txt_DP.text().empty();
    const bool humidityGiven = !readings.txt_RH.text().empty();
    if (humidityGiven)
        attempt(
            "Dew_Point_Magnus",
            [&] {
                Ta = copy(Reading::TA);
                RH = copy(Reading::RH);
                mustExist(Live::Ta, Ta);
                Td.assign(showDewPoint(*this, Ta.number(), RH.number()));
                mustExist(Live::Td, Td);
            },
            [this](const std::string& why) { m_availability.lose(Live::Td, why); });
    if (dewPointGiven)
        attempt(
            "Relative_Humidity_Magnus",
            [&] {
                Ta = copy(Reading::TA);
                Td = copy(Reading::DP);
                mustExist(Live::Ta, Ta);
                mustExist(Live::Td, Td);
                RH.assign(showRelativeHumidity(*this, Ta.number(), Td.number()));
            },
            [this](const std::string& why) { m_availability.lose(Live::RH, why); });
    if (!dewPointGiven && !humidityGiven) { // emptied as the readings were rounded
        const std::string why = "neither the dew point nor the relative humidity is given";
        m_availability.lose(Live::Td, why);
        m_availability.lose(Live::RH, why);
    }
}

// By the robust rules a temperature below absolute zero is no reading.
void Calculation::loseImpossibleReadings()
{
    constexpr std::pair<Live, Reading> kTemperatures[] = {
        {Live::Ta, Reading::TA}, {Live::Tg, Reading::TG}, {Live::Td, Reading::DP}};
    for (const auto& row : kTemperatures)
        attempt(
            "readings", [&] { mustExist(row.first, copy(row.second)); },
            [&](const std::string& why) { m_availability.lose(row.first, why); });
}

void Calculation::mustExist(Live temperature, const Variant& value) const
{
    if (m_rules != Rules::Classic && !value.isEmptyText())
        mustBeAboveAbsoluteZero(temperature, value.number());
}

// One step of the sequence. By the classic rules its failure ends the run; by the robust rules it
// costs what the step provides.
template <typename Step, typename Loss>
void Calculation::attempt(const char* where, Step step, Loss lose)
{
    m_where = where;
    if (m_rules == Rules::Classic) {
        step();
        return;
    }
    try {
        step();
    } catch (const RunFailure& failure) {
        lose(failure.why());
    }
}

// Entries 9 to 12 get four of the readings here; each is overwritten or blanked again before the
// run ends, so no user ever sees them.
void Calculation::writeUnreachableEntries()
{
    writeResult(9, texts::format(readings.txt_SR.text(), values::kFormat0));
    writeResult(10, texts::format(readings.txt_TG.text(), values::kFormat0_0));
    writeResult(11, texts::format(readings.txt_DP.text(), values::kFormat0_0));
    writeResult(12, texts::format(readings.txt_RH.text(), values::kFormat0_0));
}

void Calculation::blankResults()
{
    const std::size_t entries = (results.controlCount() - 3) / 3;
    for (std::size_t index = 1; index <= entries; ++index)
        results.lbl_results[index].setCaption({});
}

void Calculation::blankLive()
{
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i)
        writeCaption(static_cast<Live>(i), {});
}

std::string Calculation::whyBlank(int index) const
{
    return classic::whyBlank(index, m_driver.outcome(index), m_limits,
                             m_failure ? m_failure->sentence() : std::string());
}

std::optional<catalogue::Meaning> Calculation::meaning(int index) const
{
    const Outcome& outcome = m_driver.outcome(index);
    if (outcome.kind != OutcomeKind::Value || outcome.limits != OutcomeKind::Value)
        return std::nullopt;
    catalogue::Surroundings surroundings{live(Live::Ta).value(), live(Live::Ea).value()};
    if (const int vote = catalogue::voteBeside(index); vote != 0) {
        try {
            const auto value = catalogue::row(vote).formula.function(
                {{}, m_rules}, {live(Live::Ta), live(Live::Tmrt), live(Live::Ea), live(Live::WS)});
            if (value)
                surroundings.vote = value->value();
        } catch (const RunFailure&) { // then the percentage has no value either
        }
    }
    return catalogue::meaning(index, outcome.value, surroundings);
}

std::string Calculation::whyDoubtful(int index) const
{
    return classic::whyDoubtful(index, m_driver.outcome(index), m_limits);
}

// A model's text where a number is taken ends the run. By the robust rules nothing counts as 0.
Number Calculation::taken(const Variant& modelResult) const
{
    if (modelResult.isText())
        throw RunFailure(m_explanation.empty() ? "the model answers \"" + modelResult.text() + "\""
                                               : m_explanation);
    if (m_rules != Rules::Classic && modelResult.isEmpty())
        throw RunFailure("the model has no value");
    return modelResult.number();
}

void Calculation::keepWbgtOutdoor(Number value)
{
    m_WBGT_Outdoor_Value = value.value();
    m_WBGT_Outdoor_Text = texts::val(values::plainText(value.value()));
}

void Calculation::writeCaption(Live quantity, std::string text)
{
    if (!m_availability.has(quantity)) // a model may write what it then fails on
        text.clear();
    m_liveValues[place(quantity)] = texts::val(text);
    if (quantity == Live::Td)
        m_vapourPressure.reset();
    m_live[place(quantity)].setCaption(std::move(text));
}

// The outdoor WBGT comes behind index 159, whose number stays that of its text.
void Calculation::writeSolarRadiationResult(std::string text)
{
    m_driver.outcome(159).value = texts::val(text);
    writeResult(159, std::move(text));
}

void Calculation::showMessage(const std::string& text)
{
    if (m_messagesHidden)
        return;
    controls::MessageBox box{.text = text};
    if (m_messagesShown++ > 0) { // one calculation can have more than a thousand
        box.checkBox = "Do not show this again for this calculation";
        box.checked = &m_messagesHidden;
    }
    m_messages.show(box);
}

void Calculation::explain(std::string why)
{
    m_explanation = std::move(why);
}

Number Calculation::vapourPressure()
{
    if (!m_vapourPressure) {
        const Number Ea = formulas::Vapor_Pressure_Magnus(live(Live::Td));
        m_vapourPressure = texts::val(values::plainText(Ea.value()));
    }
    return *m_vapourPressure;
}

Variant Calculation::boxText(Input text) const
{
    assert(text >= Input::TextTa && text <= Input::TextWS);
    return copy(static_cast<Reading>(static_cast<int>(text) - static_cast<int>(Input::TextTa)));
}

Variant Calculation::runMeanRadiantTemperature()
{
    Variant Ta = copy(Reading::TA);
    Variant Tg = copy(Reading::TG);
    Variant SR = copy(Reading::SR);
    Variant WS = copy(Reading::WS);
    return m_models.Mean_Radiant_Temperature_Model(Ta, Tg, SR, WS);
}

Variant Calculation::runUtciIn(Variant WS)
{
    Variant Ta = copy(Reading::TA);
    Variant Tg = copy(Reading::TG);
    Variant Td = copy(Reading::DP);
    Variant SR = copy(Reading::SR);
    Variant RH = copy(Reading::RH);
    const Number value = taken(m_models.UTCI_Regression(Ta, Tg, Td, WS, SR, RH));
    m_UTCI_Value = value.value();
    return value;
}

Variant Calculation::runWbgtIndoor()
{
    Variant Ta = copy(Reading::TA);
    Variant Td = copy(Reading::DP);
    Variant WS = copy(Reading::WS);
    Variant RH = copy(Reading::RH);
    const Number value = taken(m_models.WBGT_Indoor(Ta, Td, WS, RH));
    m_WBGT_Indoor_Value = value.value();
    return value;
}

Variant Calculation::runWbgtOutdoor()
{
    Variant Ta = copy(Reading::TA);
    Variant Tg = copy(Reading::TG);
    Variant Td = copy(Reading::DP);
    Variant WS = copy(Reading::WS);
    Variant SR = copy(Reading::SR);
    Variant RH = copy(Reading::RH);
    const Number value = taken(m_models.WBGT_Outdoor(Ta, Tg, Td, WS, SR, RH));
    keepWbgtOutdoor(value);
    return value;
}

void Calculation::writeResult(int index, std::string text)
{
    results.lbl_results[static_cast<std::size_t>(index)].setCaption(std::move(text));
}

} // namespace comfortics::classic
