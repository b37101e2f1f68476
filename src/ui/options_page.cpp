// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options_page.h"

#include "ui/bindings.h"
#include "ui/mark_style.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace comfortics::ui {

namespace {

constexpr int kAssumptionCharacters = 9;

} // namespace

OptionsPage::OptionsPage(workspace::Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_form(workspace.form())
{
    auto* const content = new QGridLayout;
    content->setHorizontalSpacing(kGap);
    using classic::Assumption;
    assumptionRow(*content, Assumption::ArAdu, m_form.lbl_ArAdu);
    assumptionRow(*content, Assumption::Emmisivity, m_form.lbl_Emmisivity);
    assumptionRow(*content, Assumption::Barometric, m_form.lbl_Barometric);
    assumptionRow(*content, Assumption::Height, m_form.lbl_Height);
    assumptionRow(*content, Assumption::Weight, m_form.lbl_Weight);
    assumptionRow(*content, Assumption::Friction, m_form.lbl_Friction);

    choiceRows(*content, m_form.lbl_Limits, m_form.Opt_Limits,
               {QStringLiteral("An index is blank outside the conditions that it is meant for"),
                QStringLiteral("An index shows what its formula gives, whatever the conditions")});
    choiceRows(*content, m_form.lbl_Rules, m_form.Opt_Rules,
               {QStringLiteral("A step without a result ends the calculation; dew point and air temperature "
                               "are compared as texts"),
                QStringLiteral("A step without a result leaves blank only what depends on it; dew point and "
                               "air temperature are compared as numbers"),
                QStringLiteral("As robust, and no reading is rounded: globe, wet bulbs and votes are exact "
                               "roots of their heat balances, with one globe for all indices")});

    auto* const following = new QCheckBox;
    MarkStyle::wear(*following);
    bind(*following, workspace.follower.Check_Follow);
    nameWidget(*following, QStringLiteral("Check_Follow"), following->text(),
               QStringLiteral("Else the cards wait for a calculation, as the live quantities do"));
    content->addWidget(following, content->rowCount(), 0, 1, 3);
    m_tabOrder.push_back(following);

    auto* const units = new QCheckBox;
    MarkStyle::wear(*units);
    bind(*units, workspace.units.Check_Units);
    nameWidget(
        *units, QStringLiteral("Check_Units"), units->text(),
        QStringLiteral("Below the temperatures and the wind, for typing in °F, K, km/h, knots or mph, and "
                       "the wind as measured at 10 m"));
    content->addWidget(units, content->rowCount(), 0, 1, 3);
    m_tabOrder.push_back(units);

    auto* const close = new QPushButton(QStringLiteral("Close"));
    close->setToolTip(QStringLiteral("Hides the options; what is set here stays in force (Escape)"));
    connect(close, &QPushButton::clicked, this, &OptionsPage::closeWanted);
    pressWithEnter(*close);
    m_tabOrder.push_back(close);
    content->addWidget(close, content->rowCount(), 0, 1, 3, Qt::AlignRight);
    content->setRowStretch(content->rowCount(), 1);

    m_first = content->itemAtPosition(1, 1)->widget();
    setObjectName(QStringLiteral("Fra_Options"));
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new Card(toQt(m_form.Menu_Options.caption()), content));
}

void OptionsPage::assumptionRow(QGridLayout& grid, classic::Assumption assumption, controls::Label& heading)
{
    const classic::AssumptionInfo& info = classic::infoOf(assumption);
    controls::TextBox& box = *m_form.calculation.assumptions.all()[static_cast<std::size_t>(assumption)];
    const QString hint = toQt(info.hint);
    const int row = grid.rowCount();
    auto* const label = new QLabel;
    auto* const line = new QLineEdit;
    bind(*label, heading);
    new TextBoxBinding(*line, box);
    leaveUndoToWindow(*line);
    nameWidget(*line, QStringLiteral("txt_") + toQt(info.key), label->text(), hint);
    label->setToolTip(hint);
    grid.addWidget(label, row, 0);
    line->setFixedWidth(line->fontMetrics().averageCharWidth() * kAssumptionCharacters);
    grid.addWidget(line, row, 1);
    grid.addWidget(new QLabel(toQt(info.unit)), row, 2);
    m_tabOrder.push_back(line);
}

void OptionsPage::choiceRows(QGridLayout& grid, controls::Label& heading, controls::OptionGroup& group,
                             const QStringList& hints)
{
    auto* const label = new QLabel;
    bind(*label, heading);
    label->setWordWrap(true);
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0, 1, 3);
    std::vector<QRadioButton*> buttons;
    auto* const choices = new QWidget; // holds the buttons of one choice together
    auto* const layout = new QHBoxLayout(choices);
    layout->setContentsMargins(0, 0, 0, 0);
    for (std::size_t option = 0; option < group.captions().size(); ++option) {
        auto* const button = new QRadioButton;
        MarkStyle::wear(*button);
        const QString text = toQt(group.captions()[option]);
        nameWidget(*button, text, label->text() + QStringLiteral(" ") + text,
                   hints[static_cast<qsizetype>(option)]);
        layout->addWidget(button);
        buttons.push_back(button);
        m_tabOrder.push_back(button);
    }
    layout->addStretch();
    bindChoices(buttons, group);
    grid.addWidget(choices, row + 1, 0, 1, 3);
}

} // namespace comfortics::ui
