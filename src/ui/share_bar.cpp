// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/share_bar.h"

#include "ui/widgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include <cmath>

namespace comfortics::ui {

namespace {

constexpr int kSteps = 1000;
constexpr std::chrono::milliseconds kTick{100};
constexpr double kLeastShare = 0.01; // from which a time is guessed

} // namespace

QString timeLeft(double seconds)
{
    const auto whole = static_cast<long>(std::ceil(seconds));
    return whole < 90 ? QStringLiteral("%1 s left").arg(whole)
                      : QStringLiteral("%1 min left").arg((whole + 30) / 60);
}

ShareBar::ShareBar(const QString& accessibleName, QWidget* parent)
    : QWidget(parent), m_bar(new QProgressBar), m_left(new QLabel)
{
    m_bar->setRange(0, kSteps);
    m_bar->setAccessibleName(accessibleName);
    m_left->setObjectName(QStringLiteral("lbl_Left"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_bar, 1);
    layout->addWidget(m_left);
    m_ticks.setInterval(kTick);
    connect(&m_ticks, &QTimer::timeout, this, &ShareBar::follow);
    hide();
}

void ShareBar::begin()
{
    *m_share = 0;
    m_begun = std::chrono::steady_clock::now();
    follow();
    m_ticks.start();
    show();
}

void ShareBar::end()
{
    m_ticks.stop();
    hide();
}

void ShareBar::follow()
{
    const double share = *m_share;
    m_bar->setValue(static_cast<int>(std::lround(share * kSteps)));
    const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - m_begun;
    m_left->setText(share < kLeastShare               ? QString()
                    : share >= 1 && !m_last.isEmpty() ? m_last
                                                      : timeLeft(gone.count() / share - gone.count()));
}

} // namespace comfortics::ui
