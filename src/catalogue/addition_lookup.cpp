// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is asked of the table of the models: lookups, and one point of a model.
#include "catalogue/addition_inputs.h"
#include "catalogue/additions.h"
#include "catalogue/rates.h"
#include "values/plain_text.h"
#include "values/same_letters.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

namespace comfortics::catalogue {

using standards::kNaN;
using standards::Reason;
using standards::Verdict;

namespace {

template <typename Items>
std::optional<std::size_t> placeOf(const Items& items, auto&& matches)
{
    const auto found = std::ranges::find_if(items, matches);
    if (found == items.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - items.begin());
}

/// Which of its words an option has; none for NaN and other numbers.
std::optional<std::size_t> wordOf(const AdditionInput& option, double value)
{
    return placeOf(option.info->choices, [value](const Choice& choice) { return choice.value == value; });
}

bool hasWord(std::uint16_t words, std::size_t place)
{
    return ((unsigned{words} >> place) & 1U) != 0;
}

} // namespace

bool AdditionInput::knows(const Choice& choice) const noexcept
{
    const auto place = wordOf(*this, choice.value);
    return place && hasWord(words, *place);
}

const Scale& scaleOf(const AdditionResult& result)
{
    static const Scale none{};
    return result.scaleIndex == 0 ? none : scale(result.scaleIndex);
}

std::optional<std::size_t> Addition::inputPlace(std::string_view inputId) const noexcept
{
    return placeOf(inputs, [inputId](const AdditionInput& input) { return input.info->id == inputId; });
}

std::optional<std::size_t> Addition::resultPlace(std::string_view resultId) const noexcept
{
    return placeOf(results, [resultId](const AdditionResult& result) { return result.id == resultId; });
}

bool Addition::isRead(std::size_t place, std::span<const double> given) const noexcept
{
    const AdditionInput& input = inputs[place];
    if (!input.unless.empty()) {
        const auto other = inputPlace(input.unless);
        if (other && !std::isnan(given[*other]))
            return false;
    }
    if (input.onlyFor.empty())
        return true;
    const auto option = inputPlace(input.onlyFor);
    const auto word = option ? wordOf(inputs[*option], given[*option]) : std::nullopt;
    return !word || hasWord(input.onlyForWords, *word);
}

bool Addition::isRequired(std::size_t place, std::span<const double> given) const noexcept
{
    return inputs[place].need == Need::Required && isRead(place, given);
}

Verdict Addition::verdictOfOptions(std::span<const double> given) const noexcept
{
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const AdditionInput& input = inputs[i];
        if (!input.isOption())
            continue;
        const auto word = wordOf(input, given[i]);
        if ((word && hasWord(input.words, *word)) || !isRead(i, given))
            continue;
        const Reason reason = std::isnan(given[i]) ? Reason::Missing : Reason::BeyondPhysics;
        return {standards::Standing::None, reason, input.verdictName};
    }
    return {};
}

void Addition::run(std::span<const double> given, std::span<double> figures, std::span<Verdict> verdicts,
                   standards::Limits limits) const noexcept
{
    const Verdict options = verdictOfOptions(given);
    if (options.hasValue()) {
        calculate(given.data(), figures.data(), verdicts.data(), limits);
        return;
    }
    std::ranges::fill(figures, kNaN);
    std::ranges::fill(verdicts, options);
}

Verdict Addition::runCourse(std::span<const double> given, std::span<double> rows,
                            standards::Limits limits) const noexcept
{
    std::ranges::fill(rows, kNaN);
    const Verdict options = verdictOfOptions(given);
    return options.hasValue() ? course->calculate(given, rows, limits) : options;
}

const Addition* additionOfId(std::string_view id)
{
    const auto place = placeOf(additions(), [id](const Addition& model) { return model.id == id; });
    return place ? &additions()[*place] : nullptr;
}

std::string Figure::id() const
{
    return std::string(model->id) + "." + std::string(info().id);
}

