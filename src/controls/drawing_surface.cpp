// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/drawing_surface.h"

namespace comfortics::controls {

namespace {

double unitsPerInch(ScaleMode mode, double pixelsPerInch)
{
    switch (mode) {
    case ScaleMode::Twips:
        return 1440;
    case ScaleMode::Pixels:
        return pixelsPerInch;
    case ScaleMode::HiMetric:
        return 2540;
    }
    return pixelsPerInch;
}

double converted(double value, ScaleMode from, ScaleMode to, double pixelsPerInch)
{
    if (from == to)
        return value;
    return value * unitsPerInch(to, pixelsPerInch) / unitsPerInch(from, pixelsPerInch);
}

} // namespace

double DrawingSurface::scaleX(double value, ScaleMode from, ScaleMode to) const
{
    return converted(value, from, to, pixelsPerInchX());
}

double DrawingSurface::scaleY(double value, ScaleMode from, ScaleMode to) const
{
    return converted(value, from, to, pixelsPerInchY());
}

} // namespace comfortics::controls
