// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/form.h"

#include <QKeySequence>
#include <QList>
#include <QMainWindow>

#include <functional>

class QAction;
class QKeyEvent;

namespace comfortics::ui {

/// The window of a form: wears its caption, shows and hides with it, stands where the form puts it
/// and tells it where the user has moved it. It is built before the form is shown.
class FormWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `chapter` is that of the user guide which tells of the window, by its anchor.
    FormWindow(controls::Form& form, QString chapter);

    /// The usable area of another window's screen, less the frame that this one will get, which is
    /// that of the other.
    static QRect usableBeside(const QWidget& other);

    /// Puts the window into a usable area at its present size, shrunk if need be, its
    /// left top corner as near to the wanted one as that allows.
    void placeWithin(const QRect& usable, QPoint wanted);

    /// Tells the form where the window stands, its frame included.
    void tellPlace();

    /// As a part of another window it has its keys while the focus is in it, before that window has them.
    void setPart(bool part);

    virtual QString chapter() const { return m_chapter; }

signals:
    /// Help is wanted on what the window shows now.
    void guideWanted(const QString& chapter);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

    /// An entry, as for a menu, whose keys the window knows.
    QAction& addKeys(const QString& text, const QList<QKeySequence>& keys, std::function<void()> act);

    QAction& helpAction() const { return *m_help; }

private:
    void repeatVisibility();
    QAction* ownAction(const QKeyEvent& event) const;

    controls::Form& m_form;
    QString m_chapter;
    bool m_part = false;
    QAction* m_help = nullptr;
};

} // namespace comfortics::ui
