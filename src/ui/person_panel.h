// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/person_and_place.h"
#include "workspace/workspace.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QTextBrowser;

namespace comfortics::ui {

class ContentArea;

/// The person, the place and whatever else the models of standards read besides the readings. A field that
/// is left empty stands for what the line below tells.
class PersonPanel : public QWidget {
    Q_OBJECT

public:
    /// The workspace must outlive the panel.
    explicit PersonPanel(workspace::Workspace& workspace, QWidget* parent = nullptr);

    /// Puts the keyboard into a field, which comes into sight.
    void stand(std::string_view id);

    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Row {
        const workspace::Field* field;
        QWidget* editor;
        QLabel* problem;
        std::vector<QWidget*> widgets; // all but the problem
        bool shown = true;
    };

    QWidget* buildTop();
    void buildRow(QGridLayout& grid, const workspace::Field& field);
    QWidget* buildLine(const workspace::Field& field, controls::TextBox& box, QWidget*& editor);
    QWidget* buildChoices(const workspace::Field& field, controls::TextBox& box);
    void showRows();
    void showAbout(const workspace::Field* field);
    void chooseClothing(controls::TextBox& box);

    workspace::Workspace& m_workspace;
    QComboBox* m_models;
    QLineEdit* m_search = nullptr;
    ContentArea* m_area = nullptr;
    QTextBrowser* m_about;
    std::vector<Row> m_rows;
    std::vector<std::pair<workspace::FieldSection, QLabel*>> m_headings;
};

} // namespace comfortics::ui
