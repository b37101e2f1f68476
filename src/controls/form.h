// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"

#include <string>
#include <utility>

namespace comfortics::controls {

/// Where a window stands on the screen, its frame included, in the pixels of the view.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const Place&, const Place&) = default;
};

/// What every window has. A view follows its events and tells it where the user put it.
class Form {
public:
    explicit Form(std::string caption) : m_caption(std::move(caption)) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& caption() const noexcept { return m_caption; }

    bool visible() const noexcept { return m_visible; }
    /// Raised anew when the window is visible already, so that the view brings it to the front.
    void show()
    {
        m_visible = true;
        visibility.raise();
    }
    void hide()
    {
        m_visible = false;
        visibility.raise();
    }

    const Place& place() const noexcept { return m_place; }
    /// Asks the view to put the window there.
    void moveTo(const Place& place)
    {
        m_place = place;
        placement.raise();
    }
    /// The view tells where the window stands now.
    void stands(const Place& place) noexcept { m_place = place; }

    Event visibility;
    Event placement;

protected:
    ~Form() = default;

private:
    std::string m_caption;
    bool m_visible = false;
    Place m_place;
};

} // namespace comfortics::controls
