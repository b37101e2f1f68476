// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/live_panel.h"

#include "formulas/live_quantity.h"
#include "ui/bindings.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace comfortics::ui {

namespace {

constexpr QLatin1String kWideValue("64.1234567890123"); // the mean radiant temperature is not rounded

} // namespace

LivePanel::LivePanel(classic::Frm_Main& form, QWidget* parent) : QWidget(parent), m_form(form)
{
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(kSmallGap);
    grid->setVerticalSpacing(kGap);
    QFont bold = font();
    bold.setBold(true);
    grid->setColumnMinimumWidth(2, QFontMetrics(bold, this).horizontalAdvance(kWideValue));
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
        const formulas::LiveInfo& info = formulas::kLiveInfo[i];
        const int row = static_cast<int>(i);
        auto* const symbol = new QLabel(toQt(info.symbol));
        QFont italic = symbol->font();
        italic.setItalic(true);
        symbol->setFont(italic);
        auto* const value = new QLabel;
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setFont(bold);
        nameWidget(*value, toQt(info.symbol), toQt(info.name) + QStringLiteral(", ") + toQt(info.unit),
                   toQt(info.name) + QStringLiteral(" (") + toQt(info.symbol) + QStringLiteral(") in ") +
                       toQt(info.unit));
        bind(*value, m_form.calculation.liveLabel(static_cast<formulas::Live>(i)));
        m_values.push_back(value);
        auto* const text = new QLabel(toQt(info.name));
        text->setBuddy(value);
        grid->addWidget(text, row, 0);
        grid->addWidget(symbol, row, 1);
        grid->addWidget(value, row, 2);
        grid->addWidget(new QLabel(toQt(info.unit)), row, 3);
    }
    grid->setColumnStretch(2, 1);
    auto* const inForce = new QLabel;
    inForce->setWordWrap(true);
    bind(*inForce, m_form.lbl_In_Force);
    const int last = static_cast<int>(formulas::kLiveCount);
    grid->addWidget(inForce, last, 0, 1, 4);
    grid->setRowStretch(last + 1, 1);
    auto* const card = new Card({}, grid);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(card);
    bind(card->heading(), m_form.lbl_Live);
    // Figures of earlier readings stand there in quieter text.
    follow(*this, m_form.standing, [this] {
        for (QLabel* const value : m_values)
            value->setForegroundRole(m_form.liveIsEarlier() ? QPalette::PlaceholderText : QPalette::NoRole);
    });
}

} // namespace comfortics::ui
