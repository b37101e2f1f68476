// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/additions.h"
#include "classic/selection.h"
#include "controls/list_box.h"
#include "workspace/finding.h"

#include <QDialog>

#include <vector>

class QLabel;
class QPushButton;

namespace comfortics::ui {

class FindBar;
class IndexList;

/// Asks which indices and figures of models a run calculates, with the search of the main window.
class IndexChoice : public QDialog {
    Q_OBJECT

public:
    IndexChoice(const classic::Selection& selection, const std::vector<catalogue::Figure>& figures,
                QWidget* parent);
    ~IndexChoice() override;

    classic::Selection selection() const;
    /// Of models, in the order of the catalogue.
    std::vector<catalogue::Figure> figures() const;

private:
    void tickShown(bool ticked);
    void showCount();

    controls::ListBox m_list;
    workspace::Finding m_finding;
    FindBar* m_find;
    IndexList* m_view;
    QLabel* m_count;
    QPushButton* m_ok;
};

} // namespace comfortics::ui
