// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/results_window.h"

#include "ui/bindings.h"
#include "ui/chip.h"
#include "ui/grid_view.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QCloseEvent>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <utility>

namespace comfortics::ui {

namespace {

constexpr int kSpacing = 8;
constexpr QSize kSize(940, 680);
constexpr int kMeaningCol = 3;         // of the view, right of the table's columns
constexpr double kMeaningShare = 0.24; // of the table's width
constexpr int kChipMargin = 4;

// Values outside of limits that were ignored, and what the others mean.
class ValueMarks : public QStyledItemDelegate {
public:
    ValueMarks(const output::Frm_Comfortics& form, const controls::Grid& grid, GridView* view)
        : QStyledItemDelegate(view), m_form(form), m_grid(grid), m_view(*view)
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
            painter->setFont(option.font);
            paintChip(*painter, option.rect.marginsRemoved({kChipMargin, 1, kChipMargin, 1}),
                      Qt::AlignLeft | Qt::AlignVCenter, *meaning, m_view.palette(),
                      !m_form.lbl_Earlier.caption().empty());
        }
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
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

    const output::Frm_Comfortics& m_form;
    const controls::Grid& m_grid;
    const GridView& m_view;
};

constexpr double kMainShown = 0.36; // of the main window's width, with the readings

} // namespace

ResultsWindow::ResultsWindow(output::Frm_Comfortics& form, const QWidget& main, std::function<void()> closed)
    : FormWindow(form), m_form(form), m_closed(std::move(closed))
{
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

void ResultsWindow::buildMenu()
{
    m_menu = new QMenu(toQt(m_form.Menu_Copy.caption()), this);
    addEntry(*m_menu, m_form.Menu_Copy_Copy, 'A', {}, *this);
    // In the search box the same keys copy the text there.
    addEntry(*m_menu, m_form.Menu_Copy_Selection, 'S', QKeySequence::Copy, *this);
    addEntry(*m_menu, m_form.Menu_Export, 'E', QKeySequence::Save, *this);
    addEntry(*m_menu, m_form.Menu_Print, 'P', QKeySequence::Print, *this);
    listen(*this, m_form.popUpMenu_Copy, [this] { m_menu->popup(QCursor::pos()); });
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
    table->setItemDelegate(new ValueMarks(m_form, grid, table));
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
    layout->addWidget(buildTable(m_form.Flex_Search, QStringLiteral("Flex_Search")), 1);
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
    const auto add = [this](const QKeySequence& keys, const std::function<void()>& action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    add(QKeySequence::Find, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    add(QKeySequence(Qt::Key_Escape), [this] { m_search->clear(); });
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
