// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/radiation_window.h"

#include "ui/bindings.h"
#include "ui/chart_panel.h"
#include "ui/grid_view.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QCloseEvent>
#include <QCompleter>
#include <QCursor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QStackedLayout>
#include <QStandardItemModel>
#include <QTextCharFormat>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

// The pictures and the map lie in a static library, from which the linker takes what is asked for.
static void addRadiationPictures()
{
    Q_INIT_RESOURCE(radiation);
}

namespace comfortics::ui {

using radiation::Date;
using radiation::Place;

namespace {

constexpr int kSpacing = 10;
constexpr QSize kSize(1060, 780);
constexpr int kOktaPixels = 40;
constexpr int kOfferLines = 3; // of the longest name of a town
constexpr std::size_t kPlacesOffered = 12;
constexpr double kPlaceZoom = 8;
constexpr double kNearKilometres = 200; // within which a place's clock is offered

QIcon oktaIcon(int okta)
{
    return QIcon(QStringLiteral(":/okta/%1.svg").arg(okta));
}

Date toDate(const QDate& date)
{
    return {std::chrono::year(date.year()), std::chrono::month(static_cast<unsigned>(date.month())),
            std::chrono::day(static_cast<unsigned>(date.day()))};
}

QDate toQt(Date date)
{
    return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day()))};
}

// A text in lines, in the same room whatever it is: a layout that asked how high it is would move all
// else with it.
class SteadyLabel final : public QLabel {
public:
    explicit SteadyLabel(int lines) : m_lines(lines)
    {
        setWordWrap(true);
        setAlignment(Qt::AlignLeft | Qt::AlignTop);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    bool hasHeightForWidth() const override { return false; }
    QSize sizeHint() const override { return {0, m_lines * fontMetrics().lineSpacing()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

private:
    int m_lines;
};

} // namespace

RadiationWindow::RadiationWindow(radiation::Frm_Radiation& form, const Surroundings& surroundings,
                                 const QWidget& main, std::function<void()> closed)
    : FormWindow(form, QStringLiteral("solar-radiation")), m_form(form), m_around(surroundings),
      m_closed(std::move(closed))
{
    addRadiationPictures();
    m_world = new WorldSource(this);
    auto* const content = new QWidget;
    auto* const pages = new QStackedLayout(content);
    pages->addWidget(buildInputs());
    pages->addWidget(buildTable());
    follow(*content, m_form.Fra_table.appearance, [this, pages] {
        if (m_form.Fra_table.visible())
            m_chart->refresh();
        pages->setCurrentIndex(m_form.Fra_table.visible() ? 1 : 0);
    });
    setCentralWidget(content);
    listen(*this, m_form.placeChange, [this] { followPlace(); });
    resize(kSize);
    placeWithin(usableBeside(main), main.frameGeometry().topLeft());
}

// --- inputs

QWidget* RadiationWindow::buildInputs()
{
    auto* const inputs = new QWidget;
    inputs->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred); // or the map would move with its texts
    auto* const column = new QVBoxLayout(inputs);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSpacing);
    column->addWidget(buildDay());
    column->addWidget(buildPlace());
    column->addWidget(buildClouds(), 1);

    auto* const worldMap = new QPushButton;
    bind(*worldMap, m_form.cmd_World_Map);
    worldMap->setToolTip(QStringLiteral("Opens or closes a map of the world, which needs no connection"));
    auto* const calculate = new QPushButton;
    connect(calculate, &QPushButton::clicked, this, &RadiationWindow::finishTypedDay);
    bind(*calculate, m_form.cmd_Calculate);
    calculate->setIcon(QIcon(QStringLiteral(":/calculate.svg")));
    calculate->setShortcut(Qt::Key_F5);
    calculate->setToolTip(QStringLiteral("Calculates the table of the day (F5)"));
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(worldMap);
    buttons->addWidget(calculate, 1);
    column->addLayout(buttons);

    auto* const page = new QWidget;
    auto* const layout = new QHBoxLayout(page);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    layout->setSpacing(kSpacing);
    layout->addWidget(inputs);
    layout->addWidget(buildMaps(), 1);
    return new ContentArea(page);
}

