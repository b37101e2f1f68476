// SPDX-License-Identifier: GPL-3.0-or-later
#include "temporary_folder.h"
#include "test_program.h"
#include "ui/page_maker.h"
#include "ui/report_dialog.h"
#include "ui/session_menu.h"
#include "ui/text.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTextBrowser>

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace comfortics::ui {
namespace {

using tests::find;
using tests::Program;

struct Reporting : Program {
    PdfMaker pdf;
    workspace::ReportDesk report{shell.workspace(), shell.session(), files, messages, pdf};

    Reporting()
    {
        write("33", "712", "48", "1.2");
        shell.workspace().sets.create("Three", {"wbgt_outdoor", "utci", "humidex_masterson"});
    }
};

std::size_t count(const std::string& text, std::string_view part)
{
    std::size_t times = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++times;
    return times;
}

TEST(Report, TheDialogShowsThePageThatIsSavedWhole)
{
    Reporting program;
    ReportDialog dialog(program.report, program.shell.session());
    dialog.show();
    QTest::keyClicks(&find<QLineEdit>(dialog, "heading"), QStringLiteral("Yard"));
    QTest::keyClicks(&find<QPlainTextEdit>(dialog, "notes"), QStringLiteral("Shift 2"));
    const auto& page = find<QTextBrowser>(dialog, "page");
    ASSERT_TRUE(QTest::qWaitFor([&page] { return page.toPlainText().contains(QStringLiteral("Shift 2")); }));
    for (const char* const text : {"Yard", "Shift 2", "Humidex", "By classic rules"})
        EXPECT_TRUE(page.toPlainText().contains(QLatin1String(text))) << text;
    EXPECT_FALSE(page.toPlainText().contains(QStringLiteral("Accepted Level")));
    find<QComboBox>(dialog, "choice").setCurrentIndex(1);
    EXPECT_TRUE(page.toPlainText().contains(QStringLiteral("Accepted Level")));
    find<QComboBox>(dialog, "choice").setCurrentIndex(0);
    EXPECT_EQ(tests::nameless(dialog), "");
    for (const int width : {dialog.width(), 500}) {
        dialog.resize(width, dialog.height());
        EXPECT_TRUE(QTest::qWaitFor([&page] {
            return page.document()->size().width() <= page.viewport()->width() + 1; // for rounded columns
        })) << width;
    }

    const comfortics::tests::TemporaryFolder folder;
    program.files.answer = folder.file("report");
    tests::press(dialog, "Save as PDF …");
    std::ifstream file(folder.file("report.pdf"), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(bytes.starts_with("%PDF"));
    EXPECT_EQ(count(bytes, "/Type /Page\n"), 1U) << "one page";

    program.files.answer = "/dev/full/report";
    tests::press(dialog, "Save as HTML …");
    ASSERT_FALSE(program.messages.boxes.empty()) << "what could not be written is told";
}

TEST(Session, TheMenuSavesAndOffersTheLastReadings)
{
    Program program;
    QWidget window;
    QMenu menu;
    addSessionEntries(
        menu, program.shell.session(), [] {}, window);
    const auto act = [&menu](const char* text) {
        for (QAction* const action : menu.actions())
            if (action->text().remove(QLatin1Char('&')) == QString::fromUtf8(text))
                return action;
        throw std::runtime_error(std::string("no entry ") + text);
    };
    const comfortics::tests::TemporaryFolder folder;
    program.write("33", "712", "48", "1.2");
    program.files.answer = folder.file("yard");
    act("Save Session")->trigger();
    EXPECT_EQ(program.shell.session().path(), folder.file("yard.comfortics"));
    QCoreApplication::processEvents();
    QMenu* const recent = act("Open Recent")->menu();
    ASSERT_EQ(recent->actions().size(), 3) << "the file, a line and what clears the list";
    program.form.txt_TA.setText("10");
    recent->actions().first()->trigger();
    EXPECT_EQ(program.form.txt_TA.text(), "33");
    emit menu.aboutToShow();
    EXPECT_FALSE(act("Bring Back the Last Readings")->isEnabled()) << "there was no earlier session";
}

} // namespace
} // namespace comfortics::ui
