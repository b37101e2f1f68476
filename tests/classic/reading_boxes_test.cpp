// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/reading_boxes.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace comfortics::classic {
namespace {

using enum Reading;

TEST(ReadingBoxes, CleansWhatIsWritten)
{
    struct Case {
        Reading box;
        std::string written, expected;
    };
    const Case cases[] = {
        {TA, "58", "58"},       {TA, "58.1", ""},
        {TA, "-300", "-300"}, // no lower bound
        {TG, "25-", "25-"},   // a trailing minus sign stands unchecked
        {TA, "+", ""},          {TG, "1.5D1", "1.5D1"},
        {TA, "12,5", "12.5"},   {TA, "1,2,5", ""},
        {WS, " 2.5 ", " 2.5 "}, {SR, "1367", "1367"},
        {SR, "1368", ""},       {SR, "-1", ""},
        {SR, "5000.", "5000."}, // being typed, it stands though too high
        {SR, "5.5.", ""},       {RH, "100", "100"},
        {RH, "100.1", ""},      {RH, "-5", "-5"}, // no lower bound
        {WS, "0.1", "0.1"},     {WS, "0.09", "0.1"},
        {WS, "0.", "0."},       {WS, "calm", ""},
        {WS, "1e999", ""},
    };
    for (const Case& row : cases) {
        ReadingBoxes boxes;
        boxes.box(row.box).setText(row.written);
        EXPECT_EQ(boxes.text(row.box), row.expected) << row.written;
    }
    ReadingBoxes boxes;
    boxes.txt_TA.setText("12,5");
    EXPECT_EQ(boxes.txt_TA.caret(), 4U) << "the caret goes to the end of a cleaned text";
}

TEST(ReadingBoxes, DewPointIsHeldAgainstTheAirTemperature)
{
    ReadingBoxes boxes;
    boxes.txt_TA.setText("20");
    boxes.txt_DP.setText("20.1");
    EXPECT_EQ(boxes.txt_DP.text(), "");
    boxes.txt_DP.setText("20");
    EXPECT_EQ(boxes.txt_DP.text(), "20");
    boxes.txt_TA.setText(""); // an empty box reads as 0, and later changes do not look back
    EXPECT_EQ(boxes.txt_DP.text(), "20");
    boxes.txt_DP.setText("0.1");
    EXPECT_EQ(boxes.txt_DP.text(), "");
}

TEST(ReadingBoxes, ThePartnerIsEmptiedByFullTextsAndByRejectedOnes)
{
    ReadingBoxes boxes;
    boxes.txt_TG.setText("30");
    boxes.txt_SR.setText("500");
    EXPECT_EQ(boxes.txt_TG.text(), "");
    boxes.txt_TG.setText("31");
    EXPECT_EQ(boxes.txt_SR.text(), "");
    boxes.txt_SR.setText("500."); // stops before the partner
    EXPECT_EQ(boxes.txt_TG.text(), "31");
    boxes.txt_SR.setText(""); // so does an emptied box
    EXPECT_EQ(boxes.txt_TG.text(), "31");

    boxes.txt_DP.setText("5-");
    boxes.txt_RH.setText("n/a"); // emptied itself, and its partner with it
    EXPECT_EQ(boxes.txt_RH.text(), "");
    EXPECT_EQ(boxes.txt_DP.text(), "");
}

TEST(ReadingBoxes, RoundsInPlaceWhichRunsTheCleaningAgain)
{
    ReadingBoxes boxes;
    boxes.write({"20.04", "", "600.5", "", "49.95", "2.25"});
    boxes.round();
    EXPECT_EQ(boxes.txt_TA.text() + "|" + boxes.txt_SR.text() + "|" + boxes.txt_RH.text() + "|" +
                  boxes.txt_WS.text(),
              "20|601|50|2.3");

    // Typed before the air temperature was lowered, the dew point goes when its text is rewritten.
    boxes.txt_DP.setText("15.04");
    boxes.txt_TA.setText("10");
    // A radiation left with its point beside a globe temperature empties it on rounding.
    boxes.txt_TG.setText("25");
    boxes.txt_SR.setText("600.");
    boxes.round();
    EXPECT_EQ(boxes.txt_DP.text(), "");
    EXPECT_EQ(boxes.txt_SR.text(), "600");
    EXPECT_EQ(boxes.txt_TG.text(), "");
}

TEST(ReadingBoxes, TellsWhatARuleEmptiedOrChangedAndWhy)
{
    struct Case {
        std::string before; // in the order of the boxes, with bars between
        Reading box;
        std::vector<std::string> written;
        std::string told; // last
    };
    const std::string frost = " In frost type the dew point first, or the humidity in its place.";
    const std::string wind = " For 0.5 type .5, without the 0.";
    const Case cases[] = {
        {"",
         TA,
         {"9", "95"},
         "95 is above 58 °C, the highest air temperature: emptied. Is it °F? The converter takes it over."},
        {"",
         TA,
         {"95", "3"},
         "3 stands now. 95 is above 58 °C, the highest air temperature: emptied. Is it °F? The converter "
         "takes it over."},
        {"",
         TA,
         {"95", "3", ""},
         "95 is above 58 °C, the highest air temperature: emptied. Is it °F? The converter takes it over."},
        {"", TA, {"-", "-4", "-40"}, ""},
        {"", SR, {"1400"}, "1400 is above 1367 W/m², the highest solar radiation: emptied."},
        {"", SR, {"-1"}, "-1 is below 0 W/m², the lowest solar radiation: emptied."},
        {"|30", SR, {"5"}, "The globe temperature 30 was emptied: the solar radiation counts in its place."},
        {"|30",
         SR,
         {"5", "50"},
         "The globe temperature 30 was emptied: the solar radiation counts in its place."},
        {"20|||9", RH, {"x"}, "\"x\" is no number: emptied, and the dew point 9 with it."},
        {"20", DP, {"21"}, "21 is above 20 °C, the air temperature: emptied."},
        {"-10", DP, {"-", "-1"}, "-1 is above -10 °C, the air temperature: emptied." + frost},
        {"-10", DP, {"-1", "5"}, "5 is above -10 °C, the air temperature: emptied." + frost},
        {"",
         DP,
         {"5"},
         "5 is above 0 °C, as which an empty air temperature counts: emptied. Type the air temperature "
         "first."},
        {"", RH, {"101"}, "101 is above 100 %, the highest relative humidity: emptied."},
        {"", WS, {"0"}, "0 is below 0.1 m/s, the lowest wind speed: 0.1 stands in its place." + wind},
        {"", WS, {"0", "0.1.", "5"}, "5 stands now. \"0.1.\" is no number: emptied." + wind},
        {"", WS, {".", ".5"}, ""},
        {"", TG, {"12,5"}, ""},
    };
    for (const Case& row : cases) {
        ReadingBoxes boxes;
        std::stringstream before(row.before);
        std::string text;
        for (std::size_t i = 0; std::getline(before, text, '|'); ++i)
            boxes.box(static_cast<Reading>(i)).setText(text);
        std::string told;
        boxes.onRemark([&told](const std::string& remark) { told = remark; });
        for (const std::string& one : row.written)
            boxes.box(row.box).setText(one);
        EXPECT_EQ(told, row.told);
    }
}

TEST(ReadingBoxes, TellsWhatACalculationDoesToThem)
{
    ReadingBoxes boxes;
    std::string told;
    boxes.onRemark([&told](const std::string& remark) { told += remark.empty() ? "" : remark + "|"; });
    boxes.write({"20", "9.5", "", "", "", "0.04"});
    told.clear();
    boxes.dropColdGlobe();
    boxes.round();
    EXPECT_EQ(told, "The globe temperature 9.5 is more than 10 °C below the air temperature 20: emptied.|");
    boxes.write({"20.04", "10.04", "", "7-", "50", "1.25"});
    told.clear();
    boxes.dropColdGlobe();
    boxes.dropUnfinished();
    boxes.round();
    EXPECT_EQ(
        told,
        "Rounded: air temperature 20.04 to 20, globe temperature 10.04 to 10, wind speed 1.25 to 1.3.|");
    boxes.txt_RH.setText("");
    boxes.txt_DP.setText("-");
    told.clear();
    boxes.dropUnfinished();
    EXPECT_EQ(told, "\"-\" is no number: the dew point was emptied.|");
}

TEST(ReadingBoxes, CompleteAsksForTextValidForNumbers)
{
    ReadingBoxes boxes;
    boxes.write({"-", "", "500", "", "50", "2"});
    EXPECT_TRUE(boxes.complete());
    EXPECT_FALSE(boxes.valid());
    EXPECT_EQ(boxes.whatIsWrong(), "the air temperature is no number");
    boxes.txt_TA.setText("-4");
    EXPECT_TRUE(boxes.valid());
    EXPECT_EQ(boxes.whatIsWrong(), "");
    boxes.txt_SR.setText("");
    EXPECT_FALSE(boxes.complete());
    EXPECT_EQ(boxes.whatIsWrong(), "globe temperature or solar radiation is missing");
    boxes.write({"1", "2", "", "", "", "3"});
    EXPECT_EQ(boxes.whatIsWrong(), "dew point or relative humidity is missing");
}

} // namespace
} // namespace comfortics::classic
