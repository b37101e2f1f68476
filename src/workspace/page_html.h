// SPDX-License-Identifier: GPL-3.0-or-later
//
// Pieces of the pages of reports.
#pragma once

#include "workspace/severity_colors.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace comfortics::workspace {

inline constexpr const char* kPageStyle =
    "body{font-family:sans-serif;font-size:10pt;color:#111;background:#fff}"
    "h1{font-size:16pt;margin:0 0 6pt}h2{font-size:11pt;margin:14pt 0 3pt}p{margin:3pt 0}"
    "table{border-collapse:collapse;width:100%}"
    "td,th{text-align:left;padding:1pt 6pt 1pt 2pt;vertical-align:top;border-bottom:1px solid #ccc}"
    "small{color:#444;font-size:8pt}.chip{padding:0 4pt}";

// A browser has no paper, whose margins are those of the page.
inline constexpr const char* kBrowserStyle = "body{max-width:510pt;margin:20pt auto}";

/// Text of anywhere within HTML; a line break stays one, other control characters go.
std::string escaped(std::string_view text);

/// "#D73027".
std::string hex(const Rgb& color);

/// A row of a table, whose cells are HTML.
std::string row(std::initializer_list<std::string> cells, const char* tag = "td");

} // namespace comfortics::workspace
