// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/desk.h"

#include "formulas/primitives.h"
#include "texts/number_text.h"

namespace comfortics::classic {

using formulas::Live;
using values::Number;

Number showDewPoint(Desk& desk, Number t, Number rh)
{
    const Number Td = formulas::Dew_Point_Magnus(t, rh);
    desk.writeCaption(Live::Td, texts::format(Td.value(), values::kFormat00_00000));
    return Td;
}

Number showRelativeHumidity(Desk& desk, Number t, Number td)
{
    const Number RH = formulas::Relative_Humidity_Magnus(t, td);
    desk.writeCaption(Live::RH, texts::format(RH.value(), values::kFormat00_00000));
    return RH;
}

} // namespace comfortics::classic
