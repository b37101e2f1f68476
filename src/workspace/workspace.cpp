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

const Situation& Workspace::present()
{
    classic::Inputs inputs = m_form.inputs();
    inputs.settings.selection = classic::Selection::all();
    if (!m_present || m_present->inputs != inputs) {
        // The cards may have it already.
        const Situation* const known = follower.situation();
        m_present = std::make_unique<Situation>(
            known && known->inputs == inputs ? *known : evaluate(m_limits, inputs));
    }
    return *m_present;
}

void Workspace::lookAt(std::string_view id)
{
    m_lookedAt = id;
    looked.raise();
}

} // namespace comfortics::workspace
