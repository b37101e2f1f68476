// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/raw_data_window.h"

#include "ui/bindings.h"
#include "ui/chip.h"
#include "ui/grid_view.h"
#include "ui/keys.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace comfortics::ui {

using batch::RowState;
using controls::Grid;

namespace {

constexpr int kSpacing = 8;
constexpr QSize kSize(1000, 660);
constexpr int kBarSteps = 1000;
// Short enough for a hand on the mouse, long enough for the run to get on.
constexpr std::chrono::milliseconds kBetweenEvents{40};

// Tinges the rows that have no figures; their notes say why.
class RowMarks : public QStyledItemDelegate {
public:
    RowMarks(const Grid& grid, std::function<RowState(std::size_t)> state, QObject* parent)
        : QStyledItemDelegate(parent), m_grid(grid), m_state(std::move(state))
    {
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        switch (m_state(static_cast<std::size_t>(index.row()) + m_grid.fixedRows())) {
        case RowState::Failed:
            option->backgroundBrush = QColor(210, 50, 40, 70);
            break;
        case RowState::Skipped:
        case RowState::Rejected:
            option->backgroundBrush = QColor(225, 165, 0, 70);
            break;
        case RowState::NotRun:
        case RowState::Calculated:
            break;
        }
    }

private:
    const Grid& m_grid;
    std::function<RowState(std::size_t)> m_state;
};

// Beside a figure the severity of its class; the note of the cell has the word.
class FigureMarks : public RowMarks {
public:
    using Meanings = std::vector<std::optional<catalogue::Meaning>>;

    /// `meanings` of a row by column; null while they are not known.
    FigureMarks(const Grid& grid, std::function<RowState(std::size_t)> state,
                std::function<const Meanings*(std::size_t)> meanings, std::function<bool()> quiet,
                QWidget* parent)
        : RowMarks(grid, std::move(state), parent), m_fixed(grid.fixedRows()),
          m_meanings(std::move(meanings)), m_quiet(std::move(quiet)), m_view(*parent)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        RowMarks::paint(painter, option, index);
        const Meanings* const row = m_meanings(static_cast<std::size_t>(index.row()) + m_fixed);
        const auto col = static_cast<std::size_t>(index.column());
        if (row == nullptr || col >= row->size() || !(*row)[col])
            return;
        painter->setFont(option.font);
        paintSign(*painter, option.rect.adjusted(0, 1, -kSpacing / 2, -1), (*row)[col]->severity,
                  m_view.palette(), m_quiet());
    }

private:
    std::size_t m_fixed;
    std::function<const Meanings*(std::size_t)> m_meanings;
    std::function<bool()> m_quiet;
    const QWidget& m_view;
};

// The one local file that is dragged, or nothing.
QString draggedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

} // namespace

RawDataWindow::RawDataWindow(batch::Frm_Raw_Data& form, const QWidget& main, std::function<void()> closed)
    : FormWindow(form, QStringLiteral("many-rows-at-once")), m_form(form), m_closed(std::move(closed))
{
    m_reason = new CutLabel;
    statusBar()->setContentsMargins(kSpacing, 0, 0, 0);
    statusBar()->addWidget(m_reason, 1);
    buildMenu();
    m_dataPage = buildData();
    m_resultsPage = buildResults();
    auto* const pages = new QSplitter(Qt::Vertical);
    pages->setChildrenCollapsible(false);
    pages->addWidget(m_dataPage);
    pages->addWidget(m_resultsPage);
    setCentralWidget(pages);
    orderTabs();
    setAcceptDrops(true);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
            [this] { goBackOrStop(); });

    m_data->setFocus();
    // The data are locked for as long as a run is under way.
    follow(*m_dataPage, m_form.Flex_Data.appearance, [this] { arrange(); });
    follow(*m_resultsPage, m_form.Fra_Results.appearance, [this] { arrange(); });
    follow(*m_reason, m_form.lbl_status.change, [this] {
        m_meanings.clear(); // of other rows from now on, or of another run
        showReason();
    });
    m_form.keepAlive(
        [window = QPointer<RawDataWindow>(this)] {
            if (window)
                window->followRows();
            QCoreApplication::processEvents();
        },
        kBetweenEvents);
    resize(kSize);
    placeWithin(usableBeside(main), main.frameGeometry().topLeft());
}

void RawDataWindow::buildMenu()
{
    m_menu = new QMenu(toQt(m_form.Menu_copy.caption()), this);
    listen(*this, m_form.popUpMenu_copy, [this] { m_menu->popup(QCursor::pos()); });
}

