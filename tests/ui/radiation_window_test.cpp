// SPDX-License-Identifier: GPL-3.0-or-later
//
// The radiation window: its widgets and controls, clicks on the maps, tiles from a server that the
// test starts on this machine, the chart.
#include "test_program.h"

#include "ui/chart_panel.h"
#include "ui/grid_view.h"
#include "ui/map_services.h"
#include "ui/radiation_window.h"

#include <QBuffer>
#include <QCalendarWidget>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

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

/// Answers each request with what it was told to; a null answer leaves the request waiting.
class TileServer : public QTcpServer {
public:
    std::function<QByteArray(const QString& path)> answer;
    QStringList asked;

    TileServer()
    {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* const socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
                QByteArray& request = m_requests[socket];
                request += socket->readAll();
                if (!request.contains("\r\n\r\n"))
                    return;
                const QString path = QString::fromLatin1(request.split(' ').value(1));
                request.clear();
                asked << path;
                const QByteArray bytes = answer(path);
                if (!bytes.isNull())
                    socket->write(bytes);
            });
        });
    }
    QString address() const
    {
        return QStringLiteral("http://127.0.0.1:%1/{z}/{x}/{y}.png").arg(serverPort());
    }

private:
    QHash<QTcpSocket*, QByteArray> m_requests;
};

QByteArray reply(const QByteArray& body, const QByteArray& status = "200 OK")
{
    return "HTTP/1.1 " + status +
           "\r\nContent-Type: image/png\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
           body;
}

QByteArray picture(QColor color, QSize size = {256, 256})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
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
    tests::KeptClipboard clipboard;
    tests::RecordedFiles files;
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
    const struct {
        const char* name;
        controls::TextBox& box;
        const char* typed;
    } boxes[] = {{"Latitude:", form->txt_lat, "12.5"},
                 {"Longitude:", form->txt_Lon, "13.5"},
                 {"GMT (time):", form->txt_GMT, "-3"}};
    for (const auto& one : boxes) {
        auto& line = find<QLineEdit>(*window, one.name);
        EXPECT_EQ(line.text().toStdString(), one.box.text());
        line.setText(QString::fromUtf8(one.typed));
        EXPECT_EQ(one.box.text(), one.typed);
        one.box.setText("-7");
        EXPECT_EQ(line.text(), QStringLiteral("-7"));
    }
    auto& calendar = find<QCalendarWidget>(*window, "Date");
    EXPECT_EQ(calendar.selectedDate(), QDate(2024, 3, 5));
    emit calendar.clicked(calendar.selectedDate());
    EXPECT_EQ(form->txt_Day.text(), "65");

    auto& list = find<QListWidget>(*window, "Cloud Cover (OKTA):");
    ASSERT_EQ(list.count(), 10);
    list.setCurrentRow(8);
    EXPECT_EQ(form->okta(), 8);
    EXPECT_EQ(find<QLabel>(*window, "Okta 8").accessibleName(), QStringLiteral("Okta 8"));
    for (int i = 0; i < 10; ++i)
        EXPECT_FALSE(list.item(i)->icon().pixmap(32, 32).isNull()) << i;
    EXPECT_EQ(tests::nameless(*window), "");
    EXPECT_EQ(tests::tabOrder(find<QLineEdit>(*window, "Latitude:"), 4),
              "Latitude: Longitude: GMT (time): Cloud Cover (OKTA): ");
}

