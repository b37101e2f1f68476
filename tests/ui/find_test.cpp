// SPDX-License-Identifier: GPL-3.0-or-later
//
// Finding indices in the list and in the results, by the keyboard.
#include "test_program.h"

#include "ui/grid_view.h"
#include "ui/index_list.h"
#include "ui/main_window.h"
#include "ui/results_window.h"
#include "ui/text.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QToolButton>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace comfortics::ui {
namespace {

using tests::find;

void choose(const QWidget& window, const char* text)
{
    for (QAction* const action : find<QToolButton>(window, "cmd_Filter").menu()->actions())
        if (action->text() == QString::fromUtf8(text))
            action->trigger();
}

std::string summary(const QWidget& window)
{
    return fromQt(find<QLabel>(window, "lbl_Found").text());
}

struct OpenedList : tests::Program {
    MainWindow window{shell.workspace()};
    IndexList& list = find<IndexList>(window, "List_Indices");
    QLineEdit& line = find<QLineEdit>(window, "txt_Find");

    OpenedList()
    {
        form.show();
        QApplication::setActiveWindow(&window);
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    }
    void type(const char* text)
    {
        line.selectAll();
        QTest::keyClicks(&line, QString::fromUtf8(text));
    }
    std::vector<int> shown() const
    {
        std::vector<int> numbers;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            if (!list.isRowHidden(row))
                numbers.push_back(row + 1);
        return numbers;
    }
    int standing() const { return list.currentIndex().row() + 1; }
};

TEST(FindInTheList, ShowsWhatIsFoundAndStepsThroughIt)
{
    OpenedList opened;
    ASSERT_EQ(opened.window.focusWidget(), &opened.line);
    opened.type("wbgt");
    EXPECT_EQ(opened.shown(), (std::vector{155, 156, 166, 197, 198, 199, 200}));
    EXPECT_EQ(summary(opened.window), "7 of 222");
    EXPECT_EQ(opened.standing(), 155);
    QTest::keyClick(&opened.line, Qt::Key_Return);
    EXPECT_EQ(opened.standing(), 156);
    QTest::keyClick(&opened.line, Qt::Key_F3, Qt::ShiftModifier);
    QTest::keyClick(&opened.line, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(opened.standing(), 200);
    QTest::keyClick(&opened.line, Qt::Key_F3);
    EXPECT_EQ(opened.standing(), 155);

    opened.type("humidx");
    EXPECT_TRUE(opened.shown().empty());
    EXPECT_TRUE(tests::says(opened.window, QStringLiteral("Did you mean")));
    QTest::keyClick(&opened.line, Qt::Key_Return);
    EXPECT_EQ(opened.line.text(), QStringLiteral("Humidex"));
    EXPECT_EQ(opened.shown(), std::vector{90});
    QTest::keyClick(&opened.line, Qt::Key_Down);
    EXPECT_EQ(opened.window.focusWidget(), &opened.list);

    std::string looked;
    opened.shell.workspace().looked.watch([&] { looked = opened.shell.workspace().lookedAt(); });
    QTest::keyClick(&opened.list, Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(looked, "humidex_masterson");
    looked.clear();
    opened.line.setFocus();
    QTest::keyClick(&opened.line, Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(looked, "humidex_masterson") << "where the words lead to";
    opened.type("humidxx");
    looked.clear();
    QTest::keyClick(&opened.line, Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(looked, "") << "nothing is found";

    QTest::keyClick(&opened.list, Qt::Key_Escape);
    EXPECT_EQ(opened.shown().size(), 222U);
    EXPECT_EQ(summary(opened.window) + fromQt(opened.line.text()), "");
}

TEST(FindInTheList, TicksWhatIsShownAlone)
{
    OpenedList opened;
    opened.form.List_Indices.selectAll(false);
    opened.type("steadman");
    const std::vector<int> shown = opened.shown();
    ASSERT_GT(shown.size(), 3U);
    const auto middleOf = [&](int number) {
        return opened.list.visualRect(opened.list.model()->index(number - 1, 0)).center();
    };
    QTest::mouseClick(opened.list.viewport(), Qt::LeftButton, {}, middleOf(shown.front()));
    QTest::mouseClick(opened.list.viewport(), Qt::LeftButton, Qt::ShiftModifier, middleOf(shown[3]));
    for (int number = shown[0]; number <= shown[3]; ++number)
        EXPECT_EQ(opened.form.List_Indices.selected(static_cast<std::size_t>(number) - 1),
                  std::ranges::count(shown, number) > 0)
            << number;

    // A filter that depends on the ticks follows them.
    opened.type("");
    QTest::keyClick(&opened.line, Qt::Key_Escape);
    choose(opened.window, "Ticked");
    EXPECT_EQ(summary(opened.window), "4 of 222");
    choose(opened.window, "Untick all that are shown");
    EXPECT_EQ(summary(opened.window), "0 of 222");

    // The search of the list reaches every index.
    find<QLineEdit>(opened.window, "txt_Search_List").setText(QStringLiteral("universal"));
    EXPECT_EQ(opened.shown().size(), 222U);
    EXPECT_EQ(opened.standing(), 154);
}

struct OpenedResults : tests::Program {
    MainWindow main{shell.workspace()};
    std::unique_ptr<ResultsWindow> window;

    OpenedResults()
    {
        write("30", "600", "50", "2");
        form.Img_Calculate.click.raise();
        window = std::make_unique<ResultsWindow>(*shell.results.get(), shell.workspace(), main, [] {});
        shell.results.get()->show();
        QApplication::setActiveWindow(window.get());
    }
};

TEST(FindInTheResults, MarksAndHidesInTheViewAlone)
{
    OpenedResults opened;
    output::Frm_Comfortics& form = *opened.shell.results.get();
    auto& table = find<GridView>(*opened.window, "Flex");
    auto& line = find<QLineEdit>(*opened.window, "txt_Find");
    QTest::keyClick(&table, Qt::Key_F3);
    ASSERT_EQ(opened.window->focusWidget(), &line);
    QTest::keyClicks(&line, QStringLiteral("utci"));
    EXPECT_EQ(summary(*opened.window), "2 of 222");
    EXPECT_EQ(form.Flex.row(), 154U);
    QTest::keyClick(&line, Qt::Key_F3);
    EXPECT_EQ(form.Flex.row(), 195U);
    EXPECT_FALSE(table.isRowHidden(0)); // words hide nothing
    std::string looked;
    opened.shell.workspace().looked.watch([&] { looked = opened.shell.workspace().lookedAt(); });
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ(looked, "utci");

    // The mouse asks for the row under it, which the keyboard need not stand on.
    QTest::mouseClick(table.viewport(), Qt::RightButton, {},
                      table.visualRect(table.model()->index(193, 0)).center());
    auto& menu = find<QMenu>(*opened.window, "Menu_Copy");
    const auto entry = [&menu](const char* text) {
        for (QAction* const action : menu.actions())
            if (action->text().contains(QString::fromUtf8(text)))
                return action;
        throw std::runtime_error(std::string("there is no entry ") + text);
    };
    entry("Index Sheet of Tropical Summer Index")->trigger();
    menu.close();
    EXPECT_EQ(looked, "tropical_summer_index_sharma");
    EXPECT_EQ(form.Flex.row(), 195U);
    QTest::qWait(0);
    // The keyboard asks for the row that it stands on.
    QTest::keyClick(&table, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(menu.isVisible());
    entry("Add Universal Thermal Climate Index")->trigger();
    menu.close();
    EXPECT_TRUE(opened.shell.workspace().sets.isStarred("utci"));
    QTest::qWait(0);

    QTest::keyClick(&line, Qt::Key_Escape);
    choose(*opened.window, "With a value");
    int shown = 0;
    for (std::size_t row = 1; row < form.Flex.rows(); ++row) {
        const bool hidden = table.isRowHidden(static_cast<int>(row) - 1);
        EXPECT_EQ(hidden, form.Flex.textMatrix(row, 1).empty()) << row;
        shown += hidden ? 0 : 1;
    }
    EXPECT_EQ(summary(*opened.window), std::to_string(shown) + " of 222");
    EXPECT_TRUE(tests::says(*opened.window, QStringLiteral("hidden here alone")));
    // A new calculation fills the table anew, and the filter follows.
    ASSERT_TRUE(table.isRowHidden(210));
    opened.form.txt_TA.setText("-5");
    opened.form.Img_Calculate.click.raise();
    QTest::qWait(1);
    EXPECT_FALSE(table.isRowHidden(210));
    opened.form.txt_TA.setText("30");
    opened.form.Img_Calculate.click.raise();
    QTest::qWait(1);
    EXPECT_TRUE(table.isRowHidden(210));
    EXPECT_EQ(form.Flex.rows(), 223U);
    // The scroll bar and the grid's first row agree, whatever is hidden between.
    table.verticalScrollBar()->setValue(50);
    int above = 0;
    for (std::size_t row = 1; row < form.Flex.topRow(); ++row)
        above += table.isRowHidden(static_cast<int>(row) - 1) ? 0 : 1;
    EXPECT_EQ(above, 50);
    EXPECT_FALSE(table.isRowHidden(static_cast<int>(form.Flex.topRow()) - 1));
    form.Flex.setTopRow(100);
    int first = 99;
    while (table.isRowHidden(first))
        ++first;
    EXPECT_EQ(table.rowAt(1), first);

    // Sorting moves the blank rows, and what is hidden goes with them.
    form.Flex.select(1, 1, 1, 1);
    form.Flex.setSort(controls::Sort::StringDescending);
    EXPECT_FALSE(table.isRowHidden(0));
    EXPECT_TRUE(table.isRowHidden(221));
    form.Menu_Copy_Copy.click.raise();
    EXPECT_EQ(std::ranges::count(opened.clipboard.text(), '\r'), 222);
    QTest::keyClick(&table, Qt::Key_Escape);
    EXPECT_FALSE(table.isRowHidden(221));
}

} // namespace
} // namespace comfortics::ui
