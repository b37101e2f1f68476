// SPDX-License-Identifier: GPL-3.0-or-later
//
// The dialogs of the desktop, answered by keys.
#include "temporary_folder.h"

#include "ui/desktop.h"
#include "ui/text.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::ui {
namespace {

// Types one path after the other as long as the dialog asks, then cancels. Its questions are answered by Yes
// or, as its sentences, by Enter alone.
class Typist {
public:
    Typist(std::vector<std::string> paths, bool yes) : m_paths(std::move(paths)), m_yes(yes) { soon(); }
    std::string told; // what the message boxes say

private:
    // Once at a time, since a key can open the next dialog before it comes back.
    void soon()
    {
        QTimer::singleShot(0, &m_life, [this] { act(); });
    }
    void act()
    {
        soon();
        QWidget* const shown = QApplication::activeModalWidget();
        if (const auto* const box = qobject_cast<QMessageBox*>(shown)) {
            told += fromQt(box->text()) + "|";
            if (m_yes)
                box->button(QMessageBox::Yes)->click();
            else
                QTest::keyClick(shown, Qt::Key_Return);
        } else if (const auto* const dialog = qobject_cast<QFileDialog*>(shown)) {
            auto* const name = dialog->findChild<QLineEdit*>();
            const bool asks = m_next < m_paths.size();
            if (asks)
                name->setText(toQt(m_paths[m_next++]));
            QTest::keyClick(name, asks ? Qt::Key_Return : Qt::Key_Escape);
        }
    }

    QObject m_life;
    std::vector<std::string> m_paths;
    std::size_t m_next = 0;
    bool m_yes;
};

// It asked about the name as typed, and took a folder that is none.
TEST(DesktopFileDialogs, AskAboutTheFileThatWillBeWrittenUntilItMayBe)
{
    const comfortics::tests::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "dir.csv");
    folder.write("table.csv", "old");
    const std::string table = folder.file("table");
    controls::SaveRequest request{.title = "Save",
                                  .filter = "Tables (*.csv)",
                                  .overwritePrompt = true,
                                  .written = [](const std::string& path) { return path + ".csv"; }};
    const auto ask = [&request](std::vector<std::string> paths, bool yes, const std::string& told) {
        Typist typist(std::move(paths), yes);
        const std::optional<std::string> chosen = DesktopFileDialogs().askSave(request);
        EXPECT_EQ(typist.told, told);
        return chosen.value_or("cancelled");
    };

    EXPECT_EQ(ask({folder.file("none/table"), folder.file("dir"), folder.file("new")}, false,
                  "There is no folder " + folder.file("none") + ".|dir.csv is a folder.|"),
              folder.file("new"));
    const std::string question = "table.csv already exists.\nDo you want to replace it?|";
    EXPECT_EQ(ask({table}, false, question), "cancelled") << "the safe answer comes first";
    EXPECT_EQ(ask({table}, true, question), table);
    EXPECT_EQ(ask({folder.file("table.csv")}, true, ""), folder.file("table.csv"));
    request.overwritePrompt = false;
    EXPECT_EQ(ask({table}, false, ""), table);
    request = {.title = "Save", .overwritePrompt = true};
    EXPECT_EQ(ask({folder.file("table.csv")}, true, question), folder.file("table.csv"));
}

} // namespace
} // namespace comfortics::ui
