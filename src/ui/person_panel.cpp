// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/person_panel.h"

#include "ui/bindings.h"
#include "ui/clothing_dialog.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QCompleter>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace comfortics::ui {

using catalogue::Addition;
using workspace::Field;
using workspace::FieldSection;

namespace {

constexpr int kWidthInCharacters = 58;
constexpr int kHeightInLines = 30;
constexpr int kLineCharacters = 9;
constexpr int kPickedCharacters = 7; // beside buttons
constexpr int kAboutLines = 5;
constexpr int kPicksShown = 15;
constexpr const char* kModelKey = "person/model";

constexpr std::pair<FieldSection, const char*> kSections[] = {
    {FieldSection::Person, "Person"},
    {FieldSection::Place, "Place and time"},
    {FieldSection::Models, "Of single models"},
    {FieldSection::Readings, "More readings"},
};

bool reads(const Addition& model, const Field& field)
{
    return std::ranges::any_of(model.inputs, [&field](const catalogue::AdditionInput& input) {
        return workspace::fieldIdOf(*input.info) == field.info->id ||
               // What the metabolic rate of the whole body and the time in UTC follow from.
               (input.info->id == "metabolic_w" &&
                (field.info->id == "weight" || field.info->id == "height")) ||
               (input.info->id == "hour_utc" && field.info->id == "utc_offset");
    });
}

QString nameOf(const Field& field)
{
    const QString name = toQt(field.info->name);
    return field.info->unit.empty() ? name : name + QStringLiteral(", ") + toQt(field.info->unit);
}

QString hintOf(const Field& field)
{
    QString hint = nameOf(field);
    if (const std::string range = catalogue::rangeInWords(field.info->bounds, field.info->unit);
        field.info->choices.empty() && !range.empty())
        hint += QStringLiteral("; ") + toQt(range);
    return hint + QStringLiteral(". ") + toQt(workspace::emptyInWords(*field.info));
}

// Offers the picks for what is typed, wherever it stands in them, and writes their value.
void offerPicks(QLineEdit& line, QToolButton& button, const Field& field, controls::TextBox& box)
{
    auto* const model = new QStandardItemModel(&line);
    for (const workspace::Pick& pick : workspace::picksOf(*field.info)) {
        auto* const item = new QStandardItem(
            QStringLiteral("%1 (%2 %3)").arg(toQt(pick.name), toQt(pick.text), toQt(field.info->unit)));
        item->setData(toQt(pick.text), Qt::UserRole);
        model->appendRow(item);
    }
    auto* const completer = new QCompleter(model, &line);
    completer->setFilterMode(Qt::MatchContains);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setMaxVisibleItems(kPicksShown);
    completer->setWidget(&line);
    const auto open = [completer, &line] {
        const QAbstractItemView& list = *completer->popup();
        const int width = list.sizeHintForColumn(0) + list.verticalScrollBar()->sizeHint().width() + kGap;
        completer->complete({0, 0, width, line.height()}); // the names are longer than the line
    };
    const auto take = [&box](const QModelIndex& index) {
        box.setText(fromQt(index.data(Qt::UserRole).toString()));
    };
    QObject::connect(completer, qOverload<const QModelIndex&>(&QCompleter::activated), &line, take);
    QObject::connect(&line, &QLineEdit::textEdited, completer, [completer, open](const QString& text) {
        bool isNumber = false;
        QString(text).replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&isNumber);
        completer->setCompletionPrefix(text);
        if (text.isEmpty() || isNumber)
            completer->popup()->hide();
        else
            open();
    });
    QObject::connect(&button, &QToolButton::clicked, completer, [completer, open, &line] {
        line.setFocus();
        completer->setCompletionPrefix({});
        open();
    });
}

QToolButton* smallButton(const QString& text, const QString& name, const QString& said, const QString& hint)
{
    auto* const button = new QToolButton;
    button->setText(text);
    button->setFocusPolicy(Qt::StrongFocus);
    nameWidget(*button, name, said, hint);
    pressWithEnter(*button);
    return button;
}

} // namespace

