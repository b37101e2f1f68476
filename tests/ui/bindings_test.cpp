// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/bindings.h"
#include "ui/colors.h"
#include "ui/desktop.h"
#include "ui/index_list.h"
#include "ui/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

namespace comfortics::ui {
namespace {

// A box whose handler turns commas into points and refuses an x.
struct CleanedBox {
    controls::TextBox box;
    QLineEdit line;
    int changes = 0;

    CleanedBox()
    {
        box.change.handle([this] {
            ++changes;
            std::string text = box.text();
            std::replace(text.begin(), text.end(), ',', '.');
            box.setText(text.find('x') == std::string::npos ? text : "");
            box.setCaretToEnd();
        });
        new TextBoxBinding(line, box);
    }
};

TEST(TextBoxBinding, BothWaysGoThroughTheHandlerWithoutAnEcho)
{
    CleanedBox cleaned;
    cleaned.box.setText("1,5");
    EXPECT_EQ(cleaned.line.text(), QStringLiteral("1.5"));
    EXPECT_EQ(cleaned.changes, 2); // the comma, the point
    QTest::keyClicks(&cleaned.line, QStringLiteral("x2"));
    EXPECT_EQ(cleaned.box.text(), "2");
    EXPECT_EQ(cleaned.line.text(), QStringLiteral("2"));
    cleaned.line.undo();
    EXPECT_EQ(fromQt(cleaned.line.text()), cleaned.box.text());
}

TEST(TextBoxBinding, TheCaretGoesWhereTheFormPutsIt)
{
    CleanedBox cleaned;
    cleaned.box.setText("125");
    cleaned.line.setCursorPosition(1);
    QTest::keyClicks(&cleaned.line, QStringLiteral("3"));
    EXPECT_EQ(cleaned.line.text(), QStringLiteral("1325"));
    EXPECT_EQ(cleaned.line.cursorPosition(), 4);
    cleaned.line.setCursorPosition(1);
    cleaned.box.setBackColor(0xFFFF00); // leaves the caret alone
    EXPECT_EQ(cleaned.line.cursorPosition(), 1);
}

TEST(TextBoxBinding, KeysReachTheFormWithTheirShiftState)
{
    controls::TextBox box("a");
    QLineEdit line;
    new TextBoxBinding(line, box);
    std::string pressed;
    box.onKeyDown([&pressed](controls::KeyPress press) {
        pressed += std::to_string(static_cast<int>(press.key)) + "/" + std::to_string(press.shift) + " ";
    });
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left, Qt::Key_Delete,
                              Qt::Key_Return, Qt::Key_Enter, Qt::Key_Home})
        QTest::keyClick(&line, key);
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&line, Qt::Key_V, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(pressed, "40/0 39/0 38/0 37/0 46/0 13/0 13/0 86/2 86/5 ");
}

TEST(TextBoxBinding, AWidgetGoneLeavesTheBoxAlone)
{
    controls::TextBox box;
    {
        QLineEdit line;
        new TextBoxBinding(line, box);
    }
    box.setText("2");
    box.setFocus();
    box.setCaretToEnd();
    box.setBackColor(0xFFFF00);
    EXPECT_EQ(box.text(), "2");
}

TEST(Bindings, ChoicesTimersAndCaptionsFollow)
{
    controls::CheckBox tick("All");
    QCheckBox tickBox;
    bind(tickBox, tick);
    tickBox.click();
    EXPECT_TRUE(tick.checked());
    tick.setChecked(false);
    EXPECT_FALSE(tickBox.isChecked());

    controls::OptionGroup group({"No", "Yes"});
    QWidget together;
    QRadioButton no(&together);
    QRadioButton yes(&together);
    bind(no, group, 0);
    bind(yes, group, 1);
    EXPECT_TRUE(no.isChecked());
    yes.click();
    EXPECT_EQ(group.selected(), 1U);

    controls::Timer control(1000);
    QTimer timer;
    bind(timer, control);
    EXPECT_FALSE(timer.isActive());
    control.setEnabled(true);
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(timer.interval(), 1000);
    control.setEnabled(false);
    EXPECT_FALSE(timer.isActive());

    EXPECT_EQ(withMnemonic(" Solar Radiation", 'S'), QStringLiteral(" &Solar Radiation"));
    EXPECT_EQ(withMnemonic("R & D", 'D'), QStringLiteral("R && &D"));
    controls::Label label("W/m²");
    QLabel widget;
    bind(widget, label);
    EXPECT_EQ(fromQt(widget.text()), "W/m²");
}

