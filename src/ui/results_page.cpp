// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/results_page.h"

#include "ui/bindings.h"
#include "ui/filter_dialog.h"
#include "ui/find_bar.h"
#include "ui/frozen_table.h"
#include "ui/mark_style.h"
#include "ui/station_model.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QAction>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace comfortics::ui {

using workbench::Condition;
using workbench::Field;
using workbench::RowState;

namespace {

QPushButton* button(const QString& text, const QString& name, const QString& hint)
{
    auto* const made = new QPushButton(text);
    nameWidget(*made, name, QString(text).remove(QLatin1Char('&')), hint);
    pressWithEnter(*made);
    return made;
}

// Digits in groups, whatever the language of the desktop.
QString count(std::size_t number)
{
    return QLocale(QLocale::English)
        .toString(static_cast<qulonglong>(number))
        .replace(QLatin1Char(','), QChar(0x202F));
}

bool means(const Condition& condition, const workbench::TableStore& before, const workbench::TableStore& now)
{
    const std::size_t place = condition.field.place;
    if (condition.field.kind == Field::Kind::Carried)
        return place < now.facts().carried.size() && place < before.facts().carried.size() &&
               now.facts().carried[place].heading() == before.facts().carried[place].heading();
    if (condition.field.kind != Field::Kind::Figure)
        return true;
    return place < now.items().size() && place < before.items().size() &&
           now.items()[place] == before.items()[place];
}

} // namespace

ResultsPage::ResultsPage(QWidget* parent)
    : QWidget(parent), m_model(std::make_unique<StationModel>()),
      m_finding(workspace::itemFinder(), workspace::itemSubjects(), [this](std::size_t place) {
          // The columns are what is ticked here.
          const bool shown =
              m_store && std::ranges::count(m_store->items(), workspace::allItems()[place]) > 0;
          return catalogue::Standing{.hasValue = shown, .ticked = shown};
      })
{
    m_facts = new QLabel;
    m_facts->setObjectName(QStringLiteral("lbl_Run"));
    m_facts->setAccessibleName(QStringLiteral("What was run"));
    m_facts->setWordWrap(true);
    m_earlier = new QLabel;
    m_earlier->setObjectName(QStringLiteral("lbl_Earlier"));
    m_earlier->setWordWrap(true);
    m_earlier->hide();
    QFont bold = m_earlier->font();
    bold.setBold(true);
    m_earlier->setFont(bold);

    m_find = new FindBar(m_finding);
    m_find->setToolTip(tip(QStringLiteral("Finds the column of an index")));
    connect(m_find, &FindBar::stepWanted, this, &ResultsPage::step);
    connect(m_find, &FindBar::sought, this, [this] {
        if (m_finding.hasWords())
            step(true);
    });
    m_filter = button(QStringLiteral("&Filter rows …"), QStringLiteral("cmd_Filter_Rows"),
                      QStringLiteral("Shows only rows that meet a condition (Ctrl+Shift+L)"));
    m_summary = button(QStringLiteral("S&ummary …"), QStringLiteral("cmd_Summary"),
                       QStringLiteral("What the rows in sight come to, index by index: counts, means, "
                                      "percentiles, extremes, hours in each class"));
    m_export = button(QStringLiteral("&Export …"), QStringLiteral("cmd_Export_Rows"),
                      QStringLiteral("Writes the rows in sight or all of them to a file (Ctrl+E)"));
    m_again = button(QStringLiteral("Robust for the rows that faile&d"), QStringLiteral("cmd_Again"),
                     QStringLiteral("Calculates the rows that failed again, by the robust rules; they are "
                                    "marked, and all other rows stay as they are"));
    m_coloured = new QCheckBox(QStringLiteral("&Class colours"));
    MarkStyle::wear(*m_coloured);
    nameWidget(*m_coloured, QStringLiteral("chk_Colours"), QStringLiteral("Class colours"),
               QStringLiteral("Shows beside each figure the severity of its class, as a sign in its colour"));

    m_chips = new QWidget;
    m_chipsRow = new QHBoxLayout(m_chips);
    m_chipsRow->setContentsMargins(0, 0, 0, 0);
    m_chipsRow->setSpacing(kSmallGap);
    m_table = new FrozenTable(*m_model);
    m_counts = new QLabel;
    m_counts->setObjectName(QStringLiteral("lbl_Counts"));
    m_detail = new CutLabel;
    m_detail->setObjectName(QStringLiteral("lbl_Detail"));
    m_detail->setAccessibleName(QStringLiteral("The present cell"));

    auto* const tools = new QHBoxLayout;
    tools->setSpacing(kSmallGap);
    tools->addWidget(m_find, 1);
    tools->addWidget(m_filter);
    tools->addWidget(m_coloured);
    tools->addWidget(m_summary);
    tools->addWidget(m_export);
    auto* const top = new QHBoxLayout;
    top->addWidget(m_facts, 1);
    top->addWidget(m_again, 0, Qt::AlignTop);
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(m_detail, 1);
    bottom->addWidget(m_counts);
    auto* const layout = new QVBoxLayout(this);
    layout->setSpacing(kSmallGap);
    layout->addLayout(top);
    layout->addWidget(m_earlier);
    layout->addLayout(tools);
    layout->addWidget(m_chips);
    layout->addWidget(m_table, 1);
    layout->addLayout(bottom);

    connect(m_filter, &QPushButton::clicked, this, [this] {
        const auto field =
            m_table->current().isValid() ? m_model->field(m_table->current().column()) : std::nullopt;
        FilterDialog dialog(m_store, field.value_or(Field{}), this);
        if (dialog.exec() == QDialog::Accepted)
            if (auto condition = dialog.condition())
                addCondition(std::move(*condition));
    });
    connect(m_summary, &QPushButton::clicked, this, &ResultsPage::summaryWanted);
    connect(m_export, &QPushButton::clicked, this, &ResultsPage::exportWanted);
    connect(m_again, &QPushButton::clicked, this, &ResultsPage::againWanted);
    connect(m_coloured, &QCheckBox::toggled, m_table, &FrozenTable::setColoured);
    connect(m_table, &FrozenTable::sortWanted, this, [this](int column) { sortBy(column, true); });
    connect(m_table, &FrozenTable::menuWanted, this, &ResultsPage::openMenu);
    connect(m_table, &FrozenTable::currentChanged, this,
            [this](const QModelIndex& index) { m_detail->showText(m_model->detail(index)); });
    const auto keys = [this](const QKeySequence& key, auto act) {
        connect(new QShortcut(key, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
                &QShortcut::activated, this, act);
    };
    keys(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_L), [this] { m_filter->click(); });
    keys(QKeySequence(Qt::CTRL | Qt::Key_E), [this] { m_export->click(); });
    keys(QKeySequence::Find, [this] { m_find->begin(); });
    keys(QKeySequence(Qt::Key_F3), [this] { m_find->beginOrStep(true); });
    keys(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { m_find->beginOrStep(false); });
    connect(m_find, &FindBar::rowsWanted, this, [this] { m_table->setFocus(Qt::OtherFocusReason); });

    m_runner = std::make_unique<Runner>(
        [](const workbench::ViewRequest& request, const Runner::GoOn& goOn) {
            return std::make_shared<const workbench::View>(makeView(request, goOn));
        },
        [this] { QMetaObject::invokeMethod(this, &ResultsPage::takeView, Qt::QueuedConnection); });
    m_facts->setText(QStringLiteral("Nothing is calculated yet."));
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_find), static_cast<QWidget*>(m_filter), static_cast<QWidget*>(m_summary),
          static_cast<QWidget*>(m_export), static_cast<QWidget*>(m_coloured), static_cast<QWidget*>(m_table)})
        widget->setEnabled(false);
    m_again->hide();
    m_chips->hide();
    setFocusProxy(m_table);
}

