// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workspace/course.h"
#include "workspace/index_sheet.h"
#include "workspace/latest_runner.h"
#include "workspace/minutes_course.h"
#include "workspace/workspace.h"

#include <QTimer>
#include <QWidget>

#include <optional>

class QComboBox;
class QLabel;
class QStackedWidget;
class QTextBrowser;
class QToolButton;
class QUrl;

namespace comfortics::ui {

class ChartView;
class CourseChart;
class MinutesChart;

/// The sheet of the index or model that is looked at: what it is, where the readings stand, and its course
/// over one of them or, where a model follows a body, over the minutes.
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
    void askMinutes(const workspace::Item& item);
    void takeMinutes();
    workspace::MinutesRequest minutesOf(const workspace::Item& item) const;
    bool isStale(const workspace::Item& item) const;
    void await();
    void tell(const QString& sentences);
    ChartView& chart() const;
    bool overMinutes() const;
    bool isCharted() const;
    void nameAxes(const std::optional<workspace::Item>& item);
    void copyPicture();
    QString pictureText() const;

    workspace::Workspace& m_workspace;
    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    QTextBrowser* m_text = nullptr;
    QToolButton* m_star = nullptr;
    QComboBox* m_axis = nullptr;
    QToolButton* m_picture = nullptr;
    int m_wantedAxis = 0; // the minutes are there for some models only
    QStackedWidget* m_charts = nullptr;
    CourseChart* m_chart = nullptr;
    MinutesChart* m_minutes = nullptr;
    QLabel* m_reading = nullptr; // of the chart's cursor
    QTextBrowser* m_held = nullptr;
    QString m_html;
    QString m_shownId;
    bool m_late = false; // a refresh is on its way
    QTimer m_patience;   // for which figures of other readings stand
    std::optional<workspace::CourseRequest> m_asked;
    std::optional<workspace::MinutesRequest> m_askedMinutes;
    workspace::LatestRunner<workspace::CourseRequest, workspace::Course>
        m_runner; // last: their threads end first
    workspace::LatestRunner<workspace::MinutesRequest, workspace::MinutesCourse> m_minutesRunner;
};

} // namespace comfortics::ui
