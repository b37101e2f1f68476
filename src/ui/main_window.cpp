// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_window.h"

#include "shell/status_line.h"
#include "ui/about.h"
#include "ui/bindings.h"
#include "ui/cards_panel.h"
#include "ui/file_drops.h"
#include "ui/guide_window.h"
#include "ui/index_panel.h"
#include "ui/live_panel.h"
#include "ui/options_page.h"
#include "ui/panels.h"
#include "ui/readings_panel.h"
#include "ui/results_window.h"
#include "ui/text.h"
#include "ui/widgets.h"
#include "ui/window_memory.h"
#include "ui/zoom.h"
#include "workspace/kept_bytes.h"
#include "workspace/zoom_steps.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStatusBar>

#include <algorithm>
#include <chrono>
#include <vector>

namespace comfortics::ui {

namespace {

constexpr std::chrono::seconds kPause{1}; // after which what is typed is another step
constexpr std::chrono::seconds kQuietBeforeKeeping{2};
constexpr int kConverterWidth = 280; // what placing leaves free at the side
constexpr int kLeastWidth = 1100;
constexpr double kScreenShare = 0.92;
constexpr int kHeightInLines = 48; // some cards high, where the screen has it
constexpr double kContentShare = 0.75;
constexpr int kReadingsInCharacters = 68; // at most, so that on a wide screen units stay beside their boxes
const QString kIndices = QStringLiteral("indices");
const QString kResults = QStringLiteral("results");
constexpr const char* kPlaceKey = "window/place";
constexpr const char* kPanelsKey = "window/panels";
constexpr const char* kResultsKey = "results/window";
constexpr const char* kResultsPlaceKey = "results/place";
constexpr const char* kDocked = "docked";

} // namespace

MainWindow::MainWindow(workspace::Workspace& workspace, const QString& warning)
    : FormWindow(workspace.form(), {}), m_workspace(workspace), m_form(workspace.form())
{
    setMenuBar(new MenuBar);
    buildMenus();
    buildStatus(warning);

    m_area = new ContentArea(buildContent());
    setCentralWidget(m_area);
    buildPanels();
    m_keeping.setObjectName(QStringLiteral("keeping"));
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(kQuietBeforeKeeping);
    connect(&m_keeping, &QTimer::timeout, this, &MainWindow::keepLayout);
    connect(m_panels, &Panels::changed, &m_keeping, qOverload<>(&QTimer::start));
    connect(m_panels, &Panels::likedWidthChanged, this, &MainWindow::arrangeColumns);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &MainWindow::keepLayout);

    addKeys(QStringLiteral("Search the list"), {QKeySequence::Find}, [this] {
        showPanel(kIndices);
        m_indices->search();
    });
    addKeys(QStringLiteral("Find an index"), {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)}, [this] {
        showPanel(kIndices);
        m_indices->find();
    });
    // Wherever the focus is: a click beside the boxes leaves it in the list.
    addKeys(QStringLiteral("Close the options"), {QKeySequence(Qt::Key_Escape)}, [this] {
        if (m_form.Fra_Options.visible())
            turnOptions();
    });
    connect(m_options, &OptionsPage::closeWanted, this, &MainWindow::turnOptions);
    setTabOrders();
    takeDroppedFiles(
        *this, [] { return true; }, [this](const QString& path) { emit fileDropped(path); });
    follow(*this, m_form.standing, [this] { showStanding(); });
    connect(this, &FormWindow::guideWanted, this, &MainWindow::showGuide);
    m_lastReading = &m_readings->line(classic::Reading::TA);
    m_lastReading->setFocus();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (auto* const line = qobject_cast<QLineEdit*>(now); line && m_readings->isAncestorOf(line))
            m_lastReading = line;
    });
}

MainWindow::~MainWindow()
{
    // The panels close with the window, which is no longer there to arrange itself for it.
    m_panels->disconnect(this);
}

