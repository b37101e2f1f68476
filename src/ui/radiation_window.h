// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/dialogs.h"
#include "radiation/frm_radiation.h"
#include "ui/form_window.h"
#include "ui/map_widget.h"
#include "ui/tile_source.h"
#include "ui/world_source.h"

#include <functional>

class QCalendarWidget;
class QLabel;
class QLineEdit;
class QMenu;

namespace comfortics::ui {

class ChartPanel;
class CutLabel;

/// The view of the radiation form: the inputs with the maps, or the table with its chart.
class RadiationWindow : public FormWindow {
    Q_OBJECT

public:
    /// What the view needs beside the form; all of it must outlive the window.
    struct Surroundings {
        controls::FileDialogs& files;
        controls::Messages& messages;
        TileSource& tiles;
        TilePlaces& tilePlaces;
    };
    /// `closed` unloads the form.
    RadiationWindow(radiation::Frm_Radiation& form, const Surroundings& surroundings, const QWidget& main,
                    std::function<void()> closed);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildInputs();
    QWidget* buildPlace();
    QWidget* buildDay();
    QWidget* buildClouds();
    QWidget* buildMaps();
    QWidget* buildWorldMap();
    QWidget* buildConnectedMap();
    QWidget* buildTable();
    void finishTypedDay();
    void followPlace();
    void noteSearch(const QString& text, bool isFound);
    void goTo(const radiation::Place& place);

    radiation::Frm_Radiation& m_form;
    Surroundings m_around;
    std::function<void()> m_closed;
    WorldSource* m_world = nullptr;
    QCalendarWidget* m_calendar = nullptr;
    MapWidget* m_tileMap = nullptr;
    MapWidget* m_worldMap = nullptr;
    CutLabel* m_searchNote = nullptr;
    ChartPanel* m_chart = nullptr;
    QMenu* m_menu = nullptr;
    QWidget* m_mapHint = nullptr; // in place of the maps
};

} // namespace comfortics::ui
