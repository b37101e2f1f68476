// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/moment.h"

#include <gtest/gtest.h>

namespace comfortics::tables {
namespace {

TEST(Moment, IsReadFromTheUsualForms)
{
    constexpr DateOrder ymd = DateOrder::YearMonthDay;
    constexpr DateOrder dmy = DateOrder::DayMonthYear;
    constexpr DateOrder mdy = DateOrder::MonthDayYear;
    const struct {
        std::string_view text;
        DateOrder order;
        std::string_view read; // empty: none
    } rows[] = {
        {"2024-02-29 13:05", dmy, "2024-02-29T13:05:00"},
        {"2024-02-29T13:05:07.9Z", ymd, "2024-02-29T13:05:07Z"},
        {"2024-02-29T13:05:07-03:30", ymd, "2024-02-29T13:05:07-03:30"},
        {"1.3.2024 0:09", dmy, "2024-03-01T00:09:00"},
        {"3/1/24 12:09 AM", mdy, "2024-03-01T00:09:00"},
        {"3/1/24 12:09 p.m.", mdy, "2024-03-01T12:09:00"},
        {"31/12/69 24:00", dmy, "2070-01-01T00:00:00"},
        {"20240301", dmy, "2024-03-01T00:00:00"},
        {"202403011530", ymd, "2024-03-01T15:30:00"},
        {"20240301:1530", ymd, "2024-03-01T15:30:00"},
        {"1. März 2024 7:00", ymd, "2024-03-01T07:00:00"},
        {"Oct 5, 2023 18:00", ymd, "2023-10-05T18:00:00"},
        {"5 Ιουλίου 2023", ymd, "2023-07-05T00:00:00"},
        {"2024 7 1 13", ymd, "2024-07-01T13:00:00"},
        {"1899-12-31 23:59:59", ymd, "1899-12-31T23:59:59"},
        {"2023-02-29", ymd, ""},
        {"13/01/2024", mdy, ""},
        {"2024-03-01 24:01", ymd, ""},
        {"2024-03-01 13:60", ymd, ""},
        {"13:05", ymd, ""},
        {"12.5", dmy, ""},
        {"yesterday", ymd, ""},
        {"1 2 3 4 5 6 7 8", ymd, ""},
    };
    for (const auto& row : rows) {
        const auto moment = readMoment(row.text, row.order);
        EXPECT_EQ(moment ? momentText(*moment) : "", row.read) << row.text;
    }
}

TEST(Moment, AnOrderIsPossibleWhereItGivesADay)
{
    EXPECT_EQ(possibleOrders("13/01/2024"), 1U << static_cast<unsigned>(DateOrder::DayMonthYear));
    EXPECT_EQ(possibleOrders("01/13/2024"), 1U << static_cast<unsigned>(DateOrder::MonthDayYear));
    EXPECT_EQ(possibleOrders("01/12/2024"), 6U);
    EXPECT_EQ(possibleOrders("2024-01-12"), 0U);
}

} // namespace
} // namespace comfortics::tables
