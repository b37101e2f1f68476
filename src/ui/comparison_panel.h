// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workspace/comparison_table.h"

#include <QAbstractTableModel>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace comfortics::ui {

/// The table of a comparison for a view.
class ComparisonModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void take(workspace::ComparisonTable table);
    const workspace::ComparisonTable& table() const noexcept { return m_table; }
    /// What there is to know of a cell, besides what it shows.
    QString note(const QModelIndex& index) const;
    std::optional<double> number(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    workspace::ComparisonTable m_table;
};

/// Pinned situations beside the present one, with their differences.
class ComparisonPanel : public QWidget {
    Q_OBJECT

public:
    /// A choice of indices to compare.
    struct Choice {
        QString name;
        std::function<std::vector<workspace::Item>()> indices;
    };

    /// All must outlive the panel. The first choice is that of the start; the indices of the cards and those
    /// that are ticked in the list come last.
    ComparisonPanel(workspace::Comparison& comparison, controls::Clipboard& clipboard,
                    controls::FileDialogs& files, controls::Messages& messages,
                    std::vector<Choice> choices = {}, QWidget* parent = nullptr);

    /// Pins what stands in the form; tells why it cannot.
    void pin();
    /// Repeats the comparison now, for a panel that is in sight.
    void refresh();
    /// The same with the present figures, though they take a while.
    void complete();
    /// Copies the selected cells, or the table where no more than one is.
    void copy();
    /// Asks for a name and writes the table as CSV (UTF-8), whole or not at all.
    void exportTable();

    QSize sizeHint() const override;

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildTable();
    QWidget* buildRow();
    void showTable(const workspace::Situation& present);
    void notice();
    void fitColumns();
    void fitRows();
    void showCurrent();
    void movePin(int by);
    void removePin();
    std::optional<std::size_t> currentPin() const;
    void goTo(std::size_t pin);

    workspace::Comparison& m_comparison;
    controls::Clipboard& m_clipboard;
    controls::FileDialogs& m_files;
    controls::Messages& m_messages;
    std::vector<Choice> m_choices;
    ComparisonModel* m_model = nullptr;
    QTableView* m_table = nullptr;
    QComboBox* m_choice = nullptr;
    QLineEdit* m_name = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_earlier = nullptr;
    QPushButton* m_later = nullptr;
    QPushButton* m_export = nullptr;
    QPushButton* m_copy = nullptr;
    QLabel* m_note = nullptr;
    bool m_late = false;
    QTimer m_patience; // for which figures of other readings stand
};

} // namespace comfortics::ui
