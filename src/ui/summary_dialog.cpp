// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/summary_dialog.h"

#include "ui/text.h"
#include "ui/widgets.h"
#include "values/plain_text.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace comfortics::ui {

namespace {

constexpr double kDecimals = 1000; // of means and percentiles, as a power of 10

QTableWidgetItem* item(const QString& text, bool number)
{
    auto* const made = new QTableWidgetItem(text);
    made->setTextAlignment(number ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    made->setToolTip(tip(text));
    return made;
}

QString figure(double value)
{
    return toQt(values::plainText(std::round(value * kDecimals) / kDecimals));
}

QTableWidget* table(const QString& name, const QString& accessible)
{
    auto* const made = new QTableWidget;
    nameWidget(*made, name, accessible, {});
    made->verticalHeader()->hide();
    made->verticalHeader()->setDefaultSectionSize(made->fontMetrics().height() + kSmallGap);
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    made->setTabKeyNavigation(false);
    made->setWordWrap(false);
    made->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    return made;
}

QString whereText(const tables::Extreme& extreme)
{
    const QString line = QStringLiteral("line %1").arg(extreme.line);
    return extreme.time ? toQt(tables::momentText(*extreme.time)).replace(QLatin1Char('T'), QLatin1Char(' '))
                        : line;
}

} // namespace

SummaryDialog::SummaryDialog(std::shared_ptr<const workbench::TableStore> store,
                             std::shared_ptr<const workbench::View> view, QWidget* parent)
    : QDialog(parent), m_store(std::move(store)), m_view(std::move(view))
{
    setWindowTitle(QStringLiteral("Summary"));
    m_facts = new QLabel(QStringLiteral("Counting …"));
    m_facts->setObjectName(QStringLiteral("lbl_Summary"));
    m_facts->setWordWrap(true);
    m_table = table(QStringLiteral("Flex_Summary"), QStringLiteral("Summary of the indices"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_ofClasses = new QLabel;
    m_ofClasses->setObjectName(QStringLiteral("lbl_Classes"));
    m_ofClasses->setWordWrap(true);
    m_classes = table(QStringLiteral("Flex_Classes"), QStringLiteral("Classes by month"));
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_facts);
    layout->addWidget(m_table, 3);
    layout->addWidget(m_ofClasses);
    layout->addWidget(m_classes, 2);
    layout->addWidget(buttons);
    connect(m_table, &QTableWidget::currentCellChanged, this, [this] { showClasses(); });
    resize(QSize(1080, 640).boundedTo(screen()->availableSize()));
    m_runner = std::make_unique<Runner>(
        [this](int, const Runner::GoOn& goOn) {
            return std::make_shared<const tables::TableSummary>(summaryOf(*m_store, *m_view, goOn));
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
    m_runner->ask(0);
}

SummaryDialog::~SummaryDialog() = default;

void SummaryDialog::show(const Summary& summary)
{
    m_shown = summary;
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
    m_table->setColumnCount(static_cast<int>(heads.size()));
    m_table->setHorizontalHeaderLabels(heads);
    int rows = 0;
    for (const tables::StationSummary& station : m_shown->stations)
        rows += static_cast<int>(station.indices.size());
    m_table->setRowCount(rows);
    int row = 0;
    for (const tables::StationSummary& station : m_shown->stations)
        for (const tables::IndexSummary& one : station.indices) {
            int column = 0;
            const auto add = [&](const QString& cell, bool number = true) {
                m_table->setItem(row, column++, item(cell, number));
            };
            add(toQt(station.station), false);
            const workspace::Item which = workbench::itemOf(one);
            add(toQt(workbench::columnTitle(which)), false);
            add(toQt(which.unit()), false);
            for (const std::size_t count :
                 {one.values, one.outsideTemperature, one.outsideWind, one.noValue, one.failed})
                add(QString::number(count));
            if (one.mean) { // else the cells stay blank
                add(figure(*one.mean));
                add(figure(one.lowest.value));
                add(whereText(one.lowest), false);
                add(figure(one.highest.value));
                add(whereText(one.highest), false);
                for (const double percentile : one.percentiles)
                    add(figure(percentile));
            }
            ++row;
        }
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column < m_table->columnCount(); ++column)
        m_table->setColumnWidth(column, character * (column == 1                    ? 40
                                                     : column == 10 || column == 12 ? 26
                                                                                    : 14));
    if (rows > 0)
        m_table->setCurrentCell(0, 0);
    showClasses();
}

void SummaryDialog::showClasses()
{
    m_classes->clear();
    m_classes->setRowCount(0);
    m_classes->setColumnCount(0);
    const tables::IndexSummary* chosen = nullptr;
    auto row = static_cast<std::size_t>(std::max(0, m_table->currentRow()));
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
    m_classes->setColumnCount(static_cast<int>(heads.size()));
    m_classes->setHorizontalHeaderLabels(heads);
    m_classes->setRowCount(static_cast<int>(months.size()));
    int at = 0;
    for (const auto& [month, cells] : months) {
        m_classes->setItem(at, 0, item(month.empty() ? QStringLiteral("without time") : toQt(month), false));
        for (std::size_t i = 0; i < classes.size(); ++i) {
            const auto found = cells.find(classes[i]);
            m_classes->setItem(at, static_cast<int>(i) + 1,
                               item(found == cells.end() ? QStringLiteral("0") : found->second, true));
        }
        ++at;
    }
    m_classes->resizeColumnsToContents();
}

} // namespace comfortics::ui
