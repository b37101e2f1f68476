// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/situation_runner.h"

#include <utility>

namespace comfortics::workspace {

SituationRunner::SituationRunner(const classic::Limits& limits, std::function<void()> finished)
    : m_limits(limits), m_finished(std::move(finished))
{
}

SituationRunner::~SituationRunner()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_wanted.notify_all();
    if (m_thread.joinable())
        m_thread.join();
}

void SituationRunner::ask(const classic::Inputs& inputs)
{
    {
        const std::lock_guard lock(m_mutex);
        m_inputs = inputs;
        m_situation.reset();
    }
    if (!m_thread.joinable())
        m_thread = std::thread([this] { run(); });
    m_wanted.notify_all();
}

std::shared_ptr<const Situation> SituationRunner::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_situation, nullptr);
}

void SituationRunner::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_wanted.wait(lock, [this] { return m_ends || m_inputs; });
        if (m_ends)
            return;
        const classic::Inputs inputs = *std::exchange(m_inputs, std::nullopt);
        lock.unlock();
        auto situation = std::make_shared<const Situation>(evaluate(m_limits, inputs));
        lock.lock();
        if (m_inputs || m_ends)
            continue;
        m_situation = std::move(situation);
        lock.unlock();
        m_finished();
        lock.lock();
    }
}

} // namespace comfortics::workspace
