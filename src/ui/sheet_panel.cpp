// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sheet_panel.h"

#include "ui/bindings.h"
#include "ui/course_chart.h"
#include "ui/facts_html.h"
#include "ui/minutes_chart.h"
#include "ui/model_facts.h"
#include "ui/picture_file.h"
#include "ui/star.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <chrono>

namespace comfortics::ui {

using workspace::CourseAxis;
using workspace::IndexSheet;

namespace {

constexpr int kWidthInCharacters = 62;
constexpr int kHeightInLines = 34;
constexpr int kAxisCharacters = 10; // at least
constexpr int kReadingLines = 2;
constexpr int kMinuteLines = 3;
constexpr int kHeldLines = 4;
constexpr int kSetCharacters = 20; // of its name
constexpr std::chrono::milliseconds kPatience{50};
constexpr const char* kAxisKey = "sheet/axis";
constexpr const char* kHowToRead = "The mouse or the arrow keys read the chart.";

QString valueHtml(const IndexSheet& sheet)
{
    const workspace::Figure& figure = sheet.figure;
    if (figure.text.empty())
        return paragraph(QStringLiteral("<b>No value.</b> ") + escaped(figure.reason));
    QString html = QStringLiteral("<b>%1</b>").arg(withUnit(escaped(figure.text), sheet.unit));
    if (figure.meaning)
        html += QStringLiteral(", ") + escaped(catalogue::inWords(*figure.meaning));
    if (figure.meaning && !figure.meaning->category->note.empty())
        html += QStringLiteral(". ") + escaped(figure.meaning->category->note) + QLatin1Char('.');
    return paragraph(html) + paragraph(escaped(figure.doubt));
}

QString inputsHtml(const IndexSheet& sheet)
{
    QString rows;
    for (const workspace::SheetInput& input : sheet.inputs)
        rows += QStringLiteral("<tr><td>%1 (<i>%2</i>)&nbsp;&nbsp;</td><td align=\"right\">%3</td></tr>")
                    .arg(escaped(input.name), escaped(input.symbol),
                         input.text.empty() ? QStringLiteral("no value")
                                            : withUnit(escaped(workspace::briefly(input.text)), input.unit));
    QString html = heading("What it reads") + QStringLiteral("<table>%1</table>").arg(rows);
    if (sheet.readsAssumptions)
        html += paragraph(QStringLiteral("And the assumptions on body and site, of the options."));
    return html;
}

QString limitsHtml(const IndexSheet& sheet)
{
    QString html = heading("Limits");
    for (const workspace::SheetLimit& limit : sheet.limits) {
        const bool outside = limit.side != workspace::Side::Inside && limit.side != workspace::Side::Unknown;
        const QString standing = escaped(limit.standing());
        html += paragraph(escaped(limit.quantity) + QStringLiteral(" from ") + escaped(limit.bounds()) +
                          QStringLiteral(". ") +
                          (outside ? QStringLiteral("<b>%1</b>").arg(standing) : standing));
    }
    return html + paragraph(escaped(sheet.limitsNote));
}

QString classesHtml(const IndexSheet& sheet, const QPalette& palette)
{
    QString html = heading("Classes");
    QString rows;
    for (const workspace::SheetClass& one : sheet.classes)
        rows += classRow(*one.category, one.bounds, one.isPresent,
                         one.isPresent ? sheet.figure.meaning->severity : one.category->severity, palette);
    html += classTable(rows);
    html += paragraph(escaped(sheet.classNote));
    if (!sheet.classSource.empty())
        html += paragraph(QStringLiteral("Source: ") + linked(sheet.classSource) + QLatin1Char('.'));
    return html;
}

QString literatureHtml(const IndexSheet& sheet)
{
    QString html = linked(sheet.citation);
    if (sheet.confidence == "likely")
        html += QStringLiteral(" (Likely: a detail may be off.)");
    else if (sheet.confidence == "name only")
        html += QStringLiteral(" (Author and year as in the name; the publication is not known.)");
    if (!sheet.where.empty())
        html += QStringLiteral("<br/>Note: ") + linked(sheet.where) + QLatin1Char('.');
    return heading("Literature") + paragraph(html);
}

QString headingHtml(const IndexSheet& sheet)
{
    return QStringLiteral("<h3>%1. %2</h3>")
        .arg(QString::number(sheet.number), escaped(sheet.name).trimmed());
}

QString aboutHtml(const IndexSheet& sheet)
{
    QString about = escaped(sheet.description);
    if (!sheet.abbreviations.empty()) {
        QStringList names;
        for (const std::string& name : sheet.abbreviations)
            names += escaped(name);
        about += (about.isEmpty() ? QString() : QStringLiteral(" ")) +
                 QStringLiteral("Asked for as %1.").arg(names.join(QStringLiteral(", ")));
    }
    QString html = paragraph(about);
    for (const std::string& warning : sheet.warnings)
        html += paragraph(QStringLiteral("<b>Mind:</b> %1.").arg(escaped(warning)));
    return html;
}

QString factsHtml(const IndexSheet& sheet, const QPalette& palette)
{
    return headingHtml(sheet) + valueHtml(sheet) + aboutHtml(sheet) + inputsHtml(sheet) + limitsHtml(sheet) +
           classesHtml(sheet, palette) + literatureHtml(sheet) +
           paragraph(QStringLiteral("Family: %1. Id: %2.").arg(escaped(sheet.family), escaped(sheet.id)));
}

// What is known before the figures are.
QString awaitedHtml(const IndexSheet& sheet)
{
    return headingHtml(sheet) + paragraph(escaped(sheet.figure.reason)) + aboutHtml(sheet) +
           literatureHtml(sheet);
}

} // namespace

SheetPanel::SheetPanel(workspace::Workspace& workspace, controls::FileDialogs& files,
                       controls::Messages& messages, QWidget* parent)
    : QWidget(parent), m_workspace(workspace), m_files(files), m_messages(messages),
      m_runner(
          [&limits = workspace.limits()](const workspace::CourseRequest& request, const auto& goOn) {
              return workspace::courseOf(limits, request, goOn);
          },
          [this] {
              QMetaObject::invokeMethod(
                  this, [this] { takeCourse(); }, Qt::QueuedConnection);
          }),
      m_minutesRunner(
          [&limits = workspace.limits()](const workspace::MinutesRequest& request, const auto&) {
              return workspace::minutesCourseOf(limits, request);
          },
          [this] {
              QMetaObject::invokeMethod(
                  this, [this] { takeMinutes(); }, Qt::QueuedConnection);
          })
{
    auto* const splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(buildTop());
    splitter->addWidget(buildBottom());
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 3);
    splitter->setChildrenCollapsible(false);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kSmallGap, kSmallGap, kSmallGap, kSmallGap);
    layout->addWidget(splitter);

    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        if (const auto item = workspace::Item::ofId(m_workspace.lookedAt()))
            refreshFacts(*item, false);
    });
    listen(*this, m_workspace.changed, [this] { notice(); });
    listen(*this, m_workspace.looked, [this] { notice(); });
    listen(*this, m_workspace.found, [this] { notice(); });
    listen(*this, m_workspace.sets.changed, [this] { showStar(); });
    addStarKey(*this, m_workspace, [this] { return m_workspace.lookedAt(); });
    refresh();
}

