// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shell.h"

#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace comfortics::shell {
namespace {

/// A user who answers alike whatever is asked, and a map without a connection to the world.
struct Answers final : controls::Messages,
                       controls::Clipboard,
                       controls::FileDialogs,
                       output::PrintDialog,
                       radiation::Connection,
                       radiation::PlaceSource,
                       radiation::TimeZones {
    controls::Answer answer = controls::Answer::Yes;
    controls::Answer show(const controls::MessageBox&) override { return answer; }
    void clear() override {}
    void setText(const std::string&) override {}
    std::string text() override { return {}; }
    std::optional<std::string> askSave(const controls::SaveRequest&) override { return std::nullopt; }
    void show(const std::function<bool(output::Printer&)>&) override {}
    bool connected() override { return true; }
    void navigate(const radiation::MapOpening&) override {}
    bool ready() override { return false; }
    std::optional<int> offset(const std::string&, radiation::Date) override { return std::nullopt; }
    using PlaceSource::supply;
};

struct Program {
    Answers user;
    Desktop::Maps maps{user, user, user};
    Shell shell;
    classic::Frm_Main& main = shell.main();

    explicit Program(const std::filesystem::path& folder = COMFORTICS_DATA_DIR, bool withMaps = true)
        : shell(folder, {user, user, user, user, withMaps ? &maps : nullptr})
    {
    }
    void start()
    {
        shell.start();
        shell.splash.get()->tmr_Splash.tick();
        shell.splash.get()->tmr_Splash.tick();
    }
    void calculate(const char* Ta, const char* RH)
    {
        main.txt_TA.setText(Ta);
        main.txt_SR.setText("600");
        main.txt_RH.setText(RH);
        main.txt_WS.setText("2");
        main.txt_WS.press({controls::Key::Enter});
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
    EXPECT_FALSE(program.main.visible());
    splash->tmr_Splash.tick();
    EXPECT_TRUE(program.main.visible());
    EXPECT_EQ(program.shell.splash.get(), nullptr);
    program.main.hide();
    splash->tmr_Splash.tick(); // a late one finds the timer off
    EXPECT_FALSE(program.main.visible());
}

TEST(Shell, CalculatingFillsTheResultsWithValuesAndReasons)
{
    Program program;
    program.main.List_Indices.setSelected(4, false);
    program.calculate("30", "50");
    output::Frm_Comfortics* const results = program.shell.results.get();
    ASSERT_NE(results, nullptr);
    EXPECT_TRUE(results->visible());
    EXPECT_EQ(results->Flex.rows(), 223U);
    EXPECT_EQ(results->Flex.textMatrix(134, 0), "Relative Humidity");
    EXPECT_EQ(results->Flex.textMatrix(134, 1), "50.0");
    EXPECT_EQ(results->Flex.textMatrix(134, 2), "%");
    EXPECT_EQ(results->Flex.note(134, 1), "");
    EXPECT_EQ(results->Flex.note(5, 1), "The index is not selected in the list.");
}

TEST(Shell, FiguresOfEarlierInputsAreSaidToBeSo)
{
    Program program;
    classic::Frm_Main& main = program.main;
    program.calculate("30", "50");
    output::Frm_Comfortics& results = *program.shell.results.get();
    const std::string rounded = main.txt_TA.text();
    const auto earlier = [&] {
        EXPECT_EQ(main.liveIsEarlier(), main.lbl_Live.caption() == "Live quantities of earlier readings");
        EXPECT_EQ(main.liveIsEarlier(), main.resultsAreEarlier());
        EXPECT_EQ(main.liveIsEarlier(), !results.lbl_Earlier.caption().empty());
        return main.liveIsEarlier();
    };
    const std::pair<const char*, std::function<void(bool)>> turns[] = {
        {"reading", [&](bool on) { main.txt_TA.setText(on ? "31" : rounded); }},
        {"assumption", [&](bool on) { main.txt_Friction.setText(on ? "0.3" : "0.20"); }},
        {"limits", [&](bool on) { main.Opt_Limits.select(on ? 1 : 0); }},
        {"rules", [&](bool on) { main.Opt_Rules.select(on ? 1 : 0); }},
        {"tick", [&](bool on) { main.List_Indices.setSelected(7, !on); }},
    };
    for (const auto& [name, turn] : turns) {
        EXPECT_FALSE(earlier()) << name;
        turn(true);
        EXPECT_TRUE(earlier()) << name;
        turn(false);
    }
    EXPECT_FALSE(earlier());

    // The table is that of its own calculation, not of the last one, also in its reasons.
    EXPECT_NE(results.Flex.note(24, 1), "");
    main.txt_TA.setText("5");
    main.cmd_Calculate.setValue(true);
    EXPECT_FALSE(main.resultsAreEarlier());
    EXPECT_NE(results.lbl_Earlier.caption(), "");
    EXPECT_EQ(results.Flex.note(24, 1),
              "The reason is no longer known: something else was calculated since.");
    main.Menu_Raw_Data.click.raise(); // writes the table anew
    EXPECT_EQ(results.lbl_Earlier.caption(), "");

    // A rejected run blanks the results and leaves the live quantities.
    main.txt_TA.setText("-");
    main.cmd_Calculate.setValue(true);
    EXPECT_FALSE(main.resultsAreEarlier());
    EXPECT_TRUE(main.liveIsEarlier());
}

TEST(Shell, TheConverterOpensBesideTheMainWindowAndLeavesItsColours)
{
    Program program;
    classic::Frm_Main& main = program.main;
    main.Menu_Converter.click.raise();
    converter::Frm_Converter* const first = program.shell.converter.get();
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->visible());
    first->txt_F.setText("50");
    first->txt_kmh.setText("18");
    first->txt_kWm.setText("0.3");
    main.txt_TA.doubleClick.raise();
    EXPECT_EQ(main.txt_TA.text(), "10.0");
    first->Menu_Velocity.click.raise();
    main.txt_WS.doubleClick.raise();
    EXPECT_EQ(main.txt_WS.text(), "5.00");
    first->Menu_Radiation.click.raise();
    main.txt_SR.doubleClick.raise();
    EXPECT_EQ(main.txt_SR.text(), "300.0");

