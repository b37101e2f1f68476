// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/export_dialog.h"

#include "ui/mark_style.h"
#include "ui/share_bar.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>

#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace comfortics::ui {

using Form = workbench::ExportRequest::Form;

namespace {

std::string withEnding(const std::string& path, Form form)
{
    const QString ending = form == Form::Xlsx ? QStringLiteral(".xlsx") : QStringLiteral(".csv");
    return toQt(path).endsWith(ending, Qt::CaseInsensitive) ? path : path + fromQt(ending);
}

/// Ends what may take a while beside the windows' thread; the program waits for it when it ends.
class LateEnds {
public:
    LateEnds() = default;
    ~LateEnds()
    {
        for (std::thread& thread : m_threads)
            thread.join();
    }
    LateEnds(const LateEnds&) = delete;
    LateEnds& operator=(const LateEnds&) = delete;

    template <class Owned>
    void end(Owned owned)
    {
        m_threads.emplace_back([ending = std::move(owned)]() mutable { ending.reset(); });
    }

private:
    std::vector<std::thread> m_threads;
};

} // namespace

/// Whom the end of an export is told, as long as it is there.
struct ExportDialog::Listener {
    std::mutex mutex;
    ExportDialog* dialog = nullptr;

    void finish()
    {
        const std::lock_guard lock(mutex);
        if (dialog != nullptr)
            QMetaObject::invokeMethod(dialog, &ExportDialog::finish, Qt::QueuedConnection);
    }
};

ExportDialog::ExportDialog(std::shared_ptr<const workbench::TableStore> store,
                           std::shared_ptr<const workbench::View> view, controls::FileDialogs& files,
                           QWidget* parent)
    : QDialog(parent), m_store(std::move(store)), m_view(std::move(view)), m_files(files)
{
    setWindowTitle(QStringLiteral("Export Rows"));
    m_rows = new QComboBox;
    nameWidget(*m_rows, QStringLiteral("lst_Rows"), QStringLiteral("Rows"),
               QStringLiteral("Which rows are written, and in which order"));
    m_rows->addItem(QStringLiteral("the %1 in sight, in their order").arg(m_view->rows.size()));
    m_rows->addItem(QStringLiteral("all %1, as in the table").arg(m_store->rows()));
    m_form = new QComboBox;
    nameWidget(
        *m_form, QStringLiteral("lst_Form"), QStringLiteral("Form"),
        QStringLiteral("A workbook has numbers as numbers, units, and a sheet that tells rules, limits, "
                       "assumptions and the source"));
    m_form->addItems(
        {QStringLiteral("CSV, UTF-8"), QStringLiteral("CSV, Windows-1252"), QStringLiteral("XLSX workbook")});
    const auto box = [](const QString& text, const QString& name, const QString& hint) {
        auto* const made = new QCheckBox(text);
        MarkStyle::wear(*made);
        nameWidget(*made, name, QString(text).remove(QLatin1Char('&')), hint);
        return made;
    };
    m_inputs =
        box(QStringLiteral("&Time and readings as taken"), QStringLiteral("chk_Inputs"),
            QStringLiteral("The time and the six readings in their units, as they were calculated with"));
    m_status =
        box(QStringLiteral("&Line, and a status for each figure"), QStringLiteral("chk_Status"),
            QStringLiteral("The line of the table, and behind each figure in a word why it stands or is "
                           "blank"));
    m_reasons =
        box(QStringLiteral("&Reasons of blank figures"), QStringLiteral("chk_Reasons"),
            QStringLiteral("In sentences, why figures of a row are blank; rows are calculated again for "
                           "it, which takes a while"));
    m_message = new QLabel;
    m_message->setObjectName(QStringLiteral("lbl_Export_Message"));
    m_message->setWordWrap(true);
    m_bar = new ShareBar(QStringLiteral("Progress of the export"));
    m_bar->setLast(QStringLiteral("completing the file"));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    m_save = buttons->button(QDialogButtonBox::Save);
    m_save->setText(QStringLiteral("&Save …"));
    auto* const layout = new QFormLayout(this);
    layout->addRow(QStringLiteral("Ro&ws:"), m_rows);
    layout->addRow(QStringLiteral("&Form:"), m_form);
    layout->addRow(m_inputs);
    layout->addRow(m_status);
    layout->addRow(m_reasons);
    layout->addRow(m_bar);
    layout->addRow(m_message);
    layout->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    m_listener = std::make_shared<Listener>();
    m_listener->dialog = this;
    m_runner = std::make_unique<Runner>(
        [share = m_bar->share()](const workbench::ExportRequest& request, const Runner::GoOn& goOn) {
            return workbench::exportStore(request, [&](double done) {
                const bool on = goOn();
                if (on) // a bar that has begun anew is not told of what was stopped
                    *share = done;
                return on;
            });
        },
        [listener = m_listener] { listener->finish(); });
    setWriting(false);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
}

// A workbook that is being packed cannot be interrupted: nobody waits for it.
ExportDialog::~ExportDialog()
{
    static LateEnds lateEnds;
    {
        const std::lock_guard lock(m_listener->mutex);
        m_listener->dialog = nullptr;
    }
    m_runner->cancel();
    if (m_stopped)
        lateEnds.end(std::move(m_runner));
}

workbench::ExportRequest ExportDialog::request() const
{
    workbench::ExportRequest request;
    request.store = m_store;
    if (m_rows->currentIndex() == 0)
        request.view = m_view;
    request.form = static_cast<Form>(m_form->currentIndex());
    request.inputs = m_inputs->isChecked();
    request.status = m_status->isChecked();
    request.reasons = m_reasons->isChecked();
    request.program = "Comfortics " + fromQt(QCoreApplication::applicationVersion());
    return request;
}

void ExportDialog::save()
{
    workbench::ExportRequest wanted = request();
    const bool book = wanted.form == Form::Xlsx;
    const QString name = QFileInfo(toQt(m_store->facts().source)).completeBaseName();
    const auto path = m_files.askSave(
        {.title = "Export Rows",
         .filter = book ? "XLSX workbook (*.xlsx)|*.xlsx" : "CSV table (*.csv)|*.csv",
         .fileName = fromQt(name) + (book ? "-indices.xlsx" : "-indices.csv"),
         .overwritePrompt = true,
         .written = [form = wanted.form](const std::string& chosen) { return withEnding(chosen, form); }});
    if (!path || path->empty())
        return;
    wanted.path = withEnding(*path, wanted.form);
    setWriting(true);
    m_runner->ask(std::move(wanted));
}

void ExportDialog::setWriting(bool writing)
{
    m_writing = writing;
    if (writing)
        m_bar->begin();
    else
        m_bar->end();
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_rows), static_cast<QWidget*>(m_form), static_cast<QWidget*>(m_inputs),
          static_cast<QWidget*>(m_status), static_cast<QWidget*>(m_reasons), static_cast<QWidget*>(m_save)})
        widget->setEnabled(!writing);
    m_message->setText(writing ? QStringLiteral("Writing …") : QString());
}

void ExportDialog::finish()
{
    const auto result = m_runner->take();
    if (!result)
        return;
    setWriting(false);
    if (*result)
        m_message->setText(toQt(**result));
    else
        accept();
}

// A file that is not whole is not left.
void ExportDialog::reject()
{
    if (m_writing) {
        m_runner->cancel();
        m_stopped = true;
        setWriting(false);
        m_message->setText(QStringLiteral("No file was written."));
        return;
    }
    QDialog::reject();
}

} // namespace comfortics::ui
