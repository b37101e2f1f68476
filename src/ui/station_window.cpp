// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/station_window.h"

#include "batch/selected_indices.h"
#include "ui/bindings.h"
#include "ui/charts_page.h"
#include "ui/export_dialog.h"
#include "ui/file_drops.h"
#include "ui/index_choice.h"
#include "ui/mapping_page.h"
#include "ui/results_page.h"
#include "ui/share_bar.h"
#include "ui/summary_dialog.h"
#include "ui/text.h"
#include "ui/widgets.h"
#include "ui/window_memory.h"
#include "workspace/recent_files.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>
#include <QStyle>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

namespace comfortics::ui {

namespace {

constexpr QSize kSize(1180, 760);
constexpr int kBarSteps = 1000;
constexpr std::chrono::milliseconds kTick{100};
constexpr const char* kPlaceKey = "station/place";

QPushButton* button(const QString& text, const QString& name, const QString& hint)
{
    auto* const made = new QPushButton(text);
    nameWidget(*made, name, QString(text).remove(QLatin1Char('&')), hint);
    pressWithEnter(*made);
    return made;
}

// The path as people tell it; the name of what has none.
QString whereOf(const workbench::TableSource& source)
{
    const QString path = QDir::toNativeSeparators(toQt(source.path.empty() ? source.name : source.path));
    const QString home = QDir::toNativeSeparators(QDir::homePath()) + QDir::separator();
    return !source.path.empty() && path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size())
                                                         : path;
}

} // namespace

StationWindow::StationWindow(StationForm& form, const Surroundings& surroundings)
    : FormWindow(form, QStringLiteral("station-files")), m_form(form), m_surroundings(surroundings),
      m_import(surroundings.workspace.preferences()),
      m_runs(surroundings.workspace.limits(),
             [this] { QMetaObject::invokeMethod(this, &StationWindow::takeRun, Qt::QueuedConnection); }),
      m_looker([](const workbench::LookRequest& request, const auto&) { return lookAt(request); },
               [this] { QMetaObject::invokeMethod(this, &StationWindow::takeLook, Qt::QueuedConnection); })
{
    m_message = new CutLabel;
    m_message->setObjectName(QStringLiteral("lbl_Message"));
    m_message->setAccessibleName(QStringLiteral("What there is to say"));
    statusBar()->setContentsMargins(kSmallGap, 0, 0, 0);
    statusBar()->addWidget(m_message, 1);

    m_mapping = new MappingPage(m_import, [this] { return friction(); });
    m_results = new ResultsPage;
    m_pages = new QTabWidget;
    m_pages->setObjectName(QStringLiteral("tab_Station"));
    m_pages->setAccessibleName(QStringLiteral("Pages"));
    m_pages->addTab(m_mapping, QStringLiteral("&Mapping"));
    m_pages->addTab(m_results, QStringLiteral("&Results"));
    m_charts = new ChartsPage(surroundings.files, surroundings.messages);
    m_pages->addTab(m_charts, QStringLiteral("Ch&arts"));
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->setSpacing(kSmallGap);
    layout->addWidget(buildTop());
    layout->addWidget(m_pages, 1);
    layout->addWidget(buildBottom());
    setCentralWidget(new ContentArea(content));

    connect(m_mapping, &MappingPage::reshapeWanted, this,
            [this](const tables::Shape& told) { look(m_import.reshaped(told)); });
    connect(m_results, &ResultsPage::againWanted, this, &StationWindow::calculateAgain);
    connect(m_results, &ResultsPage::exportWanted, this, [this] {
        if (m_results->view())
            ExportDialog(m_results->store(), m_results->view(), m_surroundings.files, this).exec();
    });
    connect(m_results, &ResultsPage::summaryWanted, this, [this] {
        if (m_results->view())
            SummaryDialog(m_results->store(), m_results->view(), this).exec();
    });
    connect(m_results, &ResultsPage::viewChanged, this, [this] {
        m_seen = m_results->store();
        m_seenView = m_results->view();
        emit resultsChanged();
    });
    connect(this, &StationWindow::resultsChanged, this, &StationWindow::showCharts);
    connect(m_pages, &QTabWidget::currentChanged, this, &StationWindow::showCharts);
    m_ticks.setInterval(kTick);
    connect(&m_ticks, &QTimer::timeout, this, &StationWindow::showProgress);
    addKeys(QStringLiteral("Stop"), {QKeySequence(Qt::Key_Escape)}, [this] { stop(); });

    std::vector<QWidget*> order{m_open, m_paste};
    for (const auto& part : {m_mapping->tabOrder(), m_results->tabOrder(), m_charts->tabOrder()})
        order.insert(order.end(), part.begin(), part.end());
    for (QWidget* const widget : {static_cast<QWidget*>(m_indices), static_cast<QWidget*>(m_stop),
                                  static_cast<QWidget*>(m_calculate)})
        order.push_back(widget);
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);

    listen(*centralWidget(), m_import.changed, [this] { showState(); });
    listen(*this, m_surroundings.workspace.changed, [this] { showState(); });
    listen(*this, m_surroundings.workspace.form().List_Indices.change, [this] { showState(); });
    takeDroppedFiles(
        *this, [this] { return !m_runs.running(); }, [this](const QString& path) { openFile(fromQt(path)); });
    resize(kSize.boundedTo(screen()->availableSize()));
    restorePlace(*this, m_surroundings.workspace.preferences(), kPlaceKey);
    showState();
    m_open->setFocus();
}

