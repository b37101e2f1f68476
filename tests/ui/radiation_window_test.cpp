// SPDX-License-Identifier: GPL-3.0-or-later
//
// The radiation window: its widgets and controls, clicks on the maps, tiles from a server that the
// test starts on this machine, the chart.
#include "temporary_folder.h"
#include "test_program.h"

#include "ui/chart_panel.h"
#include "ui/grid_view.h"
#include "ui/map_services.h"
#include "ui/radiation_window.h"
#include "ui/text.h"

#include <QBuffer>
#include <QCalendarWidget>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace comfortics::ui {
namespace {

using radiation::Date;
using radiation::Frm_Radiation;
using radiation::GeoPoint;
using tests::button;
using tests::find;
using tests::press;

constexpr Date kToday{std::chrono::year(2024), std::chrono::March, std::chrono::day(5)};
constexpr int kPatience = 5000; // ms

struct Connected final : radiation::Connection {
    bool connected() override { return true; }
};

/// Answers each request with the same bytes; without any, the request waits.
struct TileServer : QTcpServer {
    QByteArray asked;

    explicit TileServer(const QByteArray& answer)
    {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this, answer] {
            QTcpSocket* const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, answer, socket] {
                asked += socket->readAll();
                if (asked.endsWith("\r\n\r\n"))
                    socket->write(answer);
            });
        });
    }
    QString address() const
    {
        return QStringLiteral("http://127.0.0.1:%1/{z}/{x}/{y}.png").arg(serverPort());
    }
};

QByteArray answer(const QByteArray& body, const QByteArray& status = "200 OK")
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
           body;
}

/// A green picture of the given edge, as the answer of a server.
QByteArray picture(int edge, const QByteArray& status = "200 OK", const char* format = "PNG")
{
    QImage image(edge, edge, QImage::Format_RGB32);
    image.fill(Qt::green);
    QByteArray body;
    QBuffer buffer(&body);
    EXPECT_TRUE(image.save(&buffer, format)) << format;
    return answer(body, status);
}

class RadiationWindowTest : public testing::Test {
protected:
    void open(const QString& address = {})
    {
        tiles = std::make_unique<TileSource>(TileSettings{address, QStringLiteral("the test")});
        tilePlaces = std::make_unique<TilePlaces>(*tiles);
        form = std::make_unique<Frm_Radiation>(
            Frm_Radiation::Surroundings{messages, clipboard, files, connection, *tilePlaces, zones}, kToday);
        window = std::make_unique<RadiationWindow>(
            *form, RadiationWindow::Surroundings{files, messages, *tiles, *tilePlaces}, main,
            [this] { ++closed; });
        form->show();
    }

    QWidget main;
    tests::RecordedMessages messages;
    tests::RecordedClipboard clipboard;
    tests::PreparedFiles files;
    Connected connection;
    DesktopTimeZones zones;
    std::unique_ptr<TileSource> tiles;
    std::unique_ptr<TilePlaces> tilePlaces;
    std::unique_ptr<Frm_Radiation> form;
    std::unique_ptr<RadiationWindow> window;
    int closed = 0;
};

TEST_F(RadiationWindowTest, HasAWidgetForEachControl)
{
    open();
    for (const auto& [name, box] : {std::pair<const char*, controls::TextBox&>{"Latitude:", form->txt_lat},
                                    {"Longitude:", form->txt_Lon},
                                    {"GMT (time):", form->txt_GMT}}) {
        auto& line = find<QLineEdit>(*window, name);
        line.setText(QStringLiteral("12.5"));
        EXPECT_EQ(box.text(), "12.5");
        box.setText("-7");
        EXPECT_EQ(line.text(), QStringLiteral("-7"));
    }

    auto& list = find<QListWidget>(*window, "Cloud Cover (OKTA):");
    list.setCurrentRow(8);
    EXPECT_EQ(form->okta(), 8);
    EXPECT_EQ(tests::nameless(*window), "");
}

