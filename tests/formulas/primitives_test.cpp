// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/primitives.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

const Assumptions kSite = unusualAssumptions();

Assumptions with(Number Assumptions::*member, Number value)
{
    Assumptions site = kSite;
    site.*member = value;
    return site;
}

RecordedCaptions& captions()
{
    static RecordedCaptions recorded;
    return recorded;
}

TEST(Primitives, VapourPressures)
{
    expectAll({
        {"Magnus, warm", [] { return Vapor_Pressure_Magnus(27.3); }, "36.2953287"},
        {"Magnus, frost", [] { return Vapor_Pressure_Magnus(-14.6); }, "1.96946537"},
        {"Magnus at its pole", [] { return Vapor_Pressure_Magnus(-237.3); }, "fails"},
        {"Hardy, warm", [] { return Saturation_Pressure_Hardy(27.3); }, "36.3147307"},
        {"Hardy, frost", [] { return Saturation_Pressure_Hardy(-14.6); }, "1.97791002"},
        // The triple point of water is at 611.657 Pa (Guildner, 1976).
        {"Hardy, triple point", [] { return Saturation_Pressure_Hardy(0.01); }, "6.11657155"},
        {"Hardy, boiling water", [] { return Saturation_Pressure_Hardy(100); }, "1014.1777"},
        // Far outside its range, where the highest powers of T weigh.
        {"Hardy, 1500 °C", [] { return Saturation_Pressure_Hardy(1500); }, "7.08904854e+15"},
        {"Hardy at 0 K", [] { return Saturation_Pressure_Hardy(-273.15); }, "fails"},
        {"Hardy below 0 K", [] { return Saturation_Pressure_Hardy(-300); }, "fails"},
        {"Buck, warm", [] { return Saturation_Pressure_Buck(300.45); }, "36.4273938"},
        {"Buck, frost", [] { return Saturation_Pressure_Buck(258.55); }, "1.98466535"},
        {"Buck at its pole", [] { return Saturation_Pressure_Buck(32.18); }, "fails"},
    });
}

TEST(Primitives, HumidityPair)
{
    expectAll({
        {"dew point, warm", [] { return Dew_Point_Magnus(captions(), 27.3, 43.7); }, "13.8750326"},
        {"dew point, frost", [] { return Dew_Point_Magnus(captions(), -5.2, 71); }, "-9.61636708"},
        {"dew point of saturated air", [] { return Dew_Point_Magnus(captions(), 20, 100); }, "20"},
        {"dew point of dry air", [] { return Dew_Point_Magnus(captions(), 20, 0); }, "fails"},
        {"dew point at the pole", [] { return Dew_Point_Magnus(captions(), -237.3, 50); }, "fails"},
        {"humidity, warm", [] { return Relative_Humidity_Magnus(captions(), 27.3, 14.6); }, "45.8515085"},
        {"humidity, frost", [] { return Relative_Humidity_Magnus(captions(), -5.2, -9.47); }, "71.8683418"},
        // 237.7 here and 237.3 there: the way back from 50 % does not end at 50 %.
        {"no inverse", [] { return Relative_Humidity_Magnus(captions(), 20, 9.2696); }, "50.0515358"},
        {"humidity at the pole of t", [] { return Relative_Humidity_Magnus(captions(), -237.7, 3); },
         "fails"},
        {"humidity at the pole of td", [] { return Relative_Humidity_Magnus(captions(), 3, -237.7); },
         "fails"},
    });
}

TEST(Primitives, TheHumidityPairWritesItsCaption)
{
    struct Row {
        Number (*compute)(Captions&, Number, Number);
        Number t, second;
        Live written;
        const char* caption;
    };
    for (const Row& row : {
             Row{Dew_Point_Magnus, 27.3, 43.7, Live::Td, "13.87503"},
             Row{Dew_Point_Magnus, -5.2, 71, Live::Td, "-09.61637"},
             Row{Relative_Humidity_Magnus, 27.3, 14.6, Live::RH, "45.85151"},
             Row{Relative_Humidity_Magnus, 12, -20, Live::RH, "08.92296"},
         }) {
        RecordedCaptions recorded;
        row.compute(recorded, row.t, row.second);
        EXPECT_EQ(recorded.written, (std::map<Live, std::string>{{row.written, row.caption}}));
    }
    RecordedCaptions recorded;
    EXPECT_THROW(Dew_Point_Magnus(recorded, 20, 0), values::RunFailure);
    EXPECT_TRUE(recorded.written.empty());
}

TEST(Primitives, WindAtHeight)
{
    expectAll({
        {"10 m", [] { return Wind_At_10m(kSite, 3.4); }, "6.17025187"},
        {"2 m", [] { return Wind_At_2m(kSite, 3.4); }, "3.99559067"},
        {"10 m without friction", [] { return Wind_At_10m(with(&Assumptions::Friction, 0), 3.4); }, "3.4"},
        {"2 m without friction", [] { return Wind_At_2m(with(&Assumptions::Friction, 0), 3.4); }, "3.4"},
    });
}

TEST(Primitives, Body)
{
    expectAll({
        {"surface", [] { return Body_Surface_Area(kSite); }, "1.27016076"},
        // DuBois (1916) in cm and kg, 0.007184 * 75 ^ 0.425 * 180 ^ 0.725: 1.94 m².
        {"surface of a man", [] { return Body_Surface_Area({.Height = 1.80, .Weight = 75}); }, "1.93787149"},
        {"surface, no height", [] { return Body_Surface_Area(with(&Assumptions::Height, 0)); }, "0"},
        {"surface, negative height", [] { return Body_Surface_Area(with(&Assumptions::Height, -0.62)); },
         "fails"},
        {"surface, negative weight", [] { return Body_Surface_Area(with(&Assumptions::Weight, -171)); },
         "fails"},
        {"skin, warm", [] { return Mean_Skin_Temperature(27.3); }, "32.4108715"},
        {"skin, frost", [] { return Mean_Skin_Temperature(-14.6); }, "19.797086"},
        {"radiation, warm", [] { return Radiative_Coefficient(kSite, 34.5); }, "4.2689914"},
        {"radiation, frost", [] { return Radiative_Coefficient(kSite, -7.25); }, "2.75640339"},
    });
}

TEST(Primitives, Units)
{
    expectAll({
        {"to Fahrenheit", [] { return To_Fahrenheit(-17.6); }, "0.32"},
        {"to Celsius", [] { return To_Celsius(81.14); }, "27.3"},
        // By definition: a foot is 0.3048 m, a thermochemical calorie 4.184 J; a mmHg is taken as 133.322 Pa.
        {"hPa in mmHg", [] { return HPA_TO_MMHG; }, "0.750063755"},
        {"m/s in ft/min", [] { return MS_TO_FTMIN; }, "196.850394"},
        {"W/m² in cal/cm²/min", [] { return WM2_TO_CALCM2MIN; }, "0.00143403442"},
    });
}

} // namespace
} // namespace comfortics::tests
