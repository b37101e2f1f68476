// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/comparison_panel.h"

#include "output/save_file.h"
#include "ui/bindings.h"
#include "ui/chip.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <set>
#include <utility>

namespace comfortics::ui {

using workspace::Comparison;
using workspace::ComparisonCell;
using workspace::ComparisonColumnKind;
using workspace::ComparisonRow;
using workspace::ComparisonTable;

namespace {

constexpr const char* kChoiceKey = "comparison/rows";
constexpr const char* kExportTitle = "Export Comparison";
constexpr int kWidthInCharacters = 93;
constexpr int kHeightInLines = 16;
constexpr int kNameCharacters = 26; // of a quantity, in view; the tooltip has all of it
constexpr int kLeastCellCharacters = 15;
constexpr int kMostCellCharacters = 28;
constexpr int kChoiceCharacters = 8; // a narrow panel cuts the choice, not its buttons
constexpr std::size_t kUnitColumn = 1;
constexpr int kChipGap = 3;
constexpr int kMeaningRole = Qt::UserRole;
constexpr std::chrono::milliseconds kPatience{50};

int nameWidth()
{
    return QFontMetrics(QApplication::font()).averageCharWidth() * kNameCharacters;
}

// Two where the name is longer than one: the beginning alone does not tell some indices apart. The unit is
// never cut.
QString inLines(const QString& name, const QString& unit)
{
    const QFontMetrics metrics{QApplication::font()};
    const QString behind = unit.isEmpty() ? QString() : QStringLiteral(" [%1]").arg(unit);
    const auto fitting = [&](const QString& text) {
        return metrics.elidedText(text, Qt::ElideRight, nameWidth() - metrics.horizontalAdvance(behind)) +
               behind;
    };
    if (metrics.horizontalAdvance(name + behind) <= nameWidth())
        return name + behind;
    qsizetype end = name.size();
    while (end > 0 && metrics.horizontalAdvance(name.left(end)) > nameWidth())
        end = name.lastIndexOf(QLatin1Char(' '), end - 1);
    if (end == name.size()) // but for the unit it has room
        end = name.lastIndexOf(QLatin1Char(' '));
    if (end <= 0)
        return fitting(name);
    return name.left(end) + QLatin1Char('\n') + fitting(name.mid(end + 1));
}

// Below a value the chip of its class, which has its words.
class ClassChips : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    static int height(const QFontMetrics& metrics)
    {
        return metrics.lineSpacing() + chipHeight(metrics) + 2 * kChipGap;
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const auto meaning = index.data(kMeaningRole).value<const catalogue::Meaning*>();
        if (meaning == nullptr) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        const QString value = std::exchange(item.text, QString());
        item.widget->style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
        painter->save();
        painter->setFont(item.font);
        painter->setPen(item.palette.color(
            item.state.testFlag(QStyle::State_Selected) ? QPalette::HighlightedText : QPalette::Text));
        const QRect room = option.rect.adjusted(kChipGap, kChipGap, -kChipGap, -kChipGap);
        painter->drawText(room, Qt::AlignRight | Qt::AlignTop, value);
        paintChip(*painter, room.adjusted(0, QFontMetrics(item.font).lineSpacing(), 0, 0),
                  Qt::AlignRight | Qt::AlignVCenter, *meaning, item.palette);
        painter->restore();
    }
};

} // namespace

void ComparisonModel::take(ComparisonTable table)
{
    const auto headings = [](const ComparisonTable& one) {
        std::vector<std::string> all;
        for (const auto& column : one.columns)
            all.push_back(column.heading);
        return all;
    };
    // What stands where it stood keeps selection and place.
    const bool alike = headings(table) == headings(m_table) && table.rows.size() == m_table.rows.size();
    if (!alike)
        beginResetModel();
    m_table = std::move(table);
    if (!alike)
        endResetModel();
    else if (!m_table.rows.empty())
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

std::optional<double> ComparisonModel::number(const QModelIndex& index) const
{
    return m_table.rows.at(static_cast<std::size_t>(index.row()))
        .cells.at(static_cast<std::size_t>(index.column()))
        .number;
}

int ComparisonModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_table.rows.size());
}

int ComparisonModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_table.columns.size());
}

