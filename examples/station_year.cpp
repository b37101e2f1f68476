// SPDX-License-Identifier: GPL-3.0-or-later
//
// A station's year: how often the outdoor WBGT is above a threshold [°C], and the highest UTCI.
//
// usage: station_year FILE THRESHOLD, where FILE begins with the line "time,ta,rh,ws,sr" and has a line for
// each
//        hour: °C, %, m/s, W/m². A cell without text is a missing reading.
#include <comfortics/comfortics.h>

#include <cmath>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace cf = comfortics;

int main(int argc, char** argv)
try {
    std::ifstream file(argc == 3 ? argv[1] : "");
    std::string line, cell;
    if (!std::getline(file, line) || !line.starts_with("time,ta,rh,ws,sr"))
        throw std::runtime_error("give a file that begins with time,ta,rh,ws,sr, and a threshold");
    std::vector<double> ta, rh, ws, sr;
    while (std::getline(file, line)) {
        std::istringstream cells(line.substr(line.find(',') + 1)); // behind the time
        for (std::vector<double>* column : {&ta, &rh, &ws, &sr})
            column->push_back(std::getline(cells, cell, ',') && cell > "\r" ? std::stod(cell) : NAN);
    }

    // A vector is a column, in which NaN is a missing reading. What both targets need is derived once.
    const cf::Readings readings{
        .airTemperature = ta, .solarRadiation = sr, .relativeHumidity = rh, .windSpeed = ws};
    std::vector<double> wbgt(ta.size()), utci(ta.size());
    std::vector<cf::Status> statuses(ta.size());
    const cf::Output outputs[] = {{cf::Quantity::WbgtOutdoor, wbgt.data()},
                                  {*cf::findIndex("utci"), utci.data(), 1, statuses.data()}};
    cf::calculate(readings, ta.size(), outputs);

    double threshold = std::stod(argv[2]), highest = NAN;
    std::size_t above = 0, known = 0;
    std::vector<std::size_t> hours(cf::kStatusCount); // by what became of UTCI
    for (std::size_t i = 0; i < ta.size(); ++i) {
        above += std::size_t(wbgt[i] > threshold); // NaN, where there is no value, is above nothing
        known += std::size_t(!std::isnan(wbgt[i]));
        highest = std::fmax(highest, utci[i]); // which is not NaN unless both are
        ++hours[std::size_t(statuses[i])];
    }
    std::cout << "Outdoor WBGT above " << threshold << " °C: " << above << " of " << known << " hours\n";
    if (!std::isnan(highest))
        std::cout << "Highest UTCI: " << highest << " °C\n";
    for (std::size_t i = 0; i < hours.size(); ++i)
        std::cout << "UTCI, " << cf::statusText(cf::Status(i)) << ": " << hours[i] << " hours\n";
} catch (const std::exception& error) {
    std::cerr << "station_year: " << error.what() << '\n';
    return 1;
}
