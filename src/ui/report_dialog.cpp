// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/report_dialog.h"

#include "ui/page_maker.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>
#include <QTextFrame>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace comfortics::ui {

using workspace::ReportDesk;

namespace {

constexpr QSize kSize(760, 700);
constexpr int kNoteLines = 3;
constexpr int kMargin = 16; // around the page
constexpr int kLeastChart = 200;
constexpr std::chrono::milliseconds kPause{200};

} // namespace

ReportDialog::ReportDialog(ReportDesk& report, workspace::SessionDesk& session, QWidget* parent)
    : QDialog(parent), m_report(report), m_page(new QTextBrowser)
{
    setWindowTitle(QStringLiteral("Report"));
    auto* const heading = new QLineEdit(toQt(session.heading));
    nameWidget(*heading, QStringLiteral("heading"), QStringLiteral("Heading"),
               QStringLiteral("Stands on top of the page; kept with the session"));
    heading->setPlaceholderText(QStringLiteral("Thermal conditions"));
    auto* const notes = new QPlainTextEdit(toQt(session.notes));
    nameWidget(*notes, QStringLiteral("notes"), QStringLiteral("Notes"),
               QStringLiteral("Place, people, work and clothing, instruments; kept with the session"));
    notes->setTabChangesFocus(true);
    notes->setFixedHeight(notes->fontMetrics().lineSpacing() * kNoteLines + 2 * kGap);
    auto* const choice = new QComboBox;
    choice->addItems(
        {QStringLiteral("The indices of the cards"), QStringLiteral("All ticked indices with a value")});
    choice->setCurrentIndex(static_cast<int>(report.choice));
    nameWidget(*choice, QStringLiteral("choice"), QStringLiteral("Indices"),
               QStringLiteral("What the report tells of"));
    nameWidget(*m_page, QStringLiteral("page"), QStringLiteral("The report"),
               QStringLiteral("The page as it will be"));
    wearPaper(*m_page);

    auto* const form = new QFormLayout;
    const auto field = [form](const QString& text, QWidget* widget) {
        form->addRow(text, widget);
        qobject_cast<QLabel*>(form->labelForField(widget))->setBuddy(widget);
    };
    field(QStringLiteral("&Heading:"), heading);
    field(QStringLiteral("&Notes:"), notes);
    field(QStringLiteral("&Indices:"), choice);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    auto* const pdf = buttons->addButton(QStringLiteral("Save as &PDF …"), QDialogButtonBox::ActionRole);
    auto* const html = buttons->addButton(QStringLiteral("Save as H&TML …"), QDialogButtonBox::ActionRole);
    auto* const print = buttons->addButton(QStringLiteral("P&rint …"), QDialogButtonBox::ActionRole);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_page, 1);
    layout->addWidget(buttons);

    connect(heading, &QLineEdit::textChanged, this, [this, &session](const QString& text) {
        session.heading = fromQt(text);
        m_soon.start();
    });
    connect(notes, &QPlainTextEdit::textChanged, this, [this, &session, notes] {
        session.notes = fromQt(notes->toPlainText());
        m_soon.start();
    });
    connect(choice, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_report.choice = static_cast<ReportDesk::Choice>(index);
        showPage();
    });
    connect(pdf, &QPushButton::clicked, this, [this] { m_report.save(ReportDesk::Form::Pdf); });
    connect(html, &QPushButton::clicked, this, [this] { m_report.save(ReportDesk::Form::Html); });
    connect(print, &QPushButton::clicked, this, &ReportDialog::print);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_soon.setSingleShot(true);
    m_soon.setInterval(kPause);
    connect(&m_soon, &QTimer::timeout, this, &ReportDialog::showPage);
    resize(kSize);
    layout->activate();
    showPage();
    m_page->viewport()->installEventFilter(this);
}

// The chart goes with the width.
bool ReportDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        m_soon.start();
    return QDialog::eventFilter(watched, event);
}

void ReportDialog::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile); // a report is printed whole
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (printer.outputFileName().isEmpty()) {
        QTextDocument page;
        write(m_report.page(), page);
        ui::print(page, printer);
    } else
        m_report.write(ReportDesk::Form::Pdf, fromQt(printer.outputFileName())); // whole or not at all
}

void ReportDialog::showPage()
{
    const int place = m_page->verticalScrollBar()->value();
    const int room = m_page->maximumViewportSize().width() - 2 * kMargin;
    write(m_report.page(std::clamp(room, kLeastChart, workspace::kReportWidth)), *m_page->document());
    QTextFrame* const frame = m_page->document()->rootFrame();
    QTextFrameFormat format = frame->frameFormat();
    format.setMargin(kMargin);
    frame->setFrameFormat(format);
    m_page->moveCursor(QTextCursor::Start); // else its end comes into view
    m_page->verticalScrollBar()->setValue(place);
}

} // namespace comfortics::ui
