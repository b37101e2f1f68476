// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_window.h"

#include "shell/status_line.h"
#include "ui/bindings.h"
#include "ui/index_panel.h"
#include "ui/live_panel.h"
#include "ui/options_page.h"
#include "ui/panels.h"
#include "ui/readings_panel.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStackedWidget>
#include <QStatusBar>

#include <algorithm>
#include <vector>

namespace comfortics::ui {

namespace {

constexpr int kConverterWidth = 280; // what placing leaves free at the side
constexpr int kLeastWidth = 1100;
constexpr double kScreenShare = 0.92;
constexpr double kContentShare = 0.75;
constexpr int kReadingsInCharacters = 68; // at most, so that on a wide screen units stay beside their boxes
const QString kIndices = QStringLiteral("indices");

} // namespace

MainWindow::MainWindow(workspace::Workspace& workspace, const QString& warning)
    : FormWindow(workspace.form()), m_workspace(workspace), m_form(workspace.form())
{
    setMenuBar(new MenuBar);
    buildMenus();
    buildStatus(warning);

    m_area = new ContentArea(buildContent());
    m_area->claimWidth(kContentShare);
    setCentralWidget(m_area);
    buildPanels();

    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        showPanel(kIndices);
        m_indices->search();
    });
    connect(new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_F, this), &QShortcut::activated, this, [this] {
        showPanel(kIndices);
        m_indices->find();
    });
    // Wherever the focus is: a click beside the boxes leaves it in the list.
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, [this] {
        if (m_form.Fra_Options.visible())
            turnOptions();
    });
    connect(m_options, &OptionsPage::closeWanted, this, &MainWindow::turnOptions);
    setTabOrders();
    follow(*this, m_form.standing, [this] { showStanding(); });
    m_readings->line(classic::Reading::TA).setFocus();
}

QWidget* MainWindow::buildContent()
{
    auto* const content = new QWidget;
    auto* const columns = new QHBoxLayout(content);
    columns->setContentsMargins(kGap, kGap, kGap, kGap);
    columns->setSpacing(kGap);
    // A page of its own in place of the readings: what cannot be seen cannot be reached.
    auto* const pages = new QStackedWidget;
    m_readings = new ReadingsPanel(m_form);
    m_options = new OptionsPage(m_form);
    pages->addWidget(m_readings);
    pages->addWidget(m_options);
    follow(*m_options, m_form.Fra_Options.appearance, [this, pages] {
        pages->setCurrentWidget(m_form.Fra_Options.visible() ? static_cast<QWidget*>(m_options) : m_readings);
    });
    pages->setMaximumWidth(fontMetrics().averageCharWidth() * kReadingsInCharacters);
    auto* const live = new LivePanel(m_form);
    live->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    columns->addWidget(pages, 2);
    columns->addWidget(live);
    columns->addStretch(1);
    return content;
}

void MainWindow::buildPanels()
{
    m_indices = new IndexPanel(m_workspace);
    m_panels->add(kIndices, QStringLiteral("Indices"), m_indices, PanelPlace::Right, true);
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
    const auto add = [](QWidget& menu, controls::MenuEntry& entry, char mnemonic, const QString& tip) {
        auto* const action = new QAction(&menu);
        bind(*action, entry, mnemonic);
        if (!tip.isEmpty())
            action->setProperty("tip", tip);
        menu.addAction(action);
        return action;
    };
    QMenuBar& bar = *menuBar();
    m_file = bar.addMenu(QStringLiteral("&File"));
    auto* const view = bar.addMenu(QStringLiteral("&View"));
    m_panels = new Panels(*this, *view, nullptr);

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

void MainWindow::buildStatus(const QString& warning)
{
    statusBar()->setContentsMargins(kSmallGap, 0, 0, 0);
    m_status = new CutLabel;
    statusBar()->addWidget(m_status, 1);
    if (!warning.isEmpty()) {
        auto* const label = new CutLabel;
        label->showText(warning);
        statusBar()->addPermanentWidget(label, 1);
    }
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
    const std::vector<QWidget*> readings = m_readings->tabOrder();
    const auto buttons = readings.begin() + classic::kReadingCount;
    std::vector<QWidget*> order(readings.begin(), buttons);
    order.insert(order.end(), m_indices->tabOrder().begin(), m_indices->tabOrder().end());
    order.insert(order.end(), buttons, readings.end());
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
    const QRect usable = screen()->availableGeometry();
    // As wide as it likes, but with room for the converter; the index list gives way. A screen too narrow
    // for both is the window's alone.
    const int beside = usable.width() - kConverterWidth;
    const int width = std::min(sizeHint().width(), beside < kLeastWidth ? usable.width() : beside);
    resize(width, std::min(sizeHint().height(), static_cast<int>(usable.height() * kScreenShare)));
    const int free = std::max(usable.width() - width, 0);
    placeWithin(usable, usable.topLeft() + QPoint((free - std::min(free, kConverterWidth)) / 2,
                                                  (usable.height() - height()) / 3));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_form.visible() && m_form.Form_QueryUnload())
        event->ignore();
    else
        event->accept();
}

} // namespace comfortics::ui