std::optional<Figure> figureOfId(std::string_view id)
{
    const std::size_t dot = id.find('.');
    const Addition* const model = additionOfId(id.substr(0, dot));
    if (model == nullptr)
        return std::nullopt;
    if (dot == std::string_view::npos)
        return Figure{model, 0};
    const auto place = model->resultPlace(id.substr(dot + 1));
    return place ? std::optional(Figure{model, *place}) : std::nullopt;
}

std::span<const InputInfo* const> additionInputs()
{
    static const auto all = [] {
        std::vector<const InputInfo*> found;
        for (const Addition& model : additions())
            for (const AdditionInput& input : model.inputs)
                if (std::ranges::find(found, input.info) == found.end())
                    found.push_back(input.info);
        return found;
    }();
    return all;
}

const InputInfo* additionInputOfId(std::string_view id)
{
    const auto all = additionInputs();
    const auto found = std::ranges::find(all, id, [](const InputInfo* input) { return input->id; });
    return found == all.end() ? nullptr : *found;
}

std::optional<double> choiceOf(std::span<const Choice> choices, std::string_view wordOrNumber)
{
    for (const Choice& choice : choices)
        if (values::sameLetters(choice.word, wordOrNumber) || values::plainText(choice.value) == wordOrNumber)
            return choice.value;
    return std::nullopt;
}

std::optional<double> inputValue(const InputInfo& input, std::string_view text)
{
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    if (!input.choices.empty())
        return choiceOf(input.choices, text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double value = kNaN;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    if (isWhole)
        return std::isfinite(value) ? std::optional(value) : std::nullopt;
    return valueInUnit(input, text);
}

const Choice* choiceWith(std::span<const Choice> choices, double value) noexcept
{
    const auto found = std::ranges::find(choices, value, &Choice::value);
    return found == choices.end() ? nullptr : &*found;
}

std::string plainResult(const AdditionResult& result, double value)
{
    if (std::isnan(value))
        return {};
    const Choice* const choice = choiceWith(result.choices, value);
    return choice == nullptr ? values::plainText(value) : std::string(choice->word);
}

std::string resultText(const AdditionResult& result, double value)
{
    if (std::isnan(value))
        return {};
    if (!result.choices.empty()) {
        const Choice* const choice = choiceWith(result.choices, value);
        return choice == nullptr ? std::string() : std::string(choice->text);
    }
    constexpr std::size_t kLongest = 400; // more than any double has in fixed digits
    std::array<char, kLongest> digits;    // NOLINT: as far as it is written
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                       std::chars_format::fixed, result.decimals);
    std::string text(digits.data(), written.ptr);
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1); // no negative zero
    return text;
}

std::string resultText(const Addition& model, std::size_t result, std::span<const double> figures)
{
    const AdditionResult& info = model.results[result];
    std::string text = resultText(info, figures[result]);
    const auto flag = info.reachedBy.empty() ? std::nullopt : model.resultPlace(info.reachedBy);
    return !text.empty() && flag && figures[*flag] == 0 ? "not reached in " + text : text;
}

std::span<const Subject> additionSubjects()
{
    static const auto all = [] {
        std::vector<Subject> subjects;
        for (const Addition& model : additions()) {
            const bool hasClasses = std::ranges::any_of(model.results, [](const AdditionResult& result) {
                return !result.choices.empty() || result.scaleIndex != 0;
            });
            subjects.push_back({.id = model.id,
                                .name = model.name,
                                .unit = model.results.front().unit,
                                .authors = model.authors,
                                .year = model.year,
                                .family = familyName(model.family),
                                .abbreviations = model.abbreviations,
                                .description = model.description,
                                .hasClasses = hasClasses});
        }
        return subjects;
    }();
    return all;
}

const Finder& additionFinder()
{
    static const Finder all{additionSubjects()};
    return all;
}

} // namespace comfortics::catalogue
