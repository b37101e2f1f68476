// SPDX-License-Identifier: GPL-3.0-or-later
//
// The window of the batch sheet: keys, files and pages. What a run calculates is tested without it.
#include "temporary_folder.h"
#include "test_program.h"
#include "ui/grid_view.h"
#include "ui/raw_data_window.h"
#include "ui/text.h"

#include <QApplication>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace comfortics::ui {
namespace {

using tests::find;

// Air temperature, globe, solar radiation, dew point, humidity, wind.
constexpr const char* kTwoRows = "30\t\t600\t\t50\t2\r\n20\t\t100\t\t60\t1\r\n";

class RawDataWindowTest : public testing::Test {
protected:
    void SetUp() override
    {
        program.shell.rawData.loaded.watch([this] {
            window =
                std::make_unique<RawDataWindow>(*program.shell.rawData.get(), main, [this] { ++closed; });
        });
        program.form.Menu_Raw_Data.click.raise();
        ASSERT_TRUE(window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get())); // else its shortcuts sleep
        data = &find<GridView>(*window, "Flex_Data");
        results = &find<GridView>(*window, "Flex_Results");
    }
    void paste(const std::string& text)
    {
        program.clipboard.setText(text);
        QTest::keyClick(data, Qt::Key_V, Qt::ControlModifier);
    }
    void press(const char* button) { QTest::mouseClick(&find<QPushButton>(*window, button), Qt::LeftButton); }
    QString label(const char* name) { return find<QLabel>(*window, name).text(); }
    batch::Frm_Raw_Data& form() { return *program.shell.rawData.get(); }

    QWidget main;
    tests::Program program;
    std::unique_ptr<RawDataWindow> window;
    GridView* data = nullptr;
    GridView* results = nullptr;
    int closed = 0;
};

TEST_F(RawDataWindowTest, PastesRunsCopiesAndExportsOnItsPages)
{
    EXPECT_EQ(tests::tabOrder(*data, 5), "Flex_Data cmd_Open cmd_Stop cmd_Calculate Flex_Data ");
    EXPECT_EQ(tests::nameless(*window), "");
    paste(kTwoRows);
    ASSERT_EQ(data->model()->rowCount(), 2);
    QTest::keyClick(data, Qt::Key_S, Qt::ControlModifier); // works on the results alone
    EXPECT_TRUE(program.files.asked.empty());

    QTest::keyClick(window.get(), Qt::Key_F5);
    ASSERT_TRUE(QTest::qWaitFor([this] { return results->isVisible() && !form().running(); }, 5000));
    EXPECT_FALSE(data->isVisible());
    EXPECT_EQ(label("lbl_progress_value") + label("lbl_progress_rows"), QStringLiteral("100%2 out of 2"));
    // The main window holds the last row.
    for (const int index : {1, 100, 222})
        EXPECT_EQ(fromQt(results->model()->index(1, index - 1).data().toString()),
                  program.form.calculation.results.lbl_results[static_cast<std::size_t>(index)].caption());
    form().Flex_Results.select(2, 0, 2, 0);
    QTest::keyClick(results, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(program.clipboard.text(), form().Flex_Results.textMatrix(2, 0));
    QTest::keyClick(results, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(program.files.asked.size(), 1U);
    QTest::keyClick(results, Qt::Key_Escape);
    EXPECT_TRUE(data->isVisible() && !results->isVisible());

    paste("30\t\t600\t\t50\t2\r\n\t\t600\t\t50\t2\r\n");
    press("cmd_Calculate");
    form().Flex_Results.select(2, 0, 2, 0);
    EXPECT_TRUE(tests::says(*window, QStringLiteral("Row 2 was skipped: ")));
}

TEST_F(RawDataWindowTest, EscapeStopsARunAndClosingWaitsForItsEnd)
{
    paste(std::string(300, '\r')); // empty rows
    QTimer::singleShot(0, window.get(), [&] {
        EXPECT_TRUE(results->isVisible() && data->isVisible()) << "the rows that are done show below";
        QTest::keyClick(data, Qt::Key_Escape);
    });
    press("cmd_Calculate");
    EXPECT_TRUE(label("lbl_outcome").startsWith(QStringLiteral("Stopped after row ")));
    EXPECT_FALSE(find<QPushButton>(*window, "cmd_Stop").isEnabled());

    QTimer::singleShot(0, window.get(), [&] {
        window->close();
        EXPECT_TRUE(form().running());
    });
    press("cmd_Calculate");
    EXPECT_EQ(closed, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(closed, 1);
}

TEST_F(RawDataWindowTest, TakesADroppedFile)
{
    const comfortics::tests::TemporaryFolder folder;
    const std::string path = folder.write("rows.csv", "25,,300,,40,1\n27,,320,,42,2\n");
    QMimeData dragged;
    dragged.setUrls({QUrl::fromLocalFile(toQt(path))});
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({50, 50}, Qt::CopyAction, &dragged, Qt::LeftButton, {});
    QApplication::sendEvent(window.get(), &drop);
    QCoreApplication::processEvents();
    ASSERT_EQ(data->model()->rowCount(), 2);
    EXPECT_EQ(data->model()->index(1, 4).data().toString(), QStringLiteral("42"));
}

TEST_F(RawDataWindowTest, TheHeadersAreWholeOnANarrowScreen)
{
    window->resize(620, 380);
    ASSERT_TRUE(QTest::qWaitFor([this] { return data->width() <= 620; }, 5000));
    const QHeaderView& header = *data->horizontalHeader();
    for (int col = 0; col < header.count(); ++col) {
        const QString text = data->model()->headerData(col, Qt::Horizontal).toString();
        const QFontMetrics metrics(
            data->model()->headerData(col, Qt::Horizontal, Qt::FontRole).value<QFont>());
        const QRect needed =
            metrics.boundingRect(QRect(0, 0, header.sectionSize(col), 0), Qt::TextWordWrap, text);
        EXPECT_LE(needed.width(), header.sectionSize(col)) << fromQt(text);
        EXPECT_LE(needed.height(), header.height()) << fromQt(text);
    }
}

} // namespace
} // namespace comfortics::ui
