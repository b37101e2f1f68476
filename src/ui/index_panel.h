// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/finding.h"
#include "workspace/workspace.h"

#include <QWidget>

#include <vector>

class QLineEdit;
class QTimer;

namespace comfortics::ui {

class FindBar;
class IndexList;
class ModelsList;

/// The index list, and the models of standards below it, with their search, the tick for all, and a line that
/// shows only what it finds.
class IndexPanel : public QWidget {
    Q_OBJECT

public:
    explicit IndexPanel(workspace::Workspace& workspace, QWidget* parent = nullptr);
    ~IndexPanel() override;
    Q_DISABLE_COPY_MOVE(IndexPanel)

    /// Puts the keyboard into the search.
    void search();
    /// Puts the keyboard into the line that finds.
    void find();

    /// In the order in which the tab key goes through them.
    const std::vector<QWidget*>& tabOrder() const { return m_tabOrder; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildFind();
    catalogue::Standing standing(std::size_t row) const;
    void showFound();
    void step(bool forward);
    void tickFound(bool ticked);

    workspace::Workspace& m_workspace;
    classic::Frm_Main& m_form;
    workspace::Finding m_finding;
    QLineEdit* m_search = nullptr;
    IndexList* m_list = nullptr;
    FindBar* m_find = nullptr;
    ModelsList* m_models = nullptr;
    QTimer* m_later = nullptr;
    std::vector<QWidget*> m_tabOrder;
};

} // namespace comfortics::ui
