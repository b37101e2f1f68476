// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/item.h"

#include <QPalette>
#include <QString>

namespace comfortics::ui {

/// Schemes of the links of a model's sheet: to the field of an input, to another of its figures.
inline constexpr const char* kFieldLink = "field";
inline constexpr const char* kFigureLink = "figure";

/// All that there is to say of a model where readings and person stand, as HTML; the item is the figure of
/// it that is looked at.
QString modelFacts(const workspace::Item& item, const workspace::Situation& situation,
                   const workspace::FieldTexts& person, const QPalette& palette);

} // namespace comfortics::ui
