// SPDX-License-Identifier: GPL-3.0-or-later
//
// A field of weather on all cores: UTCI and outdoor WBGT in each cell.
//
// The quantities of a cell stand side by side, as in many files. A stride tells how far it is from one cell
// to the next, for the readings as for the results.
#include <comfortics/comfortics.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <iostream>
#include <limits>
#include <vector>

int main()
try {
    // Warmer from row to row, 10 to 45 °C, and windier from column to column, 0 to 20 m/s.
    constexpr std::size_t rows = 351, columns = 401, cells = rows * columns;
    enum Field { Ta, WS, Utci, Wbgt, fields };
    std::vector<double> field(cells * fields);
    for (std::size_t cell = 0; cell < cells; ++cell) {
        field[cell * fields + Ta] = 10 + static_cast<double>(cell / columns) / 10;
        field[cell * fields + WS] = static_cast<double>(cell % columns) / 20;
    }

    const comfortics::Readings readings{.airTemperature = {&field[Ta], fields},
                                        .solarRadiation = 700, // the same in all cells
                                        .relativeHumidity = 40,
                                        .windSpeed = {&field[WS], fields}};
    const std::array<comfortics::Output, 2> outputs{
        {{*comfortics::findIndex("utci"), &field[Utci], fields},
         {comfortics::Quantity::WbgtOutdoor, &field[Wbgt], fields}}};
    const comfortics::Options options{.threads = 0, // as many as the machine runs at once
                                      .progress = [&](std::size_t done) {
                                          std::cerr << "\r" << 100 * done / cells << " % " << std::flush;
                                          return true; // false would end the calculation
                                      }};
    comfortics::calculate(readings, cells, outputs, {}, options);

    constexpr double infinity = std::numeric_limits<double>::infinity();
    std::size_t known = 0;
    double hottest = -infinity, lowest = infinity, highest = -infinity;
    for (std::size_t cell = 0; cell < cells; ++cell) {
        const double utci = field[cell * fields + Utci], wbgt = field[cell * fields + Wbgt];
        known += std::size_t(!std::isnan(utci)); // the index is not meant for calm and storm
        hottest = std::fmax(hottest, utci);
        lowest = std::fmin(lowest, wbgt);
        highest = std::fmax(highest, wbgt);
    }
    std::cerr << '\n';
    std::cout << "UTCI up to " << hottest << " °C, in " << known << " of " << cells << " cells\n"
              << "Outdoor WBGT from " << lowest << " to " << highest << " °C\n";
} catch (const std::exception& error) {
    std::cerr << "grid: " << error.what() << '\n';
    return 1;
}
