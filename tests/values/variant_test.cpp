// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/variant.h"

#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace comfortics::values {
namespace {

const Variant kEmpty;

std::string shown(const Variant& value)
{
    return value.isEmpty() ? "Empty" : value.isText() ? '"' + value.text() + '"' : value.text();
}

TEST(Variant, InArithmeticEmptyIsZeroAndATextIsItsNumber)
{
    struct Row {
        Variant value;
        std::optional<double> number; // nothing: a type mismatch
        const char* text;
    };
    const std::vector<Row> rows{
        {kEmpty, 0.0, ""},
        {std::int16_t{-99}, -99.0, "-99"},
        {2.5, 2.5, "2.5"},
        {Number(0.1) + 0.2, 0.1 + 0.2, "0.3"},
        {"18.43809", 18.43809, "18.43809"},
        {" 12,5 ", 12.5, " 12,5 "},
        {"", std::nullopt, ""},
        {"Error:", std::nullopt, "Error:"},
        {"12abc", std::nullopt, "12abc"},
        {"1e400", std::nullopt, "1e400"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.value.text(), row.text);
        if (row.number) {
            EXPECT_EQ(row.value.number(), *row.number) << shown(row.value);
            continue;
        }
        try {
            (void)row.value.number();
            ADD_FAILURE() << shown(row.value) << " is taken as a number";
        } catch (const RunFailure& failure) {
            EXPECT_EQ(failure.why(), "type mismatch: the text " + shown(row.value) + " is no number");
        }
    }
}

TEST(Variant, TellsItsKinds)
{
    EXPECT_TRUE(kEmpty.isEmpty());
    EXPECT_FALSE(kEmpty.isEmptyText());
    EXPECT_FALSE(kEmpty.isNumber());
    EXPECT_TRUE(Variant("").isEmptyText());
    EXPECT_FALSE(Variant(" ").isEmptyText());
    EXPECT_TRUE(Variant("7").isText());
    EXPECT_FALSE(Variant("7").isNumber());
    EXPECT_TRUE(Variant(std::int16_t{7}).isNumber());
    EXPECT_TRUE(Variant(7.0).isNumber());
}

// A text that reads as a number is compared with a literal by value, any other text is equal to
// none and below none.
TEST(Variant, ComparesWithALiteralByValue)
{
    struct Row {
        Variant value;
        double literal;
        bool equal;
        bool below;
    };
    const std::vector<Row> rows{
        {"-99", -99, true, false}, {"-99.0", -99, true, false},
        {"9", 15, false, true}, // as texts 9 would stand above 15
        {"15", 15, true, false},   {"100", 15, false, false},
        {"", 0, false, false},     {"", 15, false, false},
        {"-", 0, false, false},    {"Error:", 15, false, false},
        {kEmpty, 0, true, false},  {kEmpty, 0.1, false, true},
        {-99.0, -99, true, false}, {std::int16_t{-99}, -99, true, false},
        {0.05, 0.1, false, true},  {0.1, 0.1, true, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.value.equalsNumber(row.literal), row.equal) << shown(row.value) << " = " << row.literal;
        EXPECT_EQ(row.value.isBelowNumber(row.literal), row.below)
            << shown(row.value) << " < " << row.literal;
    }
}

// Two texts compare by character code, a number is below every text, two numbers by value.
TEST(Variant, ComparesWithAVariantByKind)
{
    struct Row {
        Variant left;
        Variant right;
        bool greater;
    };
    const std::vector<Row> rows{
        {"9.5", "25", true},     {"-3", "5", false},   {"5", "-3", true}, {"25", "9.5", false},
        {"20", "20", false},     {"20.0", "20", true}, // the longer of equal beginnings
        {"", "1", false},        {"a", "B", true},     // by code, capitals first
        {"\xC2\xB0", "z", true}, {9.5, 25.0, false},   {25.0, 9.5, true}, {std::int16_t{25}, 9.5, true},
        {1000.0, "5", false},    {"5", 1000.0, true},  {1.0, "", false},  {"", 1.0, true},
        {kEmpty, -1.0, true},    {kEmpty, 0.0, false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(isGreater(row.left, row.right), row.greater)
            << shown(row.left) << " > " << shown(row.right);
}

TEST(Variant, HoldingATextStaysATextWhenItTakesANumber)
{
    struct Row {
        Variant target;
        Variant value;
        Variant expected;
    };
    const std::vector<Row> rows{
        {"", 18.4380912345678912, "18.4380912345679"},
        {"5", std::int16_t{-99}, "-99"},
        {"5", "abc", "abc"},
        {kEmpty, 2.5, 2.5},
        {1.5, 2.5, 2.5},
        {1.5, "2.5", "2.5"},
        {1.5, kEmpty, kEmpty},
        {"5", kEmpty, kEmpty},
    };
    for (const Row& row : rows) {
        Variant target = row.target;
        target.assign(row.value);
        EXPECT_EQ(target, row.expected) << shown(row.target) << " := " << shown(row.value);
    }
}

TEST(Variant, FormatsNumbersAndNumericTextsOnly)
{
    EXPECT_EQ(format(kEmpty, kFormat0_0), "");
    EXPECT_EQ(format(Variant(2.25), kFormat0_0), "2.3");
    EXPECT_EQ(format(Variant(std::int16_t{7}), kFormat0_00), "7.00");
    EXPECT_EQ(format(Variant("2.25"), kFormat0_0), "2.3");
    EXPECT_EQ(format(Variant("Error:"), kFormat0_0), "Error:");
    EXPECT_EQ(format(Variant(""), kFormat0_0), "");
}

} // namespace
} // namespace comfortics::values
