// SPDX-License-Identifier: GPL-3.0-or-later
//
// The notes are prose: what of it can be told from the catalogue and the formulas is held against them.
#include "catalogue/notes.h"

#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
#include "catalogue/references.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::catalogue {
namespace {

using formulas::asDouble;
using formulas::Assumptions;
using formulas::Rules;
using values::Number;

bool warns(int index, std::string_view words)
{
    return std::ranges::any_of(note(index).warnings, [words](std::string_view warning) {
        return warning.find(words) != std::string_view::npos;
    });
}

std::set<int> warnedOf(std::string_view words)
{
    std::set<int> numbers;
    for (int index = 1; index <= kLastIndex; ++index)
        if (warns(index, words))
            numbers.insert(index);
    return numbers;
}

template <typename Holds>
std::set<int> indicesWhere(Holds holds)
{
    std::set<int> numbers;
    for (const CatalogueRow& row : rows())
        if (holds(row))
            numbers.insert(row.number);
    return numbers;
}

bool reads(const CatalogueRow& row, std::initializer_list<Input> any)
{
    return std::ranges::any_of(row.inputs, [&](Input input) { return std::ranges::count(any, input) > 0; });
}

/// In the order of Input; unlike one another, so that a swap shows.
using Air = std::array<double, 21>;
constexpr Air kMild{24, 28, 300, 10, 41, 14, 29, 17, 16, 30, 12, 19, 12, 0, 24, 28, 300, 10, 41, 14, 19};
constexpr Air kWarm{30, 35, 300, 16, 43, 14, 36, 22, 21, 42, 18, 25, 18, 0, 30, 35, 300, 16, 43, 14, 19};

std::optional<Number> valueOf(const CatalogueRow& row, const Air& air, const Assumptions& assumptions = {})
{
    FormulaInputs inputs{};
    std::size_t place = 0;
    for (const Input input : row.inputs)
        inputs[place++] = air.at(static_cast<std::size_t>(input));
    return row.formula.function({.assumptions = assumptions, .rules = Rules::Precise}, inputs);
}

std::set<int> changedBy(const Assumptions& assumptions)
{
    return indicesWhere([&](const CatalogueRow& row) {
        if (row.formula.function == nullptr)
            return false;
        const auto before = valueOf(row, kMild);
        const auto after = valueOf(row, kMild, assumptions);
        return before && after && asDouble(*before) != asDouble(*after);
    });
}

TEST(Notes, TellOfTheAssumptionsThatAnIndexReads)
{
    std::set<int> wind = changedBy({.Friction = 0.3});
    wind.insert(195); // a model, which reads the wind at 10 m
    EXPECT_EQ(warnedOf("friction coefficient"), wind);
    EXPECT_EQ(warnedOf("barometric pressure"), changedBy({.Barometric = 900}));
    EXPECT_EQ(warnedOf("emissivity"), changedBy({.Emissivity = 0.9}));
    EXPECT_EQ(warnedOf("effective radiating area"), changedBy({.ArAdu = 0.7}));
    EXPECT_EQ(warnedOf("body mass and stature"), changedBy({.Height = 0.9}));
    EXPECT_EQ(warnedOf("body mass and stature"), changedBy({.Weight = 90}));
}

TEST(Notes, TellWhatAnIndexDoesNotRead)
{
    using enum Input;
    // The natural wet bulb and the outdoor WBGT have the sun in them.
    const auto feelsRadiation = [](const CatalogueRow& row) {
        return reads(row, {Tg, SR, Tmrt, Tnwb, Wbgt, TextTg, TextSR});
    };
    for (const CatalogueRow& row : rows()) {
        SCOPED_TRACE(row.number);
        if (warns(row.number, "reads no globe")) {
            EXPECT_FALSE(feelsRadiation(row));
        }
        if (warns(row.number, "reads no wind")) {
            EXPECT_FALSE(reads(row, {WS, TextWS, WindAt10m}));
        }
        if (warns(row.number, "reads no humidity")) {
            EXPECT_FALSE(reads(row, {Td, RH, Ea, Tnwb, Tpwb, TextTd, TextRH, Wbgt}));
        }
        // Who looks for warmth is told where the radiant part of it is missing.
        const Family family = reference(row.number).family;
        if ((family == Family::ApparentTemperature || family == Family::HumidHeat ||
             family == Family::Radiation) &&
            !feelsRadiation(row)) {
            EXPECT_TRUE(warns(row.number, "reads no globe") || warns(row.number, "no radiation") ||
                        warns(row.number, "sun") || warns(row.number, "vapour pressure only"));
        }
    }
    EXPECT_TRUE(warns(199, "reads no globe"));
    EXPECT_FALSE(warns(200, "reads no globe"));
    // Index 200 puts the radiation of a typed globe in its place, for those behind it; 106 does not read it.
    EXPECT_EQ(warnedOf("with a typed globe temperature the radiation counts as 0"),
              indicesWhere([](const CatalogueRow& row) {
                  return reads(row, {SR}) && row.number < 200 && row.number != 106 && row.number != 159;
              }));
}

TEST(Notes, TellOfLimitsNamesAndClassesThatMislead)
{
    EXPECT_EQ(warnedOf("compare digits as texts"),
              indicesWhere([](const CatalogueRow& row) { return row.gate == Gate::Text; }));
    EXPECT_EQ(warnedOf("turns its sign"),
              indicesWhere([](const CatalogueRow& row) { return hasPole(row.number); }));
    EXPECT_EQ(warnedOf("tells how many, not whether"),
              indicesWhere([](const CatalogueRow& row) { return voteBeside(row.number) != 0; }));
    for (const CatalogueRow& row : rows()) {
        SCOPED_TRACE(row.number);
        if (warns(row.number, "without classes") || warns(row.number, "a plain quantity")) {
            EXPECT_TRUE(scale(row.number).categories.empty());
        }
        for (const CatalogueRow& other : rows())
            if (row.number != other.number) {
                EXPECT_EQ(row.name == other.name, warns(row.number, "shares its name with index " +
                                                                        std::to_string(other.number) + ","))
                    << other.number;
            }
    }
}

// What the second sentence says of higher values, held against the formula in a mild and in a warm hour.
TEST(Notes, SayWhichWayAValueRuns)
{
    const std::pair<const char*, int> directions[] = {
        {"igher is hotter", 1},
        {"igher is warmer", 1},
        {"igher is more humid", 1},
        {"igher is colder", -1},
        {"igher cools", -1},
        {"ower is colder, higher is hotter", 1},
        {"ower is colder", 1},
        {"3 (hot)", 1},
        {"(very hot)", 1},
        {"positive hot", 1},
        {"(much too cool)", -1},
        {"the lower, the hotter", -1},
        {"ositive warms", 1},
        {"the lower, the colder", 1},
        {"igher is more strain", 1},
        {"limit means more heat", -1},
        {"it falls as the air gets warmer", -1},
        {"nearer to frostbite", 1},
        {"igher is drier", 1},
        {"igher is more sultry", 1},
        {"from 1 up sultry", 1},
    };
    int held = 0;
    for (const CatalogueRow& row : rows()) {
        if (row.formula.function == nullptr || !reads(row, {Input::Ta, Input::Tg, Input::Tnwb, Input::Wbgt}))
            continue;
        const std::string_view description = note(row.number).description;
        const std::string_view second = description.substr(description.find(". ") + 2);
        for (const auto& [words, sign] : directions) {
            if (second.find(words) == std::string_view::npos)
                continue;
            const auto mild = valueOf(row, kMild);
            const auto warm = valueOf(row, kWarm);
            if (!mild || !warm || asDouble(*mild) == asDouble(*warm))
                break;
            ++held;
            EXPECT_EQ(asDouble(*warm) > asDouble(*mild) ? 1 : -1, sign) << row.number << " " << second;
            break;
        }
    }
    EXPECT_GT(held, 150);
}

} // namespace
} // namespace comfortics::catalogue