QWidget* SheetPanel::buildTop()
{
    m_text = new QTextBrowser;
    m_text->setObjectName(QStringLiteral("sheet"));
    m_text->setAccessibleName(QStringLiteral("Sheet of the index"));
    m_text->setOpenLinks(false);
    setFocusProxy(m_text);
    connect(m_text, &QTextBrowser::anchorClicked, this, &SheetPanel::follow);
    m_text->setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);

    m_star = new QToolButton;
    m_star->setCheckable(true);
    m_star->setFocusPolicy(Qt::TabFocus);
    m_star->setObjectName(QStringLiteral("sheet_star"));
    connect(m_star, &QToolButton::clicked, this, [this] { turnStar(m_workspace, m_workspace.lookedAt()); });
    auto* const top = new QWidget;
    auto* const layout = new QVBoxLayout(top);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addWidget(m_star, 0, Qt::AlignLeft);
    layout->addWidget(m_text, 1);
    return top;
}

QWidget* SheetPanel::buildBottom()
{
    auto* const bottom = new QWidget;
    m_axis = new QComboBox;
    nameWidget(*m_axis, QStringLiteral("sheet_axis"), QStringLiteral("Reading that moves"),
               QStringLiteral("The reading that moves along the chart; the others are held. Of models of "
                              "heat strain and of the two-node body also the minutes"));
    for (std::size_t i = 0; i < workspace::kCourseAxisCount; ++i)
        m_axis->addItem({});
    m_axis->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_axis->setMinimumContentsLength(kAxisCharacters);
    const auto kept = m_workspace.preferences().read(kAxisKey);
    m_wantedAxis = qBound(0, toQt(kept.value_or("0")).toInt(), static_cast<int>(workspace::kCourseAxisCount));
    connect(m_axis, qOverload<int>(&QComboBox::activated), this, [this](int axis) {
        m_wantedAxis = axis;
        m_workspace.preferences().write(kAxisKey, std::to_string(axis));
        notice();
    });
    auto* const label = new QLabel(QStringLiteral("Course over"));
    label->setBuddy(m_axis);

    m_picture = new QToolButton;
    m_picture->setText(QStringLiteral("Picture"));
    m_picture->setFocusPolicy(Qt::TabFocus);
    m_picture->setPopupMode(QToolButton::InstantPopup);
    nameWidget(*m_picture, QStringLiteral("sheet_picture"), QStringLiteral("Picture of the chart"),
               QStringLiteral("Copies the chart, or saves it as PNG or SVG"));
    auto* const menu = new QMenu(m_picture);
    menu->addAction(QStringLiteral("Copy"), this, [this] { copyPicture(); });
    menu->addAction(QStringLiteral("Save..."), this, [this] { savePicture(); });
    m_picture->setMenu(menu);

    m_chart = new CourseChart;
    m_reading = new QLabel;
    m_reading->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reading->setWordWrap(true);
    m_reading->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_reading->setFixedHeight(kReadingLines * fontMetrics().lineSpacing());
    // The reasons of gaps can be long: they scroll, and the chart keeps its height.
    m_held = new QTextBrowser;
    m_held->setObjectName(QStringLiteral("sheet_held"));
    m_held->setAccessibleName(QStringLiteral("What is held, and where there is no value"));
    m_held->setFrameShape(QFrame::NoFrame);
    m_held->viewport()->setAutoFillBackground(false);
    m_held->document()->setDocumentMargin(0);
    m_held->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_held->setFixedHeight(kHeldLines * m_held->fontMetrics().lineSpacing());
    m_minutes = new MinutesChart;
    m_charts = new QStackedWidget;
    for (ChartView* const view : {static_cast<ChartView*>(m_chart), static_cast<ChartView*>(m_minutes)}) {
        m_charts->addWidget(view);
        connect(view, &ChartView::pointRead, this, [this](const QString& text) {
            m_reading->setText(text.isEmpty() ? QLatin1String(kHowToRead) : text);
        });
    }

    auto* const top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(m_axis, 1);
    top->addWidget(m_picture);
    auto* const layout = new QVBoxLayout(bottom);
    layout->setContentsMargins(0, kSmallGap, 0, 0);
    layout->addLayout(top);
    layout->addWidget(m_charts, 1);
    layout->addWidget(m_reading);
    layout->addWidget(m_held);
    return bottom;
}