QString ComparisonModel::note(const QModelIndex& index) const
{
    const auto row = static_cast<std::size_t>(index.row());
    const ComparisonCell& cell = m_table.rows.at(row).cells.at(static_cast<std::size_t>(index.column()));
    QString note = toQt(cell.note);
    if (cell.shown != cell.text && !note.contains(toQt(cell.text)))
        note.prepend(toQt(cell.text) + (note.isEmpty() ? QString() : QStringLiteral(". ")));
    return note;
}

QVariant ComparisonModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    const ComparisonCell& cell = m_table.rows.at(row).cells.at(column);
    const ComparisonColumnKind kind = m_table.columns.at(column).kind;
    switch (role) {
    case Qt::DisplayRole:
        return toQt(cell.shown);
    case Qt::ToolTipRole: {
        const QString text = note(index);
        return tip(text.isEmpty() ? toQt(cell.text) : text);
    }
    case Qt::AccessibleDescriptionRole:
        return note(index);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter | (kind == ComparisonColumnKind::Value ||
                                                               kind == ComparisonColumnKind::Difference
                                                           ? Qt::AlignRight
                                                           : Qt::AlignLeft));
    case Qt::FontRole: {
        QFont font;
        font.setItalic(cell.doubtful);
        return font;
    }
    case Qt::AccessibleTextRole:
        return cell.meaning ? toQt(cell.shown) + QStringLiteral(", ") + chipText(*cell.meaning)
                            : toQt(cell.shown);
    case kMeaningRole:
        return QVariant::fromValue(kind == ComparisonColumnKind::Value && cell.meaning ? &*cell.meaning
                                                                                       : nullptr);
    default:
        return {};
    }
}

QVariant ComparisonModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const auto place = static_cast<std::size_t>(section);
    if (orientation == Qt::Vertical) { // the quantities stay in sight
        if (place >= m_table.rows.size())
            return {};
        const ComparisonRow& row = m_table.rows[place];
        const QString name = toQt(row.cells.front().text).trimmed();
        const QString unit = toQt(row.cells.at(kUnitColumn).text);
        if (role == Qt::DisplayRole)
            return inLines(name, unit);
        return role == Qt::ToolTipRole || role == Qt::AccessibleTextRole
                   ? QVariant(unit.isEmpty() ? name : name + QStringLiteral(", ") + unit)
                   : QVariant();
    }
    if (place >= m_table.columns.size())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return toQt(m_table.columns[place].brief);
    case Qt::AccessibleTextRole:
        return toQt(m_table.columns[place].heading);
    case Qt::ToolTipRole:
        return tip(toQt(m_table.columns[place].note));
    default:
        return {};
    }
}

ComparisonPanel::ComparisonPanel(Comparison& comparison, controls::Clipboard& clipboard,
                                 controls::FileDialogs& files, controls::Messages& messages,
                                 std::vector<Choice> choices, QWidget* parent)
    : QWidget(parent), m_comparison(comparison), m_clipboard(clipboard), m_files(files), m_messages(messages),
      m_choices(std::move(choices))
{
    workspace::Workspace& workspace = m_comparison.workspace();
    m_choices.push_back(
        {QStringLiteral("Of the cards"), [&workspace] { return workspace.sets.shownItems(); }});
    m_choices.push_back({QStringLiteral("Ticked in the list"), [&workspace] {
                             const auto ticked = workspace.form().settings().selection.indices();
                             return std::vector<workspace::Item>(ticked.begin(), ticked.end());
                         }});
    auto* const row = buildRow();
    buildTable();
    m_note = new QLabel;
    m_note->setWordWrap(true);
    m_note->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_note->setMinimumHeight(m_note->fontMetrics().lineSpacing());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(kSmallGap, kSmallGap, kSmallGap, kSmallGap);
    layout->addWidget(row);
    layout->addWidget(m_table, 1);
    // Three short rows: beside cards and readings the panel is narrow.
    auto* const below = new QHBoxLayout;
    below->addWidget(m_note, 1);
    below->addWidget(m_copy);
    below->addWidget(m_export);
    layout->addLayout(below);

    listen(*this, m_comparison.changed, [this] { notice(); });
    m_patience.setSingleShot(true);
    m_patience.setInterval(kPatience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        const workspace::Workspace& known = m_comparison.workspace();
        showTable(workspace::awaited(known.presentInputs()));
    });
    listen(*this, workspace.changed, [this] { notice(); });
    listen(*this, workspace.found, [this] { notice(); });
    listen(*this, workspace.sets.changed, [this] { notice(); });
    refresh();
}

