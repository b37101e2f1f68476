// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/report_desk.h"

#include <QImage>
#include <QPagedPaintDevice>
#include <QTextDocument>

#include <functional>
#include <string>
#include <vector>

class QTextBrowser;

namespace comfortics::ui {

/// Pixels of a printed picture to one unit of its chart.
inline constexpr int kSharpness = 3;

/// Writes the page and its chart into a document, in place of what it holds.
void write(const workspace::ReportPage& page, QTextDocument& document);

/// Charts, SVG each, as pictures with `sharpness` pixels to one unit. On any thread.
std::vector<QImage> picturesOf(const std::vector<std::string>& charts, int sharpness = kSharpness);

/// Writes a page of several pictures, which it refers to as "chart1.svg" and so on.
void write(const std::string& html, const std::vector<QImage>& pictures, QTextDocument& document);

/// Shows a page on white, whatever the palette, with its scroll bar always there so that it keeps its width.
void wearPaper(QTextBrowser& page);

/// Prints it within the margins of the device's pages.
void print(QTextDocument& document, QPagedPaintDevice& device);

/// What `write` puts into a document, on another thread, as a PDF, A4 upright.
std::string pdfOf(const std::function<void(QTextDocument&)>& write);

/// Makes PDF of reports, A4 upright.
class PdfMaker final : public workspace::PageMaker {
public:
    std::string pdf(const workspace::ReportPage& page) override;
};

} // namespace comfortics::ui
