// SPDX-License-Identifier: GPL-3.0-or-later
//
// Small widgets that the windows share.
#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>

namespace comfortics::ui {

/// The spaces between the parts of a window, and between what belongs together [pixel].
inline constexpr int kGap = 12;
inline constexpr int kSmallGap = 6;

/// Names a widget for tests, screen readers and hovering; the object name is that of the form's control.
void nameWidget(QWidget& widget, const QString& objectName, const QString& accessibleName,
                const QString& hint);

/// A panel with a heading, its content below.
class Card : public QFrame {
    Q_OBJECT

public:
    /// Takes the layout of the content over.
    Card(const QString& heading, QLayout* content, QWidget* parent = nullptr);

    QLabel& heading() { return *m_heading; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_heading;
};

/// One line of text that is cut with an ellipsis where it does not fit; the tooltip has all of it.
class CutLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    void showText(const QString& text);
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A menu bar that shows the tips of its entries, of greyed ones too.
class MenuBar : public QMenuBar {
    Q_OBJECT

public:
    using QMenuBar::QMenuBar;

protected:
    bool event(QEvent* event) override;
};

/// Lets its content shrink no further than legible and scrolls it then.
class ContentArea : public QScrollArea {
    Q_OBJECT

public:
    explicit ContentArea(QWidget* content, QWidget* parent = nullptr);

    /// What stands beside it gives way until it has the least width of its content, but no more than `most`,
    /// and `beyond` [pixel].
    void claimWidth(int most, int beyond);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int m_most = 0;
    int m_beyond = 0;
};

/// A line with the picture of a search and a button that clears it.
QLineEdit* searchLine(const QString& hint);

/// A label in quieter text than its surroundings.
QLabel* quietLabel(const QString& text);

} // namespace comfortics::ui