struct ListedRows {
    controls::ListBox list;
    std::unique_ptr<IndexList> view;
    explicit ListedRows(int rows)
    {
        for (int row = 0; row < rows; ++row)
            list.addItem("row " + std::to_string(row));
        view = std::make_unique<IndexList>(list);
        view->resize(200, 100);
        view->show();
    }
    QRect place(int row) const { return view->visualRect(view->model()->index(row, 0)); }
    void click(int row, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, place(row).center());
    }
    std::string selected() const
    {
        std::string rows;
        for (std::size_t row = 0; row < list.count(); ++row)
            rows += list.selected(row) ? '1' : '0';
        return rows;
    }
};

TEST(IndexList, ClicksAndTheSpaceBarTurnTicks)
{
    ListedRows rows(4);
    rows.click(1);
    EXPECT_EQ(rows.selected(), "0100");
    EXPECT_EQ(rows.list.currentRow(), 1U);
    QTest::keyClick(rows.view.get(), Qt::Key_Down);
    QTest::keyClick(rows.view.get(), Qt::Key_Space);
    EXPECT_EQ(rows.selected(), "0110");
    rows.click(1);
    EXPECT_EQ(rows.selected(), "0010");
    rows.click(3);
    rows.click(1, Qt::ShiftModifier); // as the row clicked before, and all between
    EXPECT_EQ(rows.selected(), "0111");
    rows.list.selectAll(true);
    EXPECT_EQ(rows.view->model()->index(2, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST(IndexList, BringsTheCurrentRowIntoSightAlsoASecondTime)
{
    ListedRows rows(200);
    for (int time = 0; time < 2; ++time) {
        rows.view->scrollToTop();
        rows.list.setCurrentRow(150);
        EXPECT_TRUE(rows.view->viewport()->rect().contains(rows.place(150).adjusted(0, 0, -1, 0))) << time;
    }
    EXPECT_EQ(rows.view->currentIndex().row(), 150);
    EXPECT_EQ(rows.selected(), std::string(200, '0'));
}

// Relative luminance and contrast as of the Web Content Accessibility Guidelines 2.1.
double luminance(const QColor& color)
{
    const auto linear = [](float channel) {
        const auto c = static_cast<double>(channel);
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

TEST(Colors, BoxesAreLegibleOnLightAndDarkAndDifferFromEachOther)
{
    EXPECT_EQ(screenColor(0x010203), QColor(3, 2, 1)); // the bytes are blue, green, red
    const QPalette light(QColor(239, 239, 239));
    const QPalette dark(QColor(49, 54, 59));
    for (const QPalette& palette : {light, dark}) {
        for (const controls::Color ground : {controls::Color{0xFFFF00}, controls::Color{0xC0FFC0}}) {
            const QPalette box = boxPalette(palette, ground);
            const double text = luminance(box.color(QPalette::Text)) + 0.05;
            const double base = luminance(box.color(QPalette::Base)) + 0.05;
            EXPECT_GT(std::max(text, base) / std::min(text, base), 7) << isDark(palette) << ' ' << ground;
        }
        EXPECT_NE(boxPalette(palette, 0xFFFF00).color(QPalette::Base),
                  boxPalette(palette, 0xC0FFC0).color(QPalette::Base));
    }
    EXPECT_EQ(boxPalette(light, 0xFFFF00).color(QPalette::Base), QColor(0, 255, 255));
    EXPECT_NE(boxPalette(dark, 0xFFFF00).color(QPalette::Base), QColor(0, 255, 255));
    EXPECT_EQ(boxPalette(dark, 0xFFFFFF).color(QPalette::Base), dark.color(QPalette::Base));
}

TEST(DesktopMessages, ShowsItsIconAndLeavesTheTickOfItsBox)
{
    using controls::Buttons;
    using controls::Icon;
    const struct {
        Buttons buttons;
        Icon icon;
        QMessageBox::Icon shown;
        bool tick;
    } rows[] = {{Buttons::Ok, Icon::None, QMessageBox::Warning, true},
                {Buttons::Ok, Icon::Information, QMessageBox::Information, false},
                {Buttons::YesNo, Icon::None, QMessageBox::Question, true}};
    for (const auto& row : rows) {
        bool checked = !row.tick;
        QTimer::singleShot(0, qApp, [&row] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box && box->checkBox());
            EXPECT_EQ(box->icon(), row.shown);
            box->checkBox()->setChecked(row.tick);
            box->button(row.buttons == Buttons::Ok ? QMessageBox::Ok : QMessageBox::No)->click();
        });
        const auto answer = DesktopMessages().show({.text = "Text",
                                                    .buttons = row.buttons,
                                                    .icon = row.icon,
                                                    .checkBox = "Do not show this again",
                                                    .checked = &checked});
        EXPECT_EQ(answer, row.buttons == Buttons::Ok ? controls::Answer::Ok : controls::Answer::No);
        EXPECT_EQ(checked, row.tick);
    }
}

} // namespace
} // namespace comfortics::ui
