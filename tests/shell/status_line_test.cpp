// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/status_line.h"

#include "no_windows.h"
#include "prepared_answers.h"

#include <gtest/gtest.h>

#include <string>

namespace comfortics::shell {
namespace {

struct Window {
    explicit Window(const char* text = "") : limits(classic::Limits::fromText(text)) {}

    classic::Limits limits;
    tests::RecordedMessages messages;
    tests::NoWindows windows;
    classic::Frm_Main main{limits, messages, windows};

    void write(const char* Ta, const char* RH, const char* WS)
    {
        main.calculation.readings.write({Ta, "", "600", "", RH, WS});
    }
};

// All bounds are 0 but those of index 35, which lies outside of its wind alone.
TEST(StatusLine, CountsTheIndicesByWhatBecameOfThem)
{
    struct Row {
        std::string name;
        const char* RH;
        std::vector<int> selected; // 134 is the relative humidity, 52 the dew point
        std::string says;
        classic::Rules rules = classic::Rules::Classic;
        bool ignoreLimits = false;
    };
    const Row rows[] = {
        {"none", "50", {35}, "0 indices have a value, 1 outside the limits, 221 not selected."},
        {"one", "50", {134}, "1 index has a value, 221 not selected."},
        {"more", "50", {5, 24, 35, 134}, "2 indices have a value, 2 outside the limits, 218 not selected."},
        {"no humidity has no dew point",
         "0",
         {52, 134},
         "1 index has a value, 1 failed, 220 not selected.",
         classic::Rules::Robust},
        {"limits are ignored",
         "50",
         {5, 24, 35, 134},
         "4 indices have a value (2 of them outside the limits, which are ignored), 218 not selected.",
         classic::Rules::Classic,
         true},
    };
    for (const Row& row : rows) {
        Window window("[INDICES]\nTair_max_35=50\nWS_max_35=1\n");
        window.write("30", row.RH, "2");
        window.main.Opt_Rules.select(row.rules == classic::Rules::Robust ? 1 : 0);
        window.main.Opt_Limits.select(row.ignoreLimits ? 1 : 0);
        window.main.List_Indices.selectAll(false);
        for (const int index : row.selected)
            window.main.List_Indices.setSelected(static_cast<std::size_t>(index) - 1, true);
        window.main.cmd_Calculate.setValue(true);
        EXPECT_EQ(statusLine(window.main).text, row.says) << row.name;
    }
}

TEST(StatusLine, TellsOfTheLastAction)
{
    Window window;
    classic::Frm_Main& main = window.main;
    EXPECT_EQ(statusLine(main).text, "Type the readings, then press Enter. F1 shows help.");
    window.write("20", "50", "2");
    main.cmd_Calculate.setValue(true);
    const std::string failure = main.calculation.failure().value().sentence();
    EXPECT_EQ(statusLine(main).text, failure);
    main.txt_WS.setText("");
    EXPECT_EQ(statusLine(main).text, "Of earlier readings: " + failure);
    main.cmd_Show_Results.setValue(true);
    EXPECT_EQ(statusLine(main).text, "Nothing was calculated: the wind speed is missing.");
    main.tell("The sheet has run.");
    EXPECT_EQ(statusLine(main).text, "The sheet has run.");
    window.write("-", "50", "2");
    main.cmd_Show_Results.setValue(true);
    EXPECT_EQ(statusLine(main).text, "Nothing was calculated: the air temperature is no number.");
    window.write("30", "50", "2");
    main.cmd_Calculate.setValue(true);
    EXPECT_EQ(statusLine(main).text.substr(0, 23), "60 indices have a value");
}

} // namespace
} // namespace comfortics::shell
