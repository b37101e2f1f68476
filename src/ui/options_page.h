// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "workspace/workspace.h"

#include <QWidget>

#include <vector>

class QGridLayout;

namespace comfortics::ui {

/// The assumptions on body and site, the use of limits, the rules, and whether cards follow; in place of the
/// readings while open.
class OptionsPage : public QWidget {
    Q_OBJECT

public:
    explicit OptionsPage(workspace::Workspace& workspace, QWidget* parent = nullptr);

    /// Where the keyboard goes when the page opens.
    QWidget& first() const { return *m_first; }

    /// In the order in which the tab key goes through them.
    const std::vector<QWidget*>& tabOrder() const { return m_tabOrder; }

signals:
    /// The button that closes the page was pressed.
    void closeWanted();

private:
    void assumptionRow(QGridLayout& grid, classic::Assumption assumption, controls::Label& heading);
    void choiceRows(QGridLayout& grid, controls::Label& heading, controls::OptionGroup& group,
                    const QStringList& hints);

    classic::Frm_Main& m_form;
    QWidget* m_first = nullptr;
    std::vector<QWidget*> m_tabOrder;
};

} // namespace comfortics::ui
