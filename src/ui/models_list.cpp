// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/models_list.h"

#include "ui/fonts.h"
#include "ui/star.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace comfortics::ui {

namespace {

constexpr int kLines = 5;
constexpr int kLeading = 4; // between them [pixel]

// As high as some rows, in letters of any size.
class ShortList : public QListWidget {
public:
    QSize sizeHint() const override
    {
        return {0, kLines * (fontMetrics().lineSpacing() + kLeading) + 2 * frameWidth()};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace

ModelsList::ModelsList(workspace::Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_workspace(workspace),
      m_finding(catalogue::additionFinder(), catalogue::additionSubjects(),
                [this](std::size_t place) {
                    const workspace::ModelStanding standing = workspace::modelStanding(
                        catalogue::additions()[place], m_workspace.present(), m_workspace.person.texts());
                    const bool hasValue =
                        std::ranges::any_of(standing.figures, [](const workspace::Figure& one) {
                            return one.number.has_value();
                        });
                    return catalogue::Standing{.hasValue = hasValue};
                }),
      m_heading(new QLabel), m_list(new ShortList)
{
    for (const catalogue::Addition& model : catalogue::additions()) {
        auto* const item = new QListWidgetItem(toQt(model.name), m_list);
        item->setToolTip(tip(toQt(model.name) + QLatin1Char('\n') + toQt(model.description)));
        item->setData(Qt::AccessibleDescriptionRole, toQt(model.description));
    }
    m_list->setFont(screenFont({.name = "Arial Narrow", .size = font().pointSizeF()})); // as the list above
    m_list->setTextElideMode(Qt::ElideRight);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setSpacing(1);
    m_list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_list->setContextMenuPolicy(Qt::NoContextMenu); // it is the widget's
    nameWidget(*m_list, QStringLiteral("List_Models"), QStringLiteral("Models of standards"),
               QStringLiteral("Enter opens the sheet of a model, Ctrl+B adds its first figure to the cards, "
                              "the menu key any of them"));
    m_heading->setBuddy(m_list);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addWidget(m_heading);
    layout->addWidget(m_list);
    connect(m_list, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { open(m_list->row(item)); });
    auto* const sheet = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_I), m_list);
    sheet->setContext(Qt::WidgetShortcut);
    connect(sheet, &QShortcut::activated, this, [this] { open(m_list->currentRow()); });
    addStarKey(*m_list, m_workspace, [this] { return ModelsList::idAt(m_list->currentRow()); });
    look(m_finding);
}

std::size_t ModelsList::look(const workspace::Finding& other)
{
    m_finding.setQuery(other.query());
    m_finding.setFilters(other.filters());
    m_finding.refresh();
    for (int row = 0; row < m_list->count(); ++row)
        m_list->setRowHidden(row, !m_finding.holds(static_cast<std::size_t>(row)));
    const std::string summary = m_finding.summary();
    m_heading->setText(QStringLiteral("Models of standards") +
                       (summary.empty() ? QString() : QStringLiteral(": ") + toQt(summary)));
    return m_finding.count();
}

void ModelsList::stand()
{
    const int row = m_list->currentRow();
    if (row < 0 || m_list->isRowHidden(row))
        for (int first = 0; first < m_list->count(); ++first)
            if (!m_list->isRowHidden(first)) {
                m_list->setCurrentRow(first);
                break;
            }
    m_list->setFocus(Qt::OtherFocusReason);
}

QWidget& ModelsList::list() const
{
    return *m_list;
}

std::string ModelsList::idAt(int row)
{
    if (row < 0)
        return {};
    return catalogue::Figure{&catalogue::additions()[static_cast<std::size_t>(row)], 0}.id();
}

void ModelsList::open(int row)
{
    if (row >= 0)
        m_workspace.lookAt(idAt(row));
}

void ModelsList::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const QListWidgetItem* const item =
        byMouse ? m_list->itemAt(m_list->viewport()->mapFromGlobal(event->globalPos()))
                : m_list->currentItem();
    if (item == nullptr)
        return;
    const int row = m_list->row(item);
    m_list->setCurrentRow(row);
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("Open its sheet\tEnter"), this, [this, row] { open(row); });
    menu->addSection(QStringLiteral("Figures on the cards"));
    const catalogue::Addition& model = catalogue::additions()[static_cast<std::size_t>(row)];
    for (std::size_t i = 0; i < model.results.size(); ++i) {
        const std::string id = catalogue::Figure{&model, i}.id();
        QAction* const action =
            menu->addAction(toQt(model.results[i].name), this, [this, id] { turnStar(m_workspace, id); });
        action->setCheckable(true);
        action->setChecked(m_workspace.sets.isStarred(id));
    }
    menu->popup(byMouse ? event->globalPos()
                        : m_list->viewport()->mapToGlobal(m_list->visualItemRect(item).center()));
}

} // namespace comfortics::ui
