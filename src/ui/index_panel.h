// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"

#include <QWidget>

#include <vector>

class QLineEdit;

namespace comfortics::ui {

/// The index list with its search and the tick for all.
class IndexPanel : public QWidget {
    Q_OBJECT

public:
    explicit IndexPanel(classic::Frm_Main& form, QWidget* parent = nullptr);

    /// Puts the keyboard into the search.
    void search();

    /// In the order in which the tab key goes through them.
    const std::vector<QWidget*>& tabOrder() const { return m_tabOrder; }

private:
    QLineEdit* m_search = nullptr;
    std::vector<QWidget*> m_tabOrder;
};

} // namespace comfortics::ui