StationWindow::~StationWindow()
{
    // The pages listen to what ends with this window.
    m_pages->disconnect(this);
    delete takeCentralWidget();
}

QWidget* StationWindow::buildTop()
{
    m_open =
        button(QStringLiteral("&Open …"), QStringLiteral("cmd_Open_Station"),
               QStringLiteral("Opens a table: a text with any separator, an XLSX workbook or an EPW weather "
                              "file (Ctrl+O). A file can also be dropped on the window"));
    m_open->setShortcut(QKeySequence::Open);
    m_paste = button(QStringLiteral("From Clip&board"), QStringLiteral("cmd_Paste_Station"),
                     QStringLiteral("Opens the table that lies on the clipboard (Ctrl+Shift+V)"));
    m_paste->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V));
    m_name = new CutLabel;
    m_name->setObjectName(QStringLiteral("lbl_Name"));
    connect(m_open, &QPushButton::clicked, this, &StationWindow::open);
    connect(m_paste, &QPushButton::clicked, this, &StationWindow::openClipboard);
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_open);
    layout->addWidget(m_paste);
    layout->addWidget(m_name, 1);
    return row;
}

QWidget* StationWindow::buildBottom()
{
    m_rules = new QLabel;
    m_rules->setObjectName(QStringLiteral("lbl_Rules"));
    m_rules->setAccessibleName(QStringLiteral("Rules of the run"));
    m_rules->setToolTip(
        tip(QStringLiteral("The rules, the use of limits and the assumptions are those of the "
                           "options in the main window")));
    m_indices = button(QStringLiteral("&Indices …"), QStringLiteral("cmd_Run_Indices"),
                       QStringLiteral("Which indices are calculated for each row"));
    m_bar = new QProgressBar;
    m_bar->setObjectName(QStringLiteral("bar_Run"));
    m_bar->setAccessibleName(QStringLiteral("Progress of the run"));
    m_bar->setTextVisible(false);
    m_left = new QLabel;
    m_left->setObjectName(QStringLiteral("lbl_Progress"));
    m_stop = button(QStringLiteral("&Stop"), QStringLiteral("cmd_Stop_Run"),
                    QStringLiteral("Ends the run (Escape); the rows that are done stay"));
    m_stop->setIcon(style()->standardIcon(QStyle::SP_BrowserStop));
    m_calculate = button(QStringLiteral("Calculate"), QStringLiteral("cmd_Calculate_Station"),
                         QStringLiteral("Calculates the chosen indices of every row (F5)"));
    m_calculate->setIcon(QIcon(QStringLiteral(":/calculate.svg")));
    m_calculate->setShortcut(Qt::Key_F5);
    connect(m_indices, &QPushButton::clicked, this, &StationWindow::chooseIndices);
    connect(m_stop, &QPushButton::clicked, this, &StationWindow::stop);
    connect(m_calculate, &QPushButton::clicked, this, &StationWindow::calculate);
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_bar, 1);
    layout->addWidget(m_left);
    layout->addStretch(1);
    layout->addWidget(m_indices);
    layout->addWidget(m_rules);
    layout->addWidget(m_stop);
    layout->addWidget(m_calculate);
    return row;
}

