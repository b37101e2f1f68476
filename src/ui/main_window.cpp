// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/main_window.h"

#include "formulas/live_quantity.h"
#include "shell/status_line.h"
#include "ui/bindings.h"
#include "ui/index_list.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>

namespace comfortics::ui {

using classic::Reading;
using classic::ReadingInfo;

namespace {

constexpr int kSpacing = 12;
constexpr int kNarrow = 6;
constexpr double kReadingScale = 1.25;
constexpr int kReadingCharacters = 7;
constexpr int kAssumptionCharacters = 9;
constexpr QLatin1String kWideValue("64.1234567890123"); // the mean radiant temperature is not rounded
constexpr int kCalculateIcon = 40;
constexpr int kConverterWidth = 280; // what placing leaves free at the side
constexpr int kLeastWidth = 960;
constexpr double kScreenShare = 0.92;

// The object name is that of the form's control.
void name(QWidget& widget, const QString& objectName, const QString& accessibleName, const QString& hint)
{
    widget.setObjectName(objectName);
    widget.setAccessibleName(accessibleName);
    widget.setToolTip(tip(hint));
    widget.setAccessibleDescription(hint); // else the tooltip would stand for it, wrapped as it is
}

void scaleFont(QWidget& widget, double scale)
{
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * scale);
    widget.setFont(font);
}

} // namespace

MainWindow::MainWindow(classic::Frm_Main& form, const QString& warning) : FormWindow(form), m_form(form)
{
    setMenuBar(new MenuBar);
    buildMenus();
    buildStatus(warning);

    m_area = new ContentArea(buildContent());
    setCentralWidget(m_area);

    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    setTabOrders();
    follow(*this, m_form.standing, [this] { showStanding(); });
    m_readings[0]->setFocus();
}

QWidget* MainWindow::buildContent()
{
    auto* const content = new QWidget;
    auto* const columns = new QHBoxLayout(content);
    columns->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    columns->setSpacing(kSpacing);
    // A page of its own in place of the readings: what cannot be seen cannot be reached.
    auto* const pages = new QWidget;
    auto* const left = new QVBoxLayout(pages);
    left->setContentsMargins(0, 0, 0, 0);
    auto* const readings = new QWidget;
    auto* const column = new QVBoxLayout(readings);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSpacing);
    column->addWidget(buildReadings());
    column->addWidget(buildActions());
    column->addStretch();
    left->addWidget(readings);
    QWidget* const options = buildOptions();
    left->addWidget(options);
    follow(*options, m_form.Fra_Options.appearance, [this, readings, options] {
        const bool visible = m_form.Fra_Options.visible();
        (visible ? readings : options)->hide();
        (visible ? options : readings)->show();
    });
    columns->addWidget(pages, 2);
    columns->addWidget(buildLive(), 1);
    columns->addWidget(buildIndices(), 3);
    return content;
}

QWidget* MainWindow::readingField(Reading reading)
{
    const ReadingInfo& info = classic::kReadingInfo[static_cast<std::size_t>(reading)];
    controls::TextBox& box = m_form.calculation.readings.box(reading);

    auto* const field = new QWidget;
    auto* const layout = new QGridLayout(field);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(2);
    auto* const heading = new QLabel(toQt(info.heading));
    auto* const line = new QLineEdit;
    auto* const unit = new QLabel(toQt(info.unit()));
    if (reading == Reading::SR)
        bind(*unit, m_form.lbl_SR_unit);
    scaleFont(*line, kReadingScale);
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * kReadingCharacters);
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // as wide as there is room
    unit->setMinimumWidth(unit->fontMetrics().horizontalAdvance(QStringLiteral("W/m²")));
    name(*line, QStringLiteral("txt_") + toQt(info.key),
         toQt(info.heading) + QStringLiteral(", ") + unit->text(),
         toQt(info.hint) + (info.typing.empty() ? QString() : QStringLiteral("; ") + toQt(info.typing)));
    heading->setToolTip(line->toolTip());
    layout->addWidget(heading, 0, 0, 1, 2);
    layout->addWidget(line, 1, 0);
    layout->addWidget(unit, 1, 1);
    layout->setColumnStretch(0, 1);

    new TextBoxBinding(*line, box);
    m_readings[static_cast<std::size_t>(reading)] = line;
    return field;
}