// What watches the finding goes before it, and the table before its model.
ResultsPage::~ResultsPage()
{
    m_runner.reset();
    delete m_find;
    delete m_table;
}

std::optional<workspace::Item> ResultsPage::currentItem() const
{
    const QModelIndex index = m_table->current();
    const auto field = index.isValid() ? m_model->field(index.column()) : std::nullopt;
    if (!field || field->kind != Field::Kind::Figure)
        return std::nullopt;
    return m_model->store()->items()[field->place];
}

std::vector<QWidget*> ResultsPage::tabOrder() const
{
    std::vector<QWidget*> order = m_find->tabOrder();
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_filter), static_cast<QWidget*>(m_coloured),
          static_cast<QWidget*>(m_summary), static_cast<QWidget*>(m_export), static_cast<QWidget*>(m_again),
          static_cast<QWidget*>(&m_table->frozen()), static_cast<QWidget*>(&m_table->rest())})
        order.push_back(widget);
    return order;
}

void ResultsPage::show(std::shared_ptr<const workbench::TableStore> store)
{
    if (m_store) {
        std::erase_if(m_conditions,
                      [&](const Condition& condition) { return !means(condition, *m_store, *store); });
        if (!means({.field = m_sortBy}, *m_store, *store))
            m_sortBy = {};
    }
    m_fresh = !m_store || m_store->items() != store->items() ||
              m_store->facts().carried.size() != store->facts().carried.size() ||
              m_store->facts().hasTime != store->facts().hasTime ||
              m_store->facts().hasStation != store->facts().hasStation;
    m_store = std::move(store);
    m_view.reset(); // of other rows

    const workbench::RunFacts& facts = m_store->facts();
    const tables::RunCounts& counts = facts.counts;
    QString text = QStringLiteral("Run %1: %2, %3. ")
                       .arg(facts.number)
                       .arg(toQt(facts.source), toQt(classic::inForce(facts.options.settings)));
    // Of the rows as they are now, those that were calculated again included.
    std::array<std::size_t, 4> states{};
    for (std::size_t row = 0; row < m_store->rows(); ++row)
        ++states[static_cast<std::size_t>(m_store->state(row))];
    text += QStringLiteral("Rows: %1 calculated, %2 skipped, %3 failed, %4 refused.")
                .arg(count(states[static_cast<std::size_t>(RowState::Calculated)]),
                     count(states[static_cast<std::size_t>(RowState::Skipped)]),
                     count(states[static_cast<std::size_t>(RowState::Failed)]),
                     count(states[static_cast<std::size_t>(RowState::Refused)]));
    if (m_store->rowsAgain() > 0)
        text +=
            QStringLiteral(" Of these, %1 had failed at first and were calculated again by the robust rules.")
                .arg(count(m_store->rowsAgain()));
    if (counts.stopped)
        text += QStringLiteral(" The run was stopped: more rows follow in the table.");
    m_facts->setText(text);
    m_again->setVisible(counts.rows.failed > m_store->rowsAgain());
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_find), static_cast<QWidget*>(m_filter), static_cast<QWidget*>(m_summary),
          static_cast<QWidget*>(m_export), static_cast<QWidget*>(m_coloured), static_cast<QWidget*>(m_table)})
        widget->setEnabled(true);
    m_finding.refresh();
    showConditions();
    askForView();
}

