// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/results_window.h"

#include "catalogue/references.h"
#include "ui/bindings.h"
#include "ui/chip.h"
#include "ui/find_bar.h"
#include "ui/grid_view.h"
#include "ui/star.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace comfortics::ui {

namespace {

constexpr int kSpacing = 8;
constexpr QSize kSize(940, 680);
constexpr int kMeaningCol = 3;         // of the view, right of the table's columns
constexpr double kMeaningShare = 0.24; // of the table's width
constexpr int kChipMargin = 4;
constexpr float kFoundGround = 0.25F;

// Values outside of limits that were ignored, what the others mean, and the rows that are found.
class ValueMarks : public QStyledItemDelegate {
public:
    ValueMarks(const output::Frm_Comfortics& form, const controls::Grid& grid,
               const workspace::Finding& finding, GridView* view)
        : QStyledItemDelegate(view), m_form(form), m_grid(grid), m_finding(finding), m_view(*view)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (index.column() != kMeaningCol) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QStyleOptionViewItem ground = option;
        initStyleOption(&ground, index);
        ground.text.clear();
        m_view.style()->drawControl(QStyle::CE_ItemViewItem, &ground, painter, &m_view);
        if (const auto meaning = m_form.meaning(m_grid, gridRow(index))) {
            painter->setFont(ground.font);
            paintChip(*painter, option.rect.marginsRemoved({kChipMargin, 1, kChipMargin, 1}),
                      Qt::AlignLeft | Qt::AlignVCenter, *meaning, m_view.palette(),
                      !m_form.lbl_Earlier.caption().empty());
        }
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (isFound(gridRow(index))) {
            QColor ground = option->palette.color(QPalette::Highlight);
            ground.setAlphaF(kFoundGround);
            option->backgroundBrush = ground;
            option->font.setBold(index.column() == 0);
        }
        if (index.column() != static_cast<int>(output::Frm_Comfortics::kValueCol) ||
            !m_form.isDoubtful(m_grid, gridRow(index)))
            return;
        option->font.setItalic(true);
        option->palette.setBrush(QPalette::Text, option->palette.placeholderText());
    }

private:
    std::size_t gridRow(const QModelIndex& index) const
    {
        return static_cast<std::size_t>(index.row()) + m_grid.fixedRows();
    }

    bool isFound(std::size_t row) const
    {
        const int index = output::Frm_Comfortics::indexOf(m_grid, row);
        return m_finding.hasWords() && index > 0 && m_finding.holds(static_cast<std::size_t>(index) - 1);
    }

    const output::Frm_Comfortics& m_form;
    const controls::Grid& m_grid;
    const workspace::Finding& m_finding;
    const GridView& m_view;
};

constexpr double kMainShown = 0.36; // of the main window's width, with the readings

} // namespace

ResultsWindow::ResultsWindow(output::Frm_Comfortics& form, workspace::Workspace& workspace,
                             const QWidget& main, std::function<void()> closed)
    : FormWindow(form, QStringLiteral("the-results")), m_form(form), m_workspace(workspace),
      m_finding([this](std::size_t place) { return standing(place); }), m_closed(std::move(closed))
{
    setWindowTitle(windowTitle() + QStringLiteral(" — Results"));
    m_reason = new CutLabel;
    statusBar()->setContentsMargins(kSpacing, 0, 0, 0);
    statusBar()->addWidget(m_reason, 1);
    auto* const inForce = new QLabel;
    bind(*inForce, m_form.lbl_In_Force);
    statusBar()->addPermanentWidget(inForce);
    buildMenu();
    setCentralWidget(buildContent());
    m_table->setFocus();
    buildKeys();
    placeBeside(main);
}

// What watches the finding goes before it.
ResultsWindow::~ResultsWindow()
{
    delete m_find;
}

void ResultsWindow::buildMenu()
{
    m_menu = new QMenu(toQt(m_form.Menu_Copy.caption()), this);
    m_menu->setObjectName(QStringLiteral("Menu_Copy"));
    addEntry(*m_menu, m_form.Menu_Copy_Copy, 'A', {}, *this);
    // In the search box the same keys copy the text there.
    addEntry(*m_menu, m_form.Menu_Copy_Selection, 'S', QKeySequence::Copy, *this);
    addEntry(*m_menu, m_form.Menu_Export, 'E', QKeySequence::Save, *this);
    addEntry(*m_menu, m_form.Menu_Print, 'P', QKeySequence::Print, *this);
    // Below the entries of the table, what is done with the index of one row.
    m_menu->addSeparator();
    QAction* const sheet = m_menu->addAction(QStringLiteral("&Index Sheet"));
    sheet->setShortcut(Qt::CTRL | Qt::Key_I);
    addAction(sheet); // the key works while the menu is closed
    connect(sheet, &QAction::triggered, this, [this] { openSheet(); });
    QAction* const star = m_menu->addAction(QString(), this, [this] { turnStar(m_workspace, m_menuId); });
    connect(m_menu, &QMenu::aboutToShow, this, [this, sheet, star] {
        m_menuId = idOf(m_menuRow > 0 ? m_menuRow : m_form.visibleGrid().row());
        m_menuRow = 0;
        const bool ofIndex = !m_menuId.empty();
        sheet->setText(ofIndex ? QStringLiteral("&Index Sheet of ") + shortName(m_menuId)
                               : QStringLiteral("&Index Sheet"));
        sheet->setEnabled(ofIndex);
        star->setText(ofIndex ? starWords(m_workspace, m_menuId) : QStringLiteral("Add to the Cards"));
        star->setEnabled(ofIndex);
    });
    // What is chosen comes after the menu has closed.
    connect(
        m_menu, &QMenu::aboutToHide, this,
        [this, sheet] {
            m_menuId.clear();
            sheet->setEnabled(true); // its key is of whatever row is the current one
        },
        Qt::QueuedConnection);
    listen(*this, m_form.popUpMenu_Copy, [this] {
        m_menuRow = m_form.visibleGrid().mouseRow();
        m_menu->popup(QCursor::pos());
    });
}

