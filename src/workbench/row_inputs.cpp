// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/row_inputs.h"

#include "tables/layout.h"
#include "texts/number_text.h"
#include "values/plain_text.h"
#include "workspace/situation.h"

#include <algorithm>
#include <array>

namespace comfortics::workbench {

using catalogue::Addition;
using catalogue::InputInfo;
using workspace::FieldReading;
using workspace::InputOrigin;
using workspace::ModelInput;

namespace {

template <class Pairs>
auto found(const Pairs& pairs, const InputInfo& info)
{
    return std::ranges::find(pairs, &info, [](const auto& one) { return one.first; });
}

// The part of a date or clock that a field is.
std::optional<double> clockPart(const batch::RowClock& clock, std::string_view id)
{
    if (id == "year")
        return clock.year;
    if (id == "month")
        return clock.month;
    if (id == "day")
        return clock.day;
    if (id == "hour")
        return clock.hour;
    return id == "utc_offset" ? clock.utcOffset : std::nullopt;
}

constexpr std::array<std::string_view, 4> kOfTime{"year", "month", "day", "hour"};

} // namespace

class RowInputs::Source final : public workspace::ModelSource {
public:
    Source(const RowInputs& all, const batch::ModelRow& row) : m_all(all), m_row(row) {}

    std::optional<double> live(formulas::Live quantity) const override
    {
        return texts::numericValue(m_row.live(quantity));
    }
    std::optional<double> windAt10m() const override
    {
        const auto wind = live(formulas::Live::WS);
        return wind ? workspace::windAt10m(*wind, m_all.m_friction) : std::nullopt;
    }
    std::string problem() const override { return {}; }
    FieldReading field(const InputInfo& info) const override
    {
        if (const auto part = m_row.clock ? clockPart(*m_row.clock, info.id) : std::nullopt)
            return {part, {}};
        const auto typed = found(m_all.m_typed, info);
        return typed == m_all.m_typed.end() || isOfRow(info) ? FieldReading() : typed->second;
    }
    std::optional<FieldReading> measured(const InputInfo& info) const override
    {
        const auto column = found(m_all.m_columns, info);
        if (column == m_all.m_columns.end())
            return std::nullopt;
        return workspace::readField(info, m_row.cell(column->second, info));
    }
    bool isOfRow(const InputInfo& info) const override
    {
        return found(m_all.m_columns, info) != m_all.m_columns.end() ||
               (m_all.m_hasTime && std::ranges::count(kOfTime, info.id) > 0) ||
               (m_row.clock && clockPart(*m_row.clock, info.id));
    }

private:
    const RowInputs& m_all;
    const batch::ModelRow& m_row;
};

RowInputs::RowInputs(const workspace::FieldTexts& person, const tables::Mapping& mapping,
                     const tables::Layout& layout, std::string friction)
    : m_friction(std::move(friction))
{
    for (const auto& [id, text] : person)
        if (const InputInfo* const info = catalogue::additionInputOfId(id))
            m_typed.emplace_back(info, workspace::readField(*info, text));
    for (std::size_t i = 0; i < layout.names.size(); ++i) {
        const tables::ColumnUse* const use = mapping.find(layout.names[i]);
        if (use == nullptr)
            continue;
        m_hasTime = m_hasTime || tables::isTimeRole(use->role);
        const InputInfo* const info =
            use->role == tables::Role::Input ? catalogue::additionInputOfId(use->input) : nullptr;
        if (info == nullptr)
            continue;
        if (found(m_columns, *info) != m_columns.end())
            throw tables::TableFault("Two columns give the " + catalogue::inSentence(info->name) + ".");
        m_columns.emplace_back(info, i);
    }
}

std::string RowInputs::tell(const Addition& model, const batch::ModelRow& row,
                            std::vector<double>& inputs) const
{
    inputs.clear();
    std::string problem;
    for (ModelInput& input : workspace::modelInputs(model, Source(*this, row))) {
        inputs.push_back(input.value);
        if (problem.empty())
            problem = std::move(input.problem);
    }
    return problem;
}

std::string RowInputs::inWords(const Addition& model) const
{
    // A row in the middle of everything: what its cells hold is not told.
    const batch::ModelRow row{[](std::size_t, const InputInfo& info) {
                                  return values::plainText(
                                      std::clamp(1.0, info.bounds.low, info.bounds.high));
                              },
                              [](formulas::Live) { return std::string("20"); },
                              m_hasTime ? std::optional(batch::RowClock{2000, 6, 15, 12, {}}) : std::nullopt};
    constexpr std::array<std::pair<InputOrigin, std::string_view>, 6> kParts{
        {{InputOrigin::Typed, "person and place: "},
         {InputOrigin::Row, "of the row: "},
         {InputOrigin::Model, "by other models: "},
         {InputOrigin::Start, "assumed: "},
         {InputOrigin::Left, "left out: "},
         {InputOrigin::Missing, "missing: "}}};
    const std::vector<ModelInput> inputs = workspace::modelInputs(model, Source(*this, row));
    std::string text;
    for (const auto& [origin, heading] : kParts) {
        std::string part;
        for (std::size_t i = 0; i < inputs.size(); ++i) {
            const ModelInput& input = inputs[i];
            if (input.origin != origin)
                continue;
            const InputInfo& info = *model.inputs[i].info;
            part += (part.empty() ? "" : ", ") + catalogue::inSentence(info.name);
            if (origin == InputOrigin::Typed || origin == InputOrigin::Start)
                part += " " + workspace::shownValue(info, input.value);
            if (!input.source.empty())
                part += " (" + std::string(input.source) + ")";
        }
        if (!part.empty())
            text += (text.empty() ? "" : "; ") + std::string(heading) + part;
    }
    return text.empty() ? "readings" : text;
}

std::vector<const Addition*> modelsOf(const std::vector<catalogue::Figure>& figures)
{
    std::vector<const Addition*> models;
    for (const Addition& model : catalogue::additions())
        if (std::ranges::count(figures, &model, &catalogue::Figure::model) > 0)
            models.push_back(&model);
    return models;
}

std::vector<std::pair<std::string, std::string>> modelFacts(const RunFacts& facts)
{
    std::vector<std::pair<std::string, std::string>> lines;
    if (facts.hasModels()) {
        const RowInputs inputs(facts.person, facts.mapping, facts.layout, {});
        for (const Addition* const model : modelsOf(facts.figures))
            lines.emplace_back("Inputs of " + std::string(model->id), inputs.inWords(*model));
    }
    return lines;
}

batch::ModelRequest modelRequest(const std::vector<catalogue::Figure>& figures,
                                 const workspace::FieldTexts& person, const tables::Mapping& mapping,
                                 const tables::Layout& layout, const std::string& friction)
{
    batch::ModelRequest request;
    request.models = modelsOf(figures);
    if (!request.models.empty())
        request.inputs = std::make_shared<const RowInputs>(person, mapping, layout, friction);
    return request;
}

} // namespace comfortics::workbench
