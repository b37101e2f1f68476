// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/situation_runner.h"
#include "workspace/workspace.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QLabel;
class QMenu;
class QToolButton;

namespace comfortics::ui {

class CardsView;

/// "My indices": a card for each index of the chosen set, with value, meaning and place on its scale. The
/// cards follow the readings while they are typed.
class CardsPanel : public QWidget {
    Q_OBJECT

public:
    /// The workspace must outlive the panel.
    explicit CardsPanel(workspace::Workspace& workspace, QWidget* parent = nullptr);
    ~CardsPanel() override;
    Q_DISABLE_COPY_MOVE(CardsPanel)

    /// The cards shrink below their usual height, whatever its line of text would take.
    bool hasHeightForWidth() const override { return false; }

    /// In the order in which the tab key goes through them.
    const std::vector<QWidget*>& tabOrder() const { return m_tabOrder; }

private:
    void buildMenu(QToolButton& button);
    void repeatSets();
    void repeatNote();
    void askName(const QString& title, const QString& proposed, std::optional<std::size_t> of,
                 const std::function<void(const std::string&)>& take);
    void removeShown();

    workspace::Workspace& m_workspace;
    QComboBox* m_sets;
    QLabel* m_note;
    CardsView* m_cards;
    std::vector<QWidget*> m_tabOrder;
    SituationRunner m_runner;
};

} // namespace comfortics::ui
