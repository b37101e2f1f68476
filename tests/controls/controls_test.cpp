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
    EXPECT_EQ(writes({"a"}), 1);
    EXPECT_EQ(writes({""}), 0);
    EXPECT_EQ(writes({"a", "a"}), 1);
    EXPECT_EQ(writes({"a", "A", ""}), 3);
    EXPECT_EQ(told<Label>(&Label::change, [](auto& label) { label.setCaption("a"), label.setCaption("a"); }),
              1);
    EXPECT_EQ(told<Label>(&Label::appearance, [](auto& it) { it.setVisible(true), it.setEnabled(true); }), 0);
    EXPECT_EQ(told<Label>(&Label::appearance, [](auto& it) { it.setVisible(false), it.setEnabled(false); }),
              2);
    EXPECT_EQ(told<Button>(&Button::click, [](auto& it) { it.setValue(true), it.setValue(true); }), 2);
    EXPECT_EQ(told<Button>(&Button::click, [](auto& it) { it.setValue(false); }), 0);
    EXPECT_EQ(told<CheckBox>(&CheckBox::click, [](auto& it) { it.setChecked(false), it.setChecked(true); }),
              1);
    const auto selections = [](std::function<void(ListBox&)> act) {
        return told<ListBox>(&ListBox::change, [&](ListBox& list) {
            list.addItem("a"), list.addItem("b"); // two
            act(list);
        });
    };
    EXPECT_EQ(selections([](ListBox& list) { list.setSelected(0, true), list.setSelected(0, true); }), 3);
    EXPECT_EQ(selections([](ListBox& list) { list.selectAll(true); }), 3) << "all rows are one change";
}

TEST(Controls, NestedWritesRunAtOnceInsideTheOuterOne)
{
    TextBox first;
    TextBox second("old");
    std::string order;
    first.change.handle([&] {
        order += "first " + first.text();
        second.setText("");
        order += ", first ends";
    });
    second.change.handle([&] { order += ", second \"" + second.text() + "\""; });
    first.setText("x");
    EXPECT_EQ(order, "first x, second \"\", first ends");
}

TEST(Controls, TheViewHearsBeforeTheHandlerWhichIsRaisedAgainForWhatItWrites)
{
    TextBox box;
    std::vector<std::string> shown, handled;
    box.change.watch([&] { shown.push_back(box.text()); });
    box.change.handle([&] {
        handled.push_back(box.text());
        if (box.text() == "12x")
            box.setText("12");
    });
    box.setText("12x");
    EXPECT_EQ(shown, (std::vector<std::string>{"12x", "12"})) << "the last text stands in the view";
    EXPECT_EQ(handled, shown);
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
