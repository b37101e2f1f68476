// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "controls/controls.h"
#include "workspace/preferences.h"
#include "workspace/situation.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace comfortics::workspace {

/// What the cards show: the situation of the readings as they are typed, or that of the last calculation.
///
/// Figures of other readings stand no longer than the patience, 50 ms; then it is calculating, until they are
/// there. Of several situations asked for in a row the last one counts.
class Follower {
public:
    enum class Standing {
        Nothing,     ///< nothing has been calculated yet
        Present,     ///< of the readings that stand now
        Earlier,     ///< of the last calculation, since which the readings have changed
        Calculating, ///< the figures take a while
    };

    /// All must outlive the follower.
    Follower(classic::Frm_Main& form, Preferences& preferences);
    Follower(const Follower&) = delete;
    Follower& operator=(const Follower&) = delete;

    /// Whether the cards follow the readings while typing. Kept between sessions; on where nothing is kept.
    controls::CheckBox Check_Follow{"Cards follow the readings while typing"};

    /// Who calculates: asked for a situation, it calls arrived() with it, now or later, in this thread. While
    /// there is nobody (an empty function), as where no cards are shown, nothing is asked for.
    void onAsk(std::function<void(const classic::Inputs&)> ask);
    void arrived(std::shared_ptr<const Situation> situation);

    /// Looks at what stands in the form; at each change of it.
    void look();

    Standing standing() const noexcept { return m_standing; }
    /// What is shown; null while there is nothing to show.
    const Situation* situation() const noexcept { return m_situation.get(); }
    /// One sentence on why figures are missing or of what they are; empty where they are the present ones.
    std::string note() const;

    /// Runs while figures of other readings stand.
    controls::Timer patience{50};

    /// Situation or standing have changed.
    controls::Event changed;

private:
    void stand(Standing standing);

    classic::Frm_Main& m_form;
    Preferences& m_preferences;
    std::function<void(const classic::Inputs&)> m_ask;
    std::shared_ptr<const Situation> m_situation;
    std::optional<classic::Inputs> m_asked; // what has not arrived yet
    Standing m_standing = Standing::Nothing;
};

} // namespace comfortics::workspace
