// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models that standards describe, beside the indices: what they read, what they give and how they are
// called, in one table. They have inputs of their own, and ids in place of numbers; the indices and their
// numbers know nothing of them.
#pragma once

#include "catalogue/categories.h"
#include "catalogue/finder.h"
#include "catalogue/references.h"
#include "formulas/live_quantity.h"
#include "standards/answer.h"
#include "standards/person.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace comfortics::catalogue {

/// A word that stands for a number, of an option or a class.
struct Choice {
    double value = 0;
    std::string_view word; ///< in lower_snake_case, as it is typed
    std::string_view text; ///< for people
};

/// What an input belongs to, and so where it is asked for once for all models.
enum class InputGroup : std::uint8_t {
    Weather, ///< a reading, or what follows from the readings
    Person,
    Place, ///< and the time
    Own,   ///< of the model alone
};

/// An input, the same one for all models that read it.
struct InputInfo {
    std::string_view id;     ///< in lower_snake_case, never changed; with its unit where others exist
    std::string_view symbol; ///< empty where nobody writes one
    std::string_view name;
    std::string_view unit;        ///< empty for numbers without
    standards::Interval bounds{}; ///< beyond them nothing has a value
    InputGroup group = InputGroup::Own;
    std::span<const Choice> choices{}; ///< an option that has words for its numbers
    /// The quantity of the readings that it is, if any.
    std::optional<formulas::Live> live{};
};

/// Whether a model can do without an input.
enum class Need : std::uint8_t {
    Required,
    Start,    ///< it has a start value of a named source
    Optional, ///< without it the model does as `without` tells
};

/// An input as one model reads it.
struct AdditionInput {
    const InputInfo* info = nullptr;
    standards::Interval range{}; ///< of the model, within the bounds
    Need need = Need::Required;
    double start = standards::kNaN; ///< where need is Start
    std::string_view startSource{}; ///< why it is that
    std::string_view without{};     ///< what is done without it, where need is Optional
    std::string_view beside{};      ///< what bounds it besides, a range that goes with other inputs
    /// The words of an option that the model knows, a bit for each place in InputInfo::choices.
    std::uint16_t words = 0xFFFF;
    std::string_view unless{};      ///< id of the input whose presence makes this one needless
    std::string_view onlyFor{};     ///< id of the option that decides whether it is read
    std::uint16_t onlyForWords = 0; ///< with these of its words
    /// Id of the input and what this one is where that one is a reading of the program, whose globe has 50 mm
    /// and whose wind stands 1.1 m above the ground.
    std::string_view besideReading{};
    double readingValue = standards::kNaN;
    std::string_view verdictName{}; ///< as verdicts of the model name it

    bool knows(const Choice& choice) const noexcept;
    /// Whether it is an option and has a word for the value.
    bool isOption() const noexcept { return !info->choices.empty(); }
};

/// A figure of a model.
struct AdditionResult {
    std::string_view id{}; ///< in lower_snake_case, unique within the model
    std::string_view name{};
    std::string_view unit{};           ///< empty for numbers without
    int decimals = 2;                  ///< to show
    std::span<const Choice> choices{}; ///< for a figure that is one of several words
    int scaleIndex = 0;                ///< the index whose published classes hold for it, too; 0: none
    /// Id of the figure of the same model that is 0 where this one is only the time looked at, with nothing
    /// reached within it.
    std::string_view reachedBy{};
    standards::Interval range{}; ///< beyond it the figure is marked
};

/// The classes of a figure; without any where none are published.
const Scale& scaleOf(const AdditionResult& result);

/// A figure of one minute, and so on.
struct AdditionCourse {
    std::span<const AdditionResult> figures;
    int mostMinutes = 0;
    /// How many minutes the course of these inputs has; 0 where it has none.
    std::size_t (*minutes)(std::span<const double> inputs) noexcept = nullptr;
    /// Puts the figures of minute 1 into the first row, and so on, for as many rows as there is room. Behind
    /// Addition::runCourse.
    standards::Verdict (*calculate)(std::span<const double> inputs, std::span<double> rows,
                                    standards::Limits limits) noexcept = nullptr;
};

/// What a verdict can name beside inputs and figures.
struct DerivedName {
    std::string_view verdictName;
    std::string_view text; ///< as in "Outside the range of the standard: " and the text
};

/// One model.
struct Addition {
    std::string_view id; ///< in lower_snake_case, never changed; alone it stands for the first figure
    std::string_view name;
    std::string_view authors; ///< or the standard
    std::string_view year;
    Family family = Family::Physiology;
    bool isStandard = false;
    std::span<const std::string_view> abbreviations{};
    std::string_view description{};               ///< two sentences
    std::span<const std::string_view> warnings{}; ///< what misleads, without a full stop
    std::span<const std::string_view> references{};
    std::span<const AdditionInput> inputs{};
    std::span<const AdditionResult> results{};
    std::span<const DerivedName> derived{};
    const AdditionCourse* course = nullptr;
    /// The model itself, behind run().
    void (*calculate)(const double* inputs, double* results, standards::Verdict* verdicts,
                      standards::Limits limits) noexcept = nullptr;

