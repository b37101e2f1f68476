// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "workspace/follower.h"
#include "workspace/history.h"
#include "workspace/index_sets.h"
#include "workspace/person_and_place.h"
#include "workspace/preferences.h"
#include "workspace/situation.h"
#include "workspace/unit_entry.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

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
    /// The same where it is known, or where there is nobody to calculate it meanwhile; else null: it was
    /// asked for, and `found` tells when it is there.
    const Situation* presentSoon();
    /// All that it depends on.
    classic::Inputs presentInputs() const;
    /// Who calculates meanwhile: asked for a situation, he calls arrived() with it, in this thread; of
    /// several the last one counts. Nobody where the function is empty.
    void onAsk(std::function<void(const classic::Inputs&)> ask) { m_ask = std::move(ask); }
    void arrived(std::shared_ptr<const Situation> situation);
    controls::Event found;

    /// The sets of indices that the cards show.
    IndexSets sets;
    /// What the cards show.
    Follower follower;

    /// What the models of standards read besides the readings.
    PersonAndPlace person;

    /// Other units for typing, and the entries of the readings that have them.
    UnitChoice units;
    /// Null for a reading that is typed in its unit alone.
    UnitEntry* entry(classic::Reading reading);
    /// The way back through what was typed.
    History history;

    /// The readings, assumptions or options, or person and place may have changed.
    controls::Event changed;

    /// Looks at one index, whose sheet opens; from a card, the list or the results.
    void lookAt(std::string_view id);
    /// The id of the index that is looked at; empty before the first.
    const std::string& lookedAt() const noexcept { return m_lookedAt; }
    /// An index is wanted in view, be it the one that is looked at already.
    controls::Event looked;

private:
    bool knowsPresent(const classic::Inputs& inputs);

    const classic::Limits& m_limits;
    classic::Frm_Main& m_form;
    Preferences& m_preferences;
    std::shared_ptr<const Situation> m_present;
    std::function<void(const classic::Inputs&)> m_ask;
    std::optional<classic::Inputs> m_asked; // and not there yet
    std::array<std::unique_ptr<UnitEntry>, classic::kReadingCount> m_entries;
    std::string m_lookedAt;
};

} // namespace comfortics::workspace
