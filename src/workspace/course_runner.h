// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/course.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace comfortics::workspace {

/// Calculates courses on a thread of its own, so that whoever asks never waits. Only the course that was
/// asked for last counts: an earlier one ends unfinished.
class CourseRunner {
public:
    /// `finished` is told on the runner's thread, soon after which take() has a course. The limits must
    /// outlive the runner.
    CourseRunner(const classic::Limits& limits, std::function<void()> finished);
    /// Waits for the point that is being calculated.
    ~CourseRunner();
    CourseRunner(const CourseRunner&) = delete;
    CourseRunner& operator=(const CourseRunner&) = delete;

    void ask(CourseRequest request);
    /// Nothing is wanted any more.
    void cancel();
    /// The course that was asked for last, once it is there.
    std::optional<Course> take();

private:
    void run();

    const classic::Limits& m_limits;
    std::function<void()> m_finished;
    std::mutex m_mutex;
    std::condition_variable m_wanted;
    // Under the mutex.
    std::optional<CourseRequest> m_request;
    std::optional<Course> m_course;
    unsigned m_asked = 0; // how often something was asked for or cancelled
    bool m_ends = false;
    std::thread m_thread; // from the first request on
};

} // namespace comfortics::workspace
