// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/kept_bytes.h"

#include <gtest/gtest.h>

namespace comfortics::workspace {
namespace {

TEST(KeptBytes, ComeBackAndTellEachDamage)
{
    TransientPreferences preferences;
    EXPECT_EQ(keptBytes(preferences, "a"), std::nullopt);
    const std::string bytes("\x00\xff window \n", 11);
    keepBytes(preferences, "a", bytes);
    EXPECT_EQ(keptBytes(preferences, "a"), bytes);
    EXPECT_EQ(bytesOfText(textOfBytes("")), "");

    const std::string whole = textOfBytes(bytes);
    EXPECT_EQ(textOfBytes("a"), "af63dc4c8601ec8c61") << "the published sum of this letter";
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string damaged = whole;
        damaged[i] = damaged[i] == '0' ? '1' : '0';
        EXPECT_EQ(bytesOfText(damaged), std::nullopt) << i;
        EXPECT_EQ(bytesOfText(whole.substr(0, i)), std::nullopt) << i;
        damaged[i] = 'x';
        EXPECT_EQ(bytesOfText(damaged), std::nullopt) << i;
    }
    EXPECT_EQ(bytesOfText(whole + "00"), std::nullopt);
}

} // namespace
} // namespace comfortics::workspace
