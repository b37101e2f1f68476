// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/follower.h"

#include <utility>

namespace comfortics::workspace {

namespace {

constexpr const char* kFollowKey = "cards/follow";
constexpr const char* kOn = "on";
constexpr const char* kOff = "off";

// The cards show indices whether they are ticked or not.
classic::Inputs withAll(classic::Inputs inputs)
{
    inputs.settings.selection = classic::Selection::all();
    return inputs;
}

} // namespace

Follower::Follower(classic::Frm_Main& form, Preferences& preferences)
    : m_form(form), m_preferences(preferences)
{
    Check_Follow.setChecked(preferences.read(kFollowKey) != kOff);
    Check_Follow.click.handle([this] {
        m_preferences.write(kFollowKey, Check_Follow.checked() ? kOn : kOff);
        look();
    });
    patience.timeout.handle([this] {
        patience.setEnabled(false);
        stand(Standing::Calculating);
    });
}

void Follower::onAsk(std::function<void(const classic::Inputs&)> ask)
{
    m_ask = std::move(ask);
    m_asked.reset();
    look();
}

void Follower::look()
{
    if (!m_ask)
        return;
    const classic::Inputs now = withAll(m_form.inputs());
    const auto& last = m_form.calculation.resultInputs();
    if (!Check_Follow.checked() && !last) {
        m_asked.reset();
        m_situation.reset();
        stand(Standing::Nothing);
        return;
    }
    const classic::Inputs wanted = Check_Follow.checked() ? now : withAll(*last);
    if (m_situation && m_situation->inputs == wanted) {
        m_asked.reset();
        stand(wanted == now ? Standing::Present : Standing::Earlier);
    } else if (m_asked != wanted) {
        if (m_standing != Standing::Calculating)
            patience.setEnabled(true);
        m_asked = wanted;
        m_ask(wanted);
    }
}

void Follower::arrived(std::shared_ptr<const Situation> situation)
{
    if (!m_asked || situation->inputs != *m_asked)
        return; // something else is wanted by now
    m_situation = std::move(situation);
    look();
}

void Follower::stand(Standing standing)
{
    if (standing != Standing::Calculating)
        patience.setEnabled(false);
    m_standing = standing;
    changed.raise();
}

std::string Follower::note() const
{
    switch (m_standing) {
    case Standing::Nothing:
        return "Nothing has been calculated yet.";
    case Standing::Calculating:
        return "Calculating...";
    case Standing::Earlier:
        return m_situation->problem.empty() ? "Of the last calculation: the readings have changed since."
                                            : m_situation->problem;
    case Standing::Present:
        break;
    }
    return m_situation->problem;
}

} // namespace comfortics::workspace
