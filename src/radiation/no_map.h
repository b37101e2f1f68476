// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "radiation/frm_radiation.h"

#include <optional>
#include <string>

namespace comfortics::radiation {

/// Answers the form where there is no map. It needs no connection then, so none is missed.
class NoMap final : public PlaceSource, public Connection, public TimeZones {
public:
    void navigate(const MapOpening&) override {}
    bool ready() override { return false; }
    bool connected() override { return true; }
    std::optional<int> offset(const std::string&, Date) override { return std::nullopt; }
};

} // namespace comfortics::radiation
