// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/application.h"
#include "ui/guarded_application.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <iostream>
#include <new>

TEST(GuardedApplicationDeathTest, AFaultInAHandlerEndsTheProgramWithItsSentence)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto fault = [] {
        QMetaObject::invokeMethod(
            qApp, [] { throw std::bad_alloc(); }, Qt::QueuedConnection);
    };
    EXPECT_EXIT((fault(), QApplication::exec()), testing::ExitedWithCode(4),
                "comfortics: The memory .*\\.\ntold: The memory .*\\.\n$");
}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    const auto tell = [](const std::string& sentence) { std::cerr << "told: " << sentence << "\n"; };
    const comfortics::ui::GuardedApplication qt(argc, argv, tell);
    const comfortics::ui::Appearance appearance;
    // What the tester keeps stays as it is.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    return RUN_ALL_TESTS();
}
