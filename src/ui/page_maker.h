// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/report_desk.h"

#include <QPagedPaintDevice>
#include <QTextDocument>

namespace comfortics::ui {

/// Writes the page and its chart into a document, in place of what it holds.
void write(const workspace::ReportPage& page, QTextDocument& document);

/// Prints it within the margins of the device's pages.
void print(QTextDocument& document, QPagedPaintDevice& device);

/// Makes PDF of reports, A4 upright.
class PdfMaker final : public workspace::PageMaker {
public:
    std::string pdf(const workspace::ReportPage& page) override;
};

} // namespace comfortics::ui
