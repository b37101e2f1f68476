// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/ordered_crew.h"

#include <gtest/gtest.h>

#include <latch>
#include <stdexcept>
#include <thread>

namespace comfortics::batch {
namespace {

using Crew = OrderedCrew<int, int>;

TEST(OrderedCrew, WorksOnAllThreadsAndKeepsTheOrderAlsoOfExceptions)
{
    std::latch allAtWork(3); // opens only if three jobs are under way at once
    std::latch lastDone(1);  // the later jobs are done before the first
    int hired = 0;
    Crew crew(3, [&]() -> Crew::Work {
        ++hired;
        return [&](int& job) {
            allAtWork.arrive_and_wait();
            if (job == 0)
                lastDone.wait();
            else if (job == 2)
                lastDone.count_down();
            if (job == 1)
                throw std::runtime_error("no good");
            return job * 3;
        };
    });
    for (int job = 0; job < 3; ++job)
        crew.submit(job);
    EXPECT_EQ(crew.takeNext(), 0);
    EXPECT_THROW(crew.takeNext(), std::runtime_error);
    EXPECT_EQ(crew.takeNext(), 6);
    EXPECT_TRUE(crew.empty());
    EXPECT_EQ(hired, 3) << "each thread has its own";
}

TEST(OrderedCrew, WithoutThreadsTheOwnerWorks)
{
    const auto owner = std::this_thread::get_id();
    Crew crew(0, [&]() -> Crew::Work {
        return [&](int& job) {
            EXPECT_EQ(std::this_thread::get_id(), owner);
            if (job == 1)
                throw std::runtime_error("no good");
            return job * 3;
        };
    });
    int job = 0;
    for (; !crew.full(); ++job)
        crew.submit(job);
    EXPECT_GT(job, 2);
    EXPECT_TRUE(crew.nextIsDone(std::chrono::milliseconds(0))) << "no use in waiting";
    EXPECT_EQ(crew.takeNext(), 0);
    EXPECT_THROW(crew.takeNext(), std::runtime_error);
    EXPECT_EQ(crew.takeNext(), 6);
}

} // namespace
} // namespace comfortics::batch
