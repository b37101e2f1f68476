// SPDX-License-Identifier: GPL-3.0-or-later
//
// The cards of the main window, as somebody uses them who types readings.
#include "test_program.h"

#include "catalogue/references.h"
#include "ui/cards_view.h"
#include "ui/grid_view.h"
#include "ui/index_list.h"
#include "ui/main_window.h"
#include "ui/results_window.h"
#include "ui/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace comfortics::ui {
namespace {

using tests::find;
using workspace::Follower;

struct WithCards : tests::Program {
    MainWindow window{shell.workspace()};
    workspace::Workspace& workspace = shell.workspace();
    CardsView& cards = find<CardsView>(window, "cards");
    QComboBox& set = find<QComboBox>(window, "cards_set");

    WithCards()
    {
        window.placeOnScreen();
        form.show();
        QApplication::setActiveWindow(&window);
    }
    // Waits for the thread that calculates, as long as it takes.
    void settle() const
    {
        const auto isWaiting = [this] {
            return workspace.follower.standing() == Follower::Standing::Calculating ||
                   workspace.follower.patience.enabled();
        };
        while (isWaiting())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::string spoken(int row) const
    {
        return fromQt(cards.model()->index(row, 0).data(Qt::AccessibleTextRole).toString());
    }
    std::string note() const { return fromQt(find<QLabel>(window, "cards_note").text()); }
    void choose(const char* name)
    {
        set.setCurrentText(QString::fromUtf8(name));
        emit set.activated(set.currentIndex());
    }
    // Answers the dialog that comes next.
    template <class Dialog, class Answer>
    void answerNext(Answer answer)
    {
        QTimer::singleShot(0, &window, [answer] {
            auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr)
                answer(*dialog);
        });
    }
    QAction& entry(const char* text)
    {
        for (QAction* const action : find<QToolButton>(window, "cards_menu").menu()->actions())
            if (action->text().remove(QLatin1Char('&')) == QLatin1String(text))
                return *action;
        throw std::runtime_error(std::string("there is no entry ") + text);
    }
};

TEST(Cards, FollowTheReadingsWhileTheyAreTyped)
{
    WithCards program;
    program.settle();
    EXPECT_NE(program.note().find("air temperature"), std::string::npos) << program.note();
    for (const auto& [name, text] :
         {std::pair{"txt_TA", "34"}, {"txt_SR", "700"}, {"txt_RH", "55"}, {"txt_WS", "2"}})
        QTest::keyClicks(&find<QLineEdit>(program.window, name), QString::fromUtf8(text));
    program.settle();
    EXPECT_EQ(program.note(), "");
    const workspace::Figure& wbgt = program.workspace.present().figure(200);
    ASSERT_TRUE(wbgt.meaning);
    EXPECT_EQ(program.spoken(0), "Wet Bulb Globe Temperature (outdoor) (Yaglou; 1956): " + wbgt.text +
                                     " °C, " + std::string(wbgt.meaning->category->label) + " +" +
                                     std::to_string(wbgt.meaning->severity));
    EXPECT_EQ(program.form.results.lbl_results[200].caption(), "") << "nothing described is touched";
    EXPECT_EQ(program.form.txt_TA.text(), "34");

    // Half a number is told, and no figure stands.
    find<QLineEdit>(program.window, "txt_RH").clear();
    program.settle();
    EXPECT_NE(program.note().find("humidity"), std::string::npos) << program.note();
    EXPECT_EQ(program.spoken(0).find(wbgt.text + " °C"), std::string::npos);

    // With the option off the cards wait for a calculation, and say when the readings have changed since.
    program.form.txt_RH.setText("55");
    find<QCheckBox>(program.window, "Check_Follow").setChecked(false);
    EXPECT_EQ(program.note(), "Nothing has been calculated yet.");
    QTest::keyClick(&find<QPushButton>(program.window, "cmd_Calculate"), Qt::Key_Return);
    program.settle();
    EXPECT_EQ(program.note(), "");
    program.form.txt_WS.setText("3");
    EXPECT_NE(program.note().find("last calculation"), std::string::npos) << program.note();
    EXPECT_NE(program.spoken(0).find("of earlier readings"), std::string::npos);
    program.form.Opt_Limits.select(1);
    program.form.txt_TA.setText("8");
    find<QCheckBox>(program.window, "Check_Follow").setChecked(true);
    program.settle();
    EXPECT_NE(program.spoken(1).find("outside its limits"), std::string::npos) << program.spoken(1);
}

TEST(Cards, AreReachedAndUsedByTheKeyboardAlone)
{
    WithCards program;
    program.write("34", "700", "55", "2");
    program.settle();
    program.cards.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(program.cards.currentIndex().row(), 0);
    QTest::keyClick(&program.cards, Qt::Key_Return);
    EXPECT_EQ(program.workspace.lookedAt(), "wbgt_outdoor");
    QTest::keyClick(&program.cards, Qt::Key_End); // a model that wants a person
    QTest::keyClick(&program.cards, Qt::Key_F2);
    EXPECT_EQ(program.workspace.person.lookedAt(), "met");
    program.cards.setCurrentIndex(program.cards.model()->index(7, 0));
    QTest::keyClick(&program.cards, Qt::Key_B, Qt::ControlModifier);
    const std::string last = program.workspace.sets.shown().ids[7];
    EXPECT_TRUE(program.workspace.sets.isStarred(last));
    QTest::keyClick(&program.cards, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(fromQt(QApplication::clipboard()->text()),
              program.workspace.present().figure(catalogue::indexOfId(last)).text);

    // A star from the list; then the order of the own set.
    auto& list = find<IndexList>(program.window, "List_Indices");
    list.setFocus();
    list.setCurrentIndex(list.model()->index(194, 0));
    QTest::keyClick(&list, Qt::Key_B, Qt::ControlModifier);
    program.choose("My indices");
    ASSERT_EQ(program.cards.model()->rowCount(), 2);
    program.cards.setFocus();
    program.cards.setCurrentIndex(program.cards.model()->index(1, 0));
    QTest::keyClick(&program.cards, Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(program.workspace.sets.shown().ids.front(), "utci");
    EXPECT_EQ(program.cards.currentIndex().row(), 0) << "goes with its card";
    QTest::keyClick(&program.cards, Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(program.cards.model()->rowCount(), 1);
    EXPECT_EQ(tests::nameless(program.window), "");
}

TEST(Cards, StarsComeFromTheResultsToo)
{
    WithCards program;
    program.write("34", "700", "55", "2");
    program.form.Img_Calculate.click.raise();
    output::Frm_Comfortics& results = *program.shell.results.get();
    ResultsWindow window(results, program.workspace, program.window, [] {});
    results.show();
    QApplication::setActiveWindow(&window);
    results.Flex.select(90, 0, 90, 0);
    QTest::keyClick(&find<QWidget>(window, "Flex"), Qt::Key_B, Qt::ControlModifier);
    EXPECT_TRUE(program.workspace.sets.isStarred("humidex_masterson"));
    // The chip's column has the words, and a click there selects the value.
    const QAbstractItemModel& model = *find<GridView>(window, "Flex").model();
    const auto meaning = program.form.calculation.meaning(90);
    ASSERT_TRUE(meaning);
    EXPECT_EQ(model.index(89, 3).data().toString(), toQt(catalogue::inWords(*meaning)));
    EXPECT_EQ(results.Flex.cols(), 3U);
}

TEST(Cards, OwnSetsAreMadeNamedAndDeleted)
{
    WithCards program;
    EXPECT_FALSE(program.entry("Delete").isEnabled());
    int asked = 0;
    const auto name = [&asked](const char* text) {
        return [&asked, text](QInputDialog& dialog) {
            ++asked;
            dialog.setTextValue(QString::fromUtf8(text));
            dialog.accept();
        };
    };
    program.answerNext<QInputDialog>(name("Quarry"));
    program.entry("Copy this set...").trigger();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(program.set.currentText(), QStringLiteral("Quarry"));
    EXPECT_EQ(program.workspace.sets.shown().ids, program.workspace.sets.all().front().ids);
    program.answerNext<QInputDialog>(name("Quarry north"));
    program.entry("Rename...").trigger();
    EXPECT_EQ(program.set.currentText(), QStringLiteral("Quarry north"));
    program.answerNext<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    program.entry("Delete").trigger();
    EXPECT_EQ(program.set.currentText(), QStringLiteral("Heat at work"));
}

} // namespace
} // namespace comfortics::ui
