// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/bindings.h"

#include "ui/colors.h"
#include "ui/keys.h"
#include "ui/text.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace comfortics::ui {

namespace {

// Watches an event for as long as its parent lives.
class Listener : public QObject {
public:
    Listener(QObject& owner, controls::Event& event, std::function<void()> act)
        : QObject(&owner), m_event(event), m_watch(event.watch(std::move(act)))
    {
    }
    ~Listener() override { m_event.unwatch(m_watch); }
    Q_DISABLE_COPY_MOVE(Listener)

private:
    controls::Event& m_event;
    controls::Event::Watch m_watch;
};

// An Enter on a button presses it, as a click would.
class EnterPresses : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* const button = qobject_cast<QAbstractButton*>(watched);
        if (button && event->type() == QEvent::KeyPress) {
            const auto press = keyPress(*static_cast<QKeyEvent*>(event));
            if (press && press->key == controls::Key::Enter) {
                button->click();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

class UndoLeaver : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // A line takes these keys from the window by accepting this event.
        if (event->type() == QEvent::ShortcutOverride) {
            const auto& keys = *static_cast<QKeyEvent*>(event);
            if (keys.matches(QKeySequence::Undo) || keys.matches(QKeySequence::Redo)) {
                event->ignore();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

// A widget that was never hidden shows with its parent; showing it by itself would open a window.
void repeatBasics(QWidget& widget, const controls::Control& control)
{
    widget.setEnabled(control.enabled());
    const bool wasHidden =
        widget.testAttribute(Qt::WA_WState_ExplicitShowHide) && widget.testAttribute(Qt::WA_WState_Hidden);
    if (control.visible() == wasHidden)
        widget.setVisible(control.visible());
}

} // namespace

void listen(QObject& owner, controls::Event& event, std::function<void()> act)
{
    new Listener(owner, event, std::move(act));
}

void follow(QObject& owner, controls::Event& event, std::function<void()> repeat)
{
    repeat();
    listen(owner, event, std::move(repeat));
}

TextBoxBinding::TextBoxBinding(QLineEdit& line, controls::TextBox& box)
    : QObject(&line), m_line(line), m_box(box)
{
    follow(*this, box.change, [this] { repeatText(); });
    follow(*this, box.appearance, [this] { repeatAppearance(); });
    follow(*this, box.caretMove, [this] {
        m_line.setCursorPosition(
            static_cast<int>(toQt(std::string_view(m_box.text()).substr(0, m_box.caret())).size()));
    });
    listen(*this, box.focus, [this] { m_line.setFocus(Qt::OtherFocusReason); });

    // The box may turn the text into another at once; that comes back through its change event.
    connect(&line, &QLineEdit::textChanged, this,
            [this](const QString& text) { m_box.setText(fromQt(text)); });
    line.installEventFilter(this);
}

void TextBoxBinding::repeatText()
{
    if (const QString text = toQt(m_box.text()); text != m_line.text())
        m_line.setText(text);
}

void TextBoxBinding::repeatAppearance()
{
    repeatBasics(m_line, m_box);
    const QScopedValueRollback colouring(m_colouring, true);
    m_line.setPalette(boxPalette(QApplication::palette(&m_line), m_box.backColor()));
}

bool TextBoxBinding::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (const auto press = keyPress(key); press && keyDown(*press))
            return true;
        if (key.modifiers() == Qt::AltModifier && !key.text().isEmpty()) {
            event->ignore(); // the line would type the letter of a menu that is not there
            return true;
        }
        break;
    }
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && doubleClick())
            return true;
        break;
    case QEvent::PaletteChange:
        if (!m_colouring) // the desktop turned light or dark
            repeatAppearance();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

// The line itself sees no key that led elsewhere.
bool TextBoxBinding::keyDown(const controls::KeyPress& press)
{
    const bool hadFocus = m_line.hasFocus();
    m_box.press(press);
    emit keyHandled(press);
    return press.key == controls::Key::Enter || (hadFocus && !m_line.hasFocus());
}

bool TextBoxBinding::doubleClick()
{
    const QString before = m_line.text();
    m_box.doubleClick.raise();
    return m_line.text() != before; // else it selects a word, as ever
}

void bind(QLabel& label, controls::Label& control)
{
    follow(label, control.change, [&label, &control] { label.setText(toQt(control.caption())); });
}

void bind(QAbstractButton& button, controls::Button& control)
{
    button.setText(withMnemonic(control.caption()));
    bindAppearance(button, control);
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&control] { control.setValue(true); });
    pressWithEnter(button);
}

void bind(QAbstractButton& button, controls::Picture& control)
{
    bindAppearance(button, control);
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&control] { control.click.raise(); });
    pressWithEnter(button);
}

void pressWithEnter(QAbstractButton& button)
{
    button.installEventFilter(new EnterPresses(&button));
}

void bind(QCheckBox& box, controls::CheckBox& control)
{
    box.setText(withMnemonic(control.caption()));
    bindAppearance(box, control);
    follow(box, control.click, [&box, &control] { box.setChecked(control.checked()); });
    QObject::connect(&box, &QCheckBox::toggled, &box, [&control](bool on) { control.setChecked(on); });
}

void bind(QComboBox& list, controls::OptionGroup& group)
{
    for (const std::string& caption : group.captions())
        list.addItem(toQt(caption));
    QObject::connect(&list, &QComboBox::activated, &list,
                     [&group](int item) { group.select(static_cast<std::size_t>(item)); });
    follow(list, group.click, [&list, &group] { list.setCurrentIndex(static_cast<int>(group.selected())); });
}

void leaveUndoToWindow(QLineEdit& line)
{
    line.installEventFilter(new UndoLeaver(&line));
}

void bindChoices(const std::vector<QRadioButton*>& buttons, controls::OptionGroup& group)
{
    for (std::size_t option = 0; option < buttons.size(); ++option) {
        QRadioButton& button = *buttons[option];
        button.setText(withMnemonic(group.captions().at(option)));
        QObject::connect(&button, &QRadioButton::toggled, &button, [&group, option](bool on) {
            if (on)
                group.select(option);
        });
    }
    follow(*buttons.at(0), group.click, [buttons, &group] {
        buttons[group.selected()]->setChecked(true);
        for (std::size_t option = 0; option < buttons.size(); ++option) // Tab leads to the one that holds
            buttons[option]->setFocusPolicy(option == group.selected() ? Qt::StrongFocus : Qt::ClickFocus);
    });
}

void bindAppearance(QWidget& widget, controls::Control& control)
{
    follow(widget, control.appearance, [&widget, &control] { repeatBasics(widget, control); });
}

void bind(QAction& action, controls::MenuEntry& control, char mnemonic)
{
    action.setText(withMnemonic(control.caption(), mnemonic));
    follow(action, control.appearance, [&action, &control] {
        action.setEnabled(control.enabled());
        action.setVisible(control.visible());
    });
    QObject::connect(&action, &QAction::triggered, &action, [&control] { control.click.raise(); });
}

void addEntry(QMenu& menu, controls::MenuEntry& entry, char mnemonic, const QKeySequence& keys,
              QWidget& where)
{
    auto* const action = new QAction(&menu);
    bind(*action, entry, mnemonic);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    menu.addAction(action);
    where.addAction(action);
}

void bind(QTimer& timer, controls::Timer& control)
{
    timer.setInterval(control.interval());
    follow(timer, control.enabling, [&timer, &control] {
        if (control.enabled())
            timer.start();
        else
            timer.stop();
    });
    QObject::connect(&timer, &QTimer::timeout, &timer, [&control] { control.tick(); });
}

} // namespace comfortics::ui
