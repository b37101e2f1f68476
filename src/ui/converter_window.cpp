// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/converter_window.h"

#include "ui/bindings.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QAction>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace comfortics::ui {

using converter::Conversion;
using converter::kConversions;
using converter::Panel;

namespace {

constexpr int kSpacing = 12;
constexpr double kResultScale = 1.6;

} // namespace

ConverterWindow::ConverterWindow(converter::Frm_Converter& form, const QWidget& main,
                                 std::function<void()> closed)
    : FormWindow(form, QStringLiteral("conversion-of-units")), m_form(form), m_closed(std::move(closed))
{
    setMenuBar(new MenuBar);
    buildMenu();
    setCentralWidget(new ContentArea(buildContent()));
    focusPanel(Panel::Temperature);
    dock(main);
}

void ConverterWindow::buildMenu()
{
    const auto add = [this](controls::MenuEntry& entry, char mnemonic, Panel panel) {
        auto* const action = new QAction(menuBar());
        bind(*action, entry, mnemonic);
        connect(action, &QAction::triggered, this, [this, panel] { focusPanel(panel); });
        menuBar()->addAction(action);
    };
    add(m_form.Menu_Temperature, 'T', Panel::Temperature);
    add(m_form.Menu_Velocity, 'A', Panel::AirVelocity);
    add(m_form.Menu_Radiation, 'S', Panel::SolarRadiation);
}

QWidget* ConverterWindow::buildContent()
{
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    layout->setSpacing(kSpacing);
    for (std::size_t i = 0; i < converter::kPanelCount; ++i)
        layout->addWidget(buildPanel(static_cast<Panel>(i)));
    layout->addStretch();
    auto* const note = new QLabel;
    bind(*note, m_form.lbl_Note);
    note->setWordWrap(true);
    layout->addWidget(note);
    return content;
}

QWidget* ConverterWindow::buildPanel(Panel panel)
{
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(kSpacing);
    int row = 0;
    std::size_t radiationUnit = 0;
    for (std::size_t place = 0; place < kConversions.size(); ++place) {
        const Conversion& conversion = kConversions[place];
        if (conversion.panel != panel)
            continue;
        auto* const unit = new QLabel(toQt(conversion.unit));
        if (panel == Panel::SolarRadiation)
            bind(*unit, m_form.lbl_SR_unit.at(++radiationUnit));
        auto* const line = new QLineEdit;
        new TextBoxBinding(*line, m_form.boxes[place]);
        line->setObjectName(toQt(conversion.box));
        if (row == 0)
            m_firstBoxes[static_cast<std::size_t>(panel)] = line;
        line->setAccessibleName(unit->text());
        line->setToolTip(QStringLiteral("A value in ") + unit->text());
        grid->addWidget(unit, row, 0);
        grid->addWidget(line, row, 1);
        ++row;
    }

    auto* const result = new QLabel;
    QFont font = result->font();
    font.setPointSizeF(font.pointSizeF() * kResultScale);
    font.setBold(true);
    result->setFont(font);
    result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    bind(*result, m_form.result(panel));
    const QString baseUnit = toQt(converter::panelInfo(panel).unit);
    result->setAccessibleName(QStringLiteral("Result, ") + baseUnit);
    result->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    result->setMinimumHeight(result->fontMetrics().lineSpacing() + kSpacing);
    auto* const resultRow = new QHBoxLayout;
    resultRow->addWidget(new QLabel(QStringLiteral("=")));
    resultRow->addWidget(result, 1);
    resultRow->addWidget(new QLabel(baseUnit));
    grid->addLayout(resultRow, row, 0, 1, 2);
    grid->setColumnStretch(1, 1);

    auto* const card = new Card(toQt(m_form.frame(panel).caption()), grid);
    bindAppearance(*card, m_form.frame(panel));
    return card;
}

void ConverterWindow::focusPanel(Panel panel)
{
    m_firstBoxes[static_cast<std::size_t>(panel)]->setFocus(Qt::OtherFocusReason);
}

void ConverterWindow::dock(const QWidget& main)
{
    const controls::Place& wanted = m_form.place();
    const int frameHeight = main.frameGeometry().height() - main.height();
    resize(std::max(sizeHint().width(), menuBar()->sizeHint().width()), wanted.height - frameHeight);
    placeWithin(usableBeside(main), {wanted.left, wanted.top});
}

void ConverterWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    m_closed();
}

} // namespace comfortics::ui
