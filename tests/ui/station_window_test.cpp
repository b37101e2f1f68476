// SPDX-License-Identifier: GPL-3.0-or-later
//
// The window of station files. What is read, run and arranged is tested without it.
#include "temporary_folder.h"
#include "test_program.h"
#include "ui/charts_page.h"
#include "ui/results_page.h"
#include "ui/station_window.h"
#include "ui/summary_dialog.h"
#include "workspace/recent_files.h"

#include <QComboBox>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <QUrl>

#include <gtest/gtest.h>

namespace comfortics::ui {
namespace {

using tests::find;

constexpr auto kStation = "Time,Station,Air,RH (%),Wind (m/s),Globe (°C)\n"
                          "2024-07-01 12:00,Roof,30,50,2,40\n"
                          "2024-07-01 13:00,Yard,25,60,1,\n"
                          "2024-07-01 14:00,Roof,-5,50,3,-4\n"
                          "2024-07-01 15:00,Roof,28,wet,3,30\n";

struct StationProgram : tests::Program {
    StationForm station;
    StationWindow window{station, {shell.workspace(), files, messages, clipboard}};

    bool settles(const std::function<bool()>& done) { return QTest::qWaitFor(done, 20000); }
    bool openText(const char* text)
    {
        clipboard.setText(text);
        window.openClipboard();
        return settles([this] { return !window.busy(); });
    }
    QTableView& rows() { return find<QTableView>(window, "Flex_Station"); }
    /// The lines in sight, one after the other.
    QString lines()
    {
        QString all;
        for (int row = 0; row < rows().model()->rowCount(); ++row)
            all += rows().model()->index(row, 0).data().toString();
        return all;
    }
};

TEST(StationWindow, ATableIsMappedRunSortedAndMarkedAsEarlier)
{
    StationProgram program;
    StationWindow& window = program.window;
    program.form.List_Indices.selectAll(false);
    program.form.List_Indices.setSelected(194, true);
    ASSERT_TRUE(program.openText(kStation));
    QPushButton& calculate = find<QPushButton>(window, "cmd_Calculate_Station");
    // No unit is told of the air: the user says what it is.
    auto& columns = find<QTableWidget>(window, "Flex_Columns");
    columns.setCurrentCell(2, 0);
    auto& role = find<QComboBox>(window, "lst_Role");
    const auto tell = [&role](int place) {
        role.setCurrentIndex(place);
        emit role.activated(place);
    };
    tell(9);
    EXPECT_FALSE(calculate.isEnabled());
    tell(0);
    ASSERT_EQ(window.importDesk().whyNot("0.20"), "");
    ASSERT_TRUE(calculate.isEnabled());
    EXPECT_EQ(find<QTableWidget>(window, "Flex_Preview").item(0, 2)->text(), QStringLiteral("30"));

    window.calculate();
    ASSERT_TRUE(program.settles([&] { return !window.busy() && window.results().view() != nullptr; }));
    EXPECT_EQ(program.lines(), QStringLiteral("2345"));
    EXPECT_EQ(window.results().store()->items(), std::vector<workspace::Item>{195}); // those that are ticked
    EXPECT_TRUE(find<QLabel>(window, "lbl_Run")
                    .text()
                    .contains(QStringLiteral("2 calculated, 1 skipped, 0 failed, 1 refused")));
    EXPECT_TRUE(program.rows().isColumnHidden(0)); // line, time and station stand beside

    const auto before = window.results().view();
    // Line, time and status, then the air temperature.
    emit program.rows().horizontalHeader()->sectionClicked(4);
    ASSERT_TRUE(program.settles([&] { return window.results().view() != before; }));
    EXPECT_EQ(program.lines(), QStringLiteral("4325"));

    EXPECT_EQ(window.earlier(), QString());
    tell(9);
    EXPECT_EQ(
        window.earlier(),
        QStringLiteral("These are the results of run 1, of Clipboard; since then the mapping has changed."));
    EXPECT_TRUE(find<QLabel>(window, "lbl_Earlier").isVisibleTo(&window));
}

TEST(StationWindow, ChartsBeginWithTheChosenColumnAndTheSummaryHasItToo)
{
    StationProgram program;
    StationWindow& window = program.window;
    program.form.List_Indices.selectAll(false);
    for (const std::size_t place : {0U, 194U})
        program.form.List_Indices.setSelected(place, true);
    ASSERT_TRUE(program.openText("Ta,Tg,RH,WS\n30,40,50,2\n25,26,60,1\n"));
    window.calculate();
    ASSERT_TRUE(program.settles([&] { return !window.busy() && window.results().view() != nullptr; }));
    const auto charted = [&](int column) {
        window.pages().setCurrentWidget(&window.results());
        program.rows().setCurrentIndex(program.rows().model()->index(0, column));
        window.pages().setCurrentWidget(&window.charts());
        EXPECT_TRUE(program.settles([&] { return window.charts().settled(); }));
        return find<QComboBox>(window, "chartColumn").currentText();
    };
    // Line, status and six readings, then the two indices.
    EXPECT_TRUE(charted(9).startsWith(QStringLiteral("195 ")));
    EXPECT_TRUE(charted(8).startsWith(QStringLiteral("1 ")));

    SummaryDialog dialog(window.results().store(), window.results().view(), nullptr);
    auto& table = find<QTableView>(dialog, "Flex_Summary");
    ASSERT_TRUE(program.settles([&] { return table.model()->rowCount() == 2; }));
    const auto cell = [&table](int column) { return table.model()->index(1, column).data().toString(); };
    EXPECT_TRUE(cell(1).startsWith(QStringLiteral("195 ")));
    EXPECT_EQ(cell(3), QStringLiteral("2"));
    // The mean of two values lies between them, and the percentiles run from one to the other.
    EXPECT_DOUBLE_EQ(2 * cell(8).toDouble(), cell(9).toDouble() + cell(11).toDouble());
    EXPECT_LE(cell(9).toDouble(), cell(13).toDouble());
    EXPECT_GE(cell(11).toDouble(), cell(19).toDouble());
    table.setCurrentIndex(table.model()->index(1, 0));
    EXPECT_TRUE(find<QLabel>(dialog, "lbl_Classes").text().contains(QStringLiteral("rows in each class")));
}

TEST(StationWindow, LinesOfTheFileAreToldOnThePageAndADroppedFileOpensWhereverItFalls)
{
    StationProgram program;
    StationWindow& window = program.window;
    const comfortics::tests::TemporaryFolder folder;
    const std::string path = folder.write("a.csv", "Hill,1,2\nAir,Hum,Wind\n20,50,1\n21,50,1\n");
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    dragged.setText(QStringLiteral("path"));
    ASSERT_TRUE(program.openText(kStation)); // so that its boxes take texts
    auto& box = find<QLineEdit>(window, "txt_Gaps");
    QDragEnterEvent enter({1, 1}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &enter);
    QDropEvent drop({1, 1}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(&box, &drop);
    ASSERT_TRUE(program.settles([&] { return !window.busy(); }));
    EXPECT_EQ(box.text(), QString());
    ASSERT_EQ(window.importDesk().look().source.path, path);
    auto& names = find<QSpinBox>(window, "spn_NameLine");
    EXPECT_EQ(names.value(), 2);
    names.setValue(0);
    ASSERT_TRUE(program.settles([&] { return !window.busy(); }));
    EXPECT_EQ(window.importDesk().look().layout.names.front(), "Column 1");
    names.setValue(9); // behind the end of the file: what was read stays, and the page shows it
    ASSERT_TRUE(program.settles([&] { return !window.busy(); }));
    EXPECT_TRUE(tests::says(window, QStringLiteral("Line 9 is empty or not among")));
    EXPECT_EQ(names.value(), 0);
    EXPECT_EQ(workspace::RecentFiles(program.shell.workspace().preferences(), kRecentStations).paths(),
              std::vector{path});
}

TEST(StationWindow, AWrongFileLeavesTheTableAsItWas)
{
    StationProgram program;
    ASSERT_TRUE(program.openText(kStation));
    program.window.openFile("/no/such/file.csv");
    ASSERT_TRUE(program.settles([&] { return !program.window.busy(); }));
    EXPECT_EQ(program.window.importDesk().look().source.name, "Clipboard");
    EXPECT_TRUE(tests::says(program.window, QStringLiteral("cannot be read")));
}

TEST(StationWindow, NoLetterMeansTwoThingsOnAPage)
{
    StationProgram program;
    StationWindow& window = program.window;
    program.form.List_Indices.selectAll(false);
    program.form.List_Indices.setSelected(194, true);
    ASSERT_TRUE(program.openText("Time,Station,Ta (°C),RH (%),Wind (m/s),Globe (°C)\n"
                                 "2024-07-01 12:00,Roof,30,50,2,40\n2024-07-01 13:00,Yard,25,60,1,31\n"));
    window.calculate();
    ASSERT_TRUE(program.settles([&] { return !window.busy() && window.results().view() != nullptr; }));
    auto& stop = find<QPushButton>(window, "cmd_Stop_Run");
    for (int page = 0; page < window.pages().count(); ++page) {
        window.pages().setCurrentIndex(page);
        EXPECT_EQ(tests::clashingLetters(window), "") << page;
        if (page == 0)
            continue; // it cannot be used during a run
        stop.show();
        EXPECT_EQ(tests::clashingLetters(window), "") << page << " during a run";
        stop.hide();
    }
}

} // namespace
} // namespace comfortics::ui
