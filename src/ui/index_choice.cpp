// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/index_choice.h"

#include "ui/bindings.h"
#include "ui/find_bar.h"
#include "ui/index_list.h"
#include "ui/widgets.h"
#include "workspace/item.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <numeric>
#include <vector>

namespace comfortics::ui {

IndexChoice::IndexChoice(const classic::Selection& selection, const std::vector<catalogue::Figure>& figures,
                         QWidget* parent)
    : QDialog(parent), m_finding(workspace::itemFinder(), workspace::itemSubjects(), [this](std::size_t row) {
          return catalogue::Standing{.hasValue = true, .ticked = m_list.selected(row)};
      })
{
    setWindowTitle(QStringLiteral("Indices of the Run"));
    for (const workspace::Item& item : workspace::allItems()) {
        const bool index = item.model() == nullptr;
        m_list.addItem(index ? std::to_string(item.index()) + " " + item.name() : item.name());
        m_list.setSelected(m_list.count() - 1,
                           index ? selection.contains(item.index())
                                 : std::any_of(figures.begin(), figures.end(), [&](const auto& figure) {
                                       return workspace::Item(figure) == item;
                                   }));
    }
    m_find = new FindBar(m_finding);
    m_view = new IndexList(m_list);
    nameWidget(
        *m_view, QStringLiteral("List_Run_Indices"), QStringLiteral("Indices of the run"),
        QStringLiteral("Ticked indices and figures of models are calculated for each row; the space bar "
                       "turns a tick"));
    auto* const all = new QPushButton(QStringLiteral("&Tick all shown"));
    auto* const none = new QPushButton(QStringLiteral("&Untick all shown"));
    nameWidget(*all, QStringLiteral("cmd_Tick"), QStringLiteral("Tick all shown"),
               QStringLiteral("Ticks each index that the search shows"));
    nameWidget(*none, QStringLiteral("cmd_Untick"), QStringLiteral("Untick all shown"),
               QStringLiteral("Takes the tick of each index that the search shows"));
    m_count = new QLabel;
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    auto* const row = new QHBoxLayout;
    row->addWidget(all);
    row->addWidget(none);
    row->addWidget(m_count, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_find);
    layout->addWidget(m_view, 1);
    layout->addLayout(row);
    layout->addWidget(buttons);
    for (QPushButton* const each : {all, none})
        each->setAutoDefault(false);

    connect(all, &QPushButton::clicked, this, [this] { tickShown(true); });
    connect(none, &QPushButton::clicked, this, [this] { tickShown(false); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_find, &FindBar::sought, this, [this] {
        if (m_finding.hasWords() && m_finding.best())
            m_view->stand(*m_finding.best());
    });
    connect(m_find, &FindBar::rowsWanted, m_view, [this] { m_view->setFocus(Qt::OtherFocusReason); });
    connect(m_find, &FindBar::stepWanted, this, [this](bool forward) {
        std::vector<std::size_t> rows(m_list.count());
        std::iota(rows.begin(), rows.end(), std::size_t{0});
        if (const auto found = m_finding.next(rows, m_view->standing(), forward))
            m_view->stand(*found);
    });
    connect(m_view, &IndexList::hiddenWanted, this, [this] { m_finding.clear(); });
    follow(*m_find, m_finding.changed,
           [this] { m_view->showOnly([this](std::size_t place) { return m_finding.holds(place); }); });
    follow(*m_count, m_list.change, [this] { showCount(); });
    m_find->begin();
    resize(fontMetrics().averageCharWidth() * 84, fontMetrics().height() * 34);
}

// What watches the list and the finding goes before them.
IndexChoice::~IndexChoice()
{
    delete m_find;
    delete m_view;
    delete m_count;
}

classic::Selection IndexChoice::selection() const
{
    classic::Selection chosen = classic::Selection::none();
    for (std::size_t row = 0; row < m_list.count(); ++row)
        if (const workspace::Item& item = workspace::allItems()[row]; item.model() == nullptr)
            chosen.set(item.index(), m_list.selected(row));
    return chosen;
}

std::vector<catalogue::Figure> IndexChoice::figures() const
{
    std::vector<catalogue::Figure> chosen;
    for (std::size_t row = 0; row < m_list.count(); ++row)
        if (const workspace::Item& item = workspace::allItems()[row];
            item.model() != nullptr && m_list.selected(row))
            chosen.push_back({item.model(), item.result()});
    return chosen;
}

void IndexChoice::tickShown(bool ticked)
{
    for (std::size_t row = 0; row < m_list.count(); ++row)
        if (m_finding.holds(row))
            m_list.setSelected(row, ticked);
}

void IndexChoice::showCount()
{
    std::size_t count = 0;
    for (std::size_t row = 0; row < m_list.count(); ++row)
        count += m_list.selected(row) ? 1U : 0U;
    m_count->setText(QStringLiteral("%1 of %2 ticked").arg(count).arg(m_list.count()));
    m_ok->setEnabled(count > 0);
}

} // namespace comfortics::ui
