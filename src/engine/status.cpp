// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/status.h>
#include <comfortics/version.h>

namespace comfortics {

std::string_view statusText(Status status) noexcept
{
    switch (status) {
    case Status::Value:
        return "value";
    case Status::Missing:
        return "missing";
    case Status::OutsideTemperature:
        return "outside temperature";
    case Status::OutsideWind:
        return "outside wind";
    case Status::NoValue:
        return "no value";
    case Status::Undefined:
        return "undefined";
    case Status::NoConvergence:
        return "no convergence";
    }
    return {};
}

std::string_view version() noexcept
{
    return COMFORTICS_VERSION;
}

} // namespace comfortics
