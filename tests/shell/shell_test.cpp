// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shell.h"

#include <gtest/gtest.h>

#include <stdlib.h> // mkdtemp

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::shell {
namespace {

using controls::Answer;
using controls::Key;
using controls::MouseButton;

struct RecordedMessages final : controls::Messages {
    std::vector<controls::MessageBox> boxes;
    Answer answer = Answer::Yes;
    Answer show(const controls::MessageBox& box) override
    {
        boxes.push_back(box);
        return answer;
    }
};

struct KeptClipboard final : controls::Clipboard {
    std::string kept;
    void clear() override { kept.clear(); }
    void setText(const std::string& text) override { kept = text; }
    std::string text() override { return kept; }
};

struct NoFiles final : controls::FileDialogs {
    std::optional<std::string> askSave(const controls::SaveRequest&) override { return std::nullopt; }
};

struct NoPrinter final : output::PrintDialog {
    void show(const std::function<void(output::Printer&)>&) override {}
};

struct Program {
    RecordedMessages messages;
    KeptClipboard clipboard;
    NoFiles files;
    NoPrinter printing;
    Shell shell;

    explicit Program(const std::filesystem::path& folder = COMFORTICS_DATA_DIR)
        : shell(folder, {messages, clipboard, files, printing})
    {
    }

    void calculate(const char* Ta, const char* SR, const char* RH, const char* WS)
    {
        shell.main().txt_TA.setText(Ta);
        shell.main().txt_SR.setText(SR);
        shell.main().txt_RH.setText(RH);
        shell.main().txt_WS.setText(WS);
        shell.main().txt_WS.press({Key::Enter});
    }
};

TEST(Shell, TheSplashScreenHandsOverAtTheSecondTick)
{
    Program program;
    program.shell.start();
    Frm_Splash_Screen* const splash = program.shell.splash.get();
    ASSERT_NE(splash, nullptr);
    EXPECT_TRUE(splash->visible());
    EXPECT_EQ(splash->tmr_Splash.interval(), 1000);
    EXPECT_EQ(splash->lbl_Version.caption(), "version 1.0");
    splash->tmr_Splash.tick();
    EXPECT_FALSE(program.shell.main().visible());
    EXPECT_EQ(program.shell.splash.get(), splash);
    splash->tmr_Splash.tick();
    EXPECT_TRUE(program.shell.main().visible());
    EXPECT_EQ(program.shell.splash.get(), nullptr);
    splash->tmr_Splash.tick(); // a late one finds the timer off
    EXPECT_EQ(program.shell.splash.get(), nullptr);
}

TEST(Shell, Calculate1FillsAndShowsTheResults)
{
    Program program;
    EXPECT_EQ(program.shell.results.get(), nullptr);
    program.calculate("30", "600", "50", "2");
    output::Frm_Comfortics* const results = program.shell.results.get();
    ASSERT_NE(results, nullptr);
    EXPECT_TRUE(results->visible());
    EXPECT_EQ(results->Flex.rows(), 223U);
    const core::Frm_Results& store = program.shell.main().results;
    for (const std::size_t index : {std::size_t{1}, std::size_t{5}, std::size_t{134}, std::size_t{222}}) {
        EXPECT_EQ(results->Flex.textMatrix(index, 0), store.lbl_Index[index].caption());
        EXPECT_EQ(results->Flex.textMatrix(index, 1), store.lbl_results[index].caption());
        EXPECT_EQ(results->Flex.textMatrix(index, 2), store.lbl_Unit[index].caption());
    }
    EXPECT_EQ(results->Flex.textMatrix(134, 1), "50.0");
}

TEST(Shell, ABlankResultSaysWhyWhereverSortingBroughtIt)
{
    Program program;
    program.shell.main().List_Indices.setSelected(133, false); // relative humidity
    program.calculate("30", "600", "50", "2");
    controls::Grid& grid = program.shell.results.get()->Flex;
    EXPECT_EQ(grid.note(134, 1), "The index is not selected in the list.");
    EXPECT_EQ(grid.note(134, 0), "");
    EXPECT_EQ(grid.note(5, 1), "");
    const std::string name(grid.textMatrix(134, 0));
    grid.mouseDown(MouseButton::Left, 0, 0);
    std::size_t row = 1;
    while (grid.textMatrix(row, 0) != name)
        ++row;
    ASSERT_NE(row, 134U);
    EXPECT_EQ(grid.note(row, 1), "The index is not selected in the list.");
}

TEST(Shell, TheResultsKeepTheirSearchUntilTheWindowIsUnloaded)
{
    Program program;
    program.calculate("30", "600", "50", "2");
    program.shell.results.get()->txt_Search.setText("wind chill");
    program.calculate("31", "600", "50", "2");
    EXPECT_EQ(program.shell.results.get()->txt_Search.text(), "wind chill");
    EXPECT_TRUE(program.shell.results.get()->Flex_Search.visible());
    program.shell.results.unload();
    program.calculate("32", "600", "50", "2");
    EXPECT_EQ(program.shell.results.get()->txt_Search.text(), "");
    EXPECT_TRUE(program.shell.results.get()->Flex.visible());
}

TEST(Shell, TheConverterOpensBesideTheMainWindowAndLeavesItsColours)
{
    Program program;
    core::Frm_Main& main = program.shell.main();
    main.stands({10, 20, 900, 600});
    main.Menu_Converter.click.raise();
    converter::Frm_Converter* const first = program.shell.converter.get();
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->visible());
    EXPECT_EQ(first->place().left, 910);
    EXPECT_EQ(main.txt_TA.backColor(), core::kTransferColor);
    first->txt_F.setText("50");
    main.txt_TA.doubleClick.raise();
    EXPECT_EQ(main.txt_TA.text(), "10.0");
    first->Menu_Velocity.click.raise();
    first->txt_kmh.setText("18");
    main.txt_WS.doubleClick.raise();
    EXPECT_EQ(main.txt_WS.text(), "5.00");
    first->Menu_Radiation.click.raise();
    first->txt_kWm.setText("0.3");
    main.txt_SR.doubleClick.raise();
    EXPECT_EQ(main.txt_SR.text(), "300.0");

    main.Menu_Converter.click.raise(); // shows the one that is open
    EXPECT_EQ(program.shell.converter.get(), first);
    EXPECT_EQ(main.txt_SR.backColor(), core::kTransferColor);

    program.shell.converter.unload();
    EXPECT_EQ(main.txt_SR.backColor(), core::kOrdinaryColor);
    main.Menu_Converter.click.raise();
    EXPECT_EQ(program.shell.converter.get()->txt_F.text(), ""); // a fresh one
    EXPECT_EQ(main.txt_TA.backColor(), core::kTransferColor);
}

TEST(Shell, ClosingUnloadsEveryFormOrNone)
{
    Program program;
    program.shell.start();
    program.shell.splash.get()->tmr_Splash.tick();
    program.shell.splash.get()->tmr_Splash.tick();
    program.calculate("30", "600", "50", "2");
    program.shell.main().Menu_Converter.click.raise();
    int ends = 0;
    std::string order;
    program.shell.ended.watch([&] { ++ends; });
    program.shell.results.unloading.watch([&] { order += "results "; });
    program.shell.converter.unloading.watch([&] {
        EXPECT_NE(program.shell.converter.get(), nullptr); // the view can still let go of it
        order += "converter ";
    });

    program.messages.answer = Answer::No;
    EXPECT_TRUE(program.shell.main().Form_QueryUnload());
    EXPECT_EQ(ends, 0);
    EXPECT_NE(program.shell.results.get(), nullptr);
    EXPECT_TRUE(program.shell.main().visible());

    program.messages.answer = Answer::Yes;
    EXPECT_FALSE(program.shell.main().Form_QueryUnload());
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(order, "results converter ");
    EXPECT_EQ(program.shell.results.get(), nullptr);
    EXPECT_EQ(program.shell.converter.get(), nullptr);
    EXPECT_FALSE(program.shell.main().visible());
}

TEST(Shell, ReadsTheLimitsOfTheProgramsFolder)
{
    std::string pattern = (std::filesystem::temp_directory_path() / "comfortics_XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    const std::filesystem::path folder(pattern);
    {
        const Program without(folder);
        EXPECT_NE(without.shell.limitsWarning().find("Limits.Index"), std::string::npos);
    }
    std::ofstream(folder / "Limits.Index")
        << "[INDICES]\r\nTair_min_35=10\r\nTair_max_35=20\r\nWS_max_35=0\r\n";
    {
        Program with(folder);
        EXPECT_EQ(with.shell.limitsWarning(), "");
        const auto value = [&with](std::size_t index) {
            return with.shell.main().results.lbl_results[index].caption();
        };
        with.calculate("15", "600", "90", "2");
        EXPECT_NE(value(35), "");
        with.calculate("25", "600", "90", "2");
        EXPECT_EQ(value(35), "");
    }
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace comfortics::shell
