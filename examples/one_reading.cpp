// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the air, the sun and the wind of one moment mean: three indices, or why one has no value.
//
// usage: one_reading TA RH WS SR, for instance one_reading 30 50 2 600
//        air temperature [°C], relative humidity [%], wind speed [m/s], solar radiation [W/m²]
#include <comfortics/comfortics.h>

#include <array>
#include <charconv>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>
#include <string_view>

double number(std::string_view text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::invalid_argument("'" + std::string(text) + "' is no number");
    return value;
}

int main(int argc, char** argv)
try {
    if (argc != 5)
        throw std::invalid_argument("usage: one_reading TA RH WS SR");

    // A number stands for the same value at all points; here there is one point. What was not measured is
    // left out, and derived where an index needs it: the globe temperature, the wet bulbs, the dew point.
    const comfortics::Readings readings{.airTemperature = number(argv[1]),
                                        .solarRadiation = number(argv[4]),
                                        .relativeHumidity = number(argv[2]),
                                        .windSpeed = number(argv[3])};

    // Indices are found by ids that never change.
    const std::array indices{comfortics::findIndex("utci"), comfortics::findIndex("wbgt_outdoor"),
                             comfortics::findIndex("humidex_masterson")};
    std::array<double, 3> values{};
    std::array<comfortics::Status, 3> statuses{};
    const std::array<comfortics::Output, 3> outputs{{{*indices[0], &values[0], 1, &statuses[0]},
                                                     {*indices[1], &values[1], 1, &statuses[1]},
                                                     {*indices[2], &values[2], 1, &statuses[2]}}};
    comfortics::calculate(readings, 1, outputs);

    std::cout << std::fixed << std::setprecision(1);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        std::cout << indices[i]->name << ": ";
        if (statuses[i] == comfortics::Status::Value)
            std::cout << values[i] << ' ' << indices[i]->unit << '\n';
        else
            std::cout << "no value. " << comfortics::explain(*indices[i], readings) << '\n';
    }
} catch (const std::exception& error) {
    std::cerr << "one_reading: " << error.what() << '\n';
    return 1;
}
