// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/live_panel.h"

#include "formulas/live_quantity.h"
#include "ui/bindings.h"
#include "ui/text.h"
#include "ui/widgets.h"
#include "workspace/live_text.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

namespace comfortics::ui {

namespace {

constexpr QLatin1String kWideValue("-100.00");
constexpr QLatin1String kWideName("Psychrometric wet-bulb"); // longer ones take two lines

// A value with the decimals that mean something; hovering and copying give all of them.
class LiveLabel : public QLabel {
public:
    LiveLabel()
    {
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    }

    void show(const QString& inShort, const QString& caption)
    {
        if (m_hint.isEmpty())
            m_hint = accessibleDescription();
        m_caption = caption;
        setText(inShort);
        const QString hint = caption.isEmpty() ? m_hint : m_hint + QLatin1Char('\n') + caption;
        setToolTip(tip(hint));
        setAccessibleDescription(hint);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->matches(QKeySequence::Copy))
            copy();
        else
            QLabel::keyPressEvent(event);
    }

    void contextMenuEvent(QContextMenuEvent* event) override
    {
        auto* const menu = new QMenu(this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->addAction(QStringLiteral("Copy %1\tCtrl+C").arg(m_caption), this, [this] { copy(); })
            ->setEnabled(!m_caption.isEmpty());
        menu->popup(event->globalPos());
    }

private:
    void copy()
    {
        if (!m_caption.isEmpty())
            QApplication::clipboard()->setText(m_caption);
    }

    QString m_caption;
    QString m_hint;
};

} // namespace

LivePanel::LivePanel(classic::Frm_Main& form, QWidget* parent) : QWidget(parent), m_form(form)
{
    auto* const grid = m_grid = new QGridLayout;
    grid->setHorizontalSpacing(kSmallGap);
    setTight(false);
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
        auto* const value = new LiveLabel;
        value->setFont(bold);
        nameWidget(*value, toQt(info.symbol), toQt(info.name) + QStringLiteral(", ") + toQt(info.unit),
                   toQt(info.name) + QStringLiteral(" (") + toQt(info.symbol) + QStringLiteral(") in ") +
                       toQt(info.unit));
        const auto quantity = static_cast<formulas::Live>(i);
        controls::Label& label = m_form.calculation.liveLabel(quantity);
        follow(*value, label.change, [value, quantity, &label] {
            value->show(toQt(workspace::liveInShort(quantity, label.caption())), toQt(label.caption()));
        });
        m_values.push_back(value);
        auto* const text = new QLabel(toQt(info.name));
        text->setBuddy(value);
        text->setWordWrap(true);
        text->setFixedWidth(text->fontMetrics().horizontalAdvance(kWideName) + kSmallGap);
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

void LivePanel::setTight(bool tight)
{
    m_grid->setVerticalSpacing(tight ? 0 : kGap);
}

} // namespace comfortics::ui
