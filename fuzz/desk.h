// SPDX-License-Identifier: GPL-3.0-or-later
//
// What forms ask of a desktop, answered without one.
#pragma once

#include "controls/dialogs.h"
#include "core/frm_main.h"
#include "core/limits.h"

#include <optional>
#include <string>
#include <vector>

namespace comfortics::fuzz {

inline const core::Limits& projectLimits()
{
    static const core::Limits limits = core::Limits::Load_Limits(COMFORTICS_LIMITS);
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

struct NoWindows final : core::Windows {
    void showResults() override {}
    void showRawData() override {}
    void showRadiation() override {}
    void showConverter() override {}
    std::string converter_lbl_C() override { return {}; }
    std::string converter_lbl_WS() override { return {}; }
    std::string converter_lbl_SR() override { return {}; }
    void unloadAll() override {}
};

} // namespace comfortics::fuzz