// Of a row of the table in sight; empty for one of no index.
std::string ResultsWindow::idOf(std::size_t row) const
{
    const int index = output::Frm_Comfortics::indexOf(m_form.visibleGrid(), row);
    return index > 0 ? std::string(catalogue::reference(index).id) : std::string();
}

GridView* ResultsWindow::buildTable(controls::Grid& grid, const QString& objectName)
{
    auto* const table = new GridView(grid);
    table->setObjectName(objectName);
    table->setAccessibleName(QStringLiteral("Results"));
    table->onResize([this](int width, int height) { m_form.resizeGrids(width, height); });
    table->onWheel([this, &grid](int modifierKeys, int rotation, int x, int y) {
        m_form.MouseWheel(modifierKeys, rotation, grid.left() + x, grid.top() + y);
    });
    table->onSelection([this] { showReason(); });
    // Words of classes are long, and the width of the value's column is given.
    table->showBeside(QStringLiteral("Meaning"), output::Frm_Comfortics::kValueCol, kMeaningShare,
                      [this, &grid](std::size_t row) {
                          const auto meaning = m_form.meaning(grid, row);
                          return meaning ? toQt(catalogue::inWords(*meaning)) : QString();
                      });
    table->setItemDelegate(new ValueMarks(m_form, grid, m_finding, table));
    table->installEventFilter(this);
    bindAppearance(*table, grid);
    return table;
}

QWidget* ResultsWindow::buildContent()
{
    m_search = searchLine(QStringLiteral("Search the indices"));
    m_search->setObjectName(QStringLiteral("txt_Search"));
    m_search->setToolTip(
        QStringLiteral("Shows the indices whose name contains the text (Ctrl+F; Escape clears it)"));
    new TextBoxBinding(*m_search, m_form.txt_Search);

    auto* const info = quietLabel({});
    bind(*info, m_form.lbl_sort_Info);

    auto* const menu = new QPushButton(withMnemonic(m_form.Menu_Copy.caption(), 'M'));
    menu->setMenu(m_menu);
    menu->setToolTip(
        QStringLiteral("Copies, exports and prints the table; the right mouse button opens it, too"));

    auto* const top = new QHBoxLayout;
    top->setSpacing(kSpacing);
    top->addWidget(m_search, 1);
    top->addWidget(info);
    top->addWidget(menu);

    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, 0);
    layout->setSpacing(kSpacing);
    layout->addLayout(top);
    auto* const earlier = new QLabel;
    earlier->setObjectName(QStringLiteral("lbl_Earlier"));
    earlier->setWordWrap(true);
    layout->addWidget(earlier);
    // One of the two is visible at any time, in the same place.
    m_table = buildTable(m_form.Flex, QStringLiteral("Flex"));
    layout->addWidget(m_table, 1);
    m_searched = buildTable(m_form.Flex_Search, QStringLiteral("Flex_Search"));
    layout->addWidget(m_searched, 1);
    buildFind();
    layout->insertWidget(1, m_find);
    follow(*earlier, m_form.lbl_Earlier.change, [this, earlier, content] {
        const bool isEarlier = !m_form.lbl_Earlier.caption().empty();
        earlier->setText(toQt(m_form.lbl_Earlier.caption()));
        earlier->setVisible(isEarlier);
        for (GridView* const table : content->findChildren<GridView*>())
            table->setQuiet(isEarlier);
    });
    return content;
}

void ResultsWindow::buildKeys()
{
    addStarKey(*this, m_workspace, [this] { return idOf(m_form.visibleGrid().row()); });
    addKeys(QStringLiteral("Search"), {QKeySequence::Find}, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    addKeys(QStringLiteral("Find"), {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F)},
            [this] { m_find->begin(); });
    addKeys(QStringLiteral("Next"), {QKeySequence(Qt::Key_F3)}, [this] { m_find->beginOrStep(true); });
    addKeys(QStringLiteral("Previous"), {QKeySequence(Qt::SHIFT | Qt::Key_F3)},
            [this] { m_find->beginOrStep(false); });
    addKeys(QStringLiteral("Clear the search"), {QKeySequence(Qt::Key_Escape)}, [this] {
        if (m_search->hasFocus() || !m_find->clear())
            m_search->clear();
    });
}

