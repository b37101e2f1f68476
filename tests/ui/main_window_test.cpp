// SPDX-License-Identifier: GPL-3.0-or-later
//
// The main window and the converter, and how windows come and go with their forms.
#include "test_program.h"

#include "formulas/live_quantity.h"
#include "ui/application.h"
#include "ui/index_list.h"
#include "ui/text.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace comfortics::ui {
namespace {

using tests::find;

QAction& entry(const MainWindow& window, const char* text)
{
    for (QAction* const action : window.menuBar()->actions())
        if (action->text().remove(QLatin1Char('&')) == QLatin1String(text))
            return *action;
    throw std::runtime_error(std::string("there is no menu ") + text);
}

struct OpenedMain : tests::Program {
    MainWindow window{shell.workspace()};

    OpenedMain()
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
    void menu(const char* text) { entry(window, text).trigger(); }
};

TEST(MainWindow, EachBoxHasItsWidgetInBothDirections)
{
    OpenedMain opened;
    classic::Frm_Main& form = opened.form;
    const std::pair<controls::TextBox&, const char*> rows[] = {{form.txt_TA, "txt_TA"},
                                                               {form.txt_TG, "txt_TG"},
                                                               {form.txt_SR, "txt_SR"},
                                                               {form.txt_DP, "txt_DP"},
                                                               {form.txt_RH, "txt_RH"},
                                                               {form.txt_WS, "txt_WS"},
                                                               {form.txt_ArAdu, "txt_ArAdu"},
                                                               {form.txt_Emmisivity, "txt_Emmisivity"},
                                                               {form.txt_Barometric, "txt_Barometric"},
                                                               {form.txt_Height, "txt_Height"},
                                                               {form.txt_Weight, "txt_Weight"},
                                                               {form.txt_Friction, "txt_Friction"}};
    for (const auto& [box, name] : rows) {
        QLineEdit& line = opened.line(name);
        line.clear();
        QTest::keyClicks(&line, QStringLiteral("2"));
        EXPECT_EQ(box.text(), "2") << name;
        box.setText("7.5");
        EXPECT_EQ(line.text(), QStringLiteral("7.5")) << name;
    }
    EXPECT_EQ(tests::nameless(opened.window), "");

    find<QRadioButton>(opened.window, "Yes").click();
    EXPECT_EQ(form.Opt_Limits.selected(), 1U);
    find<QRadioButton>(opened.window, "Robust").click();
    EXPECT_EQ(form.Opt_Rules.selected(), 1U);
}

TEST(MainWindow, KeysMoveTheFocusOrElseTheCaretAndSearch)
{
    OpenedMain opened;
    EXPECT_EQ(opened.focused(), "txt_TA");
    const std::vector<std::pair<Qt::Key, std::string>> walk = {
        {Qt::Key_Down, "txt_TG"}, {Qt::Key_Right, "txt_SR"}, {Qt::Key_Down, "txt_RH"},
        {Qt::Key_Left, "txt_DP"}, {Qt::Key_Down, "txt_WS"},  {Qt::Key_Down, "txt_TA"}};
    for (const auto& [key, box] : walk) {
        QTest::keyClick(opened.window.focusWidget(), key);
        EXPECT_EQ(opened.focused(), box);
    }
    opened.form.txt_TA.setText("25");
    QTest::keyClick(&opened.line("txt_TA"), Qt::Key_Left);
    EXPECT_EQ(opened.line("txt_TA").cursorPosition(), 1);

    opened.menu("Options");
    EXPECT_EQ(opened.focused(), "txt_ArAdu"); // typing goes to what is in sight
    EXPECT_EQ(tests::tabOrder(opened.line("txt_ArAdu"), 20),
              "txt_ArAdu txt_Emmisivity txt_Barometric txt_Height txt_Weight txt_Friction No Classic "
              "Check_Follow Check_Units txt_Search_List txt_Find cmd_Filter List_Indices List_Models "
              "Check_All_Indices "
              "cards_set "
              "cards_menu cards txt_ArAdu ");
    opened.line("txt_Search_List").setFocus();
    QTest::keyClick(opened.window.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(find<QWidget>(opened.window, "Fra_Options").isVisible());
    EXPECT_EQ(opened.focused(), "txt_TA");
    EXPECT_EQ(tests::tabOrder(opened.line("txt_TA"), 19),
              "txt_TA txt_TG txt_SR txt_DP txt_RH txt_WS txt_Search_List txt_Find cmd_Filter List_Indices "
              "List_Models "
              "Check_All_Indices Img_Calculate cmd_Show_Results cmd_Calculate cards_set cards_menu cards "
              "txt_TA ");

    QTest::keyClick(&opened.window, Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(opened.focused(), "txt_Search_List");
    QTest::keyClicks(opened.window.focusWidget(), QStringLiteral("universal"));
    const auto& list = find<IndexList>(opened.window, "List_Indices");
    EXPECT_TRUE(list.currentIndex().data().toString().contains(QStringLiteral("Universal")));
    EXPECT_EQ(opened.form.settings().selection, classic::Selection::all()); // selects nothing
}

TEST(MainWindow, TypesInOtherUnitsAndTakesBackWhatWasTyped)
{
    OpenedMain opened;
    QLineEdit& entry = opened.line("entry_TA");
    EXPECT_FALSE(entry.isVisible());
    opened.shell.workspace().units.Check_Units.setChecked(true);
    EXPECT_TRUE(entry.isVisible());
    QTest::keyClick(&find<QComboBox>(opened.window, "unit_TA"), Qt::Key_Down);
    EXPECT_EQ(opened.shell.workspace().units.Opt_Temperature.selected(), 1U);
    entry.setFocus();
    QTest::keyClicks(&entry, QStringLiteral("95"));
    EXPECT_EQ(opened.form.txt_TA.text(), "35");
    EXPECT_EQ(entry.text(), QStringLiteral("95")) << "what is typed stays as it is typed";
    QCoreApplication::processEvents();

    QLineEdit& wind = opened.line("txt_WS");
    wind.setFocus();
    QTest::keyClicks(&wind, QStringLiteral("25"));
    QCoreApplication::processEvents();
    QTest::keySequence(&wind, QKeySequence(Qt::CTRL | Qt::Key_Z));
    EXPECT_EQ(opened.form.txt_WS.text(), "") << "the window's way back, not the line's";
    QTest::keySequence(&wind, QKeySequence(Qt::CTRL | Qt::Key_Z));
    EXPECT_EQ(opened.form.txt_TA.text(), "");
    EXPECT_EQ(entry.text(), QString());
    QTest::keySequence(&wind, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    EXPECT_EQ(opened.form.txt_TA.text(), "35");
    EXPECT_EQ(tests::nameless(opened.window), "");
}

TEST(MainWindow, EachButtonCalculatesAndTheRightOnesOpenTheResults)
{
    for (const auto& [button, opens] :
         {std::pair{"Img_Calculate", true}, {"cmd_Show_Results", true}, {"cmd_Calculate", false}}) {
        SCOPED_TRACE(button);
        OpenedMain opened;
        opened.write("30", "600", "50", "2");
        QTest::keyClick(&find<QPushButton>(opened.window, button), Qt::Key_Return);
        EXPECT_EQ(opened.shell.results.get() != nullptr, opens);
        for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
            const std::string symbol(formulas::kLiveInfo[i].symbol);
            const QString shown = find<QLabel>(opened.window, symbol.c_str()).text();
            EXPECT_FALSE(shown.isEmpty()) << symbol;
            // All decimals are in the hint.
            const std::string caption =
                opened.form.calculation.liveLabel(static_cast<formulas::Live>(i)).caption();
            EXPECT_TRUE(find<QLabel>(opened.window, symbol.c_str()).toolTip().contains(toQt(caption)));
            EXPECT_NEAR(shown.toDouble(), std::stod(caption), 0.501) << symbol;
        }
    }
}

TEST(MainWindow, MenusReadLetterForLetterAndClosingAsks)
{
    OpenedMain opened;
    const auto texts = [](const QList<QAction*>& actions) {
        std::string result;
        for (const QAction* const action : actions)
            result += fromQt(action->text().remove(QLatin1Char('&'))) + "|";
        return result;
    };
    EXPECT_EQ(texts(opened.window.menuBar()->actions()),
              "File|Edit|View|Raw Data| Solar Radiation|Conversion of Units|Hotkeys|Options|Help|");
    EXPECT_EQ(texts(entry(opened.window, "Hotkeys").menu()->actions()),
              "Enter -----------------> Calculate|Backspace -----------> Delete previous number|"
              "Delete ----------------> Delete value|Arrow keys ----------> Move between text boxes|");
    for (const auto answer : {controls::Answer::No, controls::Answer::Yes}) {
        opened.messages.answer = answer;
        opened.window.close();
        EXPECT_EQ(opened.window.isVisible(), answer == controls::Answer::No);
    }
}

TEST(ConverterWindow, EachBoxConvertsOnItsPanelAndADoubleClickTakesTheResult)
{
    OpenedMain opened;
    opened.menu("Conversion of Units");
    converter::Frm_Converter& form = *opened.shell.converter.get();
    ConverterWindow window(form, opened.window, [] {});
    form.show();
    for (std::size_t i = 0; i < converter::kConversions.size(); ++i) {
        const converter::Conversion& conversion = converter::kConversions[i];
        SCOPED_TRACE(std::string(conversion.box));
        window.menuBar()->actions().at(static_cast<int>(conversion.panel))->trigger();
        QLineEdit& line = find<QLineEdit>(window, std::string(conversion.box).c_str());
        ASSERT_TRUE(line.isVisible());
        const bool isFirst = i == 0 || conversion.panel != converter::kConversions[i - 1].panel;
        EXPECT_EQ(window.focusWidget() == &line, isFirst);
        QTest::keyClicks(&line, QStringLiteral("86")); // the first character may be lost
        EXPECT_EQ(fromQt(line.text()), form.boxes[i].text());
        EXPECT_TRUE(tests::says(window, toQt(form.result(conversion.panel).caption())));
    }
    EXPECT_EQ(tests::nameless(window), "");
    window.menuBar()->actions().at(0)->trigger();
    QTest::keyClicks(&find<QLineEdit>(window, "txt_F"), QStringLiteral("186")); // the first character is lost
    QTest::mouseDClick(&opened.line("txt_TA"), Qt::RightButton);
    EXPECT_EQ(opened.line("txt_TA").text(), QString());
    QTest::mouseDClick(&opened.line("txt_TA"), Qt::LeftButton);
    EXPECT_EQ(opened.line("txt_TA").text(), QStringLiteral("30.0"));
}

TEST(Application, WindowsComeAndGoWithTheirForms)
{
    Application program(COMFORTICS_DATA_DIR);
    MainWindow& main = program.mainWindow();
    program.start();
    EXPECT_FALSE(main.isVisible());
    shell::Frm_Splash_Screen& splash = *program.shell().splash.get();
    splash.tmr_Splash.tick();
    splash.tmr_Splash.tick();
    EXPECT_TRUE(main.isVisible());

    for (const auto& [name, text] :
         {std::pair{"txt_TA", "30"}, {"txt_SR", "600"}, {"txt_RH", "50"}, {"txt_WS", "2"}})
        QTest::keyClicks(&find<QLineEdit>(main, name), QString::fromUtf8(text));
    for (int time = 0; time < 2; ++time) { // the second time with a fresh window
        QTest::keyClick(&find<QLineEdit>(main, "txt_WS"), Qt::Key_Return);
        ASSERT_NE(program.resultsWindow(), nullptr);
        EXPECT_TRUE(tests::says(main, QStringLiteral(" indices have a value")));
        const QWidget* const window = program.resultsWindow();
        program.shell().results.unload();
        EXPECT_FALSE(window->isVisible());
        EXPECT_EQ(program.resultsWindow(), nullptr);
        EXPECT_EQ(program.shell().results.get(), nullptr);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    entry(main, "Raw Data").trigger();
    ASSERT_NE(program.rawDataWindow(), nullptr);
    EXPECT_TRUE(program.rawDataWindow()->close());
    EXPECT_EQ(program.shell().rawData.get(), nullptr);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // as the end of the event loop does
}

} // namespace
} // namespace comfortics::ui
