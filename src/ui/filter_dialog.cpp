// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/filter_dialog.h"

#include "texts/number_text.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace comfortics::ui {

using workbench::Condition;
using workbench::Field;
using Test = Condition::Test;

namespace {

QString fieldTitle(const Field& field, const workbench::TableStore& store)
{
    if (field.kind == Field::Kind::Figure)
        return toQt(workbench::columnTitle(store.items()[field.place]));
    if (field.kind == Field::Kind::Reading)
        return toQt(classic::kReadingInfo[field.place].heading);
    QString name = toQt(fieldName(field, store));
    name[0] = name[0].toUpper();
    return name;
}

// What can be asked of a field, with the words for it.
std::vector<std::pair<QString, Condition>> testsOf(const Field& field, const workbench::TableStore& store)
{
    std::vector<std::pair<QString, Condition>> tests;
    const auto add = [&](const QString& words, Condition condition) {
        condition.field = field;
        tests.emplace_back(words, std::move(condition));
    };
    const auto test = [](Test kind) {
        Condition condition;
        condition.test = kind;
        return condition;
    };
    switch (field.kind) {
    case Field::Kind::Row:
        break;
    case Field::Kind::Time:
        add(QStringLiteral("is in the period"), test(Test::Period));
        break;
    case Field::Kind::Station:
        for (const std::string& station : store.stations()) {
            Condition condition = test(Test::Station);
            condition.station = station;
            add(station.empty() ? QStringLiteral("is blank") : QStringLiteral("is ") + toQt(station),
                condition);
        }
        break;
    case Field::Kind::State:
        for (const auto state : {workbench::RowState::Calculated, workbench::RowState::Skipped,
                                 workbench::RowState::Failed, workbench::RowState::Refused}) {
            Condition condition = test(Test::State);
            condition.state = state;
            add(QStringLiteral("is ") + toQt(stateWord(state)), condition);
        }
        add(QStringLiteral("was calculated again by the robust rules"), test(Test::Again));
        break;
    case Field::Kind::Reading:
    case Field::Kind::Figure:
        add(QStringLiteral("lies from … to …"), test(Test::Range));
        add(QStringLiteral("has a value"), test(Test::Value));
        add(QStringLiteral("is blank"), test(Test::Blank));
        break;
    case Field::Kind::Carried:
        add(QStringLiteral("is …"), test(Test::Is));
        add(QStringLiteral("holds …"), test(Test::Holds));
        add(QStringLiteral("is a number from … to …"), test(Test::Range));
        add(QStringLiteral("has a value"), test(Test::Value));
        add(QStringLiteral("is blank"), test(Test::Blank));
        break;
    }
    if (field.kind != Field::Kind::Figure)
        return tests;
    const workspace::Item& item = store.items()[field.place];
    using classic::OutcomeKind;
    for (const auto& [outcome, words] :
         {std::pair(OutcomeKind::OutsideTemperature, "is blank: outside its temperature limits"),
          std::pair(OutcomeKind::OutsideWind, "is blank: outside its wind limits"),
          std::pair(OutcomeKind::NoValue, "is blank: the formula has no value"),
          std::pair(OutcomeKind::RunFailed, "is blank: the calculation failed")}) {
        if (item.model() != nullptr && outcome != OutcomeKind::NoValue)
            continue; // models have a mark in place of limits
        Condition condition = test(Test::Outcome);
        condition.outcome = outcome;
        add(item.model() != nullptr ? QStringLiteral("is blank: the model has no value") : toQt(words),
            condition);
    }
    if (item.model() != nullptr)
        add(QStringLiteral("stands outside of the model's range"), test(Test::Marked));
    const std::vector<std::string_view> classes = item.classNames();
    for (std::size_t place = 0; place < classes.size(); ++place) {
        Condition condition = test(Test::Class);
        condition.place = place;
        add((item.isWord() ? QStringLiteral("is: ") : QStringLiteral("is in the class: ")) +
                toQt(classes[place]),
            condition);
    }
    return tests;
}

std::optional<double> numberOf(const QLineEdit& line)
{
    return texts::numericValue(fromQt(line.text().trimmed()));
}

} // namespace

