// SPDX-License-Identifier: GPL-3.0-or-later
//
// What forms ask of a desktop, answered without one.
#pragma once

#include "classic/limits.h"
#include "controls/dialogs.h"
#include "no_windows.h"

#include <optional>
#include <string>
#include <vector>

namespace comfortics::fuzz {

inline const classic::Limits& projectLimits()
{
    static const classic::Limits limits = classic::Limits::Load_Limits(COMFORTICS_LIMITS);
    return limits;
}

struct KeptMessages final : controls::Messages {
    std::vector<std::string> texts;
    controls::Answer show(const controls::MessageBox& box) override
    {
        texts.push_back(box.text);
        return controls::Answer::Ok;
    }
};

struct HeldClipboard final : controls::Clipboard {
    std::string held;
    void clear() override { held.clear(); }
    void setText(const std::string& text) override { held = text; }
    std::string text() override { return held; }
};

/// Every dialog is cancelled.
struct NoFiles final : controls::FileDialogs {
    std::optional<std::string> askSave(const controls::SaveRequest&) override { return std::nullopt; }
};

using tests::NoWindows;

} // namespace comfortics::fuzz
