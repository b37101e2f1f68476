// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models of standards where a situation and a person stand: what each input is and where it comes from,
// and what the model makes of it.
#pragma once

#include "catalogue/additions.h"
#include "workspace/person_and_place.h"
#include "workspace/situation.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

enum class InputOrigin : std::uint8_t {
    Missing,  ///< it has no value, and the model can do nothing without
    Readings, ///< of the readings, or what follows from them
    Row,      ///< of a column or the time of its row, or what follows from there
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
    std::string_view
        source;          ///< why it is that, in a clause; empty where the origin tells all. Of static storage
    std::string problem; ///< why it has no value, in a sentence; empty where it has one or needs none
};

/// What models read from: readings with what follows from them, and what is told of person and place.
class ModelSource {
public:
    virtual ~ModelSource() = default;

    virtual std::optional<double> live(formulas::Live quantity) const = 0;
    virtual std::optional<double> windAt10m() const = 0; ///< [m/s]
    /// Why the readings have nothing, in a sentence; empty where it is only single ones that they have not.
    virtual std::string problem() const = 0;
    virtual FieldReading field(const catalogue::InputInfo& info) const = 0;
    /// What a column tells of an input, in its own unit; without a value in a gap. None without a column.
    virtual std::optional<FieldReading> measured(const catalogue::InputInfo&) const { return std::nullopt; }
    /// Whether column or time of a row tell it, so that nothing stands in where they do not.
    virtual bool isOfRow(const catalogue::InputInfo&) const { return false; }

protected:
    ModelSource() = default;
    ModelSource(const ModelSource&) = default;
    ModelSource& operator=(const ModelSource&) = default;
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
ModelStanding modelStanding(const catalogue::Addition& model, const ModelSource& source);

/// The value of an input with its unit or word; what was calculated with no more decimals than mean
/// something.
std::string shownValue(const catalogue::InputInfo& info, double value);

/// The inputs alone. `wanted`, where it is given, gets the field that has to be filled or mended, if any.
std::vector<ModelInput> modelInputs(const catalogue::Addition& model, const ModelSource& source,
                                    std::string* wanted = nullptr);

} // namespace comfortics::workspace
