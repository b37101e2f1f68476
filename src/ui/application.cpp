// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/application.h"

#include "ui/colors.h"
#include "ui/comparison_panel.h"
#include "ui/person_panel.h"
#include "ui/report_dialog.h"
#include "ui/session_menu.h"
#include "ui/sheet_panel.h"
#include "ui/text.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QIcon>
#include <QMenu>
#include <QPalette>

#include <chrono>
#include <functional>
#include <utility>

// Outside of all namespaces, as the macro wants it. The pictures lie in a library, which the linker
// would leave out otherwise.
static void loadPictures()
{
    Q_INIT_RESOURCE(resources);
}

namespace comfortics::ui {

namespace {

constexpr float kQuiet = 0.6F;
constexpr int kLeastLinkLightness = 150; // of 255, on a dark ground
constexpr QColor kLinkOnDark(0x7A, 0xB8, 0xFF);
constexpr std::chrono::seconds kQuietBeforeKeeping{2};

// The window comes and goes with its form. It may be on the stack when its form goes.
template <class Form, class Window>
void pair(shell::FormSlot<Form>& slot, std::unique_ptr<Window>& window,
          std::function<std::unique_ptr<Window>(Form&)> make)
{
    slot.loaded.watch([&slot, &window, make = std::move(make)] { window = make(*slot.get()); });
    slot.unloading.watch([&window] {
        window->hide();
        window.release()->deleteLater();
    });
}

// Some desktops leave these colours as they are on a light ground.
void mendColors()
{
    QPalette palette = QApplication::palette();
    QColor quiet = palette.color(QPalette::Text);
    quiet.setAlphaF(kQuiet);
    const bool darkLinks = isDark(palette) && palette.color(QPalette::Link).lightness() < kLeastLinkLightness;
    if (palette.color(QPalette::PlaceholderText) == quiet && !darkLinks)
        return;
    palette.setColor(QPalette::PlaceholderText, quiet);
    if (darkLinks)
        palette.setColor(QPalette::Link, kLinkOnDark);
    QApplication::setPalette(palette);
}

} // namespace

Appearance::Appearance()
{
    loadPictures();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/comfortics.svg")));
    mendColors();
    qApp->installEventFilter(this);
}

bool Appearance::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange)
        mendColors();
    return QObject::eventFilter(watched, event);
}

Application::Application(const std::filesystem::path& programFolder)
    : m_shell(programFolder, {m_messages, m_clipboard, m_files, m_printing, &m_maps, &m_preferences}),
      m_report(m_shell.workspace(), m_shell.session(), m_files, m_messages, m_pdf),
      m_main(m_shell.workspace(), toQt(m_shell.limitsWarning())),
      m_situations(m_shell.workspace().limits(),
                   [this](const auto& situation) { m_shell.workspace().arrived(situation); }),
      m_pins(m_shell.workspace().limits(),
             [this](const auto& situation) { m_shell.comparison().arrived(situation); })
{
    m_shell.comparison().onAsk([this](const classic::Inputs& inputs) { m_pins.ask(inputs); });
    m_shell.workspace().onAsk([this](const classic::Inputs& inputs) { m_situations.ask(inputs); });
    m_preferences.onFailure = [this](const std::string& sentence) { m_main.warn(toQt(sentence)); };
    addPanels();
    m_main.placeOnScreen();
    pair<shell::Frm_Splash_Screen, SplashWindow>(
        m_shell.splash, m_splash, [](auto& form) { return std::make_unique<SplashWindow>(form); });
    pair<output::Frm_Comfortics, ResultsWindow>(m_shell.results, m_results, [this](auto& form) {
        return helped(std::make_unique<ResultsWindow>(form, m_shell.workspace(), m_main,
                                                      [this] { m_shell.results.unload(); }));
    });
    m_shell.results.loaded.watch([this] { m_main.takeResults(m_shell.results.get(), m_results.get()); });
    m_shell.results.unloading.watch([this] { m_main.takeResults(nullptr, nullptr); });
    pair<converter::Frm_Converter, ConverterWindow>(m_shell.converter, m_converter, [this](auto& form) {
        return helped(
            std::make_unique<ConverterWindow>(form, m_main, [this] { m_shell.converter.unload(); }));
    });
    pair<radiation::Frm_Radiation, RadiationWindow>(m_shell.radiation, m_radiation, [this](auto& form) {
        return helped(std::make_unique<RadiationWindow>(
            form, RadiationWindow::Surroundings{m_files, m_messages, m_tiles, m_tilePlaces}, m_main,
            [this] { m_shell.radiation.unload(); }));
    });
    pair<batch::Frm_Raw_Data, RawDataWindow>(m_shell.rawData, m_rawData, [this](auto& form) {
        return helped(std::make_unique<RawDataWindow>(form, m_main, [this] { m_shell.rawData.unload(); }));
    });
    addSessionEntries(
        m_main.fileMenu(), m_shell.session(),
        [this] { ReportDialog(m_report, m_shell.session(), &m_main).exec(); }, m_main);
    addStation();
    m_keep.setSingleShot(true);
    m_keep.setInterval(kQuietBeforeKeeping);
    QObject::connect(&m_keep, &QTimer::timeout, &m_main, [this] { m_shell.session().keepLast(); });
    m_shell.workspace().changed.watch([this] { m_keep.start(); });
    m_shell.comparison().changed.watch([this] { m_keep.start(); });
    // The desktop ends the session: nobody may be asked by then.
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &m_main,
                     [this] { m_shell.session().keepLast(); });
    m_shell.ended.watch([this] {
        m_shell.session().keepLast();
        m_stationForm.hide();
        QCoreApplication::exit();
    });
}

