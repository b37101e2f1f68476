// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/model_columns.h"

#include "batch/table_reader.h"
#include "texts/text.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace comfortics::batch {

using catalogue::Addition;
using catalogue::AdditionInput;
using catalogue::AdditionResult;
using catalogue::InputInfo;
using standards::kNaN;

namespace {

/// Calls `take` with each part of a list.
template <typename Take>
void forEachPart(const std::string& list, Take take)
{
    for (std::string_view rest = list;;) {
        const std::size_t comma = rest.find(',');
        take(rest.substr(0, comma));
        if (comma == std::string_view::npos)
            return;
        rest.remove_prefix(comma + 1);
    }
}

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

} // namespace

std::vector<const Addition*> ModelRequest::parseModels(const std::string& list)
{
    std::vector<const Addition*> models;
    forEachPart(list, [&models](std::string_view id) {
        const Addition* const model = catalogue::additionOfId(texts::trimmed(id));
        if (model == nullptr)
            throw std::invalid_argument("there is no model " + quoted(id));
        models.push_back(model);
    });
    return models;
}

std::vector<std::pair<const InputInfo*, double>> ModelRequest::parseConstants(const std::string& list)
{
    std::vector<std::pair<const InputInfo*, double>> constants;
    forEachPart(list, [&constants](std::string_view part) {
        const std::size_t sign = part.find('=');
        const InputInfo* const input = catalogue::additionInputOfId(texts::trimmed(part.substr(0, sign)));
        if (sign == std::string_view::npos || input == nullptr)
            throw std::invalid_argument(quoted(part) + " is no input of a model with its value, as met=1.2");
        const auto value = catalogue::inputValue(*input, part.substr(sign + 1));
        if (!value)
            throw std::invalid_argument(quoted(part.substr(sign + 1)) + " is no value of " +
                                        std::string(input->id));
        constants.emplace_back(input, *value);
    });
    return constants;
}

ModelColumns::ModelColumns(ModelRequest request, const std::vector<std::string>& names, ModelExtras extras)
    : m_request(std::move(request)), m_extras(extras)
{
    for (const Addition* model : m_request.models)
        m_models.push_back(m_request.inputs ? Columns{model, {}} : columnsOf(*model, names));
    m_readsLive = m_readsLive || (m_request.inputs && !m_models.empty());
}

ModelColumns::Source ModelColumns::givenSource(const InputInfo& input,
                                               const std::vector<std::string>& names) const
{
    Source source;
    for (const auto& [info, value] : m_request.constants)
        if (info == &input)
            source.value = value;
    if (!std::isnan(source.value))
        return source;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (texts::lowered(texts::trimmed(names[i])) != input.id)
            continue;
        if (source.column)
            throw MalformedTable("Two columns give " + std::string(input.id) + ".");
        source.column = i;
    }
    return source;
}

ModelColumns::Columns ModelColumns::columnsOf(const Addition& model, const std::vector<std::string>& names)
{
    Columns made{.model = &model, .sources = {}};
    // What tells whether an input is read, where it is the same for all rows; 0 stands for any number.
    std::vector<double> known;
    std::vector<bool> isGiven;
    for (const AdditionInput& input : model.inputs) {
        const Source source = givenSource(*input.info, names);
        isGiven.push_back(source.column || !std::isnan(source.value));
        made.sources.push_back(source);
        if (!isGiven.back())
            made.sources.back().value = input.start;
        known.push_back(!source.column ? made.sources.back().value : input.isOption() ? kNaN : 0);
    }
    for (std::size_t i = 0; i < isGiven.size(); ++i)
        if (!isGiven[i] && model.isRequired(i, known))
            made.sources[i].live = model.inputs[i].info->live;
    for (std::size_t i = 0; i < isGiven.size(); ++i) {
        const AdditionInput& input = model.inputs[i];
        Source& source = made.sources[i];
        m_readsLive = m_readsLive || source.live;
        if (isGiven[i] || source.live)
            continue;
        if (const auto reading = model.inputPlace(input.besideReading);
            reading && made.sources[*reading].live)
            source.value = input.readingValue;
        if (std::isnan(source.value) && model.isRequired(i, known))
            throw MalformedTable(
                std::string(model.id) + " needs " + std::string(input.info->id) + ", the " +
                catalogue::inSentence(input.info->name) +
                (names.empty() ? ": no constant gives it." : ": no column and no constant gives it."));
    }
    return made;
}