// --- the data

QWidget* RawDataWindow::buildData()
{
    auto* const information = new QLabel;
    information->setObjectName(QStringLiteral("lbl_information"));
    information->setTextFormat(Qt::PlainText);
    information->setWordWrap(true);
    follow(*information, m_form.lbl_information.change, [this, information] {
        information->setText(
            toQt(m_form.lbl_information.caption()).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    });

    const auto button = [](controls::Button& control, const char* name, const QString& tip) {
        auto* const made = new QPushButton;
        bind(*made, control);
        made->setObjectName(QString::fromLatin1(name));
        made->setToolTip(tip);
        return made;
    };
    m_open = button(m_form.cmd_Open, "cmd_Open",
                    QStringLiteral("Fills the table from a CSV or TSV file (Ctrl+O); "
                                   "a file can also be dropped on the table"));
    m_open->setShortcut(QKeySequence::Open);
    m_calculate = button(m_form.cmd_Calculate, "cmd_Calculate",
                         QStringLiteral("Calculates the selected indices of every row (F5)"));
    m_calculate->setIcon(QIcon(QStringLiteral(":/calculate.svg")));
    m_calculate->setShortcut(Qt::Key_F5);
    m_stop = button(m_form.cmd_Stop, "cmd_Stop",
                    QStringLiteral("Ends the run (Escape); the rows that are done stay"));
    m_stop->setIcon(style()->standardIcon(QStyle::SP_BrowserStop));

    m_data = new GridView(m_form.Flex_Data);
    m_data->setObjectName(QStringLiteral("Flex_Data"));
    m_data->setAccessibleName(QStringLiteral("Readings"));
    m_data->setEmptyHint(
        QStringLiteral("Paste rows from a spreadsheet, drop a CSV or TSV file here, or open one."));
    m_data->showRowNumbers();
    m_data->wrapHeaders(); // a narrow screen has no room for them in one line
    // Takes what rounding leaves of the width.
    m_data->horizontalHeader()->setSectionResizeMode(classic::kReadingCount - 1, QHeaderView::Stretch);
    m_data->setItemDelegate(new RowMarks(
        m_form.Flex_Data, [this](std::size_t row) { return m_form.rowState(row); }, m_data));
    m_data->onResize([this](int width, int height) {
        // The results may stand below, in a size of their own.
        const int resultsWidth = m_form.Flex_Results.width();
        const int resultsHeight = m_form.Flex_Results.height();
        m_form.resizeGrids(width, height);
        if (m_resultsPage)
            m_form.Flex_Results.setSize(resultsWidth, resultsHeight);
    });
    m_data->onWheel([this](int modifierKeys, int rotation, int x, int y) {
        m_form.MouseWheel(modifierKeys, rotation, m_form.Flex_Data.left() + x, m_form.Flex_Data.top() + y);
    });
    m_data->onSelection([this] { showReason(); });

    auto* const top = new QHBoxLayout;
    top->setSpacing(kSpacing);
    top->addWidget(information, 1);
    top->addWidget(m_open, 0, Qt::AlignTop);
    auto* const bottom = new QHBoxLayout;
    bottom->setSpacing(kSpacing);
    bottom->addWidget(buildProgress(), 1);
    bottom->addWidget(m_stop);
    bottom->addWidget(m_calculate);

    auto* const page = new QWidget;
    page->setObjectName(QStringLiteral("Fra_Data"));
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    layout->setSpacing(kSpacing);
    layout->addLayout(top);
    layout->addWidget(m_data, 1);
    layout->addLayout(bottom);
    return page;
}

QWidget* RawDataWindow::buildProgress()
{
    auto* const bar = new QProgressBar;
    bar->setObjectName(QStringLiteral("lbl_progress"));
    bar->setRange(0, kBarSteps);
    bar->setTextVisible(false);
    bar->setAccessibleName(QStringLiteral("Progress of the run"));
    follow(*bar, m_form.lbl_progress.appearance,
           [this, bar] { bar->setValue(static_cast<int>(std::lround(m_form.progressShare() * kBarSteps))); });
    auto* const value = new QLabel;
    value->setObjectName(QStringLiteral("lbl_progress_value"));
    value->setMinimumWidth(value->fontMetrics().horizontalAdvance(QStringLiteral("100%")));
    bind(*value, m_form.lbl_progress_value);
    auto* const rows = new QLabel;
    rows->setObjectName(QStringLiteral("lbl_progress_rows"));
    bind(*rows, m_form.lbl_progress_rows);

    auto* const progress = new QWidget;
    progress->setObjectName(QStringLiteral("Fra_Progress"));
    auto* const layout = new QHBoxLayout(progress);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacing);
    layout->addWidget(bar, 1);
    layout->addWidget(value);
    layout->addWidget(rows);
    bindAppearance(*progress, m_form.Fra_Progress);
    return progress;
}