// The arrow keys follow this arrangement.
QWidget* MainWindow::buildReadings()
{
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(kNarrow);
    grid->setVerticalSpacing(kSpacing);
    const auto pair = [this, grid](int row, Reading left, Reading right) {
        grid->addWidget(readingField(left), row, 0);
        grid->addWidget(readingField(right), row, 2);
        QLabel* const either = quietLabel(QStringLiteral("or"));
        either->setFixedHeight(m_readings.front()->sizeHint().height()); // beside the boxes
        grid->addWidget(either, row, 1, Qt::AlignBottom);
    };
    grid->addWidget(readingField(Reading::TA), 0, 0, 1, 3);
    pair(1, Reading::TG, Reading::SR);
    pair(2, Reading::DP, Reading::RH);
    grid->addWidget(readingField(Reading::WS), 3, 0, 1, 3);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(2, 1);
    return new Card(QStringLiteral("Readings"), grid);
}

QWidget* MainWindow::buildActions()
{
    auto* const picture =
        new QPushButton(QIcon(QStringLiteral(":/calculate.svg")), QStringLiteral("Calculate"));
    picture->setIconSize({kCalculateIcon, kCalculateIcon});
    scaleFont(*picture, kReadingScale);
    bind(*picture, m_form.Img_Calculate);
    name(*picture, QStringLiteral("Img_Calculate"), QStringLiteral("Calculate"),
         QStringLiteral("Calculates the indices and shows the results table (Enter in a reading)"));

    auto* const first = new QPushButton;
    bind(*first, m_form.cmd_Show_Results);
    name(*first, QStringLiteral("cmd_Show_Results"), first->text(),
         QStringLiteral("Calculates the indices and shows the results table"));
    auto* const second = new QPushButton;
    bind(*second, m_form.cmd_Calculate);
    name(*second, QStringLiteral("cmd_Calculate"), second->text(),
         QStringLiteral("Calculates the indices without showing the results table"));

    auto* const actions = new QWidget;
    auto* const grid = new QGridLayout(actions);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(kNarrow);
    grid->addWidget(picture, 0, 0, 1, 2);
    grid->addWidget(first, 1, 0);
    grid->addWidget(second, 1, 1);
    auto* const hint = quietLabel(first->text() + QStringLiteral(" shows the results table, ") +
                                  second->text() + QStringLiteral(" only the live quantities."));
    hint->setWordWrap(true);
    grid->addWidget(hint, 2, 0, 1, 2);
    m_tabOrder.insert(m_tabOrder.end(), {picture, first, second});
    return actions;
}

QWidget* MainWindow::buildLive()
{
    auto* const grid = new QGridLayout;
    grid->setHorizontalSpacing(kNarrow);
    grid->setVerticalSpacing(kSpacing);
    QFont bold = font();
    bold.setBold(true);
    grid->setColumnMinimumWidth(2, QFontMetrics(bold, this).horizontalAdvance(kWideValue));
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
        const formulas::LiveInfo& info = formulas::kLiveInfo[i];
        const int row = static_cast<int>(i);
        auto* const symbol = new QLabel(toQt(info.symbol));
        QFont italic = symbol->font();
        italic.setItalic(true);
        symbol->setFont(italic);
        auto* const value = new QLabel;
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        value->setFont(bold);
        name(*value, toQt(info.symbol), toQt(info.name) + QStringLiteral(", ") + toQt(info.unit),
             toQt(info.name) + QStringLiteral(" (") + toQt(info.symbol) + QStringLiteral(") in ") +
                 toQt(info.unit));
        bind(*value, m_form.calculation.liveLabel(static_cast<formulas::Live>(i)));
        m_live.push_back(value);
        auto* const text = new QLabel(toQt(info.name));
        text->setBuddy(value);
        grid->addWidget(text, row, 0);
        grid->addWidget(symbol, row, 1);
        grid->addWidget(value, row, 2);
        grid->addWidget(new QLabel(toQt(info.unit)), row, 3);
    }
    grid->setColumnStretch(2, 1);
    auto* const inForce = new QLabel;
    inForce->setWordWrap(true);
    bind(*inForce, m_form.lbl_In_Force);
    const int last = static_cast<int>(formulas::kLiveCount);
    grid->addWidget(inForce, last, 0, 1, 4);
    grid->setRowStretch(last + 1, 1);
    auto* const card = new Card({}, grid);
    bind(card->heading(), m_form.lbl_Live);
    return card;
}