void ResultsWindow::buildFind()
{
    m_find = new FindBar(m_finding);
    m_find->setRemark(QStringLiteral("The other rows are hidden here alone: they are copied, exported and "
                                     "printed, too."));
    connect(m_find, &FindBar::stepWanted, this, &ResultsWindow::step);
    connect(m_find, &FindBar::rowsWanted, this, [this] { visibleTable().setFocus(Qt::OtherFocusReason); });
    listen(*m_find, m_finding.changed, [this] { showFound(); });
    connect(m_find, &FindBar::sought, this, &ResultsWindow::standOnBest);
    // The table is filled behind the calculation that is told of.
    auto* const later = new QTimer(this);
    later->setSingleShot(true);
    connect(later, &QTimer::timeout, this, [this] { m_finding.refresh(); });
    listen(*this, m_workspace.changed, [later] { later->start(); });
    listen(*this, m_workspace.form().List_Indices.change, [later] { later->start(); });
}

GridView& ResultsWindow::visibleTable() const
{
    return m_form.Flex_Search.visible() ? *m_searched : *m_table;
}

// Of the subject in a row; behind the last where there is none.
std::size_t ResultsWindow::placeOf(const controls::Grid& grid, std::size_t row)
{
    const int index = output::Frm_Comfortics::indexOf(grid, row);
    return index > 0 ? static_cast<std::size_t>(index) - 1 : catalogue::indexSubjects().size();
}

// As the table shows it, which may be of earlier readings.
catalogue::Standing ResultsWindow::standing(std::size_t place) const
{
    const controls::Grid& grid = m_form.Flex;
    catalogue::Standing standing{.ticked = m_workspace.form().List_Indices.selected(place)};
    for (std::size_t row = grid.fixedRows(); row < grid.rows() && m_finding.filters().withValue; ++row)
        if (placeOf(grid, row) == place)
            standing.hasValue = !grid.textMatrix(row, output::Frm_Comfortics::kValueCol).empty();
    return standing;
}

// Words mark rows, filters hide them.
void ResultsWindow::showFound()
{
    for (GridView* const table : {m_table, m_searched}) {
        controls::Grid& grid = table == m_table ? m_form.Flex : m_form.Flex_Search;
        if (m_finding.filters().any())
            table->showOnly([this, &grid](std::size_t row) {
                const std::size_t place = placeOf(grid, row);
                return place < catalogue::indexSubjects().size() && m_finding.passes(place);
            });
        else
            table->showOnly({});
        table->viewport()->update();
    }
}

void ResultsWindow::standOnBest()
{
    if (!m_finding.hasWords() || !m_finding.best())
        return;
    const controls::Grid& grid = m_form.visibleGrid();
    for (std::size_t row = grid.fixedRows(); row < grid.rows(); ++row)
        if (placeOf(grid, row) == *m_finding.best())
            visibleTable().stand(row);
}

void ResultsWindow::step(bool forward)
{
    const controls::Grid& grid = m_form.visibleGrid();
    std::vector<std::size_t> order;
    std::vector<std::size_t> rows;
    for (std::size_t row = grid.fixedRows(); row < grid.rows(); ++row)
        if (const std::size_t place = placeOf(grid, row); place < catalogue::indexSubjects().size()) {
            order.push_back(place);
            rows.push_back(row);
        }
    const std::size_t standing = placeOf(grid, grid.row());
    const auto next = m_finding.next(order, standing, forward);
    if (next)
        visibleTable().stand(
            rows.at(static_cast<std::size_t>(std::ranges::find(order, *next) - order.begin())));
}

void ResultsWindow::openSheet()
{
    const std::string id = m_menuId.empty() ? idOf(m_form.visibleGrid().row()) : m_menuId;
    if (!id.empty())
        m_workspace.lookAt(id);
}

// The keys of the table are the grid's; it has no use for Enter.
bool ResultsWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool ofTable = watched == m_table || watched == m_searched;
    if (ofTable && event->type() == QEvent::ContextMenu) { // of the mouse's the grid hears itself
        if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
            const GridView& table = visibleTable();
            const QRect cell = table.visualRect(table.currentIndex());
            m_menu->popup(table.viewport()->mapToGlobal(
                (cell.isValid() ? cell : table.viewport()->rect()).bottomLeft()));
        }
        return true;
    }
    if (event->type() == QEvent::KeyPress && ofTable) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            openSheet();
            return true;
        }
    }
    return FormWindow::eventFilter(watched, event);
}

// The reason of a blank in the current row or its literature, for those who use no mouse.
void ResultsWindow::showReason()
{
    const controls::Grid& grid = m_form.visibleGrid();
    m_reason->showText(toQt(m_form.rowNote(grid, grid.row())));
}

// Leaves the readings of the main window in sight.
void ResultsWindow::placeBeside(const QWidget& main)
{
    resize(kSize);
    const QRect frame = main.frameGeometry();
    placeWithin(usableBeside(main),
                {frame.left() + static_cast<int>(frame.width() * kMainShown), frame.top()});
}

void ResultsWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    m_closed();
}

} // namespace comfortics::ui