QWidget* ComparisonPanel::buildRow()
{
    auto* const row = new QWidget;
    const auto button = [this](const QString& text, const char* name, const QString& hint, auto act) {
        auto* const made = new QPushButton(text);
        nameWidget(*made, QLatin1String(name), text, hint);
        connect(made, &QPushButton::clicked, this, act);
        pressWithEnter(*made);
        return made;
    };
    auto* const pinNow =
        button(QStringLiteral("Pin Now"), "pin",
               QStringLiteral("Keeps the present situation as a column (Ctrl+D)"), [this] { pin(); });
    m_choice = new QComboBox;
    nameWidget(*m_choice, QStringLiteral("comparison_rows"), QStringLiteral("Indices to compare"),
               QStringLiteral("The indices that stand below readings and live quantities"));
    for (const Choice& choice : m_choices)
        m_choice->addItem(choice.name);
    m_choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_choice->setMinimumContentsLength(kChoiceCharacters);
    if (const auto kept = m_comparison.workspace().preferences().read(kChoiceKey))
        m_choice->setCurrentIndex(std::max(m_choice->findText(toQt(*kept)), 0));
    connect(m_choice, qOverload<int>(&QComboBox::activated), this, [this] {
        m_comparison.workspace().preferences().write(kChoiceKey, fromQt(m_choice->currentText()));
        refresh();
    });
    m_name = new QLineEdit;
    m_name->setMaxLength(static_cast<int>(Comparison::kLongestName) / 4); // letters take up to four bytes
    m_name->setPlaceholderText(QStringLiteral("Name of the pin"));
    nameWidget(*m_name, QStringLiteral("pin_name"), QStringLiteral("Name of the pin"),
               QStringLiteral("The name of the pinned situation in whose column the cursor stands (F2)"));
    connect(m_name, &QLineEdit::editingFinished, this, [this] {
        if (const auto place = currentPin())
            m_comparison.rename(*place, fromQt(m_name->text()));
        showCurrent();
    });
    m_earlier =
        button(QStringLiteral("\u25C0"), "pin_left",
               QStringLiteral("Moves the pinned situation to the left (Alt+Left)"), [this] { movePin(-1); });
    m_later =
        button(QStringLiteral("\u25B6"), "pin_right",
               QStringLiteral("Moves the pinned situation to the right (Alt+Right)"), [this] { movePin(1); });
    m_earlier->setAccessibleName(QStringLiteral("Move the pin to the left"));
    m_later->setAccessibleName(QStringLiteral("Move the pin to the right"));
    for (QPushButton* const arrow : {m_earlier, m_later})
        arrow->setFixedWidth(arrow->sizeHint().height() + kSmallGap);
    m_remove =
        button(QStringLiteral("Remove"), "unpin",
               QStringLiteral("Removes the pinned situation in whose column the cursor stands (Delete)"),
               [this] { removePin(); });
    m_copy =
        button(QStringLiteral("Copy"), "copy_comparison",
               QStringLiteral("Copies the selected cells, or the whole table (Ctrl+C)"), [this] { copy(); });
    m_export = button(QStringLiteral("Export..."), "export_comparison",
                      QStringLiteral("Writes the table to a CSV file"), [this] { exportTable(); });

    auto* const top = new QHBoxLayout;
    top->addWidget(pinNow);
    top->addWidget(m_choice, 1);
    auto* const bottom = new QHBoxLayout;
    bottom->addWidget(m_name, 1);
    bottom->addWidget(m_earlier);
    bottom->addWidget(m_later);
    bottom->addWidget(m_remove);
    auto* const layout = new QVBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addLayout(bottom);
    return row;
}

