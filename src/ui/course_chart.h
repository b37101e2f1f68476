// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/axis.h"

#include <QByteArray>
#include <QWidget>

#include <optional>
#include <vector>

class QPainter;

namespace comfortics::ui {

/// The course of an index over a reading: the curve over the bands of its classes, gaps where it has no
/// value, and the present point. The arrow keys and the mouse lead a cursor along it.
class CourseChart : public QWidget {
    Q_OBJECT

public:
    explicit CourseChart(QWidget* parent = nullptr);

    void show(workspace::Course course);
    /// Shows no curve, and says why.
    void showNone(const QString& why);
    /// Null where none is shown.
    const workspace::Course* course() const { return m_course ? &*m_course : nullptr; }

    /// Beside a pole the curve goes farther than is shown.
    bool curveLeaves() const;

    /// Places the cursor, which is told by `pointRead`.
    void read(std::optional<std::size_t> place);

    enum class PictureKind { Png, Svg };
    /// The chart as a picture, with a line of text below it. Empty where there is no curve.
    QByteArray picture(PictureKind kind, const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The cursor stands at a point, or nowhere: then the text is empty.
    void pointRead(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    struct Frame;
    Frame frameIn(const QRectF& room) const;
    void paint(QPainter& painter, const QRectF& room) const;
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
    QString m_why;
    workspace::Axis m_readings;
    workspace::Axis m_values;
    std::optional<std::size_t> m_cursor;
};

} // namespace comfortics::ui
