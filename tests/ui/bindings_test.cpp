// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/bindings.h"
#include "ui/colors.h"
#include "ui/desktop.h"
#include "ui/index_list.h"
#include "ui/mark_style.h"
#include "ui/text.h"

#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
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

    // The caret goes where the form puts it.
    cleaned.box.setText("125");
    cleaned.line.setCursorPosition(1);
    QTest::keyClicks(&cleaned.line, QStringLiteral("3"));
    EXPECT_EQ(cleaned.line.text(), QStringLiteral("1325"));
    EXPECT_EQ(cleaned.line.cursorPosition(), 4);

    QTest::keyClick(&cleaned.line, 'x', Qt::AltModifier); // no menu has the letter
    EXPECT_EQ(cleaned.line.text(), QStringLiteral("1325"));
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
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left, Qt::Key_Delete, Qt::Key_Enter})
        QTest::keyClick(&line, key);
    QTest::keyClick(&line, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&line, Qt::Key_V, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(pressed, "40/0 39/0 38/0 37/0 46/0 13/0 86/2 86/5 ");
}

TEST(TextBoxBinding, AWidgetGoneLeavesTheBoxAlone)
{
    controls::TextBox box;
    new TextBoxBinding(*std::make_unique<QLineEdit>(), box);
    box.setText("2");
    box.setFocus();
    box.setCaretToEnd();
    box.setBackColor(0xFFFF00);
    EXPECT_EQ(box.text(), "2");
}

TEST(Bindings, ChoicesAndTimersFollow)
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
    bindChoices({&no, &yes}, group);
    EXPECT_TRUE(no.isChecked());
    yes.click();
    EXPECT_EQ(group.selected(), 1U);
    group.select(0);
    EXPECT_TRUE(no.isChecked());

    controls::Timer control(1000);
    QTimer timer;
    bind(timer, control);
    EXPECT_FALSE(timer.isActive());
    control.setEnabled(true);
    EXPECT_TRUE(timer.isActive());

    EXPECT_EQ(withMnemonic("R & D", 'D'), QStringLiteral("R && &D"));
    EXPECT_EQ(screenColor(0x010203), QColor(3, 2, 1)); // the bytes are blue, green, red
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
    QTest::keyClick(rows.view.get(), Qt::Key_Down);
    QTest::keyClick(rows.view.get(), Qt::Key_Space);
    EXPECT_EQ(rows.selected(), "0110");
    rows.click(1);
    EXPECT_EQ(rows.selected(), "0010");
    rows.click(3);
    rows.click(1, Qt::ShiftModifier); // as the row clicked before, and all between
    EXPECT_EQ(rows.selected(), "0111");
    rows.click(2);
    QTest::mouseDClick(rows.view->viewport(), Qt::LeftButton, {}, rows.place(2).center());
    EXPECT_EQ(rows.selected(), "0111"); // the second of two quick clicks counts, too
    rows.list.selectAll(true);
    EXPECT_EQ(rows.view->model()->index(2, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST(IndexList, BringsTheCurrentRowIntoSightAlsoASecondTime)
{
    ListedRows rows(200);
    for (int time = 0; time < 2; ++time) {
        rows.view->scrollToTop();
        rows.list.setCurrentRow(150);
        EXPECT_TRUE(rows.view->viewport()->rect().contains(rows.place(150).center())) << time;
    }
}

TEST(DesktopMessages, AnswersWithItsButtonAndLeavesTheTickOfItsBox)
{
    bool checked = false;
    QTimer::singleShot(0, qApp, [] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box && box->checkBox());
        EXPECT_TRUE(box->defaultButton() && box->defaultButton()->text().contains(QStringLiteral("No")));
        box->checkBox()->setChecked(true);
        box->button(QMessageBox::No)->click();
    });
    const controls::Answer answer = DesktopMessages().show(
        {.text = "Text", .buttons = controls::Buttons::YesNo, .checkBox = "Not again", .checked = &checked});
    EXPECT_EQ(answer, controls::Answer::No);
    EXPECT_TRUE(checked);

    for (const bool accepts : {false, true}) {
        QTimer::singleShot(0, qApp, [accepts] {
            const auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_TRUE(box);
            EXPECT_EQ(box->escapeButton(), box->button(QMessageBox::Ok)) << "beside an offer, too";
            for (QAbstractButton* const button : box->buttons())
                if ((button->text().remove(QLatin1Char('&')) == QStringLiteral("Go on")) == accepts)
                    button->click();
        });
        EXPECT_EQ(DesktopMessages().show({.text = "Text", .offer = "Go on"}),
                  accepts ? controls::Answer::Yes : controls::Answer::Ok);
    }
}

// The greatest contrast of a pixel with that in the corner, by luminance; 3 is what a mark needs.
double contrast(const QImage& image)
{
    const auto luminance = [](QColor color) {
        const auto linear = [](double part) {
            return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF()) + 0.05;
    };
    const double ground = luminance(image.pixelColor(0, 0));
    double greatest = 1;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const double here = luminance(image.pixelColor(x, y));
            greatest = std::max(greatest, std::max(here, ground) / std::min(here, ground));
        }
    return greatest;
}

TEST(MarkStyle, AnEmptyMarkIsSeenOnADarkGround)
{
    MarkStyle style(QStringLiteral("fusion"));
    QPalette dark(QColor(49, 54, 59), QColor(42, 46, 50));
    dark.setColor(QPalette::Base, QColor(27, 30, 32));
    const auto drawn = [&](QStyle::PrimitiveElement mark) {
        QImage image(20, 20, QImage::Format_RGB32);
        image.fill(dark.color(QPalette::Window));
        QPainter painter(&image);
        QStyleOptionButton option;
        option.palette = dark;
        option.rect = image.rect().adjusted(3, 3, -3, -3);
        option.state = QStyle::State_Enabled | QStyle::State_Off;
        style.drawPrimitive(mark, &option, &painter, nullptr);
        return image;
    };
    EXPECT_GE(contrast(drawn(QStyle::PE_IndicatorRadioButton)), 3);
    EXPECT_GE(contrast(drawn(QStyle::PE_IndicatorCheckBox)), 3);
}

} // namespace
} // namespace comfortics::ui
