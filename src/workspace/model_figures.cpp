// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/model_figures.h"

#include "texts/number_text.h"
#include "values/plain_text.h"
#include "workspace/index_sheet.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <optional>
#include <span>
#include <utility>

namespace comfortics::workspace {

using catalogue::Addition;
using catalogue::AdditionInput;
using catalogue::InputInfo;
using catalogue::Need;
using standards::kNaN;

namespace {

struct Follows {
    std::string_view input;
    std::string_view source; ///< "by " and the id of the figure

    std::string_view figure() const { return source.substr(source.find(' ') + 1); }
};

// What follows from another model where it is not typed.
constexpr std::array<Follows, 3> kFollows{{{"wbgt_eff", "by wbgt_iso7243.wbgt_eff"},
                                           {"sun_altitude", "by sun_position.altitude"},
                                           {"sun_sine", "by sun_position.cos_zenith"}}};

constexpr std::string_view kWhere = " It is typed under Person and Place.";

// One set of readings and what was typed beside it.
class SituationSource final : public ModelSource {
public:
    SituationSource(const Situation& situation, const FieldTexts& person)
        : m_situation(situation), m_person(person)
    {
    }

    std::optional<double> live(formulas::Live quantity) const override
    {
        return m_situation.liveFigure(quantity).number;
    }
    std::optional<double> windAt10m() const override { return workspace::windAt10m(m_situation); }
    std::string problem() const override { return m_situation.problem; }
    FieldReading field(const InputInfo& info) const override
    {
        const auto found = m_person.find(info.id);
        return found == m_person.end() ? FieldReading() : readField(info, found->second);
    }

private:
    const Situation& m_situation;
    const FieldTexts& m_person;
};

std::string missing(const InputInfo& info)
{
    return "the " + catalogue::inSentence(info.name) + " is missing.";
}

bool isDate(const InputInfo& info)
{
    return info.id == "year" || info.id == "month" || info.id == "day";
}

// What can be measured in place of what is typed.
constexpr auto kRates = std::to_array<std::string_view>({"metabolic_w_m2", "metabolic_w"});
constexpr auto kWorks = std::to_array<std::string_view>({"work_w_m2"});

class Collector {
public:
    Collector(const Addition& model, const ModelSource& source) : m_model(model), m_source(source) {}

    std::vector<ModelInput> inputs() const
    {
        std::vector<ModelInput> inputs;
        inputs.reserve(m_model.inputs.size());
        for (const AdditionInput& input : m_model.inputs)
            inputs.push_back(made(input));
        return inputs;
    }

    /// The field that is to blame for an input without a value.
    std::string_view wantedFor(const InputInfo& info) const
    {
        for (const std::string_view id : fieldsBehind(info)) {
            const FieldReading read = fieldOf(id);
            if (!read.problem.empty() || (!read.value && std::isnan(startOf(id))))
                return id;
        }
        return {};
    }

private:
    // A metabolic rate of the whole body wants the body, the time in UTC the zone.
    static std::vector<std::string_view> fieldsBehind(const InputInfo& info)
    {
        if (info.id == "metabolic_w")
            return {"met", "weight", "height"};
        if (info.id == "activity_w")
            return {"met", "weight", "height", "age", "sex"};
        if (info.id == "hour_utc")
            return {"hour", "utc_offset"};
        return {fieldIdOf(info)};
    }

    FieldReading fieldOf(std::string_view id) const
    {
        if (id.empty()) // the readings have it
            return {};
        const InputInfo& info = *catalogue::additionInputOfId(id);
        if (auto measured = m_source.measured(info))
            return *measured;
        return id == "met" || id == "work_met" ? rateOf(info) : m_source.field(info);
    }

    // What is measured in another unit goes before what was typed.
    FieldReading rateOf(const InputInfo& info) const
    {
        const bool isMet = info.id == "met";
        for (const std::string_view id : isMet ? std::span<const std::string_view>(kRates) : kWorks) {
            const InputInfo& other = *catalogue::additionInputOfId(id);
            auto measured = m_source.measured(other);
            if (!measured)
                continue;
            if (measured->value)
                *measured->value /=
                    isMet ? catalogue::metabolicRateFor(other, 1, body()) : catalogue::workFor(other, 1);
            if (measured->value && std::isnan(*measured->value))
                measured->value.reset();
            return *measured;
        }
        return m_source.field(info);
    }

