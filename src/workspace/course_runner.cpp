// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/course_runner.h"

#include <utility>

namespace comfortics::workspace {

CourseRunner::CourseRunner(const classic::Limits& limits, std::function<void()> finished)
    : m_limits(limits), m_finished(std::move(finished))
{
}

CourseRunner::~CourseRunner()
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

void CourseRunner::ask(CourseRequest request)
{
    {
        const std::lock_guard lock(m_mutex);
        m_request = std::move(request);
        m_course.reset();
        ++m_asked;
    }
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    m_wanted.notify_all();
}

void CourseRunner::cancel()
{
    const std::lock_guard lock(m_mutex);
    m_request.reset();
    m_course.reset();
    ++m_asked;
}

std::optional<Course> CourseRunner::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_course, std::nullopt);
}

void CourseRunner::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wanted.wait(lock, [this] { return m_ends || m_request; });
        if (m_ends)
            return;
        const CourseRequest request = *std::exchange(m_request, std::nullopt);
        const unsigned asked = m_asked;
        lock.unlock();
        Course course = courseOf(m_limits, request, [this, asked] {
            const std::lock_guard check(m_mutex);
            return m_asked == asked;
        });
        lock.lock();
        if (m_asked != asked)
            continue;
        m_course = std::move(course);
        lock.unlock();
        m_finished();
        lock.lock();
    }
}

} // namespace comfortics::workspace