QWidget* MainWindow::buildContent()
{
    auto* const content = new QWidget;
    m_columns = new QGridLayout(content);
    m_columns->setContentsMargins(kGap, kGap, kGap, kGap);
    m_columns->setSpacing(kGap);
    // A page of its own in place of the readings: what cannot be seen cannot be reached.
    m_pages = new QStackedWidget;
    m_readings = new ReadingsPanel(m_workspace);
    m_options = new OptionsPage(m_workspace);
    m_pages->addWidget(m_readings);
    m_pages->addWidget(m_options);
    follow(*m_options, m_form.Fra_Options.appearance, [this] {
        m_pages->setCurrentWidget(m_form.Fra_Options.visible() ? static_cast<QWidget*>(m_options)
                                                               : m_readings);
    });
    m_pages->setMaximumWidth(fontMetrics().averageCharWidth() * kReadingsInCharacters);
    m_live = new LivePanel(m_form);
    m_live->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    m_columns->addWidget(m_pages, 0, 0);
    m_columns->addWidget(m_live, 0, 1);
    m_columns->addWidget(m_cards = new CardsPanel(m_workspace), 0, 2, 2, 1);
    m_columns->setColumnStretch(0, 2);
    m_columns->setColumnStretch(2, 3);
    m_columns->setRowStretch(0, 1);
    return content;
}

// Where this screen has no room for three columns beside an opened panel, or the letters are too large for
// them, the live quantities go below the readings: cards and panel stay in sight.
void MainWindow::arrangeColumns()
{
    const QRect usable = screen()->availableGeometry();
    const int share = static_cast<int>(usable.width() * kContentShare);
    const int room = std::min(share, usable.width() - m_panels->likedWidth());
    const int cards = m_cards->sizeHint().width();
    const int threeColumns =
        m_pages->minimumSizeHint().width() + m_live->minimumSizeHint().width() + cards + 4 * kGap;
    const bool below = threeColumns > room;
    if (below != m_liveBelow) {
        m_liveBelow = below;
        m_columns->removeWidget(m_live);
        m_columns->addWidget(m_live, below ? 1 : 0, below ? 0 : 1);
        m_live->setSizePolicy(below ? QSizePolicy::Preferred : QSizePolicy::Maximum, QSizePolicy::Preferred);
        m_live->setTight(below);
        m_columns->setRowStretch(0, below ? 0 : 1);
        m_columns->setRowStretch(1, below ? 1 : 0);
        m_columns->activate();
        if (!isMaximized() && !isFullScreen())
            resize(size().boundedTo(usable.size() - (frameGeometry().size() - size())));
    }
    const int wish = cards - m_cards->minimumSizeHint().width();
    m_area->claimWidth(share,
                       std::clamp(room - m_area->widget()->minimumSizeHint().width(), 0, std::max(wish, 0)));
}

void MainWindow::buildPanels()
{
    m_indices = new IndexPanel(m_workspace);
    m_panels->add(kIndices, QStringLiteral("Indices"), m_indices, PanelPlace::Right, true);
    m_resultsPanel = &m_panels->add(kResults, QStringLiteral("Results"), nullptr, PanelPlace::Right);
    m_resultsPanel->installEventFilter(this);
    // It is there with the results, not at will.
    m_view->removeAction(m_resultsPanel->toggleViewAction());
}

QDockWidget& MainWindow::addPanel(const QString& name, const QString& title, QWidget* content,
                                  PanelPlace place)
{
    return m_panels->add(name, title, content, place);
}

void MainWindow::showPanel(const QString& name)
{
    m_panels->show(name);
}

void MainWindow::buildMenus()
{
    QMenuBar& bar = *menuBar();
    m_file = bar.addMenu(QStringLiteral("&File"));
    m_edit = bar.addMenu(QStringLiteral("&Edit"));
    m_view = bar.addMenu(QStringLiteral("&View"));
    buildFormsMenus(bar);
    buildFileAndEdit();
    buildView();
    QMenu& help = *bar.addMenu(QStringLiteral("Hel&p"));
    help.addAction(&helpAction());
    help.addAction(QStringLiteral("&Keyboard"), this, [this] { showGuide(QStringLiteral("keyboard")); });
    help.addSeparator();
    help.addAction(QStringLiteral("&About Comfortics"), this, [this] { showAbout(*this); });
}

