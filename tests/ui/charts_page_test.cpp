// SPDX-License-Identifier: GPL-3.0-or-later
#include "../workbench/station_runs.h"
#include "temporary_folder.h"
#include "test_program.h"
#include "ui/charts_page.h"
#include "ui/station_chart.h"
#include "ui/station_report_dialog.h"
#include "ui/text.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace comfortics::ui {
namespace {

using tests::find;

// A hundred hours of which the fifty-first is missing and the humidity of the first is a gap.
std::shared_ptr<const workbench::StoreRows> hundredHours()
{
    std::string text = "Time;T;H;W;S\n";
    for (int hour = 0; hour < 100; ++hour)
        if (hour != 50)
            text += tables::momentText({1719792000 + hour * 3600, std::nullopt}) + ";" +
                    std::to_string(20 + hour % 15) + (hour == 0 ? ";;2;300\n" : ";50;2;300\n");
    return std::make_shared<workbench::StoreRows>(comfortics::tests::storeOf(
        text, "ta=T,rh=H,ws=W,sr=S,time=Time", comfortics::tests::stationOptions({90, 200})));
}

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Charting {
    comfortics::tests::PreparedFiles files;
    comfortics::tests::RecordedMessages messages;
    ChartsPage page{files, messages};
    StationChart& chart = find<StationChart>(page, "stationChart");

    bool waits() const
    {
        return QTest::qWaitFor([this] { return page.settled(); });
    }
    const workbench::TimeSeries& series() const
    {
        return std::get<workbench::TimeSeries>(chart.chart().body);
    }
};

TEST(ChartsPage, KeysZoomMoveAndRead)
{
    Charting charting;
    EXPECT_EQ(charting.chart.chart().problem, "Nothing has been calculated yet.");
    EXPECT_FALSE(find<QPushButton>(charting.page, "saveChart").isEnabled());
    charting.page.show(hundredHours());
    charting.page.QWidget::show();
    ASSERT_TRUE(charting.waits());
    EXPECT_EQ(charting.series().missing, 1U);
    const workbench::Period whole = charting.series().whole;
    EXPECT_EQ(whole.to - whole.from, 99 * 3600 + 1);
    const auto press = [&](Qt::Key key, Qt::KeyboardModifier with = Qt::NoModifier) {
        QTest::keyClick(&charting.chart, key, with);
        EXPECT_TRUE(charting.waits());
    };
    press(Qt::Key_Plus);
    const workbench::Period half = charting.series().window;
    EXPECT_NEAR(static_cast<double>(half.to - half.from), 99 * 1800, 2);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_GT(charting.series().window.from, half.from);
    press(Qt::Key_Home);
    EXPECT_EQ(charting.series().window, whole);
    press(Qt::Key_Right); // to the middle
    EXPECT_EQ(
        find<QLabel>(charting.page, "placeRead").text(),
        QStringLiteral("2024-07-03 01:00: Humidex (Masterson; 1979) 26.8 °C, little or no discomfort (0)"));
    EXPECT_EQ(charting.chart.accessibleDescription(), find<QLabel>(charting.page, "placeRead").text());
    EXPECT_EQ(tests::nameless(charting.page), "");
}

TEST(ChartsPage, SavesWhatIsSeenAndReports)
{
    comfortics::tests::TemporaryFolder folder;
    Charting charting;
    const auto rows = hundredHours();
    charting.page.show(rows);
    ASSERT_TRUE(charting.waits());
    auto& kind = find<QComboBox>(charting.page, "chartKind");
    for (int i = 0; i < kind.count(); ++i) {
        kind.setCurrentIndex(i);
        ASSERT_TRUE(charting.waits());
        for (const auto& [ending, begin] :
             {std::pair("png", "\x89PNG"), std::pair("svg", "<?xml"), std::pair("pdf", "%PDF")}) {
            const std::string path = folder.file("chart." + std::string(ending));
            charting.files.answer = path;
            charting.page.save();
            const std::string bytes = contentOf(path);
            EXPECT_EQ(bytes.substr(0, std::string(begin).size()), begin) << i << ending;
            if (ending == std::string("svg")) {
                EXPECT_NE(bytes.find("Calculated by precise rules, limits kept."), std::string::npos) << i;
            }
        }
    }
    StationReportDialog dialog(rows, {.columns = {0}}, charting.files, charting.messages);
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialog.gathered(); }));
    EXPECT_TRUE(find<QTextBrowser>(dialog, "page").toPlainText().contains(QStringLiteral("skipped: ")));
    charting.files.answer = folder.file("year.html");
    dialog.save(StationReportDialog::Form::Html);
    EXPECT_NE(contentOf(folder.file("year.html")).find("<svg style="), std::string::npos);
    charting.files.answer = folder.file("year.pdf");
    dialog.save(StationReportDialog::Form::Pdf);
    EXPECT_EQ(contentOf(folder.file("year.pdf")).substr(0, 4), "%PDF");
    EXPECT_TRUE(charting.messages.boxes.empty());
}

} // namespace
} // namespace comfortics::ui
