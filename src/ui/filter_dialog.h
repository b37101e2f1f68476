// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/view.h"

#include <QDialog>

#include <memory>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace comfortics::ui {

/// Asks for a condition that rows must meet to be seen.
class FilterDialog : public QDialog {
    Q_OBJECT

public:
    /// Starts at a field.
    FilterDialog(std::shared_ptr<const workbench::TableStore> store, const workbench::Field& field,
                 QWidget* parent);

    /// What is asked for; none where it is not whole.
    std::optional<workbench::Condition> condition() const;

private:
    void offerTests();
    void offerValues();
    void judge();

    std::shared_ptr<const workbench::TableStore> m_store;
    std::vector<workbench::Field> m_fields;
    std::vector<workbench::Condition> m_tests; // of the field, without what is typed
    QComboBox* m_field;
    QComboBox* m_test;
    QLabel* m_leastLabel;
    QLineEdit* m_least;
    QLabel* m_mostLabel;
    QLineEdit* m_most;
    QLabel* m_message;
    QPushButton* m_ok;
};

} // namespace comfortics::ui
