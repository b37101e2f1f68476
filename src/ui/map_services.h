// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "radiation/place_source.h"

namespace comfortics::ui {

/// True while an interface other than the loopback is up and has an address.
class DesktopConnection final : public radiation::Connection {
public:
    bool connected() override;
};

/// The time zones that Qt knows, from the system's tz database.
class DesktopTimeZones final : public radiation::TimeZones {
public:
    std::optional<int> offset(const std::string& zone, radiation::Date date) override;
};

} // namespace comfortics::ui
