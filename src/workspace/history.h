// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"

#include <cstddef>
#include <string>
#include <vector>

namespace comfortics::workspace {

/// The way back through what was typed into the readings and assumptions, and into boxes besides.
class History {
public:
    /// The form must outlive the history.
    explicit History(classic::Frm_Main& form);

    /// A box besides, which must outlive the history. The way back begins anew.
    void add(controls::TextBox& box);

    /// Looks at what stands in the boxes, at the end of whatever the user did. What is typed on in one box is
    /// one step, until a pause.
    void note();
    /// What is typed from now on is another step.
    void pause() noexcept { m_typing = kNothing; }

    bool canUndo() const noexcept { return m_at > 0; }
    bool canRedo() const noexcept { return m_at + 1 < m_states.size(); }
    void undo();
    void redo();

    /// Steps were made or taken back.
    controls::Event changed;

private:
    static constexpr std::size_t kBoxes = classic::kReadingCount + classic::kAssumptionCount;
    static constexpr std::size_t kMostSteps = 500;
    static constexpr std::size_t kNothing = static_cast<std::size_t>(-1);
    using State = std::vector<std::string>; // readings, then assumptions, then the boxes besides

    State present() const;
    void go(std::size_t to);

    classic::Frm_Main& m_form;
    std::vector<controls::TextBox*> m_besides;
    std::vector<State> m_states;
    std::size_t m_at = 0;
    std::size_t m_typing = kNothing; // the box that is being typed into
};

} // namespace comfortics::workspace
