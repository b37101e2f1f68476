// SPDX-License-Identifier: GPL-3.0-or-later
//
// Verdicts of the models in words.
#include "catalogue/additions.h"
#include "values/plain_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace comfortics::catalogue {

using standards::Interval;
using standards::Reason;
using standards::Verdict;
using values::plainText;

namespace {

std::string withUnit(std::string text, std::string_view unit)
{
    if (!unit.empty())
        text += (unit == "°" ? "" : " ") + std::string(unit);
    return text;
}

bool isOpen(double end)
{
    return std::fabs(end) >= standards::kLargest;
}

/// Next to nothing stands for "more than 0".
bool isAboveNothing(double low)
{
    return low > 0 && low <= 1 / standards::kLargest;
}

std::string boundsText(const Interval& range, std::string_view unit)
{
    if (isOpen(range.low) && isOpen(range.high))
        return {};
    if (isOpen(range.high))
        return isAboveNothing(range.low) ? "above 0" : "from " + withUnit(plainText(range.low), unit);
    const std::string high = withUnit(plainText(range.high), unit);
    if (isOpen(range.low))
        return "up to " + high;
    return (isAboveNothing(range.low) ? "above 0" : "from " + plainText(range.low)) + " to " + high;
}

std::string words(const AdditionInput& input)
{
    std::string text;
    for (const Choice& choice : input.info->choices)
        if (input.knows(choice))
            text += (text.empty() ? "" : ", ") + std::string(choice.word);
    return text;
}

/// Six significant digits, which a calculated value has enough of; all where these lie on another side of a
/// bound than the value.
double brief(const AdditionInput& input, double value)
{
    std::array<char, 32> text{};
    double rounded = value;
    const auto written = std::to_chars(text.begin(), text.end(), value, std::chars_format::general, 6);
    std::from_chars(text.begin(), written.ptr, rounded);
    const bool sameSide = input.range.contains(rounded) == input.range.contains(value) &&
                          input.info->bounds.contains(rounded) == input.info->bounds.contains(value);
    return sameSide ? rounded : value;
}

std::string valueText(const AdditionInput& input, double value)
{
    if (const Choice* const choice = choiceWith(input.info->choices, value))
        return std::string(choice->word);
    return withUnit(plainText(brief(input, value)), input.info->unit);
}

const AdditionInput* inputNamed(const Addition& model, std::string_view name)
{
    const auto found = std::ranges::find(model.inputs, name, &AdditionInput::verdictName);
    return found == model.inputs.end() ? nullptr : &*found;
}

std::string derivedNamed(const Addition& model, std::string_view name)
{
    const auto found = std::ranges::find(model.derived, name, &DerivedName::verdictName);
    return found == model.derived.end() ? std::string() : std::string(found->text);
}

std::string outside(const Addition& model, const Verdict& verdict, const AdditionInput* input, double value)
{
    const std::string of =
        model.isStandard ? "Outside the range of the standard: " : "Outside the range of the model: ";
    const std::string derived = derivedNamed(model, verdict.about);
    if (input == nullptr || (std::isnan(value) && !derived.empty())) {
        if (!derived.empty())
            return of + derived + ".";
        if (const auto place = model.resultPlace(verdict.about)) {
            const AdditionResult& result = model.results[*place];
            const std::string range = boundsText(result.range, result.unit);
            return of + "the result, " + inSentence(result.name) + ", " +
                   (range.empty() ? "lies beyond it." : "is valid " + range + ".");
        }
        return of + std::string(verdict.about) + ".";
    }
    const std::string is = "the " + inSentence(input->info->name) + " is " + valueText(*input, value);
    if (!input->range.contains(value) || input->beside.empty())
        return of + is + ", " + rangeInWords(input->range, input->info->unit) + ".";
    return of + is + ": " + std::string(input->beside) + ".";
}

/// What a verdict names that is no input by this name.
std::string otherName(const Addition& model, std::string_view name)
{
    const std::string derived = derivedNamed(model, name);
    return derived.empty() ? std::string(name) : derived;
}

std::string impossible(const Addition& model, const AdditionInput* input, std::string_view about,
                       double value)
{
    if (input == nullptr)
        return "No value: " + otherName(model, about) + " is beyond what there can be.";
    const std::string is =
        "No value: the " + inSentence(input->info->name) + " is " + valueText(*input, value);
    if (input->isOption())
        return is + ", known are " + words(*input) + ".";
    if (!input->info->bounds.contains(value))
        return is + ", possible is " + boundsText(input->info->bounds, input->info->unit) + ".";
    if (!input->beside.empty())
        return is + ": " + std::string(input->beside) + ".";
    return is + ", which cannot be.";
}

/// What a model looked for and did not find.
std::string sought(const Addition& model, const Verdict& verdict)
{
    if (const auto place = model.resultPlace(verdict.about))
        return "the " + inSentence(model.results[*place].name);
    const std::string derived = derivedNamed(model, verdict.about);
    return derived.empty() ? "the heat balance" : derived;
}

} // namespace

