// SPDX-License-Identifier: GPL-3.0-or-later
//
// The main window and the converter, and how windows come and go with their forms.
#include "test_program.h"

#include "formulas/live_quantity.h"
#include "ui/application.h"
#include "ui/index_list.h"
#include "ui/text.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>

#include <gtest/gtest.h>

#include <algorithm>
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
    void menu(int place) { window.menuBar()->actions().at(place)->trigger(); }
};

TEST(MainWindow, EachBoxHasItsWidgetInBothDirections)
{
    Opened opened;
    core::Frm_Main& form = opened.form;
    const struct {
        controls::TextBox& box;
        const char* name;
        const char* typed;
        const char* written;
    } rows[] = {
        {form.txt_TA, "txt_TA", "31", "32.5"},
        {form.txt_TG, "txt_TG", "41", "42.5"},
        {form.txt_SR, "txt_SR", "601", "602"},
        {form.txt_DP, "txt_DP", "11", "12.5"},
        {form.txt_RH, "txt_RH", "51", "52.5"},
        {form.txt_WS, "txt_WS", "2", "3.5"},
        {form.txt_ArAdu, "txt_ArAdu", "1", "0.7"},
        {form.txt_Emmisivity, "txt_Emmisivity", "2", "0.9"},
        {form.txt_Barometric, "txt_Barometric", "3", "900"},
        {form.txt_Height, "txt_Height", "4", "80"},
        {form.txt_Weight, "txt_Weight", "5", "170"},
        {form.txt_Friction, "txt_Friction", "6", "0.3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        QLineEdit& line = opened.line(row.name);
        line.clear();
        QTest::keyClicks(&line, QString::fromUtf8(row.typed));
        EXPECT_EQ(row.box.text(), row.typed);
        row.box.setText(row.written);
        EXPECT_EQ(fromQt(line.text()), row.written);
        EXPECT_FALSE(line.toolTip().isEmpty());
    }
    EXPECT_EQ(tests::nameless(opened.window), "");

    find<QRadioButton>(opened.window, "Yes").click();
    EXPECT_EQ(form.Opt_Limits.selected(), 1U);
    find<QRadioButton>(opened.window, "Robust").click();
    EXPECT_EQ(form.Opt_Rules.selected(), 1U);
}

TEST(MainWindow, ArrowKeysMoveTheFocusOrElseTheCaret)
{
    Opened opened;
    const struct {
        Qt::Key key;
        const char* box;
    } walk[] = {{Qt::Key_Down, "txt_TG"}, {Qt::Key_Right, "txt_SR"}, {Qt::Key_Down, "txt_RH"},
                {Qt::Key_Left, "txt_DP"}, {Qt::Key_Down, "txt_WS"},  {Qt::Key_Down, "txt_TA"}};
    EXPECT_EQ(opened.focused(), "txt_TA");
    for (const auto& step : walk) {
        QTest::keyClick(opened.window.focusWidget(), step.key);
        EXPECT_EQ(opened.focused(), step.box);
    }
    opened.form.txt_TA.setText("25");
    QTest::keyClick(&opened.line("txt_TA"), Qt::Key_Left);
    EXPECT_EQ(opened.line("txt_TA").cursorPosition(), 1);
    QTest::keyClick(&opened.line("txt_TA"), Qt::Key_Delete); // wherever the caret stands
    EXPECT_EQ(opened.form.txt_TA.text(), "");
}

TEST(MainWindow, TheTabKeyGoesThroughTheReadingsThenToTheList)
{
    Opened opened;
    opened.menu(4);
    EXPECT_EQ(
        tests::tabOrder(opened.line("txt_TA"), 23),
        "txt_TA txt_TG txt_SR txt_DP txt_RH txt_WS txt_Search_List List_Indices Check_All_Indices "
        "Img_Calculate cmd_Show_Results cmd_Calculate txt_ArAdu txt_Emmisivity txt_Barometric txt_Height "
        "txt_Weight txt_Friction No Yes Classic Robust txt_TA ");
}

TEST(MainWindow, EachButtonCalculatesAndTheRightOnesOpenTheResults)
{
    const struct {
        const char* button;
        bool opens;
    } rows[] = {{"Img_Calculate", true}, {"cmd_Show_Results", true}, {"cmd_Calculate", false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.button);
        Opened opened;
        opened.write("30", "600", "50", "2");
        QTest::keyClick(&find<QPushButton>(opened.window, row.button), Qt::Key_Return);
        EXPECT_EQ(opened.shell.results.get() != nullptr, row.opens);
        for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
            const std::string symbol(formulas::kLiveInfo[i].symbol);
            const std::string& caption =
                opened.form.calculation.liveLabel(static_cast<formulas::Live>(i)).caption();
            EXPECT_FALSE(caption.empty()) << symbol;
            EXPECT_EQ(fromQt(find<QLabel>(opened.window, symbol.c_str()).text()), caption) << symbol;
        }
        EXPECT_TRUE(tests::says(opened.window, QStringLiteral(" indices have a value")));
    }
}

TEST(MainWindow, TheSearchMovesTheListAndSelectsNothing)
{
    Opened opened;
    QTest::keyClick(&opened.window, Qt::Key_F, Qt::ControlModifier);
    ASSERT_EQ(opened.focused(), "txt_Search_List");
    QTest::keyClicks(opened.window.focusWidget(), QStringLiteral("universal"));
    const auto& list = find<IndexList>(opened.window, "List_Indices");
    EXPECT_TRUE(list.currentIndex().data().toString().contains(QStringLiteral("Universal")));
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
    EXPECT_EQ(opened.form.settings().selection, core::Selection::all());
    find<QAbstractButton>(opened.window, "Check_All_Indices").click();
    EXPECT_NE(opened.form.settings().selection, core::Selection::all());
}

