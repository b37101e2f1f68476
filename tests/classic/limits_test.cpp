// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/limits.h"

#include "catalogue/catalogue.h"
#include "catalogue/validity.h"
#include "classic/frm_results.h"
#include "classic/load_indices.h"

#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <tuple>
#include <utility>

namespace comfortics::classic {
namespace {

using catalogue::CatalogueRow;
using catalogue::kLastIndex;

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

TEST(Limits, TellWhatBecameOfTheirFile)
{
    using State = IniFile::State;
    const tests::TemporaryFolder folder;
    std::string large(IniFile::kLargest, ';');
    const std::tuple<std::string, State, std::string> rows[] = {
        {folder.write("good", "[INDICES]\nTair_max_7=40\n"), State::Read, ""},
        {folder.file("absent"), State::Missing, "No such file or directory"},
        {folder.path().string(), State::Unreadable, "Is a directory"},
        {folder.write("full", large), State::Read, ""},
        {folder.write("large", large + ";"), State::Unreadable, "it is larger than 1 MiB"},
        {"/dev/zero", State::Unreadable, "it is larger than 1 MiB"},
    };
    for (const auto& [path, state, problem] : rows) {
        const Limits limits = Limits::Load_Limits(path);
        EXPECT_EQ(limits.fileState(), state) << path;
        EXPECT_EQ(limits.fileProblem(), problem) << path;
        EXPECT_EQ(limits.anyGiven(), path == folder.file("good"));
    }
}

TEST(Limits, TellBoundsThatAreNoNumbers)
{
    const Limits limits = Limits::fromText("[INDICES]\nTair_min_7= 12,5 \nTair_max_7=4O\nWS_min_7=\n"
                                           "WS_max_7=1e3\nTair_min_8=+.5\nTair_max_8=x\nActive_8=x\n"
                                           "Tair_min_9=29.999999999999996\n");
    std::string doubts;
    for (const std::string& doubt : limits.doubts())
        doubts += doubt + "|";
    EXPECT_EQ(doubts, "Tair_min_7=12,5 is no number and counts as 12.|Tair_max_7=4O is no number and counts "
                      "as 4.|Tair_max_8=x is no number and counts as 0.|");
    // A bound is the number of its text.
    EXPECT_EQ(limits.of(9).Tair_min.text, "30");
    EXPECT_EQ(limits.of(9).Tair_min.number, 30);
}

TEST(Limits, WarnOfAFileThatCannotBeReadOfNoBoundAndOfDoubtfulOnes)
{
    const std::pair<const char*, bool> rows[] = {
        {"", true},
        {"[OTHER]\nTair_max_3=20\n", true},
        {"[INDICES]\nTair_max_222=20\n", false},
        {"[INDICES]\nTair_min_1=-20\n", false},
    };
    for (const auto& [text, warns] : rows)
        EXPECT_EQ(!limitsWarning(Limits::fromText(text)).empty(), warns) << text;

    EXPECT_EQ(
        limitsWarning(Limits::Load_Limits("/")),
        "Indices with limits stay blank: Limits.Index, which belongs beside the program, cannot be read "
        "(Is a directory).");
    EXPECT_EQ(limitsWarning(Limits::fromText("Tair_max_3=20"), "my.ini"),
              "Indices with limits stay blank: my.ini holds no limits.");
    EXPECT_EQ(
        limitsWarning(Limits::fromText("[INDICES]\nTair_max_1=4O\nTair_max_2=b\nTair_max_3=c\n"
                                       "Tair_max_4=d\nTair_max_5=e\n")),
        "In Limits.Index Tair_max_1=4O is no number and counts as 4. In Limits.Index Tair_max_2=b is no "
        "number and counts as 0. In Limits.Index Tair_max_3=c is no number and counts as 0. There are 2 "
        "more such bounds.");
}

TEST(LimitsFile, IsWholeAndSpeaksOfTheSameIndices)
{
    const Limits limits = Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    for (const CatalogueRow& row : catalogue::rows()) {
        // The file is in an 8-bit code page, where the degree sign is one byte, and the reader drops
        // blanks at the ends.
        std::string name(row.name);
        for (std::size_t at; (at = name.find("\xC2\xB0")) != std::string::npos;)
            name.erase(at, 1);
        name.erase(name.find_last_not_of(' ') + 1);
        const IndexLimits& bounds = limits.of(row.number);
        EXPECT_EQ(bounds.Name, name) << row.number;
        // 196 is shut on purpose: it fails whenever the radiation box is empty.
        EXPECT_EQ(bounds.Tair_min.number < bounds.Tair_max.number, row.number != 196) << row.number;
        EXPECT_LE(bounds.WS_min.number, bounds.WS_max.number) << row.number;
    }
}

TEST(LimitsFile, HasTheNumbersOfTheCatalogue)
{
    const Limits limits = Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    for (int index = 1; index <= kLastIndex; ++index) {
        const IndexLimits& read = limits.of(index);
        const catalogue::Validity& built = catalogue::validity(index);
        EXPECT_EQ(built.temperatureMin, read.Tair_min.number) << index;
        EXPECT_EQ(built.temperatureMax, read.Tair_max.number) << index;
        EXPECT_EQ(built.windMin, read.WS_min.number) << index;
        EXPECT_EQ(built.windMax, read.WS_max.number) << index;
        EXPECT_EQ(built.given, read.given()) << index;
    }
}

TEST(Results, TakeNamesAndUnitsFromTheCatalogue)
{
    const Frm_Results results;
    EXPECT_EQ(results.lbl_Index[104].caption(), "Modified Discomfort Index (Moran; 1988) ");
    EXPECT_EQ(results.lbl_Unit[6].caption(), "Kcal/kg");
}

} // namespace
} // namespace comfortics::classic
