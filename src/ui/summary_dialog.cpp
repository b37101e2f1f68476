// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/summary_dialog.h"

#include "ui/cell_model.h"
#include "ui/share_bar.h"
#include "ui/text.h"
#include "ui/widgets.h"
#include "values/plain_text.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <vector>

namespace comfortics::ui {

namespace {

constexpr double kDecimals = 1000; // of means and percentiles, as a power of 10

QString figure(double value)
{
    return toQt(values::plainText(std::round(value * kDecimals) / kDecimals));
}

QTableView* table(CellModel& model, const QString& name, const QString& accessible)
{
    auto* const made = new QTableView;
    made->setModel(&model);
    nameWidget(*made, name, accessible, {});
    made->verticalHeader()->hide();
    made->verticalHeader()->setDefaultSectionSize(made->fontMetrics().height() + kSmallGap);
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    made->setTabKeyNavigation(false);
    made->setWordWrap(false);
    made->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    made->horizontalHeader()->setResizeContentsPrecision(0); // by what is in sight
    return made;
}

QString whereText(const tables::Extreme& extreme)
{
    const QString line = QStringLiteral("line %1").arg(extreme.line);
    return extreme.time ? toQt(tables::momentText(*extreme.time)).replace(QLatin1Char('T'), QLatin1Char(' '))
                        : line;
}

// Columns of the summary.
constexpr int kIndex = 1;
constexpr int kUnit = 2;
constexpr int kFailed = 7;
constexpr int kLowestAt = 10;
constexpr int kHighestAt = 12;

// A row of the summary.
struct Place {
    const tables::StationSummary* station;
    const tables::IndexSummary* index;
};

QString cellText(const Place& place, int column)
{
    const tables::IndexSummary& one = *place.index;
    if (column == 0)
        return toQt(place.station->station);
    if (column == kIndex)
        return toQt(workbench::columnTitle(workbench::itemOf(one)));
    if (column == kUnit)
        return toQt(workbench::itemOf(one).unit());
    if (column <= kFailed)
        return QString::number(std::array{one.values, one.outsideTemperature, one.outsideWind, one.noValue,
                                          one.failed}[static_cast<std::size_t>(column - kUnit - 1)]);
    if (!one.mean)
        return {}; // nothing to tell of
    switch (column) {
    case kFailed + 1:
        return figure(*one.mean);
    case kLowestAt - 1:
        return figure(one.lowest.value);
    case kLowestAt:
        return whereText(one.lowest);
    case kHighestAt - 1:
        return figure(one.highest.value);
    case kHighestAt:
        return whereText(one.highest);
    default:
        return figure(one.percentiles.at(static_cast<std::size_t>(column - kHighestAt - 1)));
    }
}

} // namespace

SummaryDialog::SummaryDialog(std::shared_ptr<const workbench::TableStore> store,
                             std::shared_ptr<const workbench::View> view, QWidget* parent)
    : QDialog(parent), m_store(std::move(store)), m_view(std::move(view)),
      m_rows(std::make_unique<CellModel>()), m_months(std::make_unique<CellModel>())
{
    setWindowTitle(QStringLiteral("Summary"));
    m_facts = new QLabel(QStringLiteral("Counting …"));
    m_facts->setObjectName(QStringLiteral("lbl_Summary"));
    m_facts->setWordWrap(true);
    m_table = table(*m_rows, QStringLiteral("Flex_Summary"), QStringLiteral("Summary of the indices"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_ofClasses = new QLabel;
    m_ofClasses->setObjectName(QStringLiteral("lbl_Classes"));
    m_ofClasses->setWordWrap(true);
    m_classes = table(*m_months, QStringLiteral("Flex_Classes"), QStringLiteral("Classes by month"));
    m_bar = new ShareBar(QStringLiteral("Progress of the summary"));
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_buttons->button(QDialogButtonBox::Close)->setText(QStringLiteral("Stop"));
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_facts);
    layout->addWidget(m_bar);
    layout->addWidget(m_table, 3);
    layout->addWidget(m_ofClasses);
    layout->addWidget(m_classes, 2);
    layout->addWidget(m_buttons);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { showClasses(); });
    resize(QSize(1080, 640).boundedTo(screen()->availableSize()));
    m_runner = std::make_unique<Runner>(
        [this, share = m_bar->share()](int, const Runner::GoOn& goOn) {
            return std::make_shared<const tables::TableSummary>(
                summaryOf(*m_store, *m_view, [&](double done) {
                    *share = done;
                    return goOn();
                }));
        },
        [this] {
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (const auto summary = m_runner->take())
                        show(*summary);
                },
                Qt::QueuedConnection);
        });
    m_bar->begin();
    m_runner->ask(0);
}

