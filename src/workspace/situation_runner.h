// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/situation.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace comfortics::workspace {

/// Calculates situations on a thread of its own, so that whoever asks never waits. Only what was asked for
/// last counts: what waits is replaced, and what is under way comes to nothing.
class SituationRunner {
public:
    /// `finished` is told on the runner's thread, soon after which take() has a situation. The limits must
    /// outlive the runner.
    SituationRunner(const classic::Limits& limits, std::function<void()> finished);
    /// Waits for the situation that is being calculated.
    ~SituationRunner();
    SituationRunner(const SituationRunner&) = delete;
    SituationRunner& operator=(const SituationRunner&) = delete;

    void ask(const classic::Inputs& inputs);
    /// The situation that was asked for last, once it is there; null before and after.
    std::shared_ptr<const Situation> take();

private:
    void run();

    const classic::Limits& m_limits;
    std::function<void()> m_finished;
    std::mutex m_mutex;
    std::condition_variable m_wanted;
    // Under the mutex.
    std::optional<classic::Inputs> m_inputs;
    std::shared_ptr<const Situation> m_situation;
    bool m_ends = false;
    std::thread m_thread; // from the first request on
};

} // namespace comfortics::workspace
