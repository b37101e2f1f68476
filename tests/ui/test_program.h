// SPDX-License-Identifier: GPL-3.0-or-later
//
// The program for view tests: real forms, a desktop that answers by itself, and no display.
#pragma once

#include "prepared_answers.h"
#include "shell/shell.h"

#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QTabBar>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace comfortics::ui::tests {

using comfortics::tests::PreparedFiles;
using comfortics::tests::RecordedClipboard;
using comfortics::tests::RecordedMessages;

struct RecordedPrinting final : output::PrintDialog {
    int shown = 0;
    void show(const std::function<bool(output::Printer&)>&) override { ++shown; }
};

struct Program {
    RecordedMessages messages;
    RecordedClipboard clipboard;
    PreparedFiles files;
    RecordedPrinting printing;
    shell::Shell shell{COMFORTICS_DATA_DIR, {messages, clipboard, files, printing}};
    classic::Frm_Main& form = shell.main();

    void write(const char* Ta, const char* SR, const char* RH, const char* WS)
    {
        form.txt_TA.setText(Ta);
        form.txt_SR.setText(SR);
        form.txt_RH.setText(RH);
        form.txt_WS.setText(WS);
    }
};

/// Where the desktop keeps the settings.
inline QString settingsFile()
{
    return QSettings(QStringLiteral("comfortics"), QStringLiteral("comfortics")).fileName();
}

/// The widget of a control, by the control's name or what a screen reader says.
template <class Widget>
Widget& find(const QWidget& window, const char* name)
{
    for (Widget* const widget : window.findChildren<Widget*>())
        if (widget->objectName() == QLatin1String(name) || widget->accessibleName() == QLatin1String(name))
            return *widget;
    throw std::runtime_error(std::string("there is no widget for ") + name);
}

/// The button that reads so.
inline QPushButton& button(const QWidget& window, const char* text)
{
    for (QPushButton* const one : window.findChildren<QPushButton*>())
        if (one->text().remove(QLatin1Char('&')) == QString::fromUtf8(text))
            return *one;
    throw std::runtime_error(std::string("there is no button ") + text);
}

inline void press(const QWidget& window, const char* text)
{
    QTest::mouseClick(&button(window, text), Qt::LeftButton);
}

/// True if a label of the window holds the text.
inline bool says(const QWidget& window, const QString& text)
{
    const auto labels = window.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [&text](const QLabel* label) { return label->text().contains(text); });
}

/// The names of the controls that the Tab key leads through, from one of them on.
inline std::string tabOrder(const QWidget& first, int steps)
{
    std::string order;
    for (const QWidget* widget = &first; steps > 0; widget = widget->nextInFocusChain()) {
        const std::string name = widget->objectName().toStdString();
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && !name.empty() &&
            !name.starts_with("qt_")) {
            order += name + " ";
            --steps;
        }
    }
    return order;
}

/// The letters that, with Alt, mean two of the widgets that can be used.
inline std::string clashingLetters(const QWidget& window)
{
    std::string seen;
    std::string found;
    const auto add = [&](const QString& text) {
        const QKeySequence keys = QKeySequence::mnemonic(text);
        if (keys.isEmpty())
            return;
        const char letter = static_cast<char>(keys[0].key());
        (seen.find(letter) == std::string::npos ? seen : found) += letter;
    };
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisibleTo(&window) || !widget->isEnabled())
            continue;
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
            add(button->text());
        if (const auto* const label = qobject_cast<const QLabel*>(widget); label && label->buddy())
            add(label->text());
        if (const auto* const tabs = qobject_cast<const QTabBar*>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                add(tabs->tabText(i));
    }
    return found;
}

/// What can be used and has nothing that a screen reader could say of it.
inline std::string nameless(const QWidget& window)
{
    std::string found;
    for (QWidget* const widget : window.findChildren<QWidget*>()) {
        const auto* const button = qobject_cast<QAbstractButton*>(widget);
        bool isPart = widget->metaObject() == &QWidget::staticMetaObject || widget->window() != &window ||
                      widget->objectName().startsWith(QLatin1String("qt_"));
        for (const QWidget* above = widget->parentWidget(); above; above = above->parentWidget())
            isPart = isPart || above->inherits("QCalendarWidget");
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && !isPart && widget->accessibleName().isEmpty() &&
            (!button || button->text().isEmpty()))
            found += std::string(widget->metaObject()->className()) + " ";
    }
    return found;
}

} // namespace comfortics::ui::tests