// The day that the calendar shows is the day that is calculated.
TEST_F(RadiationWindowTest, CountsADayHoweverItIsPicked)
{
    open();
    auto& calendar = find<QCalendarWidget>(*window, "Date");
    EXPECT_EQ(calendar.selectedDate(), QDate(2024, 3, 5));
    EXPECT_EQ(form->txt_Day.text(), "65") << "at start";
    QTest::keyClick(calendar.focusProxy(), Qt::Key_Right);
    EXPECT_EQ(form->txt_Day.text(), "66") << "by an arrow";
    EXPECT_TRUE(tests::says(*window, QStringLiteral("Day 66 of the year, 2024-03-06")));
    QTest::keyClick(calendar.focusProxy(), Qt::Key_PageDown);
    EXPECT_EQ(form->txt_Day.text(), "97") << "in another month";
    form->txt_lat.setText("40");
    QTest::keyClicks(calendar.focusProxy(), QStringLiteral("22"));
    button(*window, "Calculate").click();
    EXPECT_EQ(form->txt_Day.text(), "113") << "typed, and calculated at once";
    EXPECT_TRUE(form->lbl_Table.caption().find("(2024-04-22)") != std::string::npos);
}

TEST_F(RadiationWindowTest, ShowsTheTableAndItsChartInPlaceOfTheInputs)
{
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get())); // else its shortcuts sleep
    form->txt_lat.setText("0");
    form->txt_Lon.setText("0");
    form->Calendar.pick(Date(std::chrono::year(2024), std::chrono::March, std::chrono::day(21)));
    form->txt_GMT.setText("0");
    auto& table = find<GridView>(*window, "Solar radiation");
    QTest::keyClick(window.get(), Qt::Key_F5); // shows the button pressed for a moment
    ASSERT_TRUE(QTest::qWaitFor([&table] { return table.isVisible(); }, kPatience));
    EXPECT_EQ(table.model()->rowCount(), 660);
    const comfortics::tests::TemporaryFolder folder;
    auto& chart = *window->findChild<ChartPanel*>();
    ASSERT_EQ(chart.points().size(), 660U);
    chart.moveCursor(11 * 60 + 37);
    EXPECT_TRUE(tests::says(chart, QStringLiteral("11:37   Horizontal: 1069.9 W/m²")));
    EXPECT_EQ(table.model()->headerData(1, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignLeft) | int(Qt::AlignTop) | int(Qt::TextWordWrap));
    EXPECT_FALSE(chart.saveAs(toQt(folder.file("none/chart.png"))));
    EXPECT_TRUE(messages.boxes.back().text.starts_with("The file " + folder.file("none/chart.png") +
                                                       " cannot be written: "));

    // A clock whose hours fit no integer.
    form->txt_GMT.setText("3000000000");
    form->cmd_Calculate.setValue(true);
    chart.refresh();
    ASSERT_EQ(chart.points().size(), 660U);
    EXPECT_EQ(chart.points()[0].minute, 180000000368);

    QTest::keyClick(&table, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&table] { return !table.isVisible(); }, kPatience));
    window->close();
    EXPECT_EQ(closed, 1);
}

// Where figures of dozens of digits leave the chart, the curves below them are those of a chart that
// never had any.
TEST(ChartPanel, IsOfItsTableAloneWhateverStoodThereBefore)
{
    const auto picture = [](std::initializer_list<controls::Grid*> tables) {
        controls::Grid shown(5, 5);
        const controls::Label heading;
        comfortics::tests::RecordedMessages messages;
        comfortics::tests::PreparedFiles files;
        ChartPanel panel(shown, heading, files, messages);
        panel.resize(700, 500);
        panel.show();
        for (controls::Grid* const table : tables) {
            table->select(0, 0, 4, 4);
            comfortics::tests::fill(shown, table->clip());
            panel.refresh();
        }
        const comfortics::tests::TemporaryFolder folder;
        panel.findChild<QLabel*>()->hide(); // the note
        EXPECT_TRUE(panel.saveAs(toQt(folder.file("chart.png"))));
        return QImage(toQt(folder.file("chart.png")));
    };
    controls::Grid calm(5, 5);
    controls::Grid wild(5, 5);
    controls::Grid less(5, 5);
    comfortics::tests::fill(calm, "t\r12:00\t900\t800\t700\t600\r12:15\t9\t8\t7\t6");
    comfortics::tests::fill(wild, "t\r12:00\t0\t0\t1e300\t-1e300\r12:15\t990\t880\t500\t20\r"
                                  "12:30\t0\t0\t1e30\t1e300\r12:45\t100\t300\t200\t100");
    comfortics::tests::fill(less, "t\r12:00\t0\t0\t1e307\t-1e307\r12:15\t990\t880\t500\t20\r"
                                  "12:30\t0\t0\t1e29\t1e30\r12:45\t100\t300\t200\t100");
    const QImage alone = picture({&wild});
    EXPECT_EQ(picture({&calm, &wild}), alone);
    EXPECT_NE(picture({&calm}), alone);
    EXPECT_EQ(picture({&less}), alone);
}

