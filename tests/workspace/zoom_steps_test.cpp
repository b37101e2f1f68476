// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/zoom_steps.h"

#include <gtest/gtest.h>

#include <climits>

namespace comfortics::workspace {
namespace {

TEST(Zoom, StepsUpAndDownAndStaysAtTheEnds)
{
    EXPECT_EQ(nextZoom(100, true), 110);
    EXPECT_EQ(nextZoom(100, false), 90);
    EXPECT_EQ(nextZoom(75, false), 75);
    EXPECT_EQ(nextZoom(300, true), 300);
    EXPECT_EQ(nearestZoom(137), 125);
    EXPECT_EQ(nearestZoom(INT_MIN), 75);
    EXPECT_EQ(nearestZoom(INT_MAX), 300);
}

TEST(Zoom, IsKeptAndCountsAsOriginalWhereItMakesNoSense)
{
    TransientPreferences preferences;
    EXPECT_EQ(keptZoom(preferences), 100);
    keepZoom(preferences, 150);
    EXPECT_EQ(keptZoom(preferences), 150);
    for (const char* const text : {"", "150 ", "-150", "151", "100000", "9999999999999999999", "much"}) {
        preferences.write("window/zoom", text);
        EXPECT_EQ(keptZoom(preferences), 100) << text;
    }
}

} // namespace
} // namespace comfortics::workspace
