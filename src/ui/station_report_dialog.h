// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workbench/station_report.h"
#include "workspace/latest_runner.h"

#include <QDialog>
#include <QImage>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTextBrowser;

namespace comfortics::ui {

/// Heading and notes of the report of a station, with the page as it will be. The figures are gathered on a
/// thread of their own.
class StationReportDialog : public QDialog {
    Q_OBJECT

public:
    enum class Form { Pdf, Html };

    /// Dialogs and messages must outlive it.
    StationReportDialog(std::shared_ptr<const workbench::StoreRows> rows,
                        workbench::StationReportRequest request, controls::FileDialogs& files,
                        controls::Messages& messages, QWidget* parent = nullptr);
    ~StationReportDialog() override;

    /// Asks for a name and writes the report, whole or not at all. Nothing before it is gathered.
    void save(Form form);
    bool gathered() const noexcept { return m_gathered != nullptr; }

private:
    struct Gathered {
        workbench::StationReport report;
        std::vector<std::string> charts; ///< SVG
        std::vector<QImage> shown;       ///< the same as pictures, which take longer to draw than to show
    };
    using Runner = workspace::LatestRunner<workbench::StationReportRequest, std::shared_ptr<Gathered>>;

    void hand();
    void takeTexts();
    void showPage();

    std::shared_ptr<const workbench::StoreRows> m_rows;
    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    std::shared_ptr<Gathered> m_gathered;
    QLineEdit* m_heading;
    QPlainTextEdit* m_notes;
    QTextBrowser* m_page;
    QTimer m_soon; // typing does not wait for the page
    std::vector<QPushButton*> m_saves;
    std::unique_ptr<Runner> m_runner;
};

} // namespace comfortics::ui