std::string inSentence(std::string_view name)
{
    std::string text(name);
    if (text.size() > 1 && text[0] >= 'A' && text[0] <= 'Z' && !(text[1] >= 'A' && text[1] <= 'Z'))
        text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

std::string rangeInWords(const Interval& range, std::string_view unit)
{
    const std::string bounds = boundsText(range, unit);
    return bounds.empty() ? bounds : "valid " + bounds;
}

std::string verdictInWords(const Addition& model, const Verdict& verdict, std::span<const double> inputs)
{
    if (verdict.standing == standards::Standing::Ok)
        return {};
    const AdditionInput* const input = inputNamed(model, verdict.about);
    const double value =
        input == nullptr ? standards::kNaN : inputs[static_cast<std::size_t>(input - model.inputs.data())];
    switch (verdict.reason) {
    case Reason::BeyondRange:
        return outside(model, verdict, input, value);
    case Reason::Missing: {
        if (input == nullptr)
            return "No value: " + otherName(model, verdict.about) + " is missing.";
        return "No value: the " + inSentence(input->info->name) + " is missing.";
    }
    case Reason::BeyondPhysics:
        return impossible(model, input, verdict.about, value);
    case Reason::NoRoot:
        return "No value: there is no solution for " + sought(model, verdict) + ".";
    case Reason::Undefined:
        if (input != nullptr && !std::isnan(value) && !input->beside.empty())
            return "No value: the " + inSentence(input->info->name) + " is " + valueText(*input, value) +
                   ": " + std::string(input->beside) + ".";
        if (input == nullptr && model.resultPlace(verdict.about) &&
            !derivedNamed(model, verdict.about).empty())
            return "No value: " + derivedNamed(model, verdict.about) + ".";
        return "No value: a step of the calculation of " + sought(model, verdict) + " has no result.";
    case Reason::HeatToSpare:
        return "No clothing is required: there is heat to spare.";
    case Reason::Unlimited:
        return "No limit: the exposure can last more than 8 h.";
    case Reason::NoRestHere:
        return "No work, no rest here: even an hour of rest is above the limit.";
    case Reason::BelowHorizon:
        return "No value: there is direct radiation from a sun below the horizon.";
    case Reason::Nothing:
        break;
    }
    return "No value: " + derivedNamed(model, verdict.about) + ".";
}

std::string remarks(const Addition& model, std::span<const Verdict> verdicts, std::span<const double> inputs)
{
    std::string text;
    for (const Verdict& verdict : verdicts) {
        if (verdict.reason == Reason::Nothing)
            continue;
        const std::string words = verdictInWords(model, verdict, inputs);
        if (!words.empty() && text.find(words) == std::string::npos)
            text += (text.empty() ? "" : " ") + words;
    }
    return text;
}

} // namespace comfortics::catalogue