FilterDialog::FilterDialog(std::shared_ptr<const workbench::TableStore> store, const Field& field,
                           QWidget* parent)
    : QDialog(parent), m_store(std::move(store))
{
    setWindowTitle(QStringLiteral("Filter Rows"));
    m_field = new QComboBox;
    nameWidget(*m_field, QStringLiteral("lst_Field"), QStringLiteral("Column"),
               QStringLiteral("What rows are chosen by"));
    m_test = new QComboBox;
    nameWidget(*m_test, QStringLiteral("lst_Test"), QStringLiteral("Condition"),
               QStringLiteral("What the rows that are seen must meet"));
    m_least = new QLineEdit;
    nameWidget(*m_least, QStringLiteral("txt_Least"), QStringLiteral("From"),
               QStringLiteral("The least value or first time; empty: no bound"));
    m_most = new QLineEdit;
    nameWidget(
        *m_most, QStringLiteral("txt_Most"), QStringLiteral("To"),
        QStringLiteral("The greatest value, which is seen too, or the time before which rows are seen; "
                       "empty: no bound"));
    m_leastLabel = new QLabel(QStringLiteral("&From:"));
    m_leastLabel->setBuddy(m_least);
    m_mostLabel = new QLabel(QStringLiteral("&To:"));
    m_mostLabel->setBuddy(m_most);
    m_message = new QLabel;
    m_message->setWordWrap(true);

    const auto offer = [&](const Field& one) {
        m_fields.push_back(one);
        m_field->addItem(fieldTitle(one, *m_store));
        if (one == field)
            m_field->setCurrentIndex(m_field->count() - 1);
    };
    if (m_store->facts().hasTime)
        offer({Field::Kind::Time, 0});
    if (m_store->facts().hasStation)
        offer({Field::Kind::Station, 0});
    offer({Field::Kind::State, 0});
    for (std::size_t i = 0; i < classic::kReadingCount; ++i)
        offer({Field::Kind::Reading, i});
    for (std::size_t i = 0; i < m_store->items().size(); ++i)
        offer({Field::Kind::Figure, i});
    for (std::size_t i = 0; i < m_store->facts().carried.size(); ++i)
        offer({Field::Kind::Carried, i});

    auto* const form = new QFormLayout(this);
    form->addRow(QStringLiteral("Co&lumn:"), m_field);
    form->addRow(QStringLiteral("Co&ndition:"), m_test);
    form->addRow(m_leastLabel, m_least);
    form->addRow(m_mostLabel, m_most);
    form->addRow(m_message);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_field, &QComboBox::currentIndexChanged, this, &FilterDialog::offerTests);
    connect(m_test, &QComboBox::currentIndexChanged, this, &FilterDialog::offerValues);
    connect(m_least, &QLineEdit::textChanged, this, &FilterDialog::judge);
    connect(m_most, &QLineEdit::textChanged, this, &FilterDialog::judge);
    offerTests();
}

void FilterDialog::offerTests()
{
    const Field& field = m_fields[static_cast<std::size_t>(m_field->currentIndex())];
    m_test->clear();
    m_tests.clear();
    for (auto& [words, condition] : testsOf(field, *m_store)) {
        m_tests.push_back(std::move(condition));
        m_test->addItem(words);
    }
    offerValues();
}

void FilterDialog::offerValues()
{
    const auto place = static_cast<std::size_t>(m_test->currentIndex());
    const auto is = [&](std::initializer_list<Test> any) {
        return place < m_tests.size() && std::count(any.begin(), any.end(), m_tests[place].test) > 0;
    };
    const bool worded = is({Test::Is, Test::Holds});
    m_leastLabel->setText(worded ? QStringLiteral("&Text:") : QStringLiteral("&From:"));
    m_least->setAccessibleName(worded ? QStringLiteral("Text") : QStringLiteral("From"));
    for (QWidget* const widget : {static_cast<QWidget*>(m_leastLabel), static_cast<QWidget*>(m_least)})
        widget->setEnabled(worded || is({Test::Range, Test::Period}));
    for (QWidget* const widget : {static_cast<QWidget*>(m_mostLabel), static_cast<QWidget*>(m_most)})
        widget->setEnabled(is({Test::Range, Test::Period}));
    judge();
}

std::optional<Condition> FilterDialog::condition() const
{
    const auto place = static_cast<std::size_t>(m_test->currentIndex());
    if (place >= m_tests.size())
        return std::nullopt;
    Condition wanted = m_tests[place];
    const bool least = !m_least->text().trimmed().isEmpty();
    const bool most = !m_most->text().trimmed().isEmpty();
    if (wanted.test == Test::Is || wanted.test == Test::Holds) {
        wanted.text = fromQt(m_least->text());
        if (!least)
            return std::nullopt;
    }
    if (wanted.test == Test::Range) {
        wanted.least = numberOf(*m_least);
        wanted.most = numberOf(*m_most);
        if ((least && !wanted.least) || (most && !wanted.most) || (!least && !most))
            return std::nullopt;
    }
    if (wanted.test == Test::Period) {
        const auto read = [](const QLineEdit& line) -> std::optional<std::int64_t> {
            const auto time =
                tables::readMoment(fromQt(line.text().trimmed()), tables::DateOrder::YearMonthDay);
            return time ? std::optional(time->seconds) : std::nullopt;
        };
        wanted.from = read(*m_least);
        wanted.to = read(*m_most);
        if ((least && !wanted.from) || (most && !wanted.to) || (!least && !most))
            return std::nullopt;
    }
    return wanted;
}

void FilterDialog::judge()
{
    const bool whole = condition().has_value();
    m_ok->setEnabled(whole);
    const Field& field = m_fields[static_cast<std::size_t>(m_field->currentIndex())];
    m_message->setText(
        whole                  ? QString()
        : !m_most->isEnabled() ? QStringLiteral("A text, as it stands in the cells.")
        : field.kind == Field::Kind::Time
            ? QStringLiteral("Times as 2024-07-01 or 2024-07-01 15:30, by the clock of the table.")
            : QStringLiteral("A number in one of the boxes, or in both."));
}

} // namespace comfortics::ui
