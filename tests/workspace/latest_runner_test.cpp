// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/latest_runner.h"

#include <gtest/gtest.h>

#include <semaphore>
#include <vector>

namespace comfortics::workspace {
namespace {

constexpr int kEndless = 1; // a request whose calculation goes on for as long as it is wanted

struct Counting {
    std::binary_semaphore began{0};
    std::counting_semaphore<> finished{0};
    std::vector<int> calculated; // by the runner's thread, before it tells
    LatestRunner<int, int> runner{[this](int request, const auto& goOn) {
                                      if (request == kEndless) {
                                          began.release();
                                          while (goOn())
                                              std::this_thread::yield();
                                      }
                                      calculated.push_back(request);
                                      return 10 * request;
                                  },
                                  [this] { finished.release(); }};
};

TEST(LatestRunner, AnswersTheLastOfManyRequests)
{
    Counting counting;
    counting.runner.ask(kEndless);
    counting.began.acquire();
    std::optional<int> result;
    for (const int request : {2, 3, 4})
        counting.runner.ask(request);
    while (result != 40) { // 2 and 3 may have been quick enough to be told
        counting.finished.acquire();
        if (auto one = counting.runner.take())
            result = one;
    }
    EXPECT_EQ(counting.runner.take(), std::nullopt) << "it is handed out once";
    EXPECT_EQ(counting.calculated.front(), kEndless) << "which was under way, and is told nobody";
}

TEST(LatestRunner, EndsWhatNobodyWants)
{
    Counting counting;
    counting.runner.ask(kEndless);
    counting.began.acquire();
    counting.runner.cancel();
    counting.runner.ask(2);
    counting.finished.acquire();
    EXPECT_EQ(counting.runner.take(), 20);
    EXPECT_EQ(counting.calculated, (std::vector{kEndless, 2}));
    counting.runner.ask(kEndless); // and its end does so, too
    counting.began.acquire();
}

} // namespace
} // namespace comfortics::workspace