void ResultsPage::setEarlier(const QString& why)
{
    m_earlier->setText(why);
    m_earlier->setVisible(!why.isEmpty());
    m_table->setQuiet(!why.isEmpty());
}

void ResultsPage::setRunning(bool running)
{
    m_again->setEnabled(!running);
}

void ResultsPage::askForView()
{
    m_counts->setText(QStringLiteral("Arranging the rows …"));
    m_runner->ask({m_store, m_conditions, m_sortBy, m_descending});
}

void ResultsPage::takeView()
{
    auto view = m_runner->take();
    if (!view)
        return;
    const QModelIndex before = m_table->current();
    const int row = before.row();
    const int column = before.column();
    m_view = std::move(*view);
    m_model->show(m_store, m_view);
    if (m_fresh)
        m_table->fitColumns();
    m_table->stand(m_fresh || row < 0 ? 0 : std::min(row, m_model->rowCount() - 1),
                   m_fresh || column < 0 ? m_model->frozenColumns() : column);
    m_fresh = false;
    int sorted = -1;
    for (int i = 0; m_sortBy.kind != Field::Kind::Row && i < m_model->columnCount(); ++i)
        if (m_model->field(i) == m_sortBy)
            sorted = i;
    m_table->showSorted(m_sortBy.kind == Field::Kind::Row ? 0 : sorted, m_descending);
    showCounts();
    m_detail->showText(m_model->detail(m_table->current()));
    emit viewChanged();
}

void ResultsPage::showCounts()
{
    QString text = QStringLiteral("%1 of %2 rows").arg(count(m_view->rows.size()), count(m_store->rows()));
    if (m_view->filtered && m_view->rows.empty())
        text += QStringLiteral(": no row meets the conditions");
    m_counts->setText(text);
}

void ResultsPage::sortBy(int column, bool turn)
{
    const auto field = m_model->field(column);
    if (!field) {
        return;
    }
    m_descending = turn && *field == m_sortBy && !m_descending;
    m_sortBy = *field;
    askForView();
}

void ResultsPage::addCondition(Condition condition)
{
    if (std::ranges::find(m_conditions, condition) != m_conditions.end())
        return;
    m_conditions.push_back(std::move(condition));
    showConditions();
    askForView();
}

void ResultsPage::showConditions()
{
    while (QLayoutItem* const item = m_chipsRow->takeAt(0)) {
        if (item->widget() != nullptr)
            item->widget()->deleteLater();
        delete item;
    }
    const auto add = [this](const QString& text, const QString& hint, std::function<void()> act) {
        auto* const chip = new QToolButton;
        chip->setText(text);
        chip->setFocusPolicy(Qt::StrongFocus);
        nameWidget(*chip, QStringLiteral("cmd_Condition"), text, hint);
        pressWithEnter(*chip);
        // Not at once: the button goes with it.
        connect(chip, &QToolButton::clicked, this, std::move(act), Qt::QueuedConnection);
        m_chipsRow->addWidget(chip);
    };
    for (const Condition& condition : m_conditions)
        add(toQt(inWords(condition, *m_store)) + QStringLiteral("  ×"),
            QStringLiteral("Takes this condition away"), [this, condition] {
                std::erase(m_conditions, condition);
                showConditions();
                askForView();
            });
    if (m_conditions.size() > 1)
        add(QStringLiteral("All rows"), QStringLiteral("Takes all conditions away"), [this] {
            m_conditions.clear();
            showConditions();
            askForView();
        });
    m_chipsRow->addStretch(1);
    m_chips->setVisible(!m_conditions.empty());
}