void ComparisonPanel::buildTable()
{
    m_model = new ComparisonModel(this);
    m_table = new QTableView;
    m_table->setModel(m_model);
    m_table->setObjectName(QStringLiteral("comparison"));
    m_table->setAccessibleName(QStringLiteral("Comparison"));
    setFocusProxy(m_table);
    m_table->setItemDelegate(new ClassChips(m_table));
    m_table->viewport()->installEventFilter(this);
    m_table->setTabKeyNavigation(false);
    m_table->setAlternatingRowColors(true);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + kSmallGap);
    m_table->verticalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->horizontalHeader()->setHighlightSections(true);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { showCurrent(); });
    const auto openSheet = [this](const QModelIndex& index) {
        if (!index.isValid())
            return;
        if (const auto& item = m_model->table().rows.at(static_cast<std::size_t>(index.row())).item)
            m_comparison.workspace().lookAt(item->id());
    };
    connect(m_table, &QTableView::activated, this, openSheet);
    const auto key = [this](const QKeySequence& keys, auto act) {
        auto* const action = new QAction(m_table);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, act);
        m_table->addAction(action);
    };
    key(QKeySequence::Copy, [this] { copy(); });
    key(QKeySequence(Qt::CTRL | Qt::Key_I), [this, openSheet] { openSheet(m_table->currentIndex()); });
    key(QKeySequence(Qt::Key_Delete), [this] { removePin(); });
    key(QKeySequence(Qt::Key_F2), [this] {
        if (m_name->isEnabled()) {
            m_name->setFocus(Qt::ShortcutFocusReason);
            m_name->selectAll();
        }
    });
    key(QKeySequence(Qt::ALT | Qt::Key_Left), [this] { movePin(-1); });
    key(QKeySequence(Qt::ALT | Qt::Key_Right), [this] { movePin(1); });
}

QSize ComparisonPanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * kWidthInCharacters,
            fontMetrics().lineSpacing() * kHeightInLines};
}

// A change comes with each key; the table waits until the keys are done with.
void ComparisonPanel::notice()
{
    if (m_late || !isVisible())
        return;
    m_late = true;
    QTimer::singleShot(0, this, [this] {
        m_late = false;
        refresh();
    });
}

void ComparisonPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

void ComparisonPanel::refresh()
{
    if (const workspace::Situation* const present = m_comparison.workspace().presentSoon())
        showTable(*present);
    else if (!m_patience.isActive())
        m_patience.start();
}

void ComparisonPanel::complete()
{
    m_comparison.complete();
    showTable(m_comparison.workspace().present());
}

void ComparisonPanel::showTable(const workspace::Situation& present)
{
    m_patience.stop();
    const auto shape = [this] {
        std::vector<std::optional<workspace::Item>> rows;
        for (const workspace::ComparisonRow& row : m_model->table().rows)
            rows.push_back(row.item);
        return std::pair(m_model->columnCount(), std::move(rows));
    };
    const auto before = shape();
    const QModelIndex current = m_table->currentIndex();
    m_model->take(workspace::comparisonTable(
        present, m_comparison, m_choices.at(static_cast<std::size_t>(m_choice->currentIndex())).indices()));
    if (!m_table->currentIndex().isValid() && current.isValid())
        m_table->setCurrentIndex(m_model->index(std::min(current.row(), m_model->rowCount() - 1),
                                                std::min(current.column(), m_model->columnCount() - 1)));
    if (shape() != before) {
        fitColumns();
        fitRows();
    }
    showCurrent();
}

// Units stand with the names, classes with the values: a narrow panel has room for what is compared. Nothing
// moves while figures come and go.
void ComparisonPanel::fitColumns()
{
    const QFontMetrics metrics = m_table->fontMetrics();
    const ComparisonTable& table = m_model->table();
    int values = 0;
    int room = m_table->viewport()->width();
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const ComparisonColumnKind kind = table.columns[static_cast<std::size_t>(column)].kind;
        const bool isDifference = kind == ComparisonColumnKind::Difference;
        m_table->setColumnHidden(column, kind != ComparisonColumnKind::Value && !isDifference);
        values += kind == ComparisonColumnKind::Value ? 1 : 0;
        if (isDifference) {
            m_table->setColumnWidth(column, m_table->horizontalHeader()->sectionSizeHint(column));
            room -= m_table->columnWidth(column);
        }
    }
    const int width =
        std::clamp(room / std::max(values, 1), metrics.averageCharWidth() * kLeastCellCharacters,
                   metrics.averageCharWidth() * kMostCellCharacters);
    for (int column = 0; column < m_model->columnCount(); ++column)
        if (table.columns[static_cast<std::size_t>(column)].kind == ComparisonColumnKind::Value)
            m_table->setColumnWidth(column, width);
}

