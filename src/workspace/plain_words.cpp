// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/plain_words.h"

#include "catalogue/additions.h"
#include "texts/number_text.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace comfortics::workspace {

using classic::Reading;

namespace {

constexpr std::string_view kNoNumber = R"(type mismatch: the text "" is no number)";
constexpr std::string_view kNotAvailable = " is not available: ";
constexpr std::string_view kUnworkable = "it cannot be worked out for such readings";
constexpr values::Format kBrief{2, 1};

bool replace(std::string& sentence, std::string_view from, std::string_view to)
{
    const std::size_t at = sentence.find(from);
    if (at == std::string::npos)
        return false;
    sentence.replace(at, from.size(), to);
    return true;
}

const std::string& typed(const classic::Inputs& inputs, Reading reading)
{
    return inputs.readings[static_cast<std::size_t>(reading)];
}

// What a step has read as text and found empty: one of the two that are typed for others.
std::string nothingTyped(const classic::Inputs& inputs)
{
    std::string text;
    for (const Reading reading : {Reading::RH, Reading::SR})
        if (typed(inputs, reading).empty())
            text += (text.empty() ? "no " : " and no ") +
                    texts::lowered(classic::kReadingInfo[static_cast<std::size_t>(reading)].heading);
    return text.empty() ? "a reading is not typed" : text + " is typed";
}

// With the clause in brackets that tells more, where there is one.
void tellWhatIsMissing(std::string& sentence, const classic::Inputs& inputs)
{
    const std::size_t at = sentence.find(kNoNumber);
    if (at == std::string::npos)
        return;
    const std::size_t open = at + kNoNumber.size();
    const std::size_t close = sentence.find(')', open);
    if (sentence.compare(open, 2, " (") != 0 || close == std::string::npos)
        sentence.replace(at, kNoNumber.size(), nothingTyped(inputs));
    else
        sentence.replace(at, close + 1 - at, sentence.substr(open + 2, close - open - 2) + " °C");
}

// "Tnwb is not available: ..."
void nameQuantity(std::string& sentence)
{
    const std::size_t at = sentence.find(kNotAvailable);
    if (at == std::string::npos)
        return;
    for (const formulas::LiveInfo& info : formulas::kLiveInfo) {
        const std::size_t length = info.symbol.size();
        if (at < length || sentence.compare(at - length, length, info.symbol) != 0 ||
            (at > length && sentence[at - length - 1] != ' '))
            continue;
        sentence.replace(at - length, length + kNotAvailable.size(),
                         "The " + catalogue::inSentence(info.name) + " (" + std::string(info.symbol) +
                             ") has no value: ");
        return;
    }
}

/// A step and the numbers that it failed with: "logarithm of a number not above zero (0)". What it comes
/// from, where that is known, stands in its place.
void tellStep(std::string& sentence, std::string_view step, std::string_view words,
              const std::string& cause = {})
{
    const std::size_t at = sentence.find(step);
    if (at == std::string::npos)
        return;
    const std::size_t open = at + step.size();
    const std::size_t close = sentence.find(')', open);
    if (sentence.compare(open, 2, " (") != 0 || close == std::string::npos)
        return;
    if (!cause.empty()) {
        sentence.replace(at, close + 1 - at, cause);
        return;
    }
    std::string number = sentence.substr(open + 2, close - open - 2);
    number = number.substr(0, number.find(' ')); // of a base and its exponent the base
    if (const auto value = texts::numericValue(number); value && number.find('E') == std::string::npos)
        number = values::plainText(texts::val(texts::format(*value, kBrief)));
    sentence.replace(at, close + 1 - at,
                     std::string(kUnworkable) + " (" + std::string(words) + " " + number + ")");
}

// "18.6596162984909" as "18.66", unless that stands in the sentence already, as a limit that it is beyond.
void shortenNumbers(std::string& sentence)
{
    constexpr std::string_view kDigits = "0123456789";
    constexpr std::size_t kMany = 6; // decimals
    for (std::size_t point = sentence.find('.'); point != std::string::npos;
         point = sentence.find('.', point + 1)) {
        const std::size_t end = std::min(sentence.find_first_not_of(kDigits, point + 1), sentence.size());
        const std::size_t before = sentence.find_last_not_of(kDigits, point - 1);
        const std::size_t begin = before == std::string::npos ? 0 : before + 1;
        if (end - point <= kMany || begin == point || (end < sentence.size() && sentence[end] == 'E'))
            continue;
        const std::string brief =
            values::plainText(texts::val(texts::format(sentence.substr(begin, end - begin), kBrief)));
        if (brief != "0" && sentence.find(" " + brief + " ") == std::string::npos)
            sentence.replace(begin, end - begin, brief);
    }
}

} // namespace

std::string inPlainWords(std::string sentence, const classic::Inputs& inputs)
{
    shortenNumbers(sentence);
    tellWhatIsMissing(sentence, inputs);
    replace(sentence, "type mismatch: the text ", "the text ");
    nameQuantity(sentence);
    const auto humidity = texts::numericValue(typed(inputs, Reading::RH));
    tellStep(sentence, "logarithm of a number not above zero", "logarithm of",
             humidity && *humidity <= 0
                 ? "there is no dew point at a relative humidity of " + typed(inputs, Reading::RH) + " %"
                 : std::string());
    tellStep(sentence, "negative base with a fractional exponent", "root of");
    tellStep(sentence, "root of a negative number", "root of");
    constexpr std::array<std::array<std::string_view, 2>, 4> kOthers{{
        {": overflow.", ": a number grows beyond all bounds."},
        {": division by zero.", ": it would divide by zero."},
        {"the mean-vote walk stands still without meeting its tolerance",
         "the search for the temperature of the clothing comes to no end"},
        {"the wind-chill walk stands still without meeting its tolerance",
         "the search for the equivalent temperature comes to no end"},
    }};
    for (const auto& [from, to] : kOthers)
        replace(sentence, from, to);
    return sentence;
}

} // namespace comfortics::workspace
