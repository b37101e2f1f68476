// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QWidget>

#include <cstddef>
#include <optional>

class QPainter;

namespace comfortics::ui {

/// A chart that a cursor is led along by the arrow keys and the mouse, and that can be saved as a picture.
/// Where there is nothing to draw it says why.
class ChartView : public QWidget {
    Q_OBJECT

public:
    /// Shows nothing, and says why.
    void showNone(const QString& why);

    /// Places the cursor, which is told by `pointRead`.
    void read(std::optional<std::size_t> place);

    enum class PictureKind { Png, Svg };
    /// The chart as a picture, with a text below it. Empty where nothing is shown.
    QByteArray picture(PictureKind kind, const QString& text);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The cursor stands at a point, or nowhere: then the text is empty.
    void pointRead(const QString& text);

protected:
    ChartView(const QString& objectName, const QString& accessibleName, QWidget* parent);

    /// How many places the cursor has; 0 where nothing is shown.
    virtual std::size_t places() const = 0;
    /// Where the cursor begins.
    virtual std::size_t startPlace() const = 0;
    /// The place that lies nearest to a point of the room.
    virtual std::size_t placeAt(double x, const QRectF& room) const = 0;
    virtual QString placeInWords(std::size_t place) const = 0;
    virtual QString title() const = 0;
    /// Paints what is shown.
    virtual void paintChart(QPainter& painter, const QRectF& room) const = 0;
    /// Forgets what is shown.
    virtual void forget() = 0;

    /// Something else is shown, or nothing for a reason.
    void shows(const QString& why, const QString& description);
    std::optional<std::size_t> cursor() const { return m_cursor; }

    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void paint(QPainter& painter, const QRectF& room) const;

    QString m_why;
    std::optional<std::size_t> m_cursor;
};

// Of all charts.
inline constexpr double kChartSpace = 6; ///< [pixel]
inline constexpr float kChartGridOpacity = 0.18F;
inline constexpr float kChartGapOpacity = 0.35F;

} // namespace comfortics::ui
