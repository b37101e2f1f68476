// SPDX-License-Identifier: GPL-3.0-or-later
//
// The small controls that the forms are made of. They know no window: a view binds to them, a
// test drives them directly. Writing a control raises its handlers at once, nested where a
// handler writes again; a write that changes nothing raises none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::controls {

/// A six-digit colour in the order blue, green, red: 0xFFFF00 is cyan on the screen.
using Color = std::uint32_t;

/// The place of one listener. A second would silence the first, so it is refused: std::logic_error.
template <class... Told>
class Ear {
public:
    /// An empty function frees the place.
    void set(std::function<void(Told...)> listener)
    {
        if (m_listener && listener)
            throw std::logic_error("a second listener would silence the first");
        m_listener = std::move(listener);
    }
    /// Silent while nobody listens.
    void tell(Told... told) const
    {
        if (m_listener)
            m_listener(told...);
    }

private:
    std::function<void(Told...)> m_listener;
};

/// What a control tells: first the views that repeat it on the screen, in the order in which they came,
/// then the form's own handler, of which there is at most one.
class Event {
public:
    /// Names a view that watches, to let it go.
    using Watch = std::size_t;

    void handle(std::function<void()> handler) { m_handler.set(std::move(handler)); }
    Watch watch(std::function<void()> view);
    /// What does not watch any more is let be.
    void unwatch(Watch watch);
    /// The views first, so that whatever the handler writes is shown after what raised it. A view that is
    /// let go meanwhile is not told any more; one that comes meanwhile is told from the next time on.
    void raise() const;

private:
    struct View {
        Watch watch;
        std::function<void()> tell;
    };

    Ear<> m_handler;
    std::vector<View> m_views;
    Watch m_last = 0;
};

/// What every control has: it can be hidden, greyed and moved.
class Control {
public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    bool visible() const noexcept { return m_visible; }
    void setVisible(bool visible);
    bool enabled() const noexcept { return m_enabled; }
    void setEnabled(bool enabled);
    int left() const noexcept { return m_left; }
    int top() const noexcept { return m_top; }
    void moveTo(int left, int top);

    /// Raised when visibility, enabling or place changes; only views listen.
    Event appearance;

protected:
    ~Control() = default;

private:
    bool m_visible = true;
    bool m_enabled = true;
    int m_left = 0;
    int m_top = 0;
};

/// Keys that forms tell apart, by their classic codes.
enum class Key : int { Enter = 13, Left = 37, Up = 38, Right = 39, Down = 40, Delete = 46, C = 67, V = 86 };

/// Shift state of a key: bits 1 Shift, 2 Ctrl, 4 Alt.
struct KeyPress {
    Key key{};
    int shift = 0;
};

/// A one-line box for text.
class TextBox : public Control {
public:
    explicit TextBox(std::string text = {}) : m_text(std::move(text)) {}

    const std::string& text() const noexcept { return m_text; }
    /// Raises `change` if the text differs from what the box holds.
    void setText(std::string text);

    /// The caret, in bytes of UTF-8 from the start.
    std::size_t caret() const noexcept { return m_caret; }
    void setCaretToEnd();

    Color backColor() const noexcept { return m_backColor; }
    void setBackColor(Color color);

    /// Asks the view for the keyboard focus; without a view nothing happens.
    void setFocus() { focus.raise(); }

    void press(KeyPress key) const { m_keyDown.tell(key); }
    void onKeyDown(std::function<void(KeyPress)> handler) { m_keyDown.set(std::move(handler)); }

    Event change;
    Event doubleClick;
    Event focus;     ///< asks the view for the keyboard focus
    Event caretMove; ///< the form moved the caret; only views listen

private:
    std::string m_text;
    std::size_t m_caret = 0;
    Color m_backColor = 0xFFFFFF;
    Ear<KeyPress> m_keyDown;
};

/// A caption that code writes and a user reads.
class Label : public Control {
public:
    explicit Label(std::string caption = {}) : m_caption(std::move(caption)) {}

    const std::string& caption() const noexcept { return m_caption; }
    void setCaption(std::string caption);

    Event change;

private:
    std::string m_caption;
};

/// A push button; setting its value to true presses it.
class Button : public Control {
public:
    explicit Button(std::string caption = {}) : m_caption(std::move(caption)) {}
    const std::string& caption() const noexcept { return m_caption; }
    void setValue(bool pressed) const
    {
        if (pressed)
            click.raise();
    }

    Event click;

private:
    std::string m_caption;
};

/// A picture that can be clicked.
class Picture : public Control {
public:
    Event click;
};

/// A box with a tick.
class CheckBox : public Control {
public:
    explicit CheckBox(std::string caption = {}) : m_caption(std::move(caption)) {}
    const std::string& caption() const noexcept { return m_caption; }
    bool checked() const noexcept { return m_checked; }
    /// Raises `click` if the tick changes.
    void setChecked(bool checked);

    Event click;

private:
    std::string m_caption;
    bool m_checked = false;
};

/// A group of options of which exactly one is selected.
class OptionGroup : public Control {
public:
    explicit OptionGroup(std::vector<std::string> captions) : m_captions(std::move(captions)) {}
    const std::vector<std::string>& captions() const noexcept { return m_captions; }
    std::size_t selected() const noexcept { return m_selected; }
    /// Raises `click` if the choice changes. The index must exist.
    void select(std::size_t option);

    Event click;

private:
    std::vector<std::string> m_captions;
    std::size_t m_selected = 0;
};

/// A panel that holds other controls.
class Frame : public Control {
public:
    explicit Frame(std::string caption = {}) : m_caption(std::move(caption)) {}
    const std::string& caption() const noexcept { return m_caption; }

private:
    std::string m_caption;
};

/// An entry of a menu.
class MenuEntry : public Control {
public:
    explicit MenuEntry(std::string caption) : m_caption(std::move(caption)) {}
    const std::string& caption() const noexcept { return m_caption; }

    Event click;

private:
    std::string m_caption;
};

/// A timer: the view (or a test) calls `tick` at each interval while it is enabled.
class Timer {
public:
    explicit Timer(int intervalMilliseconds) : m_interval(intervalMilliseconds) {}
    int interval() const noexcept { return m_interval; }
    bool enabled() const noexcept { return m_enabled; }
    void setEnabled(bool enabled);
    void tick() const
    {
        if (m_enabled)
            timeout.raise();
    }

    Event timeout;
    Event enabling; ///< raised when the timer is switched on or off; only views listen

private:
    int m_interval;
    bool m_enabled = false;
};

} // namespace comfortics::controls
