// SPDX-License-Identifier: GPL-3.0-or-later
#include "temporary_folder.h"
#include "test_program.h"

#include "ui/course_chart.h"
#include "ui/minutes_chart.h"
#include "ui/sheet_panel.h"
#include "ui/text.h"

#include <QApplication>
#include <QComboBox>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace comfortics::ui {
namespace {

using tests::find;

struct OpenedSheet : tests::Program {
    SheetPanel panel{shell.workspace(), files, messages};
    CourseChart& chart = find<CourseChart>(panel, "course");

    OpenedSheet()
    {
        form.Opt_Rules.select(1);
        panel.show();
    }
    std::string text() { return fromQt(find<QTextBrowser>(panel, "sheet").toPlainText()); }
    bool waitForCourse()
    {
        return QTest::qWaitFor([this] { return chart.course() != nullptr; });
    }
    const workspace::CoursePoint& present()
    {
        return chart.course()->points[chart.course()->present.value()];
    }
};

TEST(SheetPanel, FollowsTheReadingsAndShowsNoCurveOfEarlierOnes)
{
    OpenedSheet opened;
    EXPECT_NE(opened.text().find("No index is looked at"), std::string::npos);
    opened.write("33", "600", "50", "2");
    opened.shell.workspace().lookAt("humidex_masterson");
    ASSERT_TRUE(opened.waitForCourse());
    for (const char* told : {"90. Humidex", "Air temperature (Ta) from 20 to 55 °C. Now 33 °C, inside.",
                             "from 40 to below 46 °C", "Masterton"})
        EXPECT_NE(opened.text().find(told), std::string::npos) << told << "\n" << opened.text();
    EXPECT_EQ(opened.present().text, opened.shell.workspace().present().figure(90).text);
    EXPECT_TRUE(opened.chart.accessibleDescription().contains(QStringLiteral("At present")));

    opened.form.txt_TA.setText("12");
    EXPECT_EQ(opened.chart.course(), nullptr) << "at once";
    ASSERT_TRUE(opened.waitForCourse());
    EXPECT_EQ(opened.present().readingText, "12");
    EXPECT_NE(opened.text().find("No value. Outside its limits"), std::string::npos) << opened.text();
    EXPECT_TRUE(find<QTextBrowser>(opened.panel, "sheet_held")
                    .toPlainText()
                    .contains(QStringLiteral("outside its limits, Ta from 20 to 55 °C")));

    opened.form.txt_TA.setText("");
    QTest::qWait(50);
    EXPECT_EQ(opened.chart.course(), nullptr);
    EXPECT_NE(opened.text().find("the air temperature is missing"), std::string::npos) << opened.text();
}

TEST(SheetPanel, IsReadAndTurnedByKeys)
{
    OpenedSheet opened;
    opened.write("33", "600", "50", "2");
    opened.shell.workspace().lookAt("utci");
    ASSERT_TRUE(opened.waitForCourse());
    EXPECT_EQ(tests::nameless(opened.panel), "");

    auto& axis = find<QComboBox>(opened.panel, "sheet_axis");
    EXPECT_EQ(axis.itemText(1), QStringLiteral("Relative Humidity"));
    QTest::keyClick(&axis, Qt::Key_Down);
    QTest::keyClick(&axis, Qt::Key_Down);
    ASSERT_TRUE(QTest::qWaitFor([&] {
        return opened.chart.course() != nullptr && opened.chart.course()->moved == classic::Reading::WS;
    }));

    QSignalSpy told(&opened.chart, &CourseChart::pointRead);
    QTest::keyClick(&opened.chart, Qt::Key_Right);
    EXPECT_EQ(told.last().first().toString(),
              QStringLiteral("2 m/s: %1 °C, %2")
                  .arg(toQt(opened.present().text), toQt(catalogue::inWords(*opened.present().meaning))));
    QTest::keyClick(&opened.chart, Qt::Key_Home);
    EXPECT_TRUE(
        told.last().first().toString().startsWith(QStringLiteral("0.1 m/s: no value. Outside its limits")));
    EXPECT_EQ(opened.shell.workspace().preferences().read("sheet/axis"), "2");
}

TEST(SheetPanel, PutsItsIndexOnTheCards)
{
    OpenedSheet opened;
    workspace::IndexSets& sets = opened.shell.workspace().sets;
    auto& star = find<QToolButton>(opened.panel, "sheet_star");
    EXPECT_FALSE(star.isVisible()) << "there is no index yet";
    opened.shell.workspace().lookAt("utci");
    QTest::qWait(0);
    QTest::mouseClick(&star, Qt::LeftButton);
    EXPECT_TRUE(sets.isStarred("utci") && star.isChecked());
    QApplication::setActiveWindow(&opened.panel);
    QTest::keyClick(&opened.panel, Qt::Key_B, Qt::ControlModifier);
    EXPECT_FALSE(sets.isStarred("utci") || star.isChecked());
}

// Figures that take a while: nothing of the earlier readings is left, and what is known stands.
TEST(SheetPanel, SaysThatFiguresAreBeingCalculated)
{
    OpenedSheet opened;
    workspace::Workspace& workspace = opened.shell.workspace();
    opened.write("33", "600", "50", "2");
    workspace.lookAt("humidex_masterson");
    ASSERT_TRUE(opened.waitForCourse());
    std::vector<classic::Inputs> asked;
    workspace.onAsk([&asked](const classic::Inputs& inputs) { asked.push_back(inputs); });
    opened.form.txt_TA.setText("35");
    ASSERT_TRUE(QTest::qWaitFor(
        [&opened] { return opened.text().find("It is being calculated.") != std::string::npos; }));
    EXPECT_NE(opened.text().find("Masterton"), std::string::npos);
    EXPECT_EQ(opened.text().find("no value"), std::string::npos) << "nobody knows yet";
    ASSERT_EQ(asked.size(), 1U);
    workspace.arrived(
        std::make_shared<const workspace::Situation>(workspace::evaluate(workspace.limits(), asked[0])));
    ASSERT_TRUE(QTest::qWaitFor([&opened] { return opened.text().find("Now 35 °C") != std::string::npos; }));
    workspace.onAsk({});
}

TEST(SheetPanel, SavesTheChartWholeOrNotAtAll)
{
    OpenedSheet opened;
    opened.write("33", "600", "50", "2");
    opened.shell.workspace().lookAt("utci");
    ASSERT_TRUE(opened.waitForCourse());
    const comfortics::tests::TemporaryFolder folder;
    opened.files.answer = folder.file("chart");
    opened.panel.savePicture();
    EXPECT_EQ(comfortics::tests::readFile(folder.file("chart.png")).substr(1, 3), "PNG");
    opened.files.answer = folder.file("chart.SVG");
    opened.panel.savePicture();
    EXPECT_EQ(comfortics::tests::readFile(folder.file("chart.SVG")).substr(0, 5), "<?xml");
    EXPECT_TRUE(opened.messages.boxes.empty());
    opened.files.answer = folder.file("nowhere/chart.png");
    opened.panel.savePicture();
    EXPECT_EQ(opened.messages.boxes.size(), 1U);
}

// The heat strain of the guide's building site; its minutes are held to others in the workspace.
TEST(SheetPanel, FollowsAModelOverTheMinutes)
{
    OpenedSheet opened;
    opened.write("33", "850", "45", "1.5");
    workspace::Workspace& workspace = opened.shell.workspace();
    workspace.person.write(
        {{"met", "3.2"}, {"clo", "0.6"}, {"posture", "standing"}, {"acclimatised", "yes"}});
    workspace.lookAt("phs_2023.d_lim");
    ASSERT_TRUE(opened.waitForCourse());
    auto& axis = find<QComboBox>(opened.panel, "sheet_axis");
    ASSERT_EQ(axis.count(), 5);
    axis.setCurrentIndex(4);
    emit axis.activated(4);
    auto& minutes = find<MinutesChart>(opened.panel, "minutes");
    ASSERT_TRUE(QTest::qWaitFor([&minutes] { return minutes.course() != nullptr; }));
    EXPECT_FALSE(opened.chart.isVisible());
    ASSERT_NE(minutes.course()->end(), nullptr);
    const auto exposure = workspace::itemFigure(*workspace::Item::ofId("phs_2023.d_lim"), workspace.present(),
                                                workspace.person.texts());
    EXPECT_EQ(std::to_string(minutes.course()->end()->minute), exposure.figure.text);
    QSignalSpy told(&minutes, &ChartView::pointRead);
    QTest::keyClick(&minutes, Qt::Key_Left);
    EXPECT_TRUE(told.last().front().toString().contains(QStringLiteral("the exposure ends")));
    QTest::keyClick(&minutes, Qt::Key_Home);
    EXPECT_TRUE(told.last().front().toString().startsWith(QStringLiteral("Minute 1: rectal")));
    EXPECT_TRUE(minutes.picture(ChartView::PictureKind::Svg, QStringLiteral("x")).contains("exposure ends"));

    opened.form.txt_TA.setText("34");
    EXPECT_EQ(minutes.course(), nullptr) << "at once";
    ASSERT_TRUE(QTest::qWaitFor([&minutes] { return minutes.course() != nullptr; }));
    workspace.lookAt("utci");
    ASSERT_TRUE(QTest::qWaitFor([&axis] { return axis.count() == 4; })) << "an index has no minutes";
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return opened.chart.isVisible() && opened.chart.course() != nullptr; }));
    workspace.lookAt("two_node.set");
    ASSERT_TRUE(QTest::qWaitFor([&minutes] { return minutes.course() != nullptr; })) << "as chosen";
}

TEST(SheetPanel, HasTheTableOfWorkAndRest)
{
    OpenedSheet opened;
    opened.write("33", "850", "45", "1.5");
    opened.shell.workspace().person.write(
        {{"met", "2.6"}, {"weight", "75"}, {"height", "1.75"}, {"acclimatised", "yes"}, {"sun", "yes"}});
    opened.shell.workspace().lookAt("wbgt_iso7243.exceeds");
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.text().find("moderate, 300 W") != std::string::npos; }));
    EXPECT_NE(opened.text().find("\u25B6"), std::string::npos) << opened.text();
}

} // namespace
} // namespace comfortics::ui