QWidget* RadiationWindow::buildDay()
{
    auto* const calendar = m_calendar = new QCalendarWidget;
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setAccessibleName(QStringLiteral("Date"));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) // red is hard to read on a dark ground
        calendar->setWeekdayTextFormat(day, {});
    calendar->setToolTip(QStringLiteral("The day to calculate: click on it, move to it or type it"));
    follow(*calendar, m_form.Calendar.change,
           [this, calendar] { calendar->setSelectedDate(toQt(m_form.Calendar.value())); });
    const auto pick = [this, calendar] { m_form.Calendar.pick(toDate(calendar->selectedDate())); };
    connect(calendar, &QCalendarWidget::clicked, this, pick);
    connect(calendar, &QCalendarWidget::activated, this, pick);
    connect(calendar, &QCalendarWidget::selectionChanged, this, [this, calendar, pick] {
        if (toDate(calendar->selectedDate()) != m_form.Calendar.value())
            pick();
    });
    pick(); // the day that is shown at start counts, too

    // The calendar may show another month, and the form's own box of the day is out of sight.
    auto* const day = quietLabel({});
    day->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    follow(*day, m_form.Calendar.click, [this, day] {
        const Date date = m_form.Calendar.value();
        day->setText(QStringLiteral("Day %1 of the year, %2")
                         .arg(radiation::dayOfYear(date))
                         .arg(toQt(date).toString(Qt::ISODate)));
    });
    auto* const layout = new QVBoxLayout;
    layout->addWidget(calendar);
    layout->addWidget(day);
    return new Card(QStringLiteral("Day"), layout);
}

// A typed day shows at once and counts a moment later, or with Enter. Where none is being typed, Enter
// picks the day that is selected.
void RadiationWindow::finishTypedDay()
{
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(m_calendar->focusProxy(), &enter);
}

QWidget* RadiationWindow::buildPlace()
{
    auto* const grid = new QGridLayout;
    int row = 0;
    const auto add = [&](controls::Label& heading, controls::TextBox& box, const QString& hint) {
        auto* const label = new QLabel;
        bind(*label, heading);
        auto* const line = new QLineEdit;
        new TextBoxBinding(*line, box);
        line->setAccessibleName(label->text());
        line->setToolTip(hint);
        label->setBuddy(line);
        grid->addWidget(label, row, 0);
        grid->addWidget(line, row, 1, 1, &box == &m_form.txt_GMT ? 1 : 2);
        ++row;
    };
    add(m_form.lbl_lat, m_form.txt_lat, QStringLiteral("Decimal degrees with a point, north positive"));
    add(m_form.lbl_Lon, m_form.txt_Lon, QStringLiteral("Decimal degrees with a point, east positive"));
    add(m_form.lbl_GMT, m_form.txt_GMT,
        QStringLiteral("Hours that the clock is ahead of Greenwich; west of it the times of the table "
                       "are shifted, see the user guide"));

    // Both have their room before they show: nothing may move under the mouse.
    auto* const offer = new SteadyLabel(kOfferLines);
    bind(*offer, m_form.lbl_Offset);
    auto* const take = new QPushButton;
    bind(*take, m_form.cmd_Take_Offset);
    take->setToolTip(QStringLiteral("Writes the offset of the place into the box"));
    QSizePolicy room = take->sizePolicy();
    room.setRetainSizeWhenHidden(true);
    take->setSizePolicy(room);
    grid->addWidget(take, row - 1, 2);
    grid->addWidget(offer, row, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    return new Card(QStringLiteral("Place"), grid);
}

QWidget* RadiationWindow::buildClouds()
{
    auto* const heading = new QLabel;
    bind(*heading, m_form.lbl_OKTA);
    auto* const list = new QListWidget;
    list->setAccessibleName(heading->text());
    for (std::size_t i = 0; i < m_form.List_OKTA.count(); ++i)
        new QListWidgetItem(oktaIcon(m_form.img_OKTA[i].okta()), ui::toQt(m_form.List_OKTA.item(i)), list);
    connect(list, &QListWidget::currentRowChanged, this, [this](int chosen) {
        if (chosen >= 0 && m_form.List_OKTA.currentRow() != static_cast<std::size_t>(chosen))
            m_form.List_OKTA.choose(static_cast<std::size_t>(chosen));
    });
    connect(list, &QListWidget::itemClicked, this,
            [this, list] { m_form.List_OKTA.choose(static_cast<std::size_t>(list->currentRow())); });
    follow(*list, m_form.List_OKTA.current, [this, list] {
        if (const auto current = m_form.List_OKTA.currentRow())
            list->setCurrentRow(static_cast<int>(*current));
    });

    auto* const picture = new QLabel;
    follow(*picture, m_form.img_current_OKTA.change, [this, picture] {
        picture->setPixmap(oktaIcon(m_form.img_current_OKTA.okta()).pixmap(kOktaPixels, kOktaPixels));
        picture->setAccessibleName(QStringLiteral("Okta %1").arg(m_form.img_current_OKTA.okta()));
    });
    auto* const top = new QHBoxLayout;
    top->addWidget(heading, 1);
    top->addWidget(picture);
    auto* const layout = new QVBoxLayout;
    layout->addLayout(top);
    layout->addWidget(list, 1);
    return new Card(QStringLiteral("Clouds"), layout);
}

// --- maps

QWidget* RadiationWindow::buildMaps()
{
    auto* const maps = new QWidget;
    auto* const layout = new QVBoxLayout(maps);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacing);
    layout->addWidget(buildConnectedMap(), 1);
    layout->addWidget(buildWorldMap(), 1);

    m_mapHint = new QWidget;
    auto* const invitation = new QVBoxLayout(m_mapHint);
    auto* const hint = quietLabel(QStringLiteral("The world map gives latitude and longitude by a click."));
    auto* const open = new QPushButton(QStringLiteral("Open the map"));
    connect(open, &QPushButton::clicked, this, [this] { m_form.cmd_World_Map.setValue(true); });
    invitation->addStretch();
    invitation->addWidget(hint, 0, Qt::AlignHCenter);
    invitation->addWidget(open, 0, Qt::AlignHCenter);
    invitation->addStretch();
    layout->addWidget(m_mapHint, 1);
    for (const QString& name : {QStringLiteral("fra_WebBrowser"), QStringLiteral("fra_World_Map")})
        maps->findChild<QWidget*>(name)->installEventFilter(this);
    return maps;
}

