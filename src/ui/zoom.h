// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/zoom_steps.h"

#include <QFont>
#include <QObject>

namespace comfortics::ui {

/// The size of the letters in all windows of the program, of those open and those to come.
class Zoom : public QObject {
    Q_OBJECT

public:
    explicit Zoom(QObject* parent = nullptr);
    /// Leaves the letters as they were.
    ~Zoom() override;

    int percent() const noexcept { return m_percent; }
    /// Takes the nearest size that there is.
    void setPercent(int percent);

signals:
    void changed(int percent);

private:
    QFont m_font; // at 100 %
    int m_percent = workspace::kZoomOriginal;
};

} // namespace comfortics::ui
