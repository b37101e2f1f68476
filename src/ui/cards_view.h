// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/workspace.h"

#include <QAbstractListModel>
#include <QListView>

#include <string>
#include <vector>

namespace comfortics::ui {

/// The indices of the chosen set that this version knows.
class CardsModel : public QAbstractListModel {
    Q_OBJECT

public:
    CardsModel(workspace::Workspace& workspace, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// Number of the index of a card.
    int indexAt(int row) const { return m_indices.at(static_cast<std::size_t>(row)); }
    const workspace::Workspace& workspace() const { return m_workspace; }

    void repeatSet();
    void repeatFigures();

private:
    QString spoken(int index) const;
    QString hint(int index) const;

    workspace::Workspace& m_workspace;
    std::vector<int> m_indices;
};

/// The cards, side by side where there is room. A click or Enter opens the sheet of an index.
class CardsView : public QListView {
    Q_OBJECT

public:
    explicit CardsView(workspace::Workspace& workspace, QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void arrange();
    void repeatSet();
    void open(const QModelIndex& index);
    void move(int by);
    void copyValue();
    std::string idAt(const QModelIndex& index) const;

    workspace::Workspace& m_workspace;
    CardsModel* m_model;
};

} // namespace comfortics::ui
