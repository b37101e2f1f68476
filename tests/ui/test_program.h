// SPDX-License-Identifier: GPL-3.0-or-later
//
// The program for view tests: real forms, a desktop that answers by itself, and no display.
#pragma once

#include "shell/shell.h"

#include <QString>
#include <QWidget>

#include <optional>
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
    std::optional<std::string> askSave(const controls::SaveRequest&) override
    {
        ++asked;
        return std::nullopt;
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

/// The widget of a control, by the control's name.
template <class Widget>
Widget& find(QWidget& window, const char* name)
{
    auto* const widget = window.findChild<Widget*>(QString::fromUtf8(name));
    if (!widget)
        throw std::runtime_error(std::string("there is no widget for ") + name);
    return *widget;
}

} // namespace comfortics::ui::tests
