// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/inputs_json.h"

namespace comfortics::workspace {

using nlohmann::ordered_json;

namespace {

classic::Settings readOptions(const ordered_json& object)
{
    classic::Settings settings;
    const ordered_json& options = member(object, "options", ordered_json::value_t::object);
    if (options.is_null())
        return settings;
    if (const std::string name = text(options, "rules", kLongestEntry); !name.empty()) {
        const auto rules = classic::rulesOfName(name);
        if (!rules)
            throw Damage("there are no rules \"" + name + "\"");
        settings.rules = *rules;
    }
    const ordered_json& ignored = member(options, "ignoreLimits", ordered_json::value_t::boolean);
    settings.ignoreLimits = !ignored.is_null() && ignored.get<bool>();
    return settings;
}

} // namespace

const ordered_json& member(const ordered_json& object, std::string_view name, ordered_json::value_t type)
{
    static const ordered_json none;
    const auto found = object.find(name);
    if (found == object.end())
        return none;
    if (found->type() != type)
        throw Damage("\"" + std::string(name) + "\" is not what it should be");
    return *found;
}

std::string text(const ordered_json& object, std::string_view name, std::size_t longest)
{
    const ordered_json& value = member(object, name, ordered_json::value_t::string);
    if (value.is_null())
        return {};
    auto result = value.get<std::string>();
    if (result.size() > longest)
        throw Damage("\"" + std::string(name) + "\" is too long");
    return result;
}

void putInputs(ordered_json& object, const classic::Inputs& inputs)
{
    for (std::size_t i = 0; i < classic::kReadingCount; ++i)
        object["readings"][std::string(classic::kReadingInfo[i].key)] = inputs.readings[i];
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i)
        object["assumptions"][std::string(classic::kAssumptionInfo[i].key)] = inputs.assumptions[i];
    object["options"] = {{"rules", classic::ruleName(inputs.settings.rules)},
                         {"ignoreLimits", inputs.settings.ignoreLimits}};
}

classic::Inputs readInputs(const ordered_json& object)
{
    classic::Inputs inputs;
    const ordered_json& readings = member(object, "readings", ordered_json::value_t::object);
    for (std::size_t i = 0; i < classic::kReadingCount && readings.is_object(); ++i)
        inputs.readings[i] = text(readings, classic::kReadingInfo[i].key, kLongestEntry);
    const ordered_json& assumptions = member(object, "assumptions", ordered_json::value_t::object);
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i) {
        const classic::AssumptionInfo& info = classic::kAssumptionInfo[i];
        inputs.assumptions[i] = assumptions.is_object() && assumptions.contains(info.key)
                                    ? text(assumptions, info.key, kLongestEntry)
                                    : std::string(info.start);
    }
    inputs.settings = readOptions(object);
    return inputs;
}

} // namespace comfortics::workspace
