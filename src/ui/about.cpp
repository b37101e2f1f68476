// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/about.h"

#include "catalogue/catalogue.h"

#include <QApplication>
#include <QMessageBox>

namespace comfortics::ui {

void showAbout(QWidget& window)
{
    QMessageBox box(
        QMessageBox::NoIcon, QStringLiteral("About Comfortics"),
        QStringLiteral(
            "<h3>Comfortics %1</h3><p>Calculates %2 published indices of bioclimatology and of "
            "heat and cold stress at work. Point at a box, a button or a blank value to learn "
            "more of it; F1 opens the user guide.</p><p>Licence: GPL-3.0-or-later. World map: made "
            "with Natural Earth.</p>")
            .arg(QCoreApplication::applicationVersion())
            .arg(catalogue::kIndexCount),
        QMessageBox::Ok, &window);
    constexpr int kIcon = 64;
    box.setIconPixmap(QApplication::windowIcon().pixmap(kIcon));
    box.exec();
}

} // namespace comfortics::ui
