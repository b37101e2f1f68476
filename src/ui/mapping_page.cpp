// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/mapping_page.h"

#include "catalogue/rates.h"
#include "texts/number_text.h"
#include "ui/bindings.h"
#include "ui/text.h"
#include "ui/widgets.h"
#include "values/plain_text.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace comfortics::ui {

using tables::Coding;
using tables::Quantity;
using tables::Role;

namespace {

constexpr int kMostShownColumns = 200; // of a preview
constexpr int kFirstValues = 3;
constexpr int kRoleCharacters = 34; // the inputs of models have longer names
constexpr int kLastLine = 1000000;  // that can be told
constexpr const char* kNoComments = "none";

struct NamedCoding {
    Coding coding;
    const char* name;
};
constexpr NamedCoding kCodings[]{{Coding::Utf8, "UTF-8"},
                                 {Coding::Windows1252, "Western (Windows-1252)"},
                                 {Coding::Windows1253, "Greek (Windows-1253)"},
                                 {Coding::Utf16Le, "UTF-16 LE"},
                                 {Coding::Utf16Be, "UTF-16 BE"}};
struct NamedMark {
    char mark;
    const char* name;
};
constexpr NamedMark kSeparators[]{{',', "comma"}, {';', "semicolon"}, {'\t', "tab"},
                                  {'|', "bar |"}, {' ', "blanks"},    {tables::kFixedWidth, "fixed width"}};
constexpr NamedMark kDecimals[]{{'.', "point"}, {',', "comma"}};

// What a column can be: first the quantities, then the rest.
struct NamedRole {
    Role role;
    const char* name;
};
constexpr NamedRole kRoles[]{{Role::Time, "date and time, or a part as text"},
                             {Role::Year, "year"},
                             {Role::Month, "month"},
                             {Role::Day, "day"},
                             {Role::DayOfYear, "day of the year"},
                             {Role::Hour, "hour"},
                             {Role::HourMinute, "hour and minute as 1330"},
                             {Role::Minute, "minute"},
                             {Role::Second, "second"},
                             {Role::Station, "station"},
                             {Role::Carried, "carried along"},
                             {Role::Dropped, "left out"}};
constexpr int kFirstRole = static_cast<int>(tables::kQuantityCount);
constexpr int kFirstInput = kFirstRole + static_cast<int>(std::size(kRoles)); // of the models of standards

QString inputName(const catalogue::InputInfo& input)
{
    return QStringLiteral("input of models: ") + toQt(input.name);
}

QString inputUnit(const tables::ColumnUse& use)
{
    const catalogue::InputInfo* const input = catalogue::additionInputOfId(use.input);
    return !use.unit.empty() ? toQt(use.unit) : input == nullptr ? QString() : toQt(input->unit);
}

QString useName(const tables::ColumnUse& use)
{
    if (use.role == Role::Reading)
        return toQt(tables::infoOf(use.quantity).name);
    for (const NamedRole& one : kRoles)
        if (one.role == use.role)
            return toQt(one.name);
    const catalogue::InputInfo* const input = catalogue::additionInputOfId(use.input);
    return input == nullptr ? QStringLiteral("carried along, input of models") : inputName(*input);
}

QString cell(const std::string& text)
{
    return toQt(text);
}

QTableWidgetItem* item(const QString& text)
{
    auto* const made = new QTableWidgetItem(text);
    made->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    made->setToolTip(tip(text));
    return made;
}

QTableWidget* table(const QString& name, const QString& accessible, const QString& hint)
{
    auto* const made = new QTableWidget;
    nameWidget(*made, name, accessible, hint);
    made->verticalHeader()->hide();
    made->setTabKeyNavigation(false);
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    made->setWordWrap(false);
    made->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    made->horizontalHeader()->setHighlightSections(false);
    made->verticalHeader()->setDefaultSectionSize(made->fontMetrics().height() + kSmallGap);
    return made;
}

QLabel* labelOf(const QString& text, QWidget& buddy)
{
    auto* const label = new QLabel(text);
    label->setBuddy(&buddy);
    return label;
}

template <class Named, std::size_t size, class Value>
int placeOf(const Named (&all)[size], Value Named::*member, Value wanted)
{
    const auto* const found =
        std::find_if(std::begin(all), std::end(all), [&](const Named& one) { return one.*member == wanted; });
    return found == std::end(all) ? -1 : static_cast<int>(found - std::begin(all));
}

} // namespace

