// SPDX-License-Identifier: GPL-3.0-or-later
//
// The windows of one session find themselves again in the next, and results stand beside the readings.
#include "test_program.h"

#include "ui/application.h"
#include "ui/grid_view.h"
#include "ui/text.h"

#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

#include <gtest/gtest.h>

namespace comfortics::ui {
namespace {

using tests::find;
using tests::settingsFile;

// As new; whatever stands in the place of the settings is gone afterwards, too.
struct Layout : testing::Test {
    Layout() { clear(); }
    ~Layout() override { clear(); }
    static void clear()
    {
        QFile::remove(settingsFile());
        QDir(settingsFile()).removeRecursively();
    }
};

struct Session {
    Application program{COMFORTICS_DATA_DIR};
    MainWindow& main = program.mainWindow();

    Session()
    {
        program.shell().main().show();
        QApplication::setActiveWindow(&main);
    }
    ~Session() // as a Yes to the closing question, after the windows have kept their places
    {
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, &answer, [] {
            if (auto* const question = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                question->button(QMessageBox::Yes)->click();
        });
        answer.start();
        main.close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QAction& entry(const char* text)
    {
        for (QAction* const action : main.findChildren<QAction*>())
            if (action->text().remove(QLatin1Char('&')) == QString::fromUtf8(text))
                return *action;
        throw std::runtime_error(std::string("there is no entry ") + text);
    }
    void calculate()
    {
        for (const auto& [name, text] :
             {std::pair{"txt_TA", "30"}, {"txt_SR", "600"}, {"txt_RH", "50"}, {"txt_WS", "2"}})
            QTest::keyClicks(&find<QLineEdit>(main, name), QString::fromUtf8(text));
        find<QLineEdit>(main, "txt_WS").setFocus();
        QTest::keyClick(main.focusWidget(), Qt::Key_Return);
    }
    QDockWidget& panel(const char* name) { return find<QDockWidget>(main, name); }
};

TEST_F(Layout, ComesBackInTheNextSessionAndCanBeReset)
{
    const double points = QApplication::font().pointSizeF();
    QSize asNew;
    {
        Session first;
        asNew = first.main.size();
        first.main.resize(first.main.width(), 640);
        first.panel("panel_sheet").show();
        first.panel("panel_indices").hide();
        QTest::keyClick(&first.main, Qt::Key_Plus, Qt::ControlModifier);
        QTest::keyClick(&first.main, Qt::Key_Plus, Qt::ControlModifier);
        EXPECT_NEAR(QApplication::font().pointSizeF(), points * 1.25, 1e-9);
        first.main.resize(first.main.width(), 640);
    }
    EXPECT_NEAR(QApplication::font().pointSizeF(), points, 1e-9);
    {
        Session second;
        EXPECT_NEAR(QApplication::font().pointSizeF(), points * 1.25, 1e-9);
        EXPECT_EQ(second.main.height(), 640);
        EXPECT_TRUE(second.panel("panel_sheet").isVisible());
        EXPECT_FALSE(second.panel("panel_indices").isVisible());
        QTest::keyClick(&second.main, Qt::Key_F, Qt::ControlModifier);
        EXPECT_TRUE(second.panel("panel_indices").isVisible()) << "a search opens the list";

        QTest::keyClick(&second.main, Qt::Key_0, Qt::ControlModifier);
        second.entry("Reset Layout").trigger();
        EXPECT_EQ(second.main.width(), asNew.width());
        EXPECT_NEAR(second.main.height(), asNew.height(), 16) << "letters of another size leave some pixels";
        EXPECT_FALSE(second.panel("panel_sheet").isVisible());
    }
}

TEST_F(Layout, IsKeptWhileTheProgramRunsForItMayEndInAnyWay)
{
    Session running;
    auto& quiet = *running.main.findChild<QTimer*>(QStringLiteral("keeping"));
    running.panel("panel_sheet").show();
    running.main.resize(running.main.width(), 640);
    ASSERT_TRUE(quiet.isActive());
    quiet.start(0);
    ASSERT_TRUE(QTest::qWaitFor([&quiet] { return !quiet.isActive(); }));
    Session next;
    EXPECT_EQ(next.main.height(), 640);
    EXPECT_TRUE(next.panel("panel_sheet").isVisible());
}

TEST_F(Layout, StartsAsNewFromADamagedFile)
{
    QFile file(settingsFile());
    QDir().mkpath(QFileInfo(file).path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[window\nplace=@ByteArray(\\x1)\npanels=0011\nzoom=many\n\x80\xff]=\n===\n[results]\nwindow=7\n");
    file.close();
    Session session;
    EXPECT_TRUE(session.panel("panel_indices").isVisible());
    session.calculate();
    ASSERT_NE(session.program.resultsWindow(), nullptr);
    EXPECT_TRUE(session.program.resultsWindow()->isWindow());
}

// Ctrl+B, right after, is meant for what was opened.
TEST_F(Layout, ASheetBeforeTheListHasTheKeyboard)
{
    Session session;
    auto& list = find<QWidget>(session.main, "List_Indices");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_I, Qt::ControlModifier);
    QTest::qWait(0);
    ASSERT_TRUE(session.panel("panel_sheet").isVisible());
    EXPECT_TRUE(session.panel("panel_sheet").isAncestorOf(session.main.focusWidget()));
}

TEST_F(Layout, ResultsStandBesideTheReadingsWithTheirKeys)
{
    Session session;
    session.entry("Results Beside the Readings").setChecked(true);
    session.calculate();
    ResultsWindow& results = *session.program.resultsWindow();
    EXPECT_EQ(results.window(), &session.main);
    EXPECT_TRUE(session.panel("panel_results").isVisible());
    EXPECT_EQ(fromQt(session.main.focusWidget()->objectName()), "txt_WS") << "one types on";

    // The keys of the part the focus is in, though both know them.
    auto& table = find<GridView>(results, "Flex");
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(fromQt(session.main.focusWidget()->objectName()), "txt_Search");
    QTest::keyClicks(session.main.focusWidget(), QStringLiteral("wet bulb"));
    QTest::keyClick(session.main.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(find<QLineEdit>(results, "txt_Search").text(), QString());
    QTest::keyClick(session.main.focusWidget(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(fromQt(session.main.focusWidget()->objectName()), "txt_WS");

    session.entry("Results Beside the Readings").setChecked(false);
    EXPECT_TRUE(results.isWindow());
    EXPECT_TRUE(results.isVisible());
    session.entry("Results Beside the Readings").setChecked(true);
    session.panel("panel_results").close();
    EXPECT_EQ(session.program.resultsWindow(), nullptr) << "closed, as its own window would be";
    EXPECT_FALSE(session.entry("Export Results …").isEnabled());
}

} // namespace
} // namespace comfortics::ui
