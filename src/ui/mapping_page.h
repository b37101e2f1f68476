// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/import_desk.h"

#include <QWidget>

#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace comfortics::ui {

/// How the open table is read: its shape, which column is which reading, and what the first rows come to.
class MappingPage : public QWidget {
    Q_OBJECT

public:
    /// `friction` answers the exponent of the wind's profile as it stands in the options. The desk must
    /// outlive the page.
    MappingPage(workbench::ImportDesk& desk, std::function<std::string()> friction,
                QWidget* parent = nullptr);

    std::vector<QWidget*> tabOrder() const;
    /// Options may have changed.
    void refresh();

signals:
    /// The table is to be looked at with another shape.
    void reshapeWanted(const tables::Shape& told);

private:
    QWidget* buildShape();
    QWidget* buildColumn();
    QWidget* buildTimes();
    void connectAll();
    void show();
    void showShape();
    void showColumns();
    void showColumn();
    void showPreview();
    void showSentences();
    void tellShape();
    void tellColumn();
    void tellTimes();
    void keep();
    int currentColumn() const;
    const tables::ColumnUse& use(int column) const;
    void choose(tables::ColumnUse& use, int choice) const;

    workbench::ImportDesk& m_desk;
    std::function<std::string()> m_friction;
    bool m_showing = false; // what boxes tell now is not of the user
    QLabel* m_source;
    QComboBox* m_coding;
    QComboBox* m_separator;
    QComboBox* m_decimal;
    QComboBox* m_sheet;
    QLabel* m_sheetLabel;
    QComboBox* m_kept;
    QPushButton* m_keep;
    QPushButton* m_forget;
    QPushButton* m_guess;
    QTableWidget* m_columns;
    QLabel* m_column;
    QComboBox* m_role;
    QComboBox* m_unit;
    QLineEdit* m_height;
    QLineEdit* m_step;
    QComboBox* m_order;
    QLineEdit* m_zone;
    QLineEdit* m_gaps;
    QLabel* m_sentences;
    QTableWidget* m_preview;
};

} // namespace comfortics::ui