MappingPage::MappingPage(workbench::ImportDesk& desk, std::function<std::string()> friction, QWidget* parent)
    : QWidget(parent), m_desk(desk), m_friction(std::move(friction))
{
    m_source = new QLabel;
    m_source->setObjectName(QStringLiteral("lbl_Source"));
    m_source->setWordWrap(true);
    m_columns =
        table(QStringLiteral("Flex_Columns"), QStringLiteral("Columns of the table"),
              QStringLiteral("Each column of the table and what it is read as; the boxes below change "
                             "the one that is chosen here"));
    m_columns->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_columns->setSelectionMode(QAbstractItemView::SingleSelection);
    m_preview = table(QStringLiteral("Flex_Preview"), QStringLiteral("Preview"),
                      QStringLiteral("The first rows: the readings as they are taken, then the cells as they "
                                     "stand in the table"));
    m_sentences = new QLabel;
    m_sentences->setObjectName(QStringLiteral("lbl_Doubts"));
    m_sentences->setAccessibleName(QStringLiteral("What to look at"));
    m_sentences->setWordWrap(true);
    m_sentences->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* const upper = new QWidget;
    auto* const upperLayout = new QVBoxLayout(upper);
    upperLayout->setContentsMargins(0, 0, 0, 0);
    upperLayout->setSpacing(kSmallGap);
    upperLayout->addWidget(m_source);
    upperLayout->addWidget(buildShape());
    upperLayout->addWidget(buildLines());
    upperLayout->addWidget(m_columns, 1);
    upperLayout->addWidget(buildColumn());
    upperLayout->addWidget(buildTimes());
    auto* const sentences = new QScrollArea;
    sentences->setWidget(m_sentences);
    sentences->setWidgetResizable(true);
    sentences->setFrameShape(QFrame::NoFrame);
    sentences->setFocusPolicy(Qt::NoFocus);
    sentences->setMaximumHeight(fontMetrics().lineSpacing() * 4);
    sentences->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    auto* const lower = new QWidget;
    auto* const lowerLayout = new QVBoxLayout(lower);
    lowerLayout->setContentsMargins(0, 0, 0, 0);
    lowerLayout->setSpacing(kSmallGap);
    lowerLayout->addWidget(sentences);
    lowerLayout->addWidget(m_preview, 1);
    auto* const parts = new QSplitter(Qt::Vertical);
    parts->setChildrenCollapsible(false);
    parts->addWidget(upper);
    parts->addWidget(lower);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(parts);
    connectAll();
    follow(*this, m_desk.changed, [this] { show(); });
}

QWidget* MappingPage::buildShape()
{
    const auto box = [](const QString& name, const QString& accessible, const QString& hint) {
        auto* const made = new QComboBox;
        nameWidget(*made, name, accessible, hint);
        made->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        return made;
    };
    m_coding = box(QStringLiteral("lst_Coding"), QStringLiteral("Encoding"),
                   QStringLiteral("How the characters of the file are written"));
    for (const NamedCoding& one : kCodings)
        m_coding->addItem(toQt(one.name));
    m_separator = box(QStringLiteral("lst_Separator"), QStringLiteral("Separator"),
                      QStringLiteral("What stands between two cells of a row"));
    for (const NamedMark& one : kSeparators)
        m_separator->addItem(toQt(one.name));
    m_decimal = box(QStringLiteral("lst_Decimal"), QStringLiteral("Decimal mark"),
                    QStringLiteral("What stands before the decimals of a number"));
    for (const NamedMark& one : kDecimals)
        m_decimal->addItem(toQt(one.name));
    m_sheet = box(QStringLiteral("lst_Sheet"), QStringLiteral("Sheet"),
                  QStringLiteral("The sheet of the workbook"));
    m_kept = box(QStringLiteral("lst_Kept"), QStringLiteral("Kept mappings"),
                 QStringLiteral("Mappings that were kept under a name; choosing one reads this table by it"));
    m_keep = new QPushButton(QStringLiteral("&Keep as …"));
    nameWidget(
        *m_keep, QStringLiteral("cmd_Keep"), QStringLiteral("Keep mapping"),
        QStringLiteral("Keeps this mapping under a name; the next table of the same kind is read by it"));
    m_forget = new QPushButton(QStringLiteral("For&get"));
    nameWidget(*m_forget, QStringLiteral("cmd_Forget"), QStringLiteral("Forget mapping"),
               QStringLiteral("Forgets the kept mapping that is chosen"));
    m_guess = new QPushButton(QStringLiteral("G&uess again"));
    nameWidget(*m_guess, QStringLiteral("cmd_Guess"), QStringLiteral("Guess again"),
               QStringLiteral("Takes back what was changed or kept, and reads the table as it is guessed"));
    for (QPushButton* const each : {m_keep, m_forget, m_guess})
        pressWithEnter(*each);

    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addWidget(labelOf(QStringLiteral("&Encoding:"), *m_coding));
    layout->addWidget(m_coding);
    layout->addWidget(labelOf(QStringLiteral("Separa&tor:"), *m_separator));
    layout->addWidget(m_separator);
    layout->addWidget(labelOf(QStringLiteral("Decima&ls:"), *m_decimal));
    layout->addWidget(m_decimal);
    layout->addWidget(m_sheetLabel = labelOf(QStringLiteral("Sheet:"), *m_sheet));
    layout->addWidget(m_sheet);
    layout->addStretch(1);
    layout->addWidget(labelOf(QStringLiteral("Mapping:"), *m_kept));
    layout->addWidget(m_kept);
    layout->addWidget(m_keep);
    layout->addWidget(m_forget);
    layout->addWidget(m_guess);
    return row;
}

