// SPDX-License-Identifier: GPL-3.0-or-later
#include "temporary_folder.h"
#include "test_program.h"

#include "ui/comparison_panel.h"
#include "ui/text.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>

#include <gtest/gtest.h>

#include <string>

namespace comfortics::ui {
namespace {

using tests::find;

struct OpenedComparison : tests::Program {
    workspace::Comparison& comparison = shell.comparison();
    ComparisonPanel panel{
        comparison, clipboard, files, messages, {{QStringLiteral("Two"), [] {
                                                      return std::vector<workspace::Item>{65, 88};
                                                  }}}};
    QTableView& table = find<QTableView>(panel, "comparison");

    OpenedComparison()
    {
        panel.show();
        QApplication::setActiveWindow(&panel);
    }
    int column(const char* heading) const
    {
        const QAbstractItemModel& model = *table.model();
        for (int i = 0; i < model.columnCount(); ++i)
            if (model.headerData(i, Qt::Horizontal, Qt::AccessibleTextRole).toString() ==
                QString::fromUtf8(heading))
                return i;
        throw std::runtime_error(std::string("there is no column ") + heading);
    }
    QModelIndex cell(const char* quantity, const char* heading) const
    {
        const QAbstractItemModel& model = *table.model();
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.index(row, 0).data().toString().startsWith(QString::fromUtf8(quantity)))
                return model.index(row, column(heading));
        throw std::runtime_error(std::string("there is no row ") + quantity);
    }
    std::string text(const char* quantity, const char* heading) const
    {
        return fromQt(cell(quantity, heading).data().toString());
    }
};

// A morning is pinned, the afternoon typed, and both go to a spreadsheet; with keys alone.
TEST(ComparisonPanel, LeadsThroughAComparison)
{
    OpenedComparison opened;
    EXPECT_EQ(tests::nameless(opened.panel), "");
    EXPECT_FALSE(find<QLineEdit>(opened.panel, "pin_name").isEnabled());
    tests::press(opened.panel, "Pin Now");
    EXPECT_EQ(opened.comparison.count(), 0U);
    EXPECT_TRUE(tests::says(opened.panel, QStringLiteral("the air temperature is missing")));

    opened.write("20.4", "0", "80", "1");
    tests::press(opened.panel, "Pin Now");
    ASSERT_EQ(opened.comparison.count(), 1U);
    opened.table.setFocus();
    QTest::keyClick(&opened.table, Qt::Key_F2);
    auto& name = find<QLineEdit>(opened.panel, "pin_name");
    EXPECT_EQ(name.selectedText(), QStringLiteral("Situation 1"));
    QTest::keyClicks(&name, QStringLiteral("Morning"));
    QTest::keyClick(&name, Qt::Key_Return);
    opened.write("31", "0", "60", "1");
    QTest::qWait(0);

    EXPECT_EQ(opened.text("Air Temperature", "Now less Morning"), "+10.6");
    EXPECT_EQ(opened.text("Heat Index", "Morning"), "");
    EXPECT_EQ(opened.text("Heat Index", "Now less Morning"), "");
    const QModelIndex blank = opened.cell("Heat Index", "Morning");
    EXPECT_TRUE(blank.data(Qt::ToolTipRole).toString().contains(QStringLiteral("Outside its limits")));
    opened.table.setCurrentIndex(blank);
    EXPECT_TRUE(tests::says(opened.panel, QStringLiteral("Outside its limits"))) << "without a mouse, too";

    tests::press(opened.panel, "Pin Now");
    opened.table.setFocus();
    QTest::keyClick(&opened.table, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(opened.comparison.pin(1).name, "Morning");
    EXPECT_EQ(opened.table.currentIndex().column(), opened.column("Situation 1"));
    QTest::keyClick(&opened.table, Qt::Key_Delete);
    ASSERT_EQ(opened.comparison.count(), 1U);
    EXPECT_EQ(opened.table.currentIndex().column(), opened.column("Morning"));

    QTest::keyClick(&opened.table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_NE(opened.clipboard.text().find("Air Temperature\t°C\t31\t\t20.4\t+10.6\t\n"), std::string::npos)
        << opened.clipboard.text();
    const comfortics::tests::TemporaryFolder folder;
    opened.files.answer = folder.file("days");
    tests::press(opened.panel, "Export...");
    EXPECT_NE(comfortics::tests::readFile(folder.file("days.csv"))
                  .find("\r\nAir Temperature,°C,31,,20.4,+10.6,\r\n"),
              std::string::npos);
    opened.files.answer = folder.file("nowhere/days.csv");
    tests::press(opened.panel, "Export...");
    EXPECT_EQ(opened.messages.boxes.size(), 1U);
}

TEST(ComparisonPanel, OpensTheSheetOfARow)
{
    OpenedComparison opened;
    opened.write("31", "0", "60", "1");
    QTest::qWait(0);
    opened.table.setFocus();
    opened.table.setCurrentIndex(opened.cell("Heat Index", "Now"));
    QTest::keyClick(&opened.table, Qt::Key_Return);
    EXPECT_EQ(opened.shell.workspace().lookedAt(), "heat_index_rothfusz");
}

} // namespace
} // namespace comfortics::ui
