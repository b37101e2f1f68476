// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_program.h"

#include "formulas/live_quantity.h"
#include "ui/bindings.h"
#include "ui/converter_window.h"
#include "ui/index_list.h"
#include "ui/main_window.h"
#include "ui/text.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace comfortics::ui {
namespace {

using tests::find;

struct Opened : tests::Program {
    MainWindow window{form};

    Opened()
    {
        window.placeOnScreen();
        form.show();
        QApplication::setActiveWindow(&window);
    }
    QLineEdit& line(const char* name) { return find<QLineEdit>(window, name); }
    std::string focused() const
    {
        const QWidget* const widget = window.focusWidget();
        return widget ? fromQt(widget->objectName()) : std::string();
    }
};

TEST(MainWindow, EachReadingHasItsWidgetInBothDirections)
{
    Opened opened;
    struct Row {
        controls::TextBox& box;
        const char* name;
        const char* typed;
        const char* written;
    };
    const Row rows[] = {
        {opened.form.txt_TA, "txt_TA", "31", "32.5"}, {opened.form.txt_TG, "txt_TG", "41", "42.5"},
        {opened.form.txt_SR, "txt_SR", "601", "602"}, {opened.form.txt_DP, "txt_DP", "11", "12.5"},
        {opened.form.txt_RH, "txt_RH", "51", "52.5"}, {opened.form.txt_WS, "txt_WS", "2", "3.5"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        QLineEdit& line = opened.line(row.name);
        QTest::keyClicks(&line, QString::fromUtf8(row.typed));
        EXPECT_EQ(row.box.text(), row.typed);
        row.box.setText(row.written);
        EXPECT_EQ(fromQt(line.text()), row.written);
        EXPECT_FALSE(line.accessibleName().isEmpty());
        EXPECT_FALSE(line.toolTip().isEmpty());
    }
}

TEST(MainWindow, TypingRunsTheRulesOfTheForm)
{
    Opened opened;
    QTest::keyClicks(&opened.line("txt_SR"), QStringLiteral("600"));
    QTest::keyClicks(&opened.line("txt_TG"), QStringLiteral("41,5"));
    EXPECT_EQ(opened.line("txt_TG").text(), QStringLiteral("41.5"));
    EXPECT_EQ(opened.line("txt_SR").text(), QString());
    QTest::keyClicks(&opened.line("txt_TA"), QStringLiteral("59"));
    EXPECT_EQ(opened.line("txt_TA").text(), QString());
}

TEST(MainWindow, ArrowKeysMoveTheFocusByTheUnevenTable)
{
    Opened opened;
    // Box, then where Down, Right, Up and Left lead.
    const std::array<std::array<const char*, 5>, 6> table{{
        {"txt_TA", "txt_TG", "txt_TA", "txt_WS", "txt_TA"},
        {"txt_TG", "txt_DP", "txt_SR", "txt_TA", "txt_SR"},
        {"txt_SR", "txt_RH", "txt_TG", "txt_RH", "txt_TG"},
        {"txt_DP", "txt_WS", "txt_RH", "txt_TG", "txt_RH"},
        {"txt_RH", "txt_SR", "txt_DP", "txt_SR", "txt_DP"},
        {"txt_WS", "txt_TA", "txt_WS", "txt_DP", "txt_WS"},
    }};
    constexpr std::array kKeys{Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left};
    for (const auto& row : table) {
        for (std::size_t i = 0; i < kKeys.size(); ++i) {
            opened.line(row[0]).setFocus();
            QTest::keyClick(&opened.line(row[0]), kKeys[i]);
            EXPECT_EQ(opened.focused(), row[i + 1]) << row[0] << " key " << i;
        }
    }
}

// In the boxes that no arrow key leaves sideways, the caret walks.
TEST(MainWindow, ArrowsWithoutATargetMoveTheCaret)
{
    Opened opened;
    opened.form.txt_TA.setText("25");
    QLineEdit& line = opened.line("txt_TA");
    line.setFocus();
    QTest::keyClick(&line, Qt::Key_Left);
    EXPECT_EQ(line.cursorPosition(), 1);
}

TEST(MainWindow, DeleteEmptiesTheBoxWhereverTheCaretStands)
{
    Opened opened;
    opened.form.txt_TA.setText("25.5");
    opened.line("txt_TA").setCursorPosition(4);
    QTest::keyClick(&opened.line("txt_TA"), Qt::Key_Delete);
    EXPECT_EQ(opened.form.txt_TA.text(), "");
}

TEST(MainWindow, TheTabKeyGoesThroughTheReadingsThenToTheList)
{
    Opened opened;
    std::string order;
    const QWidget* widget = &opened.line("txt_TA");
    for (int step = 0; step < 40; ++step) {
        if (!widget->objectName().isEmpty() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
            !widget->objectName().startsWith(QStringLiteral("qt_")))
            order += fromQt(widget->objectName()) + " ";
        widget = widget->nextInFocusChain();
    }
    EXPECT_TRUE(
        order.starts_with("txt_TA txt_TG txt_SR txt_DP txt_RH txt_WS txt_Search_List List_Indices "
                          "Check_All_Indices Img_Calculate cmd_Show_Results cmd_Calculate txt_ArAdu "))
        << order;
}

TEST(MainWindow, EnterCalculatesAndOpensTheResults)
{
    Opened opened;
    opened.write("30", "600", "50", "");
    QTest::keyClick(&opened.line("txt_TA"), Qt::Key_Return);
    EXPECT_EQ(opened.shell.results.get(), nullptr);
    opened.form.txt_WS.setText("2");
    QTest::keyClick(&opened.line("txt_TA"), Qt::Key_Return);
    ASSERT_NE(opened.shell.results.get(), nullptr);
    EXPECT_TRUE(opened.shell.results.get()->visible());
}

TEST(MainWindow, LiveQuantitiesShow)
{
    Opened opened;
    opened.write("30", "600", "50", "2");
    find<QPushButton>(opened.window, "cmd_Calculate").click();
    EXPECT_EQ(opened.shell.results.get(), nullptr);
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
        const std::string symbol(formulas::kLiveInfo[i].symbol);
        const std::string& caption =
            opened.form.calculation.liveLabel(static_cast<formulas::Live>(i)).caption();
        EXPECT_FALSE(caption.empty()) << symbol;
        EXPECT_EQ(fromQt(find<QLabel>(opened.window, symbol.c_str()).text()), caption) << symbol;
    }
}

TEST(MainWindow, TheCalculateButtonAnswersToEnter)
{
    Opened opened;
    opened.write("30", "600", "50", "2");
    QTest::keyClick(&find<QPushButton>(opened.window, "Img_Calculate"), Qt::Key_Return);
    EXPECT_NE(opened.shell.results.get(), nullptr);
}

TEST(MainWindow, TheSearchMovesTheListAndSelectsNothing)
{
    Opened opened;
    QTest::keyClicks(&opened.line("txt_Search_List"), QStringLiteral("universal"));
    const auto& list = find<IndexList>(opened.window, "List_Indices");
    EXPECT_TRUE(list.currentIndex().data().toString().contains(QStringLiteral("Universal")));
    EXPECT_GE(list.visualRect(list.currentIndex()).top(), 0);
    EXPECT_LT(list.visualRect(list.currentIndex()).bottom(), list.viewport()->height());
    EXPECT_EQ(opened.form.settings().selection, core::Selection::all());
}

TEST(MainWindow, MenusReadLetterForLetter)
{
    Opened opened;
    const auto texts = [](const QList<QAction*>& actions) {
        std::vector<std::string> result;
        for (const QAction* const action : actions)
            result.push_back(fromQt(action->text().remove(QLatin1Char('&'))));
        return result;
    };
    EXPECT_EQ(texts(opened.window.menuBar()->actions()),
              (std::vector<std::string>{"Raw Data", " Solar Radiation", "Conversion of Units", "Hotkeys",
                                        "Options"}));
    EXPECT_EQ(texts(opened.window.menuBar()->actions().at(3)->menu()->actions()),
              (std::vector<std::string>{"Enter -----------------> Calculate",
                                        "Backspace -----------> Delete previous number",
                                        "Delete ----------------> Delete value",
                                        "Arrow keys ----------> Move between text boxes"}));
}

TEST(MainWindow, OptionsOpenInTheTopLeftCorner)
{
    Opened opened;
    const auto& frame = find<QWidget>(opened.window, "Fra_Options");
    EXPECT_FALSE(frame.isVisible());
    opened.window.menuBar()->actions().at(4)->trigger();
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(frame.mapTo(opened.window.centralWidget(), QPoint(0, 0)), QPoint(0, 0));
    EXPECT_EQ(opened.focused(), "txt_ArAdu"); // typing goes to what is in sight
    QTest::keyClicks(opened.window.focusWidget(), QStringLiteral("1"));
    EXPECT_EQ(opened.form.txt_ArAdu.text().find('1') != std::string::npos, true);
    opened.window.menuBar()->actions().at(4)->trigger();
    EXPECT_FALSE(frame.isVisible());
    EXPECT_EQ(opened.focused(), "txt_TA");
}

TEST(MainWindow, ClosingAsks)
{
    Opened opened;
    opened.messages.answer = controls::Answer::No;
    EXPECT_FALSE(opened.window.close());
    EXPECT_TRUE(opened.window.isVisible());
    opened.messages.answer = controls::Answer::Yes;
    EXPECT_TRUE(opened.window.close());
    EXPECT_FALSE(opened.window.isVisible());
    EXPECT_EQ(opened.messages.boxes.size(), 2U);
}

TEST(MainWindow, ADoubleClickTakesTheConvertersResult)
{
    Opened opened;
    opened.form.Menu_Converter.click.raise();
    converter::Frm_Converter& form = *opened.shell.converter.get();
    ConverterWindow converter(form, opened.window, [] {});
    form.show();
    QTest::keyClicks(&find<QLineEdit>(converter, "txt_F"), QStringLiteral("86"));
    QTest::mouseDClick(&opened.line("txt_TA"), Qt::LeftButton);
    EXPECT_EQ(opened.line("txt_TA").text(), QStringLiteral("30.0"));
    QTest::mouseDClick(&opened.line("txt_WS"), Qt::LeftButton);
    EXPECT_EQ(opened.line("txt_WS").text(), QString());
    EXPECT_NE(opened.line("txt_TA").palette().color(QPalette::Base),
              opened.line("txt_WS").palette().color(QPalette::Base));
}

TEST(ConverterWindow, ShowsOnePanelAndLosesTheFirstCharacter)
{
    Opened opened;
    opened.form.Menu_Converter.click.raise();
    converter::Frm_Converter& form = *opened.shell.converter.get();
    bool closed = false;
    ConverterWindow window(form, opened.window, [&closed] { closed = true; });
    form.show();
    EXPECT_TRUE(find<QLineEdit>(window, "txt_F").isVisible());
    EXPECT_FALSE(find<QLineEdit>(window, "txt_kmh").isVisible());
    window.menuBar()->actions().at(1)->trigger();
    EXPECT_FALSE(find<QLineEdit>(window, "txt_F").isVisible());
    EXPECT_TRUE(find<QLineEdit>(window, "txt_kmh").isVisible());

    auto& knots = find<QLineEdit>(window, "txt_knots");
    auto& kmh = find<QLineEdit>(window, "txt_kmh");
    QTest::keyClicks(&knots, QStringLiteral("10"));
    QTest::keyClicks(&kmh, QStringLiteral("36"));
    EXPECT_EQ(knots.text(), QString());
    EXPECT_EQ(kmh.text(), QStringLiteral("6"));
    EXPECT_EQ(form.lbl_WS.caption(), "1.67");
    window.close();
    EXPECT_TRUE(closed);
}

} // namespace
} // namespace comfortics::ui
