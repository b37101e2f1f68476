// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the radiation form asks of maps, of the network and of time zones.
#pragma once

#include "radiation/calendar.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace comfortics::radiation {

/// Where the connected map opens, and how near.
struct MapOpening {
    double latitude = 0;
    double longitude = 0;
    int zoom = 0;
};
inline constexpr MapOpening kMapOpening{39.525608, 21.775488, 16};

/// A map on which the user clicks a place. It supplies the place as a text of two decimal numbers,
/// latitude and longitude, with a comma between them; blanks do not matter.
class PlaceSource {
public:
    virtual ~PlaceSource() = default;

    /// Begins to load the map. Where that fails, the map never becomes ready.
    virtual void navigate(const MapOpening& opening) = 0;
    /// True once there is a map to be shown.
    virtual bool ready() = 0;

    /// Who takes the places.
    void onPlace(std::function<void(std::string_view place)> take) { m_take = std::move(take); }

protected:
    void supply(std::string_view place) const
    {
        if (m_take)
            m_take(place);
    }

private:
    std::function<void(std::string_view)> m_take;
};

/// The platform's own knowledge of its connection. No request is made to find out.
class Connection {
public:
    virtual ~Connection() = default;
    virtual bool connected() = 0;
};

/// The offsets of time zones.
class TimeZones {
public:
    virtual ~TimeZones() = default;
    /// Clock less universal time at noon of the date [min]; nothing for an unknown zone. Zones go
    /// by their names in the tz database, for instance "Europe/Athens".
    virtual std::optional<int> offset(const std::string& zone, Date date) = 0;
};

} // namespace comfortics::radiation