QWidget* MainWindow::buildIndices()
{
    auto* const search = m_search = searchLine(QStringLiteral("Search the list"));
    name(*search, QStringLiteral("txt_Search_List"), QStringLiteral("Search the index list"),
         QStringLiteral("Moves the list to the first index whose name contains the text (Ctrl+F)"));
    new TextBoxBinding(*search, m_form.txt_Search_List);

    auto* const list = new IndexList(m_form.List_Indices);
    name(*list, QStringLiteral("List_Indices"), QStringLiteral("Indices"),
         QStringLiteral("Ticked indices are calculated"));

    auto* const all = new QCheckBox;
    bind(*all, m_form.Check_All_Indices);
    name(*all, QStringLiteral("Check_All_Indices"), QStringLiteral("All indices"),
         QStringLiteral("Ticks all indices of the list or none"));

    auto* const layout = new QVBoxLayout;
    auto* const top = new QHBoxLayout;
    top->addWidget(search, 1);
    top->addWidget(all);
    layout->addLayout(top);
    layout->addWidget(list, 1);
    m_tabOrder.insert(m_tabOrder.begin(), {search, list, all});
    return new Card(QStringLiteral("Indices"), layout);
}

void MainWindow::assumptionRow(QGridLayout& grid, classic::Assumption assumption, controls::Label& heading)
{
    const classic::AssumptionInfo& info = classic::infoOf(assumption);
    controls::TextBox& box = *m_form.calculation.assumptions.all()[static_cast<std::size_t>(assumption)];
    const QString hint = toQt(info.hint);
    const int row = grid.rowCount();
    auto* const label = new QLabel;
    auto* const line = new QLineEdit;
    bind(*label, heading);
    new TextBoxBinding(*line, box);
    name(*line, QStringLiteral("txt_") + toQt(info.key), label->text(), hint);
    label->setToolTip(hint);
    grid.addWidget(label, row, 0);
    line->setFixedWidth(line->fontMetrics().averageCharWidth() * kAssumptionCharacters);
    grid.addWidget(line, row, 1);
    grid.addWidget(new QLabel(toQt(info.unit)), row, 2);
    m_tabOrder.push_back(line);
}

void MainWindow::choiceRows(QGridLayout& grid, controls::Label& heading, controls::OptionGroup& group,
                            const QStringList& hints)
{
    auto* const label = new QLabel;
    bind(*label, heading);
    label->setWordWrap(true);
    const int row = grid.rowCount();
    grid.addWidget(label, row, 0, 1, 3);
    std::vector<QRadioButton*> buttons;
    auto* const choices = new QWidget; // holds the buttons of one choice together
    auto* const layout = new QHBoxLayout(choices);
    layout->setContentsMargins(0, 0, 0, 0);
    for (std::size_t option = 0; option < group.captions().size(); ++option) {
        auto* const button = new QRadioButton;
        const QString text = toQt(group.captions()[option]);
        name(*button, text, label->text() + QStringLiteral(" ") + text,
             hints[static_cast<qsizetype>(option)]);
        layout->addWidget(button);
        buttons.push_back(button);
        m_tabOrder.push_back(button);
    }
    layout->addStretch();
    bindChoices(buttons, group);
    grid.addWidget(choices, row + 1, 0, 1, 3);
}

QWidget* MainWindow::buildOptions()
{
    auto* const content = new QGridLayout;
    content->setHorizontalSpacing(kSpacing);
    using classic::Assumption;
    assumptionRow(*content, Assumption::ArAdu, m_form.lbl_ArAdu);
    assumptionRow(*content, Assumption::Emmisivity, m_form.lbl_Emmisivity);
    assumptionRow(*content, Assumption::Barometric, m_form.lbl_Barometric);
    assumptionRow(*content, Assumption::Height, m_form.lbl_Height);
    assumptionRow(*content, Assumption::Weight, m_form.lbl_Weight);
    assumptionRow(*content, Assumption::Friction, m_form.lbl_Friction);

    choiceRows(*content, m_form.lbl_Limits, m_form.Opt_Limits,
               {QStringLiteral("An index is blank outside the conditions that it is meant for"),
                QStringLiteral("An index shows what its formula gives, whatever the conditions")});
    choiceRows(*content, m_form.lbl_Rules, m_form.Opt_Rules,
               {QStringLiteral("A step without a result ends the calculation; dew point and air temperature "
                               "are compared as texts"),
                QStringLiteral("A step without a result leaves blank only what depends on it; dew point and "
                               "air temperature are compared as numbers"),
                QStringLiteral("As robust, and no reading is rounded: globe, wet bulbs and votes are exact "
                               "roots of their heat balances, with one globe for all indices")});

    auto* const close = new QPushButton(QStringLiteral("Close"));
    close->setToolTip(QStringLiteral("Hides the options; what is set here stays in force (Escape)"));
    connect(close, &QPushButton::clicked, this, [this] { turnOptions(); });
    pressWithEnter(*close);
    m_tabOrder.push_back(close);
    content->addWidget(close, content->rowCount(), 0, 1, 3, Qt::AlignRight);
    content->setRowStretch(content->rowCount(), 1);

    m_firstOption = content->itemAtPosition(1, 1)->widget();
    auto* const page = new Card(toQt(m_form.Menu_Options.caption()), content);
    page->setObjectName(QStringLiteral("Fra_Options"));
    // Wherever the focus is: a click beside the boxes leaves it in the list.
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, [this] {
        if (m_form.Fra_Options.visible())
            turnOptions();
    });
    return page;
}

