// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/print_job.h"

namespace comfortics::ui {

/// A preview, from which the system's print dialog is reached. That one prints to a PDF file, too,
/// and offers nothing else where there is no printer.
class DesktopPrintDialog final : public output::PrintDialog {
public:
    void nameDocument(const std::string& name) override { m_name = name; }
    void show(const std::function<bool(output::Printer&)>& print) override;

private:
    std::string m_name = "Comfortics";
};

} // namespace comfortics::ui