bool ModelColumns::hasCategory(const AdditionResult& result) const
{
    return m_extras.categories && !catalogue::scaleOf(result).categories.empty();
}

std::vector<ModelHeading> ModelColumns::headings() const
{
    std::vector<ModelHeading> all;
    for (const Columns& columns : m_models) {
        const std::string model(columns.model->id);
        for (const AdditionResult& result : columns.model->results) {
            const std::string name = model + "." + std::string(result.id);
            all.push_back({name, std::string(result.unit), result.choices.empty()});
            if (m_extras.status)
                all.push_back({name + " status", {}});
            if (hasCategory(result)) {
                all.push_back({name + " category", {}});
                all.push_back({name + " severity", {}, true});
            }
        }
        if (m_extras.reasons)
            all.push_back({model + " reasons", {}});
    }
    return all;
}

void ModelColumns::readInputs(const Columns& columns, const ModelRow& row, ModelFigures& figures)
{
    for (std::size_t i = 0; i < columns.sources.size(); ++i) {
        const Source& source = columns.sources[i];
        const InputInfo& info = *columns.model->inputs[i].info;
        double value = source.value;
        if (source.column || source.live) {
            const std::string text = source.column ? row.cell(*source.column, info) : row.live(*source.live);
            value = catalogue::inputValue(info, text).value_or(kNaN);
            const bool blank = texts::trimmed(text).empty();
            if (source.live && blank && !row.calculated && figures.unreadable.empty())
                figures.unreadable = "No value: the row was not calculated, so the " +
                                     catalogue::inSentence(info.name) + " is not known.";
            if (std::isnan(value) && !blank && figures.unreadable.empty())
                figures.unreadable =
                    "No value: " + quoted(text) + " is no " + catalogue::inSentence(info.name) + ".";
        }
        figures.inputs.push_back(value);
    }
}

void ModelColumns::calculate(const ModelRow& row, const std::function<void(const ModelFigures&)>& take) const
{
    ModelFigures figures;
    for (const Columns& columns : m_models) {
        const Addition& model = *columns.model;
        figures.model = &model;
        figures.inputs.clear();
        figures.unreadable.clear();
        if (m_request.inputs)
            figures.unreadable = m_request.inputs->tell(model, row, figures.inputs);
        else
            readInputs(columns, row, figures);
        figures.results.assign(model.results.size(), kNaN);
        figures.verdicts.assign(model.results.size(), {});
        // A cell that cannot be read is not the same as none.
        if (figures.unreadable.empty())
            model.run(figures.inputs, figures.results, figures.verdicts, m_request.limits);
        take(figures);
    }
}

void ModelColumns::cells(const ModelFigures& figures, const std::function<void(std::string_view)>& take) const
{
    for (std::size_t i = 0; i < figures.results.size(); ++i) {
        const AdditionResult& result = figures.model->results[i];
        take(catalogue::plainResult(result, figures.results[i]));
        if (m_extras.status)
            take(figures.standing(i));
        if (!hasCategory(result))
            continue;
        const catalogue::Category* const category = figures.category(i);
        take(category != nullptr ? category->label : std::string_view());
        take(category != nullptr ? std::to_string(category->severity) : std::string());
    }
    if (m_extras.reasons)
        take(figures.remarks());
}

const catalogue::Category* ModelFigures::category(std::size_t result) const
{
    if (std::isnan(results[result]) || verdicts[result].standing != standards::Standing::Ok)
        return nullptr;
    return catalogue::scaleOf(model->results[result]).of(results[result]);
}

std::string_view ModelFigures::standing(std::size_t result) const
{
    if (std::isnan(results[result]))
        return "none";
    return verdicts[result].standing == standards::Standing::Ok ? "ok" : "outside";
}

std::string ModelFigures::remarks() const
{
    return unreadable.empty() ? catalogue::remarks(*model, verdicts, inputs) : unreadable;
}

} // namespace comfortics::batch
