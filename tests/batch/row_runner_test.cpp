// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_runner.h"

#include "batch_desk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::batch {
namespace {

using Readings = std::array<std::string_view, core::kReadingCount>; // Ta Tg SR Td RH WS
using enum RowStatus;

TEST(RowRunner, SaysWhatBecameOfARowThatStartsFromEmptyBoxes)
{
    const std::vector<std::pair<Readings, std::string>> rows{
        {{"30", "abc", "600", "", "50", "0"}, "ok"},
        {{"30,5", "", "600", "20", "", "2,5"}, "ok"},
        // The dew point of the row before would stand, as it is written anew without a change.
        {{"10", "", "600", "20", "", "2"}, "skipped: dew point or relative humidity is missing"},
        {{"30", "", "", "", "50", "2"}, "skipped: globe temperature or solar radiation is missing"},
        {{"", "", "600", "", "50", "2"}, "skipped: the air temperature is missing"},
        {{"-", "", "600", "", "50", "2"}, "skipped: the air temperature is no number"},
        {{"30", "", "600", "", "50", "calm"}, "skipped: the wind speed is missing"},
        {{"20", "", "600", "9.3", "", "2"},
         "failed: The calculation stopped in the Universal Thermal Climate Index: the dew point 9.3 reads "
         "above the air temperature 20 (the two are compared as texts)"},
    };
    RowRunner runner(tests::projectLimits(), {});
    for (const auto& [readings, text] : rows) {
        const RowStatus status = runner.run(readings);
        EXPECT_EQ(status, text == "ok" ? Calculated : text[0] == 's' ? Skipped : Failed) << text;
        EXPECT_EQ(runner.statusText().substr(0, text.size()), text);
    }
    EXPECT_EQ(runner.counts().calculated, 2U);
    EXPECT_EQ(runner.counts().skipped, 5U);
    EXPECT_EQ(runner.counts().failed, 1U);
}

TEST(Rules, NoRobustRunFailsAndClassicTextsStay)
{
    for (const bool ignoreLimits : {false, true}) {
        core::Settings classic;
        classic.ignoreLimits = ignoreLimits;
        // With its limits ignored, index 196 ends every classic run that lacks one of its boxes.
        classic.selection.set(196, !ignoreLimits);
        core::Settings robust = classic;
        robust.rules = core::Rules::Robust;
        robust.selection.set(196, true);
        RowRunner classicRows(tests::projectLimits(), classic);
        RowRunner robustRows(tests::projectLimits(), robust);
        const std::uint32_t seed = 196;
        for (const tests::Cells& row : tests::randomRows(1200, seed)) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", " + testing::PrintToString(row));
            const Readings readings{row[0], row[1], row[2], row[3], row[4], row[5]};
            const RowStatus status = classicRows.run(readings);
            ASSERT_EQ(robustRows.run(readings), status == Skipped ? Skipped : Calculated);
            for (std::size_t i = 1; i <= core::kIndexCount && status == Calculated; ++i) {
                if (i != 196) {
                    ASSERT_EQ(robustRows.calculation().results.lbl_results[i].caption(),
                              classicRows.calculation().results.lbl_results[i].caption())
                        << i;
                }
            }
        }
        // The survey is worth something only if it meets what the classic rules refuse.
        EXPECT_GT(classicRows.counts().failed, 100U);
        EXPECT_GT(classicRows.counts().calculated, 100U);
    }
}

} // namespace
} // namespace comfortics::batch
