// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/charts_page.h"

#include "output/save_file.h"
#include "ui/chart_painter.h"
#include "ui/picture_file.h"
#include "ui/station_chart.h"
#include "ui/station_report_dialog.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace comfortics::ui {

using workbench::ChartKind;

namespace {

constexpr int kColumnCharacters = 26;
constexpr double kZoomIn = 0.5;
constexpr double kZoomOut = 2;
constexpr QSize kPictureSize(960, 520);
constexpr int kLongestNote = 160; // characters of a line below the chart

QString columnName(const workbench::ChartColumn& column)
{
    return column.id.empty() ? toQt(column.name) : toQt(column.id + " " + column.name);
}

QString shortened(const QString& line)
{
    return line.size() <= kLongestNote ? line : line.left(kLongestNote) + QStringLiteral(" …");
}

QComboBox* choice(const char* name, const char* accessibleName, const char* hint)
{
    auto* const box = new QComboBox;
    nameWidget(*box, QString::fromUtf8(name), QString::fromUtf8(accessibleName), QString::fromUtf8(hint));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

QLabel* labelOf(const QString& text, QWidget* widget)
{
    auto* const label = new QLabel(text);
    label->setBuddy(widget);
    return label;
}

} // namespace

ChartsPage::ChartsPage(controls::FileDialogs& files, controls::Messages& messages, QWidget* parent)
    : QWidget(parent), m_files(files), m_messages(messages), m_chart(new StationChart),
      m_reading(new CutLabel), m_footer(quietLabel({}))
{
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(buildChoices());
    layout->addWidget(buildButtons());
    layout->addWidget(m_chart, 1);
    nameWidget(*m_reading, QStringLiteral("placeRead"), QStringLiteral("What stands at the cursor"), {});
    layout->addWidget(m_reading);
    nameWidget(*m_footer, QStringLiteral("chartFooter"), QStringLiteral("Source, rules and notes"), {});
    m_footer->setWordWrap(true);
    m_footer->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(m_footer);

    connect(m_chart, &StationChart::placeRead, this,
            [this](const QString& text) { m_reading->showText(text); });
    connect(m_chart, &StationChart::windowWanted, this, [this](const workbench::Period& window) {
        m_window = window;
        ask();
    });
    // The order of the times is kept from one chart to the next.
    struct Kept {
        std::shared_ptr<const workbench::StoreRows> rows;
        std::unique_ptr<workbench::StationCharts> charts;
    };
    m_runner = std::make_unique<Runner>(
        [kept = std::make_shared<Kept>()](const Ask& asked, const Runner::GoOn& goOn) {
            auto made = std::make_shared<Made>();
            made->asked = asked;
            if (kept->rows != asked.rows) {
                kept->charts = asked.rows ? std::make_unique<workbench::StationCharts>(*asked.rows) : nullptr;
                kept->rows = asked.rows;
            }
            if (!asked.rows)
                return made;
            made->chart = kept->charts->chart(asked.request, goOn);
            if (const auto whole = kept->charts->timeline(asked.request.station, {}, goOn))
                made->periods = workbench::periodsOf(*whole);
            return made;
        },
        [this] { QMetaObject::invokeMethod(this, &ChartsPage::hand, Qt::QueuedConnection); });
    followKind();
    showNone(QStringLiteral("Nothing has been calculated yet."));
}

ChartsPage::~ChartsPage()
{
    m_runner.reset();
}

QWidget* ChartsPage::buildChoices()
{
    m_kind = choice("chartKind", "Chart", "Which chart is shown");
    for (std::size_t i = 0; i < workbench::kChartKindCount; ++i)
        m_kind->addItem(toQt(workbench::chartName(static_cast<ChartKind>(i))));
    m_kind->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_column = choice("chartColumn", "Index", "The index or reading that is shown");
    m_column->setMinimumContentsLength(kColumnCharacters);
    m_more = new QToolButton;
    nameWidget(*m_more, QStringLiteral("chartAlso"), QStringLiteral("Further lines"),
               QStringLiteral("Up to five further indices or readings in the same chart"));
    m_more->setText(QStringLiteral("A&lso"));
    m_more->setPopupMode(QToolButton::InstantPopup);
    m_alsoMenu = new QMenu(m_more);
    m_more->setMenu(m_alsoMenu);
    m_more->setFocusPolicy(Qt::StrongFocus);
    m_over = choice("chartOver", "Along", "The index or reading along the lower axis");
    m_over->setMinimumContentsLength(kColumnCharacters / 2);
    m_overLabel = labelOf(QStringLiteral("o&ver"), m_over);
    m_station = choice("chartStation", "Station", "Whose rows are shown");
    m_station->setMinimumContentsLength(kColumnCharacters / 2);
    m_stationLabel = labelOf(QStringLiteral("S&tation:"), m_station);
    m_period = choice("chartPeriod", "Period", "From which time the rows are");
    m_period->setMinimumContentsLength(8);

    auto* const widget = new QWidget;
    auto* const row = new QHBoxLayout(widget);
    row->setContentsMargins({});
    row->addWidget(labelOf(QStringLiteral("C&hart:"), m_kind));
    row->addWidget(m_kind);
    row->addWidget(labelOf(QStringLiteral("I&ndex:"), m_column));
    row->addWidget(m_column, 1);
    row->addWidget(m_more);
    row->addWidget(m_overLabel);
    row->addWidget(m_over, 1);
    row->addWidget(m_stationLabel);
    row->addWidget(m_station);
    row->addWidget(labelOf(QStringLiteral("&Period:"), m_period));
    row->addWidget(m_period);

    connect(m_kind, &QComboBox::currentIndexChanged, this, [this] {
        followKind();
        ask();
    });
    connect(m_column, &QComboBox::currentIndexChanged, this, [this] {
        fillAlso();
        ask();
    });
    connect(m_over, &QComboBox::currentIndexChanged, this, &ChartsPage::ask);
    connect(m_station, &QComboBox::currentIndexChanged, this, [this] {
        m_window.reset();
        fillPeriods({}); // of another station
        ask();
    });
    connect(m_period, &QComboBox::currentIndexChanged, this, [this] {
        m_window.reset();
        ask();
    });
    return widget;
}

QWidget* ChartsPage::buildButtons()
{
    auto* const widget = new QWidget;
    auto* const row = new QHBoxLayout(widget);
    row->setContentsMargins({});
    const auto button = [row](const QString& text, const char* name, const char* hint, auto pressed) {
        auto* const made = new QPushButton(text);
        nameWidget(*made, QString::fromUtf8(name), QString(text).remove(QLatin1Char('&')),
                   QString::fromUtf8(hint));
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, made, pressed);
        row->addWidget(made);
        return made;
    };
    m_zooms = {button(QStringLiteral("&Zoom in"), "zoomIn", "Half of the time (+)",
                      [this] { m_chart->zoom(kZoomIn); }),
               button(QStringLiteral("Zoom o&ut"), "zoomOut", "Twice the time (−)",
                      [this] { m_chart->zoom(kZoomOut); }),
               button(QStringLiteral("&Whole"), "zoomWhole", "All of the time (Home)",
                      [this] { m_chart->showWhole(); })};
    row->addStretch(1);
    m_save = button(QStringLiteral("Save &chart …"), "saveChart",
                    "PNG, SVG or PDF with title, source and rules", [this] { save(); });
    m_report = button(QStringLiteral("R&eport …"), "stationReport",
                      "A report of this station and period as PDF or HTML", [this] { report(); });
    return widget;
}

