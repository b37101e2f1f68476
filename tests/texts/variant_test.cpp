// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/variant.h"

#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

namespace comfortics::texts {

using values::kFormat0_0;
using values::Number;
using values::RunFailure;

namespace {

const Variant kEmpty;

std::string shown(const Variant& value)
{
    return value.isEmpty() ? "Empty" : value.isText() ? '"' + value.text() + '"' : value.text();
}

TEST(Variant, InArithmeticEmptyIsZeroAndATextIsItsNumber)
{
    const std::tuple<Variant, double, const char*> rows[] = {
        {kEmpty, 0, ""},
        {std::int16_t{-99}, -99, "-99"},
        {Number(0.1) + 0.2, 0.1 + 0.2, "0.3"},
        {"18.43809", 18.43809, "18.43809"},
        {" 12,5 ", 12.5, " 12,5 "},
    };
    for (const auto& [value, number, text] : rows) {
        EXPECT_EQ(value.number(), number) << shown(value);
        EXPECT_EQ(value.text(), text);
    }
    EXPECT_TRUE(Variant("").isEmptyText() && !kEmpty.isEmptyText() && !Variant(" ").isEmptyText());
    for (const char* text : {"", "12abc"}) {
        try {
            ADD_FAILURE() << text << " is taken as " << Variant(text).number().value();
        } catch (const RunFailure& failure) {
            EXPECT_EQ(failure.why(), "type mismatch: the text " + shown(text) + " is no number");
        }
    }
}

// A text that reads as a number is compared with a literal by value, any other text is equal to
// none and below none.
TEST(Variant, ComparesWithALiteralByValue)
{
    const std::tuple<Variant, double, bool, bool> rows[] = {
        {"-99", -99, true, false}, {"9", 15, false, true},     {"15", 15, true, false},
        {"", 0, false, false},     {"", 15, false, false},     {"Error:", 0, false, false},
        {kEmpty, 0, true, false},  {kEmpty, 0.1, false, true}, {std::int16_t{-99}, -99, true, false},
        {0.05, 0.1, false, true},  {0.1, 0.1, true, false},
    };
    for (const auto& [value, literal, equal, below] : rows) {
        EXPECT_EQ(value.equalsNumber(literal), equal) << shown(value) << " = " << literal;
        EXPECT_EQ(value.isBelowNumber(literal), below) << shown(value) << " < " << literal;
    }
}

// Two texts compare by character code, a number is below every text, two numbers by value.
TEST(Variant, ComparesWithAVariantByKind)
{
    const std::tuple<Variant, Variant, bool> rows[] = {
        {"9.5", "25", true},     {"-3", "5", false}, {"20", "20", false},  {"20.0", "20", true},
        {"\xC2\xB0", "z", true}, {9.5, 25.0, false}, {9.5, 9.5, false},    {std::int16_t{25}, 9.5, true},
        {1.0, "", false},        {"", 1.0, true},    {kEmpty, -1.0, true}, {kEmpty, 0.0, false},
    };
    for (const auto& [left, right, greater] : rows)
        EXPECT_EQ(isGreater(left, right), greater) << shown(left) << " > " << shown(right);
}

TEST(Variant, HoldingATextStaysATextWhenItTakesANumber)
{
    const std::tuple<Variant, Variant, Variant> rows[] = {
        {"", 18.4380912345678912, "18.4380912345679"},
        {"5", std::int16_t{-99}, "-99"},
        {kEmpty, 2.5, 2.5},
        {1.5, "2.5", "2.5"},
        {"5", kEmpty, kEmpty},
    };
    for (const auto& [before, value, expected] : rows) {
        Variant target = before;
        target.assign(value);
        EXPECT_EQ(target, expected) << shown(before) << " := " << shown(value);
    }
}

TEST(Variant, FormatsNumbersAndNumericTextsOnly)
{
    const std::pair<Variant, const char*> rows[] = {
        {kEmpty, ""},     {2.25, "2.3"},    {std::int16_t{7}, "7.0"}, {"", ""},  {" 12.34 ", "12.3"},
        {"12,5", "12.5"}, {"1e2", "100.0"}, {"Error:", "Error:"},     {"-", "-"}};
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(format(value, kFormat0_0), expected) << shown(value);
}

} // namespace
} // namespace comfortics::texts
