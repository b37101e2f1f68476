// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/last_words.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

namespace comfortics::shell {
namespace {

template <class Fault>
std::string wordsAfter(const Fault& fault)
{
    try {
        fault();
    } catch (...) {
        return lastWords();
    }
    return {};
}

TEST(LastWords, TellWhatEscapedInOneSentence)
{
    const std::string memory = "The memory does not suffice for this.";
    EXPECT_EQ(wordsAfter([] { throw std::bad_alloc(); }), memory);
    EXPECT_EQ(wordsAfter([] { std::vector<int>().resize(~std::size_t{0}); }), memory);
    EXPECT_EQ(wordsAfter([] { throw std::runtime_error("no such thing"); }),
              "An unforeseen failure ended the program: no such thing.");
    EXPECT_EQ(wordsAfter([] { throw 1; }), "An unforeseen failure ended the program.");
}

TEST(LastWordsDeathTest, ComeAlsoFromAThread)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto dieInAThread = [] {
        speakBeforeTheEnd("tool", 4);
        std::thread([] { throw std::bad_alloc(); }).join();
    };
    EXPECT_EXIT(dieInAThread(), testing::ExitedWithCode(4),
                "^tool: The memory does not suffice for this.\n$");
}

} // namespace
} // namespace comfortics::shell