ChartKind ChartsPage::kind() const
{
    return static_cast<ChartKind>(std::max(0, m_kind->currentIndex()));
}

void ChartsPage::followKind()
{
    m_more->setVisible(kind() == ChartKind::TimeSeries);
    m_overLabel->setVisible(kind() == ChartKind::Scatter);
    m_over->setVisible(kind() == ChartKind::Scatter);
}

void ChartsPage::fillColumns()
{
    for (QComboBox* const box : {m_column, m_over}) {
        const QSignalBlocker quiet(box);
        const QString before = box->currentText();
        box->clear();
        for (const workbench::ChartColumn& column : m_rows->columns)
            box->addItem(columnName(column));
        box->setCurrentIndex(std::max(0, box->findText(before)));
    }
    if (m_over->currentIndex() == m_column->currentIndex() && m_over->count() > 1) {
        const QSignalBlocker quiet(m_over);
        m_over->setCurrentIndex(m_over->count() - 1);
    }
}

void ChartsPage::fillAlso()
{
    if (!m_rows)
        return;
    m_alsoMenu->clear();
    const auto first = static_cast<std::size_t>(std::max(0, m_column->currentIndex()));
    std::erase_if(m_also,
                  [&](std::size_t place) { return place == first || place >= m_rows->columns.size(); });
    for (std::size_t i = 0; i < m_rows->columns.size(); ++i) {
        if (i == first)
            continue;
        QAction* const action = m_alsoMenu->addAction(columnName(m_rows->columns[i]));
        action->setCheckable(true);
        action->setChecked(std::find(m_also.begin(), m_also.end(), i) != m_also.end());
        action->setEnabled(action->isChecked() || m_also.size() + 1 < workbench::kMostLines);
        connect(
            action, &QAction::toggled, this,
            [this, i](bool checked) {
                std::erase(m_also, i);
                if (checked)
                    m_also.push_back(i);
                fillAlso();
                ask();
            },
            Qt::QueuedConnection);
    }
}

void ChartsPage::fillStations()
{
    const QSignalBlocker quiet(m_station);
    const QString before = m_station->currentText();
    m_station->clear();
    const auto& stations = m_rows->stations;
    for (const std::string& station : stations)
        m_station->addItem(station.empty() ? QStringLiteral("(no name)") : toQt(station));
    if (stations.size() > 1)
        m_station->addItem(QStringLiteral("All together"));
    m_station->setCurrentIndex(std::max(0, m_station->findText(before)));
    m_station->setVisible(stations.size() > 1);
    m_stationLabel->setVisible(stations.size() > 1);
}