// Those that the form has, letter for letter.
void MainWindow::buildFormsMenus(QMenuBar& bar)
{
    const auto add = [](QWidget& menu, controls::MenuEntry& entry, char mnemonic, const QString& tip) {
        auto* const action = new QAction(&menu);
        bind(*action, entry, mnemonic);
        if (!tip.isEmpty())
            action->setProperty("tip", tip);
        menu.addAction(action);
        return action;
    };
    add(bar, m_form.Menu_Raw_Data, 'R', QStringLiteral("Calculates many rows of readings"));
    add(bar, m_form.Menu_Radiation, 'S', QStringLiteral("Estimates solar radiation for a day and a place"));
    add(bar, m_form.Menu_Converter, 'C', QStringLiteral("Converts other units into those of the readings"));
    listen(*this, m_form.Menu_Converter.click, [this] { tellPlace(); }); // where it docks

    auto* const hotkeys = new QMenu(withMnemonic(m_form.menu_Hotkeys.caption(), 'H'), &bar);
    for (controls::MenuEntry* const entry :
         {&m_form.menu_Enter, &m_form.menu_Backspace, &m_form.Menu_Delete, &m_form.Menu_Arrows})
        add(*hotkeys, *entry, 0, {});
    bar.addMenu(hotkeys);

    const auto* const options = add(bar, m_form.Menu_Options, 'O',
                                    QStringLiteral("Assumptions on body and site, and the use of limits"));
    connect(options, &QAction::triggered, this, [this] { focusOptions(); });
}

void MainWindow::buildFileAndEdit()
{
    const auto ofResults = [this](QMenu& menu, const QString& text, const QKeySequence& keys,
                                  controls::MenuEntry output::Frm_Comfortics::*entry) {
        QAction& action = addKeys(text, {keys}, [this, entry] {
            if (m_resultsForm != nullptr)
                (m_resultsForm->*entry).click.raise();
        });
        action.setEnabled(false);
        menu.addAction(&action);
        m_resultsActions.push_back(&action);
    };
    m_edit->addAction(
        &addKeys(QStringLiteral("&Undo"), {QKeySequence::Undo}, [this] { m_workspace.history.undo(); }));
    m_edit->addAction(&addKeys(QStringLiteral("&Redo"), {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)},
                               [this] { m_workspace.history.redo(); }));
    m_edit->addSeparator();
    // When the boxes have had their say on what was typed.
    m_noting.setSingleShot(true);
    connect(&m_noting, &QTimer::timeout, this, [this] { m_workspace.history.note(); });
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPause);
    connect(&m_pause, &QTimer::timeout, this, [this] { m_workspace.history.pause(); });
    for (controls::Event* const event : {&m_form.standing, &m_workspace.person.changed})
        listen(*this, *event, [this] {
            m_noting.start();
            m_pause.start();
        });

    ofResults(*m_file, QStringLiteral("&Export Results …"), QKeySequence(Qt::CTRL | Qt::Key_E),
              &output::Frm_Comfortics::Menu_Export);
    ofResults(*m_file, QStringLiteral("Pri&nt Results …"), QKeySequence::Print,
              &output::Frm_Comfortics::Menu_Print);
    m_file->addSeparator();
    QAction& quit =
        addKeys(QStringLiteral("&Quit"), {QKeySequence(Qt::CTRL | Qt::Key_Q)}, [this] { close(); });
    quit.setShortcutContext(Qt::ApplicationShortcut);
    m_file->addAction(&quit);
    ofResults(*m_edit, QStringLiteral("&Copy Results"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
              &output::Frm_Comfortics::Menu_Copy_Copy);
}

