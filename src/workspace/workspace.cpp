// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/workspace.h"

namespace comfortics::workspace {

Workspace::Workspace(const classic::Limits& limits, classic::Frm_Main& form, Preferences& preferences)
    : sets(preferences), follower(form, preferences), m_limits(limits), m_form(form),
      m_preferences(preferences)
{
    m_form.standing.watch([this] {
        follower.look();
        changed.raise();
    });
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
