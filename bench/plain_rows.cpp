// SPDX-License-Identifier: GPL-3.0-or-later
//
// Makes the solver calls of each row of a table the plain way, every step of every solve and every
// candidate of a search, and prints how many rows a second that gives on one core. Nothing else of a
// calculation is done, so it is an upper bound for a program that steps.
//
// usage: plain_rows TABLE.csv [ROWS]
#include "batch/column_map.h"
#include "batch/table_reader.h"
#include "classic/radiation_search.h"
#include "formulas/primitives.h"
#include "models/psychrometric_search.h"
#include "models/solvers.h"
#include "texts/number_text.h"
#include "texts/variant.h"
#include "values/run_failure.h"

#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

using namespace comfortics;
using models::kDirectFraction;
using models::kRadiationSwitch;
using models::kSitePressure;
using models::kZenith;
using models::Solution;
using texts::Variant;
using values::Number;

Solution globe(Number Ta, Number RH, const std::string& wind, Number SR)
{
    return models::plain::Globe_Temperature_Model(Ta, RH, kSitePressure, Variant(wind).number(), SR,
                                                  kDirectFraction, kZenith);
}

void runRow(const std::string& air, const std::string& globeText, const std::string& sun, Number RH,
            const std::string& wind)
{
    const Number Ta = texts::val(air);
    const Number g = values::logarithm(RH / 100) / 17.27 + Ta / (237.3 + Ta);
    const Number Td = (237.3 * g) / (1 - g);
    Number SR = texts::val(sun);
    if (globeText.empty()) {
        for (int i = 0; i < 4; ++i) // UTCI and outdoor WBGT, each in the sequence and as an index
            globe(Ta, RH, wind, SR);
        for (int i = 0; i < 2; ++i) // mean radiant temperature
            globe(Ta, 60, wind, SR);
    } else {
        for (int i = 0; i < 2; ++i)
            for (int candidate = 0; candidate <= classic::kLastCandidate; ++candidate)
                if (classic::reaches(globe(Ta, RH, wind, candidate), texts::val(globeText))) {
                    SR = candidate;
                    break;
                }
    }
    for (int i = 0; i < 2; ++i) {
        models::plain::Natural_Wet_Bulb(Ta, Td, RH, kSitePressure, Variant(wind).number(), SR,
                                        kDirectFraction, kZenith, kRadiationSwitch);
        models::plain::Psychrometric_Wet_Bulb(texts::val(air), false, Td);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: plain_rows TABLE.csv [ROWS]\n", stderr);
        return 2;
    }
    const double most = argc > 2 ? texts::val(argv[2]) : 100;
    std::ifstream file(argv[1], std::ios::binary);
    batch::TableReader reader([&file](char* buffer, std::size_t size) {
        file.read(buffer, static_cast<std::streamsize>(size));
        return static_cast<std::size_t>(file.gcount());
    });
    batch::TableRow row;
    if (!reader.next(row)) {
        std::fputs("plain_rows: the table cannot be read\n", stderr);
        return 5;
    }
    const batch::ColumnMap columns = batch::ColumnMap::from(row);
    double rows = 0;
    const auto start = std::chrono::steady_clock::now();
    while (rows < most && reader.next(row)) {
        const auto texts = columns.readings(row);
        try {
            runRow(std::string(texts[0]), std::string(texts[1]), std::string(texts[2]), texts::val(texts[4]),
                   std::string(texts[5]));
        } catch (const values::RunFailure&) {
            // a row that fails took its time until then
        }
        ++rows;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("%.1f\n", rows / seconds.count());
    return 0;
}
