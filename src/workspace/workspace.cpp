// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/workspace.h"

namespace comfortics::workspace {

Workspace::Workspace(const classic::Limits& limits, classic::Frm_Main& form, Preferences& preferences)
    : sets(preferences), follower(form, preferences), units(preferences), history(form), m_limits(limits),
      m_form(form), m_preferences(preferences)
{
    for (std::size_t i = 0; i < classic::kReadingCount; ++i)
        if (const auto reading = static_cast<classic::Reading>(i); UnitEntry::serves(reading))
            m_entries[i] = std::make_unique<UnitEntry>(form.calculation, units, reading);
    m_form.standing.watch([this] {
        follower.look();
        changed.raise();
    });
    for (const auto& box : person.boxes())
        history.add(*box);
    person.changed.watch([this] { changed.raise(); });
}

UnitEntry* Workspace::entry(classic::Reading reading)
{
    return m_entries[static_cast<std::size_t>(reading)].get();
}

classic::Inputs Workspace::presentInputs() const
{
    classic::Inputs inputs = m_form.inputs();
    inputs.settings.selection = classic::Selection::all();
    return inputs;
}

bool Workspace::knowsPresent(const classic::Inputs& inputs)
{
    if (m_present && m_present->inputs == inputs)
        return true;
    // The cards may have it already.
    const Situation* const known = follower.situation();
    if (known == nullptr || known->inputs != inputs)
        return false;
    m_present = std::make_shared<const Situation>(*known);
    return true;
}

const Situation& Workspace::present()
{
    const classic::Inputs inputs = presentInputs();
    if (!knowsPresent(inputs))
        m_present = std::make_shared<const Situation>(evaluate(m_limits, inputs));
    return *m_present;
}

const Situation* Workspace::presentSoon()
{
    if (!m_ask)
        return &present();
    const classic::Inputs inputs = presentInputs();
    if (knowsPresent(inputs))
        return m_present.get();
    if (m_asked != inputs) {
        m_asked = inputs;
        m_ask(inputs);
    }
    return nullptr;
}

void Workspace::arrived(std::shared_ptr<const Situation> situation)
{
    if (m_asked != situation->inputs)
        return; // something else is wanted by now
    m_asked.reset();
    m_present = std::move(situation);
    found.raise();
}

void Workspace::lookAt(std::string_view id)
{
    m_lookedAt = id;
    looked.raise();
}

} // namespace comfortics::workspace
