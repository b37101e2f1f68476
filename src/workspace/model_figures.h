// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models of standards where a situation and a person stand: what each input is and where it comes from,
// and what the model makes of it.
#pragma once

#include "catalogue/additions.h"
#include "workspace/person_and_place.h"
#include "workspace/situation.h"

#include <cstdint>
#include <string>
#include <vector>

namespace comfortics::workspace {

enum class InputOrigin : std::uint8_t {
    Missing,  ///< it has no value, and the model can do nothing without
    Readings, ///< of the readings, or what follows from them
    Typed,    ///< under person and place, or what follows from there
    Model,    ///< a figure of another model, from the same readings and person
    Start,    ///< a start value
    Left,     ///< left out, and the model does without
    Unread,   ///< not read where the others are as they are
};

/// An input of a model.
struct ModelInput {
    double value = standards::kNaN; ///< as the model takes it, in its unit
    InputOrigin origin = InputOrigin::Missing;
    std::string source;  ///< why it is that, in a clause; empty where the origin tells all
    std::string problem; ///< why it has no value, in a sentence; empty where it has one or needs none
};

/// A model where a situation stands.
struct ModelStanding {
    const catalogue::Addition* model = nullptr;
    std::vector<ModelInput> inputs; ///< in its order
    std::vector<Figure> figures;    ///< in its order; what stands outside of its range has a doubt
    /// What was typed and what was assumed, in a sentence: "With metabolic rate 1.2 met; assumed: external
    /// work 0 met, ..." Empty where the readings are all that it reads.
    std::string assumed;
    std::string wantedField; ///< id of the field that has to be filled or mended; empty where none has

    std::vector<double> values() const;
};

ModelStanding modelStanding(const catalogue::Addition& model, const Situation& situation,
                            const FieldTexts& person);

} // namespace comfortics::workspace
