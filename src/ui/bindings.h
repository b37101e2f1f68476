// SPDX-License-Identifier: GPL-3.0-or-later
//
// What ties a widget to a control of a form. The control is the truth: what the user does to the
// widget is written to the control, and what the form writes to the control shows in the widget.
// The control must outlive the widget.
#pragma once

#include "controls/controls.h"

#include <QObject>

#include <functional>
#include <vector>

class QAbstractButton;
class QAction;
class QCheckBox;
class QComboBox;
class QKeySequence;
class QLabel;
class QLineEdit;
class QMenu;
class QRadioButton;
class QTimer;
class QWidget;

namespace comfortics::ui {

/// Does something whenever a control's event is raised, before the form's own handler, for as long
/// as `owner` lives.
void listen(QObject& owner, controls::Event& event, std::function<void()> act);

/// Repeats a control's state in a view, now and whenever its event is raised.
void follow(QObject& owner, controls::Event& event, std::function<void()> repeat);

/// A line of text. Whatever changes it, be it keys, paste, undo, an input method or dropped text,
/// goes through the box's own handler. Its keys go to the box, too.
class TextBoxBinding : public QObject {
    Q_OBJECT

public:
    TextBoxBinding(QLineEdit& line, controls::TextBox& box);

signals:
    /// The box has dealt with a key.
    void keyHandled(comfortics::controls::KeyPress press);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void repeatText();
    void repeatAppearance();
    bool keyDown(const controls::KeyPress& press);
    bool doubleClick();

    QLineEdit& m_line;
    controls::TextBox& m_box;
    bool m_colouring = false;
};

void bind(QLabel& label, controls::Label& control);
void bind(QAbstractButton& button, controls::Button& control);
void bind(QAbstractButton& button, controls::Picture& control);
/// Lets Enter press a button as a click does; those that are bound have it.
void pressWithEnter(QAbstractButton& button);
void bind(QCheckBox& box, controls::CheckBox& control);
/// A list that drops down, with a group's options in their order.
void bind(QComboBox& list, controls::OptionGroup& group);
/// Leaves the keys of undo and redo in a line to its window, whose way back they are.
void leaveUndoToWindow(QLineEdit& line);
/// The buttons of a group of options, in its order.
void bindChoices(const std::vector<QRadioButton*>& buttons, controls::OptionGroup& group);
/// Shows, hides and greys the widget with the control, and nothing more.
void bindAppearance(QWidget& widget, controls::Control& control);
/// The mnemonic is a letter of the caption.
void bind(QAction& action, controls::MenuEntry& control, char mnemonic = 0);
/// Adds the entry to a menu. Its keys work while the focus lies in `where`.
void addEntry(QMenu& menu, controls::MenuEntry& entry, char mnemonic, const QKeySequence& keys,
              QWidget& where);
void bind(QTimer& timer, controls::Timer& control);

} // namespace comfortics::ui
