// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/situation_runner.h"

#include <utility>

namespace comfortics::ui {

SituationRunner::SituationRunner(const classic::Limits& limits, Arrived arrived)
    : m_arrived(std::move(arrived)),
      m_runner(
          [&limits](const classic::Inputs& inputs, const auto&) {
              return std::make_shared<const workspace::Situation>(workspace::evaluate(limits, inputs));
          },
          [this] { QMetaObject::invokeMethod(this, &SituationRunner::hand, Qt::QueuedConnection); })
{
}

void SituationRunner::hand()
{
    if (auto situation = m_runner.take())
        m_arrived(std::move(*situation));
}

} // namespace comfortics::ui
