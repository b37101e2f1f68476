// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMainWindow>

#include <vector>

class QAction;
class QDockWidget;
class QMenu;

namespace comfortics::ui {

/// Where a panel stands until the user moves it.
enum class PanelPlace {
    Right,   ///< at the right side, behind a tab where another panel stands there already
    Beneath, ///< below the readings
};

/// The panels around the content of a window. Each can be closed, moved, put behind the tab of another and
/// floated.
class Panels : public QObject {
    Q_OBJECT

public:
    /// The entries that open and close the panels come into the menu, before one of its actions.
    Panels(QMainWindow& window, QMenu& menu, QAction* before);

    /// Adds a panel, which takes the content over. The name keeps its place between sessions, in all
    /// versions. Unless open, it waits closed until it is shown.
    QDockWidget& add(const QString& name, const QString& title, QWidget* content, PanelPlace place,
                     bool open = false);

    /// Opens the panel and brings it to the front. Throws std::out_of_range where there is none of the name.
    void show(const QString& name);
    /// Throws std::out_of_range where there is none.
    QDockWidget& panel(const QString& name) const;

    /// The width that the widest one likes of those that were opened at a side; the ones that are open as new
    /// make do with what is left [pixel].
    int likedWidth() const;

    /// How the panels stand, for `restore`.
    QByteArray state() const;
    /// Where the state is none, it is false and they stay as they are.
    bool restore(const QByteArray& state);
    /// Puts the panels where they stood before the user moved any.
    void reset();

signals:
    /// A panel was moved, sized, opened, closed or brought to the front.
    void changed();
    /// likedWidth() may have changed.
    void likedWidthChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Panel {
        QDockWidget* dock;
        PanelPlace place;
        bool open;
    };
    void put(const Panel& panel);
    bool standsAtSide(QDockWidget& dock) const;
    void giveRoom(QDockWidget& dock);
    void passFocus(QDockWidget& dock);
    void nameTabs();

    QMainWindow& m_window;
    QMenu& m_menu;
    QAction* m_before;
    std::vector<Panel> m_panels;
};

} // namespace comfortics::ui