void MainWindow::buildView()
{
    QAction& back =
        addKeys(QStringLiteral("Back to the &Readings"),
                {QKeySequence(Qt::CTRL | Qt::Key_L), QKeySequence(Qt::Key_F6)}, [this] { backToReadings(); });
    m_view->addAction(&back);
    m_view->addSeparator();
    QAction* const panelsEnd = m_view->addSeparator();
    m_panels = new Panels(*this, *m_view, panelsEnd);

    m_dockResults = m_view->addAction(QStringLiteral("Results &Beside the Readings"));
    m_dockResults->setCheckable(true);
    connect(m_dockResults, &QAction::toggled, this, &MainWindow::dockResults);
    m_view->addAction(QStringLiteral("Reset &Layout"), this, &MainWindow::resetLayout);
    m_view->addSeparator();
    m_zoom = new Zoom(this);
    const auto zoom = [this](const QString& text, const QList<QKeySequence>& keys, auto size) {
        QAction& action = addKeys(text, keys, [this, size] { m_zoom->setPercent(size(m_zoom->percent())); });
        action.setShortcutContext(Qt::ApplicationShortcut);
        m_view->addAction(&action);
    };
    zoom(QStringLiteral("Zoom &In"), {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)},
         [](int percent) { return workspace::nextZoom(percent, true); });
    zoom(QStringLiteral("Zoom &Out"), {QKeySequence::ZoomOut},
         [](int percent) { return workspace::nextZoom(percent, false); });
    zoom(QStringLiteral("Ori&ginal Size"), {QKeySequence(Qt::CTRL | Qt::Key_0)},
         [](int) { return workspace::kZoomOriginal; });
    back.setShortcutContext(Qt::ApplicationShortcut);
    m_zoom->setPercent(workspace::keptZoom(m_workspace.preferences()));
    connect(m_zoom, &Zoom::changed, this, [this](int percent) {
        workspace::keepZoom(m_workspace.preferences(), percent);
        QTimer::singleShot(0, this, &MainWindow::arrangeColumns); // the columns take the letters later
    });
}

void MainWindow::takeResults(output::Frm_Comfortics* form, ResultsWindow* window)
{
    if (form == nullptr)
        m_resultsPanel->hide();
    m_resultsForm = form;
    m_results = window;
    if (window != nullptr) {
        window->installEventFilter(this);
        restorePlace(*window, m_workspace.preferences(), kResultsPlaceKey);
        dockResults(m_dockResults->isChecked());
    }
    for (QAction* const action : m_resultsActions)
        action->setEnabled(form != nullptr);
}

QString MainWindow::chapter() const
{
    if (m_form.Fra_Options.visible())
        return QStringLiteral("the-options");
    if (const QWidget* const focus = QApplication::focusWidget(); focus && m_indices->isAncestorOf(focus))
        return QStringLiteral("the-list-of-indices");
    return QStringLiteral("the-main-window");
}

void MainWindow::showGuide(const QString& chapter)
{
    if (!m_guide)
        m_guide = std::make_unique<GuideWindow>();
    m_guide->open(chapter);
}

void MainWindow::backToReadings()
{
    if (!m_form.visible())
        return;
    if (m_form.Fra_Options.visible())
        m_form.Menu_Options.click.raise();
    if (isMinimized())
        showNormal();
    raise();
    activateWindow();
    m_lastReading->setFocus(Qt::ShortcutFocusReason);
    m_area->ensureWidgetVisible(m_lastReading);
}

void MainWindow::buildStatus(const QString& warning)
{
    statusBar()->setContentsMargins(kSmallGap, 0, 0, 0);
    m_status = new CutLabel;
    statusBar()->addWidget(m_status, 1);
    if (!warning.isEmpty())
        warn(warning);
}

void MainWindow::warn(const QString& sentence)
{
    auto* const label = new CutLabel;
    label->showText(sentence);
    statusBar()->addPermanentWidget(label, 1);
}

// What is told of earlier readings stands in quieter text.
void MainWindow::showStanding()
{
    const shell::StatusLine status = shell::statusLine(m_form);
    m_status->setForegroundRole(status.ofEarlier ? QPalette::PlaceholderText : QPalette::NoRole);
    m_status->showText(toQt(status.text));
}