    bool isMeasured(std::string_view id) const
    {
        const auto isOfRow = [this](std::string_view one) {
            return m_source.isOfRow(*catalogue::additionInputOfId(one));
        };
        return isOfRow(id) || (id == "met" && std::ranges::any_of(kRates, isOfRow)) ||
               (id == "work_met" && std::ranges::any_of(kWorks, isOfRow));
    }

    catalogue::Body body() const
    {
        return {.weight = typedOrStart("weight"),
                .height = typedOrStart("height"),
                .age = typedOrStart("age"),
                .sex = typedOrStart("sex") == 1 ? standards::Sex::Female : standards::Sex::Male};
    }

    double startOf(std::string_view id) const
    {
        const auto place = m_model.inputPlace(id);
        return place ? m_model.inputs[*place].start : kNaN;
    }

    double typedOrStart(std::string_view id) const
    {
        const FieldReading read = fieldOf(id);
        return read.value ? *read.value : read.problem.empty() && !isMeasured(id) ? startOf(id) : kNaN;
    }

    ModelInput made(const AdditionInput& input) const
    {
        // A date can be another one where the model reads it in UTC.
        if (!isDate(*input.info))
            if (const auto measured = m_source.measured(*input.info))
                return ofMeasured(input, *measured);
        return fieldIdOf(*input.info).empty() ? ofReadings(input) : ofFields(input);
    }

    static ModelInput ofMeasured(const AdditionInput& input, const FieldReading& measured)
    {
        if (measured.value)
            return {*measured.value, InputOrigin::Row, {}, {}};
        if (measured.problem.empty() && input.need == Need::Optional)
            return {kNaN, InputOrigin::Left, input.without, {}};
        return {kNaN,
                InputOrigin::Missing,
                {},
                measured.problem.empty() ? "No value: " + missing(*input.info) : measured.problem};
    }

    // What stands in place of another input, or can be left out, is not taken from the readings: the
    // radiant temperature of the readings has the sun in it that a model would add.
    ModelInput ofReadings(const AdditionInput& input) const
    {
        if (input.need == Need::Optional)
            return {kNaN, InputOrigin::Left, input.without, {}};
        if (const auto number = m_source.live(*input.info->live))
            return {*number, InputOrigin::Readings, {}, {}};
        const std::string problem = m_source.problem();
        return {
            kNaN, InputOrigin::Missing, {}, problem.empty() ? "No value: " + missing(*input.info) : problem};
    }

    ModelInput ofFields(const AdditionInput& input) const
    {
        const InputInfo& info = *input.info;
        const FieldReading read = fieldOf(fieldIdOf(info));
        if (!read.problem.empty())
            return {kNaN, InputOrigin::Missing, {}, read.problem};
        if (read.value)
            return typed(info, *read.value);
        if (isMeasured(fieldIdOf(info)))
            return ofMeasured(input, read);
        if (ModelInput derived = notTyped(info); derived.origin != InputOrigin::Missing)
            return derived;
        if (input.need == Need::Start)
            return {input.start, InputOrigin::Start, input.startSource, {}};
        if (input.need == Need::Optional)
            return {kNaN, InputOrigin::Left, input.without, {}};
        return {kNaN, InputOrigin::Missing, {}, "No value: " + missing(info) + std::string(kWhere)};
    }

