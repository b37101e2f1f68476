// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/radiation_window.h"

#include "ui/bindings.h"
#include "ui/chart_panel.h"
#include "ui/grid_view.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QCalendarWidget>
#include <QCloseEvent>
#include <QCompleter>
#include <QCursor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
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

} // namespace

RadiationWindow::RadiationWindow(radiation::Frm_Radiation& form, const Surroundings& surroundings,
                                 const QWidget& main, std::function<void()> closed)
    : FormWindow(form), m_form(form), m_around(surroundings), m_closed(std::move(closed))
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
    resize(kSize);
    placeWithin(usableBeside(main), main.frameGeometry().topLeft());
}

// --- inputs

QWidget* RadiationWindow::buildInputs()
{
    auto* const inputs = new QWidget;
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
    auto* const calendar = new QCalendarWidget;
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setAccessibleName(QStringLiteral("Date"));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) // red is hard to read on a dark ground
        calendar->setWeekdayTextFormat(day, {});
    calendar->setToolTip(QStringLiteral("Click on the day to calculate"));
    follow(*calendar, m_form.Calendar.change,
           [this, calendar] { calendar->setSelectedDate(toQt(m_form.Calendar.value())); });
    const auto pick = [this, calendar] { m_form.Calendar.pick(toDate(calendar->selectedDate())); };
    connect(calendar, &QCalendarWidget::clicked, this, pick);
    connect(calendar, &QCalendarWidget::activated, this, pick);

    // The form's own box of the day is out of sight; nobody could tell that no day is picked.
    auto* const day = quietLabel({});
    follow(*day, m_form.txt_Day.change, [this, day] {
        const QString number = ui::toQt(m_form.txt_Day.text());
        day->setText(number.isEmpty() ? QStringLiteral("No day is picked yet: it counts as day 0.")
                                      : QStringLiteral("Day of the year: ") + number);
    });
    auto* const layout = new QVBoxLayout;
    layout->addWidget(calendar);
    layout->addWidget(day);
    return new Card(QStringLiteral("Day"), layout);
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
        grid->addWidget(line, row, 1, 1, 2);
        ++row;
    };
    add(m_form.lbl_lat, m_form.txt_lat, QStringLiteral("Decimal degrees with a point, north positive"));
    add(m_form.lbl_Lon, m_form.txt_Lon, QStringLiteral("Decimal degrees with a point, east positive"));
    add(m_form.lbl_GMT, m_form.txt_GMT,
        QStringLiteral("Hours that the clock is ahead of Greenwich; west of it the times of the table "
                       "are shifted, see the user guide"));

    auto* const offer = new QLabel;
    offer->setWordWrap(true);
    offer->setMinimumHeight(2 * offer->fontMetrics().lineSpacing()); // nothing moves when it fills
    bind(*offer, m_form.lbl_Offset);
    auto* const take = new QPushButton;
    bind(*take, m_form.cmd_Take_Offset);
    take->setToolTip(QStringLiteral("Writes this offset into the box"));
    grid->addWidget(offer, row, 0, 1, 2);
    grid->addWidget(take, row, 2);
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
    auto* const map = new MapWidget(m_around.tiles);
    map->setAccessibleName(QStringLiteral("Map"));
    map->show({.latitude = radiation::kMapOpening.latitude, .longitude = radiation::kMapOpening.longitude},
              radiation::kMapOpening.zoom);
    connect(map, &MapWidget::picked, this, [this](const QString& text, radiation::GeoPoint point) {
        m_around.tilePlaces.supply(fromQt(text));
        offerClock(point);
    });
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
    connect(m_worldMap, &MapWidget::picked, this, [this](const QString& text, radiation::GeoPoint point) {
        m_form.takePlace(fromQt(text));
        offerClock(point);
    });

    auto* const search = searchLine(QStringLiteral("Search a place, for instance Athens, Greece"));
    search->setAccessibleName(QStringLiteral("Search a place"));
    auto* const found = new QStandardItemModel(this);
    auto* const completer = new QCompleter(found, search);
    completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    search->setCompleter(completer);
    connect(search, &QLineEdit::textEdited, this, [this, found](const QString& text) {
        found->clear();
        for (const Place* place : m_world->places().search(fromQt(text), kPlacesOffered)) {
            const QString province = place->province.empty() ? QString() : ui::toQt(", " + place->province);
            auto* const item =
                new QStandardItem(ui::toQt(place->name) + province + ui::toQt(", " + place->country));
            item->setData(QVariant::fromValue(static_cast<const void*>(place)));
            found->appendRow(item);
        }
    });
    connect(completer, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) {
                goTo(*static_cast<const Place*>(index.data(Qt::UserRole + 1).value<const void*>()));
            });
    connect(search, &QLineEdit::returnPressed, this, [this, search] {
        if (const auto best = m_world->places().search(fromQt(search->text()), 1); !best.empty())
            goTo(*best.front());
    });

    auto* const layout = new QVBoxLayout;
    layout->addWidget(search);
    layout->addWidget(m_worldMap, 1);
    auto* const card = new Card(ui::toQt(m_form.fra_World_Map.caption()), layout);
    card->setObjectName(QStringLiteral("fra_World_Map"));
    bindAppearance(*card, m_form.fra_World_Map);
    return card;
}

void RadiationWindow::goTo(const Place& place)
{
    m_worldMap->show(place.at, kPlaceZoom);
    m_worldMap->setMarker(place.at);
    m_form.takePlace(radiation::placeText(place.at, radiation::decimalsFor(m_worldMap->view().zoom())));
    m_form.offerOffset(place.zone, place.title());
}

void RadiationWindow::offerClock(radiation::GeoPoint point)
{
    const auto near = m_world->places().nearest(point, kNearKilometres);
    m_form.offerOffset(near ? near->place->zone : std::string(),
                       near ? "Near " + near->place->title() : std::string());
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

    auto* const table = new GridView(m_form.Flex_Radiation);
    table->setAccessibleName(QStringLiteral("Solar radiation"));
    table->wrapHeaders();
    table->onResize([this](int width, int height) { m_form.resizeTable(width, height); });
    m_chart = new ChartPanel(m_form.Flex_Radiation, m_around.files, m_around.messages);
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
    layout->addWidget(halves, 1);
    return page;
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
