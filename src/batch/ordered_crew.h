// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <future>
#include <mutex>
#include <optional>
#include <stop_token>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include <pthread.h>

namespace comfortics::batch {

/// Threads that start while it lives hear no request to end: it is for the thread that waits for
/// files, whose wait it interrupts.
class WithoutSignals {
public:
    WithoutSignals()
    {
        sigset_t requests;
        ::sigemptyset(&requests);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGALRM})
            ::sigaddset(&requests, signal);
        ::pthread_sigmask(SIG_BLOCK, &requests, &m_before);
    }
    ~WithoutSignals() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    WithoutSignals(const WithoutSignals&) = delete;
    WithoutSignals& operator=(const WithoutSignals&) = delete;

private:
    sigset_t m_before{};
};

/// Works on jobs on several threads and hands the results back in the order of the jobs.
///
/// One thread, the owner, submits and takes. No more than a few jobs for each thread are on the way
/// at a time, so that memory does not grow with the number of jobs.
template <class Job, class Result>
class OrderedCrew {
public:
    /// What one thread does with each of its jobs.
    using Work = std::function<Result(Job&)>;

    /// `hire` is called here, once for each thread; what it gives is used on that thread alone.
    /// Works with fewer threads where the system grants no more. Without any, as also where none is
    /// asked for, the owner works on a job when it takes the result.
    OrderedCrew(unsigned threads, const std::function<Work()>& hire)
    {
        const WithoutSignals quiet;
        m_threads.reserve(threads);
        while (m_threads.size() < threads && start(hire())) {
        }
        if (m_threads.empty())
            m_own = hire();
        m_mostOnTheWay = std::max<std::size_t>(1, m_threads.size()) * kJobsPerThread;
    }
    OrderedCrew(const OrderedCrew&) = delete;
    OrderedCrew& operator=(const OrderedCrew&) = delete;

    /// Jobs that no thread has begun are dropped, the others are waited for.
    ~OrderedCrew()
    {
        for (std::jthread& thread : m_threads)
            thread.request_stop();
    }

    /// Results have to be taken before more is submitted.
    bool full() const { return m_results.size() >= m_mostOnTheWay; }
    /// Nothing is on the way.
    bool empty() const { return m_results.empty(); }

    void submit(Job job)
    {
        Order order{std::move(job), {}};
        m_results.push_back(order.promise.get_future());
        {
            const std::lock_guard lock(m_mutex);
            m_orders.push_back(std::move(order));
        }
        m_arrived.notify_one();
    }

    /// Waits up to that long; true if the oldest job on the way is done.
    bool nextIsDone(std::chrono::milliseconds atMost) const
    {
        return m_own.has_value() || m_results.front().wait_for(atMost) == std::future_status::ready;
    }

    /// Waits for the oldest job on the way. Throws what the work on it threw.
    Result takeNext()
    {
        std::future<Result> next = std::move(m_results.front());
        m_results.pop_front();
        if (m_own) {
            Order order = std::move(m_orders.front());
            m_orders.pop_front();
            carryOut(*m_own, order);
        }
        return next.get();
    }

private:
    static constexpr std::size_t kJobsPerThread = 3;

    struct Order {
        Job job;
        std::promise<Result> promise;
    };

    // False where the system grants no thread.
    bool start(Work work)
    {
        try {
            m_threads.emplace_back(
                [this, work = std::move(work)](const std::stop_token& stop) { serve(work, stop); });
            return true;
        } catch (const std::system_error&) {
            return false;
        }
    }

    void serve(const Work& work, const std::stop_token& stop)
    {
        for (;;) {
            std::unique_lock lock(m_mutex);
            m_arrived.wait(lock, stop, [this] { return !m_orders.empty(); });
            if (stop.stop_requested())
                return;
            Order order = std::move(m_orders.front());
            m_orders.pop_front();
            lock.unlock();
            carryOut(work, order);
        }
    }

    static void carryOut(const Work& work, Order& order)
    {
        try {
            order.promise.set_value(work(order.job));
        } catch (...) { // carried to whoever takes the result
            order.promise.set_exception(std::current_exception());
        }
    }

    std::size_t m_mostOnTheWay = 0;
    std::deque<std::future<Result>> m_results; // of the owner's thread only
    std::mutex m_mutex;
    std::condition_variable_any m_arrived;
    std::deque<Order> m_orders;          // not begun yet
    std::optional<Work> m_own;           // what the owner does, without threads
    std::vector<std::jthread> m_threads; // last: stopped and joined before what they use goes
};

} // namespace comfortics::batch
