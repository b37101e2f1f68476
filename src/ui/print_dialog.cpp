// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print_dialog.h"

#include "ui/printer_surface.h"

#include <QApplication>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>

namespace comfortics::ui {

namespace {

constexpr double kScreenShare = 0.8;

} // namespace

void DesktopPrintDialog::show(const std::function<void(output::Printer&)>& print)
{
    QPrinter printer(QPrinter::HighResolution);
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setDocName(QStringLiteral("Comfortics"));
    PrinterSurface::prepare(printer);

    QPrintPreviewDialog dialog(&printer, QApplication::activeWindow());
    dialog.resize(dialog.screen()->availableGeometry().size() * kScreenShare);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&print](QPrinter* target) {
        PrinterSurface surface(*target);
        print(surface);
    });
    dialog.exec();
}

} // namespace comfortics::ui