QWidget* RadiationWindow::buildConnectedMap()
{
    auto* const map = m_tileMap = new MapWidget(m_around.tiles);
    map->setAccessibleName(QStringLiteral("Map"));
    map->show({.latitude = radiation::kMapOpening.latitude, .longitude = radiation::kMapOpening.longitude},
              radiation::kMapOpening.zoom);
    connect(map, &MapWidget::picked, this,
            [this](const QString& text) { m_around.tilePlaces.supply(fromQt(text)); });
    auto* const layout = new QVBoxLayout;
    layout->addWidget(map);
    auto* const card = new Card(ui::toQt(m_form.fra_WebBrowser.caption()), layout);
    card->setObjectName(QStringLiteral("fra_WebBrowser"));
    bindAppearance(*card, m_form.fra_WebBrowser);
    auto* const timer = new QTimer(card);
    bind(*timer, m_form.tmr_WebBrowser);
    return card;
}

QWidget* RadiationWindow::buildWorldMap()
{
    m_worldMap = new MapWidget(*m_world);
    m_worldMap->setAccessibleName(QStringLiteral("World map"));
    connect(m_worldMap, &MapWidget::picked, this,
            [this](const QString& text) { m_form.takePlace(fromQt(text)); });

    auto* const search = searchLine(QStringLiteral("Search a place, for instance Athens, Greece"));
    search->setAccessibleName(QStringLiteral("Search a place"));
    auto* const found = new QStandardItemModel(this);
    auto* const completer = new QCompleter(found, search);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    search->setCompleter(completer);
    m_searchNote = new CutLabel;
    connect(search, &QLineEdit::textEdited, this, [this, found](const QString& text) {
        found->clear();
        for (const Place* place : m_world->places().search(fromQt(text), kPlacesOffered)) {
            auto* const item = new QStandardItem(ui::toQt(place->fullTitle()));
            item->setData(QVariant::fromValue(static_cast<const void*>(place)));
            found->appendRow(item);
        }
        noteSearch(text, found->rowCount() > 0);
    });
    connect(completer, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) {
                goTo(*static_cast<const Place*>(index.data(Qt::UserRole + 1).value<const void*>()));
            });
    connect(search, &QLineEdit::returnPressed, this, [this, search] {
        const auto best = m_world->places().search(fromQt(search->text()), 1);
        noteSearch(search->text(), !best.empty());
        if (!best.empty())
            goTo(*best.front());
    });

    auto* const layout = new QVBoxLayout;
    layout->addWidget(search);
    layout->addWidget(m_searchNote);
    layout->addWidget(m_worldMap, 1);
    auto* const card = new Card(ui::toQt(m_form.fra_World_Map.caption()), layout);
    card->setObjectName(QStringLiteral("fra_World_Map"));
    bindAppearance(*card, m_form.fra_World_Map);
    return card;
}

