// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/index_panel.h"

#include "catalogue/references.h"
#include "ui/bindings.h"
#include "ui/find_bar.h"
#include "ui/index_list.h"
#include "ui/mark_style.h"
#include "ui/models_list.h"
#include "ui/star.h"
#include "ui/widgets.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <numeric>

namespace comfortics::ui {

namespace {

constexpr int kTypingPause = 150; // [ms]: a filter that needs the values waits for it

} // namespace

IndexPanel::IndexPanel(workspace::Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_workspace(workspace), m_form(workspace.form()),
      m_finding([this](std::size_t row) { return standing(row); })
{
    m_search = searchLine(QStringLiteral("Search the list"));
    nameWidget(*m_search, QStringLiteral("txt_Search_List"), QStringLiteral("Search the index list"),
               QStringLiteral("Moves the list to the first index whose name contains the text (Ctrl+F)"));
    new TextBoxBinding(*m_search, m_form.txt_Search_List);

    m_list = new IndexList(m_form.List_Indices);
    nameWidget(*m_list, QStringLiteral("List_Indices"), QStringLiteral("Indices"),
               QStringLiteral("Ticked indices are calculated"));
    m_list->installEventFilter(this);
    connect(m_list, &IndexList::sheetWanted, this, [this](std::size_t row) {
        m_workspace.lookAt(catalogue::reference(static_cast<int>(row) + 1).id);
    });
    connect(m_list, &IndexList::hiddenWanted, this, [this] { m_finding.clear(); });

    const auto idOf = [](std::size_t row) {
        return std::string(catalogue::reference(static_cast<int>(row) + 1).id);
    };
    addStarKey(*m_list, m_workspace, [this, idOf] {
        const auto row = m_list->standing();
        return row ? idOf(*row) : std::string();
    });
    connect(m_list, &IndexList::menuOpens, this,
            [this, idOf](QMenu& menu, std::size_t row) { addStarEntry(menu, m_workspace, idOf(row)); });

    auto* const all = new QCheckBox;
    MarkStyle::wear(*all);
    bind(*all, m_form.Check_All_Indices);
    nameWidget(*all, QStringLiteral("Check_All_Indices"), QStringLiteral("All indices"),
               QStringLiteral("Ticks all indices of the list or none"));

    auto* const layout = new QVBoxLayout(this);
    auto* const top = new QHBoxLayout;
    top->addWidget(m_search, 1);
    top->addWidget(all);
    layout->addLayout(top);
    m_models = new ModelsList(m_workspace);
    m_models->list().installEventFilter(this);
    layout->addWidget(buildFind());
    layout->addWidget(m_list, 1);
    layout->addWidget(m_models);
    m_tabOrder = {m_search};
    for (QWidget* const widget : m_find->tabOrder())
        m_tabOrder.push_back(widget);
    m_tabOrder.push_back(m_list);
    m_tabOrder.push_back(&m_models->list());
    m_tabOrder.push_back(all);
}

// What watches the finding goes before it.
IndexPanel::~IndexPanel()
{
    delete m_find;
}

QWidget* IndexPanel::buildFind()
{
    m_find = new FindBar(m_finding);
    QMenu& menu = m_find->menu();
    menu.addSeparator();
    for (const bool ticked : {true, false}) {
        QAction* const action = menu.addAction(ticked ? QStringLiteral("Tick all that are shown")
                                                      : QStringLiteral("Untick all that are shown"));
        connect(action, &QAction::triggered, this, [this, ticked] { tickFound(ticked); });
    }
    connect(m_find, &FindBar::stepWanted, this, &IndexPanel::step);
    connect(m_find, &FindBar::sought, this, [this] {
        if (m_finding.hasWords() && m_finding.best())
            m_list->stand(*m_finding.best());
    });
    connect(m_find, &FindBar::rowsWanted, this, [this] {
        if (m_finding.count() > 0)
            m_list->setFocus(Qt::OtherFocusReason);
        else
            m_models->stand();
    });
    for (const bool forward : {true, false})
        connect(new QShortcut(forward ? Qt::Key_F3 : Qt::SHIFT | Qt::Key_F3, this, nullptr, nullptr,
                              Qt::WidgetWithChildrenShortcut),
                &QShortcut::activated, this, [this, forward] { m_find->beginOrStep(forward); });
    // The list has the key itself.
    connect(new QShortcut(Qt::CTRL | Qt::Key_I, m_find, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, [this] {
                const auto row = m_list->standing();
                if (row && m_finding.holds(*row))
                    emit m_list->sheetWanted(*row);
            });

    m_later = new QTimer(this);
    m_later->setSingleShot(true);
    m_later->setInterval(kTypingPause);
    connect(m_later, &QTimer::timeout, this, [this] { m_finding.refresh(); });
    listen(*this, m_workspace.changed, [this] { m_later->start(); });
    listen(*this, m_form.List_Indices.change, [this] {
        if (m_finding.filters().ticked)
            m_finding.refresh();
    });
    listen(*m_find, m_finding.changed, [this] { showFound(); });
    return m_find;
}

void IndexPanel::search()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void IndexPanel::find()
{
    m_find->begin();
}

catalogue::Standing IndexPanel::standing(std::size_t row) const
{
    catalogue::Standing standing{.ticked = m_form.List_Indices.selected(row)};
    if (m_finding.filters().withValue)
        standing.hasValue = !m_workspace.present().figure(static_cast<int>(row) + 1).text.empty();
    return standing;
}

void IndexPanel::showFound()
{
    m_list->showOnly([this](std::size_t row) { return m_finding.holds(row); });
    m_find->setFoundBesides(m_models->look(m_finding));
}

void IndexPanel::step(bool forward)
{
    std::vector<std::size_t> rows(m_form.List_Indices.count());
    std::iota(rows.begin(), rows.end(), std::size_t{0});
    if (const auto row = m_finding.next(rows, m_list->standing(), forward))
        m_list->stand(*row);
}

void IndexPanel::tickFound(bool ticked)
{
    for (std::size_t row = 0; row < m_form.List_Indices.count(); ++row)
        if (!m_list->isRowHidden(static_cast<int>(row)))
            m_form.List_Indices.setSelected(row, ticked);
}

bool IndexPanel::eventFilter(QObject* watched, QEvent* event)
{
    // In the list Escape clears what is found, else it is the window's.
    if (event->type() == QEvent::ShortcutOverride && m_finding.active() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape &&
        m_find->clear())
        return true;
    return QWidget::eventFilter(watched, event);
}

} // namespace comfortics::ui
