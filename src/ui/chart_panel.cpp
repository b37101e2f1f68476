// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/chart_panel.h"

#include "ui/picture_file.h"
#include "ui/text.h"

#include <QBuffer>
#include <QCategoryAxis>
#include <QChart>
#include <QChartView>
#include <QGraphicsLineItem>
#include <QHBoxLayout>
#include <QLabel>
#include <QLegend>
#include <QLineSeries>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSvgGenerator>
#include <QVBoxLayout>
#include <QValueAxis>

#include <algorithm>
#include <cmath>

namespace comfortics::ui {

using radiation::ChartPoint;
using radiation::kFigureCount;

namespace {

constexpr double kMinutesPerHour = 60;
constexpr int kLabelledHours = 8;  // at most
constexpr double kLeastSpan = 100; // W/m²
constexpr float kGridOpacity = 0.2F;
constexpr std::size_t kFewPoints = 20; // are shown each by itself, too: one alone makes no line
constexpr int kReading = 2;            // lines
constexpr int kLongReading = 4;        // of figures with dozens of digits
constexpr int kTextMargin = 8;         // around the texts of a picture

constexpr std::array<const char*, kFigureCount> kNames{"Horizontal", "Tilted", "Horizontal, with clouds",
                                                       "Tilted, with clouds"}; // short, for a narrow legend
// Told apart by colour-blind readers, too: the clouded ones are dashed.
const std::array<QColor, kFigureCount> kColors{QColor(0xD5, 0x5E, 0x00), QColor(0x00, 0x72, 0xB2),
                                               QColor(0xE6, 0x9F, 0x00), QColor(0x56, 0xB4, 0xE9)};

QString hourText(double hour)
{
    return QStringLiteral("%1:00").arg(hour, 2, 'f', 0, QLatin1Char('0'));
}

} // namespace

ChartPanel::ChartPanel(const controls::Grid& table, const controls::Label& heading,
                       controls::FileDialogs& files, controls::Messages& messages, QWidget* parent)
    : QWidget(parent), m_table(table), m_heading(heading), m_files(files), m_messages(messages)
{
    buildChart();
    m_note = new QLabel;
    m_note->setWordWrap(true);
    m_reading = new QLabel;
    m_reading->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reading->setWordWrap(true);
    m_reading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* const save = new QPushButton(QStringLiteral("Save Chart..."));
    save->setToolTip(
        QStringLiteral("Saves the chart as a picture: PNG, or SVG where its name ends with .svg"));
    connect(save, &QPushButton::clicked, this, [this] { this->save(); });

    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(m_reading, 1);
    bottom->addWidget(save);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_note);
    layout->addLayout(bottom);
    refresh();
}

void ChartPanel::buildChart()
{
    m_chart = new QChart;
    m_time = new QCategoryAxis;
    m_time->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    m_time->setTitleText(QStringLiteral("Clock time [hh:mm]"));
    m_radiation = new QValueAxis;
    m_radiation->setTitleText(QStringLiteral("Solar radiation [W/m²]"));
    m_radiation->setLabelFormat(QStringLiteral("%d"));
    m_chart->addAxis(m_time, Qt::AlignBottom);
    m_chart->addAxis(m_radiation, Qt::AlignLeft);
    for (std::size_t i = 0; i < kFigureCount; ++i) {
        auto* const curve = new QLineSeries;
        curve->setName(QString::fromLatin1(kNames[i]));
        curve->setPen(QPen(kColors[i], 2, i < 2 ? Qt::SolidLine : Qt::DashLine));
        m_chart->addSeries(curve);
        curve->attachAxis(m_time);
        curve->attachAxis(m_radiation);
        m_curves[i] = curve;
    }
    m_chart->legend()->setAlignment(Qt::AlignTop);
    m_chart->legend()->setMarkerShape(QLegend::MarkerShapeFromSeries); // dashes, too
    m_view = new QChartView(m_chart);
    m_view->setRenderHint(QPainter::Antialiasing);
    m_view->setMinimumSize(480, 330);
    m_view->setAccessibleName(QStringLiteral("Chart of the radiation table"));
    m_view->viewport()->setMouseTracking(true);
    m_view->viewport()->installEventFilter(this);
    m_cursor = new QGraphicsLineItem(m_chart);
    m_cursor->setPen(QPen(Qt::gray, 1, Qt::DotLine));
    m_cursor->setZValue(20);
    m_cursor->hide();
    wearPalette();
}

// By itself a chart is white on a dark desktop, too.
void ChartPanel::wearPalette()
{
    const QColor ink = palette().color(QPalette::Text);
    const QColor ground = palette().color(QPalette::Base);
    QColor grid = ink;
    grid.setAlphaF(kGridOpacity);
    m_chart->setBackgroundBrush(ground);
    m_view->setBackgroundBrush(palette().color(QPalette::Window));
    m_chart->legend()->setLabelColor(ink);
    for (QAbstractAxis* const axis : m_chart->axes()) {
        axis->setLabelsColor(ink);
        axis->setTitleBrush(ink);
        axis->setGridLineColor(grid);
        axis->setLinePenColor(ink);
    }
}

void ChartPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        wearPalette();
}

