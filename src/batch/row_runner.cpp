// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_runner.h"

namespace comfortics::batch {

void RowCounts::add(RowStatus status)
{
    switch (status) {
    case RowStatus::Calculated:
        ++calculated;
        break;
    case RowStatus::Skipped:
        ++skipped;
        break;
    case RowStatus::Failed:
        ++failed;
        break;
    }
}

void RowCounts::add(const RowCounts& other)
{
    calculated += other.calculated;
    skipped += other.skipped;
    failed += other.failed;
    lostValues += other.lostValues;
}

RowRunner::RowRunner(const classic::Limits& limits, const classic::Settings& settings)
    : m_settings(settings), m_calculation(limits, m_messages)
{
}

RowStatus RowRunner::run(const std::array<std::string_view, classic::kReadingCount>& readings)
{
    m_calculation.readings.clear();
    m_calculation.readings.write(readings);
    return runBoxes();
}

RowStatus RowRunner::runBoxes()
{
    m_messages.forgetTexts();
    RowStatus status = RowStatus::Skipped;
    if (m_calculation.readings.complete()) {
        switch (m_calculation.run(m_settings)) {
        case classic::RunStatus::Ok:
            status = RowStatus::Calculated;
            if (m_settings.rules != classic::Rules::Classic)
                countLostValues();
            break;
        case classic::RunStatus::Failed:
            status = RowStatus::Failed;
            break;
        case classic::RunStatus::Rejected:
            break;
        }
    }
    switch (status) {
    case RowStatus::Calculated:
        m_statusText = "ok";
        break;
    case RowStatus::Failed:
        m_statusText = "failed: " + m_calculation.failure()->sentence();
        break;
    case RowStatus::Skipped:
        m_statusText = "skipped: " + m_calculation.readings.whatIsWrong();
        break;
    }
    m_counts.add(status);
    return status;
}

void RowRunner::countLostValues()
{
    for (int index = 1; index <= catalogue::kLastIndex; ++index)
        if (m_calculation.outcome(index).kind == classic::OutcomeKind::RunFailed)
            ++m_counts.lostValues;
}

} // namespace comfortics::batch
