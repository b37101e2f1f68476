// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/application.h"

#include "test_program.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace comfortics::ui {
namespace {

using tests::find;

TEST(Application, WindowsComeAndGoWithTheirForms)
{
    Application program(COMFORTICS_DATA_DIR);
    program.start();
    shell::Frm_Splash_Screen& splash = *program.shell().splash.get();
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::any_of(windows.begin(), windows.end(), [](QWidget* window) {
        const auto labels = window->findChildren<QLabel*>();
        return window->isVisible() && std::any_of(labels.begin(), labels.end(), [](const QLabel* label) {
                   return label->text() == QStringLiteral("version 1.0");
               });
    }));
    EXPECT_FALSE(program.mainWindow().isVisible());
    splash.tmr_Splash.tick();
    splash.tmr_Splash.tick();
    EXPECT_TRUE(program.mainWindow().isVisible());

    core::Frm_Main& form = program.shell().main();
    for (const auto& [name, text] :
         {std::pair{"txt_TA", "30"}, {"txt_SR", "600"}, {"txt_RH", "50"}, {"txt_WS", "2"}})
        QTest::keyClicks(&find<QLineEdit>(program.mainWindow(), name), QString::fromUtf8(text));
    EXPECT_EQ(program.resultsWindow(), nullptr);
    QTest::keyClick(&find<QLineEdit>(program.mainWindow(), "txt_WS"), Qt::Key_Return);
    ASSERT_NE(program.resultsWindow(), nullptr);
    EXPECT_TRUE(program.resultsWindow()->isVisible());
    program.resultsWindow()->close();
    EXPECT_EQ(program.resultsWindow(), nullptr);
    EXPECT_EQ(program.shell().results.get(), nullptr);

    form.Menu_Converter.click.raise();
    ASSERT_NE(program.converterWindow(), nullptr);
    EXPECT_EQ(program.converterWindow()->windowTitle(), QStringLiteral("Conversion of Units"));
    EXPECT_EQ(program.converterWindow()->height(), program.mainWindow().height());
    program.converterWindow()->close();
    EXPECT_EQ(program.converterWindow(), nullptr);
    EXPECT_EQ(form.txt_TA.backColor(), core::kOrdinaryColor);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    QTest::keyClick(&find<QLineEdit>(program.mainWindow(), "txt_WS"), Qt::Key_Return);
    EXPECT_NE(program.resultsWindow(), nullptr); // a fresh one
}

} // namespace
} // namespace comfortics::ui