TEST(MainWindow, MenusReadLetterForLetter)
{
    Opened opened;
    const auto texts = [](const QList<QAction*>& actions) {
        QStringList result;
        for (const QAction* const action : actions)
            result << action->text().remove(QLatin1Char('&'));
        return fromQt(result.join(QLatin1Char('|')));
    };
    EXPECT_EQ(texts(opened.window.menuBar()->actions()),
              "Raw Data| Solar Radiation|Conversion of Units|Hotkeys|Options");
    EXPECT_EQ(texts(opened.window.menuBar()->actions().at(3)->menu()->actions()),
              "Enter -----------------> Calculate|Backspace -----------> Delete previous number|"
              "Delete ----------------> Delete value|Arrow keys ----------> Move between text boxes");
}

TEST(MainWindow, OptionsOpenInTheTopLeftCorner)
{
    Opened opened;
    const auto& frame = find<QWidget>(opened.window, "Fra_Options");
    EXPECT_FALSE(frame.isVisible());
    opened.menu(4);
    EXPECT_TRUE(frame.isVisible());
    EXPECT_EQ(frame.mapTo(opened.window.centralWidget(), QPoint(0, 0)), QPoint(0, 0));
    EXPECT_EQ(opened.focused(), "txt_ArAdu"); // typing goes to what is in sight
    QTest::keyClick(opened.window.focusWidget(), Qt::Key_Escape);
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

TEST(ConverterWindow, EachBoxConvertsOnItsPanelAndADoubleClickTakesTheResult)
{
    Opened opened;
    opened.menu(2);
    converter::Frm_Converter& form = *opened.shell.converter.get();
    bool closed = false;
    ConverterWindow window(form, opened.window, [&closed] { closed = true; });
    form.show();
    for (std::size_t i = 0; i < converter::kConversions.size(); ++i) {
        const converter::Conversion& conversion = converter::kConversions[i];
        SCOPED_TRACE(std::string(conversion.box));
        window.menuBar()->actions().at(static_cast<int>(conversion.panel))->trigger();
        QLineEdit& line = find<QLineEdit>(window, std::string(conversion.box).c_str());
        ASSERT_TRUE(line.isVisible());
        QTest::keyClicks(&line, QStringLiteral("86")); // the first character may be lost
        EXPECT_EQ(fromQt(line.text()), form.boxes[i].text());
        EXPECT_NE(line.text(), QString());
        EXPECT_TRUE(tests::says(window, toQt(form.result(conversion.panel).caption())));
    }
    EXPECT_FALSE(find<QLineEdit>(window, "txt_F").isVisible());
    EXPECT_EQ(tests::nameless(window), "");
    window.menuBar()->actions().at(0)->trigger();
    QTest::keyClicks(&find<QLineEdit>(window, "txt_F"), QStringLiteral("186")); // the first character is lost
    EXPECT_EQ(form.lbl_C.caption(), "30.0");
    QTest::mouseDClick(&opened.line("txt_TA"), Qt::LeftButton);
    EXPECT_EQ(opened.line("txt_TA").text(), QStringLiteral("30.0"));
    QTest::mouseDClick(&opened.line("txt_WS"), Qt::LeftButton);
    EXPECT_EQ(opened.line("txt_WS").text(), QString());
    EXPECT_NE(opened.line("txt_TA").palette().color(QPalette::Base),
              opened.line("txt_WS").palette().color(QPalette::Base));
    QApplication::setActiveWindow(&window); // else its shortcuts sleep
    QTest::keyClick(&window, Qt::Key_W, Qt::ControlModifier);
    EXPECT_TRUE(closed);
}

TEST(Application, WindowsComeAndGoWithTheirForms)
{
    Application program(COMFORTICS_DATA_DIR);
    MainWindow& main = program.mainWindow();
    program.start();
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    EXPECT_TRUE(std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && tests::says(*window, QStringLiteral("version 1.0"));
    }));
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
        EXPECT_TRUE(program.resultsWindow()->isVisible());
        EXPECT_TRUE(tests::says(main, QStringLiteral(" indices have a value")));
        const QWidget* const window = program.resultsWindow();
        program.shell().results.unload();
        EXPECT_FALSE(window->isVisible());
        EXPECT_EQ(program.resultsWindow(), nullptr);
        EXPECT_EQ(program.shell().results.get(), nullptr);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    main.menuBar()->actions().at(0)->trigger();
    ASSERT_NE(program.rawDataWindow(), nullptr);
    EXPECT_TRUE(program.rawDataWindow()->close());
    EXPECT_EQ(program.shell().rawData.get(), nullptr);
    main.menuBar()->actions().at(2)->trigger();
    ASSERT_NE(program.converterWindow(), nullptr);
    EXPECT_EQ(program.converterWindow()->windowTitle(), QStringLiteral("Conversion of Units"));
    EXPECT_EQ(program.converterWindow()->height(), main.height());
    program.converterWindow()->close();
    EXPECT_EQ(program.shell().converter.get(), nullptr);
    EXPECT_EQ(program.shell().main().txt_TA.backColor(), core::kOrdinaryColor);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // as the end of the event loop does
}

} // namespace
} // namespace comfortics::ui