Application::~Application()
{
    m_shell.workspace().onAsk({});
    m_shell.comparison().onAsk({});
}

void Application::addPanels()
{
    workspace::Workspace& workspace = m_shell.workspace();
    const QString sheet = QStringLiteral("sheet");
    m_main.addPanel(sheet, QStringLiteral("Index Sheet"), new SheetPanel(workspace, m_files, m_messages));
    workspace.looked.watch([this, sheet] { m_main.showPanel(sheet); });
    const QString person = QStringLiteral("person");
    QDockWidget& personDock =
        m_main.addPanel(person, QStringLiteral("Person and Place"), new PersonPanel(workspace));
    personDock.toggleViewAction()->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
    workspace.person.looked.watch([this, person] { m_main.showPanel(person); });
    const QString comparison = QStringLiteral("comparison");
    auto* const compared = new ComparisonPanel(m_shell.comparison(), m_clipboard, m_files, m_messages);
    m_main.addPanel(comparison, QStringLiteral("Comparison"), compared);
    m_main.editMenu().addSeparator();
    auto* const pin = m_main.editMenu().addAction(QStringLiteral("Pin Present &Situation"), compared,
                                                  [this, comparison, compared] {
                                                      m_main.showPanel(comparison);
                                                      compared->pin();
                                                  });
    pin->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
}

StationWindow& Application::stationWindow()
{
    if (!m_station)
        m_station = helped(std::make_unique<StationWindow>(
            m_stationForm,
            StationWindow::Surroundings{m_shell.workspace(), m_files, m_messages, m_clipboard}));
    return *m_station;
}

void Application::addStation()
{
    QMenu& menu = m_main.fileMenu();
    auto* const open = new QAction(QStringLiteral("Open S&tation File …"), &m_main);
    open->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O));
    m_main.addAction(open);
    QObject::connect(open, &QAction::triggered, &m_main, [this] {
        stationWindow();
        m_stationForm.show();
        m_station->open();
    });
    auto* const recent = new QMenu(QStringLiteral("R&ecent Station Files"), &m_main);
    // The list is that of now: a file may have gone, or another have been opened in the window.
    const auto fill = [this, recent] {
        fillRecent(
            *recent, m_recentStations.paths(), [this](const std::string& path) { openStation(path); },
            [this] { m_recentStations.forget(); });
    };
    QObject::connect(&menu, &QMenu::aboutToShow, recent, fill);
    fill();
    // Behind the sessions, with which it shares that it opens files.
    QAction* before = nullptr;
    for (QAction* const action : menu.actions())
        if (action->isSeparator() && before == nullptr)
            before = action;
    menu.insertAction(before, open);
    menu.insertMenu(before, recent);
    QObject::connect(&m_main, &MainWindow::fileDropped, &m_main,
                     [this](const QString& path) { openStation(fromQt(path)); });
}

void Application::openStation(const std::string& path)
{
    stationWindow();
    m_stationForm.show();
    m_station->openFile(path);
}

template <class Window>
std::unique_ptr<Window> Application::helped(std::unique_ptr<Window> window)
{
    QObject::connect(window.get(), &FormWindow::guideWanted, &m_main, &MainWindow::showGuide);
    return window;
}

void Application::start()
{
    m_shell.start();
}

} // namespace comfortics::ui
