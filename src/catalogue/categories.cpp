// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/categories.h"

#include "catalogue/catalogue.h"
#include "formulas/primitives.h"
#include "values/plain_text.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace comfortics::catalogue {

namespace {

constexpr double kUnbounded = std::numeric_limits<double>::infinity();

struct ScaleRow {
    std::size_t first = 0;
    std::size_t count = 0;
    std::string_view source{};
    bool known = false;
};

// clang-format off
#include "catalogue/categories.inc"
// clang-format on

constexpr auto kAllScales = [] {
    static_assert(std::size(kScales) == kIndexCount);
    std::array<Scale, kIndexCount> all{};
    for (std::size_t i = 0; i < kIndexCount; ++i)
        all[i] = {std::span(kCategories).subspan(kScales[i].first, kScales[i].count), kScales[i].source,
                  kScales[i].known};
    return all;
}();

constexpr int kFirstDissatisfied = 123;
constexpr int kLastDissatisfied = 127;
constexpr int kFirstVote = 118;

/// Below this air the numerators of the poles' indices are negative themselves [°C].
constexpr double kPoleFrom = 21;

} // namespace

const Category* Scale::of(double value) const noexcept
{
    for (const Category& category : categories)
        if (value >= category.lower && (value < category.upper || category.upper == kUnbounded))
            return &category;
    return nullptr;
}

const Scale& scale(int index)
{
    return kAllScales.at(static_cast<std::size_t>(index - 1));
}

int voteBeside(int index)
{
    return index >= kFirstDissatisfied && index <= kLastDissatisfied ? index - kFirstDissatisfied + kFirstVote
                                                                     : 0;
}

bool hasPole(int index)
{
    return index == 19 || index == 136 || index == 137;
}

bool isBeyondPole(int index, double Ta, double Ea)
{
    if (!(Ta > kPoleFrom))
        return false;
    switch (index) {
    case 19:
        return Ea * formulas::HPA_TO_MMHG >= 42;
    case 136:
        return Ea >= 58;
    case 137:
        return Ea * formulas::HPA_TO_MMHG >= 44;
    default:
        return false;
    }
}

std::optional<Meaning> meaning(int index, double value, const Surroundings& surroundings)
{
    const Category* const category = scale(index).of(value);
    if (category == nullptr || isBeyondPole(index, surroundings.Ta, surroundings.Ea))
        return std::nullopt;
    Meaning meaning{category, category->severity};
    if (voteBeside(index) != 0 && meaning.severity != 0) {
        if (!surroundings.vote)
            return std::nullopt;
        meaning.severity = *surroundings.vote < 0 ? -meaning.severity : meaning.severity;
    }
    return meaning;
}

std::string signedSeverity(int severity)
{
    return (severity > 0 ? "+" : "") + std::to_string(severity);
}

std::string inWords(const Meaning& meaning)
{
    return std::string(meaning.category->label) + " (" + signedSeverity(meaning.severity) + ")";
}

std::string boundsInWords(int index, const Category& category)
{
    std::string text;
    if (category.lower == -kUnbounded)
        text = "below " + values::plainText(category.upper);
    else if (category.upper == kUnbounded)
        text = "from " + values::plainText(category.lower);
    else
        text = "from " + values::plainText(category.lower) + " to below " + values::plainText(category.upper);
    const std::string_view unit = row(index).shownUnit();
    if (!unit.empty())
        text += " " + std::string(unit);
    return text;
}

std::string meaningNote(int index, const Meaning& meaning)
{
    const Category& category = *meaning.category;
    std::string text = inWords(meaning) + ": " + boundsInWords(index, category) + ".";
    if (!category.note.empty())
        text += "\n" + std::string(category.note) + ".";
    return text + "\nClasses: " + std::string(scale(index).source) + ".";
}

} // namespace comfortics::catalogue
