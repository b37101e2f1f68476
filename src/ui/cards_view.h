// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/workspace.h"

#include <QAbstractListModel>
#include <QListView>

#include <string>
#include <vector>

namespace comfortics::ui {

/// The indices and figures of models of the chosen set that this version knows.
class CardsModel : public QAbstractListModel {
    Q_OBJECT

public:
    CardsModel(workspace::Workspace& workspace, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    /// What a card shows.
    const workspace::Item& itemAt(int row) const { return m_items.at(static_cast<std::size_t>(row)); }
    /// Where the cards' situation stands, which there must be.
    workspace::ItemFigure at(const workspace::Item& item) const;
    const workspace::Workspace& workspace() const { return m_workspace; }

    void repeatSet();
    void repeatFigures();

private:
    QString spoken(const workspace::Item& item) const;
    QString hint(const workspace::Item& item) const;

    workspace::Workspace& m_workspace;
    std::vector<workspace::Item> m_items;
};

/// The cards, side by side where there is room. A click or Enter opens the sheet of an index, F2 leads to the
/// field that a model misses.
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
    int widthFor(int characters) const;
    void arrange();
    void repeatSet();
    void open(const QModelIndex& index);
    void move(int by);
    void copyValue();
    std::string wantedField(const QModelIndex& index) const;
    void mend(const QModelIndex& index);
    std::string idAt(const QModelIndex& index) const;

    workspace::Workspace& m_workspace;
    CardsModel* m_model;
};

} // namespace comfortics::ui