TEST_F(RadiationWindowTest, ShowsTheTableAndItsChartInPlaceOfTheInputs)
{
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get())); // else its shortcuts sleep
    form->txt_lat.setText("0");
    form->txt_Lon.setText("0");
    form->txt_Day.setText("81");
    form->txt_GMT.setText("0");
    auto& table = find<GridView>(*window, "Solar radiation");
    QTest::keyClick(window.get(), Qt::Key_F5); // shows the button pressed for a moment
    ASSERT_TRUE(QTest::qWaitFor([&table] { return table.isVisible(); }, kPatience));
    EXPECT_FALSE(button(*window, "Calculate").isVisible());
    EXPECT_EQ(table.model()->rowCount(), 660);
    form->Flex_Radiation.select(2, 0, 2, 1);
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard.kept, form->Flex_Radiation.clip());
    const QTemporaryDir folder;
    files.answer = folder.filePath(QStringLiteral("table.csv")).toStdString();
    QTest::keyClick(&table, Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return files.asked == 1; }, kPatience));

    auto& chart = *window->findChild<ChartPanel*>();
    ASSERT_EQ(chart.points().size(), 660U);
    chart.moveCursor(11 * 60 + 37);
    EXPECT_TRUE(tests::says(chart, QStringLiteral("11:37   Horizontal surface: 1069.9 W/m²")));
    ASSERT_TRUE(chart.saveAs(folder.filePath(QStringLiteral("chart.png"))));
    EXPECT_FALSE(QImage(folder.filePath(QStringLiteral("chart.png"))).isNull());
    ASSERT_TRUE(chart.saveAs(folder.filePath(QStringLiteral("chart.SVG"))));
    QFile svg(folder.filePath(QStringLiteral("chart.SVG")));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    EXPECT_TRUE(svg.readAll().contains("Clock time [hh:mm]"));
    EXPECT_FALSE(chart.saveAs(folder.filePath(QStringLiteral("none/chart.png"))));
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_TRUE(messages.boxes[0].text.starts_with("The chart could not be saved: "));

    // A clock whose hours fit no integer.
    form->txt_GMT.setText("3000000000");
    form->cmd_Calculate.setValue(true);
    chart.refresh();
    ASSERT_EQ(chart.points().size(), 660U);
    EXPECT_EQ(chart.points()[0].minute, 180000000368);

    QTest::keyClick(&table, Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&table] { return !table.isVisible(); }, kPatience));
    EXPECT_TRUE(button(*window, "Calculate").isVisible());
    window->close();
    EXPECT_EQ(closed, 1);
}