void RadiationWindow::noteSearch(const QString& text, bool isFound)
{
    const QString name = text.trimmed();
    m_searchNote->showText(isFound || name.isEmpty()
                               ? QString()
                               : QStringLiteral("No place is found by the name \"%1\".").arg(name));
}

void RadiationWindow::goTo(const Place& place)
{
    m_worldMap->show(place.at, kPlaceZoom);
    m_form.takePlace(radiation::placeText(place.at, radiation::decimalsFor(m_worldMap->view().zoom())));
    m_form.offerOffset(place.zone, place.title());
}

// Marks and clock go with the boxes, whoever wrote to them.
void RadiationWindow::followPlace()
{
    const auto place = m_form.place();
    m_tileMap->setMarker(place);
    m_worldMap->setMarker(place);
    const auto near = place ? m_world->places().nearest(*place, kNearKilometres) : std::nullopt;
    if (near)
        m_form.offerOffset(near->place->zone, "Near " + near->place->title());
}

// --- the table

QWidget* RadiationWindow::buildTable()
{
    m_menu = new QMenu(ui::toQt(m_form.Menu_copy.caption()), this);
    auto* const page = new QWidget;
    addEntry(*m_menu, m_form.Menu_copy_copy, 'A', {}, *page);
    addEntry(*m_menu, m_form.Menu_copy_selection, 'S', QKeySequence::Copy, *page);
    listen(*this, m_form.popUpMenu_copy, [this] { m_menu->popup(QCursor::pos()); });

    auto* const back = new QPushButton;
    bind(*back, m_form.cmd_Back);
    back->setShortcut(Qt::Key_Escape);
    back->setToolTip(QStringLiteral("Back to the inputs (Escape)"));
    auto* const menu = new QPushButton(withMnemonic(m_form.Menu_copy.caption(), 'M'));
    menu->setMenu(m_menu);
    menu->setToolTip(QStringLiteral("Copies the table; the right mouse button opens it, too"));
    auto* const save = new QPushButton;
    bind(*save, m_form.cmd_Export);
    save->setShortcut(QKeySequence::Save);
    save->setToolTip(QStringLiteral("Saves the table as CSV (Ctrl+S); add .csv to the name"));
    auto* const top = new QHBoxLayout;
    top->addWidget(back);
    top->addStretch();
    top->addWidget(menu);
    top->addWidget(save);

    auto* const heading = new QLabel;
    heading->setWordWrap(true);
    heading->setTextInteractionFlags(Qt::TextSelectableByMouse);
    bind(*heading, m_form.lbl_Table);
    auto* const table = new GridView(m_form.Flex_Radiation);
    table->setAccessibleName(QStringLiteral("Solar radiation"));
    table->wrapHeaders();
    table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    table->onResize([this](int width, int height) { m_form.resizeTable(width, height); });
    m_chart = new ChartPanel(m_form.Flex_Radiation, m_form.lbl_Table, m_around.files, m_around.messages);
    auto* const halves = new QSplitter(Qt::Vertical);
    halves->setChildrenCollapsible(false);
    halves->addWidget(table);
    halves->addWidget(m_chart);
    halves->setStretchFactor(0, 1);
    halves->setStretchFactor(1, 1);

    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    layout->setSpacing(kSpacing);
    layout->addLayout(top);
    layout->addWidget(heading);
    layout->addWidget(halves, 1);
    return new ContentArea(page);
}

// A map takes the place of the hint.
bool RadiationWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (m_mapHint && (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent))
        m_mapHint->setVisible(!m_form.fra_WebBrowser.visible() && !m_form.fra_World_Map.visible());
    return FormWindow::eventFilter(watched, event);
}

void RadiationWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    m_closed();
}

} // namespace comfortics::ui
