// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/live_quantity.h"
#include "values/number.h"

#include <string>

namespace comfortics::classic {

/// What the models write and say from inside a calculation. The calculation implements it; a
/// model never opens a window.
class Desk {
public:
    /// Writes the caption of a live quantity.
    virtual void writeCaption(formulas::Live quantity, std::string text) = 0;

    /// Writes the result entry of index 159, solar radiation.
    virtual void writeSolarRadiationResult(std::string text) = 0;

    /// Shows a message with an OK button, no title, and waits for the answer.
    virtual void showMessage(const std::string& text) = 0;

    /// Keeps why a model is about to answer with a text ("" or "Error:") in place of a number, in
    /// one clause for the user. Whoever takes the answer as a number fails with it.
    virtual void explain(std::string why) = 0;

protected:
    ~Desk() = default;
};

// The two of the humidity pair that write what they find, with the format "00.00000".

/// formulas::Dew_Point_Magnus, and the caption of `Td`.
values::Number showDewPoint(Desk& desk, values::Number t, values::Number rh);

/// formulas::Relative_Humidity_Magnus, and the caption of `RH`.
values::Number showRelativeHumidity(Desk& desk, values::Number t, values::Number td);

} // namespace comfortics::classic
