// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/ordered_crew.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <memory>
#include <mutex>
#include <set>
#include <stdexcept>
#include <thread>
#include <vector>

namespace comfortics::batch {
namespace {

using Crew = OrderedCrew<int, int>;

TEST(OrderedCrew, HandsResultsBackInTheOrderOfTheJobs)
{
    for (const unsigned threads : {1U, 2U, 7U}) {
        Crew crew(threads, []() -> Crew::Work {
            return [](int& job) {
                // Later jobs are often done before earlier ones.
                for (int i = 0; i < (97 - job % 97) * 50; ++i)
                    std::atomic_signal_fence(std::memory_order_seq_cst);
                return job * 3;
            };
        });
        std::vector<int> results;
        for (int job = 0; job < 2000; ++job) {
            while (crew.full())
                results.push_back(crew.takeNext());
            crew.submit(job);
        }
        while (!crew.empty())
            results.push_back(crew.takeNext());
        ASSERT_EQ(results.size(), 2000U);
        for (int job = 0; job < 2000; ++job)
            ASSERT_EQ(results[static_cast<std::size_t>(job)], job * 3) << threads << " threads";
    }
}

TEST(OrderedCrew, WorksOnAllThreadsEachWithItsOwn)
{
    std::latch allAtWork(3); // opens only if three jobs are under way at once
    std::mutex mutex;
    std::set<std::thread::id> threads;
    std::set<int> workers;
    int hired = 0;
    Crew crew(3, [&]() -> Crew::Work {
        return [&, worker = hired++](int& job) {
            allAtWork.arrive_and_wait();
            const std::lock_guard lock(mutex);
            threads.insert(std::this_thread::get_id());
            workers.insert(worker);
            return job;
        };
    });
    for (int job = 0; job < 3; ++job)
        crew.submit(job);
    while (!crew.empty())
        crew.takeNext();
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
    EXPECT_TRUE(crew.empty());
}

TEST(OrderedCrew, EndsWithJobsStillOnTheWay)
{
    std::atomic<int> begun{0};
    for (int round = 0; round < 200; ++round) {
        Crew crew(2, [&]() -> Crew::Work {
            return [&](int& job) {
                ++begun;
                return job;
            };
        });
        for (int job = 0; !crew.full(); ++job)
            crew.submit(job);
    } // results not taken, jobs partly not begun
    EXPECT_LE(begun, 200 * 6);
}

TEST(OrderedCrew, AFailedHiringEndsNoProcess)
{
    int hired = 0;
    EXPECT_THROW(Crew(4,
                      [&]() -> Crew::Work {
                          if (++hired == 3)
                              throw std::runtime_error("no more");
                          return [](int& job) { return job; };
                      }),
                 std::runtime_error);
}

} // namespace
} // namespace comfortics::batch