    /// One point: inputs and results in the order of the table, a verdict for each result. An input that is
    /// NaN is missing, or not given where it is optional; start values are for the caller to put in. A
    /// result is NaN where its verdict is none. Any number of threads may call.
    void run(std::span<const double> inputs, std::span<double> results,
             std::span<standards::Verdict> verdicts,
             standards::Limits limits = standards::Limits::Mark) const noexcept;
    /// The course of one point likewise, where there is one: see AdditionCourse. Rows beyond it are NaN.
    standards::Verdict runCourse(std::span<const double> inputs, std::span<double> rows,
                                 standards::Limits limits = standards::Limits::Mark) const noexcept;
    /// What an option is in the way of, which has no number of the table; ok where all have.
    standards::Verdict verdictOfOptions(std::span<const double> inputs) const noexcept;

    /// Places in the table, none for another id.
    std::optional<std::size_t> inputPlace(std::string_view inputId) const noexcept;
    std::optional<std::size_t> resultPlace(std::string_view resultId) const noexcept;

    /// Whether an input has to be given, where the others are as in `inputs` (NaN for those that are not).
    bool isRequired(std::size_t place, std::span<const double> inputs) const noexcept;
    /// Whether an input is read at all, likewise.
    bool isRead(std::size_t place, std::span<const double> inputs) const noexcept;
};

/// More than any model has.
inline constexpr std::size_t kMostAdditionInputs = 20;
inline constexpr std::size_t kMostAdditionResults = 14;
inline constexpr std::size_t kMostCourseFigures = 12;

/// All models.
std::span<const Addition> additions();

/// The model of an id, null where there is none.
const Addition* additionOfId(std::string_view id);

/// A figure of a model.
struct Figure {
    const Addition* model = nullptr;
    std::size_t result = 0;

    const AdditionResult& info() const { return model->results[result]; }
    /// "pmv_iso.pmv". No index has such an id.
    std::string id() const;
};

/// The figure of an id such as "pmv_iso.ppd"; of a model's id alone its first. None for others.
std::optional<Figure> figureOfId(std::string_view id);

/// Every input that some model reads, each once.
std::span<const InputInfo* const> additionInputs();

/// The input of an id, null where there is none.
const InputInfo* additionInputOfId(std::string_view id);

/// The number that a text gives an input: a word or a number of an option, a finite number else, which may
/// carry a unit that converts without a body (valueInUnit). None for others.
std::optional<double> inputValue(const InputInfo& input, std::string_view text);

/// The number of a word or of a number of an option, whatever the case; none for others.
std::optional<double> choiceOf(std::span<const Choice> choices, std::string_view wordOrNumber);
/// The word of a number; null where there is none.
const Choice* choiceWith(std::span<const Choice> choices, double value) noexcept;

/// Why a figure has no value or a mark, in one sentence; empty where all is well. `inputs` are those of the
/// model in its order.
std::string verdictInWords(const Addition& model, const standards::Verdict& verdict,
                           std::span<const double> inputs);

/// A figure as it is shown, without its unit: its decimals, or its word; "" without a value. `results` are
/// all of the model's.
std::string resultText(const Addition& model, std::size_t result, std::span<const double> results);

/// The same of a figure by itself, of a course for instance.
std::string resultText(const AdditionResult& result, double value);

/// The same of its number in full, as programs read it, a word in its short form.
std::string plainResult(const AdditionResult& result, double value);

/// All that verdicts say of the results of a point, each sentence once. Of a figure that the inputs only do
/// not ask for nothing is said.
std::string remarks(const Addition& model, std::span<const standards::Verdict> verdicts,
                    std::span<const double> inputs);

/// A name as it stands within a sentence: names begin with a capital, but where it is a symbol or an
/// abbreviation.
std::string inSentence(std::string_view name);

/// "valid from 10 to 30 °C"; empty without a range.
std::string rangeInWords(const standards::Interval& range, std::string_view unit);

/// The models, as the search has them; place i is additions()[i].
std::span<const Subject> additionSubjects();
/// Over the models.
const Finder& additionFinder();

/// The person that all models share: one metabolic rate and one body.
struct Body {
    double weight = standards::kNaN; ///< [kg]
    double height = standards::kNaN; ///< [m]
    double age = standards::kNaN;    ///< [years]
    std::optional<standards::Sex> sex{};
    double area = standards::kNaN; ///< [m²]; where there is none it follows from weight and height
};

/// The metabolic rate of a person in the unit of an input: as it is for one in met; 58.15 W/m² for each met
/// for one in W/m², times the surface of DuBois for one in W, less the basal rate for the activity above
/// that. NaN where the body does not tell, or the input is no metabolic rate. See rates.h.
double metabolicRateFor(const InputInfo& input, double met, const Body& body);

/// The same of external work, in met or W/m².
double workFor(const InputInfo& input, double met);

} // namespace comfortics::catalogue
