// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "workbench/store_export.h"
#include "workspace/latest_runner.h"

#include <QDialog>

#include <memory>
#include <optional>
#include <string>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace comfortics::ui {

class ShareBar;

/// Writes the rows in sight, or all of a run, to a file, on a thread of its own.
class ExportDialog : public QDialog {
    Q_OBJECT

public:
    /// Files must outlive the dialog.
    ExportDialog(std::shared_ptr<const workbench::TableStore> store,
                 std::shared_ptr<const workbench::View> view, controls::FileDialogs& files, QWidget* parent);
    ~ExportDialog() override;

    void reject() override;

private:
    using Runner = workspace::LatestRunner<workbench::ExportRequest, std::optional<std::string>>;

    struct Listener;

    workbench::ExportRequest request() const;
    void save();
    void finish();
    void setWriting(bool writing);

    std::shared_ptr<const workbench::TableStore> m_store;
    std::shared_ptr<const workbench::View> m_view;
    controls::FileDialogs& m_files;
    QComboBox* m_rows;
    QComboBox* m_form;
    QCheckBox* m_inputs;
    QCheckBox* m_status;
    QCheckBox* m_reasons;
    QLabel* m_message;
    ShareBar* m_bar;
    QPushButton* m_save;
    bool m_writing = false;
    bool m_stopped = false; // what was stopped may still end
    std::shared_ptr<Listener> m_listener;
    std::unique_ptr<Runner> m_runner;
};

} // namespace comfortics::ui
