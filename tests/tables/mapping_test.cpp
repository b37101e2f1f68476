// SPDX-License-Identifier: GPL-3.0-or-later
#include "open_tables.h"

#include <gtest/gtest.h>

namespace comfortics::tests {
namespace {

using tables::Mapping;
using tables::Quantity;
using tables::Role;

// 36 km/h at 10 m are 10 (1.1 / 10)^0.2 = 6.4310 m/s; 12.3 hPa are saturated at 10.0202 °C by Murray (1967).
TEST(TableMapping, ReadingsComeInTheirUnits)
{
    const struct {
        std::string column;
        std::string cell;
        std::string readings; // ta|tg|sr|td|rh|ws
    } rows[] = {
        {"ta=x", "21.50", "21.50|||||"},
        {"ta=x:F", "75.2", "24|||||"},
        {"tg=x:K", "300", "|26.85||||"},
        {"td=x:degC", "+4", "|||+4||"},
        {"rh=x:1", "0.455", "||||45.5|"},
        {"ws=x:km/h@10m", "36", "|||||6.431"},
        {"ws=x:kn@1.1m", "20", "|||||10.2891"},
        {"sr=x:J/cm2@10min", "33", "||550|||"},
        {"sr=x:kWh/m2@1h", "0.4", "||400|||"},
        {"sr=x:kW/m2", "0.55", "||550|||"},
        {"ea=x:kPa", "1.23", "|||10.0202||"},
        {"ta=x", "-9999", "|||||"},
        {"ta=x,gap=-99.9", "-99.90", "|||||"},
        {"ta=x", "NaN", "|||||"},
        {"ta=x", "2O", "refused: \"2O\" in the column \"x\" is no number"},
        {"ea=x:hPa", "0", "refused: \"0\" in the column \"x\" has no value in °C"},
    };
    for (const auto& row : rows) {
        const std::string text = "x,y\n" + row.cell + ",1\n";
        const Mapping mapping = tables::mappingOfText(row.column, openTable(text).layout);
        EXPECT_EQ(mappedRows(openTable(text), mapping), std::vector<std::string>{row.readings}) << row.column;
    }
}

TEST(TableMapping, TheFilesOfStationsAreReadByTheirGuess)
{
    const struct {
        const char* file;
        std::size_t place; // of the first row that is compared
        std::vector<std::string> rows;
    } files[] = {
        {"logger.dat",
         1,
         {"2024-07-01T10:10:00 26.73|38.9|||47.5|1.71", "2024-07-01T10:20:00 |39.4|||46.9|2.02"}},
        {"station.csv",
         2,
         {"2024-07-13T12:20:00 ||541|13.2||2.2509", "2024-07-13T12:30:00 25.3|||12.9||3.2155",
          "refused: \"zwölf\" in the column \"Windgeschwindigkeit 10 m (km/h)\" is no number"}},
        {"two_days.epw",
         4,
         {"2005-07-01T05:00:00+02:00 ||0||77|2.5081", "2005-07-01T06:00:00+02:00 22.8||0|14.3||2.5724"}},
        {"two_days.epw", 23, {"2005-07-02T00:00:00+02:00 22.8||0||73|1.3505"}},
    };
    for (const auto& file : files) {
        const std::vector<std::string> all = mappedRows(
            openTable(tableFile(file.file)), tables::guessMapping(openTable(tableFile(file.file))));
        for (std::size_t i = 0; i < file.rows.size(); ++i)
            EXPECT_EQ(all.at(file.place + i), file.rows[i]) << file.file;
    }
}

// The shapes in which loggers and weather services give their files, with the names that they have there.
TEST(TableMapping, TheShapesOfLoggersAndServicesAreKnown)
{
    const struct {
        const char* text;
        const char* row; // the last one
    } files[] = {
        // as many cells in front as columns
        {"\"TOA5\",\"Hill\",\"CR1000\",\"1\",\"2\",\"met.CR1\"\n"
         "\"TIMESTAMP\",\"RECORD\",\"AirTC_Avg\",\"RH\",\"SlrW_Avg\",\"WS_ms_S_WVT\"\n"
         "\"TS\",\"RN\",\"Deg "
         "C\",\"%\",\"W/m^2\",\"meters/second\"\n\"\",\"\",\"Avg\",\"Smp\",\"Avg\",\"WVc\"\n"
         "\"2019-07-01 13:00:00\",7,31.0,37.1,850,2\n",
         "2019-07-01T13:00:00 31.0||850||37.1|2"},
        {"\"Plot Title: Site 4\"\n\"#\",\"Date Time, GMT+02:00\",\"Temp, °C (LGR S/N: 9, SEN S/N: 9)\","
         "\"RH, % (LGR S/N: 9, SEN S/N: 9)\",\"Wind Speed, km/h (LGR S/N: 9)\"\n"
         "1,07/14/19 12:10:00 PM,30.3,44.1,36\n",
         "2019-07-14T12:10:00+02:00 30.3||||44.1|10"},
        {"\t\tTemp\tOut\tDew\tWind\tSolar\nDate\tTime\tOut\tHum\tPt.\tSpeed\tRad.\n"
         "12/07/19\t12:10a\t21\t65\t14\t1\t0\n13/07/19\t1:00p\t31\t---\t14\t2\t800\n",
         "2019-07-13T13:00:00 31||800|14||2"},
        // another table above, as wide
        {"latitude,longitude,elevation,timezone\n52.5,13.4,38.0,Europe/Berlin\n\n"
         "time,temperature_2m (°C),relative_humidity_2m (%),wind_speed_10m (km/h)\n"
         "2023-07-01T00:00,17.1,77,9\n2023-07-01T01:00,17,78,36\n",
         "2023-07-01T01:00:00 17||||78|6.431"},
        {"STATIONS_ID;MESS_DATUM;QN_9;TT_TU;RF_TU;eor\n 433;2020070112;    3;  25.7;  -999;eor\n",
         "2020-07-01T12:00:00 25.7|||||"},
        {"AAAAMMJJHH;POSTE;T;TD;U;FF;GLO\n2019070112;7;28,4;14;;10;36\n",
         "2019-07-01T12:00:00 28.4||100|14||6.431"},
        {"# STN,YYYYMMDD,   HH,   FH,    T,   RH,    Q,    U\n\n  260,20190701,   24,  100,  153,    3,   "
         "36,   80\n",
         "2019-07-02T00:00:00 15.3||100||80|6.431"},
        {"station,valid,tmpf,relh,sknt\nDSM,2019-07-01 00:54,86.0,M,20\n",
         "2019-07-01T00:54:00 30|||||6.6169"},
        {"station_abbr;reference_timestamp;tre200h0;ure200h0;fu3010h0\nBER;01.12.2019 01:00;18;72;36\n",
         "2019-12-01T01:00:00 18||||72|6.431"},
        {"YEAR,MO,DY,HR,T2M,RH2M,WS2M,ALLSKY_SFC_SW_DWN\n2019,1,2,3,15,81,1,410\n",
         "2019-01-02T03:00:00 15||410||81|0.8873"},
        {"time,t2m,d2m,u10,ssrd\n2019-07-01 11:00:00,303.15,285.15,1,0\n2019-07-01 "
         "12:00:00,303.15,285.15,1,360000\n",
         "2019-07-01T12:00:00 30||100|12||"},
        {"year,doy,hour,airT,RH,u2\n2019,182,30,31,35,1\n2019,365,2400,31,35,1\n",
         "2020-01-01T00:00:00 31||||35|0.8873"},
        {"year,mo,dy,hr,airT\n2019,7,1,1330,31\n", "2019-07-01T13:30:00 31|||||"},
        {"year,doy,hour,airT\n2019,365,1300,31\n2019,366,1300,31\n",
         "refused: \"2019 366 1300\" is no date and time"},
        {"Date (MM/DD/YYYY),Time (HH:MM),Dry-bulb (C),Dew-point (C)\n02/01/1988,24:00,8,-5\n",
         "1988-02-02T00:00:00 8|||-5||"},
        {"Date,Temp (°F),Globe (°F),Solar (W/m2)\n7/1/19 1:00 PM,86,104,900\n",
         "2019-07-01T13:00:00 30|40||||"},
        {"Date;Heure;Température (°C)\n15/07/2019;13h30;30,5\n15/07/2019;14h00;31,5\n",
         "2019-07-15T14:00:00 31.5|||||"},
        {"Date,Hour (PST),Jul,Sol Rad (W/m2),Air Temp "
         "(F)\n7/14/2019,2300,195,0,84\n7/14/2019,2400,195,0,86\n",
         "2019-07-15T00:00:00 30||0|||"},
        {"Date/Time (LST),Year,Month,Day,Temp (°C)\n2019-07-14 13:00,2019,07,14,30\n",
         "2019-07-14T13:00:00 30|||||"},
        {"numer_sta;date;pmer;ff;t;td;u;niv_bar;\n07149;20190714120000;101320;2;303.15;283.15;30;mq;\n",
         "2019-07-14T12:00:00 30||||30|1.2862"},
        {"# STN,YYYYMMDD,FG,TG,Q,UG\n260,20190714,100,153,2592,80\n",
         "2019-07-14T00:00:00 15.3||300||80|6.431"},
        {"DATA;HORA UTC;PRECIPITA\xC7\xC3O (mm);TEMPERATURA DO AR (\xB0"
         "C)\n2019/07/14;1300 UTC;0;30,5\n",
         "2019-07-14T13:00:00Z 30.5|||||"},
        {"#YY  MM DD hh mm WSPD  ATMP DEWP\n#yr  mo dy hr mn m/s  degC degC\n2019 07 14 13 50 2.0  30.1 "
         "10.1\n",
         "2019-07-14T13:50:00 30.1|||10.1||2.0"},
        {"Date        Time   Air Temp  Rel Hum\n                       [°F]      [%]\n"
         "2019-07-14  13:00      86.0       45\n2019-07-14  14:00                44\n",
         "2019-07-14T14:00:00 ||||44|"},
        {"time(UTC),temp,dew_point\n20160101:0030,275.15,270.15\n", "2016-01-01T00:30:00Z 2|||-3||"},
    };
    for (const auto& file : files)
        EXPECT_EQ(mappedRows(openTable(file.text), tables::guessMapping(openTable(file.text))).back(),
                  file.row)
            << file.text;
}

TEST(TableMapping, NamesInFiveLanguagesAreKnown)
{
    const std::pair<const char*, const char*> rows[] = {
        {"air_temperature [K]", "ta:K?"}, // 20 K
        {"Mean Radiant Temperature (°C)", "none"},
        {"Vapor Pressure Deficit (kPa)", "none"},
        {"10m_u_component_of_wind (m/s)", "none"},
        {"Clear sky GHI (W/m2)", "none"},
        {"wind_speed_unit_id", "none"},
        {"Humidity (g/kg)", "rh:%?"},
        {"Air temperature (K)", "ta:K?"},
        {"Radiación (W/m2)", "sr:W/m2?"},
        {"Hr", "none"}, // 20 and 21 hours
        {"windspd_avg10m (m/s)", "none"},
        {"Wind avg10m (m/s)", "ws:m/s?"},
        {"WindSpeedKMH", "ws:km/h?"},
        {"[°C]", "ta:°C?"},
        {"Wilgotność (%)", "rh:%"},
        {"Umidità relativa (%)", "rh:%"},
        {"Température de l'air (°C)", "ta:°C"},
        {"Θερμοκρασία (°C)", "ta:°C"},
        {"Temp_Out_F", "ta:F"},
        {"SW radiation out (W/m2)", "none"},
        {"Bodentemperatur 5 cm (°C)", "none"},
        {"Max Temp (°C)", "none"},
        {"Punto de rocío (°C)", "td:°C"},
        {"Humedad relativa (%)", "rh:%"},
        {"RH%", "rh:%"},
        {"Σχετική υγρασία %", "rh:%"},
        {"surface_downwelling_shortwave_flux_in_air (W m-2)", "sr:W/m2"},
        {"Vitesse du vent à 10 m (km/h)", "ws:km/h@10"},
        {"Wind direction (m/s)", "none"},
        {"Wind gust km/h", "none"},
        {"Windgeschwindigkeit [m/s]", "ws:m/s?"},
        {"Temp", "ta:°C?"},
        {"Temperature (hPa)", "ta:°C?"},
        {"vapour pressure (hPa)", "ea:hPa"},
        {"Globe Temp (°F)", "tg:F"},
    };
    for (const auto& [name, expected] : rows) {
        const Mapping mapping = tables::guessMapping(openTable("Id;" + std::string(name) + "\n1;20\n2;21\n"));
        const tables::ColumnUse& use = mapping.columns.back();
        std::string shown = "none";
        if (use.role == Role::Reading)
            shown = std::string(infoOf(use.quantity).key) + ":" + use.unit +
                    (use.height > 0 ? "@" + std::to_string(static_cast<int>(use.height)) : "") +
                    (use.doubt.empty() ? "" : "?");
        EXPECT_EQ(shown, expected) << name;
        EXPECT_EQ(use.because.empty(), use.role == Role::Carried) << name;
    }
}

TEST(TableMapping, DatesThatCanBeReadInTwoWaysAreDoubted)
{
    const auto order = [](const std::string& first, const std::string& second) {
        const Mapping mapping =
            tables::guessMapping(openTable("Date;Time;x\n" + first + ";1:00;1\n" + second + ";2:00;2\n"));
        return std::string(orderName(mapping.order)) + (mapping.columns.front().doubt.empty() ? "" : "?");
    };
    EXPECT_EQ(order("1/2/2024", "12/2/2024"), "dmy?");
    EXPECT_EQ(order("1/2/2024", "13/2/2024"), "dmy");
    EXPECT_EQ(order("1/2/2024", "1/13/2024"), "mdy");
    EXPECT_EQ(order("01.02.2024", "02.02.2024"), "dmy");
    EXPECT_EQ(order("2024-02-01", "2024-02-02"), "ymd");
}

TEST(TableMapping, AFileOfItGivesItBackAndIsKnownAgainByItsTable)
{
    const tables::OpenTable table = openTable(tableFile("station.csv"));
    Mapping mapping = tables::guessMapping(table);
    mapping.name = "Süd";
    mapping.zone = -210;
    mapping.gaps = {"x", "-99"};
    mapping.shape = {.coding = tables::Coding::Windows1252,
                     .separator = ';',
                     .decimal = ',',
                     .comment = "#",
                     .header = 3,
                     .unitLines = 0,
                     .dataLine = 9,
                     .sheet = "S"};
    mapping.columns.back().step = 600;
    mapping.columns.front().role = tables::Role::Input;
    mapping.columns.front().input = "met";
    mapping.columns.front().unit = "W/m2";
    EXPECT_EQ(tables::readMapping(tables::mappingText(mapping)).mapping, mapping);
    const std::vector<Mapping> known{{.name = "other"}, mapping};
    EXPECT_EQ(tables::recognised(table.layout, known), &known[1]);
    EXPECT_EQ(tables::recognised(openTable(tableFile("logger.dat")).layout, known), nullptr);
}

TEST(TableMapping, ADamagedFileIsOneClause)
{
    const std::string start = R"({"comfortics": "table mapping", "version": 1, "columns": )";
    const std::pair<std::string, std::string> rows[] = {
        {"{", "it is damaged: it is no JSON"},
        {"[]", "it is damaged: it is no mapping of a table"},
        {R"({"comfortics": "table mapping", "version": 2})",
         "it is damaged: it is of a later version of the program"},
        {start + "[]}", "it is damaged: it has no list of columns"},
        {start + R"([{"column": "a", "reading": "ta", "unit": "hPa"}]})",
         "it is damaged: \"hPa\" is no unit of the air temperature"},
        {start + R"([{"column": "a"}, {"column": "a"}]})", "it is damaged: it has \"a\" twice"},
        {start + R"([{"column": "a", "role": "input", "input": "x"}]})",
         "it is damaged: \"x\" is no input of a model"},
        {start + std::string(50, '[') + std::string(50, ']') + "}",
         "it is damaged: it is no mapping of a table"},
    };
    for (const auto& [text, says] : rows)
        EXPECT_EQ(tables::readMapping(text).fault, says) << text;
}

TEST(TableMapping, AWrongTextOfTheCommandLineIsOneSentence)
{
    const tables::Layout layout = openTable("Temp, in;x\n1;2\n").layout;
    EXPECT_EQ(tables::mappingOfText("TA=Temp\\, in:K,time=#2", layout).columns.front().unit, "K");
    const std::pair<std::string, std::string> rows[] = {
        {"ta=y", "The table has no column \"y\"."},
        {"ta=#3", "The table has no column \"#3\"."},
        {"ta", "\"ta\" stands without a column; write ta=COLUMN."},
        {"ta=x:km/h", "\"km/h\" is no unit of the air temperature."},
        {"sr=x:MJ/m2", "The radiation in MJ/m2 needs the step over which it is summed, as MJ/m2@10min."},
        {"ws=x@10",
         "\"@10\" is neither the height of a wind, as @10m, nor the step of a radiation, as @10min."},
        {"tb=x", "\"tb\" is nothing that a column can be."},
        {"ta=x,tg=#2", "The column \"x\" is told twice."},
        {"met=x,met=#1", "Two columns are told to be the input met."},
        {"zone=Athens", "\"Athens\" is no zone of time, such as UTC or +02:00."},
    };
    for (const auto& [text, says] : rows) {
        try {
            tables::mappingOfText(text, layout);
            ADD_FAILURE() << text;
        } catch (const tables::TableFault& fault) {
            EXPECT_EQ(fault.what(), says);
        }
    }
}

} // namespace
} // namespace comfortics::tests