// --- the results

QWidget* RawDataWindow::buildResults()
{
    auto* const page = new QWidget;
    page->setObjectName(QStringLiteral("Fra_Results"));
    addEntry(*m_menu, m_form.Menu_copy_copy, 'A', {}, *page);
    addEntry(*m_menu, m_form.Menu_Copy_Selection, 'S', QKeySequence::Copy, *page);
    addEntry(*m_menu, m_form.Menu_Export, 'E', QKeySequence::Save, *page);

    m_back = new QPushButton;
    bind(*m_back, m_form.cmd_Back);
    m_back->setObjectName(QStringLiteral("cmd_Back"));
    m_back->setToolTip(QStringLiteral("Back to the readings (Escape)"));
    auto* const outcome = new QLabel;
    outcome->setObjectName(QStringLiteral("lbl_outcome"));
    outcome->setWordWrap(true);
    bind(*outcome, m_form.lbl_outcome);
    m_menuButton = new QPushButton(withMnemonic(m_form.Menu_copy.caption(), 'M'));
    m_menuButton->setMenu(m_menu);
    m_menuButton->setToolTip(
        QStringLiteral("Copies and exports the table; the right mouse button opens it, too"));

    m_results = new GridView(m_form.Flex_Results);
    m_results->setObjectName(QStringLiteral("Flex_Results"));
    m_results->setAccessibleName(QStringLiteral("Results"));
    m_results->showRowNumbers();
    m_results->setItemDelegate(new FigureMarks(
        m_form.Flex_Results, [this](std::size_t row) { return m_form.rowState(row); },
        [this](std::size_t row) { return meanings(row); }, [this] { return m_form.resultsAreEarlier(); },
        m_results));
    m_results->onSelection([this] {
        fitHeaders();
        showReason();
    });

    auto* const top = new QHBoxLayout;
    top->setSpacing(kSpacing);
    top->addWidget(m_back);
    top->addWidget(outcome, 1);
    top->addWidget(m_menuButton);
    auto* const terms = new QLabel;
    terms->setObjectName(QStringLiteral("lbl_terms"));
    terms->setWordWrap(true);
    follow(*terms, m_form.lbl_terms.change, [this, terms] {
        terms->setText(toQt(m_form.lbl_terms.caption()));
        m_results->setQuiet(m_form.resultsAreEarlier());
    });
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    layout->setSpacing(kSpacing);
    layout->addLayout(top);
    layout->addWidget(terms);
    layout->addWidget(m_results, 1);
    return page;
}

// The names of indices are long; each column is as wide as its header.
void RawDataWindow::fitHeaders()
{
    Grid& grid = m_form.Flex_Results;
    std::string headers;
    for (std::size_t col = 0; col < grid.cols(); ++col)
        (headers += grid.textMatrix(0, col)) += '\n';
    if (headers == m_headers)
        return;
    m_headers = std::move(headers);
    const double pixelsPerTwip = m_results->verticalHeader()->defaultSectionSize() /
                                 static_cast<double>(std::max(Grid::kDefaultRowHeight, grid.rowHeightMin()));
    const Grid::Bulk bulk(grid);
    for (std::size_t col = 0; col < grid.cols(); ++col) {
        const int pixels = m_results->horizontalHeader()->sectionSizeHint(static_cast<int>(col));
        grid.setColWidth(
            col, std::max(Grid::kDefaultColWidth, static_cast<int>(std::ceil(pixels / pixelsPerTwip))));
    }
}

// A row costs a calculation, which can take a while: one by one, between what the user does.
const std::vector<std::optional<catalogue::Meaning>>* RawDataWindow::meanings(std::size_t row)
{
    if (const auto found = m_meanings.find(row); found != m_meanings.end())
        return &found->second;
    if (!m_form.running()) {
        m_wanted.insert(row);
        if (!m_asking) {
            m_asking = true;
            QTimer::singleShot(0, this, [this] { askNextMeanings(); });
        }
    }
    return nullptr;
}

