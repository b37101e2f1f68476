// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "workspace/preferences.h"
#include "workspace/situation.h"

#include <memory>

namespace comfortics::workspace {

/// What stands beside the described forms: the situation of the readings that are typed now, and what is kept
/// between sessions.
class Workspace {
public:
    /// All must outlive the workspace.
    Workspace(const classic::Limits& limits, classic::Frm_Main& form, Preferences& preferences);
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    classic::Frm_Main& form() const noexcept { return m_form; }
    const classic::Limits& limits() const noexcept { return m_limits; }
    Preferences& preferences() const noexcept { return m_preferences; }

    /// What the readings, assumptions and options come to that stand in the form now, calculated when first
    /// asked for. What the form shows stays as it is.
    const Situation& present();

    /// The readings, assumptions or options may have changed.
    controls::Event changed;

private:
    const classic::Limits& m_limits;
    classic::Frm_Main& m_form;
    Preferences& m_preferences;
    std::unique_ptr<Situation> m_present;
};

} // namespace comfortics::workspace
