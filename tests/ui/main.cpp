// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/application.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    const QApplication qt(argc, argv);
    const comfortics::ui::Appearance appearance;
    return RUN_ALL_TESTS();
}