// --- the menu of a cell

std::optional<Condition> ResultsPage::likeCurrent() const
{
    const QModelIndex index = m_table->current();
    const auto field = index.isValid() ? m_model->field(index.column()) : std::nullopt;
    if (!field)
        return std::nullopt;
    const std::size_t row = m_model->storeRow(index.row());
    Condition condition;
    condition.field = *field;
    switch (field->kind) {
    case Field::Kind::Station:
        condition.test = Condition::Test::Station;
        condition.station = m_model->store()->station(row);
        return condition;
    case Field::Kind::State:
        condition.test = m_model->store()->again(row) ? Condition::Test::Again : Condition::Test::State;
        condition.state = m_model->store()->state(row);
        return condition;
    case Field::Kind::Reading:
        condition.test = m_model->store()->reading(row, static_cast<classic::Reading>(field->place))
                             ? Condition::Test::Value
                             : Condition::Test::Blank;
        return condition;
    case Field::Kind::Figure:
        if (const auto place = m_model->store()->classOf(row, field->place)) {
            condition.test = Condition::Test::Class;
            condition.place = *place;
        } else if (m_model->store()->isMarked(row, field->place)) {
            condition.test = Condition::Test::Marked;
        } else if (m_model->store()->figure(row, field->place)) {
            condition.test = Condition::Test::Value;
        } else if (m_model->store()->state(row) == RowState::Calculated) {
            condition.test = Condition::Test::Outcome;
            condition.outcome = m_model->store()->outcome(row, field->place);
        } else {
            condition.test = Condition::Test::Blank;
        }
        return condition;
    case Field::Kind::Carried:
        condition.text = m_model->store()->carried(row)[field->place];
        condition.test = condition.text.empty() ? Condition::Test::Blank : Condition::Test::Is;
        return condition;
    default:
        return std::nullopt;
    }
}

void ResultsPage::openMenu(const QPoint& at)
{
    const QModelIndex index = m_table->current();
    if (!m_view || !index.isValid())
        return;
    QMenu menu(this);
    const bool sortable = m_model->field(index.column()).has_value();
    menu.addAction(QStringLiteral("Sort &Upward by This Column"), this,
                   [this, index] {
                       m_sortBy = {};
                       m_descending = false;
                       sortBy(index.column(), false);
                   })
        ->setEnabled(sortable);
    menu.addAction(QStringLiteral("Sort &Downward by This Column"), this,
                   [this, index] {
                       m_sortBy = *m_model->field(index.column());
                       m_descending = true;
                       askForView();
                   })
        ->setEnabled(sortable);
    menu.addAction(QStringLiteral("&Order of the File"), this, [this] {
        m_sortBy = {};
        m_descending = false;
        askForView();
    });
    menu.addSeparator();
    if (const auto condition = likeCurrent())
        menu.addAction(QStringLiteral("O&nly Rows Like This: ") +
                           toQt(inWords(*condition, *m_model->store())),
                       this, [this, condition] { addCondition(*condition); });
    menu.addAction(QStringLiteral("&Filter …"), m_filter, &QPushButton::click);
    menu.exec(at);
}

// --- finding a column

void ResultsPage::step(bool forward)
{
    if (!m_model->store())
        return;
    std::vector<std::size_t> order;
    const std::vector<workspace::Item>& all = workspace::allItems();
    for (const workspace::Item& item : m_model->store()->items())
        order.push_back(static_cast<std::size_t>(std::ranges::find(all, item) - all.begin()));
    std::optional<std::size_t> from;
    const QModelIndex current = m_table->current();
    if (current.isValid() && m_model->columns()[static_cast<std::size_t>(current.column())].kind ==
                                 StationModel::Column::Kind::Figure)
        from = order[m_model->columns()[static_cast<std::size_t>(current.column())].place];
    if (const auto found = m_finding.next(order, from, forward))
        goTo(*found);
}

void ResultsPage::goTo(std::size_t subject)
{
    using Kind = StationModel::Column::Kind;
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const StationModel::Column& one = m_model->columns()[static_cast<std::size_t>(column)];
        if (one.kind == Kind::Figure &&
            m_model->store()->items()[one.place] == workspace::allItems()[subject])
            m_table->stand(std::max(0, m_table->current().row()), column);
    }
}

} // namespace comfortics::ui
