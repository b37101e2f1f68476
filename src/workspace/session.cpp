// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/session.h"

#include "catalogue/references.h"
#include "workspace/inputs_json.h"
#include "workspace/situation.h"

#include <nlohmann/json.hpp>

namespace comfortics::workspace {

using nlohmann::ordered_json;

namespace {

constexpr std::string_view kFormat = "comfortics session";
constexpr int kVersion = 1;
constexpr std::size_t kLongestNotes = 100'000;

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
    for (const int index : selection.indices())
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

Session readParts(const ordered_json& root)
{
    Session session;
    session.inputs = readInputs(root);
    session.inputs.settings.selection = readTicks(root);
    session.cardSet = text(root, "cards", kLongestEntry);
    session.ownSets = part(root, "sets");
    session.person = part(root, "person");
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
    putInputs(root, session.inputs);
    root["ticked"] = ticksOf(session.inputs.settings.selection);
    if (!session.cardSet.empty())
        root["cards"] = session.cardSet;
    putPart(root, "sets", session.ownSets);
    putPart(root, "person", session.person);
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
    form.Opt_Limits.select(inputs.settings.ignoreLimits ? 1 : 0);
    for (std::size_t i = 0; i < classic::kAllRules.size(); ++i)
        if (classic::kAllRules[i] == inputs.settings.rules)
            form.Opt_Rules.select(i);
    form.List_Indices.selectAll(inputs.settings.selection == classic::Selection::all());
    for (std::size_t row = 0; row < form.List_Indices.count(); ++row)
        form.List_Indices.setSelected(row, inputs.settings.selection.contains(static_cast<int>(row) + 1));
    write(inputs, form.calculation);
}

} // namespace comfortics::workspace
