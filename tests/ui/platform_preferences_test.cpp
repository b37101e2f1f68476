// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_program.h"

#include "ui/platform_preferences.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace comfortics::ui {
namespace {

using tests::settingsFile;

TEST(PlatformPreferences, KeepTextsAndForgiveADamagedFile)
{
    {
        PlatformPreferences first;
        ASSERT_TRUE(first.reset());
        first.write("cards/set", "[\"°\", \"a,b;c\"]\n");
        first.write("gone", "x");
        first.remove("gone");
    }
    {
        PlatformPreferences second;
        EXPECT_EQ(second.read("cards/set"), "[\"°\", \"a,b;c\"]\n");
        EXPECT_EQ(second.read("gone"), std::nullopt);
    }
    {
        QFile file(settingsFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[General\n\x01\xFF====\n[[cards]\nset=@Variant(\0\0)\n=");
    }
    {
        PlatformPreferences damaged;
        EXPECT_EQ(damaged.read("none"), std::nullopt);
        damaged.write("cards/set", "again");
    }
    PlatformPreferences last;
    EXPECT_EQ(last.read("cards/set"), "again") << "what is written stands";
    EXPECT_TRUE(last.reset());
    EXPECT_EQ(last.read("cards/set"), std::nullopt);
}

TEST(PlatformPreferences, TellOnceThatNothingCanBeKept)
{
    PlatformPreferences().reset();
    QFile::remove(settingsFile());
    QDir().mkpath(QFileInfo(settingsFile()).path()); // which is there once something was kept
    ASSERT_EQ(::mkdir(settingsFile().toUtf8().constData(), 0700), 0) << "where the file would stand";
    int told = 0;
    {
        PlatformPreferences preferences;
        preferences.onFailure = [&told](const std::string& sentence) {
            ++told;
            EXPECT_NE(sentence.find("not kept"), std::string::npos);
        };
        for (int i = 0; i < 2; ++i) {
            preferences.write("a", std::to_string(i));
            QTest::qWait(700); // until it is written
        }
        EXPECT_EQ(preferences.read("a"), "1") << "for as long as the program runs";
    }
    EXPECT_EQ(told, 1);
    ::rmdir(settingsFile().toUtf8().constData());
}

} // namespace
} // namespace comfortics::ui
