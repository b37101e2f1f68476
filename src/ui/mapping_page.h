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
class QSpinBox;
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
    QWidget* buildLines();
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
    void guessAgain();
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
    QComboBox* m_coding = nullptr;
    QComboBox* m_separator = nullptr;
    QComboBox* m_decimal = nullptr;
    QSpinBox* m_nameLine = nullptr;
    QSpinBox* m_unitLines = nullptr;
    QSpinBox* m_dataLine = nullptr;
    QComboBox* m_comment = nullptr;
    QComboBox* m_sheet = nullptr;
    QLabel* m_sheetLabel = nullptr;
    QComboBox* m_kept = nullptr;
    QPushButton* m_keep = nullptr;
    QPushButton* m_forget = nullptr;
    QPushButton* m_guess = nullptr;
    QTableWidget* m_columns;
    QLabel* m_column = nullptr;
    QComboBox* m_role = nullptr;
    QComboBox* m_unit = nullptr;
    QLineEdit* m_height = nullptr;
    QLineEdit* m_step = nullptr;
    QComboBox* m_order = nullptr;
    QLineEdit* m_zone = nullptr;
    QLineEdit* m_gaps = nullptr;
    QLabel* m_sentences;
    QTableWidget* m_preview;
};

} // namespace comfortics::ui
