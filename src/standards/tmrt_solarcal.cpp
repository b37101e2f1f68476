// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/tmrt_solarcal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace comfortics::standards {

using namespace solarcal_range;

namespace {

constexpr double kStep = 15;     // of the table, both ways [degrees]
constexpr double kDiffuse = 0.2; // of the direct beam
constexpr double kEmissivity = 0.95;
constexpr double kLinear = 6; // exchange by radiation [W/m²/K]

// A row for each 15 degrees of sharp from 0 to 180, a column for each 15 degrees of altitude from 0 to 90.
using Table = std::array<std::array<double, 7>, 13>;

// clang-format off
constexpr Table kStanding{{
    {0.350, 0.350, 0.314, 0.258, 0.206, 0.144, 0.082},
    {0.342, 0.342, 0.310, 0.252, 0.200, 0.140, 0.082},
    {0.330, 0.330, 0.300, 0.244, 0.190, 0.132, 0.082},
    {0.310, 0.310, 0.275, 0.228, 0.175, 0.124, 0.082},
    {0.283, 0.283, 0.251, 0.208, 0.160, 0.114, 0.082},
    {0.252, 0.252, 0.228, 0.188, 0.150, 0.108, 0.082},
    {0.230, 0.230, 0.214, 0.180, 0.148, 0.108, 0.082},
    {0.242, 0.242, 0.222, 0.180, 0.153, 0.112, 0.082},
    {0.274, 0.274, 0.245, 0.203, 0.165, 0.116, 0.082},
    {0.304, 0.304, 0.270, 0.220, 0.174, 0.121, 0.082},
    {0.328, 0.328, 0.290, 0.234, 0.183, 0.125, 0.082},
    {0.344, 0.344, 0.304, 0.244, 0.190, 0.128, 0.082},
    {0.347, 0.347, 0.308, 0.246, 0.191, 0.128, 0.082},
}};
constexpr Table kSitting{{
    {0.290, 0.324, 0.305, 0.303, 0.262, 0.224, 0.177},
    {0.292, 0.328, 0.294, 0.288, 0.268, 0.227, 0.177},
    {0.288, 0.332, 0.298, 0.290, 0.264, 0.222, 0.177},
    {0.274, 0.326, 0.294, 0.289, 0.252, 0.214, 0.177},
    {0.254, 0.308, 0.280, 0.276, 0.241, 0.202, 0.177},
    {0.230, 0.282, 0.262, 0.260, 0.233, 0.193, 0.177},
    {0.216, 0.260, 0.248, 0.244, 0.220, 0.186, 0.177},
    {0.234, 0.258, 0.236, 0.227, 0.208, 0.180, 0.177},
    {0.262, 0.260, 0.224, 0.208, 0.196, 0.176, 0.177},
    {0.280, 0.260, 0.210, 0.192, 0.184, 0.170, 0.177},
    {0.298, 0.256, 0.194, 0.174, 0.168, 0.168, 0.177},
    {0.306, 0.250, 0.180, 0.156, 0.156, 0.166, 0.177},
    {0.300, 0.240, 0.168, 0.152, 0.152, 0.164, 0.177},
}};
// clang-format on

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180;
}

double degrees(double radians)
{
    return radians * 180 / std::numbers::pi;
}

double between(const Table& table, double altitude, double sharp)
{
    const std::size_t row = std::min<std::size_t>(static_cast<std::size_t>(sharp / kStep), table.size() - 2);
    const std::size_t column =
        std::min<std::size_t>(static_cast<std::size_t>(altitude / kStep), table[0].size() - 2);
    const double x = sharp / kStep - static_cast<double>(row);
    const double y = altitude / kStep - static_cast<double>(column);
    return (1 - x) * ((1 - y) * table[row][column] + y * table[row][column + 1]) +
           x * ((1 - y) * table[row + 1][column] + y * table[row + 1][column + 1]);
}

} // namespace

double projectedShare(double altitude, double sharp, SolarPosture posture) noexcept
{
    if (posture == SolarPosture::Sitting)
        return between(kSitting, altitude, sharp);
    if (posture == SolarPosture::Standing)
        return between(kStanding, altitude, sharp);
    // Lying is standing turned over: the angles as the body has them. The tangent of 90 - altitude is written
    // as a quotient, which a sun on the horizon has, too.
    const double s = radians(sharp);
    const double beta = radians(altitude);
    const double turned =
        std::clamp(degrees(std::atan2(std::sin(s) * std::cos(beta), std::sin(beta))), 0.0, 90.0);
    const double raised =
        degrees(std::asin(std::clamp(std::sin(radians(std::fabs(sharp - 90))) * std::cos(beta), 0.0, 1.0)));
    return between(kStanding, raised, turned);
}

double solarAngle(double sunAzimuth, double facing) noexcept
{
    return std::fabs(std::remainder(sunAzimuth - facing, 360.0));
}

SolarCalResult tmrtSolarCal(const SolarCalInputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    if (!std::isnan(in.tmrt))
        examination.look(kTmrt, in.tmrt);
    for (const auto& [input, value] : {std::pair{kAltitude, in.altitude}, {kSharp, in.sharp}}) {
        examination.look(input, value);
        if (!input.range.contains(value))
            examination.refuse(Reason::BeyondRange, input.name);
    }
    examination.look(kI, in.I);
    examination.look(kTransmittance, in.transmittance);
    examination.look(kSkyView, in.skyView);
    examination.look(kExposed, in.exposed);
    examination.look(kAbsorptance, in.absorptance);
    examination.look(kFloor, in.floor);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};

    const double radiating = in.posture == SolarPosture::Sitting ? 0.696 : 0.725;
    const double diffuse = kDiffuse * in.I;
    const double direct = projectedShare(in.altitude, in.sharp, in.posture) * in.exposed * in.I;
    const double horizontal = in.I * std::sin(radians(in.altitude)) + diffuse;
    const double field = radiating * in.transmittance *
                         (0.5 * in.skyView * diffuse + direct + 0.5 * in.skyView * horizontal * in.floor);
    SolarCalResult result{.verdict = examination.verdict()};
    result.erf = field * in.absorptance / kEmissivity;
    result.deltaMrt = result.erf / (kLinear * radiating);
    result.tmrt = in.tmrt + result.deltaMrt;
    return result;
}

} // namespace comfortics::standards
