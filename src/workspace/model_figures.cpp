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

namespace comfortics::workspace {

using catalogue::Addition;
using catalogue::AdditionInput;
using catalogue::InputInfo;
using catalogue::Need;
using standards::kNaN;

namespace {

struct Follows {
    std::string_view input;
    std::string_view figure;
};

// What follows from another model where it is not typed.
constexpr std::array<Follows, 3> kFollows{{{"wbgt_eff", "wbgt_iso7243.wbgt_eff"},
                                           {"sun_altitude", "sun_position.altitude"},
                                           {"sun_sine", "sun_position.cos_zenith"}}};

constexpr std::string_view kWhere = " It is typed under Person and Place.";

class Collector {
public:
    Collector(const Addition& model, const Situation& situation, const FieldTexts& person)
        : m_model(model), m_situation(situation), m_person(person)
    {
    }

    std::vector<ModelInput> inputs()
    {
        std::vector<ModelInput> inputs;
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
        const auto found = m_person.find(id);
        return found == m_person.end() ? FieldReading()
                                       : readField(*catalogue::additionInputOfId(id), found->second);
    }

    double startOf(std::string_view id) const
    {
        const auto place = m_model.inputPlace(id);
        return place ? m_model.inputs[*place].start : kNaN;
    }

    double typedOrStart(std::string_view id) const
    {
        const FieldReading read = fieldOf(id);
        return read.value ? *read.value : read.problem.empty() ? startOf(id) : kNaN;
    }

    ModelInput made(const AdditionInput& input) const
    {
        return fieldIdOf(*input.info).empty() ? ofReadings(input) : ofFields(input);
    }

    // What stands in place of another input, or can be left out, is not taken from the readings: the
    // radiant temperature of the readings has the sun in it that a model would add.
    ModelInput ofReadings(const AdditionInput& input) const
    {
        if (input.need == Need::Optional)
            return {kNaN, InputOrigin::Left, std::string(input.without), {}};
        if (const auto& number = m_situation.liveFigure(*input.info->live).number)
            return {*number, InputOrigin::Readings, {}, {}};
        const std::string problem =
            m_situation.problem.empty() ? "No value: " + missing(*input.info) : m_situation.problem;
        return {kNaN, InputOrigin::Missing, {}, problem};
    }

    ModelInput ofFields(const AdditionInput& input) const
    {
        const InputInfo& info = *input.info;
        const FieldReading read = fieldOf(fieldIdOf(info));
        if (!read.problem.empty())
            return {kNaN, InputOrigin::Missing, {}, read.problem};
        if (read.value)
            return typed(info, *read.value);
        if (ModelInput derived = notTyped(info); derived.origin != InputOrigin::Missing)
            return derived;
        if (input.need == Need::Start)
            return {input.start, InputOrigin::Start, std::string(input.startSource), {}};
        if (input.need == Need::Optional)
            return {kNaN, InputOrigin::Left, std::string(input.without), {}};
        return {kNaN, InputOrigin::Missing, {}, "No value: " + missing(info) + std::string(kWhere)};
    }

    ModelInput typed(const InputInfo& info, double value) const
    {
        if (fieldIdOf(info) == "met" && info.id != "met") {
            const double sex = typedOrStart("sex");
            value = catalogue::metabolicRateFor(
                info, value,
                {.weight = typedOrStart("weight"),
                 .height = typedOrStart("height"),
                 .age = typedOrStart("age"),
                 .sex = sex == 1 ? standards::Sex::Female : standards::Sex::Male});
            if (info.id == "activity_w" && std::isnan(sex))
                value = kNaN;
        } else if (fieldIdOf(info) == "work_met") {
            value = catalogue::workFor(info, value);
        } else if (m_model.inputPlace("hour_utc")) {
            value = inUtc(info, value);
        }
        if (!std::isnan(value))
            return {value, InputOrigin::Typed, {}, {}};
        const InputInfo& wanted = *catalogue::additionInputOfId(wantedFor(info));
        const FieldReading read = fieldOf(wanted.id);
        return {kNaN,
                InputOrigin::Missing,
                {},
                read.problem.empty() ? "No value: " + missing(wanted) + std::string(kWhere) : read.problem};
    }

    /// Date and time of a model that reads them in UTC, from the local ones.
    double inUtc(const InputInfo& info, double value) const
    {
        const bool isHour = info.id == "hour_utc";
        if (!isHour && info.id != "year" && info.id != "month" && info.id != "day")
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
            if (const auto wind = windAt10m(m_situation))
                return {*wind, InputOrigin::Readings, "by the air friction of the options", {}};
        const auto follows = std::ranges::find(kFollows, info.id, &Follows::input);
        if (follows == kFollows.end())
            return {};
        const auto figure = catalogue::figureOfId(follows->figure);
        const ModelStanding other = modelStanding(*figure->model, m_situation, m_person);
        const Figure& found = other.figures[figure->result];
        if (!found.number)
            return {};
        return {*found.number, InputOrigin::Model, "by " + figure->id(), {}};
    }

    static std::string missing(const InputInfo& info)
    {
        return "the " + catalogue::inSentence(info.name) + " is missing.";
    }

    const Addition& m_model;
    const Situation& m_situation;
    const FieldTexts& m_person;
};

/// What was calculated, with no more decimals than mean something.
std::string shownValue(const InputInfo& info, double value)
{
    constexpr std::size_t kLong = 8; // nobody types that many digits
    const std::string digits = values::plainText(value);
    if (!info.choices.empty() || digits.size() < kLong)
        return valueInWords(info, value);
    return valueInWords(info, texts::val(briefly(digits)));
}

std::string inWords(const Addition& model, const std::vector<ModelInput>& inputs, InputOrigin origin)
{
    std::string text;
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (inputs[i].origin == origin)
            text += (text.empty() ? "" : ", ") + catalogue::inSentence(model.inputs[i].info->name) + " " +
                    shownValue(*model.inputs[i].info, inputs[i].value);
    return text;
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

std::vector<double> ModelStanding::values() const
{
    std::vector<double> values;
    for (const ModelInput& input : inputs)
        values.push_back(input.value);
    return values;
}

ModelStanding modelStanding(const Addition& model, const Situation& situation, const FieldTexts& person)
{
    Collector collector(model, situation, person);
    ModelStanding standing{
        .model = &model, .inputs = collector.inputs(), .figures = {}, .assumed = {}, .wantedField = {}};
    const std::vector<double> inputs = standing.values();
    std::string problem;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        ModelInput& input = standing.inputs[i];
        if (!model.isRead(i, inputs)) {
            input = {.value = input.value, .origin = InputOrigin::Unread, .source = {}, .problem = {}};
            continue;
        }
        if (input.problem.empty() || !problem.empty())
            continue;
        problem = input.problem;
        standing.wantedField = collector.wantedFor(*model.inputs[i].info);
    }
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
