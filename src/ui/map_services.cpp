// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/map_services.h"

#include <QDateTime>
#include <QNetworkInterface>
#include <QTimeZone>

#include <algorithm>

namespace comfortics::ui {

bool DesktopConnection::connected()
{
    const auto interfaces = QNetworkInterface::allInterfaces();
    return std::any_of(interfaces.begin(), interfaces.end(), [](const QNetworkInterface& one) {
        return one.flags().testFlag(QNetworkInterface::IsRunning) &&
               one.flags().testFlag(QNetworkInterface::IsUp) &&
               !one.flags().testFlag(QNetworkInterface::IsLoopBack) && !one.addressEntries().isEmpty();
    });
}

std::optional<int> DesktopTimeZones::offset(const std::string& zone, radiation::Date date)
{
    const QTimeZone known(QByteArray::fromStdString(zone));
    const QDate day(static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                    static_cast<int>(static_cast<unsigned>(date.day())));
    if (zone.empty() || !known.isValid() || !day.isValid())
        return std::nullopt;
    constexpr int kSecondsPerMinute = 60;
    return known.offsetFromUtc(QDateTime(day, QTime(12, 0), Qt::UTC)) / kSecondsPerMinute;
}

} // namespace comfortics::ui
