// SPDX-License-Identifier: GPL-3.0-or-later
//
// A main window's surroundings without any other window.
#pragma once

#include "classic/frm_main.h"

#include <string>

namespace comfortics::tests {

struct NoWindows final : classic::Windows {
    void showResults() override {}
    void showRawData() override {}
    void showRadiation() override {}
    void showConverter() override {}
    std::string converter_lbl_C() override { return {}; }
    std::string converter_lbl_WS() override { return {}; }
    std::string converter_lbl_SR() override { return {}; }
    void unloadAll() override {}
};

} // namespace comfortics::tests
