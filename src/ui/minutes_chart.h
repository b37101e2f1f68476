// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/chart_view.h"
#include "workspace/minutes_course.h"

#include <optional>

namespace comfortics::ui {

/// The course of a model over the minutes: body, sweat and loss of water below one another, with a line where
/// a limit is reached. What lies behind the end of the exposure is hatched.
class MinutesChart : public ChartView {
    Q_OBJECT

public:
    explicit MinutesChart(QWidget* parent = nullptr);

    void show(workspace::MinutesCourse course);
    /// Null where none is shown.
    const workspace::MinutesCourse* course() const { return m_course ? &*m_course : nullptr; }

protected:
    std::size_t places() const override;
    std::size_t startPlace() const override;
    std::size_t placeAt(double x, const QRectF& room) const override;
    QString placeInWords(std::size_t place) const override;
    QString title() const override;
    void paintChart(QPainter& painter, const QRectF& room) const override;
    void forget() override { m_course.reset(); }

private:
    struct Frame;
    double numbersWidth() const;
    Frame frameIn(const QRectF& room, std::size_t panel) const;
    void paintAxes(QPainter& painter, const Frame& frame, std::size_t panel) const;
    void paintTitle(QPainter& painter, const Frame& frame, const workspace::MinutesPanel& panel) const;
    void paintCurves(QPainter& painter, const Frame& frame, const workspace::MinutesPanel& panel) const;
    void paintMarks(QPainter& painter, const Frame& frame, std::size_t panel) const;
    void paintLabels(QPainter& painter, const Frame& frame, std::size_t panel) const;

    std::optional<workspace::MinutesCourse> m_course;
    workspace::Axis m_minutes;
};

} // namespace comfortics::ui
