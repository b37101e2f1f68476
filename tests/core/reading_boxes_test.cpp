// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/reading_boxes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::core {
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
} // namespace comfortics::core
