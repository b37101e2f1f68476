// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/live_text.h"

#include "texts/number_text.h"

namespace comfortics::workspace {

namespace {

values::Format shortFormat(formulas::Live quantity)
{
    using enum formulas::Live;
    switch (quantity) {
    case SR:
        return values::kFormat0;
    case RH:
    case Tmrt: // a difference of fourth powers: no more of it is known
        return values::kFormat0_0;
    case Ta:
    case Tg:
    case Td:
    case WS:
    case Tnwb:
    case Tpwb:
    case Es:
    case Ea:
        break;
    }
    return values::kFormat0_00;
}

} // namespace

std::string liveInShort(formulas::Live quantity, std::string_view caption)
{
    return texts::format(caption, shortFormat(quantity));
}

} // namespace comfortics::workspace
