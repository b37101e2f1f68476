// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models that standards describe, beside the indices: mean votes, the two-node body and SET, PET, heat
// strain, required clothing, WBGT at work, adaptive comfort, the sun and mean radiant temperatures. Each has
// inputs of its own (a metabolic rate, clothing, a posture) and gives several results.
#pragma once

#include <comfortics/catalogue.h>
#include <comfortics/column.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)
namespace comfortics {

/// A word that stands for a number, of an option such as a posture or of a result such as a category.
struct ModelChoice {
    double value = 0;      ///< the number
    std::string_view word; ///< for programs, in lower_snake_case, for instance "sitting"
    std::string_view text; ///< for people
};

/// What can be done without an input.
enum class ModelNeed : std::uint8_t {
    Required, ///< nothing
    Start,    ///< there is a start value, see ModelInput::startSource
    Optional, ///< the model does as ModelInput::without tells
};

/// An input of a model. Inputs of the same id are the same thing in the same unit in all models.
struct ModelInput {
    std::string_view id;     ///< in lower_snake_case, never changed, for instance "metabolic_w_m2"
    std::string_view symbol; ///< for instance "Ta"; empty where nobody writes one
    std::string_view name;   ///< for instance "Air temperature"
    std::string_view unit;   ///< for instance "°C"; empty for numbers without
    double least = 0;        ///< below this there is no value: no air, body or cloth has it
    double most = 0;         ///< the same above
    double low = 0;          ///< range of the model; both ends are inside. A value beyond it is marked
    double high = 0;         ///< the same; some inputs are bounded by others besides
    ModelNeed need = ModelNeed::Required; ///< whether it has to be given
    double start = 0;                     ///< where need is Start
    std::string_view startSource;         ///< why the start is that
    std::string_view without;             ///< what is done without it, where need is Optional
    std::string_view unless;              ///< id of the input in whose presence this one is not read
    std::string_view onlyFor;             ///< id of the option by whose value this one is read; empty: always
    std::span<const ModelChoice> choices; ///< of an option, those that the model knows
};

/// A result of a model.
struct ModelResult {
    std::string_view id;   ///< in lower_snake_case, unique within the model, for instance "t_core"
    std::string_view name; ///< in words
    std::string_view unit; ///< empty for numbers without
    int decimals = 2;      ///< how many are worth showing
    std::span<const ModelChoice> choices; ///< the numbers of a result that is a word
    std::span<const Category> categories; ///< ascending, without gaps; empty where none are published
    std::string_view categorySource;      ///< where the classes are from
};

/// One of the models.
struct Model {
    std::string_view id;                ///< in lower_snake_case, never changed, for instance "phs_2023"
    std::string_view name;              ///< with the standard or the author
    std::string_view authors;           ///< or the standard
    std::string_view year;              ///< of the publication
    Family family = Family::Physiology; ///< what kind it is
    std::string_view description;       ///< what it tells, in two sentences
    std::span<const std::string_view> warnings;   ///< what misleads who does not know it
    std::span<const std::string_view> references; ///< literature
    std::span<const ModelInput> inputs;           ///< in the order of evaluateModel()
    std::span<const ModelResult> results;         ///< the main one first
    std::span<const ModelResult> courseFigures;   ///< of each minute; empty: it has no course
};

/// What stands behind a result at a point.
enum class ModelStatus : std::uint8_t {
    Ok,      ///< a value
    Outside, ///< a value, though an input or the value is beyond the range of the model
    None,    ///< no value
};

/// What becomes of a value outside.
enum class ModelLimits : std::uint8_t {
    Mark,  ///< it stands, with ModelStatus::Outside
    Blank, ///< there is none: NaN with ModelStatus::None
};

/// Where the figures of one result go.
struct ModelOutput {
    std::size_t result = 0;          ///< place in Model::results
    double* values = nullptr;        ///< NaN where there is no value; null if they are not wanted
    std::ptrdiff_t stride = 1;       ///< from one point to the next, in elements
    ModelStatus* statuses = nullptr; ///< one per point, side by side; null if they are not wanted
};

/// How evaluateModel() is carried out.
struct ModelOptions {
    ModelLimits limits = ModelLimits::Mark; ///< of values outside
    /// Threads that calculate, at least 1; 0 takes as many as the machine runs at once. Results do not depend
    /// on it.
    unsigned threads = 1;
    /// As Options::progress.
    std::function<bool(std::size_t done)> progress{};
};

/// All models.
std::span<const Model> allModels() noexcept;

/// The model of an id, null where there is none.
const Model* findModel(std::string_view id) noexcept;

/// The models that hold all words of a text, as searchIndices().
std::vector<const Model*> searchModels(std::string_view words);

/// Evaluates a model at `count` points: `inputs` in the order of Model::inputs, each a number, an array or
/// left out (Column()). What is left out has its start value or is done without; options are their numbers.
/// Of two inputs of which one stands for the other (`unless`) only one is given. NaN is missing; of an
/// Optional input it is as if it were left out at that point.
///
///     const Model& pmv = *findModel("pmv_iso");
///     const std::vector<Column> inputs{ta, tr, 0.1, rh, 1.2, 0.5, {}, {}};
///     evaluateModel(pmv, inputs, n, std::array{ModelOutput{0, votes}});
///
/// Results may not overlap one another or the inputs. Any number of calls may run at once. The memory that a
/// call takes does not depend on `count`.
///
/// Returns the number of points done, as calculate() does. Throws std::invalid_argument where the model is
/// none of allModels(), the number of inputs is not that of the model, one that it needs is not given or one
/// is given that another stands for, or an output has no such result; and as calculate() does where a thread
/// cannot be started.
std::size_t evaluateModel(const Model& model, std::span<const Column> inputs, std::size_t count,
                          std::span<const ModelOutput> outputs, const ModelOptions& options = {});

/// One point in words: why a result has no value or a mark, for instance "Outside the range of the standard:
/// the air temperature is 42 °C, valid from 10 to 30 °C." Empty where all is well. Throws as evaluateModel().
std::string explainModel(const Model& model, std::span<const Column> inputs, std::size_t result = 0,
                         std::size_t point = 0, ModelLimits limits = ModelLimits::Mark);

/// How many minutes the course of a point has; 0 where it has none. Throws as evaluateModel().
std::size_t courseMinutes(const Model& model, std::span<const Column> inputs, std::size_t point = 0);

/// The course of a point, minute by minute: into `figures` goes a row of Model::courseFigures for each minute
/// from the first on, for as many rows as there is room. NaN where there is no value; with
/// ModelLimits::Blank also where there is one outside. Returns what stands behind it. Throws as
/// evaluateModel(), and std::invalid_argument for a model without a course.
ModelStatus modelCourse(const Model& model, std::span<const Column> inputs, std::span<double> figures,
                        std::size_t point = 0, ModelLimits limits = ModelLimits::Mark);

} // namespace comfortics
#pragma GCC visibility pop
