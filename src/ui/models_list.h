// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/finding.h"
#include "workspace/workspace.h"

#include <QWidget>

class QLabel;
class QListWidget;

namespace comfortics::ui {

/// The models of standards, below the list of the indices: what the same words find among them. Enter or a
/// double click opens the sheet of a model.
class ModelsList : public QWidget {
    Q_OBJECT

public:
    /// The workspace must outlive the list.
    explicit ModelsList(workspace::Workspace& workspace, QWidget* parent = nullptr);

    /// Looks for the same as another search, and tells how many are found.
    std::size_t look(const workspace::Finding& other);
    /// Puts the keyboard into the list.
    void stand();
    QWidget& list() const;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    static std::string idAt(int row);
    void open(int row);

    workspace::Workspace& m_workspace;
    workspace::Finding m_finding;
    QLabel* m_heading;
    QListWidget* m_list;
};

} // namespace comfortics::ui
