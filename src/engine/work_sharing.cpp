// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/work_sharing.h"

#include "values/float_flags.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace comfortics::engine {

namespace {

/// Progress is told no more often than this.
constexpr std::chrono::milliseconds kBetweenReports(20);

class Sharing {
public:
    Sharing(std::size_t count, std::size_t share, const Options& options,
            const std::function<std::unique_ptr<Worker>()>& make)
        : m_count(count), m_share(share), m_progress(options.progress), m_make(make)
    {
    }

    /// What each thread does.
    void run() noexcept
    {
        try {
            const std::unique_ptr<Worker> worker = m_make();
            while (!m_ended) {
                const std::size_t first = m_next.fetch_add(m_share);
                if (first >= m_count)
                    break;
                const std::size_t size = std::min(m_share, m_count - first);
                {
                    const values::FloatFlags flags;
                    worker->work(first, size);
                }
                tell(m_done += size);
            }
        } catch (...) {
            end(std::current_exception());
        }
    }

    /// Keeps the first exception, and lets no thread begin a share.
    void end(std::exception_ptr exception) noexcept
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
        if (!m_exception)
            m_exception = std::move(exception);
    }

    /// Shares are handed out in order and each is finished, so what is done has no gap.
    std::size_t result() const
    {
        if (m_exception)
            std::rethrow_exception(m_exception);
        return m_done;
    }

private:
    void tell(std::size_t done)
    {
        if (!m_progress)
            return;
        const std::unique_lock lock(m_mutex, std::try_to_lock);
        if (!lock.owns_lock() || m_ended)
            return;
        const auto now = std::chrono::steady_clock::now();
        if (done < m_count && now - m_told < kBetweenReports)
            return;
        m_told = now;
        if (!m_progress(done))
            m_ended = true;
    }

    const std::size_t m_count;
    const std::size_t m_share;
    const std::function<bool(std::size_t)>& m_progress;
    const std::function<std::unique_ptr<Worker>()>& m_make;
    std::atomic<std::size_t> m_next = 0;
    std::atomic<std::size_t> m_done = 0;
    std::atomic<bool> m_ended = false;
    std::mutex m_mutex;
    std::chrono::steady_clock::time_point m_told = std::chrono::steady_clock::now();
    std::exception_ptr m_exception;
};

} // namespace

std::size_t shareWork(std::size_t count, std::size_t share, const Options& options,
                      const std::function<std::unique_ptr<Worker>()>& make)
{
    if (count == 0)
        return 0;
    const std::size_t wanted =
        options.threads == 0 ? std::max(1U, std::thread::hardware_concurrency()) : options.threads;
    const std::size_t threads = std::min(wanted, (count - 1) / share + 1);
    Sharing sharing(count, share, options, make);
    {
        std::vector<std::jthread> others;
        try {
            others.reserve(threads - 1);
            while (others.size() + 1 < threads)
                others.emplace_back([&] { sharing.run(); });
        } catch (...) {
            sharing.end(std::current_exception());
        }
        sharing.run();
    }
    return sharing.result();
}

} // namespace comfortics::engine