QWidget* MappingPage::buildLines()
{
    const auto number = [this](const QString& name, const QString& accessible, const QString& hint, int least,
                               int most) {
        auto* const made = new QSpinBox;
        nameWidget(*made, name, accessible, hint);
        made->setRange(least, most);
        made->setKeyboardTracking(false); // a number is told when it is whole
        connect(made, &QSpinBox::valueChanged, this, [this] { tellShape(); });
        return made;
    };
    m_nameLine =
        number(QStringLiteral("spn_NameLine"), QStringLiteral("Line of the names"),
               QStringLiteral("The line that has the names of the columns; none: the columns are called "
                              "Column 1, Column 2 and so on"),
               0, kLastLine);
    m_nameLine->setSpecialValueText(QStringLiteral("none"));
    m_unitLines =
        number(QStringLiteral("spn_UnitLines"), QStringLiteral("Lines of units"),
               QStringLiteral("How many lines behind the names have units and the like; the first of "
                              "them has the units"),
               0, 100);
    m_dataLine = number(QStringLiteral("spn_DataLine"), QStringLiteral("First line of readings"),
                        QStringLiteral("The line on which the readings begin"), 1, kLastLine);
    m_comment = new QComboBox;
    nameWidget(*m_comment, QStringLiteral("lst_Comment"), QStringLiteral("Mark of comments"),
               QStringLiteral("What lines begin with that are passed over; another mark can be typed"));
    m_comment->addItems({toQt(kNoComments), QStringLiteral("#"), QStringLiteral("%"), QStringLiteral("!"),
                         QStringLiteral("//"), QStringLiteral("*")});
    m_comment->setEditable(true);
    m_comment->setInsertPolicy(QComboBox::NoInsert);
    m_comment->setCompleter(nullptr);
    m_comment->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addWidget(labelOf(QStringLiteral("Names in line:"), *m_nameLine));
    layout->addWidget(m_nameLine);
    layout->addWidget(labelOf(QStringLiteral("Lines of units:"), *m_unitLines));
    layout->addWidget(m_unitLines);
    layout->addWidget(labelOf(QStringLiteral("Readings &from line:"), *m_dataLine));
    layout->addWidget(m_dataLine);
    layout->addWidget(labelOf(QStringLiteral("&Comments begin with:"), *m_comment));
    layout->addWidget(m_comment);
    layout->addStretch(1);
    return row;
}