QSize SheetPanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * kWidthInCharacters,
            fontMetrics().lineSpacing() * kHeightInLines};
}

// A change comes with each key. No curve of other readings stays, and the rest waits until the keys are done
// with.
void SheetPanel::notice()
{
    if (m_late || !isVisible())
        return;
    m_late = true;
    const auto item = workspace::Item::ofId(m_workspace.lookedAt());
    if (!item || isStale(*item))
        chart().showNone({});
    QTimer::singleShot(0, this, [this] {
        m_late = false;
        refresh();
    });
}

void SheetPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    notice();
}

void SheetPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        notice();
}

void SheetPanel::refresh()
{
    const auto item = workspace::Item::ofId(m_workspace.lookedAt());
    m_axis->setEnabled(item.has_value());
    m_picture->setEnabled(false);
    nameAxes(item);
    showStar();
    if (!item) {
        m_text->setPlainText(
            QStringLiteral("No index is looked at. A card or a row of the list or of the results "
                           "opens the sheet of its index."));
        chart().showNone({});
        return;
    }
    refreshFacts(*item, true);
    if (overMinutes())
        askMinutes(*item);
    else
        askCourse(*item);
}

void SheetPanel::showStar()
{
    const std::string& id = m_workspace.lookedAt();
    const bool starred = m_workspace.sets.isStarred(id);
    m_star->setVisible(!id.empty());
    m_star->setChecked(starred);
    const QString set = withMnemonic(fromQt(shortened(toQt(m_workspace.sets.starredName()), kSetCharacters)));
    m_star->setText(
        (starred ? QStringLiteral("\u2605 In \"%1\"") : QStringLiteral("\u2606 Add to \"%1\"")).arg(set));
    if (id.empty())
        return;
    const QString words = starText(m_workspace, id);
    m_star->setAccessibleName(words);
    m_star->setToolTip(tip(words + QStringLiteral(" (%1)").arg(QLatin1String(kStarKey))));
}