// A real click on the pixel of a city gives its place within the precision of the text.
TEST_F(RadiationWindowTest, AClickOnTheWorldMapPicksThePlace)
{
    open();
    press(*window, "Open the map");
    EXPECT_FALSE(button(*window, "Open the map").isVisible());
    auto* const map = &find<MapWidget>(*window, "World map");
    ASSERT_TRUE(map->isVisible());
    const struct {
        const char* name;
        GeoPoint at;
        double zoom;
        const char* offer;
    } rows[] = {{"Athens", {37.9833, 23.7333}, 6, "Near Athens, Greece: UTC+2 on 2024-03-05"},
                {"Sydney", {-33.8678, 151.21}, 9, "Near Sydney, Australia: UTC+11 on 2024-03-05"},
                {"amid the Pacific", {-40, -110}, 4, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        map->show({row.at.latitude + 1, row.at.longitude - 1}, row.zoom);
        const radiation::MapPoint at = map->view().toScreen(row.at);
        QTest::mouseClick(map, Qt::LeftButton, {},
                          QPoint(static_cast<int>(std::lround(at.x)), static_cast<int>(std::lround(at.y))));
        const double precision =
            std::pow(10, -radiation::decimalsFor(row.zoom)) + 360 / (256 * std::exp2(row.zoom));
        EXPECT_NEAR(QString::fromStdString(form->txt_lat.text()).toDouble(), row.at.latitude, precision);
        EXPECT_NEAR(QString::fromStdString(form->txt_Lon.text()).toDouble(), row.at.longitude, precision);
        EXPECT_EQ(form->lbl_Offset.caption(), row.offer);
        EXPECT_EQ(form->txt_GMT.text(), "2");
    }
}

TEST_F(RadiationWindowTest, TheWheelZoomsAndDraggingMovesWithoutAPick)
{
    open();
    form->cmd_World_Map.setValue(true);
    auto* const map = &find<MapWidget>(*window, "World map");
    map->show({40, 20}, 5);
    const radiation::MapPoint mouse{100, 120};
    const GeoPoint under = map->view().toGeo(mouse);
    QWheelEvent wheel(QPointF(100, 120), map->mapToGlobal(QPointF(100, 120)), {}, {0, 240}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(map, &wheel);
    EXPECT_DOUBLE_EQ(map->view().zoom(), 7);
    EXPECT_NEAR(map->view().toGeo(mouse).longitude, under.longitude, 1e-9);

    const GeoPoint center = map->view().center();
    QTest::mousePress(map, Qt::LeftButton, {}, {200, 150});
    QMouseEvent move(QEvent::MouseMove, QPointF(260, 150), map->mapToGlobal(QPointF(260, 150)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(map, &move);
    QTest::mouseRelease(map, Qt::LeftButton, {}, {260, 150});
    EXPECT_NEAR(map->view().toScreen(center).x, map->width() / 2.0 + 60, 1e-6);
    EXPECT_EQ(form->txt_lat.text(), "");
}

TEST_F(RadiationWindowTest, TheSearchGoesToThePlace)
{
    open();
    form->cmd_World_Map.setValue(true);
    auto* const search = &find<QLineEdit>(*window, "Search a place");
    QTest::keyClicks(search, QStringLiteral("quito"));
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(form->txt_lat.text(), "-0.215");
    EXPECT_EQ(form->txt_Lon.text(), "-78.500");
    EXPECT_EQ(form->lbl_Offset.caption(), "Quito, Ecuador: UTC-5 on 2024-03-05");
    form->cmd_Take_Offset.setValue(true);
    EXPECT_EQ(form->txt_GMT.text(), "-5");
}

TEST_F(RadiationWindowTest, ShowsTilesAndPicksOnThem)
{
    TileServer server;
    server.answer = [](const QString&) { return reply(picture(Qt::green)); };
    open(server.address());
    auto* const card = window->findChild<QWidget*>(QStringLiteral("fra_WebBrowser"));
    ASSERT_TRUE(card);
    EXPECT_FALSE(card->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([card] { return card->isVisible(); }, kPatience));
    // The tile of the opening, 39.525608 N 21.775488 E at zoom 16.
    EXPECT_EQ(server.asked.value(0), QStringLiteral("/16/36732/24922.png"));

    auto* const map = &find<MapWidget>(*window, "Map");
    ASSERT_TRUE(QTest::qWaitFor(
        [map] {
            return map->grab().toImage().pixelColor(map->width() / 2, map->height() / 2) == QColor(Qt::green);
        },
        kPatience));
    QTest::mouseClick(map, Qt::LeftButton, {}, QPoint(map->width() / 2, map->height() / 2));
    EXPECT_NEAR(QString::fromStdString(form->txt_lat.text()).toDouble(), 39.525608, 3e-5);
    EXPECT_NEAR(QString::fromStdString(form->txt_Lon.text()).toDouble(), 21.775488, 3e-5);
    EXPECT_EQ(form->txt_lat.text().size(), 8U); // five decimals
}

TEST_F(RadiationWindowTest, OutlivesServersThatFail)
{
    const struct {
        const char* name;
        std::function<QByteArray(const QString&)> answer;
    } rows[] = {
        {"refuses", [](const QString&) { return reply("gone", "404 Not Found"); }},
        {"breaks", [](const QString&) { return reply(picture(Qt::green), "500 Internal Server Error"); }},
        {"sends rubbish", [](const QString&) { return reply(QByteArray(5000, 'x')); }},
        {"sends a huge picture",
         [](const QString&) {
             return reply(picture(Qt::green, {3000, 3000}));
         }},
        {"speaks no HTTP", [](const QString&) { return QByteArray("hello\r\n\r\n"); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TileServer server;
        server.answer = row.answer;
        TileSource source({server.address(), {}});
        source.probe({39.5, 21.7}, 10);
        ASSERT_TRUE(QTest::qWaitFor([&source] { return !source.isWaiting(); }, kPatience));
        EXPECT_FALSE(server.asked.isEmpty());
        EXPECT_FALSE(source.hasTiles());
    }
}

TEST_F(RadiationWindowTest, StaysUsableWhileAServerIsSilent)
{
    TileServer server;
    server.answer = [](const QString&) { return QByteArray(); };
    open(server.address());
    ASSERT_TRUE(QTest::qWaitFor([&server] { return !server.asked.isEmpty(); }, kPatience));
    EXPECT_FALSE(form->fra_WebBrowser.visible());
    EXPECT_TRUE(form->tmr_WebBrowser.enabled());
    form->cmd_World_Map.setValue(true);
    EXPECT_TRUE(form->fra_World_Map.visible());
    window.reset(); // with the request still open
    tiles.reset();
}

TEST(TileSettings, NeedAWholeAddress)
{
    const struct {
        const char* address;
        bool usable;
    } rows[] = {{"", false},
                {"http://127.0.0.1/{z}/{x}/{y}.png", true},
                {"http://127.0.0.1/{z}/{x}.png", false},
                {"file:///tmp/{z}/{x}/{y}.png", false}};
    for (const auto& row : rows)
        EXPECT_EQ(TileSource({QString::fromLatin1(row.address), {}}).isConfigured(), row.usable)
            << row.address;
}

} // namespace
} // namespace comfortics::ui
