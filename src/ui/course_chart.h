// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/chart_view.h"
#include "workspace/axis.h"

#include <optional>
#include <vector>

namespace comfortics::ui {

/// The course of an index over a reading: the curve over the bands of its classes, gaps where it has no
/// value, and the present point.
class CourseChart : public ChartView {
    Q_OBJECT

public:
    explicit CourseChart(QWidget* parent = nullptr);

    void show(workspace::Course course);
    /// Null where none is shown.
    const workspace::Course* course() const { return m_course ? &*m_course : nullptr; }

    /// Beside a pole the curve goes farther than is shown.
    bool curveLeaves() const;

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
    Frame frameIn(const QRectF& room) const;
    struct Run;
    template <typename Is>
    std::vector<Run> runsOf(Is is) const;
    void paintBands(QPainter& painter, const Frame& frame) const;
    void paintBandLabels(QPainter& painter, const Frame& frame) const;
    void paintGaps(QPainter& painter, const Frame& frame) const;
    void paintAxes(QPainter& painter, const Frame& frame) const;
    void paintCurve(QPainter& painter, const Frame& frame) const;
    void paintPresent(QPainter& painter, const Frame& frame) const;
    QString valueAxisTitle(double room) const;
    QString readingAxisTitle() const;

    std::optional<workspace::Course> m_course;
    workspace::Axis m_readings;
    workspace::Axis m_values;
};

} // namespace comfortics::ui
