// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/grid.h"

#include <QTableView>

#include <functional>

namespace comfortics::ui {

class GridModel;

/// The view of a grid: its fixed row is the header, and selection, scroll position and clicks are
/// the grid's own. A million rows are no burden, since only visible cells are asked for.
///
/// The view is drawn larger than the grid's twips say where letters would be too small otherwise;
/// `twips` and `pixels` convert.
class GridView : public QTableView {
    Q_OBJECT

public:
    explicit GridView(controls::Grid& grid, QWidget* parent = nullptr);
    ~GridView() override;
    Q_DISABLE_COPY_MOVE(GridView)

    /// Called with the new size [twips] when the view's changes; without it the grid alone learns
    /// its size.
    void onResize(std::function<void(int width, int height)> resized) { m_resized = std::move(resized); }
    /// Called for each notch of the wheel, at a point of the grid [twips]; without it the grid
    /// scrolls by a page.
    void onWheel(std::function<void(int modifierKeys, int rotation, int x, int y)> wheel)
    {
        m_wheel = std::move(wheel);
    }
    /// Called after the current cell or the selection has moved.
    void onSelection(std::function<void()> moved) { m_moved = std::move(moved); }

    /// Numbers the rows from 1 at the left.
    void showRowNumbers();
    /// Breaks headers into lines where they are longer than their column is wide.
    void wrapHeaders();
    /// Shows a column of its own right of the grid's, with a share of the width: a text that belongs to one
    /// of the grid's columns, which a click there selects and whose note it has.
    void showBeside(const QString& heading, std::size_t ofCol, double share,
                    std::function<QString(std::size_t gridRow)> text);
    /// Hides the rows of the body that do not pass, in this view alone; an empty function shows all again.
    /// Asked anew whenever the grid changes.
    void showOnly(std::function<bool(std::size_t gridRow)> passes);
    /// Makes a row the current one and brings it into sight, its columns as they were.
    void stand(std::size_t gridRow);
    /// What stands in the table for as long as all of its cells are empty.
    void setEmptyHint(const QString& hint);

    /// Shows the texts quieter than usual.
    void setQuiet(bool quiet);

    void selectAll() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    int pixels(int twips) const;
    int twips(int pixels) const;
    void measure();
    void repeat(const controls::GridChange& change);
    void repeatLayout();
    void repeatSelection();
    void repeatScroll();
    void hideRows();
    int scrollPlace(std::size_t gridRow) const;
    std::size_t shownRow(int scrollPlace) const;
    void fitHeaderHeight();
    bool isEmpty() const;
    void tellSize();
    bool headerPress(QMouseEvent& event);
    void moveTo(const QModelIndex& index, bool extend);
    std::size_t gridCol(const QModelIndex& index) const;
    void showNote(const QPoint& position, const QPoint& onScreen);

    controls::Grid& m_grid;
    GridModel* m_model;
    std::function<void(int, int)> m_resized;
    std::function<void(int, int, int, int)> m_wheel;
    std::function<void()> m_moved;
    std::function<bool(std::size_t)> m_passes;
    QString m_emptyHint;
    std::size_t m_besideOf = 0;
    double m_besideShare = 0;
    double m_pixelsPerTwip = 1;
    int m_turned = 0; // of the wheel, less than a notch
    bool m_telling = false;
    bool m_wrapsHeaders = false;
};

} // namespace comfortics::ui