void RawDataWindow::askNextMeanings()
{
    constexpr std::size_t kMostKept = 1000;
    m_asking = false;
    if (m_meanings.size() > kMostKept)
        m_meanings.clear();
    const auto isInSight = [this](std::size_t row) {
        const QModelIndex index =
            m_results->model()->index(static_cast<int>(row - m_form.Flex_Results.fixedRows()), 0);
        const QRect rect = m_results->visualRect(index);
        return rect.bottom() >= 0 && rect.top() < m_results->viewport()->height();
    };
    while (!m_wanted.empty() && !m_form.running()) {
        const std::size_t row = m_wanted.extract(m_wanted.begin()).value();
        if (!isInSight(row))
            continue;
        m_meanings[row] = m_form.meanings(row);
        m_results->viewport()->update();
        break;
    }
    if (!m_wanted.empty() && !m_form.running()) {
        m_asking = true;
        QTimer::singleShot(0, this, [this] { askNextMeanings(); });
    }
}

// --- what is in sight

void RawDataWindow::orderTabs()
{
    QWidget* const order[] = {m_data, m_open, m_stop, m_calculate, m_back, m_menuButton, m_results};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
}

void RawDataWindow::arrange()
{
    const bool results = m_form.Fra_Results.visible();
    m_dataPage->setVisible(!results);
    m_resultsPage->setVisible(results || m_form.running());
    m_back->setEnabled(results);
    if (results != m_showsResults) {
        m_showsResults = results;
        (results ? m_results : m_data)->setFocus(Qt::OtherFocusReason);
        if (results && m_form.Flex_Results.topRow() == m_followedTopRow)
            m_form.Flex_Results.setTopRow(m_form.Flex_Results.fixedRows());
        m_followedTopRow = m_form.Flex_Results.topRow();
    }
    showReason();
    if (m_closing && !m_form.running())
        QTimer::singleShot(0, this, [this] { m_closed(); }); // the run's last steps come first
}

// Keeps the newest row in sight, unless the user has scrolled elsewhere.
void RawDataWindow::followRows()
{
    Grid& grid = m_form.Flex_Results;
    if (m_form.rowState(1) == RowState::NotRun) { // the run starts, maybe anew
        m_nextRow = 1;
        m_followedTopRow = grid.topRow();
    }
    while (m_form.rowState(m_nextRow) != RowState::NotRun)
        ++m_nextRow;
    if (m_nextRow == 1 || m_nextRow > grid.rows() || grid.topRow() != m_followedTopRow)
        return;
    const auto newest = static_cast<int>(m_nextRow - 1 - grid.fixedRows());
    m_results->scrollTo(m_results->model()->index(newest, std::max(m_results->columnAt(0), 0)));
    m_followedTopRow = grid.topRow();
}

// The reason of a blank in the current row, for those who use no mouse; where there is none, how far the
// run is or was.
void RawDataWindow::showReason()
{
    const Grid& grid = m_form.Fra_Results.visible() ? m_form.Flex_Results : m_form.Flex_Data;
    const std::string note = grid.note(grid.row(), grid.col());
    const std::string reason = note.substr(0, note.find('\n')); // one line is its room
    m_reason->showText(toQt(reason.empty() ? m_form.lbl_status.caption() : reason));
}

// --- keys, files, the end

void RawDataWindow::goBackOrStop()
{
    if (m_form.running())
        m_form.cmd_Stop.setValue(true);
    else if (m_form.Fra_Results.visible())
        m_form.cmd_Back.setValue(true);
}

// Keys that no widget wanted go to the data, which see those of their own view already.
void RawDataWindow::keyPressEvent(QKeyEvent* event)
{
    const auto press = keyPress(*event);
    if (press && !m_form.Fra_Results.visible() && !m_data->hasFocus())
        m_form.Flex_Data.press(*press);
    FormWindow::keyPressEvent(event);
}

void RawDataWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!m_form.running() && !draggedFile(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void RawDataWindow::dropEvent(QDropEvent* event)
{
    const QString path = draggedFile(*event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    // Whoever dragged it need not wait for the file, nor for what there may be to say of it.
    QTimer::singleShot(0, this, [this, path] {
        if (!m_form.running())
            m_form.cmd_Back.setValue(true);
        m_form.openFile(fromQt(path));
    });
}

void RawDataWindow::closeEvent(QCloseEvent* event)
{
    if (m_form.running()) {
        m_closing = true;
        m_form.cmd_Stop.setValue(true);
        event->ignore();
        return;
    }
    event->accept();
    m_closed();
}

} // namespace comfortics::ui
