// SPDX-License-Identifier: GPL-3.0-or-later
//
// The radiation window comes and goes with its menu entry.
#include "shell/shell.h"

#include <gtest/gtest.h>

namespace comfortics::shell {
namespace {

struct Answers final : controls::Messages,
                       controls::Clipboard,
                       controls::FileDialogs,
                       output::PrintDialog,
                       radiation::Connection,
                       radiation::PlaceSource,
                       radiation::TimeZones {
    controls::Answer show(const controls::MessageBox&) override { return controls::Answer::Yes; }
    void clear() override {}
    void setText(const std::string&) override {}
    std::string text() override { return {}; }
    std::optional<std::string> askSave(const controls::SaveRequest&) override { return std::nullopt; }
    void show(const std::function<void(output::Printer&)>&) override {}
    bool connected() override { return true; }
    void navigate(const radiation::MapOpening&) override {}
    bool ready() override { return false; }
    std::optional<int> offset(const std::string&, radiation::Date) override { return std::nullopt; }
    using PlaceSource::supply;
};

TEST(RadiationSlot, OpensOnceAndIsUnloadedWithTheProgram)
{
    Answers answers;
    const Desktop::Maps maps{answers, answers, answers};
    Shell shell(COMFORTICS_DATA_DIR, {answers, answers, answers, answers, &maps});
    ASSERT_TRUE(shell.main().Menu_Radiation.enabled());
    EXPECT_EQ(shell.radiation.get(), nullptr);
    shell.main().Menu_Radiation.click.raise();
    radiation::Frm_Radiation* const form = shell.radiation.get();
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->visible());
    answers.supply("12.5, -7");
    EXPECT_EQ(form->txt_lat.text(), "12.5");
    shell.main().Menu_Radiation.click.raise();
    EXPECT_EQ(shell.radiation.get(), form); // its inputs stay

    EXPECT_FALSE(shell.main().Form_QueryUnload()); // nothing keeps it open
    EXPECT_EQ(shell.radiation.get(), nullptr);
    answers.supply("1, 2"); // reaches nobody
}

TEST(RadiationSlot, StaysClosedWithoutMaps)
{
    Answers answers;
    Shell shell(COMFORTICS_DATA_DIR, {answers, answers, answers, answers});
    EXPECT_FALSE(shell.main().Menu_Radiation.enabled());
    shell.main().Menu_Radiation.click.raise();
    EXPECT_EQ(shell.radiation.get(), nullptr);
}

} // namespace
} // namespace comfortics::shell
