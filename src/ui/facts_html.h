// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the sheets of indices and of models are written with.
#pragma once

#include "catalogue/categories.h"

#include <QPalette>
#include <QString>

#include <optional>
#include <string>
#include <string_view>

namespace comfortics::ui {

QString escaped(std::string_view text);
/// Addresses in the text become links.
QString linked(std::string_view text);
QString heading(const char* text);
/// Empty for an empty text.
QString paragraph(const QString& html);
QString withUnit(const QString& value, std::string_view unit);
/// A row of the table of classes. The present one has the severity of the value.
QString classRow(const catalogue::Category& category, const std::string& bounds, bool isPresent, int severity,
                 const QPalette& palette);
QString classTable(const QString& rows);

} // namespace comfortics::ui
