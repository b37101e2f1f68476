// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workspace/course.h"
#include "workspace/index_sheet.h"
#include "workspace/latest_runner.h"
#include "workspace/workspace.h"

#include <QTimer>
#include <QWidget>

#include <optional>

class QComboBox;
class QLabel;
class QTextBrowser;
class QToolButton;
class QUrl;

namespace comfortics::ui {

class CourseChart;

/// The sheet of the index or model that is looked at: what it is, where the readings stand, and its course
/// over one of them.
class SheetPanel : public QWidget {
    Q_OBJECT

public:
    /// All must outlive the panel.
    SheetPanel(workspace::Workspace& workspace, controls::FileDialogs& files, controls::Messages& messages,
               QWidget* parent = nullptr);

    /// Repeats the workspace now, for a panel that is in sight.
    void refresh();
    /// Asks for a name and saves the chart as a picture.
    void savePicture();

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QWidget* buildTop();
    QWidget* buildBottom();
    void notice();
    void showStar();
    void showFacts(const QString& id, const QString& html);
    void refreshFacts(const workspace::Item& item, bool patiently);
    void askCourse(const workspace::Item& item);
    workspace::CourseRequest requestOf(const workspace::Item& item, workspace::CourseAxis axis) const;
    void follow(const QUrl& link);
    void takeCourse();
    void nameAxes();
    void copyPicture();
    QString pictureText() const;

    workspace::Workspace& m_workspace;
    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    QTextBrowser* m_text = nullptr;
    QToolButton* m_star = nullptr;
    QComboBox* m_axis = nullptr;
    QToolButton* m_picture = nullptr;
    CourseChart* m_chart = nullptr;
    QLabel* m_reading = nullptr; // of the chart's cursor
    QTextBrowser* m_held = nullptr;
    QString m_html;
    QString m_shownId;
    bool m_late = false; // a refresh is on its way
    QTimer m_patience;   // for which figures of other readings stand
    std::optional<workspace::CourseRequest> m_asked;
    workspace::LatestRunner<workspace::CourseRequest, workspace::Course>
        m_runner; // last: its thread ends first
};

} // namespace comfortics::ui
