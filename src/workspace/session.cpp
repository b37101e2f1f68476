// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/session.h"

#include "catalogue/references.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <stdexcept>

namespace comfortics::workspace {

using nlohmann::ordered_json;

namespace {

constexpr std::string_view kFormat = "comfortics session";
constexpr int kVersion = 1;
/// More than anyone types into a box; a report's notes may be longer.
constexpr std::size_t kLongestEntry = 100;
constexpr std::size_t kLongestNotes = 100'000;

// Ends the reading of a damaged file.
class Damage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

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

// A part that another object understands, kept as it came.
std::string part(const ordered_json& root, std::string_view name)
{
    const auto found = root.find(name);
    return found == root.end() ? std::string() : found->dump();
}

void putPart(ordered_json& root, const char* name, const std::string& json)
{
    if (json.empty())
        return;
    ordered_json parsed = ordered_json::parse(json, nullptr, false);
    if (!parsed.is_discarded())
        root[name] = std::move(parsed);
}

ordered_json ticksOf(const classic::Selection& selection)
{
    if (selection == classic::Selection::all())
        return "all";
    ordered_json ids = ordered_json::array();
    for (int index = 1; index <= catalogue::kLastIndex; ++index)
        if (selection.contains(index))
            ids.push_back(catalogue::reference(index).id);
    return ids;
}

// An id that is not known here is of a later catalogue and cannot be ticked.
classic::Selection readTicks(const ordered_json& root)
{
    const auto found = root.find("ticked");
    if (found == root.end() || (found->is_string() && *found == "all"))
        return classic::Selection::all();
    if (!found->is_array())
        throw Damage("\"ticked\" is not what it should be");
    classic::Selection selection = classic::Selection::none();
    for (const ordered_json& id : *found) {
        if (!id.is_string())
            throw Damage("\"ticked\" holds what is no id");
        if (const int index = catalogue::indexOfId(id.get_ref<const std::string&>()); index > 0)
            selection.set(index, true);
    }
    return selection;
}

classic::Settings readOptions(const ordered_json& root)
{
    classic::Settings settings;
    settings.selection = readTicks(root);
    const ordered_json& options = member(root, "options", ordered_json::value_t::object);
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

Session readParts(const ordered_json& root)
{
    Session session;
    const ordered_json& readings = member(root, "readings", ordered_json::value_t::object);
    for (std::size_t i = 0; i < classic::kReadingCount && readings.is_object(); ++i)
        session.inputs.readings[i] = text(readings, classic::kReadingInfo[i].key, kLongestEntry);
    const ordered_json& assumptions = member(root, "assumptions", ordered_json::value_t::object);
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i) {
        const classic::AssumptionInfo& info = classic::kAssumptionInfo[i];
        session.inputs.assumptions[i] = assumptions.is_object() && assumptions.contains(info.key)
                                            ? text(assumptions, info.key, kLongestEntry)
                                            : std::string(info.start);
    }
    session.inputs.settings = readOptions(root);
    session.cardSet = text(root, "cards", kLongestEntry);
    session.ownSets = part(root, "sets");
    session.pinned = part(root, "pinned");
    const ordered_json& report = member(root, "report", ordered_json::value_t::object);
    if (report.is_object()) {
        session.heading = text(report, "heading", kLongestNotes);
        session.notes = text(report, "notes", kLongestNotes);
    }
    return session;
}

} // namespace

std::string sessionText(const Session& session)
{
    ordered_json root;
    root["format"] = kFormat;
    root["version"] = kVersion;
    for (std::size_t i = 0; i < classic::kReadingCount; ++i)
        root["readings"][std::string(classic::kReadingInfo[i].key)] = session.inputs.readings[i];
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i)
        root["assumptions"][std::string(classic::kAssumptionInfo[i].key)] = session.inputs.assumptions[i];
    root["options"] = {{"rules", classic::ruleName(session.inputs.settings.rules)},
                       {"ignoreLimits", session.inputs.settings.ignoreLimits}};
    root["ticked"] = ticksOf(session.inputs.settings.selection);
    if (!session.cardSet.empty())
        root["cards"] = session.cardSet;
    putPart(root, "sets", session.ownSets);
    putPart(root, "pinned", session.pinned);
    if (!session.heading.empty() || !session.notes.empty())
        root["report"] = {{"heading", session.heading}, {"notes", session.notes}};
    // What was typed may be no UTF-8 where a platform let it through.
    return root.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

SessionRead readSession(std::string_view text)
{
    const ordered_json root = ordered_json::parse(text, nullptr, false);
    if (root.is_discarded())
        return {{}, "it is damaged, or no session of Comfortics"};
    const auto format = root.is_object() ? root.find("format") : root.end();
    if (!root.is_object() || format == root.end() || *format != kFormat)
        return {{}, "it is no session of Comfortics"};
    const auto version = root.find("version");
    if (version == root.end() || !version->is_number_integer() || *version < 1)
        return {{}, "it is damaged: its version is missing"};
    if (*version > kVersion)
        return {{}, "it was written by a later version of Comfortics"};
    try {
        return {readParts(root), {}};
    } catch (const Damage& damage) {
        return {{}, std::string("it is damaged: ") + damage.what()};
    }
}

void write(const classic::Inputs& inputs, classic::Frm_Main& form)
{
    form.calculation.assumptions.write(inputs.assumptions);
    form.Opt_Limits.select(inputs.settings.ignoreLimits ? 1 : 0);
    for (std::size_t i = 0; i < classic::kAllRules.size(); ++i)
        if (classic::kAllRules[i] == inputs.settings.rules)
            form.Opt_Rules.select(i);
    form.List_Indices.selectAll(inputs.settings.selection == classic::Selection::all());
    for (std::size_t row = 0; row < form.List_Indices.count(); ++row)
        form.List_Indices.setSelected(row, inputs.settings.selection.contains(static_cast<int>(row) + 1));
    form.calculation.readings.clear(); // no rule of a pair sees what stood there before
    std::array<std::string_view, classic::kReadingCount> readings;
    std::copy(inputs.readings.begin(), inputs.readings.end(), readings.begin());
    form.calculation.readings.write(readings);
}

} // namespace comfortics::workspace
