// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "converter/frm_converter.h"
#include "ui/form_window.h"

#include <array>
#include <functional>

class QLineEdit;

namespace comfortics::ui {

/// The view of the converter, docked to the main window's right side where the screen has room.
class ConverterWindow : public FormWindow {
    Q_OBJECT

public:
    /// `closed` unloads the form.
    ConverterWindow(converter::Frm_Converter& form, const QWidget& main, std::function<void()> closed);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenu();
    QWidget* buildContent();
    QWidget* buildPanel(converter::Panel panel);
    void focusPanel(converter::Panel panel);
    void dock(const QWidget& main);

    converter::Frm_Converter& m_form;
    std::function<void()> m_closed;
    std::array<QLineEdit*, converter::kPanelCount> m_firstBoxes{};
};

} // namespace comfortics::ui
