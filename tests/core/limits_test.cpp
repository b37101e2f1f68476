// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/limits.h"

#include "core/load_indices.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace comfortics::core {
namespace {

TEST(IniFile, ReadsAsTheProfileCall)
{
    const IniFile file("; a comment\r\n"
                       "Name_1=outside any section\r\n"
                       "[Other]\r\nName_1=other\r\n"
                       "  [indices]  \r\n"
                       " name_1 =  first  \r\n"
                       "NAME_1=second\r\n"
                       "Name_2=\"in quotes\"\r\n"
                       "Name_3='half open\r\n"
                       ";Name_4=commented\r\n"
                       "Name_5=a=b\n"
                       "Name_6=\r\n"
                       "no key here\r\n"
                       "[INDICES]\r\nName_7=in a repeated section\r\n");
    const char* expected[] = {"first", "in quotes", "'half open", "", "a=b", "", ""};
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(file.Read_Index_Setting("INDICES", "Name_" + std::to_string(i + 1)), expected[i]);
    EXPECT_EQ(file.Read_Index_Setting("other", "NAME_1"), "other");
    EXPECT_EQ(IniFile("\xEF\xBB\xBF[S]\nK=" + std::string(200, 'x')).Read_Index_Setting("S", "K"),
              std::string(149, 'x'));
}

TEST(Limits, BoundsAreNumberText)
{
    const Limits limits = Limits::fromText("[INDICES]\n"
                                           "Tair_min_7=12,5\nTair_max_7=ten\nWS_min_7= -.50x\nWS_max_7=1e3\n"
                                           "Active_7=1\nCategories_7=cold\n");
    const IndexLimits& row = limits.of(7);
    EXPECT_EQ(row.Tair_min.text + "|" + row.Tair_max.text + "|" + row.WS_min.text + "|" + row.WS_max.text,
              "12|0|-0.5|1000");
    EXPECT_EQ(row.WS_max.number, 1000);
    EXPECT_EQ(row.Active, 1);
    EXPECT_EQ(row.Categories, "cold");
    EXPECT_EQ(Limits::Load_Limits("no/such/folder/Limits.Index").of(222).Tair_max.text, "0");
}

} // namespace
} // namespace comfortics::core
