// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/controls.h"

#include <algorithm>
#include <cassert>

namespace comfortics::controls {

Event::Watch Event::watch(std::function<void()> view)
{
    m_views.push_back({++m_last, std::move(view)});
    return m_last;
}

void Event::unwatch(Watch watch)
{
    std::erase_if(m_views, [watch](const View& view) { return view.watch == watch; });
}

void Event::raise() const
{
    // By number, and a copy of each: a view may come or go while it is told.
    const Watch last = m_last;
    Watch told = 0;
    while (true) {
        const auto next = std::find_if(m_views.begin(), m_views.end(),
                                       [told](const View& view) { return view.watch > told; });
        if (next == m_views.end() || next->watch > last)
            break;
        told = next->watch;
        const std::function<void()> tell = next->tell;
        tell();
    }
    m_handler.tell();
}

void Control::setVisible(bool visible)
{
    if (visible == m_visible)
        return;
    m_visible = visible;
    appearance.raise();
}

void Control::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    appearance.raise();
}

void Control::moveTo(int left, int top)
{
    m_left = left;
    m_top = top;
    appearance.raise();
}

void TextBox::setText(std::string text)
{
    if (text == m_text)
        return;
    m_text = std::move(text);
    if (m_caret > m_text.size())
        m_caret = m_text.size();
    change.raise();
}

void TextBox::setCaretToEnd()
{
    m_caret = m_text.size();
    caretMove.raise();
}

void TextBox::setBackColor(Color color)
{
    if (color == m_backColor)
        return;
    m_backColor = color;
    appearance.raise();
}

void Label::setCaption(std::string caption)
{
    if (caption == m_caption)
        return;
    m_caption = std::move(caption);
    change.raise();
}

void CheckBox::setChecked(bool checked)
{
    if (checked == m_checked)
        return;
    m_checked = checked;
    click.raise();
}

void OptionGroup::select(std::size_t option)
{
    assert(option < m_captions.size());
    if (option == m_selected)
        return;
    m_selected = option;
    click.raise();
}

void Timer::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    enabling.raise();
}

} // namespace comfortics::controls