// --- opening

void StationWindow::open()
{
    const auto path = m_surroundings.files.askOpen(
        {.title = "Open a Station File",
         .filter = "Tables (*.csv *.tsv *.txt *.dat *.xlsx *.epw)|*.csv *.tsv *.txt *.dat *.xlsx *.epw"});
    if (path && !path->empty())
        openFile(*path);
}

void StationWindow::openFile(const std::string& path)
{
    look({workbench::sourceOfFile(path)});
}

void StationWindow::openClipboard()
{
    look({workbench::sourceOfText(m_surroundings.clipboard.text())});
}

void StationWindow::look(const workbench::LookRequest& request)
{
    if (m_runs.running()) {
        m_message->showText(QStringLiteral("A run is under way; stop it before another table is opened."));
        return;
    }
    m_looking = true;
    m_form.show(); // to the front, where a dialog of another window stood
    m_looker.ask(request);
    showState();
    m_message->showText(QStringLiteral("Opening ") + toQt(request.source.name) + QStringLiteral(" …"));
}

void StationWindow::takeLook()
{
    auto look = m_looker.take();
    if (!look)
        return;
    m_looking = false;
    const auto again = m_import.take(std::move(*look));
    if (again) {
        this->look(*again);
        return;
    }
    if (const std::string& path = m_import.look().source.path; m_import.fault().empty() && !path.empty())
        workspace::RecentFiles(m_surroundings.workspace.preferences(), kRecentStations).add(path);
    if (m_import.fault().empty() && !m_results->store())
        m_pages->setCurrentWidget(m_mapping);
    showState();
    if (!m_import.fault().empty())
        m_message->showText(toQt(m_import.fault()));
}

// --- running

std::string StationWindow::friction() const
{
    return m_surroundings.workspace.form()
        .inputs()
        .assumptions[static_cast<std::size_t>(classic::Assumption::Friction)];
}

tables::RunOptions StationWindow::options() const
{
    const classic::Inputs inputs = m_surroundings.workspace.form().inputs();
    tables::RunOptions options;
    options.settings = inputs.settings;
    options.assumptions = inputs.assumptions;
    if (m_selection)
        options.settings.selection = *m_selection;
    options.threads = std::max(1U, std::thread::hardware_concurrency());
    return options;
}

