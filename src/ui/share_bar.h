// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

#include <atomic>
#include <chrono>
#include <memory>

class QLabel;
class QProgressBar;

namespace comfortics::ui {

/// "12 s left", "3 min left".
QString timeLeft(double seconds);

/// How far is what runs beside the windows' thread, and how long it still takes. Seen while it runs.
class ShareBar : public QWidget {
    Q_OBJECT

public:
    explicit ShareBar(const QString& accessibleName, QWidget* parent = nullptr);

    void begin();
    void end();
    /// What any thread tells, from 0 to 1, even one that outlives the bar.
    std::shared_ptr<std::atomic<double>> share() const { return m_share; }
    /// What is said in place of a time from 1 on, where something follows that tells no share.
    void setLast(const QString& words) { m_last = words; }

private:
    void follow();

    QProgressBar* m_bar;
    QLabel* m_left;
    QTimer m_ticks;
    QString m_last;
    std::shared_ptr<std::atomic<double>> m_share = std::make_shared<std::atomic<double>>(0.0);
    std::chrono::steady_clock::time_point m_begun;
};

} // namespace comfortics::ui
