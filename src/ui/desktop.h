// SPDX-License-Identifier: GPL-3.0-or-later
//
// The answers of the real desktop to what forms ask.
#pragma once

#include "controls/dialogs.h"

namespace comfortics::ui {

class DesktopMessages final : public controls::Messages {
public:
    controls::Answer show(const controls::MessageBox& box) override;
};

class DesktopClipboard final : public controls::Clipboard {
public:
    void clear() override;
    void setText(const std::string& text) override;
    std::string text() override;
};

class DesktopFileDialogs final : public controls::FileDialogs {
public:
    std::optional<std::string> askSave(const controls::SaveRequest& request) override;
    std::optional<std::string> askOpen(const controls::OpenRequest& request) override;
};

} // namespace comfortics::ui