// Earlier figures stand while there is patience.
void SheetPanel::refreshFacts(const workspace::Item& item, bool patiently)
{
    const workspace::Situation* const present = m_workspace.presentSoon();
    if (present == nullptr && patiently) {
        if (!m_patience.isActive())
            m_patience.start();
        return;
    }
    m_patience.stop();
    const workspace::Situation situation =
        present ? *present : workspace::awaited(m_workspace.presentInputs());
    if (item.model() != nullptr) {
        showFacts(toQt(item.id()), modelFacts(item, situation, m_workspace.person.texts(), palette()));
        return;
    }
    const IndexSheet sheet = workspace::indexSheet(situation, m_workspace.limits(), item.index());
    showFacts(toQt(sheet.id), present ? factsHtml(sheet, palette()) : awaitedHtml(sheet));
}

// What is selected stays so where the text is the same, and the place where another has the same index.
void SheetPanel::showFacts(const QString& id, const QString& html)
{
    if (html == m_html)
        return;
    m_html = html;
    const int place = id == m_shownId ? m_text->verticalScrollBar()->value() : 0;
    m_shownId = id;
    m_text->setHtml(html);
    m_text->verticalScrollBar()->setValue(place);
}

// An index reads nothing of the person.
workspace::CourseRequest SheetPanel::requestOf(const workspace::Item& item, CourseAxis axis) const
{
    return {m_workspace.presentInputs(), item, axis,
            item.model() != nullptr ? m_workspace.person.texts() : workspace::FieldTexts()};
}

// To an address, to the field of an input, or to another figure of the model.
void SheetPanel::follow(const QUrl& link)
{
    if (link.scheme() == QLatin1String(kFieldLink))
        m_workspace.person.lookAt(fromQt(link.path()));
    else if (link.scheme() == QLatin1String(kFigureLink))
        m_workspace.lookAt(fromQt(link.path()));
    else
        QDesktopServices::openUrl(link);
}

void SheetPanel::askCourse(const workspace::Item& item)
{
    workspace::CourseRequest request = requestOf(item, static_cast<CourseAxis>(m_axis->currentIndex()));
    const bool isThere = m_chart->course() != nullptr && m_chart->course()->request == request;
    m_picture->setEnabled(isThere);
    if (isThere)
        return;
    await();
    m_asked = request;
    m_runner.ask(std::move(request));
}

void SheetPanel::takeCourse()
{
    std::optional<workspace::Course> course = m_runner.take();
    if (!course || m_late || overMinutes() || !m_asked || course->request != *m_asked)
        return;
    QStringList sentences;
    if (course->problem.empty())
        sentences = {toQt(course->held), toQt(course->gapsInWords())};
    m_chart->show(std::move(*course));
    if (m_chart->curveLeaves())
        sentences += QStringLiteral("The curve leaves the chart, beside its pole.");
    sentences.removeAll({});
    tell(sentences.join(QLatin1Char(' ')));
}

