// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/readings_panel.h"

#include "ui/bindings.h"
#include "ui/mark_style.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace comfortics::ui {

using classic::Reading;
using classic::ReadingInfo;

namespace {

constexpr double kReadingScale = 1.25;
constexpr int kReadingCharacters = 7;
constexpr int kEntryCharacters = 4;
constexpr int kCalculateIcon = 40;
constexpr int kFieldSpacing = 2; // between heading and box

void scaleFont(QWidget& widget, double scale)
{
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * scale);
    widget.setFont(font);
}

} // namespace

ReadingsPanel::ReadingsPanel(workspace::Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_workspace(workspace), m_form(workspace.form())
{
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kGap);
    column->addWidget(buildReadings());
    column->addWidget(buildActions());
    column->addStretch(1);
}

QWidget* ReadingsPanel::readingField(Reading reading)
{
    const ReadingInfo& info = classic::kReadingInfo[static_cast<std::size_t>(reading)];
    controls::TextBox& box = m_form.calculation.readings.box(reading);

    auto* const field = new QWidget;
    auto* const layout = new QGridLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(kFieldSpacing);
    auto* const heading = new QLabel(toQt(info.heading));
    auto* const line = new QLineEdit;
    auto* const unit = new QLabel(toQt(info.unit()));
    if (reading == Reading::SR)
        bind(*unit, m_form.lbl_SR_unit);
    scaleFont(*line, kReadingScale);
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * kReadingCharacters);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as there is room
    unit->setMinimumWidth(unit->fontMetrics().horizontalAdvance(QStringLiteral("W/m²")));
    nameWidget(*line, QStringLiteral("txt_") + toQt(info.key),
               toQt(info.heading) + QStringLiteral(", ") + unit->text(),
               toQt(info.hint) +
                   (info.typing.empty() ? QString() : QStringLiteral("; ") + toQt(info.typing)));
    heading->setToolTip(line->toolTip());
    layout->addWidget(heading, 0, 0, 1, 2);
    layout->addWidget(line, 1, 0);
    layout->addWidget(unit, 1, 1);
    layout->setColumnStretch(0, 1);

    new TextBoxBinding(*line, box);
    leaveUndoToWindow(*line);
    m_readings[static_cast<std::size_t>(reading)] = line;
    addEntry(*layout, reading);
    return field;
}

// Below the box, which shows what counts.
void ReadingsPanel::addEntry(QGridLayout& layout, Reading reading)
{
    m_fields.push_back(m_readings[static_cast<std::size_t>(reading)]);
    workspace::UnitEntry* const entry = m_workspace.entry(reading);
    if (entry == nullptr)
        return;
    const ReadingInfo& info = classic::kReadingInfo[static_cast<std::size_t>(reading)];
    const QString key = toQt(info.key);
    auto* const row = new QWidget;
    auto* const columns = new QHBoxLayout(row);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(kSmallGap);
    auto* const line = new QLineEdit;
    auto* const unit = new QComboBox;
    bind(*unit, entry->unit());
    new TextBoxBinding(*line, entry->txt_Entry);
    leaveUndoToWindow(*line);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * kEntryCharacters);
    nameWidget(*line, QStringLiteral("entry_") + key, toQt(info.heading) + QStringLiteral(" in another unit"),
               QStringLiteral("What is typed here goes into the box above, in its unit"));
    nameWidget(*unit, QStringLiteral("unit_") + key, QStringLiteral("Unit of ") + toQt(info.heading),
               reading == Reading::WS ? QStringLiteral("The unit in which the wind is typed here")
                                      : QStringLiteral("The unit in which all temperatures are typed here"));
    columns->addWidget(line, 1);
    columns->addWidget(unit);
    m_fields.insert(m_fields.end(), {line, unit});
    layout.addWidget(row, 2, 0, 1, 2);
    QWidget* height = nullptr;
    if (reading == Reading::WS) {
        auto* const mast = new QCheckBox;
        bind(*mast, entry->Check_10m);
        MarkStyle::wear(*mast);
        nameWidget(
            *mast, QStringLiteral("Check_10m"), mast->text(),
            QStringLiteral("Takes the wind from 10 m to the 1.1 m of the box by the power law with the air "
                           "friction coefficient of the options; until the program closes"));
        layout.addWidget(mast, 3, 0, 1, 2);
        m_fields.push_back(mast);
        height = mast;
    }
    follow(*row, m_workspace.units.Check_Units.click, [this, row, height, entry] {
        const bool shown = m_workspace.units.Check_Units.checked();
        row->setVisible(shown);
        if (height)
            height->setVisible(shown);
        if (!shown)
            entry->Check_10m.setChecked(false); // nothing counts that is not seen
    });
}

// The arrow keys follow this arrangement.
QWidget* ReadingsPanel::buildReadings()
{
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(kSmallGap);
    grid->setVerticalSpacing(kGap);
    const auto pair = [this, grid](int row, Reading left, Reading right) {
        grid->addWidget(readingField(left), row, 0, Qt::AlignTop);
        grid->addWidget(readingField(right), row, 2, Qt::AlignTop);
        // Beside the boxes, whatever stands below them.
        auto* const either = new QVBoxLayout;
        either->setSpacing(kFieldSpacing);
        either->addWidget(new QLabel(QStringLiteral(" ")));
        auto* const word = quietLabel(QStringLiteral("or"));
        word->setFixedHeight(m_readings[static_cast<std::size_t>(left)]->sizeHint().height());
        either->addWidget(word);
        either->addStretch();
        grid->addLayout(either, row, 1);
    };
    grid->addWidget(readingField(Reading::TA), 0, 0, 1, 3);
    pair(1, Reading::TG, Reading::SR);
    pair(2, Reading::DP, Reading::RH);
    grid->addWidget(readingField(Reading::WS), 3, 0, 1, 3);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    return new Card(QStringLiteral("Readings"), grid);
}

QWidget* ReadingsPanel::buildActions()
{
    auto* const picture =
        new QPushButton(QIcon(QStringLiteral(":/calculate.svg")), QStringLiteral("Calculate"));
    picture->setIconSize({kCalculateIcon, kCalculateIcon});
    scaleFont(*picture, kReadingScale);
    bind(*picture, m_form.Img_Calculate);
    nameWidget(*picture, QStringLiteral("Img_Calculate"), QStringLiteral("Calculate"),
               QStringLiteral("Calculates the indices and shows the results table (Enter in a reading)"));

    auto* const first = new QPushButton;
    bind(*first, m_form.cmd_Show_Results);
    nameWidget(*first, QStringLiteral("cmd_Show_Results"), first->text(),
               QStringLiteral("Calculates the indices and shows the results table"));
    auto* const second = new QPushButton;
    bind(*second, m_form.cmd_Calculate);
    nameWidget(*second, QStringLiteral("cmd_Calculate"), second->text(),
               QStringLiteral("Calculates the indices without showing the results table"));

    auto* const actions = new QWidget;
    auto* const grid = new QGridLayout(actions);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kSmallGap);
    grid->addWidget(picture, 0, 0, 1, 2);
    grid->addWidget(first, 1, 0);
    grid->addWidget(second, 1, 1);
    auto* const hint = quietLabel(first->text() + QStringLiteral(" shows the results table, ") +
                                  second->text() + QStringLiteral(" only the live quantities."));
    hint->setWordWrap(true);
    grid->addWidget(hint, 2, 0, 1, 2);
    m_buttons = {picture, first, second};
    return actions;
}

} // namespace comfortics::ui
