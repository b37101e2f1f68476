// SPDX-License-Identifier: GPL-3.0-or-later
//
// The program for view tests: real forms, a desktop that answers by itself, and no display.
#pragma once

#include "shell/shell.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::ui::tests {

struct RecordedMessages final : controls::Messages {
    std::vector<controls::MessageBox> boxes;
    controls::Answer answer = controls::Answer::Yes;
    controls::Answer show(const controls::MessageBox& box) override
    {
        boxes.push_back(box);
        return answer;
    }
};

struct KeptClipboard final : controls::Clipboard {
    std::string kept;
    void clear() override { kept.clear(); }
    void setText(const std::string& text) override { kept = text; }
    std::string text() override { return kept; }
};

struct RecordedFiles final : controls::FileDialogs {
    int asked = 0;
    std::optional<std::string> answer;
    std::optional<std::string> askSave(const controls::SaveRequest&) override
    {
        ++asked;
        return answer;
    }
};

struct RecordedPrinting final : output::PrintDialog {
    int shown = 0;
    void show(const std::function<void(output::Printer&)>&) override { ++shown; }
};

struct Program {
    RecordedMessages messages;
    KeptClipboard clipboard;
    RecordedFiles files;
    RecordedPrinting printing;
    shell::Shell shell{COMFORTICS_DATA_DIR, {messages, clipboard, files, printing}};
    core::Frm_Main& form = shell.main();

    void write(const char* Ta, const char* SR, const char* RH, const char* WS)
    {
        form.txt_TA.setText(Ta);
        form.txt_SR.setText(SR);
        form.txt_RH.setText(RH);
        form.txt_WS.setText(WS);
    }
};

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
        if (one->text().remove(QLatin1Char('&')) == QLatin1String(text))
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

/// The names of the widgets that the Tab key leads through, from one of them on.
inline std::string tabOrder(const QWidget& first, int steps)
{
    std::string order;
    const QWidget* widget = &first;
    for (; steps > 0; widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) == 0 || widget->isHidden())
            continue;
        const QString name =
            widget->objectName().isEmpty() || widget->objectName().startsWith(QLatin1String("qt_"))
                ? widget->accessibleName()
                : widget->objectName();
        if (!name.isEmpty()) {
            order += name.toStdString() + " ";
            --steps;
        }
    }
    return order;
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
