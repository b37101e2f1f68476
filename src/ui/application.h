// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/shell.h"
#include "ui/converter_window.h"
#include "ui/desktop.h"
#include "ui/main_window.h"
#include "ui/map_services.h"
#include "ui/page_maker.h"
#include "ui/platform_preferences.h"
#include "ui/print_dialog.h"
#include "ui/radiation_window.h"
#include "ui/raw_data_window.h"
#include "ui/results_window.h"
#include "ui/situation_runner.h"
#include "ui/splash_window.h"
#include "ui/station_window.h"
#include "ui/tile_source.h"

#include <QObject>
#include <QTimer>

#include <filesystem>
#include <memory>

namespace comfortics::ui {

/// Makes the program's pictures known to Qt, sets its icon, and keeps quiet texts legible in palettes that
/// leave their colour out.
class Appearance : public QObject {
public:
    Appearance();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// The forms and their windows. A window is there for as long as its form is loaded.
class Application {
public:
    /// Needs a QApplication. Limits.Index is read from the program's folder.
    explicit Application(const std::filesystem::path& programFolder);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    /// Shows the splash screen; the main window follows.
    void start();

    shell::Shell& shell() noexcept { return m_shell; }
    MainWindow& mainWindow() noexcept { return m_main; }
    ResultsWindow* resultsWindow() noexcept { return m_results.get(); }
    ConverterWindow* converterWindow() noexcept { return m_converter.get(); }
    RadiationWindow* radiationWindow() noexcept { return m_radiation.get(); }
    RawDataWindow* rawDataWindow() noexcept { return m_rawData.get(); }
    /// Is there from its first use on.
    StationWindow& stationWindow();

private:
    void addPanels();
    void addStation();
    void openStation(const std::string& path);
    /// The window with its help.
    template <class Window>
    std::unique_ptr<Window> helped(std::unique_ptr<Window> window);

    Appearance m_appearance;
    DesktopMessages m_messages;
    DesktopClipboard m_clipboard;
    DesktopFileDialogs m_files;
    DesktopPrintDialog m_printing;
    DesktopConnection m_connection;
    DesktopTimeZones m_timeZones;
    TileSource m_tiles{TileSettings::read()};
    TilePlaces m_tilePlaces{m_tiles};
    shell::Desktop::Maps m_maps{m_connection, m_tilePlaces, m_timeZones};
    PlatformPreferences m_preferences;
    shell::Shell m_shell;
    PdfMaker m_pdf;
    workspace::ReportDesk m_report;
    MainWindow m_main;
    QTimer m_keep; // until the last state is kept for the next session
    SituationRunner m_situations;
    SituationRunner m_pins;
    std::unique_ptr<SplashWindow> m_splash;
    std::unique_ptr<ResultsWindow> m_results;
    std::unique_ptr<ConverterWindow> m_converter;
    std::unique_ptr<RadiationWindow> m_radiation;
    std::unique_ptr<RawDataWindow> m_rawData;
    StationForm m_stationForm;
    workspace::RecentFiles m_recentStations{m_preferences, kRecentStations};
    std::unique_ptr<StationWindow> m_station;
};

} // namespace comfortics::ui