workspace::MinutesRequest SheetPanel::minutesOf(const workspace::Item& item) const
{
    return {m_workspace.presentInputs(), item, m_workspace.person.texts()};
}

void SheetPanel::askMinutes(const workspace::Item& item)
{
    workspace::MinutesRequest request = minutesOf(item);
    const bool isThere = m_minutes->course() != nullptr && m_minutes->course()->request == request;
    m_picture->setEnabled(isThere);
    if (isThere)
        return;
    await();
    m_askedMinutes = request;
    m_minutesRunner.ask(std::move(request));
}

void SheetPanel::takeMinutes()
{
    std::optional<workspace::MinutesCourse> course = m_minutesRunner.take();
    if (!course || m_late || !overMinutes() || !m_askedMinutes || course->request != *m_askedMinutes)
        return;
    QStringList sentences;
    if (course->problem.empty())
        sentences = {toQt(course->marksInWords()), toQt(course->held)};
    m_minutes->show(std::move(*course));
    sentences.removeAll({});
    tell(sentences.join(QLatin1Char(' ')));
}

bool SheetPanel::isStale(const workspace::Item& item) const
{
    if (overMinutes())
        return m_askedMinutes && *m_askedMinutes != minutesOf(item);
    return m_asked && *m_asked != requestOf(item, static_cast<CourseAxis>(m_axis->currentIndex()));
}

void SheetPanel::await()
{
    chart().showNone(QStringLiteral("Calculating the course..."));
    m_reading->clear();
    m_held->clear();
}

// What stands below a chart that has come.
void SheetPanel::tell(const QString& sentences)
{
    m_held->setPlainText(sentences);
    m_picture->setEnabled(isCharted());
    m_reading->setText(isCharted() ? QLatin1String(kHowToRead) : QString());
}

bool SheetPanel::overMinutes() const
{
    return m_axis->currentIndex() == static_cast<int>(workspace::kCourseAxisCount);
}

bool SheetPanel::isCharted() const
{
    return overMinutes() ? m_minutes->course() != nullptr : m_chart->course() != nullptr;
}

ChartView& SheetPanel::chart() const
{
    return *static_cast<ChartView*>(m_charts->currentWidget());
}

// Of a pair of readings the one that is given; the minutes where the model has some.
void SheetPanel::nameAxes(const std::optional<workspace::Item>& item)
{
    constexpr int kMinutes = workspace::kCourseAxisCount;
    const bool minutes = item && workspace::hasMinutes(*item);
    if (minutes && m_axis->count() == kMinutes)
        m_axis->addItem(QStringLiteral("The minutes"));
    if (!minutes && m_axis->count() > kMinutes)
        m_axis->removeItem(kMinutes);
    m_axis->setCurrentIndex(m_wantedAxis < m_axis->count() ? m_wantedAxis : 0);
    m_charts->setCurrentWidget(overMinutes() ? static_cast<QWidget*>(m_minutes) : m_chart);
    m_reading->setFixedHeight((overMinutes() ? kMinuteLines : kReadingLines) * fontMetrics().lineSpacing());
    const classic::Inputs inputs = m_workspace.form().inputs();
    for (std::size_t i = 0; i < workspace::kCourseAxisCount; ++i) {
        const classic::Reading moved = workspace::movedReading(inputs, static_cast<CourseAxis>(i));
        m_axis->setItemText(static_cast<int>(i),
                            toQt(classic::kReadingInfo[static_cast<std::size_t>(moved)].heading));
    }
}

QString SheetPanel::pictureText() const
{
    return m_held->toPlainText();
}

void SheetPanel::copyPicture()
{
    const QByteArray png = chart().picture(ChartView::PictureKind::Png, pictureText());
    if (!png.isEmpty())
        QApplication::clipboard()->setImage(QImage::fromData(png, "PNG"));
}

void SheetPanel::savePicture()
{
    if (!isCharted())
        return;
    const auto path = askForPicture(m_files, m_workspace.lookedAt() + ".png");
    if (!path)
        return;
    const auto kind = isSvg(*path) ? ChartView::PictureKind::Svg : ChartView::PictureKind::Png;
    ui::savePicture(*path, chart().picture(kind, pictureText()), m_messages);
}

} // namespace comfortics::ui
