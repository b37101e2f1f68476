// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"

#include <string>

namespace comfortics::shell {

struct StatusLine {
    std::string text;
    bool ofEarlier = false; ///< of a calculation from other inputs than those of now; the text says so
};

/// One sentence for the user on what was done last: what the main window was told of, why nothing was
/// calculated, the failure of the last calculation, or how many indices have a value and why others
/// have none.
StatusLine statusLine(const classic::Frm_Main& form);

} // namespace comfortics::shell