    main.Menu_Converter.click.raise(); // shows the one that is open
    EXPECT_EQ(program.shell.converter.get(), first);
    program.shell.converter.unload();
    EXPECT_EQ(main.txt_SR.backColor(), classic::kOrdinaryColor);
    main.Menu_Converter.click.raise();
    EXPECT_EQ(program.shell.converter.get()->txt_F.text(), ""); // a fresh one
}

TEST(Shell, TheRadiationWindowOpensOnceAndOnlyWithMaps)
{
    Program without(COMFORTICS_DATA_DIR, false);
    EXPECT_FALSE(without.main.Menu_Radiation.enabled());
    without.main.Menu_Radiation.click.raise();
    EXPECT_EQ(without.shell.radiation.get(), nullptr);

    Program program;
    ASSERT_TRUE(program.main.Menu_Radiation.enabled());
    program.main.Menu_Radiation.click.raise();
    radiation::Frm_Radiation* const form = program.shell.radiation.get();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->visible());
    program.user.supply("12.5, -7");
    EXPECT_EQ(form->txt_lat.text(), "12.5");
    program.main.Menu_Radiation.click.raise();
    EXPECT_EQ(program.shell.radiation.get(), form); // its inputs stay
}

TEST(Shell, ClosingUnloadsEveryFormOrNone)
{
    Program program;
    Shell& shell = program.shell;
    program.start();
    program.calculate("30", "50");
    program.main.Menu_Converter.click.raise();
    program.main.Menu_Radiation.click.raise();
    program.main.Menu_Raw_Data.click.raise();
    std::string order;
    shell.ended.watch([&] { order += "ended"; });
    shell.results.unloading.watch([&] { order += "results "; });
    shell.radiation.unloading.watch([&] { order += "radiation "; });
    shell.rawData.unloading.watch([&] { order += "rawData "; });
    shell.converter.unloading.watch([&] {
        EXPECT_NE(shell.converter.get(), nullptr); // the view can still let go of it
        order += "converter ";
    });

    program.user.answer = controls::Answer::No;
    EXPECT_TRUE(program.main.Form_QueryUnload());
    EXPECT_EQ(order, "");
    EXPECT_TRUE(program.main.visible());

    program.user.answer = controls::Answer::Yes;
    EXPECT_FALSE(program.main.Form_QueryUnload());
    program.user.supply("1, 2"); // reaches nobody
    EXPECT_EQ(order, "results converter radiation rawData ended");
    EXPECT_EQ(shell.results.get(), nullptr);
    EXPECT_FALSE(program.main.visible());
}

TEST(Shell, ReadsTheLimitsOfTheProgramsFolder)
{
    const tests::TemporaryFolder folder;
    EXPECT_NE(Program(folder.path()).shell.limitsWarning().find("Limits.Index"), std::string::npos);
    folder.write("Limits.Index", "[INDICES]\r\nTair_min_35=10\r\nTair_max_35=20\r\nWS_max_35=0\r\n");
    Program program(folder.path());
    EXPECT_EQ(program.shell.limitsWarning(), "");
    const controls::Label& value = program.main.results.lbl_results[35];
    program.calculate("15", "90");
    EXPECT_NE(value.caption(), "");
    program.calculate("25", "90");
    EXPECT_EQ(value.caption(), "");
}

} // namespace
} // namespace comfortics::shell