    ModelInput typed(const InputInfo& info, double value) const
    {
        if (fieldIdOf(info) == "met" && info.id != "met") {
            value = catalogue::metabolicRateFor(info, value, body());
            if (info.id == "activity_w" && std::isnan(typedOrStart("sex")))
                value = kNaN;
        } else if (fieldIdOf(info) == "work_met") {
            value = catalogue::workFor(info, value);
        } else if (m_model.inputPlace("hour_utc")) {
            value = inUtc(info, value);
        }
        if (!std::isnan(value))
            return {value, isMeasured(fieldIdOf(info)) ? InputOrigin::Row : InputOrigin::Typed, {}, {}};
        const InputInfo& wanted = *catalogue::additionInputOfId(wantedFor(info));
        const FieldReading read = fieldOf(wanted.id);
        return {kNaN,
                InputOrigin::Missing,
                {},
                !read.problem.empty()
                    ? read.problem
                    : "No value: " + missing(wanted) + std::string(isMeasured(wanted.id) ? "" : kWhere)};
    }

    /// Date and time of a model that reads them in UTC, from the local ones.
    double inUtc(const InputInfo& info, double value) const
    {
        const bool isHour = info.id == "hour_utc";
        if ((!isHour && !isDate(info)) || m_source.measured(*catalogue::additionInputOfId("hour_utc")))
            return value;
        const auto hour = fieldOf("hour").value;
        const auto offset = fieldOf("utc_offset").value;
        if (!hour || !offset)
            return isHour ? kNaN : value;
        constexpr double kDay = 24;
        const double days = std::floor((*hour - *offset) / kDay);
        if (std::fabs(days) > 1) // no zone: the model itself tells what is wrong
            return isHour ? *hour - *offset : value;
        if (isHour)
            return *hour - *offset - kDay * days;
        const auto year = fieldOf("year").value;
        const auto month = fieldOf("month").value;
        const auto day = fieldOf("day").value;
        const auto isWhole = [](const auto& number) { return number && *number == std::floor(*number); };
        if (!isWhole(year) || !isWhole(month) || !isWhole(day))
            return value;
        const std::chrono::year_month_day local{std::chrono::year(static_cast<int>(*year)),
                                                std::chrono::month(static_cast<unsigned>(*month)),
                                                std::chrono::day(static_cast<unsigned>(*day))};
        if (!local.ok())
            return value;
        const std::chrono::year_month_day utc{std::chrono::sys_days(local) +
                                              std::chrono::days(static_cast<int>(days))};
        if (info.id == "year")
            return static_cast<int>(utc.year());
        return info.id == "month" ? static_cast<unsigned>(utc.month()) : static_cast<unsigned>(utc.day());
    }

    ModelInput notTyped(const InputInfo& info) const
    {
        if (info.id == kWindHeightField)
            return {kReadingsWindHeight, InputOrigin::Start, "the height of the wind of the readings", {}};
        if (info.id == "v10")
            if (const auto wind = m_source.windAt10m())
                return {*wind, InputOrigin::Readings, "by the air friction of the options", {}};
        const auto follows = std::ranges::find(kFollows, info.id, &Follows::input);
        if (follows == kFollows.end())
            return {};
        const auto figure = catalogue::figureOfId(follows->figure());
        const ModelStanding other = modelStanding(*figure->model, m_source);
        const Figure& found = other.figures[figure->result];
        if (!found.number)
            return {};
        return {*found.number, InputOrigin::Model, follows->source, {}};
    }