PersonPanel::PersonPanel(workspace::Workspace& workspace, QWidget* parent)
    : QWidget(parent), m_workspace(workspace), m_models(new QComboBox), m_about(new QTextBrowser)
{
    auto* const content = new QWidget;
    auto* const grid = new QGridLayout(content);
    grid->setContentsMargins(0, 0, kSmallGap, 0);
    grid->setHorizontalSpacing(kSmallGap);
    grid->setVerticalSpacing(kSmallGap);
    for (const auto& [section, text] : kSections) {
        auto* const heading = new QLabel(QStringLiteral("<b>%1</b>").arg(QString::fromLatin1(text)));
        grid->addWidget(heading, grid->rowCount(), 0, 1, 2);
        m_headings.emplace_back(section, heading);
        for (const Field& field : workspace::fields())
            if (field.section == section)
                buildRow(*grid, field);
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    m_area = new ContentArea(content);
    m_about->setObjectName(QStringLiteral("person_about"));
    m_about->setAccessibleName(QStringLiteral("What an empty field stands for"));
    m_about->setFixedHeight(kAboutLines * fontMetrics().lineSpacing() + 2 * kSmallGap);
    m_about->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(kSmallGap, kSmallGap, kSmallGap, kSmallGap);
    column->addWidget(buildTop());
    column->addWidget(m_area, 1);
    column->addWidget(m_about);
    showRows();
    showAbout(nullptr);
    listen(*this, m_workspace.person.looked, [this] { stand(m_workspace.person.lookedAt()); });
}

QWidget* PersonPanel::buildTop()
{
    auto* const top = new QWidget;
    m_models->addItem(QStringLiteral("Fields of all models"), QString());
    for (const Addition& model : catalogue::additions())
        m_models->addItem(toQt(model.name), toQt(model.id));
    m_models->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_models->setMinimumContentsLength(kLineCharacters);
    nameWidget(*m_models, QStringLiteral("person_model"), QStringLiteral("Model"),
               QStringLiteral("Shows the fields that a model reads"));
    const auto kept = m_workspace.preferences().read(kModelKey);
    m_models->setCurrentIndex(std::max(0, m_models->findData(toQt(kept.value_or(std::string())))));
    connect(m_models, &QComboBox::activated, this, [this] {
        m_workspace.preferences().write(kModelKey, fromQt(m_models->currentData().toString()));
        showRows();
    });
    m_search = searchLine(QStringLiteral("Search the fields"));
    nameWidget(*m_search, QStringLiteral("person_search"), QStringLiteral("Search the fields"),
               QStringLiteral("Shows only the fields whose name or unit holds the text"));
    connect(m_search, &QLineEdit::textChanged, this, [this] { showRows(); });
    auto* const row = new QHBoxLayout(top);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_models, 1);
    row->addWidget(m_search, 1);
    return top;
}

void PersonPanel::buildRow(QGridLayout& grid, const Field& field)
{
    controls::TextBox& box = m_workspace.person.box(field.info->id);
    QWidget* editor = nullptr;
    QWidget* const whole =
        field.info->choices.empty() ? buildLine(field, box, editor) : editor = buildChoices(field, box);
    nameWidget(*editor, QStringLiteral("person_") + toQt(field.info->id), nameOf(field), hintOf(field));
    editor->installEventFilter(this);
    auto* const name = new QLabel(toQt(field.info->name));
    name->setWordWrap(true);
    name->setBuddy(editor);
    name->setToolTip(editor->toolTip());
    auto* const problem = new QLabel;
    problem->setWordWrap(true);
    const int row = grid.rowCount();
    grid.addWidget(name, row, 0);
    grid.addWidget(whole, row, 1);
    grid.addWidget(problem, row + 1, 0, 1, 2);
    m_rows.push_back({&field, editor, problem, {name, whole}});
    const std::size_t place = m_rows.size() - 1;
    follow(*problem, box.change, [this, place, editor, &box, hint = hintOf(field)] {
        const Row& one = m_rows[place];
        const std::string text = workspace::readField(*one.field->info, box.text()).problem;
        one.problem->setText(text.empty() ? QString() : QStringLiteral("\u26A0 ") + toQt(text));
        one.problem->setVisible(!text.empty() && one.shown);
        editor->setAccessibleDescription(text.empty() ? hint : toQt(text));
    });
}