void MainWindow::buildMenus()
{
    const auto add = [](QWidget& menu, controls::MenuEntry& entry, char mnemonic, const QString& tip) {
        auto* const action = new QAction(&menu);
        bind(*action, entry, mnemonic);
        if (!tip.isEmpty())
            action->setProperty("tip", tip);
        menu.addAction(action);
        return action;
    };
    QMenuBar& bar = *menuBar();
    add(bar, m_form.Menu_Raw_Data, 'R', QStringLiteral("Calculates many rows of readings"));
    add(bar, m_form.Menu_Radiation, 'S', QStringLiteral("Estimates solar radiation for a day and a place"));
    add(bar, m_form.Menu_Converter, 'C', QStringLiteral("Converts other units into those of the readings"));
    listen(*this, m_form.Menu_Converter.click, [this] { tellPlace(); }); // where it docks

    auto* const hotkeys = new QMenu(withMnemonic(m_form.menu_Hotkeys.caption(), 'H'), &bar);
    for (controls::MenuEntry* const entry :
         {&m_form.menu_Enter, &m_form.menu_Backspace, &m_form.Menu_Delete, &m_form.Menu_Arrows})
        add(*hotkeys, *entry, 0, {});
    bar.addMenu(hotkeys);

    const auto* const options = add(bar, m_form.Menu_Options, 'O',
                                    QStringLiteral("Assumptions on body and site, and the use of limits"));
    connect(options, &QAction::triggered, this, [this] { focusOptions(); });
}

void MainWindow::buildStatus(const QString& warning)
{
    statusBar()->setContentsMargins(kNarrow, 0, 0, 0);
    m_status = new CutLabel;
    statusBar()->addWidget(m_status, 1);
    if (!warning.isEmpty()) {
        auto* const label = new CutLabel;
        label->showText(warning);
        statusBar()->addPermanentWidget(label, 1);
    }
}

// Figures of earlier readings stand there in quieter text.
void MainWindow::showStanding()
{
    for (QLabel* const value : m_live)
        value->setForegroundRole(m_form.liveIsEarlier() ? QPalette::PlaceholderText : QPalette::NoRole);
    const shell::StatusLine status = shell::statusLine(m_form);
    m_status->setForegroundRole(status.ofEarlier ? QPalette::PlaceholderText : QPalette::NoRole);
    m_status->showText(toQt(status.text));
}

void MainWindow::setTabOrders()
{
    for (std::size_t i = 1; i < m_readings.size(); ++i)
        setTabOrder(m_readings[i - 1], m_readings[i]);
    QWidget* last = m_readings.back();
    for (QWidget* const widget : m_tabOrder) {
        setTabOrder(last, widget);
        last = widget;
    }
}

void MainWindow::turnOptions()
{
    m_form.Menu_Options.click.raise();
    focusOptions();
}

// The options hide the readings: the keyboard goes to what is in sight, which stands at the left top.
void MainWindow::focusOptions()
{
    if (m_form.Fra_Options.visible())
        m_firstOption->setFocus(Qt::ShortcutFocusReason);
    else
        m_readings.front()->setFocus(Qt::OtherFocusReason);
    m_area->horizontalScrollBar()->setValue(0);
    m_area->verticalScrollBar()->setValue(0);
}

void MainWindow::placeOnScreen()
{
    const QRect usable = screen()->availableGeometry();
    // As wide as it likes, but with room for the converter; the index list gives way. A screen too narrow
    // for both is the window's alone.
    const int beside = usable.width() - kConverterWidth;
    const int width = std::min(sizeHint().width(), beside < kLeastWidth ? usable.width() : beside);
    resize(width, std::min(sizeHint().height(), static_cast<int>(usable.height() * kScreenShare)));
    const int free = std::max(usable.width() - width, 0);
    placeWithin(usable, usable.topLeft() + QPoint((free - std::min(free, kConverterWidth)) / 2,
                                                  (usable.height() - height()) / 3));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (m_form.visible() && m_form.Form_QueryUnload())
        event->ignore();
    else
        event->accept();
}

} // namespace comfortics::ui
