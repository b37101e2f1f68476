// SPDX-License-Identifier: GPL-3.0-or-later
//
// When the small controls tell of a change: only of a real one, at once, nested where a handler
// writes again.
#include "controls/controls.h"
#include "controls/list_box.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace comfortics::tests {

using namespace controls;

namespace {

/// Acts on a fresh control and counts what its event told.
template <class C>
int told(Event C::*event, const std::function<void(C&)>& act)
{
    C control;
    int count = 0;
    (control.*event).handle([&] { ++count; });
    act(control);
    return count;
}

} // namespace

TEST(Controls, TellOfRealChangesOnly)
{
    const auto write = [](TextBox& it) { it.setText(""), it.setText("a"), it.setText("a"), it.setText("A"); };
    EXPECT_EQ(told<TextBox>(&TextBox::change, write), 2);
    EXPECT_EQ(told<Label>(&Label::change, [](auto& it) { it.setCaption("a"), it.setCaption("a"); }), 1);
    const auto hide = [](Label& it) { it.setVisible(true), it.setVisible(false), it.setEnabled(false); };
    EXPECT_EQ(told<Label>(&Label::appearance, hide), 2);
    EXPECT_EQ(told<Button>(&Button::click, [](auto& it) { it.setValue(true), it.setValue(false); }), 1);
    const auto check = [](CheckBox& it) { it.setChecked(true), it.setChecked(true); };
    EXPECT_EQ(told<CheckBox>(&CheckBox::click, check), 1);
    const auto add = [](ListBox& it) { it.addItem("a"), it.addItem("b"); };
    const auto selectOne = [&](ListBox& it) { add(it), it.setSelected(0, true), it.setSelected(0, true); };
    EXPECT_EQ(told<ListBox>(&ListBox::change, selectOne), 3);
    EXPECT_EQ(told<ListBox>(&ListBox::change, [&](auto& it) { add(it), it.selectAll(true); }), 3);
    const auto goTwice = [&](ListBox& it) { add(it), it.setCurrentRow(1), it.setCurrentRow(1); };
    EXPECT_EQ(told<ListBox>(&ListBox::current, goTwice), 1);
    EXPECT_EQ(told<ListBox>(&ListBox::sight, goTwice), 2) << "brought into sight again";
}

TEST(Controls, TheViewHearsBeforeTheHandlerWhichIsRaisedAgainAtOnceForWhatItWrites)
{
    TextBox box;
    std::string order;
    box.change.watch([&] { order += "shows " + box.text() + ", "; });
    box.change.handle([&] {
        order += "handles " + box.text() + ", ";
        if (box.text() == "12x")
            box.setText("12");
        order += "ends, ";
    });
    box.setText("12x");
    EXPECT_EQ(order, "shows 12x, handles 12x, shows 12, handles 12, ends, ends, ");
}

TEST(Controls, ViewsComeAndGoWhileTheyAreToldAndASecondHandlerIsRefused)
{
    TextBox box;
    std::string told;
    Event::Watch second = 0;
    const Event::Watch first = box.change.watch([&] {
        told += "first ";
        box.change.unwatch(second);
        if (box.text() == "1")
            box.change.watch([&] { told += "late "; });
    });
    second = box.change.watch([&] { told += "second "; });
    box.change.handle([&] { told += "form "; });
    box.onKeyDown([&](KeyPress) { told += "key "; });
    EXPECT_THROW(box.change.handle([&] { told += "other form "; }), std::logic_error);
    EXPECT_THROW(box.onKeyDown([&](KeyPress) { told += "other key "; }), std::logic_error);
    box.setText("1");
    box.press({Key::Enter});
    box.setText("2");
    box.change.unwatch(first);
    box.setText("3");
    EXPECT_EQ(told, "first form key first late form late form ");
}

TEST(Controls, ATimerTicksOnlyWhileItIsOn)
{
    Timer timer(1000);
    int ticks = 0;
    timer.timeout.handle([&] { timer.setEnabled(++ticks < 2); });
    timer.tick();
    EXPECT_EQ(ticks, 0);
    timer.setEnabled(true);
    for (int i = 0; i < 3; ++i)
        timer.tick();
    EXPECT_EQ(ticks, 2);
}

} // namespace comfortics::tests
