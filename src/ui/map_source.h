// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "radiation/map_view.h"

#include <QObject>
#include <QString>

class QPainter;

namespace comfortics::ui {

/// What a map shows beneath its marker.
class MapSource : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    virtual void paint(QPainter& painter, const radiation::MapView& view) = 0;
    /// Whose map it is, as its licence wants it shown.
    virtual QString attribution() const = 0;
    /// The zoom that there is something to see at.
    virtual double mostZoom() const = 0;

signals:
    /// There is more to show than before.
    void changed();
};

} // namespace comfortics::ui
