// SPDX-License-Identifier: GPL-3.0-or-later
//
// The one list of the indices. Names and units are fixed texts, misspellings and double names
// included: users and files know the indices by them.
#include "catalogue/catalogue.h"

#include "formulas/apparent_temperature.h"
#include "formulas/cold.h"
#include "formulas/comfort_votes.h"
#include "formulas/cooling_power.h"
#include "formulas/humid_heat.h"
#include "formulas/mean_vote.h"
#include "formulas/physiology.h"
#include "formulas/primitives.h"
#include "formulas/psychrometry.h"
#include "formulas/radiant.h"
#include "formulas/wind_chill_equivalent.h"

namespace comfortics::catalogue {

using namespace formulas;
using enum Input;

namespace {

// clang-format off
constexpr std::array<CatalogueRow, kIndexCount> kCatalogue{{
    {.number = 1, .name = "Accepted Level of Physical Activity (Blazejczyk; 2010)", .unit = "W/m²", .inputs = {Ta, Ea}, .formula = formula<&Index_001<Number>, &Index_001<double>>()},
    {.number = 2, .name = "Actual Sensation Vote  (Nikolopoulou; 2004)", .unit = "[-]", .inputs = {Ta, SR, WS, RH}, .formula = formula<&Index_002<Number>, &Index_002<double>>()},
    {.number = 3, .name = "Actual Sensation Vote (Europe) (Nikolopulou; 2004)", .unit = "[-]", .inputs = {Ta, SR, WS, RH}, .formula = formula<&Index_003<Number>, &Index_003<double>>()},
    {.number = 4, .name = "Actual Sensation Vote (Nikolopulou; 2003)", .unit = "[-]", .inputs = {Ta, Tg, WS, RH}, .formula = formula<&Index_004<Number>, &Index_004<double>>()},
    {.number = 5, .name = "Actual Vapor Pressure", .unit = "hPa", .gate = Gate::None, .inputs = {Ea}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 6, .name = "Air Enthalpy (Boer; 1964)", .unit = "Kcal/kg", .gated = Gated::Tnwb, .inputs = {Tnwb, Es}, .formula = formula<&Index_006<Number>, &Index_006<double>>()},
    {.number = 7, .name = "Apparent Temperature (Almeida; 2010)", .unit = "°C", .inputs = {Ta, Td}, .formula = formula<&Index_007<Number>, &Index_007<double>>()},
    {.number = 8, .name = "Apparent Temperature (Arnoldy; 1962)", .unit = "°C", .inputs = {Ta, WS}, .formula = formula<&Index_008<Number>, &Index_008<double>>()},
    {.number = 9, .name = "Apparent Temperature (Fischer; 2010)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_009<Number>, &Index_009<double>>()},
    {.number = 10, .name = "Apparent Temperature (indoor) (Steadman; 1984)", .unit = "°C", .inputs = {Ta, Ea}, .formula = formula<&Index_010<Number>, &Index_010<double>>()},
    {.number = 11, .name = "Apparent Temperature (indoor) (Steadman; 1994)", .unit = "°C", .inputs = {Ta, Ea}, .formula = formula<&Index_011<Number>, &Index_011<double>>()},
    {.number = 12, .name = "Apparent Temperature (Kalkstein; 1986)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, Td}, .formula = formula<&Index_012<Number>, &Index_012<double>>()},
    {.number = 13, .name = "Apparent Temperature (shade) (Steadman; 1984)", .unit = "°C", .inputs = {Ta, Ea, WS}, .formula = formula<&Index_013<Number>, &Index_013<double>>()},
    {.number = 14, .name = "Apparent Temperature (shade) (Steadman; 1994)", .unit = "°C", .inputs = {Ta, Ea, WS}, .formula = formula<&Index_014<Number>, &Index_014<double>>()},
    {.number = 15, .name = "Apparent Temperature (Smoyer-Tomic; 2001)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, Td}, .formula = formula<&Index_015<Number>, &Index_015<double>>()},
    {.number = 16, .name = "Apparent Temperature (sun) (Steadman; 1984)", .unit = "°C", .inputs = {Ta, Ea, WS, Tmrt}, .formula = formula<&Index_016<Number>, &Index_016<double>>()},
    {.number = 17, .name = "Apparent Temperature (sun) (Steadman; 1994)", .unit = "°C", .inputs = {Ta, Ea, WS, Tmrt}, .formula = formula<&Index_017<Number>, &Index_017<double>>()},
    {.number = 18, .name = "Approximated Subjective Temperature (Auliciems; 2007)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, Tmrt, WS, Tg}, .formula = formula<&Index_018<Number>, &Index_018<double>>()},
    {.number = 19, .name = "Belding-Hatch Index (Belding; 1955)", .unit = "[-]", .inputs = {Tg, WS, Ea}, .formula = formula<&Index_019<Number>, &Index_019<double>>()},
    {.number = 20, .name = "Belgian Effective Temperature (Bidlot; 1947)", .unit = "°C", .inputs = {Tnwb, Ta}, .formula = formula<&Index_020<Number>, &Index_020<double>>()},
    {.number = 21, .name = "Bioclimatic Index of Severity (Belkin; 1992)", .unit = "[-]", .inputs = {Ta, RH, WS}, .formula = formula<&Index_021<Number>, &Index_021<double>>()},
    {.number = 22, .name = "Biologically Active Temperature (Tsitsenko; 1971)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH, WS}, .formula = formula<&Index_022<Number>, &Index_022<double>>()},
    {.number = 23, .name = "Biometeorological Comfort Index (Rodriguez; 1985)", .unit = "°C", .inputs = {WS, Ta, Tnwb}, .formula = formula<&Index_023<Number>, &Index_023<double>>()},
    {.number = 24, .name = "Bodman's Weather Severity Index (Winter) (Bodman; 1908)", .unit = "[-]", .inputs = {Ta, WS}, .formula = formula<&Index_024<Number>, &Index_024<double>>()},
    {.number = 25, .name = "Comfort Vote (Bedford; 1936)", .unit = "[-]", .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_025<Number>, &Index_025<double>>()},
    {.number = 26, .name = "Cooling Power (Angus; 1930)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_026<Number>, &Index_026<double>>()},
    {.number = 27, .name = "Cooling Power (Becker; 1972)", .unit = "mcal/cm²/s", .gate = Gate::None, .inputs = {Ta, WS}, .formula = formula<&Index_027<Number>, &Index_027<double>>()},
    {.number = 28, .name = "Cooling Power (Bedford; 1933)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_028<Number>, &Index_028<double>>()},
    {.number = 29, .name = "Cooling Power (Bider; 1931)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_029<Number>, &Index_029<double>>()},
    {.number = 30, .name = "Cooling Power (Bradtke; 1926)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_030<Number>, &Index_030<double>>()},
    {.number = 31, .name = "Cooling Power (Buttner; 1934)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_031<Number>, &Index_031<double>>()},
    {.number = 32, .name = "Cooling Power (Cena; 1966)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_032<Number>, &Index_032<double>>()},
    {.number = 33, .name = "Cooling Power (Dorno; 1925)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_033<Number>, &Index_033<double>>()},
    {.number = 34, .name = "Cooling Power (Dorno; 1934)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_034<Number>, &Index_034<double>>()},
    {.number = 35, .name = "Cooling Power (Goldschmidt; 1952)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_035<Number>, &Index_035<double>>()},
    {.number = 36, .name = "Cooling Power (Goldschmidt; 1952)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_036<Number>, &Index_036<double>>()},
    {.number = 37, .name = "Cooling Power (Henneberger; 1948)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_037<Number>, &Index_037<double>>()},
    {.number = 38, .name = "Cooling Power (Hill; 1916)", .unit = "W/m²", .inputs = {Ta, WS}, .formula = formula<&Index_038<Number>, &Index_038<double>>()},
    {.number = 39, .name = "Cooling Power (Hill; 1937)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_039<Number>, &Index_039<double>>()},
    {.number = 40, .name = "Cooling Power (Hill; 1937)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_040<Number>, &Index_040<double>>()},
    {.number = 41, .name = "Cooling Power (Joranger; 1955)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_041<Number>, &Index_041<double>>()},
    {.number = 42, .name = "Cooling Power (Lahmayer; 1932)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_042<Number>, &Index_042<double>>()},
    {.number = 43, .name = "Cooling Power (Lehmann; 1936)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_043<Number>, &Index_043<double>>()},
    {.number = 44, .name = "Cooling Power (Matzke; 1954)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_044<Number>, &Index_044<double>>()},
    {.number = 45, .name = "Cooling Power (Matzke; 1954)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_045<Number>, &Index_045<double>>()},
    {.number = 46, .name = "Cooling Power (Meissner; 1932)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_046<Number>, &Index_046<double>>()},
    {.number = 47, .name = "Cooling Power (Vinje; 1962)", .unit = "mcal/cm²/s", .inputs = {WS, Ta}, .formula = formula<&Index_047<Number>, &Index_047<double>>()},
    {.number = 48, .name = "Cooling Power (Weiss; 1926)", .unit = "mcal/cm²/s", .inputs = {Ta, WS}, .formula = formula<&Index_048<Number>, &Index_048<double>>()},
    {.number = 49, .name = "Cooling Power (Wet Air Temperature)  (Hill; 1916)", .unit = "W/m²", .inputs = {Ta, WS, Ea}, .formula = formula<&Index_049<Number>, &Index_049<double>>()},
    {.number = 50, .name = "Corrected Effective Temperature (Basic) - expression for wind speed of 0.1 m/s (Auliciems; 2007)", .unit = "°C", .inputs = {Tg, Tnwb}, .formula = formula<&Index_050<Number>, &Index_050<double>>()},
    {.number = 51, .name = "Corrected Effective Temperature (Normal) - expression for wind speed of 0.1 m/s (Auliciems; 2007)", .unit = "°C", .inputs = {Tg, Tnwb}, .formula = formula<&Index_051<Number>, &Index_051<double>>()},
    {.number = 52, .name = "Dew Point (Bruce; 1916)", .unit = "°C", .gate = Gate::None, .inputs = {Td}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 53, .name = "Discomfort Index (eq. 1) (Thom; 1959)", .unit = "[-]", .inputs = {Tnwb, Ta}, .formula = formula<&Index_053<Number>, &Index_053<double>>()},
    {.number = 54, .name = "Discomfort Index (eq. 2) (Thom; 1959)", .unit = "[-]", .inputs = {Ta, Tnwb}, .formula = formula<&Index_054<Number>, &Index_054<double>>()},
    {.number = 55, .name = "Discomfort Index (Giles; 1990)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH}, .formula = formula<&Index_055<Number>, &Index_055<double>>()},
    {.number = 56, .name = "Discomfort Index (Kawamura; 1965)", .unit = "[-]", .inputs = {Ta, Td}, .formula = formula<&Index_056<Number>, &Index_056<double>>()},
    {.number = 57, .name = "Discomfort Index (Tennenbaum; 1961)", .unit = "°C", .inputs = {Ta, Tnwb}, .formula = formula<&Index_057<Number>, &Index_057<double>>()},
    {.number = 58, .name = "Discomfort Index (Weather Services of South Africa; obtained 2018)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, RH}, .formula = formula<&Index_058<Number>, &Index_058<double>>()},
    {.number = 59, .name = "Draught Risk Index (High Turbulence) (Fanger; 1987)", .unit = "% of people dissatisfied", .inputs = {Ta, WS}, .formula = formula<&Index_059<Number>, &Index_059<double>>()},
    {.number = 60, .name = "Draught Risk Index (Low Turbulence) (Fanger; 1987)", .unit = "% of people dissatisfied", .inputs = {Ta, WS}, .formula = formula<&Index_060<Number>, &Index_060<double>>()},
    {.number = 61, .name = "Draught Risk Index (Medium Turbulence) (Fanger; 1987)", .unit = "% of people dissatisfied", .inputs = {Ta, WS}, .formula = formula<&Index_061<Number>, &Index_061<double>>()},
    {.number = 62, .name = "Dry Kata Cooling (Maloney; 2011)", .unit = "W/m²", .gate = Gate::None, .inputs = {Ta, WS}, .formula = formula<&Index_062<Number>, &Index_062<double>>()},
    {.number = 63, .name = "Effective Radiant Field (Gagge; 1967)", .unit = "W/m²", .gate = Gate::None, .inputs = {Ta, Tmrt}, .formula = formula<&Index_063<Number>, &Index_063<double>>()},
    {.number = 64, .name = "Effective Radiant Field (Nishi; 1981)", .unit = "W/m²", .gate = Gate::None, .inputs = {WS, Tg, Ta}, .formula = formula<&Index_064<Number>, &Index_064<double>>()},
    {.number = 65, .name = "Effective Temperature (Houghten; 1923)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_065<Number>, &Index_065<double>>()},
    {.number = 66, .name = "Effective Temperature (Missenard; 1933)", .unit = "°C", .inputs = {Ta, RH, WS}, .formula = formula<&Index_066<Number>, &Index_066<double>>()},
    {.number = 67, .name = "Environmental Stress Index (Moran; 2001)", .unit = "°C", .inputs = {Ta, RH, SR}, .formula = formula<&Index_067<Number>, &Index_067<double>>()},
    {.number = 68, .name = "Equatorial Comfort Index (Webb; 1960)", .unit = "°C", .inputs = {Tnwb, Ta, WS}, .formula = formula<&Index_068<Number>, &Index_068<double>>()},
    {.number = 69, .name = "Equivalent Effective Temperature (Aizenshtat; 1974)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH, WS}, .formula = formula<&Index_069<Number>, &Index_069<double>>()},
    {.number = 70, .name = "Equivalent Effective Temperature (Aizenshtat; 1982)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH, WS}, .formula = formula<&Index_070<Number>, &Index_070<double>>()},
    {.number = 71, .name = "Equivalent Temperature (Bedford; 1936)", .unit = "°C", .inputs = {Ta, Tmrt, WS}, .formula = formula<&Index_071<Number>, &Index_071<double>>()},
    {.number = 72, .name = "Equivalent Temperature (Brundl; 1984)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, Unset, RH}, .formula = formula<&Index_072<Number>, &Index_072<double>>()},
    {.number = 73, .name = "Equivalent Warmth (Bedford; 1936)", .unit = "°C", .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_073<Number>, &Index_073<double>>()},
    {.number = 74, .name = "Exposed Skin Temperature (Brauner; 1995)", .unit = "°C", .inputs = {Ta, WS}, .formula = formula<&Index_074<Number>, &Index_074<double>>()},
    {.number = 75, .name = "Facial Skin Temperature (Cheek) (Adamenko; 1972)", .unit = "°C", .inputs = {Ta, WS}, .formula = formula<&Index_075<Number>, &Index_075<double>>()},
    {.number = 76, .name = "Facial Skin Temperature (Ear Lobe) (Adamenko; 1972)", .unit = "°C", .inputs = {Ta, WS}, .formula = formula<&Index_076<Number>, &Index_076<double>>()},
    {.number = 77, .name = "Facial Skin Temperature (Nose) (Adamenko; 1972)", .unit = "°C", .inputs = {Ta, WS}, .formula = formula<&Index_077<Number>, &Index_077<double>>()},
    {.number = 78, .name = "Fighter Index of Thermal Stress (Direct Sunlight) (Stribley; 1978)", .unit = "°C", .inputs = {Tpwb, Ta}, .formula = formula<&Index_078<Number>, &Index_078<double>>()},
    {.number = 79, .name = "Fighter Index of Thermal Stress (Moderate Overcast) (Stribley; 1978)", .unit = "°C", .inputs = {Tpwb, Ta}, .formula = formula<&Index_079<Number>, &Index_079<double>>()},
    {.number = 80, .name = "Globe Temperature (Liljegren; 2008)", .unit = "°C", .inputs = {Tg}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 81, .name = "Heart Rate (High Intensity) (Fuller; 1966)", .unit = "beats/min", .gate = Gate::None, .inputs = {Ta, Ea}, .formula = formula<&Index_081<Number>, &Index_081<double>>()},
    {.number = 82, .name = "Heart Rate (Low Intensity) (Fuller; 1966)", .unit = "beats/min", .gate = Gate::None, .inputs = {Ta, Ea}, .formula = formula<&Index_082<Number>, &Index_082<double>>()},
    {.number = 83, .name = "Heart Rate (Moderate Intensity) (Fuller; 1966)", .unit = "beats/min", .gate = Gate::None, .inputs = {Ta, Ea}, .formula = formula<&Index_083<Number>, &Index_083<double>>()},
    {.number = 84, .name = "Heart Rate Safe limit (LaFleur; 1971)", .unit = "beats/min", .gate = Gate::None, .inputs = {Ta, Ea}, .formula = formula<&Index_084<Number>, &Index_084<double>>()},
    {.number = 85, .name = "Heat Index (Blazekcjyk; 2012)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_085<Number>, &Index_085<double>>()},
    {.number = 86, .name = "Heat Index (National Oceanic and Atmospheric Administration; Last modified 2014)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_086<Number>, &Index_086<double>>()},
    {.number = 87, .name = "Heat Index (Patricola; 2010)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_087<Number>, &Index_087<double>>()},
    {.number = 88, .name = "Heat Index (Rothfusz; 1990)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_088<Number>, &Index_088<double>>()},
    {.number = 89, .name = "Heat Index (Stull; 2000)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_089<Number>, &Index_089<double>>()},
    {.number = 90, .name = "Humidex (Masterson; 1979)", .unit = "°C", .inputs = {Ta, Td}, .formula = formula<&Index_090<Number>, &Index_090<double>>()},
    {.number = 91, .name = "Humisery (Weiss; 1982)", .unit = "°C", .inputs = {Ta, Td, WS}, .formula = formula<&Index_091<Number>, &Index_091<double>>()},
    {.number = 92, .name = "Humiture (Hevener; 1959)", .unit = "°C", .inputs = {Ta, Tnwb}, .formula = formula<&Index_092<Number>, &Index_092<double>>()},
    {.number = 93, .name = "Humiture (Lally; 1960)", .unit = "°C", .inputs = {Ta, Ea}, .formula = formula<&Index_093<Number>, &Index_093<double>>()},
    {.number = 94, .name = "Humiture (Weiss; 1982)", .unit = "°C", .inputs = {Ta, Td}, .formula = formula<&Index_094<Number>, &Index_094<double>>()},
    {.number = 95, .name = "Insulation Predicted Index (Blazeczyk; 2011)", .unit = "Clo", .inputs = {Ta, WS}, .formula = formula<&Index_095<Number>, &Index_095<double>>()},
    {.number = 96, .name = "Integrated Index (Indoor) (Junge; 2016)", .unit = "[-]", .inputs = {Ta, RH, WS}, .formula = formula<&Index_096<Number>, &Index_096<double>>()},
    {.number = 97, .name = "Integrated Index (Outdoor) (Junge; 2016)", .unit = "[-]", .inputs = {Ta, Tg, RH, WS}, .formula = formula<&Index_097<Number>, &Index_097<double>>()},
    {.number = 98, .name = "Internal Comfort Temperature (Xavier; 2000)", .unit = "°C", .gate = Gate::Text, .gated = Gated::MeanOfTmrtAndTa, .inputs = {Ta, Tmrt, RH, WS}, .formula = formula<&Index_098<Number>, &Index_098<double>>()},
    {.number = 99, .name = "Kata Index (Zhongpeng; 2012)", .unit = "[-]", .inputs = {Tnwb, WS}, .formula = formula<&Index_099<Number>, &Index_099<double>>()},
    {.number = 100, .name = "Mean Radiant Temperature (Ramsey; 2000)", .unit = "°C", .gate = Gate::None, .inputs = {TextTa, TextTg, TextSR, TextWS}, .block = Block::MeanRadiantTemperature},
    {.number = 101, .name = "Mean Skin Temperature (McPherson; 1993)", .unit = "°C", .inputs = {Ta}, .formula = formula<&Index_101<Number>, &Index_101<double>>()},
    {.number = 102, .name = "Meditteranean Outdoor Comfort Index (Salata; 2016)", .unit = "[-]", .inputs = {WS, RH, Tmrt, Ta}, .formula = formula<&Index_102<Number>, &Index_102<double>>()},
    {.number = 103, .name = "Missenard's Index (Missenard; 1969)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_103<Number>, &Index_103<double>>()},
    {.number = 104, .name = "Modified Discomfort Index (Moran; 1988) ", .unit = "°C", .gated = Gated::WBGT_Outdoor, .inputs = {Tnwb, Ta}, .formula = formula<&Index_104<Number>, &Index_104<double>>()},
    {.number = 105, .name = "Modified Environmental Stress Index (Moran; 2003)", .unit = "°C", .inputs = {Ta, RH, SR}, .formula = formula<&Index_105<Number>, &Index_105<double>>()},
    {.number = 106, .name = "Natural Wet Bulb Temperature (Maloney; 2011)", .unit = "°C", .inputs = {Ta, RH, WS, SR}, .formula = formula<&Index_106<Number>, &Index_106<double>>()},
    {.number = 107, .name = "Net Radiation (Cena; 1984)", .unit = "W/m²", .gate = Gate::None, .inputs = {Tmrt, Ta}, .formula = formula<&Index_107<Number>, &Index_107<double>>()},
    {.number = 108, .name = "New Wind Chill (NOAA; 2001)", .unit = "[-]", .inputs = {Ta, WS}, .formula = formula<&Index_108<Number>, &Index_108<double>>()},
    {.number = 109, .name = "Normal Equivalent Effective Temperature (Boksha; 1980)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH, WS}, .formula = formula<&Index_109<Number>, &Index_109<double>>()},
    {.number = 110, .name = "Operative Temperature (ASHRAE; 2004)", .unit = "°C", .gate = Gate::None, .inputs = {Tmrt, Ta}, .formula = formula<&Index_110<Number>, &Index_110<double>>()},
    {.number = 111, .name = "Operative Temperature (ISO 7726:1998)", .unit = "°C", .gate = Gate::Text, .gated = Gated::TmrtLessTa, .inputs = {Ta, WS, Tmrt}, .formula = formula<&Index_111<Number>, &Index_111<double>>()},
    {.number = 112, .name = "Operative Temperature (ISO 7730:1994)", .unit = "°C", .gate = Gate::Text, .gated = Gated::TmrtLessTa, .inputs = {WS, Ta, Tmrt}, .formula = formula<&Index_112<Number>, &Index_112<double>>()},
    {.number = 113, .name = "Operative Temperature (Winslow; 1937)", .unit = "°C", .inputs = {WS, Tmrt, Ta}, .formula = formula<&Index_113<Number>, &Index_113<double>>()},
    {.number = 114, .name = "Outdoor Standard Effective Temperature (Skinner; 2001)", .unit = "°C", .gated = Gated::WBGT_Outdoor, .inputs = {Wbgt}, .formula = formula<&Index_114<Number>, &Index_114<double>>()},
    {.number = 115, .name = "Oxford Index (Lind; 1957)", .unit = "[-]", .inputs = {Tnwb, Ta}, .formula = formula<&Index_115<Number>, &Index_115<double>>()},
    {.number = 116, .name = "Perceived Equivalent Temperature (Monteiro; 2010)", .unit = "°C", .inputs = {Ta, Tmrt, RH, WS}, .formula = formula<&Index_116<Number>, &Index_116<double>>()},
    {.number = 117, .name = "Perceived Temperature (Linke; 1926)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, WS, SR}, .formula = formula<&Index_117<Number>, &Index_117<double>>()},
    {.number = 118, .name = "Predicted Mean Vote (high metabolic rate) (da Silva; 2013)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_118<Number>, &Index_118<double>>()},
    {.number = 119, .name = "Predicted Mean Vote (low metabolic rate) (da Silva; 2013)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_119<Number>, &Index_119<double>>()},
    {.number = 120, .name = "Predicted Mean Vote (moderate metabolic rate) (da Silva; 2013)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_120<Number>, &Index_120<double>>()},
    {.number = 121, .name = "Predicted Mean Vote (Resting Conditions) (da Silva; 2013)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_121<Number>, &Index_121<double>>()},
    {.number = 122, .name = "Predicted Mean Vote (very high metabolic rate) (da Silva; 2013)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_122<Number>, &Index_122<double>>()},
    {.number = 123, .name = "Predicted Percentage Dissatisfied (high metabolic rate) (da Silva; 2013)", .unit = "% of dissatisfied people", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_123<Number>, &Index_123<double>>()},
    {.number = 124, .name = "Predicted Percentage Dissatisfied (low metabolic rate) (da Silva; 2013)", .unit = "% of dissatisfied people", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_124<Number>, &Index_124<double>>()},
    {.number = 125, .name = "Predicted Percentage Dissatisfied (moderate metabolic rate) (da Silva; 2013)", .unit = "% of dissatisfied people", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_125<Number>, &Index_125<double>>()},
    {.number = 126, .name = "Predicted Percentage Dissatisfied (Resting Conditions) (da Silva; 2013)", .unit = "% of dissatisfied people", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_126<Number>, &Index_126<double>>()},
    {.number = 127, .name = "Predicted Percentage Dissatisfied (very high metabolic rate) (da Silva; 2013)", .unit = "% of dissatisfied people", .gate = Gate::None, .inputs = {Ta, Tmrt, Ea, WS}, .formula = formula<&Index_127<Number>, &Index_127<double>>()},
    {.number = 128, .name = "Predicted Percentage Dissatisfied (Xavier; 2000)", .unit = "% of dissatisfied people", .gate = Gate::Text, .gated = Gated::MeanOfTmrtAndTa, .inputs = {Ta, Tmrt, RH, WS}, .formula = formula<&Index_128<Number>, &Index_128<double>>()},
    {.number = 129, .name = "Predicted Thermal Sensation Vote (Cheng; 2008)", .unit = "[-]", .inputs = {Ta, WS, SR, RH}, .formula = formula<&Index_129<Number>, &Index_129<double>>()},
    {.number = 130, .name = "Psychrometric Wet Bulb Temperature (Malchaire; 1976)", .unit = "°C", .inputs = {Tg, Ta, RH, Tnwb}, .formula = formula<&Index_130<Number>, &Index_130<double>>()},
    {.number = 131, .name = "Psychrometric Wet Bulb Temperature (McPherson; 2008)", .unit = "°C", .gate = Gate::None, .inputs = {Tpwb}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 132, .name = "Radiation Equivalent Effective Temperature (Non-Pigmented) (Sheleihovskyi; 1948)", .unit = "°C", .inputs = {Ta, RH, WS, SR}, .formula = formula<&Index_132<Number>, &Index_132<double>>()},
    {.number = 133, .name = "Radiation Equivalent Effective Temperature (Pigmented) (Sheleihovskyi; 1948)", .unit = "°C", .inputs = {Ta, RH, WS, SR}, .formula = formula<&Index_133<Number>, &Index_133<double>>()},
    {.number = 134, .name = "Relative Humidity", .unit = "%", .gate = Gate::None, .inputs = {RH}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 135, .name = "Relative Humidity Dry Temperature (Wallace; 2005)", .unit = "°C", .gated = Gated::WBGT_Outdoor, .inputs = {RH, Ta}, .formula = formula<&Index_135<Number>, &Index_135<double>>()},
    {.number = 136, .name = "Relative Strain Index (Kyle; 1992)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Ea}, .formula = formula<&Index_136<Number>, &Index_136<double>>()},
    {.number = 137, .name = "Relative Strain Index (Lee; 1966)", .unit = "[-]", .inputs = {Ta, Ea}, .formula = formula<&Index_137<Number>, &Index_137<double>>()},
    {.number = 138, .name = "Revised Wind Chill Index (Court; 1948)", .unit = "kg cal/m²/hr", .inputs = {WS, Ta}, .formula = formula<&Index_138<Number>, &Index_138<double>>()},
    {.number = 139, .name = "Robaa's Index (Robaa; 2003)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Tnwb, WS}, .formula = formula<&Index_139<Number>, &Index_139<double>>()},
    {.number = 140, .name = "Saturated Vapor Pressure", .unit = "hPa", .gate = Gate::None, .inputs = {Es}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 141, .name = "Saturation Deficit (Flugge; 1912)", .unit = "kPa", .gate = Gate::None, .inputs = {Es, Ea}, .formula = formula<&Index_141<Number>, &Index_141<double>>()},
    {.number = 142, .name = "Severity Index (Diurnal temperature < 4°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_142<Number>, &Index_142<double>>()},
    {.number = 143, .name = "Severity Index (Diurnal temperature: >18°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_143<Number>, &Index_143<double>>()},
    {.number = 144, .name = "Severity Index (Diurnal temperature: 10.1-12°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_144<Number>, &Index_144<double>>()},
    {.number = 145, .name = "Severity Index (Diurnal temperature: 12.1-14°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_145<Number>, &Index_145<double>>()},
    {.number = 146, .name = "Severity Index (Diurnal temperature: 14.1-16°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_146<Number>, &Index_146<double>>()},
    {.number = 147, .name = "Severity Index (Diurnal temperature: 16.1-18°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_147<Number>, &Index_147<double>>()},
    {.number = 148, .name = "Severity Index (Diurnal temperature: 4.1-6°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_148<Number>, &Index_148<double>>()},
    {.number = 149, .name = "Severity Index (Diurnal temperature: 6.1-8°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_149<Number>, &Index_149<double>>()},
    {.number = 150, .name = "Severity Index (Diurnal temperature: 8.1-10°C) (Osokin; 1968)", .unit = "[-]", .inputs = {Ta, WS, RH}, .formula = formula<&Index_150<Number>, &Index_150<double>>()},
    {.number = 151, .name = "Simple Index (Moran; 2001)", .unit = "[-]", .inputs = {Ta, RH, SR}, .formula = formula<&Index_151<Number>, &Index_151<double>>()},
    {.number = 152, .name = "Simplified Radiation Equivalent Effective Temperature (Boksha; 1980)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH, WS}, .formula = formula<&Index_152<Number>, &Index_152<double>>()},
    {.number = 153, .name = "Simplified Tropical Summer Index (Auliciems; 2007)", .unit = "°C", .inputs = {Tnwb, Tg, WS}, .formula = formula<&Index_153<Number>, &Index_153<double>>()},
    {.number = 154, .name = "Simplified Universal Thermal Cimate Index (UTCI) (Blazejcyk; 2011)", .unit = "°C", .inputs = {Ta, Tmrt, WS, RH}, .formula = formula<&Index_154<Number>, &Index_154<double>>()},
    {.number = 155, .name = "Simplified Wet Bulb Globe Temperature (American College of Sports Medicine; 1984)", .unit = "°C", .inputs = {Ta, Ea}, .formula = formula<&Index_155<Number>, &Index_155<double>>()},
    {.number = 156, .name = "Simplified Wet Bulb Globe Temperature (Gagge; 1976)", .unit = "°C", .inputs = {Ta, Ea}, .formula = formula<&Index_156<Number>, &Index_156<double>>()},
    {.number = 157, .name = "Skin Temperature (Blazejczyk; 2005)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, Tmrt, RH, WS}, .formula = formula<&Index_157<Number>, &Index_157<double>>()},
    {.number = 158, .name = "Skin Wettedness (Blazejczyk; 2005)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, Tmrt, RH, WS}, .formula = formula<&Index_158<Number>, &Index_158<double>>()},
    {.number = 159, .name = "Solar Radiation", .unit = "W/m²", .gate = Gate::None, .inputs = {SR}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 160, .name = "Standard Operative Temperature (Gagge; 1940)", .unit = "°C", .inputs = {Ta, Tmrt, WS}, .formula = formula<&Index_160<Number>, &Index_160<double>>()},
    {.number = 161, .name = "Subjective Temperature (McIntyre; 1973)", .unit = "°C", .inputs = {Ta, Tmrt, WS}, .formula = formula<&Index_161<Number>, &Index_161<double>>()},
    {.number = 162, .name = "Sultriness Index (Scharlau; 1943)", .unit = "Torr", .gate = Gate::None, .inputs = {Ea}, .formula = formula<&Index_162<Number>, &Index_162<double>>()},
    {.number = 163, .name = "Sultriness Intensity (Aikimovich; 1971)", .unit = "[-]", .inputs = {Ea}, .formula = formula<&Index_163<Number>, &Index_163<double>>()},
    {.number = 164, .name = "Summer Scharlau Index (Sharlau; 1950)", .unit = "[-]", .inputs = {Ta, RH}, .formula = formula<&Index_164<Number>, &Index_164<double>>()},
    {.number = 165, .name = "Summer Simmer Index (Pepi; 1987)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_165<Number>, &Index_165<double>>()},
    {.number = 166, .name = "Swedish Wet Bulb Globe Temperature (WBGT) (Eriksson; 1974)", .unit = "°C", .inputs = {WS, Tpwb, Tg}, .formula = formula<&Index_166<Number>, &Index_166<double>>()},
    {.number = 167, .name = "Temperature Humidity Index (Costanzo; 2006)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_167<Number>, &Index_167<double>>()},
    {.number = 168, .name = "Temperature Humidity Index (eq. 1) (Pepi; 1987)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_168<Number>, &Index_168<double>>()},
    {.number = 169, .name = "Temperature Humidity Index (eq. 2) (Pepi; 1987)", .unit = "°C", .inputs = {Ta, Td}, .formula = formula<&Index_169<Number>, &Index_169<double>>()},
    {.number = 170, .name = "Temperature Humidity Index (Romanian National Institute of Meteorology and Hydrology; 2000)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, RH}, .formula = formula<&Index_170<Number>, &Index_170<double>>()},
    {.number = 171, .name = "Temperature Humidity Index (Kyle; 1994)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH}, .formula = formula<&Index_171<Number>, &Index_171<double>>()},
    {.number = 172, .name = "Temperature Humidity Index (Nieuwolt; 1977)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, RH}, .formula = formula<&Index_172<Number>, &Index_172<double>>()},
    {.number = 173, .name = "Temperature Humidity Index (Schoen; 2005)", .unit = "°C", .inputs = {Ta, Td}, .formula = formula<&Index_173<Number>, &Index_173<double>>()},
    {.number = 174, .name = "Temperature of the exhaled air (McPherson; 1993)", .unit = "°C", .gate = Gate::None, .inputs = {Ta, StaleEa}, .formula = formula<&Index_174<Number>, &Index_174<double>>()},
    {.number = 175, .name = "Temperature Resultante Miniere (Vogt; 1978)", .unit = "°C", .gate = Gate::None, .inputs = {Tnwb, Ta, WS}, .formula = formula<&Index_175<Number>, &Index_175<double>>()},
    {.number = 176, .name = "Temperature Wind Speed Humidity Index (Zaninovic; 1992)", .unit = "kJ/kg", .inputs = {Ta, Tnwb, WS, RH}, .formula = formula<&Index_176<Number>, &Index_176<double>>()},
    {.number = 177, .name = "Thermal comfort (Givoni; 2000)", .unit = "[-]", .gate = Gate::None, .inputs = {Ta, SR, WS}, .formula = formula<&Index_177<Number>, &Index_177<double>>()},
    {.number = 178, .name = "Thermal Comfort (Humid-Tropical environments) (Sangkertadi; 2014)", .unit = "[-]", .inputs = {WS, Ta, Tg, RH}, .formula = formula<&Index_178<Number>, &Index_178<double>>()},
    {.number = 179, .name = "Thermal Resistance of Clothing  (1 Clothing Layer) (Jokl 1982)", .unit = "W/m2/K", .inputs = {WS}, .formula = formula<&Index_179<Number>, &Index_179<double>>(), .format = values::kFormat0_00},
    {.number = 180, .name = "Thermal Resistance of Clothing  (2 Clothing Layers) (Jokl 1982)", .unit = "W/m2/K", .inputs = {WS}, .formula = formula<&Index_180<Number>, &Index_180<double>>(), .format = values::kFormat0_00},
    {.number = 181, .name = "Thermal Resistance of Clothing  (3 Clothing Layers) (Jokl 1982)", .unit = "W/m2/K", .inputs = {WS}, .formula = formula<&Index_181<Number>, &Index_181<double>>(), .format = values::kFormat0_00},
    {.number = 182, .name = "Thermal Resistance of Clothing  (4 Clothing Layers) (Jokl 1982)", .unit = "W/m2/K", .inputs = {WS}, .formula = formula<&Index_182<Number>, &Index_182<double>>(), .format = values::kFormat0_00},
    {.number = 183, .name = "Thermal Sensation (Acclimatization: 20°C) (Givoni; 2004)", .unit = "[-]", .inputs = {Ta, SR, WS}, .formula = formula<&Index_183<Number>, &Index_183<double>>()},
    {.number = 184, .name = "Thermal Sensation (Acclimatization: 30°C) (Givoni; 2004)", .unit = "[-]", .inputs = {Ta, SR, WS}, .formula = formula<&Index_184<Number>, &Index_184<double>>()},
    {.number = 185, .name = "Thermal Sensation (Acclimatization: 40°C) (Givoni; 2004)", .unit = "[-]", .inputs = {Ta, SR, WS}, .formula = formula<&Index_185<Number>, &Index_185<double>>()},
    {.number = 186, .name = "Thermal Sensation (Rohles; 1971)", .unit = "[-]", .inputs = {Ta, Td}, .formula = formula<&Index_186<Number>, &Index_186<double>>()},
    {.number = 187, .name = "Thermal Sensation (Rohles; 1971)", .unit = "[-]", .inputs = {Ta, Ea}, .formula = formula<&Index_187<Number>, &Index_187<double>>()},
    {.number = 188, .name = "Thermal Sensation (Sub Tropical Environments) (Monteiro; 2010)", .unit = "[-]", .inputs = {Ta, Tmrt, RH, WS}, .formula = formula<&Index_188<Number>, &Index_188<double>>()},
    {.number = 189, .name = "Thermal Sensation Index (Xavier; 2000)", .unit = "[-]", .gate = Gate::Text, .gated = Gated::MeanOfTmrtAndTa, .inputs = {Ta, Tmrt, RH, WS}, .formula = formula<&Index_189<Number>, &Index_189<double>>()},
    {.number = 190, .name = "Thermal Sensation Vote (Summer) (Yahia; 2013)", .unit = "[-]", .inputs = {Wbgt}, .formula = formula<&Index_190<Number>, &Index_190<double>>()},
    {.number = 191, .name = "Thermal Sensation Vote (Winter) (Yahia; 2013)", .unit = "[-]", .inputs = {Wbgt}, .formula = formula<&Index_191<Number>, &Index_191<double>>()},
    {.number = 192, .name = "TPV index (Baghdad) (Nicol; 1975)", .unit = "[-]", .inputs = {Tg, Ea, WS}, .formula = formula<&Index_192<Number>, &Index_192<double>>()},
    {.number = 193, .name = "TPV index (Roorkee) (Nicol; 1975)", .unit = "[-]", .inputs = {Tg, Ea, WS}, .formula = formula<&Index_193<Number>, &Index_193<double>>()},
    {.number = 194, .name = "Tropical Summer Index (Sharma; 1986)", .unit = "°C", .inputs = {Tnwb, Tg, WS}, .formula = formula<&Index_194<Number>, &Index_194<double>>()},
    {.number = 195, .name = "Universal Thermal Climate Index (Broede; 2009)", .unit = "°C", .gateWind = GateWind::At10m, .inputs = {TextTa, TextTg, TextTd, WindAt10m, TextSR, TextRH}, .block = Block::Utci},
    {.number = 196, .name = "Radiative Effective Temperature (Blazejczyk; 2004)", .unit = "°C", .inputs = {TextTa, TextWS, TextRH, TextSR}, .robustInputs = {Ta, WS, RH, SR}, .formula = formula<&Index_196<Number>, &Index_196<double>>(), .block = Block::RadiativeEffectiveTemperature},
    {.number = 197, .name = "Wet Bulb Globe Temperature (eq. 1) (Ono; 2014)", .unit = "°C", .inputs = {Ta, RH, SR, WS}, .formula = formula<&Index_197<Number>, &Index_197<double>>()},
    {.number = 198, .name = "Wet Bulb Globe Temperature (eq. 2) (Ono; 2014)", .unit = "°C", .inputs = {Ta, RH, SR, WS}, .formula = formula<&Index_198<Number>, &Index_198<double>>()},
    {.number = 199, .name = "Wet Bulb Globe Temperature (indoor) (Yaglou; 1956)", .unit = "°C", .inputs = {TextTa, TextTd, TextWS, TextRH}, .block = Block::WbgtIndoor},
    {.number = 200, .name = "Wet Bulb Globe Temperature (outdoor) (Yaglou; 1956)", .unit = "°C", .inputs = {TextTa, TextTg, TextTd, TextWS, TextSR, TextRH}, .robustInputs = {Wbgt}, .block = Block::WbgtOutdoor},
    {.number = 201, .name = "Wet Bulb Temperature (Liljegren; 2008)", .unit = "°C", .inputs = {Tnwb}, .formula = formula<&Read_Out<Number>, &Read_Out<double>>()},
    {.number = 202, .name = "Wet Bulb Temperature (Malchaire; 1976)", .unit = "°C", .inputs = {Tg, Ta, RH, Tpwb}, .formula = formula<&Index_202<Number>, &Index_202<double>>()},
    {.number = 203, .name = "Wet Bulb Temperature (Stull; 2011)", .unit = "°C", .inputs = {Ta, RH}, .formula = formula<&Index_203<Number>, &Index_203<double>>()},
    {.number = 204, .name = "Wet Cooling Power (Landsberg; 1972)", .unit = "mcal/cm²/s", .gate = Gate::None, .inputs = {WS, Tnwb}, .formula = formula<&Index_204<Number>, &Index_204<double>>()},
    {.number = 205, .name = "Wet Globe Temperature (Botsball) (Botsford; 1971)", .unit = "°C", .inputs = {Wbgt}, .formula = formula<&Index_205<Number>, &Index_205<double>>()},
    {.number = 206, .name = "Wet Kata Cooling (Maloney; 2011)", .unit = "W/m²", .inputs = {Ta, RH, WS, Unset}, .formula = formula<&Index_206<Number>, &Index_206<double>>()},
    {.number = 207, .name = "Wet Kata Cooling Power (Chamber of Mines of South Africa; 1972)", .unit = "mcal/cm²/s", .gate = Gate::None, .inputs = {RH, Tnwb}, .formula = formula<&Index_207<Number>, &Index_207<double>>()},
    {.number = 208, .name = "Wet Kata Cooling Power (Hill; 1919)", .unit = "mcal/cm²/s", .inputs = {Ta, RH, WS}, .formula = formula<&Index_208<Number>, &Index_208<double>>(), .block = Block::WetKata},
    {.number = 209, .name = "Wet Kata Cooling Power (Krisha; 1996)", .unit = "W/m²", .gate = Gate::None, .inputs = {Tnwb, WS}, .formula = formula<&Index_209<Number>, &Index_209<double>>()},
    {.number = 210, .name = "Wet-Bulb Dry Temperature (Wallace; 2005)", .unit = "°C", .gated = Gated::WBGT_Outdoor, .inputs = {Tnwb, Ta}, .formula = formula<&Index_210<Number>, &Index_210<double>>()},
    {.number = 211, .name = "Wind Chill (National Oceanic and Atmospheric Administration; 2003)", .unit = "°C", .inputs = {Ta, WS}, .formula = formula<&Index_211<Number>, &Index_211<double>>()},
    {.number = 212, .name = "Wind Chill (Paul Siple; 1945)", .unit = "kg cal/m²/hr", .inputs = {WS, Ta}, .formula = formula<&Index_212<Number>, &Index_212<double>>()},
    {.number = 213, .name = "Wind Chill (Steadman; 1971)", .unit = "cal/m²/s", .inputs = {Ta, WS, Tmrt}, .formula = formula<&Index_213<Number>, &Index_213<double>>()},
    {.number = 214, .name = "Wind Chill Equivalent (Quayle; 1998)", .unit = "°C", .inputs = {Ta, WS}, .formula = formula<&Index_214<Number>, &Index_214<double>>()},
    {.number = 215, .name = "Wind Chill Equivalent Temperature (wind of 1.34 m/s) (Falconer; 1968)", .unit = "°C", .inputs = {WS, Ta}, .formula = formula<&Index_215<Number>, &Index_215<double>>()},
    {.number = 216, .name = "Wind Speed at 10m (high crops - hedges and shrubs) (Hellmann; 1915)", .unit = "m/s", .gate = Gate::None, .inputs = {WS}, .formula = formula<&Index_216<Number>, &Index_216<double>>()},
    {.number = 217, .name = "Wind Speed at 10m (large city with tall buildings) (Hellmann; 1915)", .unit = "m/s", .gate = Gate::None, .inputs = {WS}, .formula = formula<&Index_217<Number>, &Index_217<double>>()},
    {.number = 218, .name = "Wind Speed at 10m (small town with trees and shrubs) (Hellmann; 1915)", .unit = "m/s", .gate = Gate::None, .inputs = {WS}, .formula = formula<&Index_218<Number>, &Index_218<double>>()},
    {.number = 219, .name = "Wind Speed at 10m (smooth hard ground - calm water) (Hellmann; 1915)", .unit = "m/s", .gate = Gate::None, .inputs = {WS}, .formula = formula<&Index_219<Number>, &Index_219<double>>()},
    {.number = 220, .name = "Wind Speed at 10m (tall grass on level ground) (Hellmann; 1915)", .unit = "m/s", .gate = Gate::None, .inputs = {WS}, .formula = formula<&Index_220<Number>, &Index_220<double>>()},
    {.number = 221, .name = "Wind Speed at 10m (wooded countryside - many trees) (Hellmann; 1915)", .unit = "m/s", .gate = Gate::None, .inputs = {WS}, .formula = formula<&Index_221<Number>, &Index_221<double>>()},
    {.number = 222, .name = "Winter Scharlau Index (Sharlau; 1950)", .unit = "[-]", .inputs = {Ta, RH}, .formula = formula<&Index_222<Number>, &Index_222<double>>()},
}};
// clang-format on

consteval bool everyRowIsWhole()
{
    for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
        const CatalogueRow& row = kCatalogue[i];
        if (row.number != static_cast<int>(i) + 1 || row.name.empty() || row.unit.empty())
            return false;
        // Every formula has an input, so an arity of 0 is that of a row whose block runs a model.
        if (row.formula.arity != 0 && row.formula.arity != row.inputs.size())
            return false;
    }
    return true;
}
static_assert(everyRowIsWhole(), "each row stands at its number and has as many inputs as its formula");
static_assert(liveOf(Input::Ta) == Live::Ta && liveOf(Input::WS) == Live::WS && liveOf(Input::Es) == Live::Es,
              "inputs begin as the live quantities do");

} // namespace

std::string_view inputName(Input input)
{
    switch (input) {
    case Ta:
        return "Ta";
    case Tg:
        return "Tg";
    case SR:
        return "SR";
    case Td:
        return "Td";
    case RH:
        return "RH";
    case WS:
        return "WS";
    case Tmrt:
        return "Tmrt";
    case Tnwb:
        return "Tnwb";
    case Tpwb:
        return "Tpwb";
    case Es:
        return "Es";
    case Ea:
        return "Ea";
    case Wbgt:
        return "WBGT_Outdoor_Value";
    case StaleEa:
        return "Ea of an earlier index";
    case Unset:
        return "0";
    case TextTa:
        return "text of Ta";
    case TextTg:
        return "text of Tg";
    case TextSR:
        return "text of SR";
    case TextTd:
        return "text of Td";
    case TextRH:
        return "text of RH";
    case TextWS:
        return "text of WS";
    case WindAt10m:
        return "WS at 10 m";
    }
    return {};
}

std::string_view gatedName(Gated gated)
{
    switch (gated) {
    case Gated::Ta:
        return "Ta";
    case Gated::Tnwb:
        return "Tnwb";
    case Gated::MeanOfTmrtAndTa:
        return "(Tmrt + Ta) / 2";
    case Gated::TmrtLessTa:
        return "Tmrt - Ta";
    case Gated::WBGT_Outdoor:
        return "WBGT_Outdoor";
    }
    return {};
}

std::string_view CatalogueRow::source() const
{
    const std::size_t open = name.rfind('(');
    const std::size_t close = name.rfind(')');
    if (open == std::string_view::npos || close == std::string_view::npos || close < open)
        return {};
    return name.substr(open + 1, close - open - 1);
}

std::span<const CatalogueRow, kIndexCount> rows()
{
    return kCatalogue;
}

const CatalogueRow& row(int index)
{
    return kCatalogue.at(static_cast<std::size_t>(index - 1));
}

} // namespace comfortics::catalogue
