// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/help.h"

#include "catalogue/catalogue.h"

#include <QApplication>
#include <QMessageBox>

namespace comfortics::ui {

namespace {

constexpr struct {
    const char* keys;
    const char* effect;
} kKeys[] = {
    {"Enter", "calculates, in a reading"},
    {"Delete", "empties a reading"},
    {"Arrow keys", "lead from reading to reading"},
    {"Ctrl+F", "searches the indices"},
    {"F5", "calculates the rows of the batch sheet, the day of the solar radiation"},
    {"Escape", "clears the search of the results, closes the options, goes back, stops a run"},
    {"Ctrl+V, Ctrl+O", "paste rows into the batch sheet, open a file in it"},
    {"Ctrl+A, Ctrl+C", "select all of a table, copy what is selected"},
    {"Ctrl+S, Ctrl+P", "export a table, print the results"},
    {"Ctrl+W", "closes a window"},
};

} // namespace

void showHelp(QWidget& window)
{
    QString rows;
    for (const auto& [keys, effect] : kKeys)
        rows += QStringLiteral("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>")
                    .arg(QLatin1String(keys), QLatin1String(effect));
    QMessageBox box(
        QMessageBox::NoIcon, QStringLiteral("About Comfortics"),
        QStringLiteral("<h3>Comfortics %1</h3><p>Calculates %2 published indices of bioclimatology and of "
                       "heat and cold stress at work. Point at a box, a button or a blank value to learn "
                       "more of it.</p><table>%3</table><p>The user guide is docs/user-guide.md of the "
                       "sources; the Debian package has it below /usr/share/doc/comfortics.</p><p>Licence: "
                       "GPL-3.0-or-later. World map: made with Natural Earth.</p>")
            .arg(QCoreApplication::applicationVersion())
            .arg(catalogue::kIndexCount)
            .arg(rows),
        QMessageBox::Ok, &window);
    constexpr int kIcon = 64;
    box.setIconPixmap(QApplication::windowIcon().pixmap(kIcon));
    box.exec();
}

} // namespace comfortics::ui