void ComparisonPanel::fitRows()
{
    const QFontMetrics metrics = m_table->fontMetrics();
    const int narrow = metrics.averageCharWidth() * kLeastCellCharacters - 2 * kSmallGap;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        bool twoLines =
            m_model->headerData(row, Qt::Vertical, Qt::DisplayRole).toString().contains(QLatin1Char('\n'));
        const auto& item = m_model->table().rows[static_cast<std::size_t>(row)].item;
        for (int column = 0; column < m_model->columnCount() && !twoLines && !item; ++column)
            twoLines = !m_table->isColumnHidden(column) &&
                       metrics.horizontalAdvance(m_model->index(row, column).data().toString()) > narrow;
        const int height = (twoLines ? 2 : 1) * metrics.lineSpacing() + kSmallGap;
        const bool hasClasses = item && item->scaleIndex() != 0;
        m_table->setRowHeight(row, hasClasses ? std::max(height, ClassChips::height(metrics)) : height);
    }
}

void ComparisonPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) // the table's comes later
        QTimer::singleShot(0, this, [this] {
            emit m_model->headerDataChanged(Qt::Vertical, 0, std::max(m_model->rowCount() - 1, 0));
            fitColumns();
            fitRows();
        });
}

bool ComparisonPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        fitColumns();
    return QWidget::eventFilter(watched, event);
}

std::optional<std::size_t> ComparisonPanel::currentPin() const
{
    const QModelIndex index = m_table->currentIndex();
    const auto& columns = m_model->table().columns;
    if (!index.isValid() || static_cast<std::size_t>(index.column()) >= columns.size())
        return std::nullopt;
    return columns[static_cast<std::size_t>(index.column())].pin;
}

void ComparisonPanel::goTo(std::size_t pin)
{
    const auto& columns = m_model->table().columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].pin == pin && columns[i].kind == ComparisonColumnKind::Value) {
            const int row = std::max(m_table->currentIndex().row(), 0);
            m_table->setCurrentIndex(m_model->index(row, static_cast<int>(i)));
            m_table->scrollTo(m_table->currentIndex());
        }
}

// What there is to know of the cell under the cursor, for those who use no mouse.
void ComparisonPanel::showCurrent()
{
    const std::optional<std::size_t> pin = currentPin();
    m_name->setEnabled(pin.has_value());
    m_remove->setEnabled(pin.has_value());
    m_earlier->setEnabled(pin && *pin > 0);
    m_later->setEnabled(pin && *pin + 1 < m_comparison.count());
    if (!m_name->hasFocus())
        m_name->setText(pin ? toQt(m_comparison.pin(*pin).name) : QString());
    const QModelIndex index = m_table->currentIndex();
    if (m_comparison.count() == 0)
        m_note->setText(
            QStringLiteral("Nothing is pinned. Pin Now (Ctrl+D) keeps the present situation, to stand "
                           "beside the later ones."));
    else
        m_note->setText(index.isValid() ? m_model->note(index) : QString());
}

void ComparisonPanel::pin()
{
    const std::string fault = m_comparison.pinPresent(std::chrono::system_clock::now());
    complete();
    if (fault.empty())
        goTo(m_comparison.count() - 1);
    else
        m_note->setText(QStringLiteral("Nothing was pinned. ") + toQt(fault));
}

void ComparisonPanel::movePin(int by)
{
    const auto place = currentPin();
    if (!place || (by < 0 ? *place == 0 : *place + 1 >= m_comparison.count()))
        return;
    const std::size_t to = by < 0 ? *place - 1 : *place + 1;
    m_comparison.move(*place, to);
    refresh();
    goTo(to);
}

void ComparisonPanel::removePin()
{
    const auto place = currentPin();
    if (!place)
        return;
    m_comparison.remove(*place);
    refresh();
    if (m_comparison.count() > 0)
        goTo(std::min(*place, m_comparison.count() - 1));
}

void ComparisonPanel::copy()
{
    complete();
    const ComparisonTable& table = m_model->table();
    std::set<workspace::ComparisonPlace> cells;
    for (const QModelIndex& index : m_table->selectionModel()->selectedIndexes())
        cells.emplace(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
    m_clipboard.setText(workspace::plainTable(cells.size() > 1 ? workspace::partOf(table, cells) : table));
}

void ComparisonPanel::exportTable()
{
    complete();
    const auto path = output::askForFile(
        m_files, {.title = kExportTitle,
                  .filter = "Comma-Separated Values (*.csv)",
                  .fileName = "Comparison.csv",
                  .overwritePrompt = true,
                  .written = [](const std::string& name) { return output::withEnding(name, {".csv"}); }});
    if (path)
        output::succeeded(output::writeWhole(*path, workspace::csvTable(m_model->table())), m_messages,
                          kExportTitle);
}

} // namespace comfortics::ui
