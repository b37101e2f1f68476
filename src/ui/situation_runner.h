// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/latest_runner.h"
#include "workspace/situation.h"

#include <QObject>

#include <functional>
#include <memory>

namespace comfortics::ui {

/// Calculates situations beside the thread of the windows, and hands the one that was asked for last to
/// somebody in it.
class SituationRunner : public QObject {
    Q_OBJECT

public:
    using Arrived = std::function<void(std::shared_ptr<const workspace::Situation>)>;

    /// The limits must outlive the runner.
    SituationRunner(const classic::Limits& limits, Arrived arrived);

    void ask(const classic::Inputs& inputs) { m_runner.ask(inputs); }

private:
    void hand();

    Arrived m_arrived;
    workspace::LatestRunner<classic::Inputs, std::shared_ptr<const workspace::Situation>> m_runner;
};

} // namespace comfortics::ui
