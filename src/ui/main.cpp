// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/application.h"
#include "ui/text.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication qt(argc, argv);
    QApplication::setApplicationName(QStringLiteral("comfortics"));
    QApplication::setApplicationVersion(QStringLiteral(COMFORTICS_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("comfortics"));
    QApplication::setQuitOnLastWindowClosed(false); // the closing question decides

    comfortics::ui::Application application(comfortics::ui::fromQt(QApplication::applicationDirPath()));
    application.start();
    return QApplication::exec();
}