void StationWindow::chooseIndices()
{
    IndexChoice dialog(options().settings.selection, m_figures, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    m_figures = dialog.figures();
    m_selection = dialog.selection();
    if (m_selection == m_surroundings.workspace.form().inputs().settings.selection)
        m_selection.reset();
    showState();
}

void StationWindow::calculate()
{
    if (busy() || !m_import.isOpen() || !m_import.whyNot(friction()).empty())
        return;
    const tables::RunOptions wanted = options();
    const std::size_t spare = workbench::memoryToSpare();
    const std::size_t columns = batch::selectedIndices(wanted.settings.selection).size() + m_figures.size();
    if (const std::string sentence = m_import.tooBig(columns, spare); !sentence.empty()) {
        m_message->showText(toQt(sentence));
        return;
    }
    m_ranSource = m_import.look().source;
    m_runs.start({m_import.look().source, m_import.mapping(), wanted, spare, m_figures,
                  m_surroundings.workspace.person.texts()});
    begin();
}

void StationWindow::calculateAgain()
{
    if (busy() || !m_results->store())
        return;
    m_runs.startAgain(m_results->store());
    begin();
}

void StationWindow::begin()
{
    m_ticks.start();
    m_message->showText({});
    showProgress();
    showState();
}

void StationWindow::stop()
{
    if (m_runs.running())
        m_runs.stop();
}

void StationWindow::takeRun()
{
    auto result = m_runs.takeResult();
    if (!result)
        return;
    m_ticks.stop();
    if (result->store) {
        m_results->show(std::move(result->store));
        m_pages->setCurrentWidget(m_results);
        m_results->setFocus(Qt::OtherFocusReason);
    }
    showState();
    if (!result->fault.empty())
        m_message->showText(toQt(result->fault));
}

void StationWindow::showProgress()
{
    const workbench::RunProgress progress = m_runs.progress();
    m_bar->setRange(0, progress.share ? kBarSteps : 0);
    if (progress.share)
        m_bar->setValue(static_cast<int>(std::lround(*progress.share * kBarSteps)));
    QString text = QStringLiteral("%1 rows").arg(progress.rows);
    if (progress.stopping)
        text = QStringLiteral("Stopping …");
    else if (progress.secondsLeft)
        text += QStringLiteral(", ") + timeLeft(*progress.secondsLeft);
    m_left->setText(text);
}

// --- what stands

QString StationWindow::earlier() const
{
    if (!m_results->store())
        return {};
    const workbench::RunFacts& facts = m_results->store()->facts();
    QStringList changed;
    if (!(m_import.look().source == m_ranSource)) {
        changed += QStringLiteral("another table is open");
    } else {
        tables::Mapping now = m_import.mapping();
        tables::Mapping then = facts.mapping;
        now.name = then.name = {}; // keeping it changes no figure
        if (!(now == then))
            changed += QStringLiteral("the mapping has changed");
    }
    const tables::RunOptions now = options();
    if (now.settings.rules != facts.options.settings.rules ||
        now.settings.ignoreLimits != facts.options.settings.ignoreLimits)
        changed += QStringLiteral("the rules have changed");
    if (!(now.settings.selection == facts.options.settings.selection))
        changed += QStringLiteral("other indices are chosen");
    const auto same = [](const catalogue::Figure& one, const catalogue::Figure& other) {
        return one.model == other.model && one.result == other.result;
    };
    if (!std::equal(m_figures.begin(), m_figures.end(), facts.figures.begin(), facts.figures.end(), same))
        changed += QStringLiteral("other figures of models are chosen");
    if (facts.hasModels() && m_surroundings.workspace.person.texts() != facts.person)
        changed += QStringLiteral("person and place have changed");
    if (now.assumptions != facts.options.assumptions)
        changed += QStringLiteral("the assumptions have changed");
    if (changed.isEmpty())
        return {};
    return QStringLiteral("These are the results of run %1, of %2; since then %3.")
        .arg(facts.number)
        .arg(toQt(facts.source), changed.join(QStringLiteral(", ")));
}

void StationWindow::showState()
{
    const bool running = m_runs.running();
    const tables::RunOptions now = options();
    const std::size_t indices = batch::selectedIndices(now.settings.selection).size() + m_figures.size();
    m_indices->setText(QStringLiteral("&Indices: %1 …").arg(indices));
    m_rules->setText(toQt(classic::inForce(now.settings)));
    m_name->showText(m_import.isOpen() ? whereOf(m_import.look().source)
                                       : QStringLiteral("Open a table, or drop a file here."));
    std::string why = indices == 0 ? "No index is chosen." : m_import.whyNot(friction());
    m_calculate->setEnabled(!running && !m_looking && why.empty());
    m_calculate->setVisible(!running);
    m_stop->setVisible(running);
    m_bar->setVisible(running);
    m_left->setVisible(running);
    m_open->setEnabled(!running);
    m_paste->setEnabled(!running);
    m_indices->setEnabled(!running);
    m_mapping->setEnabled(!running && m_import.isOpen());
    m_results->setRunning(running);
    m_results->setEarlier(earlier());
    if (!running && !m_looking)
        m_message->showText(m_import.isOpen() ? toQt(why) : QString());
    emit resultsChanged();
}

void StationWindow::showCharts()
{
    if (m_pages->currentWidget() != m_charts || !m_seenView) {
        if (m_chartedView != m_seenView) { // a large table is not held twice
            m_chartedView.reset();
            m_charts->forget();
        }
        return;
    }
    const QString since = earlier();
    const bool same = m_chartedView == m_seenView;
    if (!same || m_chartedEarlier != since) {
        m_chartedView = m_seenView;
        m_chartedEarlier = since;
        m_charts->show(std::make_shared<workbench::StoreRows>(m_seen, m_seenView->ascending,
                                                              m_seenView->words, fromQt(since)),
                       same);
    }
    // Who went to another index meanwhile wants to see it.
    if (const auto item = m_results->currentItem(); item && item != m_chartedItem) {
        m_chartedItem = item;
        m_charts->choose(*item);
    }
}

// --- the end

// What is open stays open, and a run goes on.
void StationWindow::closeEvent(QCloseEvent* event)
{
    keepPlace(*this, m_surroundings.workspace.preferences(), kPlaceKey);
    event->accept();
    m_form.hide();
}

} // namespace comfortics::ui
