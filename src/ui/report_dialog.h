// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/report_desk.h"

#include <QDialog>
#include <QTimer>

class QTextBrowser;

namespace comfortics::ui {

/// Heading, notes and choice of a report, with the page as it will be.
class ReportDialog : public QDialog {
    Q_OBJECT

public:
    ReportDialog(workspace::ReportDesk& report, workspace::SessionDesk& session, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void print();
    void showPage();

    workspace::ReportDesk& m_report;
    QTextBrowser* m_page;
    QTimer m_soon; // typing does not wait for the page
};

} // namespace comfortics::ui
