// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print_dialog.h"

#include "ui/printer_surface.h"
#include "ui/text.h"

#include <QApplication>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>

namespace comfortics::ui {

namespace {

constexpr double kScreenShare = 0.8;

// Stays where nothing came on paper, for another try.
class Preview final : public QPrintPreviewDialog {
public:
    Preview(QPrinter& printer, const std::function<bool(output::Printer&)>& print)
        : QPrintPreviewDialog(&printer, QApplication::activeWindow())
    {
        resize(screen()->availableGeometry().size() * kScreenShare);
        connect(this, &QPrintPreviewDialog::paintRequested, this, [this, &print](QPrinter* target) {
            PrinterSurface surface(*target);
            m_printed = print(surface);
        });
    }
    void done(int result) override
    {
        if (result == Rejected || m_printed)
            QPrintPreviewDialog::done(result);
    }

private:
    bool m_printed = false; // by the last try
};

} // namespace

void DesktopPrintDialog::show(const std::function<bool(output::Printer&)>& print)
{
    QPrinter printer(QPrinter::HighResolution);
    if (QPrinterInfo::availablePrinterNames().isEmpty())
        printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setDocName(toQt(m_name));
    PrinterSurface::prepare(printer);

    Preview preview(printer, print);
    preview.setWindowTitle(toQt(m_name));
    preview.exec();
}

} // namespace comfortics::ui