TEST_F(RadiationWindowTest, SavesTheChartUnderANameWithItsEndingAndAsksForThatName)
{
    open();
    const comfortics::tests::TemporaryFolder folder;
    auto& chart = *window->findChild<ChartPanel*>();
    const auto first = [&](const char* name) {
        return comfortics::tests::readFile(folder.file(name)).substr(0, 4);
    };
    for (const char* name : {"july", "july.SVG", "15.7"}) {
        files.answer = folder.file(name);
        chart.save();
    }
    EXPECT_EQ(first("july.png") + first("15.7.png") + first("july.SVG"), "\x89PNG\x89PNG<?xm");
    ASSERT_TRUE(files.asked.at(0).overwritePrompt && files.asked[0].written);
    EXPECT_EQ(files.asked[0].written("july") + files.asked[0].written("july.SVG"), "july.pngjuly.SVG");
}

// A real click on the pixel of a city gives its place within the precision of the text.
TEST_F(RadiationWindowTest, OnlyAClickOnTheWorldMapOrASearchPicksThePlace)
{
    open();
    press(*window, "Open the map");
    auto* const map = &find<MapWidget>(*window, "World map");
    const struct {
        GeoPoint at;
        double zoom;
        const char* offer;
    } rows[] = {{{37.9833, 23.7333}, 6, "Near Athens, Greece: UTC+2 on 2024-03-05"}, {{-40, -110}, 4, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.offer);
        map->show({row.at.latitude + 1, row.at.longitude - 1}, row.zoom);
        const radiation::MapPoint at = map->view().toScreen(row.at);
        QTest::mouseClick(map, Qt::LeftButton, {},
                          QPoint(static_cast<int>(std::lround(at.x)), static_cast<int>(std::lround(at.y))));
        const double precision =
            std::pow(10, -radiation::decimalsFor(row.zoom)) + 360 / (256 * std::exp2(row.zoom));
        EXPECT_NEAR(QString::fromStdString(form->txt_lat.text()).toDouble(), row.at.latitude, precision);
        EXPECT_NEAR(QString::fromStdString(form->txt_Lon.text()).toDouble(), row.at.longitude, precision);
        EXPECT_EQ(form->lbl_Offset.caption(), row.offer);
    }
    auto* const search = &find<QLineEdit>(*window, "Search a place");
    const auto searchFor = [&](const char* name) {
        search->setText(QString::fromUtf8(name));
        QTest::keyClick(search, Qt::Key_Return);
        return form->lbl_Offset.caption();
    };
    EXPECT_EQ(searchFor("SÃO paulo"), "Sao Paulo, Brazil: UTC-3 on 2024-03-05");
    EXPECT_EQ(searchFor("Łódź"), "Lódz, Poland: UTC+1 on 2024-03-05");
    EXPECT_EQ(searchFor("kobenhavn"), "København, Denmark: UTC+1 on 2024-03-05");
    EXPECT_EQ(searchFor("Quito, Pichincha, Ecuador"), "Quito, Ecuador: UTC-5 on 2024-03-05");
    search->clear();
    QTest::keyClicks(search, QStringLiteral("Nowhere"));
    EXPECT_TRUE(tests::says(*window, QStringLiteral("No place is found by the name \"Nowhere\".")));
    EXPECT_EQ(form->txt_lat.text() + " " + form->txt_Lon.text(), "-0.215 -78.500");
    form->cmd_Take_Offset.setValue(true);
    EXPECT_EQ(form->txt_GMT.text(), "-5");

    // Typed coordinates have their clock offered, too.
    form->txt_lat.setText("38.6");
    form->txt_Lon.setText("-90.2");
    EXPECT_EQ(form->lbl_Offset.caption(), "Near St. Louis, United States of America: UTC-6 on 2024-03-05");
    form->txt_Lon.setText("");
    EXPECT_EQ(form->lbl_Offset.caption(), "");
    form->takePlace("-0.215, -78.500");

    // Dragging moves without a pick.
    map->show({40, 20}, 5);
    const GeoPoint center = map->view().center();
    QTest::mousePress(map, Qt::LeftButton, {}, {200, 150});
    QMouseEvent move(QEvent::MouseMove, QPointF(260, 150), map->mapToGlobal(QPointF(260, 150)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(map, &move);
    QTest::mouseRelease(map, Qt::LeftButton, {}, {260, 150});
    EXPECT_NEAR(map->view().toScreen(center).x, map->width() / 2.0 + 60, 1e-6);
    EXPECT_EQ(form->txt_lat.text(), "-0.215");
}

TEST_F(RadiationWindowTest, ShowsTilesAndPicksOnThem)
{
    TileServer server(picture(256));
    open(server.address());
    auto* const card = window->findChild<QWidget*>(QStringLiteral("fra_WebBrowser"));
    ASSERT_TRUE(QTest::qWaitFor([card] { return card->isVisible(); }, kPatience));
    // The tile of the opening, 39.525608 N 21.775488 E at zoom 16.
    EXPECT_TRUE(server.asked.startsWith("GET /16/36732/24922.png ")) << server.asked.toStdString();

    // With both maps the window is full, and yet nothing moves when a clock is offered.
    form->cmd_World_Map.setValue(true);
    QCoreApplication::processEvents();
    auto* const map = &find<MapWidget>(*window, "Map");
    const QRect before(map->mapTo(window.get(), QPoint()), map->size());
    QTest::mouseClick(map, Qt::LeftButton, {}, QPoint(map->width() / 2, map->height() / 2));
    EXPECT_TRUE(form->txt_lat.text().starts_with("39.525")) << form->txt_lat.text();
    QCoreApplication::processEvents();
    EXPECT_TRUE(form->cmd_Take_Offset.visible());
    EXPECT_EQ(QRect(map->mapTo(window.get(), QPoint()), map->size()), before);
}

TEST(TileSource, OutlivesServersThatFailOrAreSilentAndNeedsAWholeAddress)
{
    const QByteArray drawing = R"(<svg xmlns="http://www.w3.org/2000/svg" width="256" height="256"/>)";
    const QByteArray ok = "200 OK";
    const struct {
        QByteArray bytes;
        bool isTile;
    } answers[] = {{{}, false},
                   {picture(256, "404 Not Found"), false},
                   {answer(QByteArray(5000, 'x')), false},
                   {answer(drawing), false},
                   {picture(256, ok, "BMP"), false},
                   {picture(3000), false},
                   {"no HTTP\r\n\r\n", false},
                   {picture(512), true},
                   {picture(256, ok, "JPEG"), true}};
    for (const auto& row : answers) {
        SCOPED_TRACE(row.bytes.mid(row.bytes.indexOf("\r\n\r\n") + 4, 20).toStdString());
        TileServer server(row.bytes);
        TileSource source({server.address(), {}});
        source.probe({39.5, 21.7}, 10);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !server.asked.isEmpty(); }, kPatience));
        ASSERT_TRUE(QTest::qWaitFor([&] { return row.bytes.isEmpty() || !source.isWaiting(); }, kPatience));
        EXPECT_EQ(source.hasTiles(), row.isTile);
    }
    for (const auto& [address, usable] : {std::pair{"", false},
                                          {"http://127.0.0.1/{z}/{x}/{y}.png", true},
                                          {"http://127.0.0.1/{z}/{x}.png", false},
                                          {"file:///tmp/{z}/{x}/{y}.png", false}})
        EXPECT_EQ(TileSource({QString::fromLatin1(address), {}}).isConfigured(), usable) << address;
}

} // namespace
} // namespace comfortics::ui
