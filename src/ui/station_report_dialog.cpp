// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/station_report_dialog.h"

#include "output/save_file.h"
#include "ui/chart_painter.h"
#include "ui/page_maker.h"
#include "ui/text.h"
#include "ui/widgets.h"
#include "workspace/report_desk.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <chrono>

namespace comfortics::ui {

namespace {

constexpr QSize kSize(860, 720);
constexpr QSize kChartSize(760, 420);
constexpr QSize kPaperChart(640, 354); // within the margins of A4
constexpr int kScreenSharpness = 2;
constexpr int kNoteLines = 2;
constexpr std::chrono::milliseconds kPause{200};
constexpr const char* kTitle = "Save Report";

} // namespace

StationReportDialog::StationReportDialog(std::shared_ptr<const workbench::StoreRows> rows,
                                         workbench::StationReportRequest request,
                                         controls::FileDialogs& files, controls::Messages& messages,
                                         QWidget* parent)
    : QDialog(parent), m_rows(std::move(rows)), m_files(files), m_messages(messages),
      m_heading(new QLineEdit), m_notes(new QPlainTextEdit), m_page(new QTextBrowser)
{
    setWindowTitle(QStringLiteral("Report of the Station"));
    nameWidget(*m_heading, QStringLiteral("heading"), QStringLiteral("Heading"),
               QStringLiteral("Stands on top of the report"));
    m_heading->setPlaceholderText(QStringLiteral("Thermal conditions at a station"));
    nameWidget(*m_notes, QStringLiteral("notes"), QStringLiteral("Notes"),
               QStringLiteral("Place, instruments, what is to be known"));
    m_notes->setTabChangesFocus(true);
    m_notes->setFixedHeight(m_notes->fontMetrics().lineSpacing() * kNoteLines + 2 * kGap);
    nameWidget(*m_page, QStringLiteral("page"), QStringLiteral("The report"),
               QStringLiteral("The pages as they will be"));
    wearPaper(*m_page);
    m_page->setPlainText(QStringLiteral("The report is being made …"));

    auto* const form = new QFormLayout;
    form->addRow(QStringLiteral("&Heading:"), m_heading);
    form->addRow(QStringLiteral("&Notes:"), m_notes);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_saves = {buttons->addButton(QStringLiteral("Save as &PDF …"), QDialogButtonBox::ActionRole),
               buttons->addButton(QStringLiteral("Save as H&TML …"), QDialogButtonBox::ActionRole)};
    for (QPushButton* const button : m_saves)
        button->setEnabled(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_page, 1);
    layout->addWidget(buttons);
    resize(kSize);

    connect(m_heading, &QLineEdit::textChanged, &m_soon, qOverload<>(&QTimer::start));
    connect(m_notes, &QPlainTextEdit::textChanged, &m_soon, qOverload<>(&QTimer::start));
    connect(m_saves[0], &QPushButton::clicked, this, [this] { save(Form::Pdf); });
    connect(m_saves[1], &QPushButton::clicked, this, [this] { save(Form::Html); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_soon.setSingleShot(true);
    m_soon.setInterval(kPause);
    connect(&m_soon, &QTimer::timeout, this, &StationReportDialog::showPage);

    if (request.when.empty())
        request.when = workspace::clockText();
    m_runner = std::make_unique<Runner>(
        [kept = m_rows,
         font = inPixels(this->font())](const workbench::StationReportRequest& asked,
                                        const Runner::GoOn& goOn) -> std::shared_ptr<Gathered> {
            auto report = workbench::stationReport(*kept, asked, goOn);
            if (!report)
                return nullptr;
            auto made = std::make_shared<Gathered>(Gathered{std::move(*report), {}, {}});
            for (const workbench::Chart& chart : made->report.charts)
                made->charts.push_back(paperSvg(chart, font, kChartSize));
            made->shown = picturesOf(made->charts, kScreenSharpness);
            return made;
        },
        [this] { QMetaObject::invokeMethod(this, &StationReportDialog::hand, Qt::QueuedConnection); });
    m_runner->ask(std::move(request));
    connect(this, &StationReportDialog::finished, this, [this] { m_runner->cancel(); });
}

StationReportDialog::~StationReportDialog()
{
    m_runner.reset();
}

void StationReportDialog::hand()
{
    auto made = m_runner->take();
    if (!made || !*made)
        return;
    m_gathered = std::move(*made);
    for (QPushButton* const button : m_saves)
        button->setEnabled(true);
    showPage();
}

// With the texts as they stand now.
void StationReportDialog::takeTexts()
{
    m_gathered->report.request.heading = fromQt(m_heading->text());
    m_gathered->report.request.notes = fromQt(m_notes->toPlainText());
}

void StationReportDialog::showPage()
{
    if (!m_gathered)
        return;
    takeTexts();
    const int place = m_page->verticalScrollBar()->value();
    const int room = std::min(kChartSize.width(), m_page->viewport()->width() - 4 * kGap);
    write(workbench::stationReportPage(m_gathered->report, room,
                                       kChartSize.height() * room / kChartSize.width()),
          m_gathered->shown, *m_page->document());
    m_page->verticalScrollBar()->setValue(place);
}

void StationReportDialog::save(Form form)
{
    if (!m_gathered)
        return;
    const bool pdf = form == Form::Pdf;
    const auto path = workspace::askForReport(m_files, pdf, "station-report");
    if (!path)
        return;
    takeTexts();
    std::string bytes;
    if (pdf)
        bytes = pdfOf([this](QTextDocument& document) {
            write(workbench::stationReportPage(m_gathered->report, kPaperChart.width(), kPaperChart.height()),
                  picturesOf(m_gathered->charts), document);
        });
    else
        bytes = workbench::stationReportHtml(m_gathered->report, m_gathered->charts);
    if (bytes.empty())
        m_messages.show({.text = "The report could not be made.", .title = kTitle});
    else
        output::succeeded(output::writeWhole(*path, bytes), m_messages, kTitle);
}

} // namespace comfortics::ui