void ChartsPage::fillPeriods(const std::vector<workbench::NamedPeriod>& periods)
{
    const QSignalBlocker quiet(m_period);
    const QString before = m_period->currentText();
    m_periods = periods;
    m_period->clear();
    m_period->addItem(QStringLiteral("All"));
    for (const workbench::NamedPeriod& period : periods)
        m_period->addItem(toQt(period.name));
    m_period->setCurrentIndex(std::max(0, m_period->findText(before)));
}

std::optional<std::size_t> ChartsPage::station() const
{
    const auto place = static_cast<std::size_t>(std::max(0, m_station->currentIndex()));
    return place < m_rows->stations.size() ? std::optional(place) : std::nullopt;
}

workbench::ChartRequest ChartsPage::request() const
{
    workbench::ChartRequest request;
    request.kind = kind();
    const auto column = static_cast<std::size_t>(std::max(0, m_column->currentIndex()));
    if (kind() == ChartKind::Scatter)
        request.columns = {static_cast<std::size_t>(std::max(0, m_over->currentIndex())), column};
    else
        request.columns = {column};
    if (kind() == ChartKind::TimeSeries)
        request.columns.insert(request.columns.end(), m_also.begin(), m_also.end());
    request.station = station();
    if (const int place = m_period->currentIndex(); place > 0)
        request.period = m_periods.at(static_cast<std::size_t>(place - 1)).period;
    request.window = m_window;
    request.steps = static_cast<std::size_t>(std::max(m_chart->width(), kPictureSize.width()));
    return request;
}

void ChartsPage::show(std::shared_ptr<const workbench::StoreRows> rows, bool same)
{
    if (!rows || rows->columns.empty()) {
        showNone(QStringLiteral("There are no results to draw."));
        return;
    }
    m_rows = std::move(rows);
    if (!same)
        m_window.reset();
    fillColumns();
    fillStations();
    fillAlso();
    ask();
}

void ChartsPage::choose(const workspace::Item& item)
{
    if (!m_rows)
        return;
    const auto& items = m_rows->store().items(); // which come first
    if (const auto found = std::find(items.begin(), items.end(), item); found != items.end())
        m_column->setCurrentIndex(static_cast<int>(found - items.begin()));
}

void ChartsPage::showNone(const QString& why)
{
    m_runner->cancel();
    m_rows.reset();
    m_settled = true;
    workbench::Chart none;
    none.problem = fromQt(why);
    showChart(std::move(none));
}

void ChartsPage::forget()
{
    if (!m_rows)
        return;
    showNone(QStringLiteral("The chart is being made …"));
    m_runner->ask({});
}

void ChartsPage::ask()
{
    if (!m_rows)
        return;
    m_settled = false;
    m_runner->ask({m_rows, request()});
}

void ChartsPage::hand()
{
    auto made = m_runner->take();
    if (!made || !m_rows || (*made)->asked.rows != m_rows)
        return;
    m_settled = true;
    fillPeriods((*made)->periods);
    showChart(std::move((*made)->chart));
}

void ChartsPage::showChart(workbench::Chart chart)
{
    QStringList lines;
    if (m_rows)
        for (const std::string& line : chart.footer())
            lines.push_back(shortened(toQt(line)));
    m_footer->setText(lines.join(QLatin1Char('\n')));
    const bool any = !chart.empty();
    m_chart->show(std::move(chart), m_rows);
    for (QPushButton* const zoom : m_zooms)
        zoom->setEnabled(m_chart->canZoom());
    m_save->setEnabled(any);
    m_report->setEnabled(m_rows != nullptr);
    for (QWidget* const choice :
         {static_cast<QWidget*>(m_column), static_cast<QWidget*>(m_more), static_cast<QWidget*>(m_over),
          static_cast<QWidget*>(m_station), static_cast<QWidget*>(m_period)})
        choice->setEnabled(m_rows != nullptr);
}

std::vector<QWidget*> ChartsPage::tabOrder() const
{
    std::vector<QWidget*> order{m_kind, m_column, m_more, m_over, m_station, m_period};
    order.insert(order.end(), m_zooms.begin(), m_zooms.end());
    order.insert(order.end(), {m_save, m_report, m_chart});
    return order;
}

void ChartsPage::save()
{
    const auto path = askForPicture(m_files, "chart.png", true);
    if (!path)
        return;
    savePicture(*path, chartPicture(m_chart->chart(), chartFileOf(*path), font(), palette(), kPictureSize),
                m_messages);
}

void ChartsPage::report()
{
    if (!m_rows)
        return;
    const workbench::ChartRequest now = request();
    StationReportDialog dialog(m_rows, {.station = now.station, .period = now.period, .columns = now.columns},
                               m_files, m_messages, this);
    dialog.exec();
}

} // namespace comfortics::ui