// The tables end before their models.
SummaryDialog::~SummaryDialog()
{
    m_runner.reset();
    delete m_table;
    delete m_classes;
}

void SummaryDialog::show(const Summary& summary)
{
    m_shown = summary;
    m_bar->end();
    m_buttons->button(QDialogButtonBox::Close)->setText(QStringLiteral("Close"));
    QString text = QStringLiteral("Run %1, %2: %3 rows")
                       .arg(m_store->facts().number)
                       .arg(toQt(m_store->facts().source))
                       .arg(m_view->rows.size());
    if (m_view->filtered)
        text += QStringLiteral(" that meet: ") + toQt(m_view->words);
    text += m_shown->step
                ? QStringLiteral(". Rows stand %1 s apart.").arg(*m_shown->step)
                : QStringLiteral(". How far rows are apart is not known: classes are counted in rows.");
    m_facts->setText(text);

    QStringList heads{
        QStringLiteral("Station"),  QStringLiteral("Index"),      QStringLiteral("Unit"),
        QStringLiteral("Values"),   QStringLiteral("Outside Ta"), QStringLiteral("Outside wind"),
        QStringLiteral("No value"), QStringLiteral("Failed"),     QStringLiteral("Mean"),
        QStringLiteral("Lowest"),   QStringLiteral("at"),         QStringLiteral("Highest"),
        QStringLiteral("at")};
    for (const int percentile : tables::kPercentiles)
        heads += QStringLiteral("P%1").arg(percentile);
    std::vector<Place> places;
    for (const tables::StationSummary& station : m_shown->stations)
        for (const tables::IndexSummary& one : station.indices)
            places.push_back({&station, &one});
    const bool any = !places.empty();
    const int rows = static_cast<int>(places.size());
    m_rows->show({heads, rows,
                  [summary, places = std::move(places)](int row, int column) {
                      return cellText(places[static_cast<std::size_t>(row)], column);
                  },
                  [](int column) { return column <= kUnit || column == kLowestAt || column == kHighestAt; }});
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column < m_rows->columnCount(); ++column)
        m_table->setColumnWidth(column, character * (column == kIndex                              ? 40
                                                     : column == kLowestAt || column == kHighestAt ? 26
                                                                                                   : 17));
    if (any)
        m_table->setCurrentIndex(m_rows->index(0, 0)); // shows its classes
    else
        showClasses();
}

void SummaryDialog::showClasses()
{
    m_months->show({});
    const tables::IndexSummary* chosen = nullptr;
    auto row = static_cast<std::size_t>(std::max(0, m_table->currentIndex().row()));
    if (m_shown)
        for (const tables::StationSummary& station : m_shown->stations) {
            if (row < station.indices.size()) {
                chosen = &station.indices[row];
                break;
            }
            row -= station.indices.size();
        }
    if (chosen == nullptr) {
        m_ofClasses->clear();
        return;
    }
    const workspace::Item which = workbench::itemOf(*chosen);
    const QString name = toQt(which.name());
    const std::vector<std::string_view> classes = which.classNames();
    if (classes.empty() || chosen->classes.empty()) {
        m_ofClasses->setText(name + (classes.empty() ? QStringLiteral(": no classes are published.")
                                                     : QStringLiteral(": no value lies in a class.")));
        return;
    }
    m_ofClasses->setText(name + (m_shown->step ? QStringLiteral(": hours in each class by month")
                                               : QStringLiteral(": rows in each class by month")));
    std::map<std::string, std::map<std::string_view, QString>> months;
    for (const tables::ClassTime& one : chosen->classes)
        months[one.month][one.category] =
            one.hours ? figure(*one.hours) : QString::number(static_cast<qulonglong>(one.rows));
    QStringList heads{QStringLiteral("Month")};
    for (std::size_t i = 0; i < classes.size(); ++i)
        heads += which.isWord() ? toQt(classes[i])
                                : toQt(classes[i]) + QStringLiteral(" (") +
                                      toQt(catalogue::signedSeverity(which.scale().categories[i].severity)) +
                                      QLatin1Char(')');
    std::vector<QStringList> lines;
    for (const auto& [month, cells] : months) {
        QStringList& line = lines.emplace_back(month.empty() ? QStringLiteral("without time") : toQt(month));
        for (const std::string_view category : classes) {
            const auto found = cells.find(category);
            line += found == cells.end() ? QStringLiteral("0") : found->second;
        }
    }
    const int count = static_cast<int>(lines.size());
    m_months->show({heads, count,
                    [lines = std::move(lines)](int at, int column) {
                        return lines[static_cast<std::size_t>(at)][column];
                    },
                    [](int column) { return column == 0; }});
    m_classes->resizeColumnsToContents();
}

} // namespace comfortics::ui