void MainWindow::setTabOrders()
{
    std::vector<QWidget*> order = m_readings->fields();
    order.insert(order.end(), m_indices->tabOrder().begin(), m_indices->tabOrder().end());
    order.insert(order.end(), m_readings->buttons().begin(), m_readings->buttons().end());
    order.insert(order.end(), m_cards->tabOrder().begin(), m_cards->tabOrder().end());
    order.insert(order.end(), m_options->tabOrder().begin(), m_options->tabOrder().end());
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void MainWindow::turnOptions()
{
    m_form.Menu_Options.click.raise();
    focusOptions();
}

// The options hide the readings: the keyboard goes to what is in sight, which stands at the left top.
void MainWindow::focusOptions()
{
    if (m_form.Fra_Options.visible())
        m_options->first().setFocus(Qt::ShortcutFocusReason);
    else
        m_readings->line(classic::Reading::TA).setFocus(Qt::OtherFocusReason);
    m_area->horizontalScrollBar()->setValue(0);
    m_area->verticalScrollBar()->setValue(0);
}

void MainWindow::placeOnScreen()
{
    arrangeColumns();
    placeAsNew();
    const workspace::Preferences& preferences = m_workspace.preferences();
    restorePlace(*this, preferences, kPlaceKey);
    if (const auto kept = workspace::keptBytes(preferences, kPanelsKey)) {
        const bool wasBelow = m_liveBelow;
        m_panels->restore(QByteArray::fromStdString(*kept));
        arrangeColumns();
        if (m_liveBelow != wasBelow) // beside three columns an opened panel had no room for its width
            m_panels->restore(QByteArray::fromStdString(*kept));
    }
    m_dockResults->setChecked(preferences.read(kResultsKey) == kDocked);
    m_resultsPanel->hide(); // until there are results
}

// However the program will end; closing it hides all windows at once, of which nothing is kept any more.
void MainWindow::keepLayout()
{
    m_keeping.stop();
    if (!m_form.visible())
        return;
    workspace::Preferences& preferences = m_workspace.preferences();
    keepPlace(*this, preferences, kPlaceKey);
    workspace::keepBytes(preferences, kPanelsKey, m_panels->state().toStdString());
    if (m_results && m_results->isWindow())
        keepPlace(*m_results, preferences, kResultsPlaceKey);
}

void MainWindow::resetLayout()
{
    m_dockResults->setChecked(false);
    m_panels->reset();
    showNormal();
    placeAsNew();
    if (m_results)
        m_results->placeBeside(*this);
}

// Its own window as well as a panel beside the readings.
void MainWindow::dockResults(bool docked)
{
    if (docked)
        m_workspace.preferences().write(kResultsKey, kDocked);
    else
        m_workspace.preferences().remove(kResultsKey);
    if (!m_results)
        return;
    const bool visible = m_results->isVisible();
    if (docked && m_results->isWindow()) {
        keepPlace(*m_results, m_workspace.preferences(), kResultsPlaceKey);
        m_results->setPart(true);
        m_resultsPanel->setWidget(m_results);
        m_results->setVisible(visible);
        m_resultsPanel->setVisible(visible);
        m_resultsPanel->raise();
    } else if (!docked && !m_results->isWindow()) {
        m_results->setPart(false);
        m_results->setParent(nullptr, Qt::Window);
        m_resultsPanel->hide();
        m_results->placeBeside(*this);
        restorePlace(*m_results, m_workspace.preferences(), kResultsPlaceKey);
        m_results->setVisible(visible);
    }
}

// Closing the panel closes what it shows.
bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_resultsPanel && event->type() == QEvent::Close && m_results)
        m_results->close();
    if (watched == m_results && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        m_keeping.start();
    if (watched == m_results && event->type() == QEvent::Hide && m_results->isWindow())
        keepPlace(*m_results, m_workspace.preferences(), kResultsPlaceKey);
    return FormWindow::eventFilter(watched, event);
}

void MainWindow::placeAsNew()
{
    const QRect usable = screen()->availableGeometry();
    // As wide as it likes, but with room for the converter; the index list gives way. A screen too narrow
    // for both is the window's alone.
    const int beside = usable.width() - kConverterWidth;
    const int width = std::min(sizeHint().width(), beside < kLeastWidth ? usable.width() : beside);
    const int height = std::max(sizeHint().height(), fontMetrics().lineSpacing() * kHeightInLines);
    resize(width, std::min(height, static_cast<int>(usable.height() * kScreenShare)));
    const int free = std::max(usable.width() - width, 0);
    placeWithin(usable, usable.topLeft() + QPoint((free - std::min(free, kConverterWidth)) / 2,
                                                  (usable.height() - this->height()) / 3));
}

void MainWindow::moveEvent(QMoveEvent* event)
{
    FormWindow::moveEvent(event);
    m_keeping.start();
}

void MainWindow::resizeEvent(QResizeEvent* event)
{
    FormWindow::resizeEvent(event);
    m_keeping.start();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    keepLayout();
    if (m_form.visible() && m_form.Form_QueryUnload())
        event->ignore();
    else
        event->accept();
}

} // namespace comfortics::ui
