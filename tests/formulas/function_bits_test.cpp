// SPDX-License-Identifier: GPL-3.0-or-later
//
// What indices and models share, to the last bit.
#include "formulas/mean_vote.h"
#include "formulas/primitives.h"

#include "bit_table.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

/// Blocks of points run in bare doubles, all else in Number.
template <class Real>
Real value(const std::string& function, const std::vector<double>& inputs)
{
    const auto x = [&inputs](std::size_t at) { return Real(inputs.at(at)); };
    if (function == "Vapor_Pressure_Magnus")
        return Vapor_Pressure_Magnus(x(0));
    if (function == "Saturation_Pressure_Hardy")
        return Saturation_Pressure_Hardy(x(0));
    if (function == "Dew_Point_Magnus")
        return Dew_Point_Magnus(x(0), x(1));
    if (function == "Relative_Humidity_Magnus")
        return Relative_Humidity_Magnus(x(0), x(1));
    if (function == "Saturation_Pressure_Buck")
        return Saturation_Pressure_Buck(x(0));
    if (function == "Wind_At_10m")
        return Wind_At_10m(AssumptionsOf<Real>{.Friction = x(1)}, x(0));
    if (function == "Wind_At_2m")
        return Wind_At_2m(AssumptionsOf<Real>{.Friction = x(1)}, x(0));
    if (function == "Body_Surface_Area")
        return Body_Surface_Area(AssumptionsOf<Real>{.Height = x(0), .Weight = x(1)});
    if (function == "Mean_Skin_Temperature")
        return Mean_Skin_Temperature(x(0));
    if (function == "Radiative_Coefficient")
        return Radiative_Coefficient(AssumptionsOf<Real>{.Emissivity = x(1), .ArAdu = x(2)}, x(0));
    if (function == "To_Fahrenheit")
        return To_Fahrenheit(x(0));
    if (function == "To_Celsius")
        return To_Celsius(x(0));
    if (function == "Predicted_Mean_Vote")
        return Predicted_Mean_Vote(x(0), x(1), x(2), x(3), x(4), Rules::Classic);
    if (function == "Predicted_Percentage_Dissatisfied")
        return Predicted_Percentage_Dissatisfied(x(0));
    ADD_FAILURE() << "no function " << function;
    return 0;
}

TEST(FunctionBits, AreThoseOfTheTable)
{
    const BitTable table(COMFORTICS_BITS_DIR "/functions.csv");
    for (const BitRow& row : table.rows()) {
        const std::string& function = row.fields.front();
        table.check(row, outcomeOf([&] { return value<Number>(function, row.numbers()); }));
        if (row.expected() != "fails")
            table.check(row, hexadecimal(value<double>(function, row.numbers())));
    }
}

} // namespace
} // namespace comfortics::tests