void ChartPanel::refresh()
{
    hideCursor();
    m_points = radiation::chartPoints(m_table);
    const radiation::ChartSpan span = radiation::chartSpan(m_points);
    m_radiation->setRange(span.lowest, std::max(span.highest, span.lowest + kLeastSpan));
    m_radiation->applyNiceNumbers();
    // A curve that leaves the plot does so by as much again, where its turns are out of sight. Much
    // farther out, the chart would not draw it at all and leave an earlier one standing.
    const double beyond = m_radiation->max() - m_radiation->min();
    for (std::size_t i = 0; i < kFigureCount; ++i) {
        QList<QPointF> curve;
        for (const radiation::ChartVertex& vertex :
             radiation::chartCurve(m_points, i, m_radiation->min() - beyond, m_radiation->max() + beyond))
            curve.append({vertex.minute, vertex.figure});
        m_curves[i]->replace(curve);
        m_curves[i]->setPointsVisible(m_points.size() <= kFewPoints);
    }
    m_note->setText(QStringLiteral("At %1 of the %2 minutes a figure lies beyond ±%3 W/m², which no sun "
                                   "reaches. The curves leave the chart where its axis ends; the table "
                                   "has all figures.")
                        .arg(span.cutPoints)
                        .arg(m_points.size())
                        .arg(radiation::kMostRadiation));
    m_note->setVisible(span.cutPoints > 0);
    m_reading->setFixedHeight((span.cutPoints > 0 ? kLongReading : kReading) *
                              m_reading->fontMetrics().lineSpacing());
    m_reading->setText(QStringLiteral("Move the mouse over the chart to read it."));

    for (const QString& label : m_time->categoriesLabels())
        m_time->remove(label);
    if (m_points.empty())
        return;
    const auto byMinute = [](const ChartPoint& a, const ChartPoint& b) { return a.minute < b.minute; };
    const auto [first, last] = std::minmax_element(m_points.begin(), m_points.end(), byMinute);
    // The clock can be so far off that its hours fit no integer.
    const double firstHour = std::floor(first->minute / kMinutesPerHour);
    const double lastHour = std::ceil((last->minute + 1) / kMinutesPerHour);
    const double step = std::max(std::ceil((lastHour - firstHour) / kLabelledHours), 1.0);
    for (double hour = firstHour; hour <= lastHour; hour += step)
        m_time->append(hourText(hour), hour * kMinutesPerHour);
    m_time->setRange(firstHour * kMinutesPerHour, lastHour * kMinutesPerHour);
}

void ChartPanel::moveCursor(double minute)
{
    const ChartPoint* const point = radiation::nearestPoint(m_points, minute);
    if (!point)
        return;
    const QRectF area = m_chart->plotArea();
    const double x = m_chart->mapToPosition({point->minute, 0}, m_curves[0]).x();
    m_cursor->setLine(x, area.top(), x, area.bottom());
    m_cursor->show();
    QString text = toQt(m_table.textMatrix(point->row, 0));
    for (std::size_t i = 0; i < kFigureCount; ++i)
        text += QStringLiteral("   %1: %2 W/m²")
                    .arg(QString::fromLatin1(kNames[i]), toQt(m_table.textMatrix(point->row, i + 1)));
    m_reading->setText(text);
}

void ChartPanel::hideCursor()
{
    m_cursor->hide();
}

bool ChartPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseMove) {
        const QPointF at = m_view->mapToScene(static_cast<QMouseEvent*>(event)->position().toPoint());
        moveCursor(m_chart->mapToValue(m_chart->mapFromScene(at), m_curves[0]).x());
    } else if (event->type() == QEvent::Leave) {
        hideCursor();
    }
    return QWidget::eventFilter(watched, event);
}

void ChartPanel::save()
{
    if (const auto path = askForPicture(m_files, "Solar Radiation.png"))
        saveAs(toQt(*path));
}

bool ChartPanel::saveAs(const QString& path)
{
    hideCursor();
    return savePicture(fromQt(path), picture(isSvg(fromQt(path))), m_messages);
}

QByteArray ChartPanel::picture(bool asSvg)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const int textHeight = paintTexts(nullptr, m_view->width());
    const QRect texts(0, 0, m_view->width(), textHeight);
    const QRect chart(QPoint(0, textHeight), m_view->size());
    const QSize size = texts.united(chart).size();
    const auto paint = [&](QPainter& painter) {
        painter.fillRect(texts, palette().color(QPalette::Window));
        paintTexts(&painter, texts.width());
        m_view->render(&painter, chart);
    };
    if (asSvg) {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(size);
        svg.setViewBox(QRect({}, size));
        svg.setTitle(QStringLiteral("Solar radiation"));
        QPainter painter(&svg);
        paint(painter);
    } else {
        constexpr int kSharpness = 2; // pixels a pixel of the screen
        QImage image(size * kSharpness, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(kSharpness, kSharpness);
        paint(painter);
        painter.end();
        image.save(&buffer, "PNG");
    }
    return bytes;
}

// The heading of the table and the note, one below the other. Answers their height; without a painter
// nothing is painted.
int ChartPanel::paintTexts(QPainter* painter, int width) const
{
    QStringList texts{toQt(m_heading.caption())};
    if (m_note->isVisibleTo(this))
        texts += m_note->text();
    const QString text = texts.join(QLatin1Char('\n'));
    const QRect room(kTextMargin, kTextMargin, width - 2 * kTextMargin, 0);
    const QRect box = QFontMetrics(font()).boundingRect(room, Qt::TextWordWrap, text);
    if (painter) {
        painter->setFont(font());
        painter->setPen(palette().color(QPalette::WindowText));
        painter->drawText(box.adjusted(0, 0, kTextMargin, 0), Qt::TextWordWrap, text);
    }
    return box.bottom() + kTextMargin;
}

} // namespace comfortics::ui
