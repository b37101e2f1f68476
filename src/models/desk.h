// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/live_quantity.h"

#include <string>

namespace comfortics::models {

/// What the models write and say from inside a calculation. The calculation implements it; a
/// model never opens a window.
class Desk : public formulas::Captions {
public:
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

} // namespace comfortics::models
