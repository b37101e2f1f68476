// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/form.h"

#include <QMainWindow>

namespace comfortics::ui {

/// The window of a form: wears its caption, shows and hides with it, stands where the form puts it
/// and tells it where the user has moved it. It is built before the form is shown.
class FormWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit FormWindow(controls::Form& form);

    /// The usable area of another window's screen, less the frame that this one will get, which is
    /// that of the other.
    static QRect usableBeside(const QWidget& other);

    /// Puts the window into a usable area at its present size, shrunk if need be, its
    /// left top corner as near to the wanted one as that allows.
    void placeWithin(const QRect& usable, QPoint wanted);

    /// Tells the form where the window stands, its frame included.
    void tellPlace();

protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void repeatVisibility();

    controls::Form& m_form;
};

} // namespace comfortics::ui