QWidget* PersonPanel::buildLine(const Field& field, controls::TextBox& box, QWidget*& editor)
{
    auto* const line = new QLineEdit;
    editor = line;
    new TextBoxBinding(*line, box);
    leaveUndoToWindow(*line);
    const bool picked = !workspace::picksOf(*field.info).empty();
    line->setFixedWidth(line->fontMetrics().averageCharWidth() *
                        (picked ? kPickedCharacters : kLineCharacters));
    auto* const whole = new QWidget;
    auto* const row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(picked ? kSmallGap / 2 : kSmallGap);
    row->addWidget(line);
    const QString id = toQt(field.info->id);
    if (picked) {
        auto* const pick =
            smallButton({}, QStringLiteral("pick_") + id, QStringLiteral("Pick: ") + toQt(field.info->name),
                        QStringLiteral("Shows what there is to pick from (ASHRAE 55); letters "
                                       "typed into the box search it"));
        pick->setArrowType(Qt::DownArrow);
        row->addWidget(pick);
        offerPicks(*line, *pick, field, box);
    }
    row->addWidget(new QLabel(toQt(field.info->unit)));
    if (id == QLatin1String("clo")) {
        auto* const garments = smallButton(QStringLiteral("Garments..."), QStringLiteral("garments_of_clo"),
                                           QStringLiteral("Garments"),
                                           QStringLiteral("Adds up garments that are worn together"));
        connect(garments, &QToolButton::clicked, this, [this, &box] { chooseClothing(box); });
        row->addWidget(garments);
    }
    row->addStretch(1);
    return whole;
}

QWidget* PersonPanel::buildChoices(const Field& field, controls::TextBox& box)
{
    auto* const list = new QComboBox;
    list->addItem(QStringLiteral("not chosen"), QString());
    for (const workspace::Pick& pick : workspace::picksOf(*field.info))
        list->addItem(toQt(pick.name), toQt(pick.text));
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(kLineCharacters);
    list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as there is room
    connect(list, &QComboBox::activated, this,
            [list, &box](int item) { box.setText(fromQt(list->itemData(item).toString())); });
    // A word that is none shows no entry; the sentence below tells of it.
    follow(*list, box.change, [list, &box, &field] {
        const auto value = workspace::readField(*field.info, box.text()).value;
        const catalogue::Choice* const choice =
            value ? catalogue::choiceWith(field.info->choices, *value) : nullptr;
        const QString word = choice != nullptr ? toQt(choice->word) : toQt(box.text());
        list->setCurrentIndex(list->findData(word));
    });
    return list;
}

void PersonPanel::chooseClothing(controls::TextBox& box)
{
    ClothingDialog dialog(this);
    if (dialog.exec() == QDialog::Accepted && !dialog.clothing().empty())
        box.setText(dialog.clothing());
}

void PersonPanel::showRows()
{
    const Addition* const model = catalogue::additionOfId(fromQt(m_models->currentData().toString()));
    const QString text = m_search->text().trimmed();
    for (Row& row : m_rows) {
        row.shown = (model == nullptr || reads(*model, *row.field)) &&
                    nameOf(*row.field).contains(text, Qt::CaseInsensitive);
        for (QWidget* const widget : row.widgets)
            widget->setVisible(row.shown);
        row.problem->setVisible(row.shown && !row.problem->text().isEmpty());
    }
    for (const auto& [section, heading] : m_headings)
        heading->setVisible(std::ranges::any_of(m_rows, [section = section](const Row& row) {
            return row.shown && row.field->section == section;
        }));
}

void PersonPanel::showAbout(const Field* field)
{
    m_about->setPlainText(field != nullptr
                              ? hintOf(*field)
                              : QStringLiteral("What is typed here goes to all models that read it. A field "
                                               "tells here what it stands for where it is empty."));
}

void PersonPanel::stand(std::string_view id)
{
    const auto found =
        std::ranges::find_if(m_rows, [id](const Row& row) { return row.field->info->id == id; });
    if (found == m_rows.end())
        return;
    if (!found->shown) {
        m_models->setCurrentIndex(0);
        m_search->clear();
        showRows();
    }
    // The panel may have been opened just now, and has its places only then.
    QTimer::singleShot(0, found->editor, [this, editor = found->editor] {
        editor->setFocus(Qt::OtherFocusReason);
        m_area->ensureWidgetVisible(editor);
    });
}

QSize PersonPanel::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * kWidthInCharacters,
            fontMetrics().lineSpacing() * kHeightInLines};
}

bool PersonPanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        for (const Row& row : m_rows)
            if (row.editor == watched)
                showAbout(row.field);
    // A wheel over a list that is scrolled by turns no choice.
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched) != nullptr &&
        !static_cast<QWidget*>(watched)->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace comfortics::ui
