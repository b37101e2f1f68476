// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/controls.h"

#include <cassert>

namespace comfortics::controls {

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
