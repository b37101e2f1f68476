// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/keys.h"

namespace comfortics::ui {

using controls::Key;

namespace {

std::optional<Key> formKey(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Key::Enter;
    case Qt::Key_Left:
        return Key::Left;
    case Qt::Key_Up:
        return Key::Up;
    case Qt::Key_Right:
        return Key::Right;
    case Qt::Key_Down:
        return Key::Down;
    case Qt::Key_Delete:
        return Key::Delete;
    case Qt::Key_C:
        return Key::C;
    case Qt::Key_V:
        return Key::V;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<controls::KeyPress> keyPress(const QKeyEvent& event)
{
    const std::optional<Key> key = formKey(event.key());
    if (!key)
        return std::nullopt;
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return controls::KeyPress{.key = *key,
                              .shift = (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) |
                                       (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
                                       (modifiers.testFlag(Qt::AltModifier) ? 4 : 0)};
}

} // namespace comfortics::ui
