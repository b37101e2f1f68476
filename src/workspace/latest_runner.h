// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace comfortics::workspace {

/// Calculates on a thread of its own, so that whoever asks never waits. Of several requests only the last one
/// counts: what waits is replaced, and what is under way comes to nothing.
template <class Request, class Result>
class LatestRunner {
public:
    /// Whether the result is still wanted. A long calculation asks now and then and ends at once where it is
    /// not; what it answers then is of no account.
    using GoOn = std::function<bool()>;
    using Calculate = std::function<Result(const Request& request, const GoOn& goOn)>;

    /// Both are called on the runner's thread, `finished` soon after which take() has a result. What they
    /// refer to must outlive the runner.
    LatestRunner(Calculate calculate, std::function<void()> finished)
        : m_calculate(std::move(calculate)), m_finished(std::move(finished))
    {
    }

    /// Waits for what is under way.
    ~LatestRunner()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_ends = true;
            ++m_asked;
        }
        m_wanted.notify_all();
        if (m_thread.joinable())
            m_thread.join();
    }

    LatestRunner(const LatestRunner&) = delete;
    LatestRunner& operator=(const LatestRunner&) = delete;

    void ask(Request request)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_request = std::move(request);
            m_result.reset();
            ++m_asked;
        }
        if (!m_thread.joinable())
            m_thread = std::thread([this] { run(); });
        m_wanted.notify_all();
    }

    /// Nothing is wanted any more.
    void cancel()
    {
        const std::lock_guard lock(m_mutex);
        m_request.reset();
        m_result.reset();
        ++m_asked;
    }

    /// What was asked for last, once it is there; none before and after.
    std::optional<Result> take()
    {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_result, std::nullopt);
    }

private:
    void run()
    {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_wanted.wait(lock, [this] { return m_ends || m_request; });
            if (m_ends)
                return;
            const Request request = *std::exchange(m_request, std::nullopt);
            const unsigned asked = m_asked;
            lock.unlock();
            Result result = m_calculate(request, [this, asked] {
                const std::lock_guard check(m_mutex);
                return m_asked == asked;
            });
            lock.lock();
            if (m_asked != asked)
                continue;
            m_result = std::move(result);
            lock.unlock();
            m_finished();
            lock.lock();
        }
    }

    Calculate m_calculate;
    std::function<void()> m_finished;
    std::mutex m_mutex;
    std::condition_variable m_wanted;
    // Under the mutex.
    std::optional<Request> m_request;
    std::optional<Result> m_result;
    unsigned m_asked = 0; // how often something was asked for or cancelled
    bool m_ends = false;
    std::thread m_thread; // from the first request on
};

} // namespace comfortics::workspace
