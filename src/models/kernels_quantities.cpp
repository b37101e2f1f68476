// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/block_kernel.h"
#include "formulas/primitives.h"
#include "models/quantity_formulas.h"

namespace comfortics::formulas {

template <>
inline constexpr auto quickTwin<&Relative_Humidity_Magnus<double>> = &Relative_Humidity_Magnus<QuickReal>;

template void calculateBlock<&Dew_Point_Magnus<double>>(const Block&);
template void calculateBlock<&Relative_Humidity_Magnus<double>>(const Block&);
template void calculateBlock<&Saturation_Pressure_Hardy<double>>(const Block&);
template void calculateBlock<&Vapor_Pressure_Magnus<double>>(const Block&);
template void calculateBlock<&Wind_At_10m<double>>(const Block&);
template void calculateBlock<&models::MRT_From_Globe<double>>(const Block&);
template void calculateBlock<&models::Wbgt_Outdoor<double>>(const Block&);
template void calculateBlock<&models::Wbgt_Indoor<double>>(const Block&);

} // namespace comfortics::formulas

namespace comfortics::models {

using formulas::formula;
using formulas::FormulaCall;

constexpr FormulaCall kDewPoint =
    formula<&formulas::Dew_Point_Magnus<Number>, &formulas::Dew_Point_Magnus<double>>();
constexpr FormulaCall kRelativeHumidity =
    formula<&formulas::Relative_Humidity_Magnus<Number>, &formulas::Relative_Humidity_Magnus<double>>();
constexpr FormulaCall kSaturationPressure =
    formula<&formulas::Saturation_Pressure_Hardy<Number>, &formulas::Saturation_Pressure_Hardy<double>>();
constexpr FormulaCall kVapourPressure =
    formula<&formulas::Vapor_Pressure_Magnus<Number>, &formulas::Vapor_Pressure_Magnus<double>>();
constexpr FormulaCall kWindAt10m = formula<&formulas::Wind_At_10m<Number>, &formulas::Wind_At_10m<double>>();
constexpr FormulaCall kMeanRadiantTemperature = formula<&MRT_From_Globe<Number>, &MRT_From_Globe<double>>();
constexpr FormulaCall kWbgtOutdoor = formula<&Wbgt_Outdoor<Number>, &Wbgt_Outdoor<double>>();
constexpr FormulaCall kWbgtIndoor = formula<&Wbgt_Indoor<Number>, &Wbgt_Indoor<double>>();

} // namespace comfortics::models
