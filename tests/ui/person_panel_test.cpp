// SPDX-License-Identifier: GPL-3.0-or-later
//
// Person and place and the models of standards, as somebody uses them who types a room and an office worker.
#include "test_program.h"

#include "ui/cards_view.h"
#include "ui/clothing_dialog.h"
#include "ui/main_window.h"
#include "ui/person_panel.h"
#include "ui/sheet_panel.h"
#include "ui/text.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QListWidget>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

#include <gtest/gtest.h>

#include <string>

namespace comfortics::ui {
namespace {

using tests::find;

struct WithPerson : tests::Program {
    workspace::Workspace& workspace = shell.workspace();
    MainWindow window{workspace};
    PersonPanel& person = *new PersonPanel(workspace);
    SheetPanel& sheet = *new SheetPanel(workspace, files, messages);
    CardsView& cards = find<CardsView>(window, "cards");

    WithPerson()
    {
        window.addPanel(QStringLiteral("person"), QStringLiteral("Person and Place"), &person);
        window.addPanel(QStringLiteral("sheet"), QStringLiteral("Index Sheet"), &sheet);
        window.placeOnScreen();
        form.show();
        QApplication::setActiveWindow(&window);
        window.showPanel(QStringLiteral("person"));
        workspace.sets.show("Comfort indoors");
    }
    QLineEdit& line(const char* id) { return find<QLineEdit>(person, (std::string("person_") + id).c_str()); }
    /// What the card of an id says, once the readings are calculated.
    std::string spoken(std::string_view id)
    {
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return workspace.follower.standing() == workspace::Follower::Standing::Present; }));
        const auto& ids = workspace.sets.shown().ids;
        const auto row = std::find(ids.begin(), ids.end(), id) - ids.begin();
        return fromQt(cards.model()->index(static_cast<int>(row), 0).data(Qt::AccessibleTextRole).toString());
    }
};

TEST(PersonPanel, BringsAModelToItsValueAndTellsWhatIsMissing)
{
    WithPerson program;
    program.write("22", "", "60", "0.1");
    program.form.txt_TG.setText("22");
    EXPECT_NE(program.spoken("pmv_iso.pmv").find("the metabolic rate is missing"), std::string::npos);

    // A key leads from the card to the field; letters in it search the activities.
    program.cards.setFocus();
    program.cards.setCurrentIndex(program.cards.model()->index(7, 0));
    QTest::keyClick(&program.cards, Qt::Key_F2);
    QLineEdit& met = program.line("met");
    ASSERT_TRUE(QTest::qWaitFor([&met] { return met.hasFocus(); }));
    EXPECT_NE(
        fromQt(find<QTextBrowser>(program.person, "person_about").toPlainText()).find("Needed (pmv_iso"),
        std::string::npos);
    QTest::keyClicks(&met, QStringLiteral("standing, rel"));
    EXPECT_TRUE(tests::says(program.person, QStringLiteral("is no number")));
    auto* const picks = met.findChild<QCompleter*>();
    ASSERT_EQ(picks->completionCount(), 1);
    emit picks->activated(picks->completionModel()->index(0, 0));
    EXPECT_EQ(met.text(), QStringLiteral("1.2"));
    EXPECT_FALSE(tests::says(program.person, QStringLiteral("is no number")));

    QTest::keyClicks(&program.line("clo"), QStringLiteral("0.5"));
    // ISO 7730 prints -0.75 for this room.
    EXPECT_NE(program.spoken("pmv_iso.pmv").find(": -0.7"), std::string::npos)
        << program.spoken("pmv_iso.pmv");
    auto& posture = find<QComboBox>(program.person, "person_posture");
    posture.setCurrentIndex(2);
    emit posture.activated(2);
    EXPECT_EQ(program.workspace.person.box("posture").text(), "sitting");
    EXPECT_EQ(tests::nameless(program.window), "");

    // The list finds models, and their sheet tells what was assumed.
    find<QLineEdit>(program.window, "txt_Find").setText(QStringLiteral("ISO 7730"));
    auto& models = find<QListWidget>(program.window, "List_Models");
    EXPECT_FALSE(models.isRowHidden(0));
    EXPECT_TRUE(models.isRowHidden(3)) << "another standard";
    models.setCurrentRow(0);
    program.window.showPanel(QStringLiteral("sheet"));
    emit models.itemActivated(models.item(0));
    EXPECT_EQ(program.workspace.lookedAt(), "pmv_iso.pmv");
    program.sheet.refresh();
    const std::string facts = fromQt(find<QTextBrowser>(program.sheet, "sheet").toPlainText());
    for (const char* const told : {"Predicted mean vote (ISO 7730)", "Assumed: external work 0 met",
                                   "Predicted percentage of dissatisfied", "valid from 10 to 30 °C"})
        EXPECT_NE(facts.find(told), std::string::npos) << told << "\n" << facts;
}

TEST(PersonPanel, AddsUpGarments)
{
    WithPerson program;
    QTimer::singleShot(0, &program.window, [] {
        auto* const dialog = qobject_cast<ClothingDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        find<QLineEdit>(*dialog, "garment_search").setText(QStringLiteral("coveralls"));
        auto& garments = find<QListWidget>(*dialog, "garments");
        for (int row = 0; row < garments.count(); ++row)
            if (!garments.isRowHidden(row))
                garments.item(row)->setCheckState(Qt::Checked);
        dialog->accept();
    });
    find<QToolButton>(program.person, "garments_of_clo").click();
    EXPECT_EQ(program.line("clo").text(), QStringLiteral("0.57")); // 0.835 · 0.49 + 0.161
}

} // namespace
} // namespace comfortics::ui
