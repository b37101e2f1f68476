// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/ordered_crew.h"

#include <gtest/gtest.h>

#include <latch>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>

namespace comfortics::batch {
namespace {

using Crew = OrderedCrew<int, int>;

TEST(OrderedCrew, WorksOnAllThreadsEachWithItsOwnAndKeepsTheOrder)
{
    std::latch allAtWork(3); // opens only if three jobs are under way at once
    std::latch lastDone(1);  // the later jobs are done before the first
    std::mutex mutex;
    std::set<std::thread::id> threads;
    std::set<int> workers;
    int hired = 0;
    Crew crew(3, [&]() -> Crew::Work {
        return [&, worker = hired++](int& job) {
            allAtWork.arrive_and_wait();
            if (job == 0)
                lastDone.wait();
            else if (job == 2)
                lastDone.count_down();
            const std::lock_guard lock(mutex);
            threads.insert(std::this_thread::get_id());
            workers.insert(worker);
            return job * 3;
        };
    });
    for (int job = 0; job < 3; ++job)
        crew.submit(job);
    for (int job = 0; job < 3; ++job)
        EXPECT_EQ(crew.takeNext(), job * 3);
    EXPECT_TRUE(crew.empty());
    EXPECT_EQ(threads.size(), 3U);
    EXPECT_EQ(workers, (std::set<int>{0, 1, 2}));
}

TEST(OrderedCrew, CarriesAnExceptionToTheResultAndGoesOn)
{
    Crew crew(2, []() -> Crew::Work {
        return [](int& job) {
            if (job == 1)
                throw std::runtime_error("no good");
            return job;
        };
    });
    for (int job = 0; job < 3; ++job)
        crew.submit(job);
    EXPECT_EQ(crew.takeNext(), 0);
    EXPECT_THROW(crew.takeNext(), std::runtime_error);
    EXPECT_EQ(crew.takeNext(), 2);
}

TEST(OrderedCrew, AFailedHiringEndsNoProcess)
{
    int hired = 0;
    const auto hire = [&]() -> Crew::Work {
        if (++hired == 3)
            throw std::runtime_error("no more");
        return [](int& job) { return job; };
    };
    EXPECT_THROW(Crew(4, hire), std::runtime_error);
}

} // namespace
} // namespace comfortics::batch