    const Addition& m_model;
    const ModelSource& m_source;
};

std::string inWords(const Addition& model, const std::vector<ModelInput>& inputs, InputOrigin origin)
{
    std::string text;
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (inputs[i].origin == origin)
            text += (text.empty() ? "" : ", ") + catalogue::inSentence(model.inputs[i].info->name) + " " +
                    shownValue(*model.inputs[i].info, inputs[i].value);
    return text;
}

std::vector<double> valuesOf(const std::vector<ModelInput>& inputs)
{
    std::vector<double> values;
    values.reserve(inputs.size());
    for (const ModelInput& input : inputs)
        values.push_back(input.value);
    return values;
}

std::string assumedOf(const Addition& model, const std::vector<ModelInput>& inputs)
{
    const std::string given = inWords(model, inputs, InputOrigin::Typed);
    const std::string follows = inWords(model, inputs, InputOrigin::Model);
    const std::string starts = inWords(model, inputs, InputOrigin::Start);
    std::string text;
    const auto add = [&text](const std::string& what, const std::string& list) {
        if (!list.empty())
            text += (text.empty() ? "" : " ") + what + list + ".";
    };
    add("With ", given);
    add("By other models: ", follows);
    add("Assumed: ", starts);
    return text;
}

Figure figureOf(const ModelStanding& standing, std::size_t place, std::span<const double> results,
                const standards::Verdict& verdict, std::span<const double> inputs)
{
    const Addition& model = *standing.model;
    const catalogue::AdditionResult& info = model.results[place];
    Figure figure;
    const std::string words = catalogue::verdictInWords(model, verdict, inputs);
    if (!verdict.hasValue() || std::isnan(results[place])) {
        figure.kind = classic::OutcomeKind::NoValue;
        figure.reason = words;
        return figure;
    }
    figure.kind = classic::OutcomeKind::Value;
    figure.number = results[place];
    figure.text = catalogue::resultText(model, place, results);
    if (verdict.standing == standards::Standing::Outside)
        figure.doubt = words;
    else if (info.scaleIndex != 0)
        figure.meaning = catalogue::meaning(info.scaleIndex, results[place], {});
    return figure;
}

} // namespace

std::string shownValue(const InputInfo& info, double value)
{
    constexpr std::size_t kLong = 8; // nobody types that many digits
    const std::string digits = values::plainText(value);
    if (!info.choices.empty() || digits.size() < kLong)
        return valueInWords(info, value);
    return valueInWords(info, texts::val(briefly(digits)));
}

std::vector<double> ModelStanding::values() const
{
    return valuesOf(inputs);
}

std::vector<ModelInput> modelInputs(const Addition& model, const ModelSource& source, std::string* wanted)
{
    const Collector collector(model, source);
    std::vector<ModelInput> inputs = collector.inputs();
    const std::vector<double> values = valuesOf(inputs);
    bool found = false;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        ModelInput& input = inputs[i];
        if (!model.isRead(i, values))
            input = {.value = input.value, .origin = InputOrigin::Unread, .source = {}, .problem = {}};
        else if (!input.problem.empty() && !std::exchange(found, true) && wanted != nullptr)
            *wanted = collector.wantedFor(*model.inputs[i].info);
    }
    return inputs;
}

ModelStanding modelStanding(const Addition& model, const Situation& situation, const FieldTexts& person)
{
    return modelStanding(model, SituationSource(situation, person));
}

ModelStanding modelStanding(const Addition& model, const ModelSource& source)
{
    ModelStanding standing{.model = &model, .inputs = {}, .figures = {}, .assumed = {}, .wantedField = {}};
    standing.inputs = modelInputs(model, source, &standing.wantedField);
    const std::vector<double> inputs = standing.values();
    const auto blamed =
        std::ranges::find_if(standing.inputs, [](const ModelInput& input) { return !input.problem.empty(); });
    const std::string problem = blamed == standing.inputs.end() ? std::string() : blamed->problem;
    standing.assumed = assumedOf(model, standing.inputs);
    standing.figures.resize(model.results.size());
    if (!problem.empty()) {
        for (Figure& figure : standing.figures) {
            figure.kind = classic::OutcomeKind::NoValue;
            figure.reason = problem;
        }
        return standing;
    }
    std::array<double, catalogue::kMostAdditionResults> results{};
    std::array<standards::Verdict, catalogue::kMostAdditionResults> verdicts{};
    const std::size_t count = model.results.size();
    model.run(inputs, std::span(results).first(count), std::span(verdicts).first(count));
    for (std::size_t i = 0; i < count; ++i)
        standing.figures[i] = figureOf(standing, i, std::span(results).first(count), verdicts[i], inputs);
    // What was typed and cannot be has its field, too.
    const standards::Verdict& first = verdicts.front();
    for (std::size_t i = 0; i < inputs.size() && first.reason == standards::Reason::BeyondPhysics; ++i)
        if (model.inputs[i].verdictName == first.about && standing.inputs[i].origin == InputOrigin::Typed)
            standing.wantedField = fieldIdOf(*model.inputs[i].info);
    return standing;
}

} // namespace comfortics::workspace
