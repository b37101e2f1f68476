// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/models.h>

#include "catalogue/additions.h"
#include "engine/category_list.h"
#include "engine/work_sharing.h"
#include "values/float_flags.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>

namespace comfortics {

namespace {

using catalogue::Addition;
using catalogue::kMostAdditionInputs;
using catalogue::kMostAdditionResults;
using standards::Verdict;

static_assert(static_cast<int>(ModelStatus::None) == static_cast<int>(standards::Standing::None) &&
              static_cast<int>(ModelStatus::Ok) == static_cast<int>(standards::Standing::Ok));
static_assert(static_cast<int>(ModelLimits::Blank) == static_cast<int>(standards::Limits::Blank));
static_assert(static_cast<int>(ModelNeed::Optional) == static_cast<int>(catalogue::Need::Optional) &&
              static_cast<int>(ModelNeed::Start) == static_cast<int>(catalogue::Need::Start));

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A few more points than threads would wait for at the end, and few enough of the slowest model.
constexpr std::size_t kShare = 64;

/// The models, made from the table when they are first asked for.
class Models {
public:
    Models()
    {
        const auto table = catalogue::additions();
        m_parts.resize(table.size());
        for (std::size_t i = 0; i < table.size(); ++i)
            m_all.push_back(made(table[i], m_parts[i]));
    }

    static const Models& get()
    {
        static const Models models;
        return models;
    }

    std::span<const Model> all() const { return m_all; }

private:
    /// What the spans of one model point to.
    struct Parts {
        std::vector<ModelInput> inputs;
        std::vector<ModelResult> results;
        std::vector<ModelResult> course;
        std::vector<std::vector<ModelChoice>> choices;
        std::vector<std::vector<Category>> categories;
    };

    template <typename Known>
    static std::span<const ModelChoice> choicesOf(std::span<const catalogue::Choice> all, Known known,
                                                  Parts& parts)
    {
        std::vector<ModelChoice>& some = parts.choices.emplace_back();
        for (const catalogue::Choice& choice : all)
            if (known(choice))
                some.push_back({choice.value, choice.word, choice.text});
        return some;
    }

    static ModelInput made(const catalogue::AdditionInput& input, Parts& parts)
    {
        const catalogue::InputInfo& info = *input.info;
        return {.id = info.id,
                .symbol = info.symbol,
                .name = info.name,
                .unit = info.unit,
                .least = info.bounds.low,
                .most = info.bounds.high,
                .low = input.range.low,
                .high = input.range.high,
                .need = static_cast<ModelNeed>(input.need),
                .start = input.start,
                .startSource = input.startSource,
                .without = input.without,
                .unless = input.unless,
                .onlyFor = input.onlyFor,
                .choices = choicesOf(
                    info.choices, [&input](const catalogue::Choice& choice) { return input.knows(choice); },
                    parts)};
    }

    static ModelResult made(const catalogue::AdditionResult& result, Parts& parts)
    {
        const catalogue::Scale& scale = catalogue::scaleOf(result);
        std::vector<Category>& categories = parts.categories.emplace_back();
        engine::appendCategories(categories, scale);
        return {.id = result.id,
                .name = result.name,
                .unit = result.unit,
                .decimals = result.decimals,
                .choices = choicesOf(
                    result.choices, [](const catalogue::Choice&) { return true; }, parts),
                .categories = categories,
                .categorySource = scale.source};
    }

    static Model made(const Addition& row, Parts& parts)
    {
        for (const catalogue::AdditionInput& input : row.inputs)
            parts.inputs.push_back(made(input, parts));
        for (const catalogue::AdditionResult& result : row.results)
            parts.results.push_back(made(result, parts));
        if (row.course != nullptr)
            for (const catalogue::AdditionResult& figure : row.course->figures)
                parts.course.push_back(made(figure, parts));
        return {.id = row.id,
                .name = row.name,
                .authors = row.authors,
                .year = row.year,
                .family = static_cast<Family>(row.family),
                .description = row.description,
                .warnings = row.warnings,
                .references = row.references,
                .inputs = parts.inputs,
                .results = parts.results,
                .courseFigures = parts.course};
    }

    std::vector<Parts> m_parts;
    std::vector<Model> m_all;
};

const Addition& rowOf(const Model& model)
{
    const Addition* const row = catalogue::additionOfId(model.id);
    if (row == nullptr)
        throw std::invalid_argument("comfortics: there is no model \"" + std::string(model.id) + "\"");
    return *row;
}

using Columns = std::array<Column, kMostAdditionInputs>;

/// The inputs with what stands for those that are left out. Throws where one is lacking or one too many.
Columns completed(const Addition& model, std::span<const Column> inputs)
{
    const std::string id(model.id);
    if (inputs.size() != model.inputs.size())
        throw std::invalid_argument("comfortics: " + id + " has " + std::to_string(model.inputs.size()) +
                                    " inputs, not " + std::to_string(inputs.size()));
    Columns columns;
    // What tells whether an input is read: a number that is given as one, or any number of a column.
    std::array<double, kMostAdditionInputs> known{};
    known.fill(kNaN);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        columns[i] = inputs[i].given() ? inputs[i] : Column(model.inputs[i].start);
        if (columns[i].isScalar())
            known[i] = columns[i][0];
        else if (!model.inputs[i].isOption())
            known[i] = 0;
    }
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const catalogue::AdditionInput& input = model.inputs[i];
        const std::string name(input.info->id);
        if (!inputs[i].given() && model.isRequired(i, known))
            throw std::invalid_argument(std::string("comfortics: the ")
                                            .append(name)
                                            .append(" of ")
                                            .append(id)
                                            .append(" is not given"));
        if (inputs[i].given() && !input.unless.empty() && inputs[*model.inputPlace(input.unless)].given())
            throw std::invalid_argument(std::string("comfortics: both ")
                                            .append(name)
                                            .append(" and ")
                                            .append(input.unless)
                                            .append(" of ")
                                            .append(id)
                                            .append(" are given"));
    }
    return columns;
}