QWidget* MappingPage::buildColumn()
{
    m_column = new QLabel;
    m_role = new QComboBox;
    nameWidget(*m_role, QStringLiteral("lst_Role"), QStringLiteral("Used as"),
               QStringLiteral("What the chosen column is used as"));
    for (const tables::QuantityInfo& info : tables::kQuantityInfo)
        m_role->addItem(toQt(info.name));
    for (const NamedRole& one : kRoles)
        m_role->addItem(toQt(one.name));
    for (const catalogue::InputInfo* const input : catalogue::additionInputs())
        m_role->addItem(inputName(*input));
    m_role->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_role->setMinimumContentsLength(kRoleCharacters);
    m_unit = new QComboBox;
    nameWidget(*m_unit, QStringLiteral("lst_Unit"), QStringLiteral("Unit"),
               QStringLiteral("The unit that the column stands in"));
    m_unit->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_height = new QLineEdit;
    nameWidget(
        *m_height, QStringLiteral("txt_Height"), QStringLiteral("Height of the wind"),
        QStringLiteral("The height above the ground at which the wind was measured, in m; empty: 1.1 m, as "
                       "the readings have it"));
    m_step = new QLineEdit;
    nameWidget(*m_step, QStringLiteral("txt_Step"), QStringLiteral("Time of the sum"),
               QStringLiteral("The time over which a radiation was summed, in s: 3600 for an hour"));
    for (QLineEdit* const line : {m_height, m_step})
        line->setMaximumWidth(fontMetrics().averageCharWidth() * 10);

    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addWidget(m_column, 1);
    layout->addWidget(labelOf(QStringLiteral("i&s:"), *m_role));
    layout->addWidget(m_role);
    layout->addWidget(labelOf(QStringLiteral("i&n:"), *m_unit));
    layout->addWidget(m_unit);
    layout->addWidget(labelOf(QStringLiteral("at &height [m]:"), *m_height));
    layout->addWidget(m_height);
    layout->addWidget(labelOf(QStringLiteral("summed o&ver [s]:"), *m_step));
    layout->addWidget(m_step);
    return row;
}

QWidget* MappingPage::buildTimes()
{
    m_order = new QComboBox;
    nameWidget(*m_order, QStringLiteral("lst_Order"), QStringLiteral("Order of dates"),
               QStringLiteral("In which order the numbers make a date"));
    for (const char* const text :
         {"year, month, day (2024-03-01)", "day, month, year (1.3.2024)", "month, day, year (3/1/2024)"})
        m_order->addItem(QString::fromUtf8(text));
    m_zone = new QLineEdit;
    nameWidget(*m_zone, QStringLiteral("txt_Zone"), QStringLiteral("Time zone"),
               QStringLiteral("The clock's offset from UTC, for instance +02:00; empty: not known"));
    m_gaps = new QLineEdit;
    nameWidget(
        *m_gaps, QStringLiteral("txt_Gaps"), QStringLiteral("Marks of gaps"),
        QStringLiteral("What means a missing value anywhere in the table, beside the usual marks; several "
                       "are parted by blanks, for instance -99 9999"));
    m_zone->setMaximumWidth(fontMetrics().averageCharWidth() * 14);
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addWidget(labelOf(QStringLiteral("&Dates:"), *m_order));
    layout->addWidget(m_order);
    layout->addWidget(labelOf(QStringLiteral("Time &zone:"), *m_zone));
    layout->addWidget(m_zone);
    layout->addWidget(labelOf(QStringLiteral("Marks of ga&ps:"), *m_gaps));
    layout->addWidget(m_gaps, 1);
    return row;
}

void MappingPage::connectAll()
{
    for (QComboBox* const box : {m_coding, m_separator, m_decimal, m_sheet, m_comment})
        connect(box, &QComboBox::activated, this, [this] { tellShape(); });
    connect(m_comment->lineEdit(), &QLineEdit::editingFinished, this, [this] { tellShape(); });
    connect(m_columns, &QTableWidget::currentCellChanged, this, [this] {
        if (!m_showing)
            showColumn();
    });
    connect(m_role, &QComboBox::activated, this, [this] { tellColumn(); });
    connect(m_unit, &QComboBox::activated, this, [this] { tellColumn(); });
    connect(m_height, &QLineEdit::editingFinished, this, [this] { tellColumn(); });
    connect(m_step, &QLineEdit::editingFinished, this, [this] { tellColumn(); });
    connect(m_order, &QComboBox::activated, this, [this] { tellTimes(); });
    connect(m_zone, &QLineEdit::editingFinished, this, [this] { tellTimes(); });
    connect(m_gaps, &QLineEdit::editingFinished, this, [this] { tellTimes(); });
    connect(m_keep, &QPushButton::clicked, this, [this] { keep(); });
    connect(m_forget, &QPushButton::clicked, this, [this] {
        m_desk.kept.remove(fromQt(m_kept->currentText()));
        show();
    });
    connect(m_guess, &QPushButton::clicked, this, [this] { guessAgain(); });
    connect(m_kept, &QComboBox::activated, this, [this](int place) {
        if (place == 0)
            guessAgain();
        else if (const auto look = m_desk.lookForKept(fromQt(m_kept->currentText())))
            emit reshapeWanted(look->told);
        else if (const std::string sentence = m_desk.useKept(fromQt(m_kept->currentText()));
                 !sentence.empty()) {
            show();
            m_sentences->setText(toQt(sentence));
        }
    });
}

