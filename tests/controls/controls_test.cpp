// SPDX-License-Identifier: GPL-3.0-or-later
//
// When the small controls tell of a change: only of a real one, at once, nested where a handler
// writes again.
#include "controls/controls.h"
#include "controls/list_box.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

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
    const auto writes = [](std::vector<std::string> texts) {
        return told<TextBox>(&TextBox::change, [&](TextBox& box) {
            for (const std::string& text : texts)
                box.setText(text);
        });
    };
    EXPECT_EQ(writes({"a", "a", "A", ""}), 3);
    EXPECT_EQ(writes({""}), 0);
    EXPECT_EQ(told<Label>(&Label::change, [](auto& it) { it.setCaption("a"), it.setCaption("a"); }), 1);
    EXPECT_EQ(told<Label>(&Label::appearance, [](auto& it) { it.setVisible(true), it.setEnabled(true); }), 0);
    EXPECT_EQ(told<Label>(&Label::appearance, [](auto& it) { it.setVisible(false), it.setEnabled(false); }),
              2);
    EXPECT_EQ(told<Button>(&Button::click, [](auto& it) { it.setValue(true), it.setValue(true); }), 2);
    EXPECT_EQ(told<Button>(&Button::click, [](auto& it) { it.setValue(false); }), 0);
    EXPECT_EQ(told<CheckBox>(&CheckBox::click, [](auto& it) { it.setChecked(true), it.setChecked(true); }),
              1);
    const auto selections = [](std::function<void(ListBox&)> act) {
        return told<ListBox>(&ListBox::change, [&](ListBox& list) {
            list.addItem("a"), list.addItem("b"); // two
            act(list);
        });
    };
    EXPECT_EQ(selections([](ListBox& list) { list.setSelected(0, true), list.setSelected(0, true); }), 3);
    EXPECT_EQ(selections([](ListBox& list) { list.selectAll(true); }), 3) << "all rows are one change";
    const auto goTwice = [](ListBox& list) { list.setCurrentRow(1), list.setCurrentRow(1); };
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

TEST(Controls, ATimerTicksOnlyWhileItIsOn)
{
    Timer timer(1000);
    int ticks = 0;
    timer.timeout.handle([&] { timer.setEnabled(++ticks < 2); });
    timer.tick();
    EXPECT_EQ(ticks, 0);
    timer.setEnabled(true);
    for (int i = 0; i < 5; ++i)
        timer.tick();
    EXPECT_EQ(ticks, 2);
}

} // namespace comfortics::tests