class ModelWorker final : public engine::Worker {
public:
    ModelWorker(const Addition& model, const Columns& columns, std::span<const ModelOutput> outputs,
                standards::Limits limits)
        : m_model(model), m_columns(columns), m_outputs(outputs), m_limits(limits)
    {
    }

    void work(std::size_t first, std::size_t count) override
    {
        std::array<double, kMostAdditionInputs> inputs;   // NOLINT: written before they are read
        std::array<double, kMostAdditionResults> results; // NOLINT: likewise
        std::array<Verdict, kMostAdditionResults> verdicts;
        const std::span<const double> given(inputs.data(), m_model.inputs.size());
        const std::span<double> figures(results.data(), m_model.results.size());
        const std::span<Verdict> behind(verdicts.data(), m_model.results.size());
        for (std::size_t point = first; point < first + count; ++point) {
            for (std::size_t i = 0; i < given.size(); ++i)
                inputs[i] = m_columns[i][point];
            m_model.run(given, figures, behind, m_limits);
            for (const ModelOutput& output : m_outputs) {
                if (output.values != nullptr)
                    output.values[static_cast<std::ptrdiff_t>(point) * output.stride] =
                        results[output.result];
                if (output.statuses != nullptr)
                    output.statuses[point] = static_cast<ModelStatus>(verdicts[output.result].standing);
            }
        }
    }

private:
    const Addition& m_model;
    const Columns& m_columns;
    std::span<const ModelOutput> m_outputs;
    standards::Limits m_limits;
};

std::vector<double> pointOf(const Addition& model, std::span<const Column> inputs, std::size_t point)
{
    const Columns columns = completed(model, inputs);
    std::vector<double> numbers(model.inputs.size());
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = columns[i][point];
    return numbers;
}

Verdict verdictOf(const Addition& model, std::span<const double> numbers, std::size_t result,
                  standards::Limits limits)
{
    std::vector<double> figures(model.results.size());
    std::vector<Verdict> verdicts(model.results.size());
    model.run(numbers, figures, verdicts, limits);
    return verdicts.at(result);
}

void mustHave(const Addition& model, std::size_t result)
{
    if (result >= model.results.size())
        throw std::invalid_argument("comfortics: " + std::string(model.id) + " has " +
                                    std::to_string(model.results.size()) + " results, none at " +
                                    std::to_string(result));
}

} // namespace

std::span<const Model> allModels() noexcept
{
    return Models::get().all();
}

const Model* findModel(std::string_view id) noexcept
{
    const auto all = allModels();
    const auto found = std::ranges::find(all, id, &Model::id);
    return found == all.end() ? nullptr : &*found;
}

std::vector<const Model*> searchModels(std::string_view words)
{
    std::vector<const Model*> found;
    for (const std::size_t place : catalogue::additionFinder().find(words))
        found.push_back(&allModels()[place]);
    return found;
}

std::size_t evaluateModel(const Model& model, std::span<const Column> inputs, std::size_t count,
                          std::span<const ModelOutput> outputs, const ModelOptions& options)
{
    const Addition& row = rowOf(model);
    const Columns columns = completed(row, inputs);
    for (const ModelOutput& output : outputs)
        mustHave(row, output.result);
    const Options sharing{.threads = options.threads, .progress = options.progress};
    return engine::shareWork(count, kShare, sharing, [&] {
        return std::make_unique<ModelWorker>(row, columns, outputs,
                                             static_cast<standards::Limits>(options.limits));
    });
}

std::string explainModel(const Model& model, std::span<const Column> inputs, std::size_t result,
                         std::size_t point, ModelLimits limits)
{
    const Addition& row = rowOf(model);
    mustHave(row, result);
    const std::vector<double> numbers = pointOf(row, inputs, point);
    const values::FloatFlags flags;
    return catalogue::verdictInWords(
        row, verdictOf(row, numbers, result, static_cast<standards::Limits>(limits)), numbers);
}

std::size_t courseMinutes(const Model& model, std::span<const Column> inputs, std::size_t point)
{
    const Addition& row = rowOf(model);
    const std::vector<double> numbers = pointOf(row, inputs, point);
    return row.course == nullptr ? 0 : row.course->minutes(numbers);
}

ModelStatus modelCourse(const Model& model, std::span<const Column> inputs, std::span<double> figures,
                        std::size_t point, ModelLimits limits)
{
    const Addition& row = rowOf(model);
    if (row.course == nullptr)
        throw std::invalid_argument("comfortics: " + std::string(model.id) + " has no course");
    const std::vector<double> numbers = pointOf(row, inputs, point);
    const values::FloatFlags flags;
    const Verdict verdict = row.runCourse(numbers, figures, static_cast<standards::Limits>(limits));
    return static_cast<ModelStatus>(verdict.standing);
}

} // namespace comfortics