std::vector<QWidget*> MappingPage::tabOrder() const
{
    return {m_coding, m_separator, m_decimal,   m_sheet,    m_kept,    m_keep,    m_forget,
            m_guess,  m_nameLine,  m_unitLines, m_dataLine, m_comment, m_columns, m_role,
            m_unit,   m_height,    m_step,      m_order,    m_zone,    m_gaps,    m_preview};
}

void MappingPage::refresh()
{
    if (m_desk.isOpen())
        show();
}

// --- what stands

const tables::ColumnUse& MappingPage::use(int column) const
{
    return *m_desk.mapping().find(m_desk.look().layout.names[static_cast<std::size_t>(column)]);
}

int MappingPage::currentColumn() const
{
    return m_desk.isOpen() && m_columns->currentRow() < static_cast<int>(m_desk.look().layout.columns())
               ? m_columns->currentRow()
               : -1;
}

void MappingPage::show()
{
    m_showing = true;
    setEnabled(m_desk.isOpen());
    showShape();
    showColumns();
    showPreview();
    showSentences();
    m_showing = false;
    showColumn();
}

void MappingPage::showShape()
{
    if (!m_desk.isOpen()) {
        m_source->setText(toQt(m_desk.fault().empty() ? std::string("No table is open.") : m_desk.fault()));
        m_sheet->hide();
        m_sheetLabel->hide();
        return;
    }
    const workbench::Look& look = m_desk.look();
    const tables::Layout& layout = look.layout;
    QString text = toQt(look.source.name) + QStringLiteral(": ");
    text += layout.kind == tables::FileKind::Xlsx  ? QStringLiteral("a workbook")
            : layout.kind == tables::FileKind::Epw ? QStringLiteral("a weather file (EPW)")
                                                   : QStringLiteral("a text");
    text += QStringLiteral(", %1 columns").arg(layout.columns());
    if (look.expectedRows)
        text += QStringLiteral(", about %1 rows").arg(*look.expectedRows);
    text += layout.header ? QStringLiteral(". ") : QStringLiteral("; no names of columns. ");
    text += QStringLiteral("The mapping is ") + toQt(m_desk.mappingSource()) + QLatin1Char('.');
    m_source->setText(text);
    QString because;
    for (const std::string& sentence : layout.because)
        because += (because.isEmpty() ? QString() : QStringLiteral(" ")) + toQt(sentence);
    m_source->setToolTip(tip(because));

    const bool isText = layout.kind == tables::FileKind::Text;
    for (QComboBox* const box : {m_coding, m_separator, m_decimal})
        box->setEnabled(isText);
    m_coding->setEnabled(isText && look.source.text == nullptr);
    m_coding->setCurrentIndex(placeOf(kCodings, &NamedCoding::coding, layout.coding));
    m_separator->setCurrentIndex(placeOf(kSeparators, &NamedMark::mark, layout.form.separator));
    m_decimal->setCurrentIndex(placeOf(kDecimals, &NamedMark::mark, layout.decimal));
    const bool lines = layout.kind != tables::FileKind::Epw;
    for (const auto& [box, value] : {std::pair(m_nameLine, layout.nameLine),
                                     {m_unitLines, layout.unitLines},
                                     {m_dataLine, layout.dataLine}}) {
        const QSignalBlocker quiet(box);
        box->setEnabled(lines);
        box->setValue(static_cast<int>(value));
    }
    m_unitLines->setEnabled(lines && layout.header);
    m_comment->setEnabled(isText);
    m_comment->setCurrentText(layout.form.comment.empty() ? toQt(kNoComments) : toQt(layout.form.comment));
    m_sheet->setVisible(look.sheets.size() > 1);
    m_sheetLabel->setVisible(look.sheets.size() > 1);
    m_sheet->clear();
    for (const std::string& sheet : look.sheets)
        m_sheet->addItem(toQt(sheet));
    if (!look.told.sheet.empty())
        m_sheet->setCurrentText(toQt(look.told.sheet));

    m_kept->clear();
    m_kept->addItem(QStringLiteral("guessed"));
    for (const tables::Mapping& mapping : m_desk.kept.all())
        m_kept->addItem(toQt(mapping.name));
    const int place = m_desk.mapping().name.empty() ? 0 : m_kept->findText(toQt(m_desk.mapping().name));
    m_kept->setCurrentIndex(std::max(0, place));
    m_forget->setEnabled(m_kept->currentIndex() > 0);

    m_order->setCurrentIndex(static_cast<int>(m_desk.mapping().order));
    const auto zone = m_desk.mapping().zone;
    const int minutes = std::abs(zone.value_or(0));
    m_zone->setText(zone ? QStringLiteral("%1%2:%3")
                               .arg(*zone < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                               .arg(minutes / 60, 2, 10, QLatin1Char('0'))
                               .arg(minutes % 60, 2, 10, QLatin1Char('0'))
                         : QString());
    QStringList gaps;
    for (const std::string& gap : m_desk.mapping().gaps)
        gaps += toQt(gap);
    m_gaps->setText(gaps.join(QLatin1Char(' ')));
}

void MappingPage::showColumns()
{
    const int before = std::max(0, m_columns->currentRow());
    m_columns->clear();
    m_columns->setColumnCount(5);
    m_columns->setHorizontalHeaderLabels({QStringLiteral("Column"), QStringLiteral("Used as"),
                                          QStringLiteral("Unit"), QStringLiteral("First values"),
                                          QStringLiteral("Why, and what to look at")});
    m_columns->setRowCount(m_desk.isOpen() ? static_cast<int>(m_desk.look().layout.columns()) : 0);
    for (int column = 0; column < m_columns->rowCount(); ++column) {
        const auto place = static_cast<std::size_t>(column);
        const tables::ColumnUse& one = use(column);
        QStringList values;
        for (const tables::Row& row : m_desk.look().rows)
            if (values.size() < kFirstValues && row.refused.empty() && place < row.cells.size())
                values += toQt(row.cells[place]);
        QString unit = one.role == Role::Reading ? toQt(one.unit)
                       : one.role == Role::Input ? inputUnit(one)
                                                 : QString();
        if (one.role == Role::Reading && one.height > 0)
            unit += QStringLiteral(" at ") + toQt(values::plainText(one.height)) + QStringLiteral(" m");
        const QString why = toQt(one.doubt.empty() ? one.because : one.doubt);
        const QString texts[]{toQt(one.column), useName(one), unit, values.join(QStringLiteral(" · ")), why};
        for (int i = 0; i < 5; ++i) {
            QTableWidgetItem* const made = item(texts[i]);
            if (one.role == Role::Reading && i < 3) {
                QFont font = m_columns->font();
                font.setBold(true);
                made->setFont(font);
            }
            m_columns->setItem(column, i, made);
        }
    }
    const int character = fontMetrics().averageCharWidth();
    for (const auto& [column, characters] : {std::pair(0, 28), {1, 28}, {2, 14}, {3, 30}})
        m_columns->setColumnWidth(column, characters * character);
    m_columns->horizontalHeader()->setStretchLastSection(true);
    m_columns->setCurrentCell(std::min(before, m_columns->rowCount() - 1), 0);
}

void MappingPage::showColumn()
{
    const int column = currentColumn();
    for (QWidget* const box : {static_cast<QWidget*>(m_role), static_cast<QWidget*>(m_unit),
                               static_cast<QWidget*>(m_height), static_cast<QWidget*>(m_step)})
        box->setEnabled(column >= 0);
    if (column < 0)
        return;
    m_showing = true;
    const tables::ColumnUse& one = use(column);
    m_column->setText(QStringLiteral("Column “%1”").arg(toQt(one.column)));
    m_role->setCurrentIndex(one.role == Role::Reading ? static_cast<int>(one.quantity) : [&] {
        const auto inputs = catalogue::additionInputs();
        if (one.role == Role::Input)
            return kFirstInput + static_cast<int>(std::find(inputs.begin(), inputs.end(),
                                                            catalogue::additionInputOfId(one.input)) -
                                                  inputs.begin());
        const int place = placeOf(kRoles, &NamedRole::role, one.role);
        return place < 0 ? -1 : kFirstRole + place;
    }());
    m_unit->clear();
    if (const catalogue::InputInfo* const input = catalogue::additionInputOfId(one.input)) {
        for (const std::string_view unit : catalogue::unitsOfColumns(*input))
            m_unit->addItem(toQt(unit));
        if (m_unit->findText(inputUnit(one)) < 0)
            m_unit->addItem(inputUnit(one));
        m_unit->setCurrentText(inputUnit(one));
    }
    const bool reading = one.role == Role::Reading;
    if (reading) {
        for (const std::string& unit : workbench::unitsOf(one.quantity))
            m_unit->addItem(toQt(unit));
        if (m_unit->findText(toQt(one.unit)) < 0)
            m_unit->addItem(toQt(one.unit));
        m_unit->setCurrentText(toQt(one.unit));
    }
    m_unit->setEnabled(m_unit->count() > 1);
    m_height->setEnabled(reading && one.quantity == Quantity::WS);
    m_height->setText(reading && one.height > 0 ? toQt(values::plainText(one.height)) : QString());
    m_step->setEnabled(reading && tables::isDose(one.unit));
    m_step->setText(reading && one.step > 0 ? toQt(values::plainText(one.step)) : QString());
    m_showing = false;
}

void MappingPage::showPreview()
{
    m_preview->clear();
    m_preview->clearSpans();
    if (!m_desk.isOpen()) {
        m_preview->setRowCount(0);
        return;
    }
    const std::vector<workbench::PreviewRow> rows = m_desk.preview(m_friction());
    const std::vector<std::string>& names = m_desk.look().layout.names;
    const int shown = std::min(static_cast<int>(names.size()), kMostShownColumns);
    QStringList heads{QStringLiteral("Line"), QStringLiteral("Time taken")};
    for (const classic::ReadingInfo& info : classic::kReadingInfo)
        heads += toQt(info.symbol()) + QStringLiteral(" [") + toQt(info.unit()) + QLatin1Char(']');
    const int firstCell = static_cast<int>(heads.size());
    for (int i = 0; i < shown; ++i)
        heads += cell(names[static_cast<std::size_t>(i)]);
    m_preview->setColumnCount(static_cast<int>(heads.size()));
    m_preview->setHorizontalHeaderLabels(heads);
    for (int i = 0; i < m_preview->columnCount(); ++i)
        m_preview->horizontalHeaderItem(i)->setToolTip(tip(heads[i])); // names of columns can be long
    m_preview->setRowCount(static_cast<int>(rows.size()));
    for (int i = 0; i < m_preview->rowCount(); ++i) {
        const workbench::PreviewRow& row = rows[static_cast<std::size_t>(i)];
        m_preview->setItem(i, 0, item(QString::number(row.line)));
        if (!row.mapped.refused.empty()) {
            // The reason stands where the readings would.
            QTableWidgetItem* const why = item(QStringLiteral("refused: ") + toQt(row.mapped.refused));
            why->setBackground(QColor(225, 165, 0, 70));
            m_preview->setItem(i, 1, why);
            m_preview->setSpan(i, 1, 1, firstCell - 1);
        } else {
            m_preview->setItem(
                i, 1, item(row.mapped.time ? toQt(tables::momentText(*row.mapped.time)) : QString()));
            for (std::size_t k = 0; k < row.mapped.readings.size(); ++k)
                m_preview->setItem(i, 2 + static_cast<int>(k), item(toQt(row.mapped.readings[k])));
        }
        for (int k = 0; k < shown && k < static_cast<int>(row.cells.size()); ++k) {
            QTableWidgetItem* const raw = item(cell(row.cells[static_cast<std::size_t>(k)]));
            raw->setForeground(palette().placeholderText());
            m_preview->setItem(i, firstCell + k, raw);
        }
    }
    m_preview->setColumnWidth(0, fontMetrics().averageCharWidth() * 8);
    m_preview->setColumnWidth(1, fontMetrics().averageCharWidth() * 30);
    for (int i = 2; i < firstCell; ++i)
        m_preview->setColumnWidth(i, fontMetrics().averageCharWidth() * 11);
}

void MappingPage::showSentences()
{
    QStringList sentences;
    if (m_desk.isOpen()) {
        if (!m_desk.fault().empty())
            sentences += toQt(m_desk.fault()) + QStringLiteral(" The table before it is still open.");
        if (const std::string why = m_desk.whyNot(m_friction()); !why.empty())
            sentences += toQt(why);
        for (const std::string& doubt : m_desk.doubts())
            sentences += toQt(doubt);
    }
    m_sentences->setText(sentences.join(QLatin1Char('\n')));
}

// --- what the user tells

void MappingPage::tellShape()
{
    if (m_showing || !m_desk.isOpen())
        return;
    tables::Shape told = m_desk.look().told;
    const tables::Layout& layout = m_desk.look().layout;
    const auto separator = kSeparators[m_separator->currentIndex()].mark;
    const auto decimal = kDecimals[m_decimal->currentIndex()].mark;
    const auto coding = kCodings[m_coding->currentIndex()].coding;
    if (layout.kind == tables::FileKind::Text) {
        if (coding != layout.coding)
            told.coding = coding;
        if (separator != layout.form.separator)
            told.separator = separator;
        if (decimal != layout.decimal)
            told.decimal = decimal;
    }
    const auto line = [](const QSpinBox& box) { return static_cast<std::size_t>(box.value()); };
    if (line(*m_nameLine) != layout.nameLine)
        told.header = line(*m_nameLine);
    if (line(*m_unitLines) != layout.unitLines)
        told.unitLines = line(*m_unitLines);
    if (line(*m_dataLine) != layout.dataLine)
        told.dataLine = line(*m_dataLine);
    const QString mark = m_comment->currentText().trimmed();
    if (const std::string comment = mark == toQt(kNoComments) ? std::string() : fromQt(mark);
        comment != layout.form.comment)
        told.comment = comment;
    if (m_sheet->isVisible())
        told.sheet = fromQt(m_sheet->currentText());
    if (!(told == m_desk.look().told))
        emit reshapeWanted(told);
}

// Shape and columns as they are found.
void MappingPage::guessAgain()
{
    const tables::Shape plain{.sheet = m_desk.look().told.sheet};
    m_desk.forgetChanges();
    if (!(m_desk.look().told == plain))
        emit reshapeWanted(plain);
}

void MappingPage::choose(tables::ColumnUse& use, int choice) const
{
    if (choice < 0)
        return;
    if (choice >= kFirstRole) {
        const bool input = choice >= kFirstInput;
        const std::string before = use.input;
        use.role = input ? Role::Input : kRoles[choice - kFirstRole].role;
        use.input =
            input
                ? std::string(catalogue::additionInputs()[static_cast<std::size_t>(choice - kFirstInput)]->id)
                : std::string();
        use.unit.clear();
        if (input && use.input == before && m_unit->currentIndex() > 0) // the first is that of the input
            use.unit = fromQt(m_unit->currentText());
        use.height = use.step = 0;
        return;
    }
    const auto quantity = static_cast<Quantity>(choice);
    const bool other = use.role != Role::Reading || use.quantity != quantity;
    use.role = Role::Reading;
    use.quantity = quantity;
    use.input.clear();
    if (other) {
        use.unit = std::string(tables::infoOf(quantity).unit);
        use.height = use.step = 0;
    } else if (m_unit->currentIndex() >= 0) {
        use.unit = fromQt(m_unit->currentText());
    }
    const auto number = [](const QLineEdit& line) {
        const auto value = texts::numericValue(fromQt(line.text().trimmed()));
        return value && *value > 0 ? *value : 0;
    };
    use.height = quantity == Quantity::WS ? number(*m_height) : 0;
    use.step = tables::isDose(use.unit) ? number(*m_step) : 0;
}

void MappingPage::tellColumn()
{
    const int column = currentColumn();
    if (m_showing || column < 0)
        return;
    tables::ColumnUse told = use(column);
    choose(told, m_role->currentIndex());
    m_desk.setUse(static_cast<std::size_t>(column), std::move(told));
}

void MappingPage::tellTimes()
{
    if (m_showing || !m_desk.isOpen())
        return;
    const QString zone = m_zone->text().trimmed();
    const auto minutes = tables::readOffset(fromQt(zone));
    std::vector<std::string> gaps;
    for (const QString& gap : m_gaps->text().split(QLatin1Char(' '), Qt::SkipEmptyParts))
        gaps.push_back(fromQt(gap));
    m_desk.setOrder(static_cast<tables::DateOrder>(m_order->currentIndex()));
    if (zone.isEmpty() || minutes)
        m_desk.setZone(minutes);
    m_desk.setGaps(std::move(gaps));
    if (!zone.isEmpty() && !minutes) {
        m_zone->setText(zone);
        m_sentences->setText(QStringLiteral("“%1” is no offset from UTC, such as +02:00.").arg(zone));
    }
}

void MappingPage::keep()
{
    bool given = false;
    const QString before = toQt(m_desk.mapping().name);
    const QString name =
        QInputDialog::getText(this, QStringLiteral("Keep Mapping"), QStringLiteral("Name of the mapping:"),
                              QLineEdit::Normal, before, &given);
    if (!given)
        return;
    if (const std::string sentence = m_desk.keepAs(fromQt(name)); !sentence.empty())
        m_sentences->setText(toQt(sentence));
}

} // namespace comfortics::ui
